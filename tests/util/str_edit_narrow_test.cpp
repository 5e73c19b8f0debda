// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The narrow editing functions: what their wide twins give, converted, and cut to the room of the input.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <functional>

#include "config/codepage.h"
#include "corvane/print/str.h"
#include "platform/capi_memory.h"
#include "tests/config/texts.h"
#include "tests/support/guarded.h"
#include "tests/support/scale.h"
#include "tests/util/str_support.h"
#include "util/narrow_edit.h"

namespace Corvane::Print::tests {
namespace {

// Wide text as narrow text; halves of pairs become U+FFFD.
std::string converted(const WideText& text, std::size_t most_bytes) {
  if (!narrow_is_utf8()) {
    char* const block = config::narrowed_block(text.c_str());
    const std::string result(block);
    platform::capi_free(block);
    return result.substr(0, most_bytes);
  }
  std::u32string characters;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char32_t c = text[i];
    const char32_t next = i + 1 < text.size() ? text[i + 1] : 0;
    if (c / 1024 == 54 && next / 1024 == 55) {
      characters += 65536 + (c % 1024) * 1024 + next % 1024;
      ++i;
    } else {
      characters += c / 2048 == 27 ? U'\uFFFD' : c;
    }
  }
  return narrow(cut_to_bytes(characters, static_cast<int>(most_bytes)));
}

// The int that holds a character's bytes, first byte lowest.
int as_int(const std::string& bytes) {
  unsigned value = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) value = value << 8 | static_cast<unsigned char>(bytes[i]);
  return static_cast<int>(value);
}

int as_int(char32_t character) {
  return as_int(narrow(std::u32string(1, character)));
}

// Beyond 16 bits a character is no unit, and the wide functions are given a number that is none.
int as_unit(char32_t character) {
  return static_cast<int>(character);
}

// The narrow call must give what the wide call gives, with room for the text and `growth` more bytes, and in
// place.
template <class Narrow, class Wide>
void check(const std::u32string& text, std::size_t growth, Narrow narrow_call, Wide wide_call) {
  const std::string bytes = narrow(text);
  const std::size_t most = bytes.size() + growth;
  Guarded<CPWChar> wide_out(static_cast<int>(wide(text).size() + growth) + 1);
  const std::string expected = converted(wide_call(wide(text).c_str(), wide_out.data()), most);
  ASSERT_TRUE(wide_out.intact());

  Guarded<char> out(static_cast<int>(most) + 1);
  ASSERT_EQ(narrow_call(bytes.c_str(), out.data()), out.data());
  ASSERT_EQ(std::string(out.data()), expected);
  ASSERT_TRUE(out.intact());

  Guarded<char> both(static_cast<int>(most) + 1);
  std::memcpy(both.data(), bytes.c_str(), bytes.size() + 1);
  ASSERT_EQ(narrow_call(both.data(), both.data()), both.data());
  ASSERT_EQ(std::string(both.data()), expected);
  ASSERT_TRUE(both.intact());
}

void check_delete(const std::u32string& text, char32_t ch) {
  const int n = as_int(ch), w = as_unit(ch);
  check(
      text, 0, [n](const char* s, char* out) { return STRDeleteChar(s, n, out); },
      [w](const CPWChar* s, CPWChar* out) { return STRDeleteCharW(s, w, out); });
}
void check_delete_lead(const std::u32string& text, char32_t ch) {
  const int n = as_int(ch), w = as_unit(ch);
  check(
      text, 0, [n](const char* s, char* out) { return STRDeleteCharLead(s, n, out); },
      [w](const CPWChar* s, CPWChar* out) { return STRDeleteCharLeadW(s, w, out); });
}
void check_delete_trail(const std::u32string& text, char32_t ch) {
  const int n = as_int(ch), w = as_unit(ch);
  check(
      text, 0, [n](const char* s, char* out) { return STRDeleteCharTrail(s, n, out); },
      [w](const CPWChar* s, CPWChar* out) { return STRDeleteCharTrailW(s, w, out); });
}
void check_extract(const std::u32string& text, int start, int count) {
  check(
      text, 0, [=](const char* s, char* out) { return STRExtractSubstr(s, start, count, out); },
      [=](const CPWChar* s, CPWChar* out) { return STRExtractSubstrW(s, start, count, out); });
}
void check_insert(const std::u32string& text, int pos, const std::u32string& sub) {
  const std::string narrow_sub = narrow(sub);
  const WideText wide_sub = wide(sub);
  check(
      text, narrow_sub.size(),
      [&](const char* s, char* out) { return STRInsertSubstr(s, pos, narrow_sub.c_str(), out); },
      [&](const CPWChar* s, CPWChar* out) { return STRInsertSubstrW(s, pos, wide_sub.c_str(), out); });
}
void check_case(const std::u32string& text) {
  check(text, 0, STRLower, STRLowerW);
  check(text, 0, STRUpper, STRUpperW);
}
void check_replace(const std::u32string& text, char32_t from, char32_t to) {
  const int narrow_from = as_int(from), narrow_to = as_int(to);
  check(
      text, narrow(std::u32string(1, to)).size(),
      [=](const char* s, char* out) { return STRReplaceChar(s, narrow_from, narrow_to, out); },
      [=](const CPWChar* s, CPWChar* out) { return STRReplaceCharW(s, as_unit(from), as_unit(to), out); });
}
void check_reverse(const std::u32string& text) {
  const std::string bytes = narrow(text);
  const WideText units = wide(text);
  check(
      text, 0,
      [&](const char*, char* out) {
        std::memcpy(out, bytes.c_str(), bytes.size() + 1);
        return STRReverse(out);
      },
      [&](const CPWChar*, CPWChar* out) {
        std::copy_n(units.c_str(), units.size() + 1, out);
        return STRReverseW(out);
      });
}

