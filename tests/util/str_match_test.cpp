// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <cstdlib>

#include "corvane/print/str.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"
#include "tests/util/str_support.h"
#include "util/cursor.h"
#include "util/match.h"

namespace Corvane::Print::tests {
namespace {

// The wide answer, which the narrow one must equal.
int match(std::u32string_view text, std::u32string_view pattern) {
  const int answer = STRMatchPatternW(wide(text).c_str(), wide(pattern).c_str());
  EXPECT_EQ(STRMatchPattern(narrow(text).c_str(), narrow(pattern).c_str()), answer);
  return answer;
}

int match_ignoring_case(std::u32string_view text, std::u32string_view pattern) {
  const int answer = STRMatchPatternCIW(wide(text).c_str(), wide(pattern).c_str());
  EXPECT_EQ(STRMatchPatternCI(narrow(text).c_str(), narrow(pattern).c_str()), answer);
  return answer;
}

TEST(StrMatch, AnEmptyPatternMatchesOnlyTheEmptyText) {
  EXPECT_EQ(match(U"", U""), 1);
  EXPECT_EQ(match(U"x", U""), 0);
  EXPECT_EQ(match_ignoring_case(U"", U""), 1);
  EXPECT_EQ(match_ignoring_case(U"x", U""), 0);
}

TEST(StrMatch, AStarMatchesAnyRun) {
  EXPECT_EQ(match(U"", U"*"), 1);
  EXPECT_EQ(match(U"", U"***"), 1);
  EXPECT_EQ(match(U"abc", U"*c"), 1);
  EXPECT_EQ(match(U"abc", U"*b"), 0);
  EXPECT_EQ(match(U"abc", U"a*c"), 1);
  EXPECT_EQ(match(U"ac", U"a*c"), 1);
  EXPECT_EQ(match(U"a", U"a*c"), 0);
  EXPECT_EQ(match(U"abcbc", U"a*bc"), 1);
  EXPECT_EQ(match(U"aXbYbZc", U"a*b*c"), 1);
  EXPECT_EQ(match(U"a", U"*a*a*"), 0);
}

TEST(StrMatch, ATrailingStarMatchesWhateverIsLeft) {
  EXPECT_EQ(match(U"abc", U"a*"), 1);
  EXPECT_EQ(match(U"abc", U"abc*"), 1);
  EXPECT_EQ(match(U"abc", U"abcd*"), 0);
  EXPECT_EQ(match(U"abc", U"a**"), 1);
}

TEST(StrMatch, AQuestionMarkMatchesExactlyOneCharacter) {
  EXPECT_EQ(match(U"abc", U"a?c"), 1);
  EXPECT_EQ(match(U"ac", U"a?c"), 0);
  EXPECT_EQ(match(U"", U"?"), 0);
  EXPECT_EQ(match(U"abc", U"???"), 1);
  EXPECT_EQ(match(U"abc", U"??"), 0);
  EXPECT_EQ(match(U"abc", U"*?"), 1);
  EXPECT_EQ(match(U"", U"*?"), 0);
}

TEST(StrMatch, ABackslashMakesTheNextCharacterLiteral) {
  EXPECT_EQ(match(U"a*c", U"a\\*c"), 1);
  EXPECT_EQ(match(U"abc", U"a\\*c"), 0);
  EXPECT_EQ(match(U"?", U"\\?"), 1);
  EXPECT_EQ(match(U"x", U"\\?"), 0);
  EXPECT_EQ(match(U"\\", U"\\\\"), 1);
  EXPECT_EQ(match(U"a\\b", U"a\\\\b"), 1);
  EXPECT_EQ(match(U"a\\b", U"a\\b"), 0);
  EXPECT_EQ(match(U"ab", U"a\\b"), 1);
  EXPECT_EQ(match(U"x*", U"*\\*"), 1);
}

TEST(StrMatch, ALoneBackslashAtTheEndIsIgnored) {
  EXPECT_EQ(match(U"a", U"a\\"), 1);
  EXPECT_EQ(match(U"", U"\\"), 1);
  EXPECT_EQ(match(U"a\\", U"a\\"), 0);
  EXPECT_EQ(match(U"ab", U"a\\"), 0);
  EXPECT_EQ(match(U"abc", U"*c\\"), 1);
}

TEST(StrMatch, StarsBeforeALoneBackslashMatchNothing) {
  EXPECT_EQ(match(U"", U"*\\"), 1);
  EXPECT_EQ(match(U"abc", U"*\\"), 0);
  EXPECT_EQ(match(U"abc", U"**\\"), 0);
  EXPECT_EQ(match(U"abc", U"abc*\\"), 1);
  EXPECT_EQ(match(U"abc", U"a*c**\\"), 1);
  EXPECT_EQ(match(U"abc", U"ab*\\"), 0);
  EXPECT_EQ(match(U"abc", U"*\\\\"), 0);  // an escaped backslash is not a lone one
  EXPECT_EQ(match(U"abc\\", U"*\\\\"), 1);
}

TEST(StrMatch, CaseMattersUnlessItIsIgnored) {
  EXPECT_EQ(match(U"ABC", U"a?c"), 0);
  EXPECT_EQ(match_ignoring_case(U"ABC", U"a?c"), 1);
  EXPECT_EQ(match_ignoring_case(U"PLAN.plt", U"*.PLT"), 1);
  EXPECT_EQ(match_ignoring_case(U"A*", U"\\a\\*"), 1);
}

TEST(StrMatch, IgnoringCaseAPatternMatchesItsOwnText) {
  EXPECT_EQ(match_ignoring_case(U"a?c", U"A?C"), 1);
  EXPECT_EQ(match_ignoring_case(U"DIR\\*", U"dir\\*"), 1);
  EXPECT_EQ(match_ignoring_case(U"A\\B", U"a\\b"), 1);
  EXPECT_EQ(match(U"a\\b", U"a\\b"), 0);
  // Only as a whole: behind a star, the same text does not match itself.
  EXPECT_EQ(match_ignoring_case(U"xA\\B", U"*a\\b"), 0);
}

TEST(StrMatch, NullIsAnEmptyText) {
  const WideText star = wide(U"*");
  EXPECT_EQ(STRMatchPatternW(nullptr, nullptr), 1);
  EXPECT_EQ(STRMatchPatternW(nullptr, star.c_str()), 1);
  EXPECT_EQ(STRMatchPatternW(star.c_str(), nullptr), 0);
  EXPECT_EQ(STRMatchPattern(nullptr, "*"), 1);
  EXPECT_EQ(STRMatchPattern("x", nullptr), 0);
  EXPECT_EQ(STRMatchPatternCIW(nullptr, nullptr), 1);
  EXPECT_EQ(STRMatchPatternCI(nullptr, "a"), 0);
}

TEST(StrMatch, InTheCLocaleOnlyAsciiLettersHaveCaseAndCharactersAreBytes) {
  const ScopedLocale locale("C");
  EXPECT_EQ(match_ignoring_case(U"PLAN.Plt", U"p?AN.*T"), 1);
  const WideText upper = wide(U"a\u00C9"), lower = wide(U"A\u00E9");
  EXPECT_EQ(STRMatchPatternCIW(upper.c_str(), lower.c_str()), 0);
  EXPECT_EQ(STRMatchPatternCIW(upper.c_str(), wide(U"*\u00E9").c_str()), 0);
  EXPECT_EQ(STRMatchPatternCIW(upper.c_str(), wide(U"A?").c_str()), 1);
  // Where a character takes one byte, the byte is one here as well; elsewhere it is none and ends the text.
  const int one_byte = narrow_is_utf8() ? 0 : 1;
  EXPECT_EQ(STRMatchPattern("a\xC3\xA9", "a??"), one_byte);
  EXPECT_EQ(STRMatchPattern("a\xC3\xA9", "a"), 1 - one_byte);
  EXPECT_EQ(STRMatchPatternCI("a\xC9", "A\xE9"), 1 - one_byte);
}

TEST(StrMatch, CharactersOfSeveralBytesAreOneCharacter) {
  const ScopedLocale locale(text_locale());
  if (narrow_has(0xE9)) {
    EXPECT_EQ(match(U"caf\u00E9", U"caf?"), 1);
    EXPECT_EQ(match(U"caf\u00E9s", U"*\u00E9?"), 1);
    EXPECT_EQ(match_ignoring_case(U"CAF\u00C9", U"c*\u00E9"), 1);
  }
  if (narrow_has(0x5927)) {
    EXPECT_EQ(match(U"\u5927\u5C0F", U"??"), 1);
  }
}

TEST(StrMatch, APairIsTwoWideCharactersAndOneOfSeveralBytes) {
  const ScopedLocale locale(text_locale());
  const WideText pair = wide(U"\U0001F600");
  EXPECT_EQ(STRMatchPatternW(pair.c_str(), wide(U"?").c_str()), 0);
  EXPECT_EQ(STRMatchPatternW(pair.c_str(), wide(U"??").c_str()), 1);
  EXPECT_EQ(STRMatchPatternW(pair.c_str(), wide(U"*\U0001F600").c_str()), 1);
  if (!narrow_is_utf8()) return;
  const std::string bytes = narrow(U"\U0001F600");
  EXPECT_EQ(STRMatchPattern(bytes.c_str(), "?"), 1);
  EXPECT_EQ(STRMatchPattern(bytes.c_str(), "??"), 0);
  EXPECT_EQ(STRMatchPattern(bytes.c_str(), ("*" + bytes).c_str()), 1);
}

TEST(StrMatch, BytesThatAreNoCharacterEndTextAndPattern) {
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(STRMatchPattern("ab\xFFzz", "ab"), narrow_is_utf8() ? 1 : 0);
  EXPECT_EQ(STRMatchPattern("ab", "ab\xFFzz"), narrow_is_utf8() ? 1 : 0);
  EXPECT_EQ(STRMatchPattern("ab\\", "ab\\\xFF"), 0);
}

// Every pattern of up to 5 of these characters with every text of up to 4: nothing is left to chance.
std::vector<std::u32string> all_texts(std::u32string_view characters, std::size_t longest) {
  std::vector<std::u32string> texts = {U""};
  for (std::size_t first = 0, length = 1; length <= longest; ++length) {
    const std::size_t end = texts.size();
    for (; first < end; ++first) {
      for (const char32_t c : characters) texts.push_back(texts[first] + c);
    }
  }
  return texts;
}

// A host may leave half a character behind; what it does to the next text is the runtime's business.
TEST(StrMatch, HalfACharacterThatAHostHasLeftChangesTextsAsEver) {
  const ScopedLocale locale(text_locale());
  const auto leave_half_a_character = [] {
    wchar_t ignored;
    static_cast<void>(std::mbtowc(nullptr, nullptr, 0));
    static_cast<void>(std::mbtowc(&ignored, "\xC3", 1));
  };
  const char* const texts[] = {"",
                               "a",
                               "ab",
                               "*",
                               "?",
                               "a*",
                               "\\",
                               "\xA9",
                               "\xA9"
                               "a",
                               "a\xA9"};
  for (const char* const text : texts) {
    for (const char* const pattern : texts) {
      leave_half_a_character();
      const util::MultibyteCursor items(pattern);
      const util::MultibyteCursor characters(text);
      const bool expected = util::matches(characters, items, util::SameCharacter());
      leave_half_a_character();
      EXPECT_EQ(STRMatchPattern(text, pattern), expected ? 1 : 0) << text << " and " << pattern;
    }
  }
  static_cast<void>(std::mbtowc(nullptr, nullptr, 0));
}

TEST(StrMatch, AllShortPatternsGiveThePlainAnswer) {
  const bool slow_tool = test_scale() < 1.0;
  const model::PlainMatch plain(false), plain_ignoring(true);
  const auto texts = all_texts(U"aB*\\", slow_tool ? 3 : 4);
  for (const std::u32string& pattern : all_texts(U"ab*?\\", slow_tool ? 3 : 5)) {
    const WideText wide_pattern = wide(pattern);
    for (const std::u32string& text : texts) {
      const WideText wide_text = wide(text);
      const bool own_text = model::compare(wide_text, wide_pattern) == 0;
      const bool expected = plain(text, pattern);
      const bool expected_ignoring = own_text || plain_ignoring(text, pattern);
      ASSERT_EQ(STRMatchPatternW(wide_text.c_str(), wide_pattern.c_str()), expected)
          << narrow(text) << " with " << narrow(pattern);
      ASSERT_EQ(STRMatchPatternCIW(wide_text.c_str(), wide_pattern.c_str()), expected_ignoring)
          << narrow(text) << " with " << narrow(pattern);
    }
  }
}

std::u32string random_from(Random& random, std::u32string_view characters, int length) {
  std::u32string text;
  while (length-- > 0) {
    char32_t c = characters[static_cast<std::size_t>(random.below(static_cast<int>(characters.size())))];
    text += narrow_has(c) ? c : U'c';
  }
  return text;
}

// A pattern that has a chance: the text with characters hidden behind wildcards.
std::u32string pattern_of(Random& random, const std::u32string& text) {
  std::u32string pattern;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t c = text[i];
    const int kind = random.below(8);
    if (kind == 0) {
      pattern += U'?';
      continue;
    }
    if (kind <= 3) pattern += U'*';
    if (kind == 2) i += static_cast<std::size_t>(random.below(3));
    if (kind <= 2) continue;
    if (c == U'*' || c == U'?' || c == U'\\') pattern += U'\\';
    pattern += c;
  }
  if (random.one_in(8)) pattern += U'\\';
  if (!pattern.empty() && random.one_in(3))
    pattern[static_cast<std::size_t>(random.below(static_cast<int>(pattern.size())))] =
        U"ab*?\\"[random.below(5)];
  return pattern;
}

void expect_all_four(const std::u32string& text, const std::u32string& pattern, bool expected,
                     bool expected_ignoring) {
  const bool own_text = model::compare(wide(text), wide(pattern)) == 0;
  ASSERT_EQ(match(text, pattern), expected) << narrow(text) << " with " << narrow(pattern);
  ASSERT_EQ(match_ignoring_case(text, pattern), own_text || expected_ignoring)
      << narrow(text) << " with " << narrow(pattern);
}

TEST(StrMatch, RandomPatternsGiveThePlainAnswerInAllFourForms) {
  const ScopedLocale locale(text_locale());
  int matched = 0;
  for (int i = 0; i < scaled(1000000); ++i) {
    const std::uint64_t seed = case_seed(0x57D0, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string text = random_from(random, U"aabB\u00E9\u00C9*\\?\uFFFF", random.below(11));
    const std::u32string pattern =
        random.one_in(3) ? random_from(random, U"aB\u00E9*?\\", random.below(8)) : pattern_of(random, text);
    const bool expected = model::PlainMatch(false)(text, pattern);
    matched += expected;
    expect_all_four(text, pattern, expected, model::PlainMatch(true)(text, pattern));
    if (HasFatalFailure()) return;
  }
  EXPECT_GT(matched, scaled(1000000) / 20);  // both answers must occur
  EXPECT_LT(matched, scaled(1000000) * 19 / 20 + 1);
}

TEST(StrMatch, LongTextsGiveTheAnswerOfTheTable) {
  const ScopedLocale locale(text_locale());
  static constexpr int kLengths[] = {254, 255, 256, 257, 511, 512, 513, 514, 5000};
  for (int i = 0; i < scaled(400); ++i) {
    const std::uint64_t seed = case_seed(0x57D1, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const int length = random.one_in(40) ? 5000 : kLengths[random.below(8)];
    const std::u32string text = random_from(random, U"aaaab", length);
    std::u32string pattern = pattern_of(random, text.substr(0, static_cast<std::size_t>(random.below(30))));
    pattern += random.one_in(2) ? U"*" : U"*a*b*";
    pattern += text.substr(text.size() - static_cast<std::size_t>(random.below(20)));
    expect_all_four(text, pattern, model::table_match(text, pattern, false),
                    model::table_match(text, pattern, true));
    if (HasFatalFailure()) return;
  }
}

TEST(StrMatch, TheTableAgreesWithThePlainSteps) {
  for (int i = 0; i < scaled(20000); ++i) {
    const std::uint64_t seed = case_seed(0x57D2, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string text = random_from(random, U"aabB*\\", random.below(10));
    const std::u32string pattern = random_from(random, U"aaB**?\\", random.below(8));
    for (const bool ignoring : {false, true})
      ASSERT_EQ(model::table_match(text, pattern, ignoring), model::PlainMatch(ignoring)(text, pattern));
  }
}

// Counts the steps of all its copies.
class CountingCursor : public util::WideCursor {
public:
  CountingCursor(const WideText& text, long* steps) : util::WideCursor(text.c_str()), steps_(steps) {}
  void advance() {
    ++*steps_;
    util::WideCursor::advance();
  }
  void skip(std::size_t characters) {
    *steps_ += static_cast<long>(characters);
    util::WideCursor::skip(characters);
  }

private:
  long* steps_;
};

TEST(StrMatch, StepsStayWithinTheProductOfTheLengths) {
  const auto repeated = [](std::u32string_view part, int times, std::u32string_view behind = U"",
                           std::u32string_view before = U"") {
    std::u32string text(before);
    while (times-- > 0) text += part;
    text += behind;
    return text;
  };
  for (const std::u32string& pattern :
       {repeated(U"*", 255), repeated(U"*a", 127), repeated(U"*a", 127, U"b"), repeated(U"a*", 127, U"b"),
        repeated(U"*?", 127), repeated(U"*?", 100, U"b"), repeated(U"a", 250, U"b", U"*"),
        repeated(U"*", 200, U"\\", U"*a"), repeated(U"*ab", 80), repeated(U"\\a", 120, U"b", U"*")}) {
    for (const std::u32string& text : {repeated(U"a", 255), repeated(U"ab", 127), repeated(U"a", 5000)}) {
      const WideText wide_text = wide(text), wide_pattern = wide(pattern);
      long steps = 0;
      const bool answer = util::matches(CountingCursor(wide_text, &steps),
                                        CountingCursor(wide_pattern, &steps), util::SameIgnoringCase());
      EXPECT_EQ(answer, model::table_match(text, pattern, true)) << narrow(pattern);
      const auto product = static_cast<long>((text.size() + 1) * (pattern.size() + 1));
      EXPECT_LE(steps, 2 * product) << narrow(pattern);  // one step in each of the two texts
    }
  }
}

TEST(StrMatch, UsesNoHeap) {
  const std::u32string text(5000, U'a');
  std::u32string pattern(252, U'a');
  pattern.front() = pattern[251] = U'*';
  pattern += U'b';
  const WideText wide_text = wide(text), wide_pattern = wide(pattern);
  const std::string narrow_text = narrow(text), narrow_pattern = narrow(pattern);
  HeapWatch heap;
  const int matched = STRMatchPatternW(wide_text.c_str(), wide_pattern.c_str()) +
                      STRMatchPatternCIW(wide_text.c_str(), wide_pattern.c_str()) +
                      STRMatchPattern(narrow_text.c_str(), narrow_pattern.c_str()) +
                      STRMatchPatternCI(narrow_text.c_str(), narrow_pattern.c_str());
  EXPECT_EQ(heap.requests(), 0);
  EXPECT_EQ(matched, 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
