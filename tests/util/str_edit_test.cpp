// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The wide editing functions, each into a buffer of exactly the room that it asks for, and in place.
#include <gtest/gtest.h>

#include <climits>
#include <cstdlib>

#include "corvane/print/str.h"
#include "platform/capi_memory.h"
#include "tests/support/guarded.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

// call(text, out) must give `expected`, with `room` units and a terminator, and with out == text.
template <class Call>
void check(const WideText& text, std::size_t room, const WideText& expected, Call call) {
  Guarded<CPWChar> out(static_cast<int>(room) + 1);
  ASSERT_EQ(call(text.c_str(), out.data()), out.data());
  ASSERT_EQ(WideText(out.data()), expected);
  ASSERT_TRUE(out.intact());

  Guarded<CPWChar> both(static_cast<int>(std::max(room, text.size())) + 1);
  std::copy_n(text.c_str(), text.size() + 1, both.data());
  ASSERT_EQ(call(both.data(), both.data()), both.data());
  ASSERT_EQ(WideText(both.data()), expected);
  ASSERT_TRUE(both.intact());
}

void check_delete(const WideText& text, CPWChar ch) {
  check(text, text.size(), model::delete_char(text, ch),
        [ch](const CPWChar* str, CPWChar* out) { return STRDeleteCharW(str, ch, out); });
}
void check_delete_lead(const WideText& text, CPWChar ch) {
  check(text, text.size(), model::delete_lead(text, ch),
        [ch](const CPWChar* str, CPWChar* out) { return STRDeleteCharLeadW(str, ch, out); });
}
void check_delete_trail(const WideText& text, CPWChar ch) {
  check(text, text.size(), model::delete_trail(text, ch),
        [ch](const CPWChar* str, CPWChar* out) { return STRDeleteCharTrailW(str, ch, out); });
}
void check_extract(const WideText& text, int start, int count) {
  const std::size_t room = std::min(text.size(), static_cast<std::size_t>(std::max(count, 0)));
  check(text, room, model::extract(text, start, count),
        [=](const CPWChar* str, CPWChar* out) { return STRExtractSubstrW(str, start, count, out); });
}
void check_insert(const WideText& text, int pos, const WideText& sub) {
  check(text, text.size() + sub.size(), model::insert(text, pos, sub),
        [&](const CPWChar* str, CPWChar* out) { return STRInsertSubstrW(str, pos, sub.c_str(), out); });
}
void check_replace(const WideText& text, CPWChar from, CPWChar to) {
  check(text, text.size(), model::replace(text, from, to),
        [=](const CPWChar* str, CPWChar* out) { return STRReplaceCharW(str, from, to, out); });
}
void check_case(const WideText& text) {
  check(text, text.size(), model::lower(text), STRLowerW);
  check(text, text.size(), model::upper(text), STRUpperW);
}
void check_reverse(const WideText& text) {
  check(text, text.size(), model::reverse(text), [&text](const CPWChar*, CPWChar* out) {
    std::copy_n(text.c_str(), text.size() + 1, out);
    return STRReverseW(out);
  });
}

TEST(StrDeleteChar, RemovesEveryOccurrence) {
  check_delete(wide(U"/a//b/"), '/');
  check_delete(wide(U"///"), '/');
  check_delete(wide(U"abc"), '/');
  check_delete(wide(U""), '/');
  check_delete(wide(U"abc"), 0);
}

TEST(StrDeleteCharLead, RemovesTheRunAtTheBeginning) {
  CPWChar out[8];
  EXPECT_EQ(WideText(STRDeleteCharLeadW(wide(U"  x").c_str(), ' ', out)), wide(U"x"));
  check_delete_lead(wide(U"  x x "), ' ');
  check_delete_lead(wide(U"   "), ' ');
  check_delete_lead(wide(U"x"), ' ');
  check_delete_lead(wide(U""), ' ');
  check_delete_lead(wide(U"x"), 0);
}