TEST(StrNarrow, PlainTextsAreEdited) {
  char out[32];
  EXPECT_STREQ(STRDeleteChar("/a//b/", '/', out), "ab");
  EXPECT_STREQ(STRDeleteCharLead("  x", ' ', out), "x");
  EXPECT_STREQ(STRDeleteCharTrail("path///", '/', out), "path");
  EXPECT_STREQ(STRExtractSubstr("abcdef", 2, 3, out), "cde");
  EXPECT_STREQ(STRInsertSubstr("abef", 2, "cd", out), "abcdef");
  EXPECT_STREQ(STRLower("aBC", out), "abc");
  EXPECT_STREQ(STRUpper("aBc", out), "ABC");
  EXPECT_STREQ(STRReplaceChar("a/b/c", '/', '\\', out), "a\\b\\c");
  EXPECT_STREQ(STRReplaceChar("ab/cd", '/', 0, out), "ab");
  char text[] = "abc";
  EXPECT_EQ(STRReverse(text), text);
  EXPECT_STREQ(text, "cba");
}

TEST(StrNarrow, TheExampleOfTheHeaderHolds) {
  char name[] = "A1-plan.PLT";
  if (STRMatchPatternCI(name, "a?-*.plt") == 1) STRLower(name, name);
  EXPECT_STREQ(name, "a1-plan.plt");
}

TEST(StrNarrow, PositionsAreWideCharactersAndNotBytes) {
  if (!narrow_has(0xE9)) return;
  char out[32];
  EXPECT_EQ(STRExtractSubstr(narrow(U"\u00E9\u00E9x\u00E9").c_str(), 1, 2, out), narrow(U"\u00E9x"));
  EXPECT_EQ(STRInsertSubstr(narrow(U"\u00E9\u00E9").c_str(), 1, "x", out), narrow(U"\u00E9x\u00E9"));
}

TEST(StrNarrow, ACharacterOfSeveralBytesIsGivenFirstByteLowest) {
  if (!narrow_is_utf8()) return;
  const ScopedLocale locale(text_locale());
  char out[32];
  EXPECT_EQ(as_int(0xE9), 0xA9C3);
  EXPECT_EQ(STRDeleteChar(narrow(U"a\u00E9b\u00E9").c_str(), 0xA9C3, out), std::string("ab"));
  EXPECT_EQ(STRReplaceChar("a/b", '/', 0xA9C3, out), narrow(U"a\u00E9b"));
  EXPECT_EQ(STRDeleteCharTrail(narrow(U"a\u5927\u5927").c_str(), as_int(0x5927), out), std::string("a"));
}

TEST(StrNarrow, ZeroBytesInFrontOfACharacterAreSkipped) {
  const ScopedLocale locale(text_locale());
  char out[32];
  for (const int ch : {0x41, 0x4100, 0x410000, 0x41000000, 0x00420041, 0x42004100})
    EXPECT_STREQ(STRDeleteChar("xAyB", ch, out), "xyB") << ch;
}

TEST(StrNarrow, ACharacterFromASignedCharIsThatByte) {
  if (narrow_is_utf8()) return;
  const ScopedLocale locale(text_locale());
  char out[32];
  EXPECT_STREQ(STRDeleteChar("a\xE9"
                             "b",
                             static_cast<signed char>('\xE9'), out),
               "ab");
  EXPECT_STREQ(STRDeleteChar("a\xE9"
                             "b",
                             0xE9, out),
               "ab");
}

