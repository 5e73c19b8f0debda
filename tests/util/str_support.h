// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Texts, lengths and locales for the tests of the STR family.
#ifndef CORVANE_PRINT_TESTS_UTIL_STR_SUPPORT_H
#define CORVANE_PRINT_TESTS_UTIL_STR_SUPPORT_H

#include <gtest/gtest.h>

#include <clocale>
#include <string>

#include "tests/platform/system_seam.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

// The C library's character locale for the life of the object.
class ScopedLocale {
public:
  explicit ScopedLocale(const char* name) : before_(std::setlocale(LC_CTYPE, nullptr)) {
    EXPECT_NE(std::setlocale(LC_CTYPE, name), nullptr) << "there is no locale " << name;
  }
  ~ScopedLocale() { std::setlocale(LC_CTYPE, before_.c_str()); }
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;

private:
  std::string before_;
};

// A locale whose multibyte characters are those of the narrow code page.
inline const char* text_locale() {
  return narrow_is_utf8() ? "C.UTF-8" : ".1252";
}

// Mostly short, sometimes at and around the sizes at which something could change.
inline int random_length(Random& random) {
  static constexpr int kLengths[] = {0, 1, 254, 255, 256, 257, 511, 512, 513, 514, 5000};
  if (random.one_in(60)) return kLengths[random.below(static_cast<int>(std::size(kLengths)))];
  return random.below(20);
}

// Units of every kind: with and without case, halves of pairs in and out of order.
inline constexpr char16_t kUnits[] = {u'a',   u'a',   u'A',   u'b',   u'B',   u'/',   u' ',
                                      u'/',   0x00E9, 0x00C9, 0x00FF, 0x0178, 0x0130, 0x0416,
                                      0x0436, 0x5927, 0xD83D, 0xDE00, 0xE000, 0xFFFF};

inline CPWChar random_unit(Random& random) {
  return static_cast<CPWChar>(kUnits[random.below(static_cast<int>(std::size(kUnits)))]);
}

inline WideText random_units(Random& random, int length) {
  WideText text;
  while (length-- > 0) text += random_unit(random);
  return text;
}

// Characters that the narrow code page has.
inline char32_t random_character(Random& random) {
  static constexpr char32_t kCharacters[] = {U'a',   U'a',   U'A',   U'b',    U'B',    U'/',   U'/',   U' ',
                                             0x00E9, 0x00C9, 0x00FF, 0x00DF,  0x0130,  0x023A, 0x0416, 0x0436,
                                             0x5927, 0xFFFF, 0xE000, 0x1F600, 0x10400, 0x10428};
  for (;;) {
    const char32_t c = kCharacters[random.below(static_cast<int>(std::size(kCharacters)))];
    if (narrow_has(c)) return c;
  }
}

inline std::u32string random_characters(Random& random, int length) {
  std::u32string text;
  while (length-- > 0) text += random_character(random);
  return text;
}

// The same text, with some characters in the other case and perhaps one of its characters changed.
inline std::u32string similar(Random& random, std::u32string text) {
  for (char32_t& c : text) {
    const bool letter = (c | 0x20) == U'a' || (c | 0x20) == U'b' || (c | 0x20) == 0x00E9;
    if (letter && random.one_in(2)) c ^= 0x20;
  }
  if (!text.empty() && random.one_in(2))
    text[static_cast<std::size_t>(random.below(static_cast<int>(text.size())))] = random_character(random);
  if (random.one_in(4)) text += random_character(random);
  return text;
}

}  // namespace Corvane::Print::tests

#endif
