// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Texts for the conversions: lengths at and around every capacity, of characters that take one to four bytes
// and one or two wide units, and a plain model of cutting them.
#ifndef CORVANE_PRINT_TESTS_CONFIG_TEXTS_H
#define CORVANE_PRINT_TESTS_CONFIG_TEXTS_H

#include <string>
#include <vector>

#include "tests/platform/system_seam.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

inline constexpr int kLengths[] = {0,   1,   2,   126, 127, 128, 129, 170, 171,  253,  254,  255,
                                   256, 257, 258, 510, 511, 512, 513, 514, 1023, 1024, 1025, 5000};

struct Alphabet {
  const char* name;
  std::u32string characters;

  // `length` characters, the alphabet over and over.
  std::u32string text(int length) const {
    std::u32string result;
    for (int i = 0; i < length; ++i) result += characters[static_cast<std::size_t>(i) % characters.size()];
    return result;
  }
};

// Those alphabets that the narrow code page of this target knows.
inline std::vector<Alphabet> alphabets() {
  std::vector<Alphabet> known;
  for (const Alphabet& alphabet : {
           Alphabet{"ASCII", U"abcdefghi/\\;:.* "},
           Alphabet{"Latin", U"\u00E9\u00FF\u00A0\u00DF"},
           Alphabet{"Han", U"\u5927\u5C0F\uFFFF"},
           Alphabet{"pairs", U"\U0001F600\U00010000\U0010FFFF"},
           Alphabet{"an odd pair", U"a\U0001F600\U00010000"},
           Alphabet{"mixed", U"a\u00E9\u5927\U0001F600zz\u0416"},
       }) {
    bool all = true;
    for (const char32_t c : alphabet.characters) all = all && narrow_has(c);
    if (all) known.push_back(alphabet);
  }
  return known;
}

inline std::u32string random_text(Random& random, int length) {
  const std::vector<Alphabet> known = alphabets();
  std::u32string text;
  for (int i = 0; i < length; ++i) {
    const std::u32string& from =
        known[static_cast<std::size_t>(random.below(static_cast<int>(known.size())))].characters;
    text += from[static_cast<std::size_t>(random.below(static_cast<int>(from.size())))];
  }
  return text;
}

// The longest beginning of whole characters that takes at most `units` wide units, or `bytes` bytes.
inline std::u32string cut_to_units(const std::u32string& text, int units) {
  std::u32string kept;
  for (const char32_t c : text) {
    units -= static_cast<int>(wide(std::u32string(1, c)).size());
    if (units < 0) break;
    kept += c;
  }
  return kept;
}

inline std::u32string cut_to_bytes(const std::u32string& text, int bytes) {
  std::u32string kept;
  for (const char32_t c : text) {
    bytes -= static_cast<int>(narrow(std::u32string(1, c)).size());
    if (bytes < 0) break;
    kept += c;
  }
  return kept;
}

}  // namespace Corvane::Print::tests

#endif
