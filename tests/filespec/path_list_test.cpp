// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "config/codepage.h"
#include "corvane/print/fu.h"
#include "platform/capi_memory.h"
#include "tests/filespec/search_model.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

using WideTexts = std::vector<WideText>;

// Whole walks. The end must leave no iterator and an empty element.
WideTexts walk(const WideText& list, const CPWChar* delimiters) {
  WideTexts all;
  FUPathIterator* iterator;
  Guarded<CPWChar> out(FU_WIDE);
  int status = FUPathGetFirstW(list.c_str(), delimiters, out.data(), &iterator);
  for (; status == FU_OK; status = FUPathGetNextW(&iterator, out.data())) all.push_back(out.data());
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(iterator, nullptr);
  EXPECT_EQ(out[0], 0);
  EXPECT_TRUE(out.intact());
  return all;
}

std::vector<std::string> narrow_walk(const std::string& list, const char* delimiters) {
  std::vector<std::string> all;
  FUPathIterator* iterator;
  Guarded<char> out(FU_NARROW);
  int status = FUPathGetFirst(list.c_str(), delimiters, out.data(), &iterator);
  for (; status == FU_OK; status = FUPathGetNext(&iterator, out.data())) all.push_back(out.data());
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(iterator, nullptr);
  EXPECT_EQ(out[0], '\0');
  EXPECT_TRUE(out.intact());
  return all;
}

WideTexts wides(std::initializer_list<std::u32string_view> texts) {
  WideTexts all;
  for (const std::u32string_view text : texts) all.push_back(wide(text));
  return all;
}

int contains(std::u32string_view list, const char32_t* delimiters, std::u32string_view comp) {
  const WideText wide_delimiters = wide(delimiters != nullptr ? delimiters : U"");
  const int answer = FUPathContainsCompW(
      wide(list).c_str(), delimiters != nullptr ? wide_delimiters.c_str() : nullptr, wide(comp).c_str());
  const std::string narrow_delimiters = narrow(delimiters != nullptr ? delimiters : U"");
  EXPECT_EQ(
      FUPathContainsComp(narrow(list).c_str(), delimiters != nullptr ? narrow_delimiters.c_str() : nullptr,
                         narrow(comp).c_str()),
      answer);
  return answer;
}

TEST(PathList, EmptyElementsAreSkipped) {
  EXPECT_EQ(walk(wide(U"a;;b"), nullptr), wides({U"a", U"b"}));
  EXPECT_EQ(walk(wide(U";;a;b;;"), nullptr), wides({U"a", U"b"}));
  EXPECT_EQ(narrow_walk("a;;b", nullptr), (std::vector<std::string>{"a", "b"}));
}

TEST(PathList, NullAndEmptyDelimitersMeanSemicolon) {
  EXPECT_EQ(walk(wide(U"a,b;c"), nullptr), wides({U"a,b", U"c"}));
  EXPECT_EQ(walk(wide(U"a,b;c"), wide(U"").c_str()), wides({U"a,b", U"c"}));
  EXPECT_EQ(narrow_walk("a,b;c", ""), (std::vector<std::string>{"a,b", "c"}));
}

TEST(PathList, EachCharacterOfTheDelimitersIsOne) {
  EXPECT_EQ(walk(wide(U"a,b;c d"), wide(U",;").c_str()), wides({U"a", U"b", U"c d"}));
  EXPECT_EQ(narrow_walk("a,b;c d", ",;"), (std::vector<std::string>{"a", "b", "c d"}));
}

TEST(PathList, DelimitersMayBeMoreThanTheListIsLong) {
  EXPECT_EQ(narrow_walk("a", ";,:!"), (std::vector<std::string>{"a"}));
  EXPECT_EQ(narrow_walk("a!", ";,:!"), (std::vector<std::string>{"a"}));
}

TEST(PathList, DelimitersBehindThe255thAreNotSeen) {
  const std::u32string delimiters = std::u32string(254, U',') + U":;";
  EXPECT_EQ(walk(wide(U"a:b;c,d"), wide(delimiters).c_str()), wides({U"a", U"b;c", U"d"}));
  EXPECT_EQ(narrow_walk("a:b;c,d", narrow(delimiters).c_str()), (std::vector<std::string>{"a", "b;c", "d"}));
}

