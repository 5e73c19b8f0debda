// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The environment is asked directly, not through the host's callback: drives are a matter of this system, not
// of the plot configuration. No shared state, no heap.
#include "platform/posix/host_name.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "platform/platform.h"
#include "platform/text_vector.h"

namespace Corvane::Print::platform {
namespace {

// Text put together up to a capacity.
class NameWriter {
public:
  explicit NameWriter(char* out) : out_(out) {}

  void put(const char* text, std::size_t bytes) {
    if (bytes >= static_cast<std::size_t>(kHostNameCapacity) - used_) {
      overflow_ = true;
      return;
    }
    std::memcpy(out_ + used_, text, bytes);
    used_ += bytes;
    out_[used_] = '\0';
  }

  bool ends_in_separator() const { return used_ != 0 && out_[used_ - 1] == '/'; }
  char* end() const { return out_ + used_; }
  int room() const { return kHostNameCapacity - static_cast<int>(used_); }
  bool overflow() const { return overflow_; }

private:
  char* out_;
  std::size_t used_ = 0;
  bool overflow_ = false;
};

// The letter in upper case, or 0 when the specification does not begin with a drive.
char drive_of(const CPWChar* spec) {
  if (spec[0] == 0 || spec[1] != u':') return '\0';
  const char32_t letter = spec[0] | 0x20u;
  return letter >= U'a' && letter <= U'z' && spec[0] < 0x80 ? static_cast<char>(letter - 0x20) : '\0';
}

// Null when the drive names nothing.
const char* directory_of_drive(char letter) {
  if (letter == 'Z') return "/";
  char variable[] = "CORVANE_DRIVE_?";
  variable[sizeof variable - 2] = letter;
  const char* const directory = std::getenv(variable);
  return directory != nullptr && *directory != '\0' ? directory : nullptr;
}

bool is_separator(CPWChar c) {
  return c == u'\\' || c == u'/';
}

}  // namespace

bool host_name(const CPWChar* spec, int length, char* out) noexcept {
  NameWriter name(out);
  if (length == kToTerminator) length = static_cast<int>(std::char_traits<CPWChar>::length(spec));
  const CPWChar* const behind = spec + length + 1;
  if (const char letter = drive_of(spec)) {
    const char* const directory = directory_of_drive(letter);
    if (directory == nullptr) return false;
    name.put(directory, std::strlen(directory));
    spec += 2;
    while (is_separator(*spec)) ++spec;
    if (!name.ends_in_separator() && *spec != 0) name.put("/", 1);
  }
  if (name.overflow()) return false;
  char* const rest = name.end();
  const auto units = static_cast<std::size_t>(behind - spec);
  if (units <= static_cast<std::size_t>(name.room()) && copy_ascii(spec, units, rest, '\\', '/') == units)
    return true;
  const int bytes = narrow_from_wide(spec, static_cast<int>(units), rest, name.room());
  std::replace(rest, rest + bytes, '\\', '/');
  return bytes != 0;
}

}  // namespace Corvane::Print::platform
