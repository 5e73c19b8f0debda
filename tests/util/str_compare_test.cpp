// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <climits>

#include "corvane/print/str.h"
#include "platform/capi_memory.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

int wide_compare(std::u32string_view a, std::u32string_view b) {
  return STRCompareCIW(wide(a).c_str(), wide(b).c_str());
}

int narrow_compare(std::u32string_view a, std::u32string_view b) {
  return STRCompareCI(narrow(a).c_str(), narrow(b).c_str());
}

TEST(StrCompare, OrdersByLowerCaseCharacters) {
  struct Case {
    const char32_t* s1;
    const char32_t* s2;
    int result;
  };
  for (const Case& c : {Case{U"abc", U"ABD", -1}, Case{U"ABD", U"abc", 1}, Case{U"Abc", U"aBC", 0},
                        Case{U"ab", U"abc", -1}, Case{U"abc", U"ab", 1}, Case{U"", U"", 0},
                        Case{U"", U"a", -1}, Case{U"a", U"", 1}, Case{U"a", U"_", 1}, Case{U"A", U"_", 1}}) {
    EXPECT_EQ(wide_compare(c.s1, c.s2), c.result);
    EXPECT_EQ(narrow_compare(c.s1, c.s2), c.result);
  }
}

TEST(StrCompare, InTheCLocaleOnlyAsciiLettersHaveCase) {
  const ScopedLocale locale("C");
  EXPECT_EQ(wide_compare(U"AZ", U"az"), 0);
  EXPECT_EQ(wide_compare(U"\u00C9", U"\u00E9"), -1);
  EXPECT_EQ(wide_compare(U"\u0416", U"\u0436"), -1);
}

TEST(StrCompare, ALocaleGivesItsLettersCase) {
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(wide_compare(U"\u00C9t\u00C9", U"\u00E9T\u00E9"), 0);
  if (narrow_has(0xE9)) {
    EXPECT_EQ(narrow_compare(U"\u00C9t\u00C9", U"\u00E9T\u00E9"), 0);
    EXPECT_EQ(narrow_compare(U"\u00E9", U"z"), 1);
  }
  if (narrow_has(0x416)) {
    EXPECT_EQ(narrow_compare(U"\u0416", U"\u0436"), 0);
  }
}

TEST(StrCompare, UnitsAreComparedUnsigned) {
  EXPECT_EQ(wide_compare(U"\uFFFF", U"a"), 1);
  EXPECT_EQ(wide_compare(U"a", U"\u8000"), -1);
}

TEST(StrCompare, PairsHaveNoCaseAndSortAsTheirUnits) {
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(wide_compare(U"\U0001F600", U"\U0001F600"), 0);
  EXPECT_EQ(wide_compare(U"\U00010400", U"\U00010428"), -1);
  EXPECT_EQ(wide_compare(U"\U0001F600", U"\uFFFF"), -1);
  EXPECT_EQ(wide_compare(U"\U0001F600", U"\uD7FF"), 1);
  if (!narrow_is_utf8()) return;
  EXPECT_EQ(narrow_compare(U"\U0001F600", U"\U0001F600"), 0);
  EXPECT_EQ(narrow_compare(U"\U00010400", U"\U00010428"), -1);
  EXPECT_EQ(narrow_compare(U"\U0001F600", U"\uFFFF"), -1);
  EXPECT_EQ(narrow_compare(U"\U0001F600", U"\uD7FF"), 1);
}

// Where characters take one byte each, every byte is a character.
TEST(StrCompare, BytesThatAreNoCharacterEndTheText) {
  const ScopedLocale locale(text_locale());
  const int different = narrow_is_utf8() ? 0 : -1;
  EXPECT_EQ(STRCompareCI("ab\xFF\x31", "AB\xFF\x32"), different);
  EXPECT_EQ(STRCompareCI("ab\xFF", "ab"), narrow_is_utf8() ? 0 : 1);
  EXPECT_EQ(STRCompareCI("ab\xC3", "ab\xC3"), 0);  // a character that is cut off by the end
  EXPECT_EQ(STRCompareCI("ab\xFF", "abc"), narrow_is_utf8() ? -1 : 1);
}

TEST(StrCompare, InTheCLocaleBytesBeyondAsciiAreNotDecodedAsUtf8) {
  const ScopedLocale locale("C");
  EXPECT_EQ(STRCompareCI("\xC3\x89", "\xC3\xA9"), narrow_is_utf8() ? 0 : -1);
  EXPECT_EQ(STRCompareCI("a\xC3\x89", "b\xC3\xA9"), -1);
}

