// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The enumeration of small real directories, against plain models of it.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "tests/filespec/host_dir.h"
#include "tests/filespec/matching.h"
#include "tests/filespec/search_model.h"
#include "tests/filespec/searching.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"

namespace Corvane::Print::tests {
namespace {

// On Windows the system's own wildcards must match as well, and not every version of it knows a ? behind a *.
bool system_decides(const WideText& pattern) {
  return !narrow_is_utf8() && pattern.find(wide(U"*?")) != pattern.npos;
}

// A small real tree; the model lists it and matches each name.
TEST(MatchRandom, AgreesWithThePlainModel) {
  const HostDir dir;
  const std::vector<std::u32string> names = {U"a", U"a.plt", U"ab",     U"ab.plt",
                                             U"b", U"b.a",   U"ba.plt", U"plt"};
  for (const std::u32string& name : names) {
    dir.make_file(U"one\\" + name);
    if (name.size() % 2 == 0) dir.make_file(U"two\\" + name);
  }
  const HostVariables variables{{wide(U"D"), wide(dir.spec(U"one") + U";" + dir.spec(U"two"))}};
  const model::PlainMatch plain_match(true);
  static constexpr char32_t kCharacters[] = U"aAb**?..plt";
  long matched = 0;
  const int cases = scaled(100000);
  for (int i = 0; i < cases; ++i) {
    const std::uint64_t seed = case_seed(0x5EA6, i);
    Random random(seed);
    std::u32string pattern;
    for (int n = random.between(1, 7); n > 0; --n)
      pattern += kCharacters[random.below(static_cast<int>(std::size(kCharacters)) - 1)];
    if (pattern.find_first_of(U"*?") == pattern.npos) pattern += U'*';
    const WideText resolved = search_model::build(search_model::parse(wide(pattern)));
    const WideText rebuilt = search_model::build(search_model::parse(resolved));
    if (system_decides(rebuilt)) continue;
    const std::u32string units(rebuilt.begin(), rebuilt.end());
    std::vector<WideText> expected;
    for (const char32_t* const directory : {U"one\\", U"two\\"}) {
      for (const std::u32string& name : names) {
        const bool there = directory[0] == U'o' || name.size() % 2 == 0;
        if (there && plain_match(name, units)) expected.push_back(wide(dir.spec(directory + name)));
      }
    }
    ASSERT_EQ(matches(wide(U"D:" + pattern)), expected) << "seed " << seed << ", " << narrow(pattern);
    matched += static_cast<long>(expected.size());
    if (i % 16 == 0) {
      std::vector<std::string> narrow_expected;
      for (const WideText& each : expected)
        narrow_expected.push_back(narrow(std::u32string(each.begin(), each.end())));
      ASSERT_EQ(narrow_matches(narrow(U"D:" + pattern)), narrow_expected) << "seed " << seed;
    }
  }
  EXPECT_GT(matched, cases / 2);
}

// Patterns of every length, which are cut where a specification ends. Those for which the directory leaves no
// room have no match.
TEST(MatchRandom, PatternsOfAnyLengthAgreeWithTheTable) {
  const HostDir dir;
  // Not every system finds the end of a row of the same character behind a *, so there is none at an end.
  const std::u32string names[] = {U"a", U"aab.plt", U"b", U"b" + std::u32string(98, U'c') + U"a"};
  for (const std::u32string& name : names) dir.make_file(name);
  const HostVariables variables{{wide(U"D"), wide(dir.spec())}};
  static constexpr int kLengths[] = {1,   220, 230, 240, 250, 253, 254, 255,
                                     256, 257, 511, 512, 513, 514, 5000};
  int matched = 0;
  const int cases = scaled(4000);
  for (int i = 0; i < cases; ++i) {
    const std::uint64_t seed = case_seed(0x5EA8, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const int length = kLengths[random.below(static_cast<int>(std::size(kLengths)))];
    const std::u32string_view pieces[] = {U"*", U"*", U"a", U"b", random.one_in(3) ? U"." : U"*"};
    std::u32string pattern = U"*";
    while (static_cast<int>(pattern.size()) < length) {
      const int times = random.one_in(9) ? random.below(90) : 1;
      pattern.append(static_cast<std::size_t>(times), pieces[random.one_in(40) ? random.below(5) : 0][0]);
    }
    pattern.resize(static_cast<std::size_t>(length));
    const WideText resolved = search_model::build(search_model::parse(wide(U"D:" + pattern)));
    const search_model::Parts parts = search_model::parse(resolved);
    const WideText rebuilt = search_model::build({{}, {}, parts.name, parts.ext, parts.ver});
    const bool room = dir.spec().size() + 1 + rebuilt.size() <= 255;
    std::vector<WideText> expected;
    for (const std::u32string& name : names) {
      if (room && model::table_match(name, std::u32string(rebuilt.begin(), rebuilt.end()), true))
        expected.push_back(wide(dir.spec(name)));
    }
    std::sort(expected.begin(), expected.end());
    ASSERT_EQ(matches(wide(U"D:" + pattern)), expected);
    matched += !expected.empty();
  }
  EXPECT_TRUE(cases < 100 || matched > cases / 20) << matched;
}

}  // namespace
}  // namespace Corvane::Print::tests
