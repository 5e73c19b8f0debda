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

// The letter in upper case, or 0 when the specification does not begin with a drive.
char drive_of(const CPWChar* spec) {
  if (spec[0] == 0 || spec[1] != u':') return '\0';
  const char32_t letter = spec[0] | 0x20u;
  return letter >= U'a' && letter <= U'z' && spec[0] < 0x80 ? static_cast<char>(letter - 0x20) : '\0';
}

// Null when the drive, which is not Z, names nothing.
const char* directory_of_drive(char letter) {
  char variable[] = "CORVANE_DRIVE_?";
  variable[sizeof variable - 2] = letter;
  const char* const directory = std::getenv(variable);
  return directory != nullptr && *directory != '\0' ? directory : nullptr;
}

// Writes the directory of a drive and a separator behind it, as far as `follows` something. Returns the bytes
// written; 0 when the drive names nothing or its directory is too long.
std::size_t put_drive(char letter, bool follows, char* out) {
  // Most are here, and need not be measured.
  if (letter == 'Z') {
    out[0] = '/';
    return 1;
  }
  const char* const directory = directory_of_drive(letter);
  const std::size_t bytes = directory != nullptr ? std::strlen(directory) : 0;
  if (bytes == 0) return 0;
  const std::size_t separators = follows && directory[bytes - 1] != '/' ? 1 : 0;
  if (bytes + separators >= kHostNameCapacity) return 0;
  std::memcpy(out, directory, bytes);
  std::memcpy(out + bytes, "/", separators);
  return bytes + separators;
}

bool is_separator(CPWChar c) {
  return c == u'\\' || c == u'/';
}

// The same for what a specification begins with: nothing where that is no drive. `spec` is left on what
// follows. False when the drive names nothing.
bool put_beginning(const CPWChar*& spec, char* out, std::size_t& used) {
  used = 0;
  const char letter = drive_of(spec);
  if (letter == '\0') return true;
  spec += 2;
  while (is_separator(*spec)) ++spec;
  used = put_drive(letter, *spec != 0, out);
  return used != 0;
}

// Writes units of ASCII with their separators turned. False when there are others, or no room.
bool put_ascii(const CPWChar* text, std::size_t units, char* out, std::size_t room) {
  return units <= room && copy_ascii(text, units, out, '\\', '/') == units;
}

}  // namespace

bool host_name(const CPWChar* spec, int length, char* out) noexcept {
  if (length == kToTerminator) length = static_cast<int>(std::char_traits<CPWChar>::length(spec));
  const CPWChar* const behind = spec + length + 1;
  std::size_t used;
  if (!put_beginning(spec, out, used)) return false;
  char* const rest = out + used;
  const auto units = static_cast<std::size_t>(behind - spec);
  const std::size_t room = kHostNameCapacity - used;
  if (put_ascii(spec, units, rest, room)) return true;
  const int bytes = narrow_from_wide(spec, static_cast<int>(units), rest, static_cast<int>(room));
  std::replace(rest, rest + bytes, '\\', '/');
  return bytes != 0;
}

bool host_name_in_folder(const CPWChar* folder, int folder_length, const CPWChar* rest, int rest_length,
                         char* out) noexcept {
  const CPWChar* const end = folder + folder_length;
  std::size_t used;
  // A drive and the separators behind it must be in the first piece, with something behind them.
  if (folder_length < 2 || !put_beginning(folder, out, used) || folder == end) return false;
  const auto units = static_cast<std::size_t>(end - folder);
  if (!put_ascii(folder, units, out + used, kHostNameCapacity - used)) return false;
  used += units;
  return put_ascii(rest, static_cast<std::size_t>(rest_length) + 1, out + used, kHostNameCapacity - used);
}

}  // namespace Corvane::Print::platform