TEST(PathList, BlanksBelongToTheElements) {
  EXPECT_EQ(walk(wide(U" a ;b"), nullptr), wides({U" a ", U"b"}));
}

TEST(PathList, NullEmptyAndDelimitersAloneHaveNoElement) {
  FUPathIterator* iterator;
  CPWChar out[FU_WIDE] = {'x', 0};
  char narrow_out[FU_NARROW] = "x";
  EXPECT_EQ(FUPathGetFirstW(nullptr, nullptr, out, &iterator), FU_FAILED);
  EXPECT_EQ(iterator, nullptr);
  EXPECT_EQ(FUPathGetFirst(nullptr, nullptr, narrow_out, &iterator), FU_FAILED);
  EXPECT_EQ(iterator, nullptr);
  EXPECT_EQ(walk(wide(U""), nullptr), WideTexts());
  EXPECT_EQ(walk(wide(U";;;"), nullptr), WideTexts());
}

TEST(PathList, AWalkThatHasEndedStaysAtItsEnd) {
  FUPathIterator* iterator = nullptr;
  CPWChar out[FU_WIDE] = {'x', 0};
  EXPECT_EQ(FUPathGetNextW(&iterator, out), FU_FAILED);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(iterator, nullptr);
}

TEST(PathList, AShortOutputHoldsItsElement) {
  FUPathIterator* iterator;
  Guarded<CPWChar> out(4);
  EXPECT_EQ(FUPathGetFirstW(wide(U"abc;d").c_str(), nullptr, out.data(), &iterator), FU_OK);
  EXPECT_TRUE(out.intact());
  EXPECT_EQ(WideText(out.data()), wide(U"abc"));
  FUPathFree(iterator);
}

TEST(PathList, SeveralWalksAtOnceDoNotDisturbEachOther) {
  FUPathIterator *one, *two;
  CPWChar out[FU_WIDE];
  const WideText list = wide(U"a;b");
  EXPECT_EQ(FUPathGetFirstW(list.c_str(), nullptr, out, &one), FU_OK);
  EXPECT_EQ(FUPathGetFirstW(list.c_str(), nullptr, out, &two), FU_OK);
  EXPECT_EQ(FUPathGetNextW(&one, out), FU_OK);
  EXPECT_EQ(WideText(out), wide(U"b"));
  EXPECT_EQ(FUPathGetNextW(&two, out), FU_OK);
  EXPECT_EQ(WideText(out), wide(U"b"));
  FUPathFree(one);
  FUPathFree(two);
}

