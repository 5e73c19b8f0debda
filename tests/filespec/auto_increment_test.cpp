// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "filespec/auto_increment.h"

#include <gtest/gtest.h>

#include <climits>
#include <utility>

#include "corvane/print/fu.h"
#include "platform/platform.h"
#include "tests/filespec/host_dir.h"
#include "tests/filespec/names_models.h"
#include "tests/filespec/names_support.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

bool exists(const WideText& spec) {
  return platform::host_file_exists(spec.c_str());
}

// The specification after the call, in a buffer of `capacity` characters that holds it.
WideText resolved(const WideText& spec, int capacity) {
  Guarded<CPWChar> buffer(std::max(capacity, static_cast<int>(spec.size()) + 1));
  std::copy_n(spec.c_str(), spec.size() + 1, buffer.data());
  FUResolveAutoIncToken(buffer.data(), capacity);
  EXPECT_TRUE(buffer.intact());
  return buffer.data();
}

// p995 and the like.
std::u32string file_name(int number) {
  const std::string digits = std::to_string(number);
  return U"p" + std::u32string(digits.begin(), digits.end());
}

class AutoIncrement : public testing::Test {
protected:
  // Resolves a name below the test's directory and returns the resolved name.
  std::string name_of(std::u32string_view spec) {
    const WideText result = resolved(wide(dir_.spec(spec)), FU_WIDE);
    const WideText start = wide(dir_.spec()) + static_cast<CPWChar>('\\');
    EXPECT_EQ(result.substr(0, start.size()), start);
    return shown(result.substr(std::min(result.size(), start.size())));
  }

  HostDir dir_;
};

std::pair<bool, WideText> cleaned(std::u32string_view text) {
  WideText buffer = wide(text);
  const bool removed = FURemoveInvalidFileNameCharacters(buffer.data());
  return {removed, buffer.c_str()};
}

}  // namespace

TEST(InvalidFileNameCharacters, AllOfThemAreRemoved) {
  EXPECT_EQ(cleaned(U"a<b>?c*|d\"\"e"), std::pair(true, wide(U"abcde")));
  EXPECT_EQ(cleaned(U"<<<>>>"), std::pair(true, WideText()));
}

TEST(InvalidFileNameCharacters, SlashesGoBackslashesAndColonsStay) {
  EXPECT_EQ(cleaned(U"C:/a/b"), std::pair(true, wide(U"C:ab")));
  EXPECT_EQ(cleaned(U"C:\\a\\b.c;1"), std::pair(false, wide(U"C:\\a\\b.c;1")));
}

TEST(InvalidFileNameCharacters, CleanAndEmptyTextsStayAsTheyAre) {
  EXPECT_EQ(cleaned(U""), std::pair(false, WideText()));
  EXPECT_EQ(cleaned(U"plot \u00E9\u5927"), std::pair(false, wide(U"plot \u00E9\u5927")));
  EXPECT_FALSE(FURemoveInvalidFileNameCharacters(nullptr));
}

TEST(InvalidFileNameCharacters, TextsOfAnyLengthAreCleaned) {
  EXPECT_EQ(cleaned(std::u32string(5000, U'a') + U"?b"),
            std::pair(true, wide(std::u32string(5000, U'a') + U"b")));
}

TEST_F(AutoIncrement, TheFirstFreeNumberIsTaken) {
  EXPECT_EQ(name_of(U"plot<autoInc>.plt"), "plot000.plt");
  dir_.make_file(U"plot000.plt");
  EXPECT_EQ(name_of(U"plot<autoInc>.plt"), "plot001.plt");
  dir_.make_file(U"plot002.plt");
  EXPECT_EQ(name_of(U"plot<autoInc>.plt"), "plot001.plt");
  dir_.make_dir(U"plot001.plt");
  EXPECT_EQ(name_of(U"plot<autoInc>.plt"), "plot003.plt");
}

TEST_F(AutoIncrement, DigitsAreTheLeastWidth) {
  EXPECT_EQ(name_of(U"p<autoInc?digits=1>"), "p0");
  EXPECT_EQ(name_of(U"p<autoInc?digits=2>"), "p00");
  EXPECT_EQ(name_of(U"p<autoInc?digits=9>"), "p000");
  EXPECT_EQ(name_of(U"p<autoInc?digits=0>"), "p0");
  EXPECT_EQ(name_of(U"p<autoInc?digits=-4>"), "p0");
  EXPECT_EQ(name_of(U"p<autoInc?digits=1?base=1234>"), "p1234");
}