TEST(StrCompare, NullIsAnEmptyText) {
  EXPECT_EQ(STRCompareCIW(nullptr, nullptr), 0);
  EXPECT_EQ(STRCompareCIW(nullptr, wide(U"a").c_str()), -1);
  EXPECT_EQ(STRCompareCI("a", nullptr), 1);
  EXPECT_EQ(STRCompareCI(nullptr, ""), 0);
  EXPECT_EQ(STRCompareCICountW(nullptr, wide(U"a").c_str(), 1), -1);
  EXPECT_EQ(STRCompareCICount(nullptr, "a", 1), -1);
}

TEST(StrCompareCount, ComparesAtMostSoManyCharacters) {
  const WideText a = wide(U"abcX"), b = wide(U"ABCy");
  EXPECT_EQ(STRCompareCICountW(a.c_str(), b.c_str(), 3), 0);
  EXPECT_EQ(STRCompareCICountW(a.c_str(), b.c_str(), 4), -1);
  EXPECT_EQ(STRCompareCICountW(b.c_str(), a.c_str(), INT_MAX), 1);
  EXPECT_EQ(STRCompareCICount("abcX", "ABCy", 3), 0);
  EXPECT_EQ(STRCompareCICount("abcX", "ABCy", 4), -1);
  EXPECT_EQ(STRCompareCICount("abc", "ABC", 100), 0);
}

TEST(StrCompareCount, ACountBelowOneComparesNothing) {
  for (const int count : {0, -1, INT_MIN}) {
    EXPECT_EQ(STRCompareCICountW(wide(U"a").c_str(), wide(U"b").c_str(), count), 0);
    EXPECT_EQ(STRCompareCICount("a", "b", count), 0);
  }
}

TEST(StrCompareCount, TheNarrowFormGoesByTheCodePageAndNotByTheLocale) {
  const ScopedLocale locale("C");
  if (!narrow_has(0xE9)) return;
  const std::string one = narrow(U"\u00E91"), two = narrow(U"\u00E92");
  EXPECT_EQ(STRCompareCICount(one.c_str(), two.c_str(), 1), 0);
  EXPECT_EQ(STRCompareCICount(one.c_str(), two.c_str(), 2), -1);
}

TEST(StrCompareCount, WithoutMemoryTextsAreNotKnownToBeEqual) {
  const long before = platform::capi_blocks_out();
  for (const long successes : {0, 1}) {
    platform::capi_fail_after(successes);
    EXPECT_EQ(STRCompareCICount("a", "a", 1), 1);
    platform::capi_fail_after(-1);
  }
  EXPECT_EQ(STRCompareCICount("a", "a", 1), 0);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

void compare_random_units(std::uint64_t family, int cases) {
  for (int i = 0; i < cases; ++i) {
    const std::uint64_t seed = case_seed(family, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const WideText a = random_units(random, random_length(random));
    WideText b = random.one_in(8) ? random_units(random, random_length(random)) : a;
    if (!b.empty() && random.one_in(2)) b.back() = random_unit(random);
    if (random.one_in(2)) b = random.one_in(2) ? model::lower(b) : model::upper(b);
    const int count = random.one_in(2) ? random.between(-2, 22) : random_length(random);
    ASSERT_EQ(STRCompareCIW(a.c_str(), b.c_str()), model::compare(a, b));
    ASSERT_EQ(STRCompareCICountW(a.c_str(), b.c_str(), count), model::compare(a, b, count));
  }
}

TEST(StrCompare, RandomTextsCompareAsTheModelSays) {
  {
    const ScopedLocale locale("C");
    compare_random_units(0x57C0, scaled(100000));
  }
  const ScopedLocale locale(text_locale());
  compare_random_units(0x57C1, scaled(100000));
}

TEST(StrCompare, NarrowEqualsWideForRandomTexts) {
  const ScopedLocale locale(text_locale());
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0x57C2, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string a = random_characters(random, random_length(random));
    const std::u32string b =
        random.one_in(8) ? random_characters(random, random_length(random)) : similar(random, a);
    const int count = random.between(-2, 30);
    ASSERT_EQ(narrow_compare(a, b), wide_compare(a, b));
    ASSERT_EQ(STRCompareCICount(narrow(a).c_str(), narrow(b).c_str(), count),
              STRCompareCICountW(wide(a).c_str(), wide(b).c_str(), count));
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