TEST(StrDeleteCharTrail, RemovesTheRunAtTheEnd) {
  CPWChar out[8];
  EXPECT_EQ(WideText(STRDeleteCharTrailW(wide(U"path///").c_str(), '/', out)), wide(U"path"));
  check_delete_trail(wide(U"/a/b//"), '/');
  check_delete_trail(wide(U"///"), '/');
  check_delete_trail(wide(U"x"), '/');
  check_delete_trail(wide(U""), '/');
  check_delete_trail(wide(U"x"), 0);
}

TEST(StrDeleteCharTrail, OverwritesTheWholeRunWithTerminators) {
  Guarded<CPWChar> out(8);
  STRDeleteCharTrailW(wide(U"path///").c_str(), '/', out.data());
  EXPECT_EQ(WideText(out.data(), 8), wide(U"path") + WideText(4, 0));
}

TEST(StrExtract, TakesCharactersFromAPosition) {
  CPWChar out[8];
  EXPECT_EQ(WideText(STRExtractSubstrW(wide(U"abcdef").c_str(), 2, 3, out)), wide(U"cde"));
  for (int start = 0; start <= 7; ++start) {
    for (int count = 0; count <= 8; ++count) check_extract(wide(U"abcdef"), start, count);
  }
  check_extract(wide(U"abcdef"), 0, INT_MAX);
  check_extract(wide(U"abcdef"), 3, INT_MAX);
  check_extract(wide(U""), 0, 5);
}

TEST(StrExtract, TheCountIsBoundedByTheWholeLength) {
  Guarded<CPWChar> out(20);
  STRExtractSubstrW(wide(U"abcdef").c_str(), 4, 5, out.data());
  EXPECT_EQ(WideText(out.data(), 6), wide(U"ef") + WideText(4, 0));
  EXPECT_TRUE(out.untouched_from(6));

  Guarded<CPWChar> bounded(20);
  STRExtractSubstrW(wide(U"abcdef").c_str(), 4, 10, bounded.data());
  EXPECT_EQ(WideText(bounded.data(), 7), wide(U"ef") + WideText(5, 0));
  EXPECT_TRUE(bounded.untouched_from(7));
}

TEST(StrExtract, APositionOutsideTheTextGivesZerosOnly) {
  for (const int start : {6, 7, 1000, INT_MAX, -1, INT_MIN}) {
    Guarded<CPWChar> out(20);
    STRExtractSubstrW(wide(U"abcdef").c_str(), start, 3, out.data());
    EXPECT_EQ(WideText(out.data(), 4), WideText(4, 0)) << start;
    EXPECT_TRUE(out.untouched_from(4)) << start;
  }
}

TEST(StrExtract, ACountBelowOneGivesAnEmptyText) {
  for (const int count : {0, -1, INT_MIN}) {
    Guarded<CPWChar> out(20);
    STRExtractSubstrW(wide(U"abcdef").c_str(), 2, count, out.data());
    EXPECT_EQ(out[0], 0) << count;
    EXPECT_TRUE(out.untouched_from(1)) << count;
  }
}

TEST(StrInsert, PutsATextBeforeAPosition) {
  CPWChar out[8];
  EXPECT_EQ(WideText(STRInsertSubstrW(wide(U"abef").c_str(), 2, wide(U"cd").c_str(), out)), wide(U"abcdef"));
  for (int pos = 0; pos <= 4; ++pos) {
    for (const char32_t* sub : {U"", U"x", U"longer than the text"})
      check_insert(wide(U"abef"), pos, wide(sub));
  }
  check_insert(wide(U""), 0, wide(U"ab"));
  check_insert(wide(U""), 0, wide(U""));
}

TEST(StrInsert, APositionOutsideTheTextIsItsNearerEnd) {
  for (const int pos : {5, 1000, INT_MAX, -1, INT_MIN}) {
    check_insert(wide(U"abef"), pos, wide(U"cd"));
    check_insert(wide(U""), pos, wide(U"cd"));
  }
}