TEST(PathList, StoppingEarlyLeaksNothing) {
  const long before = platform::capi_blocks_out();
  FUPathIterator* iterator;
  CPWChar out[FU_WIDE];
  ASSERT_EQ(FUPathGetFirstW(wide(U"a;b").c_str(), nullptr, out, &iterator), FU_OK);
  EXPECT_GT(platform::capi_blocks_out(), before);
  FUPathFree(iterator);
  FUPathFree(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before);
  walk(wide(U"a;b"), nullptr);
  EXPECT_EQ(contains(U"a;b;c", nullptr, U"a"), 1);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(PathList, ElementsAreCutToTheBufferAndListsAreNot) {
  const WideText element(300, CPWChar('e'));
  WideText list;
  for (int i = 0; i < 20; ++i) list += element + wide(U";");
  const WideTexts all = walk(list + wide(U"last"), nullptr);
  ASSERT_EQ(all.size(), 21u);
  EXPECT_EQ(all[0], element.substr(0, 255));
  EXPECT_EQ(all[20], wide(U"last"));
}

TEST(PathList, MemoryThatRanOutIsReported) {
  const long before = platform::capi_blocks_out();
  for (long successes = 0;; ++successes) {
    ASSERT_LT(successes, 10);
    FUPathIterator* iterator;
    CPWChar out[FU_WIDE] = {'x', 0};
    platform::capi_fail_after(successes);
    const int status = FUPathGetFirstW(wide(U"a;b").c_str(), nullptr, out, &iterator);
    platform::capi_fail_after(-1);
    if (status == FU_OK) {
      FUPathFree(iterator);
      EXPECT_EQ(successes, 2);
      break;
    }
    EXPECT_EQ(status, FU_NO_MEMORY);
    EXPECT_EQ(iterator, nullptr);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(platform::capi_blocks_out(), before);
  }
  for (long successes = 0; successes < 3; ++successes) {
    FUPathIterator* iterator;
    char out[FU_NARROW] = "x";
    platform::capi_fail_after(successes);
    EXPECT_EQ(FUPathGetFirst("a;b", nullptr, out, &iterator), FU_NO_MEMORY) << successes;
    EXPECT_EQ(FUPathContainsComp("a;b", nullptr, "a"), 0) << successes;
    platform::capi_fail_after(-1);
    EXPECT_EQ(iterator, nullptr);
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(platform::capi_blocks_out(), before);
  }
}

TEST(PathContains, BlanksAndCaseDoNotMatter) {
  EXPECT_EQ(contains(U" C:\\x ; D:\\y ", U";", U"d:\\Y"), 1);
  EXPECT_EQ(contains(U" C:\\x ; D:\\y ", U";", U"E:\\y"), 0);
  EXPECT_EQ(contains(U"a;  b  ", nullptr, U" b"), 0);
}

TEST(PathContains, TheElementsArePatterns) {
  EXPECT_EQ(contains(U"*.pen;*.plt", nullptr, U"A.PLT"), 1);
  EXPECT_EQ(contains(U"*.pen;*.plt", nullptr, U"A.CFG"), 0);
  EXPECT_EQ(contains(U"A.PLT", nullptr, U"*.plt"), 0);
  EXPECT_EQ(contains(U"a?c,b", U",", U"ABC"), 1);
}

TEST(PathContains, CaseIsThatOfTheLocale) {
  if (!narrow_has(0xC9)) return;
  {
    const ScopedLocale locale("C");
    EXPECT_EQ(contains(U"a;\u00C9t*", nullptr, U"\u00E9t\u00E9"), 0);
  }
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(contains(U"a;\u00C9t*", nullptr, U"\u00E9t\u00E9"), 1);
}

TEST(PathContains, ElementsAndComponentsAreCutAt255Characters) {
  const std::u32string element(255, U'e');
  for (const char32_t* const tail : {U"", U"x", U"xyz"}) {
    EXPECT_EQ(contains(element + tail, nullptr, element), 1);
    EXPECT_EQ(contains(element, nullptr, element + tail), 1);
  }
  EXPECT_EQ(contains(element.substr(1) + U"?", nullptr, element + U"x"), 1);
  EXPECT_EQ(contains(element.substr(1), nullptr, element), 0);
}

TEST(PathContains, AnElementOfBlanksContainsTheEmptyText) {
  EXPECT_EQ(contains(U"a;  ;b", nullptr, U""), 1);
  EXPECT_EQ(contains(U"a;b", nullptr, U""), 0);
}

TEST(PathContains, AnEmptyListContainsNothing) {
  EXPECT_EQ(contains(U"", nullptr, U"a"), 0);
  EXPECT_EQ(contains(U"", nullptr, U""), 0);
  EXPECT_EQ(FUPathContainsCompW(nullptr, nullptr, wide(U"a").c_str()), 0);
  EXPECT_EQ(FUPathContainsComp(nullptr, nullptr, "a"), 0);
}

// An element as a narrow output receives it.
std::string narrowed(const WideText& text) {
  char out[FU_NARROW];
  config::narrow_cut(text.c_str(), static_cast<int>(text.size()), out, FU_NARROW);
  return out;
}

std::u32string random_list(Random& random, int length) {
  static constexpr char32_t kCharacters[] = U"aAb*? ;;,\\";
  std::u32string text;
  while (length-- > 0) {
    if (random.one_in(12)) {
      text += random_character(random);
    } else {
      text += kCharacters[random.below(static_cast<int>(std::size(kCharacters)) - 1)];
    }
  }
  return text;
}

const char32_t* random_delimiters(Random& random) {
  static constexpr const char32_t* kSets[] = {U"", U";", U",", U";,", U" ;", U"a"};
  return kSets[random.below(static_cast<int>(std::size(kSets)))];
}

TEST(PathListRandom, WalksAgreeWithThePlainModel) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0x5EA1, i);
    Random random(seed);
    const std::u32string list = random_list(random, random_length(random));
    const std::u32string delimiters = random_delimiters(random);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    WideTexts expected =
        search_model::elements(wide(list), delimiters.empty() ? wide(U";") : wide(delimiters));
    for (WideText& element : expected) element = search_model::cut(element);
    ASSERT_EQ(walk(wide(list), wide(delimiters).c_str()), expected);
    const std::vector<std::string> narrow_elements = narrow_walk(narrow(list), narrow(delimiters).c_str());
    ASSERT_EQ(narrow_elements.size(), expected.size());
    for (std::size_t k = 0; k < expected.size(); ++k) ASSERT_EQ(narrow_elements[k], narrowed(expected[k]));
  }
}