TEST(StrNarrow, AnIntWithoutACharacterIsFoundNowhereAndReplacesNothing) {
  if (!narrow_is_utf8()) return;
  char out[32];
  for (const char* name : {"C", text_locale()}) {
    const ScopedLocale locale(name);
    for (const int no_character : {0xFF, 0xC3, -1, -23}) {
      EXPECT_STREQ(STRDeleteChar("a/b", no_character, out), "a/b");
      EXPECT_STREQ(STRReplaceChar("a/b", no_character, 'x', out), "a/b");
      EXPECT_STREQ(STRReplaceChar("a/b", '/', no_character, out), "a/b");
    }
  }
  const ScopedLocale locale("C");
  EXPECT_EQ(STRDeleteChar(narrow(U"a\u00E9").c_str(), 0xA9C3, out), narrow(U"a\u00E9"));
}

TEST(StrNarrow, HalfACharacterLeavesNoTraceInTheNextCall) {
  if (!narrow_is_utf8()) return;
  const ScopedLocale locale(text_locale());
  char out[8];
  STRDeleteChar("a", 0xC3, out);
  EXPECT_EQ(STRCompareCI("\xA9", "\xA9"), 0);
  EXPECT_EQ(STRCompareCI("abc\xF0\x9F", "abd"), -1);
  EXPECT_EQ(STRCompareCI("abc", "abd"), -1);
  EXPECT_EQ(STRDeleteChar("a/b", '/', out), std::string("ab"));
}

TEST(StrNarrow, ACharacterBeyond16BitsIsFoundNowhereAndReplacesNothing) {
  if (!narrow_is_utf8()) return;
  const ScopedLocale locale(text_locale());
  check_delete(U"a\U0001F600", 0x1F600);
  check_replace(U"a\U0001F600", 0x1F600, U'x');
  check_replace(U"a/b", U'/', 0x1F600);
}

TEST(StrNarrow, ResultsAreCutToTheRoomOfTheInput) {
  if (!narrow_is_utf8()) return;
  const ScopedLocale locale(text_locale());
  Guarded<char> out(7);  // U+023A takes two bytes, its lower case three
  EXPECT_EQ(STRLower(narrow(U"\u023A\u023A\u023A").c_str(), out.data()), narrow(U"\u2C65\u2C65"));
  EXPECT_TRUE(out.intact());

  Guarded<char> replaced(6);  // three characters, and one of three bytes: room for 6
  EXPECT_EQ(STRReplaceChar("///", '/', as_int(0x5927), replaced.data()), narrow(U"\u5927\u5927"));

  Guarded<char> malformed(4);  // each stray byte becomes U+FFFD, of three bytes
  EXPECT_EQ(STRLower("\xFF\xFF\xFF", malformed.data()), narrow(U"\uFFFD"));
  EXPECT_TRUE(malformed.intact());
}

TEST(StrNarrow, AReversedPairBecomesReplacementCharacters) {
  if (!narrow_is_utf8()) return;
  char text[16];
  std::strcpy(text, narrow(U"a\U0001F600"
                           U"b")
                        .c_str());
  EXPECT_EQ(STRReverse(text), narrow(U"b\uFFFD"));
  check_reverse(
      U"a\U0001F600"
      U"b");
}

TEST(StrNarrow, ANullTextIsAnEmptyText) {
  char out[8];
  const auto dirty = [&out] { return out[0] = 'x', static_cast<char*>(out); };
  EXPECT_STREQ(STRDeleteChar(nullptr, 'a', dirty()), "");
  EXPECT_STREQ(STRDeleteCharLead(nullptr, 'a', dirty()), "");
  EXPECT_STREQ(STRDeleteCharTrail(nullptr, 'a', dirty()), "");
  EXPECT_STREQ(STRExtractSubstr(nullptr, 0, 3, dirty()), "");
  EXPECT_STREQ(STRInsertSubstr(nullptr, 0, nullptr, dirty()), "");
  EXPECT_STREQ(STRInsertSubstr(nullptr, 0, "ab", dirty()), "ab");
  EXPECT_STREQ(STRLower(nullptr, dirty()), "");
  EXPECT_STREQ(STRUpper(nullptr, dirty()), "");
  EXPECT_STREQ(STRReplaceChar(nullptr, 'a', 'b', dirty()), "");
  EXPECT_EQ(STRReverse(nullptr), nullptr);
}

