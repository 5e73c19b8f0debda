// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See files.h.
#include "plotclip/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>

#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

struct Close {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Close>;

[[noreturn]] void fail(const std::string& name, const char* what) {
  throw Problem(name + ": " + what + ": " + std::strerror(errno));
}

// The drive's letter in upper case, or 0 when the specification does not begin with one.
char drive_of(const std::string& spec) {
  if (spec.size() < 2 || spec[1] != ':') return '\0';
  const char letter = static_cast<char>(spec[0] & ~0x20);
  return letter >= 'A' && letter <= 'Z' ? letter : '\0';
}

// Null when the drive names nothing.
const char* directory_of_drive(char letter) {
  if (letter == 'Z') return "/";
  const char* const directory = std::getenv((std::string("CORVANE_DRIVE_") + letter).c_str());
  return directory != nullptr && *directory != '\0' ? directory : nullptr;
}

}  // namespace

std::string read_file(const std::string& name) {
  errno = 0;
  const File file(std::fopen(name.c_str(), "rb"));
  if (!file) fail(name, "cannot be opened");
  std::string content;
  char block[1 << 16];
  while (const std::size_t n = std::fread(block, 1, sizeof block, file.get())) {
    content.append(block, n);
    if (content.size() > kLargestFile) throw Problem(name + ": is larger than 1 GiB");
  }
  if (std::ferror(file.get())) fail(name, "cannot be read");
  return content;
}

void write_file(const std::string& name, std::string_view content) {
  errno = 0;
  File file(std::fopen(name.c_str(), "wb"));
  if (!file) fail(name, "cannot be written");
  const bool written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  // Closing writes what is still in the buffer, so its result counts.
  if (std::fclose(file.release()) != 0 || !written) fail(name, "cannot be written");
}

std::string extension_of(const std::string& name) {
  std::string extension = std::filesystem::path(name).extension().string();
  if (!extension.empty()) extension.erase(0, 1);
  for (char& c : extension)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return extension;
}

std::optional<std::string> path_of_host(std::string spec) {
  std::ranges::replace(spec, '\\', '/');
  const char drive = drive_of(spec);
  if (drive == '\0') return spec;
  const char* const directory = directory_of_drive(drive);
  if (directory == nullptr) return std::nullopt;
  const std::string rest = spec.substr(std::min(spec.find_first_not_of('/', 2), spec.size()));
  std::string path = directory;
  if (path.back() != '/' && !rest.empty()) path += '/';
  return path + rest;
}

}  // namespace Corvane::Print::plotclip