TEST(StrLowerUpper, MapsEachUnitByTheLocale) {
  CPWChar out[8];
  const WideText mixed = wide(U"aB\u00E9\u00C9");
  {
    const ScopedLocale locale("C");
    EXPECT_EQ(WideText(STRLowerW(mixed.c_str(), out)), wide(U"ab\u00E9\u00C9"));
    EXPECT_EQ(WideText(STRUpperW(mixed.c_str(), out)), wide(U"AB\u00E9\u00C9"));
  }
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(WideText(STRLowerW(mixed.c_str(), out)), wide(U"ab\u00E9\u00E9"));
  EXPECT_EQ(WideText(STRUpperW(mixed.c_str(), out)), wide(U"AB\u00C9\u00C9"));
}

TEST(StrLowerUpper, PairsStayAsTheyAre) {
  const ScopedLocale locale(text_locale());
  check_case(wide(U"\U00010400\U00010428\U0001F600"));
  CPWChar out[8];
  EXPECT_EQ(WideText(STRLowerW(wide(U"\U00010400").c_str(), out)), wide(U"\U00010400"));
}

TEST(StrReplaceChar, ReplacesEveryOccurrence) {
  check_replace(wide(U"a/b//c"), '/', '\\');
  check_replace(wide(U"abc"), '/', '\\');
  check_replace(wide(U""), '/', '\\');
  check_replace(wide(U"abc"), 0, 'x');
  check_replace(wide(U"\uFFFF!"), static_cast<CPWChar>(0xFFFF), 'x');
}

TEST(StrReplaceChar, ByATerminatorTheTextEnds) {
  CPWChar out[8];
  EXPECT_EQ(WideText(STRReplaceCharW(wide(U"ab/cd").c_str(), '/', 0, out)), wide(U"ab"));
}

TEST(StrEdit, ANumberThatIsNoUnitIsFoundNowhereAndReplacesNothing) {
  const WideText text = wide(U"aAa");
  CPWChar out[8];
  for (const int no_unit : {-1, 0x10000 + 'a', INT_MIN, 0x1F600}) {
    EXPECT_EQ(WideText(STRDeleteCharW(text.c_str(), no_unit, out)), text);
    EXPECT_EQ(WideText(STRDeleteCharLeadW(text.c_str(), no_unit, out)), text);
    EXPECT_EQ(WideText(STRDeleteCharTrailW(text.c_str(), no_unit, out)), text);
    EXPECT_EQ(WideText(STRReplaceCharW(text.c_str(), no_unit, 'x', out)), text);
    EXPECT_EQ(WideText(STRReplaceCharW(text.c_str(), 'a', no_unit, out)), text);
  }
}

TEST(StrReverse, ReversesInPlace) {
  for (const char32_t* text : {U"", U"a", U"ab", U"abc", U"abcd"}) check_reverse(wide(text));
}

TEST(StrReverse, TheHalvesOfAPairChangePlaces) {
  WideText text = wide(U"a\U0001F600");
  EXPECT_EQ(STRReverseW(text.data()), text.data());
  EXPECT_EQ(text, wide(U"\xDE00\xD83D"
                       U"a"));
  EXPECT_EQ(WideText(STRReverseW(text.data())), wide(U"a\U0001F600"));
}

TEST(StrEdit, ANullTextIsAnEmptyText) {
  CPWChar out[8];
  const auto emptied = [&out](CPWChar* result) { return result == out && out[0] == 0; };
  const auto dirty = [&out] { return out[0] = 'x', static_cast<CPWChar*>(out); };
  EXPECT_TRUE(emptied(STRDeleteCharW(nullptr, 'a', dirty())));
  EXPECT_TRUE(emptied(STRDeleteCharLeadW(nullptr, 'a', dirty())));
  EXPECT_TRUE(emptied(STRDeleteCharTrailW(nullptr, 'a', dirty())));
  EXPECT_TRUE(emptied(STRExtractSubstrW(nullptr, 0, 3, dirty())));
  EXPECT_TRUE(emptied(STRInsertSubstrW(nullptr, 0, nullptr, dirty())));
  EXPECT_TRUE(emptied(STRLowerW(nullptr, dirty())));
  EXPECT_TRUE(emptied(STRUpperW(nullptr, dirty())));
  EXPECT_TRUE(emptied(STRReplaceCharW(nullptr, 'a', 'b', dirty())));
  EXPECT_EQ(STRReverseW(nullptr), nullptr);
}

