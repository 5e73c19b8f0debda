// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <vector>

#include "platform/platform.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

using platform::kToTerminator;
using platform::narrow_from_wide;
using platform::wide_from_narrow;

WideText widened(const std::string& bytes) {
  std::vector<CPWChar> out(bytes.size() + 1);
  const int count = wide_from_narrow(bytes.c_str(), kToTerminator, out.data(), static_cast<int>(out.size()));
  return WideText(out.data(), static_cast<std::size_t>(count - 1));
}

std::string narrowed(const WideText& units) {
  std::vector<char> out(3 * units.size() + 1);
  const int count = narrow_from_wide(units.c_str(), kToTerminator, out.data(), static_cast<int>(out.size()));
  return std::string(out.data(), static_cast<std::size_t>(count - 1));
}

TEST(CodePagePosix, EveryCodePointSurvives) {
  for (char32_t c = 1; c < 0x110000; ++c) {
    if (!narrow_has(c)) continue;
    const std::u32string text(1, c);
    ASSERT_EQ(widened(narrow(text)), wide(text)) << std::hex << static_cast<unsigned>(c);
    ASSERT_EQ(narrowed(wide(text)), narrow(text)) << std::hex << static_cast<unsigned>(c);
  }
}

TEST(CodePagePosix, EachMalformedPieceBecomesOneReplacement) {
  const struct {
    const char* bytes;
    std::u32string_view expected;
  } cases[] = {
      {"\x80", U"\uFFFD"},  // a byte that continues nothing
      {"a\xBFz", U"a\uFFFDz"},
      {"\xC0\x80", U"\uFFFD\uFFFD"},  // never a first byte
      {"\xC1\xBF", U"\uFFFD\uFFFD"},
      {"\xC3", U"\uFFFD"},  // the text ends too early
      {"\xC3z", U"\uFFFDz"},
      {"\xE0\x80\x80", U"\uFFFD\uFFFD\uFFFD"},  // overlong
      {"\xE5\xA4", U"\uFFFD"},                  // two bytes of three are one piece
      {"\xE5\xA4z", U"\uFFFDz"},
      {"\xE5\xE5\xA4\xA7", U"\uFFFD\u5927"},
      {"\xED\xA0\x80", U"\uFFFD\uFFFD\uFFFD"},  // a surrogate
      {"\xED\x9F\xBF", U"\uD7FF"},
      {"\xF0\x80\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // overlong
      {"\xF0\x9F\x98", U"\uFFFD"},                        // three bytes of four are one piece
      {"\xF0\x9F\x98z", U"\uFFFDz"},
      {"\xF4\x90\x80\x80", U"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond the last code point
      {"\xF5\x80", U"\uFFFD\uFFFD"},
      {"\xFE\xFF", U"\uFFFD\uFFFD"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(widened(c.bytes), wide(c.expected)) << testing::PrintToString(std::string(c.bytes));
  }
}

TEST(CodePagePosix, ASequenceCutByTheGivenLengthIsOneReplacement) {
  CPWChar out[4];
  EXPECT_EQ(wide_from_narrow("a\xF0\x9F\x98\x80", 4, out, 4), 2);
  EXPECT_EQ(out[1], 0xFFFD);
}

TEST(CodePagePosix, HalfASurrogatePairBecomesAReplacement) {
  const std::string replacement = "\xEF\xBF\xBD";
  EXPECT_EQ(narrowed(wide(U"a") + CPWChar(0xD83D)), "a" + replacement);
  EXPECT_EQ(narrowed(WideText(1, CPWChar(0xD83D)) + wide(U"a")), replacement + "a");
  EXPECT_EQ(narrowed(WideText(1, CPWChar(0xDE00)) + wide(U"a")), replacement + "a");
  EXPECT_EQ(narrowed(WideText(2, CPWChar(0xD83D))), replacement + replacement);
  const CPWChar reversed[] = {0xDE00, 0xD83D, 0};
  EXPECT_EQ(narrowed(reversed), replacement + replacement);
  const CPWChar half_and_pair[] = {0xD83D, 0xD83D, 0xDE00, 0};
  EXPECT_EQ(narrowed(half_and_pair), replacement + narrow(U"\U0001F600"));
}

TEST(CodePagePosix, APairCutByTheGivenLengthIsAReplacement) {
  const WideText pair = wide(U"\U0001F600");
  char out[8];
  EXPECT_EQ(narrow_from_wide(pair.c_str(), 1, out, 8), 3);
  EXPECT_EQ(std::string(out, 3), "\xEF\xBF\xBD");
}

}  // namespace
}  // namespace Corvane::Print::tests