TEST(PathListRandom, ContainingAgreesWithThePlainModel) {
  const model::PlainMatch plain_match(true);
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0x5EA2, i);
    Random random(seed);
    const std::u32string list = random_list(random, random.below(16));
    const std::u32string comp = random_list(random, random.below(5));
    const std::u32string delimiters = random_delimiters(random);
    const auto code_units = [](const WideText& text) { return std::u32string(text.begin(), text.end()); };
    int expected = 0;
    for (const WideText& element :
         search_model::elements(wide(list), delimiters.empty() ? wide(U";") : wide(delimiters))) {
      const WideText pattern = model::delete_trail(model::delete_lead(element, CPWChar(' ')), CPWChar(' '));
      if (model::compare(pattern, wide(comp)) == 0 ||
          plain_match(code_units(wide(comp)), code_units(pattern)))
        expected = 1;
    }
    ASSERT_EQ(contains(list, delimiters.c_str(), comp), expected) << "seed " << seed;
  }
}

TEST(PathListRandom, ContainingAgreesWithATableForTextsOfAnyLength) {
  static constexpr int kLengths[] = {0, 1, 254, 255, 256, 257, 511, 512, 513, 514, 5000};
  const auto code_units = [](const WideText& text) { return std::u32string(text.begin(), text.end()); };
  int contained = 0;
  const int cases = scaled(1000);
  for (int i = 0; i < cases; ++i) {
    const std::uint64_t seed = case_seed(0x5EA3, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const int length = kLengths[random.below(static_cast<int>(std::size(kLengths)))];
    const WideText comp = search_model::cut(wide(random_list(random, random.one_in(2) ? length : 3)));
    std::u32string list = random.one_in(3) ? random_list(random, length)
                                           : std::u32string(static_cast<std::size_t>(length), U'e');
    // An element that has a chance: blanks, a piece of the component and a star.
    list += U"; " + code_units(comp.substr(0, static_cast<std::size_t>(random.below(300)))) + U"* ";
    int expected = 0;
    for (const WideText& element : search_model::elements(wide(list), wide(U";"))) {
      const WideText pattern =
          model::delete_trail(model::delete_lead(search_model::cut(element), CPWChar(' ')), CPWChar(' '));
      if (model::compare(pattern, comp) == 0 ||
          model::table_match(code_units(comp), code_units(pattern), true))
        expected = 1;
    }
    ASSERT_EQ(FUPathContainsCompW(wide(list).c_str(), nullptr, comp.c_str()), expected);
    contained += expected;
  }
  EXPECT_TRUE(cases < 100 || (contained > cases / 20 && contained < cases * 19 / 20)) << contained;
}

TEST(PathListRandom, NarrowListsOfAnyLengthContainWhatWideOnesDo) {
  for (int i = 0; i < scaled(2000); ++i) {
    Random random(case_seed(0x5EA7, i));
    const std::u32string list = random_list(random, random.below(5000));
    const std::u32string comp = random_list(random, random.below(600));
    contains(list, random_delimiters(random), comp);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
