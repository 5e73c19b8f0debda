// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// One multibyte character of the runtime's current locale.
//
// Shared state: the runtime's own shift state, which mbtowc keeps between calls. It is brought back to the
// beginning after every failure, or half a character would change the meaning of the next one.
#ifndef CORVANE_PRINT_UTIL_MULTIBYTE_H
#define CORVANE_PRINT_UTIL_MULTIBYTE_H

#include <cstdlib>

namespace Corvane::Print::util {

inline constexpr int kMostBytes = 4;  // of a character; bytes behind the terminator are not looked at

struct MultibyteCharacter {
  char32_t code;  // 0 where there is none
  int bytes;
};

//   text      zero-terminated, or at least kMostBytes long
inline MultibyteCharacter decode_character(const char* text) {
  wchar_t decoded = 0;
  const int bytes = std::mbtowc(&decoded, text, kMostBytes);
  if (bytes > 0) return {static_cast<char32_t>(decoded), bytes};
  if (bytes < 0) static_cast<void>(std::mbtowc(nullptr, nullptr, 0));
  return {0, 0};
}

}  // namespace Corvane::Print::util

#endif
