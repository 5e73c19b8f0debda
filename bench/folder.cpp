// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "bench/folder.h"

#include <stdlib.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace Corvane::Print::bench {

namespace fs = std::filesystem;

Wide wide(const std::string& text) {
  return Wide(text.begin(), text.end());
}

Wide host_spec(const std::string& path) {
  Wide spec = wide("Z:" + path);
  std::replace(spec.begin(), spec.end(), CPWChar('/'), CPWChar('\\'));
  return spec;
}

std::string path_of(const CPWChar* spec) {
  std::string path;
  for (; *spec != 0; ++spec) path += *spec == '\\' ? '/' : static_cast<char>(*spec);
  return path.starts_with("Z:") ? path.substr(2) : path;
}

Folder::Folder() : path_((fs::temp_directory_path() / "bench-XXXXXX").string()) {
  if (mkdtemp(path_.data()) == nullptr) throw std::runtime_error("cannot make the folder " + path_);
}

Folder::~Folder() {
  std::error_code ignored;
  fs::remove_all(path_, ignored);
}

std::string Folder::make_folder(const std::string& name) const {
  const std::string path = path_ + "/" + name;
  fs::create_directory(path);
  return path;
}

std::string Folder::make_file(const std::string& name) const {
  const std::string path = path_ + "/" + name;
  if (!std::ofstream(path)) throw std::runtime_error("cannot make the file " + path);
  return path;
}

}  // namespace Corvane::Print::bench