// Every narrow editing function on one text.
const std::vector<std::function<char*(const char*, char*)>>& all_edits() {
  static const std::vector<std::function<char*(const char*, char*)>> edits = {
      [](const char* s, char* out) { return STRDeleteChar(s, 'a', out); },
      [](const char* s, char* out) { return STRDeleteCharLead(s, 'a', out); },
      [](const char* s, char* out) { return STRDeleteCharTrail(s, 'a', out); },
      [](const char* s, char* out) { return STRExtractSubstr(s, 1, 1, out); },
      [](const char* s, char* out) { return STRInsertSubstr(s, 1, "xy", out); },
      STRLower,
      STRUpper,
      [](const char* s, char* out) { return STRReplaceChar(s, 'a', 'b', out); },
  };
  return edits;
}

TEST(StrNarrow, ANullOutputStaysNull) {
  for (const auto& edit : all_edits()) EXPECT_EQ(edit("aBa", nullptr), nullptr);
}

TEST(StrNarrow, WithoutMemoryAnotherBufferIsEmptyAndTheTextItselfUnchanged) {
  const long before = platform::capi_blocks_out();
  for (const auto& edit : all_edits()) {
    char out[8] = "x", both[8] = "aBa";
    platform::capi_fail_after(0);
    EXPECT_STREQ(edit("aBa", out), "");
    EXPECT_STREQ(edit(both, both), "aBa");
    platform::capi_fail_after(-1);
  }
  char text[] = "abc";
  platform::capi_fail_after(0);
  EXPECT_STREQ(STRReverse(text), "abc");
  platform::capi_fail_after(1);  // the text has memory, what is inserted has none
  char out[8] = "x";
  EXPECT_STREQ(STRInsertSubstr("ab", 1, "xy", out), "");
  platform::capi_fail_after(-1);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(StrNarrow, TemporaryBlocksAreReleased) {
  const long before = platform::capi_blocks_out();
  char out[8];
  for (const auto& edit : all_edits()) edit("aBa", out);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

// Calls test(random, text) for 100,000 random texts.
template <class Test>
void for_random_texts(std::uint64_t family, Test test) {
  const ScopedLocale locale(text_locale());
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(family, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    test(random, random_characters(random, random_length(random)));
    if (testing::Test::HasFatalFailure()) return;
  }
}

TEST(StrNarrow, RandomTextsLoseCharactersAsTheWideFormSays) {
  for_random_texts(0x57F0, [](Random& random, std::u32string text) {
    const char32_t ch = random_character(random);
    check_delete(text, ch);
    text.insert(0, static_cast<std::size_t>(random.below(4)), ch);
    text.append(static_cast<std::size_t>(random.below(4)), ch);
    check_delete_lead(text, ch);
    check_delete_trail(text, ch);
  });
}

TEST(StrNarrow, RandomPartsAreExtractedAsTheWideFormSays) {
  for_random_texts(0x57F1, [](Random& random, const std::u32string& text) {
    const int length = static_cast<int>(text.size());
    check_extract(text, random.between(-2, length + 2), random.between(-2, length + 4));
  });
}

TEST(StrNarrow, RandomTextsAreInsertedAsTheWideFormSays) {
  for_random_texts(0x57F2, [](Random& random, const std::u32string& text) {
    const int pos = random.between(-2, static_cast<int>(text.size()) + 3);
    check_insert(text, pos, random_characters(random, random_length(random)));
  });
}

TEST(StrNarrow, RandomTextsChangeCaseAndCharactersAsTheWideFormSays) {
  for_random_texts(0x57F3, [](Random& random, const std::u32string& text) {
    check_case(text);
    check_replace(text, random_character(random), random_character(random));
    check_reverse(text);
  });
}

TEST(StrNarrow, RandomBytesNeverOverrunTheRoom) {
  const ScopedLocale locale(text_locale());
  for (int i = 0; i < scaled(20000); ++i) {
    const std::uint64_t seed = case_seed(0x57F4, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    std::string text;
    for (int n = random.below(30); n > 0; --n) text += static_cast<char>(random.between(1, 255));
    for (const auto& edit : all_edits()) {
      Guarded<char> out(static_cast<int>(text.size()) + 3);  // what is inserted has two bytes
      edit(text.c_str(), out.data());
      ASSERT_TRUE(out.intact());
      ASSERT_NE(std::memchr(out.data(), 0, text.size() + 3), nullptr);
    }
    ASSERT_EQ(STRCompareCI(text.c_str(), text.c_str()), 0);
    ASSERT_EQ(STRMatchPatternCI(text.c_str(), text.c_str()), 1);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