TEST_F(AutoIncrement, CountingBeginsWithTheBase) {
  EXPECT_EQ(name_of(U"p<autoInc?base=10?digits=2>.plt"), "p10.plt");
  EXPECT_EQ(name_of(U"p<autoInc?base=-5>"), "p-05");
  EXPECT_EQ(name_of(U"p<autoInc?base=+7>"), "p007");
  EXPECT_EQ(name_of(U"p<autoInc?base=995>"), "p995");
  for (int n = 995; n < 1000; ++n) dir_.make_file(file_name(n));
  EXPECT_EQ(name_of(U"p<autoInc?base=995>"), "p1000");
}

TEST_F(AutoIncrement, ThousandNamesAreTriedFromTheBase) {
  for (int n = 995; n < 1994; ++n) dir_.make_file(file_name(n));
  EXPECT_EQ(name_of(U"p<autoInc?base=995>"), "p1994");
}

TEST_F(AutoIncrement, TheFirstNameIsReusedWhenAllExist) {
  for (int n = 995; n < 1995; ++n) dir_.make_file(file_name(n));
  EXPECT_EQ(name_of(U"p<autoInc?base=995>"), "p995");
  EXPECT_EQ(name_of(U"p<autoInc?base=996>"), "p1995");
}

TEST_F(AutoIncrement, AttributeNamesIgnoreCaseTheTokensNameDoesNot) {
  EXPECT_EQ(name_of(U"p<autoInc?DIGITS=2?Base=7>"), "p07");
  EXPECT_EQ(name_of(U"p<AutoInc>x"), "pAutoIncx");
  EXPECT_EQ(name_of(U"p<autoinc>x"), "pautoincx");
}

TEST_F(AutoIncrement, ValuesThatAreNoNumberAreIgnored) {
  EXPECT_EQ(name_of(U"p<autoInc?digits=>"), "p000");
  EXPECT_EQ(name_of(U"p<autoInc?digits=x2>"), "p000");
  EXPECT_EQ(name_of(U"p<autoInc?digits=2?digits=?base=?base=-?base=+>"), "p00");
  EXPECT_EQ(name_of(U"p<autoInc?base=x>"), "p000");
  EXPECT_EQ(name_of(U"p<autoInc?base= >"), "p000");
}

TEST_F(AutoIncrement, WhatFollowsANumberIsNotLookedAt) {
  EXPECT_EQ(name_of(U"p<autoInc?digits= 2x9?base=4.5>"), "p04");
}

TEST_F(AutoIncrement, OtherTextInTheTokenIsSkipped) {
  EXPECT_EQ(name_of(U"p<autoInc digits=1>"), "p000");
  EXPECT_EQ(name_of(U"p<autoIncrement?what=5??digits=1?>x"), "p0x");
  EXPECT_EQ(name_of(U"p<autoInc?base=3?base=8>"), "p008");
}

TEST_F(AutoIncrement, NumbersTooLargeCountAsTheLargest) {
  EXPECT_EQ(name_of(U"p<autoInc?base=2147483647>"), "p2147483647");
  EXPECT_EQ(name_of(U"p<autoInc?base=99999999999999999999999>"), "p2147483647");
  EXPECT_EQ(name_of(U"p<autoInc?base=-99999999999999999999999>"), "p-2147483648");
  EXPECT_EQ(name_of(U"p<autoInc?digits=99999999999999999999999>"), "p000");
  dir_.make_file(U"p2147483647");
  EXPECT_EQ(name_of(U"p<autoInc?base=2147483647>"), "p2147483648");
}

TEST_F(AutoIncrement, ATokenWithoutItsEndSwallowsTheRest) {
  EXPECT_EQ(name_of(U"plot<autoInc"), "plot000");
  EXPECT_EQ(name_of(U"plot<autoInc?digits=2.plt"), "plot00");
  EXPECT_EQ(name_of(U"plot<autoInc.plt"), "plot000");
}

TEST_F(AutoIncrement, OnlyTheFirstTokenIsReplaced) {
  EXPECT_EQ(name_of(U"a<autoInc>b<autoInc>c"), "a000bautoIncc");
}

TEST_F(AutoIncrement, InvalidCharactersGoBeforeAFileIsLookedFor) {
  dir_.make_file(U"plot000.plt");
  EXPECT_EQ(name_of(U"pl*ot<autoInc>.p|lt"), "plot001.plt");
}

TEST_F(AutoIncrement, NamesBeyondAsciiAreLookedFor) {
  if (!narrow_has(0xE9)) return;
  dir_.make_file(U"\u00E9000");
  EXPECT_EQ(resolved(wide(dir_.spec(U"\u00E9<autoInc>")), FU_WIDE), wide(dir_.spec(U"\u00E9001")));
}

TEST_F(AutoIncrement, NamesThatTheCodePageLacksAreLookedForToo) {
  dir_.make_file(U"\u5927\U0001F600000.plt");
  EXPECT_EQ(resolved(wide(dir_.spec(U"\u5927\U0001F600<autoInc>.plt")), FU_WIDE),
            wide(dir_.spec(U"\u5927\U0001F600001.plt")));
}

