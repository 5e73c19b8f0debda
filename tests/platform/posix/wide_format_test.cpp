// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What our own formatting does beyond the common table: narrow text is UTF-8, and sizes are those of C.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <string>

#include "platform/platform.h"
#include "tests/platform/system_seam.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kRoom = 12000;

WideText formatted(const char16_t* format, ...) {
  static CPWChar out[kRoom];
  va_list arguments;
  va_start(arguments, format);
  const int length = platform::format_wide(out, kRoom, format, arguments);
  va_end(arguments);
  return length < 0 ? u"(does not fit)" : WideText(out, static_cast<std::size_t>(length));
}

WideText widened(const std::string& ascii) {
  return WideText(ascii.begin(), ascii.end());
}

}  // namespace

TEST(WideFormatHere, NarrowTextIsUtf8) {
  EXPECT_EQ(formatted(u"%S|%hs", "\u00E9\u5927", "\U0001F600"), u"\u00E9\u5927|\U0001F600");
  EXPECT_EQ(formatted(u"[%4S][%-4S]", "\u00E9", "\u5927"), u"[   \u00E9][\u5927   ]");
  EXPECT_EQ(formatted(u"%hc%hc", 'a', 0xE9), u"a\uFFFD");
}

TEST(WideFormatHere, APrecisionCutsNarrowTextBehindAWholeCharacter) {
  const char text[] = "a\u00E9\u5927\U0001F600";
  const char16_t* const cut[] = {u"", u"a", u"a", u"a\u00E9", u"a\u00E9", u"a\u00E9", u"a\u00E9\u5927"};
  for (int n = 0; n < 7; ++n) EXPECT_EQ(formatted(u"%.*S", n, text), cut[n]) << n;
  EXPECT_EQ(formatted(u"%.9S", text), u"a\u00E9\u5927");
  EXPECT_EQ(formatted(u"%.10S", text), u"a\u00E9\u5927\U0001F600");
  const char unterminated[] = {'a', '\xE5', '\xA4'};
  EXPECT_EQ(formatted(u"%.3S", unterminated), u"a");
}

TEST(WideFormatHere, BytesThatAreNoTextAreReplaced) {
  EXPECT_EQ(formatted(u"%S", "a\x80\x80\x80\x80\x80z"), u"a\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDz");
  EXPECT_EQ(formatted(u"%S", "\xE5\xA4z\xFF"), u"\uFFFDz\uFFFD");
  EXPECT_EQ(formatted(u"%.4S", "\x80\x80\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

TEST(WideFormatHere, LongIsTheSystemsAndSizesAreThoseOfC) {
  EXPECT_EQ(formatted(u"%ld|%lu", LONG_MIN, ULONG_MAX), u"-9223372036854775808|18446744073709551615");
  EXPECT_EQ(formatted(u"%zu|%td|%jd", SIZE_MAX, std::ptrdiff_t{-2}, INTMAX_MIN),
            u"18446744073709551615|-2|-9223372036854775808");
  EXPECT_EQ(formatted(u"%Lf|%.3Le", 1.5L, 2.5L), u"1.500000|2.500e+000");
}

TEST(WideFormatHere, ALoneOrCutConversionIsDropped) {
  EXPECT_EQ(formatted(u"a%"), u"a");
  EXPECT_EQ(formatted(u"a%-5"), u"a");
  EXPECT_EQ(formatted(u"a%I6"), u"a6");
  EXPECT_EQ(formatted(u"a%l"), u"a");
}

TEST(WideFormatHere, HugeWidthsAndPrecisionsAreBounded) {
  EXPECT_EQ(formatted(u"%99999999999d", 1).size(), 8191u);
  EXPECT_EQ(formatted(u"%*d", INT_MIN, 1).size(), 8191u);
  EXPECT_EQ(formatted(u"%.5000d", 1), WideText(4999, u'0') + u'1');
  EXPECT_EQ(formatted(u"%.2147483647f", 1.0).size(), 8193u);
  EXPECT_EQ(formatted(u"%.9000f", 1e308).size(), 309u + 1u + 8191u);
  EXPECT_EQ(formatted(u"%.8191Lf", 1e4000L), u"(does not fit)");
}

TEST(WideFormatHere, APrecisionOfAWholeNumberKeepsZerosFromFillingItUp) {
  EXPECT_EQ(formatted(u"[%08.4d][%08.4x][%#010.4x]", -7, 7u, 7u), u"[   -0007][    0007][    0x0007]");
}

TEST(WideFormatHere, APercentSignHasNoField) {
  EXPECT_EQ(formatted(u"%-5%|%5%|%05%"), u"%|%|%");
}

TEST(WideFormatHere, InfinitiesAreNotFilledUpWithZeros) {
  EXPECT_EQ(formatted(u"[%06f][%-6e]", HUGE_VAL, -HUGE_VAL), u"[   inf][-inf  ]");
}

TEST(WideFormatHere, RandomRealNumbersAgreeWithTheNarrowRuntime) {
  constexpr std::uint64_t kSeed = 63;
  for (int i = 0; i < scaled(100000); ++i) {
    SCOPED_TRACE(testing::Message() << "case " << i << " of family " << kSeed);
    Random random(case_seed(kSeed, i));
    std::string format = "<%";
    for (const char flag : std::string("-+ 0#")) {
      if (random.one_in(3)) format += flag;
    }
    if (random.one_in(2)) format += std::to_string(random.between(1, 30));
    if (random.one_in(2)) format += "." + std::to_string(random.below(20));
    format += "fFaA"[random.below(4)];
    format += '>';
    const double value = (random.unit() - 0.5) * (random.one_in(2) ? 10 : 1e15);
    char expected[128];
    std::snprintf(expected, sizeof expected, format.c_str(), value);
    EXPECT_EQ(formatted(widened(format).c_str(), value), widened(expected)) << format << " of " << value;
  }
}

}  // namespace Corvane::Print::tests