TEST(StrEdit, ANullOutputStaysNull) {
  const WideText text = wide(U"aba");
  for (const CPWChar* str : {text.c_str(), static_cast<const CPWChar*>(nullptr)}) {
    EXPECT_EQ(STRDeleteCharW(str, 'a', nullptr), nullptr);
    EXPECT_EQ(STRDeleteCharLeadW(str, 'a', nullptr), nullptr);
    EXPECT_EQ(STRDeleteCharTrailW(str, 'a', nullptr), nullptr);
    EXPECT_EQ(STRExtractSubstrW(str, 0, 3, nullptr), nullptr);
    EXPECT_EQ(STRInsertSubstrW(str, 0, text.c_str(), nullptr), nullptr);
    EXPECT_EQ(STRLowerW(str, nullptr), nullptr);
    EXPECT_EQ(STRUpperW(str, nullptr), nullptr);
    EXPECT_EQ(STRReplaceCharW(str, 'a', 'b', nullptr), nullptr);
  }
}

TEST(StrDup, CopiesAreReleasedWithTheGeneralHeap) {
  for (const int length : {0, 1, 5000}) {
    const WideText wide_text(static_cast<std::size_t>(length), 'x');
    CPWChar* const wide_copy = STRDupW(wide_text.c_str());
    ASSERT_NE(wide_copy, nullptr);
    EXPECT_EQ(WideText(wide_copy), wide_text);
    std::free(wide_copy);

    const std::string text(static_cast<std::size_t>(length), 'x');
    char* const copy = STRDup(text.c_str());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(std::string(copy), text);
    std::free(copy);
  }
}

TEST(StrDup, BytesAreNotLookedAt) {
  char* const copy = STRDup("\xFF\xC3 \x80");
  EXPECT_STREQ(copy, "\xFF\xC3 \x80");
  std::free(copy);
}

TEST(StrDup, NullAndExhaustedMemoryGiveNull) {
  EXPECT_EQ(STRDup(nullptr), nullptr);
  EXPECT_EQ(STRDupW(nullptr), nullptr);
  platform::capi_fail_after(0);
  EXPECT_EQ(STRDup("a"), nullptr);
  EXPECT_EQ(STRDupW(wide(U"a").c_str()), nullptr);
  platform::capi_fail_after(-1);
}

// Calls test(random, text) for 100,000 random texts in the given locale.
template <class Test>
void for_random_texts(std::uint64_t family, Test test) {
  const ScopedLocale locale(text_locale());
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(family, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    test(random, random_units(random, random_length(random)));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(StrEdit, RandomTextsLoseCharactersAsTheModelSays) {
  for_random_texts(0x57E0, [](Random& random, WideText text) {
    const CPWChar ch = random_unit(random);
    check_delete(text, ch);
    text.insert(0, static_cast<std::size_t>(random.below(4)), ch);
    text.append(static_cast<std::size_t>(random.below(4)), ch);
    check_delete_lead(text, ch);
    check_delete_trail(text, ch);
  });
}

TEST(StrEdit, RandomPartsAreExtractedAsTheModelSays) {
  for_random_texts(0x57E1, [](Random& random, const WideText& text) {
    const int length = static_cast<int>(text.size());
    check_extract(text, random.between(-2, length + 2), random.between(-2, length + 4));
  });
}

TEST(StrEdit, RandomTextsAreInsertedAsTheModelSays) {
  for_random_texts(0x57E2, [](Random& random, const WideText& text) {
    const int pos = random.between(-2, static_cast<int>(text.size()) + 3);
    check_insert(text, pos, random_units(random, random_length(random)));
  });
}

TEST(StrEdit, RandomTextsChangeCaseAndCharactersAsTheModelSays) {
  for_random_texts(0x57E3, [](Random& random, const WideText& text) {
    check_case(text);
    check_replace(text, random_unit(random), random_unit(random));
    check_reverse(text);
  });
}

}  // namespace
}  // namespace Corvane::Print::tests