TEST_F(AutoIncrement, WithoutATokenOnlyInvalidCharactersAreRemoved) {
  EXPECT_EQ(resolved(wide(U"C:/a/b*"), FU_WIDE), wide(U"C:ab"));
  EXPECT_EQ(resolved(wide(U"C:\\a\\b"), FU_WIDE), wide(U"C:\\a\\b"));
  EXPECT_EQ(resolved(WideText(), FU_WIDE), WideText());
}

TEST_F(AutoIncrement, ACleanSpecificationIsLeftUntouched) {
  const WideText spec = wide(std::u32string(300, U'x'));
  EXPECT_EQ(resolved(spec, 301), spec);
  // Only the first 255 characters are looked at.
  EXPECT_EQ(resolved(spec + wide(U"?"), 302), spec + wide(U"?"));
  EXPECT_EQ(resolved(wide(U"?") + spec, 302), wide(std::u32string(254, U'x')));

  WideText buffer = wide(U"plot");
  buffer.resize(20, static_cast<CPWChar>('z'));
  const WideText before = buffer;
  FUResolveAutoIncToken(buffer.data(), 20);
  EXPECT_EQ(buffer, before);
}

TEST_F(AutoIncrement, LongNamesAreCutAt255Characters) {
  for (const std::size_t length : {250u, 251u, 252u, 253u, 254u, 255u, 256u, 513u, 5000u}) {
    const std::u32string prefix = U"q" + std::u32string(length - 1, U'x');
    EXPECT_EQ(resolved(wide(prefix + U"<autoInc>.plt"), 6000), model::cut(wide(prefix + U"000.plt")))
        << length;
    EXPECT_EQ(resolved(wide(U"q<autoInc>" + prefix), 6000), model::cut(wide(U"q000" + prefix))) << length;
  }
}

TEST_F(AutoIncrement, NoMoreThanTheCapacityIsWritten) {
  const std::u32string spec = U"plot<autoInc>.plt";
  for (int capacity = 1; capacity <= 18; ++capacity) {
    const WideText full = wide(U"plot000.plt");
    WideText buffer = wide(spec) + static_cast<CPWChar>(0);
    const WideText before = buffer;
    FUResolveAutoIncToken(buffer.data(), capacity);
    const auto room = static_cast<std::size_t>(capacity);
    EXPECT_EQ(WideText(buffer.c_str()), full.substr(0, room - 1)) << capacity;
    EXPECT_EQ(buffer[room - 1], 0) << capacity;
    EXPECT_EQ(buffer.substr(room), before.substr(room)) << capacity;
  }
}

TEST_F(AutoIncrement, WithoutRoomNothingIsWritten) {
  for (const int capacity : {0, -1, INT_MIN}) {
    WideText buffer = wide(U"p<autoInc>");
    FUResolveAutoIncToken(buffer.data(), capacity);
    EXPECT_EQ(buffer, wide(U"p<autoInc>"));
  }
  FUResolveAutoIncToken(nullptr, 10);
}

TEST_F(AutoIncrement, AnyTextGivesWhatThePlainModelGives) {
  const ScopedCurrentDirectory entered(dir_.path());
  for (const auto* name : {U"p000", U"p001", U"p0", U"p00.plt", U"p10", U"p-5", U"007", U"p998", U"p999"})
    dir_.make_file(name);
  const std::vector<std::u32string> pieces = {U"p",        U"p",      U"<autoInc",
                                              U"<autoInc", U">",      U">",
                                              U"?digits=", U"?base=", U"?DIGITS=",
                                              U"?bAse=",   U"1",      U"2",
                                              U"0",        U"998",    U"-5",
                                              U"+7",       U".plt",   U"x",
                                              U"?",        U"*",      U"\u00E9",
                                              U"/",        U"<",      U" 1",
                                              U"\"",       U"|",      U"99999999999999999999",
                                              U"base=",    U"=",      U"a\\"};
  int numbered = 0;
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(5103, i));
    WideText spec = random_spec(random, pieces);
    if (random.one_in(2)) spec = wide(U"p<autoInc") + spec;
    const WideText expected = model::resolved(spec, exists);
    const int capacity = static_cast<int>(std::max(spec.size(), expected.size())) + 1 + random.below(3);
    ASSERT_EQ(resolved(spec, capacity), expected) << "case " << i << " " << shown(spec);
    numbered += expected != wide(U"p000") && spec.find(wide(U"<autoInc")) != WideText::npos;
  }
  if (test_scale() == 1) {
    EXPECT_GT(numbered, 10000);
  }
}

}  // namespace Corvane::Print::tests
