// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <string>
#include <vector>

#include "corvane/print/fu.h"
#include "platform/capi_memory.h"
#include "tests/filespec/host_dir.h"
#include "tests/filespec/search_model.h"
#include "tests/filespec/searching.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/util/str_models.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

struct Defaults {
  std::u32string dev, dir, ext, ver;
};

// A whole enumeration of a specification with wildcards.
std::vector<WideText> matches(const WideText& lfs, const Defaults& defaults = {}) {
  std::vector<WideText> all;
  FUMatchLFSHandle* handle;
  Guarded<CPWChar> out(FU_WIDE);
  int status = FUMatchLFSFirstW(lfs.c_str(), wide(defaults.dev).c_str(), wide(defaults.dir).c_str(),
                                wide(defaults.ext).c_str(), wide(defaults.ver).c_str(), out.data(), &handle);
  for (; status == FU_OK; status = FUMatchLFSNextW(&handle, out.data())) {
    EXPECT_NE(handle, nullptr);
    all.push_back(out.data());
    if (handle == nullptr) break;
  }
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(out[0], 0);
  EXPECT_TRUE(out.intact());
  return all;
}

std::vector<std::string> narrow_matches(const std::string& lfs) {
  std::vector<std::string> all;
  FUMatchLFSHandle* handle;
  Guarded<char> out(FU_NARROW);
  int status = FUMatchLFSFirst(lfs.c_str(), "", "", "", "", out.data(), &handle);
  for (; status == FU_OK; status = FUMatchLFSNext(&handle, out.data())) all.push_back(out.data());
  EXPECT_EQ(status, FU_FAILED);
  EXPECT_EQ(handle, nullptr);
  EXPECT_EQ(out[0], '\0');
  EXPECT_TRUE(out.intact());
  return all;
}

std::vector<WideText> wides(const HostDir& dir, std::initializer_list<std::u32string_view> names) {
  std::vector<WideText> all;
  for (const std::u32string_view name : names) all.push_back(wide(dir.spec(name)));
  return all;
}

// What is handed back for a specification without wildcards.
WideText handed_back(std::u32string_view lfs, const Defaults& defaults = {}) {
  FUMatchLFSHandle* handle;
  Guarded<CPWChar> out(FU_WIDE);
  EXPECT_EQ(FUMatchLFSFirstW(wide(lfs).c_str(), wide(defaults.dev).c_str(), wide(defaults.dir).c_str(),
                             wide(defaults.ext).c_str(), wide(defaults.ver).c_str(), out.data(), &handle),
            FU_OK);
  EXPECT_EQ(handle, nullptr);
  EXPECT_TRUE(out.intact());
  return out.data();
}

TEST(MatchLfs, WithoutWildcardsTheSpecificationItselfIsHandedBack) {
  const HostVariables variables{{wide(U"PLOT"), wide(U"C:\\a\\plot.plt")}};
  EXPECT_EQ(handed_back(U"plot.plt"), wide(U"plot.plt"));
  EXPECT_EQ(handed_back(U"plot", {U"C", U"\\a", U"plt", U"2"}), wide(U"plot"));
  EXPECT_EQ(handed_back(U"PLOT"), wide(U"PLOT"));
  EXPECT_EQ(handed_back(U""), wide(U""));
  FUMatchLFSHandle* handle;
  char out[FU_NARROW];
  EXPECT_EQ(FUMatchLFSFirst("plot.plt", "", "", "", "", out, &handle), FU_OK);
  EXPECT_STREQ(out, "plot.plt");
  EXPECT_EQ(handle, nullptr);
}

TEST(MatchLfs, DeliversFilesAndDirectoriesInOrder) {
  const HostDir dir;
  for (const char32_t* const name : {U"c.plt", U"a.plt", U"b.pen", U"plt"}) dir.make_file(name);
  dir.make_dir(U"b.plt");
  EXPECT_EQ(matches(wide(dir.spec(U"*.plt"))), wides(dir, {U"a.plt", U"b.plt", U"c.plt"}));
  EXPECT_EQ(matches(wide(dir.spec(U"?.p?n"))), wides(dir, {U"b.pen"}));
  EXPECT_EQ(matches(wide(dir.spec(U"*"))), wides(dir, {U"a.plt", U"b.pen", U"b.plt", U"c.plt", U"plt"}));
  EXPECT_EQ(narrow_matches(narrow(dir.spec(U"?.pen"))), std::vector<std::string>{narrow(dir.spec(U"b.pen"))});
}

TEST(MatchLfs, ADotIsMatchedByADotOnly) {
  const HostDir dir;
  dir.make_file(U"plain");
  dir.make_file(U"name.x");
  EXPECT_EQ(matches(wide(dir.spec(U"*.*"))), wides(dir, {U"name.x"}));
}

TEST(MatchLfs, CaseDoesNotMatter) {
  const HostDir dir;
  dir.make_file(U"Plot1.PLT");
  EXPECT_EQ(matches(wide(dir.spec(U"pLOT*.plt"))), wides(dir, {U"Plot1.PLT"}));
}

TEST(MatchLfs, CaseIsThatOfTheLocale) {
  if (!narrow_has(U'\u00C4')) return;
  const HostDir dir;
  dir.make_file(U"\u00C4nderung.plt");
  EXPECT_EQ(matches(wide(dir.spec(U"\u00C4*.plt"))), wides(dir, {U"\u00C4nderung.plt"}));
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(matches(wide(dir.spec(U"\u00E4*.PLT"))), wides(dir, {U"\u00C4nderung.plt"}));
}

TEST(MatchLfs, CharactersBeyond16BitsComeWhole) {
  const HostDir dir;
  dir.make_file(U"\U0001F600.plt");
  EXPECT_EQ(matches(wide(dir.spec(U"??.plt"))), wides(dir, {U"\U0001F600.plt"}));
  EXPECT_EQ(matches(wide(dir.spec(U"?.plt"))), std::vector<WideText>());
}

TEST(MatchLfs, ADevicesDirectoriesAreWalkedOneAfterTheOther) {
  const HostDir dir;
  dir.make_file(U"two\\a.plt");
  dir.make_file(U"two\\c.plt");
  dir.make_file(U"one\\b.plt");
  const HostVariables variables{
      {wide(U"PLOTS"), wide(dir.spec(U"two") + U";;" + dir.spec(U"none") + U";" + dir.spec(U"one"))}};
  const auto expected = wides(dir, {U"two\\a.plt", U"two\\c.plt", U"one\\b.plt"});
  EXPECT_EQ(matches(wide(U"PLOTS:*.plt")), expected);
  EXPECT_EQ(matches(wide(U"PLOTS:ignored\\*.plt")), expected);
  EXPECT_EQ(matches(wide(U"*.plt"), {U"PLOTS", U"", U"", U""}), expected);
}

TEST(MatchLfs, AnUndefinedDeviceHasNoMatch) {
  EXPECT_EQ(matches(wide(U"NODEVICE:*.plt")), std::vector<WideText>());
}

TEST(MatchLfs, ADeviceWithoutDirectoriesHasNoMatch) {
  const HostVariables variables{{wide(U"PLOTS"), wide(U";;")}};
  EXPECT_EQ(matches(wide(U"PLOTS:*.plt")), std::vector<WideText>());
}

TEST(MatchLfs, AVariableStandsForTheFirstEntryOfItsValue) {
  const HostDir dir;
  dir.make_file(U"a.plt");
  dir.make_file(U"b.pen");
  const HostVariables variables{{wide(U"FIND"), wide(dir.spec(U"*.plt") + U";" + dir.spec(U"*.pen"))},
                                {wide(U"NONE"), wide(U";" + dir.spec(U"*.plt"))}};
  EXPECT_EQ(matches(wide(U"FIND")), wides(dir, {U"a.plt"}));
  EXPECT_EQ(handed_back(U"NONE"), wide(U"NONE"));
}

TEST(MatchLfs, DefaultsFillWhatIsMissing) {
  const HostDir dir;
  dir.make_file(U"sub\\a.plt");
  dir.make_file(U"sub\\a.pen");
  dir.make_file(U"sub\\a.plt;2");
  const Defaults defaults{U"C", dir.spec(U"sub").substr(2), U"plt", U""};
  EXPECT_EQ(matches(wide(U"*"), defaults), wides(dir, {U"sub\\a.plt"}));
  EXPECT_EQ(matches(wide(U"*.pen"), defaults), wides(dir, {U"sub\\a.pen"}));
  Defaults with_version = defaults;
  with_version.ver = U"2";
  EXPECT_EQ(matches(wide(U"*"), with_version), wides(dir, {U"sub\\a.plt;2"}));
  EXPECT_EQ(matches(wide(U"*.plt;2"), defaults), wides(dir, {U"sub\\a.plt;2"}));
  const auto other = wides(dir, {U"sub\\a.plt"});
  const ScopedCurrentDirectory elsewhere(dir.path(U"sub"));
  EXPECT_EQ(matches(wide(U"*"), defaults), other);
}

TEST(MatchLfs, NullDefaultsAreNone) {
  const HostDir dir;
  dir.make_file(U"a.plt");
  FUMatchLFSHandle* handle;
  CPWChar out[FU_WIDE];
  EXPECT_EQ(FUMatchLFSFirstW(wide(dir.spec(U"*")).c_str(), nullptr, nullptr, nullptr, nullptr, out, &handle),
            FU_OK);
  EXPECT_EQ(WideText(out), wide(dir.spec(U"a.plt")));
  FUMatchLFSFreeW(handle);
  char narrow_out[FU_NARROW];
  EXPECT_EQ(FUMatchLFSFirst(narrow(dir.spec(U"*")).c_str(), nullptr, nullptr, nullptr, nullptr, narrow_out,
                            &handle),
            FU_OK);
  FUMatchLFSFree(handle);
}

TEST(MatchLfs, WithoutADirectoryTheCurrentOneIsMeant) {
  const HostDir dir;
  dir.make_file(U"a.plt");
  const ScopedCurrentDirectory inside(dir.path());
  EXPECT_EQ(matches(wide(U"*.plt")), std::vector<WideText>{wide(U".\\a.plt")});
}

TEST(MatchLfs, AnEmptyDirectoryHasNoMatch) {
  const HostDir dir;
  EXPECT_EQ(matches(wide(dir.spec(U"*.plt"))), std::vector<WideText>());
  EXPECT_EQ(matches(wide(dir.spec(U"*"))), std::vector<WideText>());
}

TEST(MatchLfs, AWildcardInTheDirectoryMatchesNothing) {
  const HostDir dir;
  dir.make_file(U"sub\\a.plt");
  EXPECT_EQ(matches(wide(dir.spec(U"su*\\a.plt"))), std::vector<WideText>());
}

// Resolving takes the specification apart and puts it together, twice; that takes away a separator at its
// end, and each time one of several dots in front of an extension.
TEST(MatchLfs, ResolvingTidiesTheSpecification) {
  const HostDir dir;
  dir.make_file(U"sub\\a.plt");
  EXPECT_EQ(matches(wide(dir.spec(U"su*\\"))), wides(dir, {U"sub"}));
  EXPECT_EQ(matches(wide(dir.spec(U"sub\\*...plt"))), wides(dir, {U"sub\\a.plt"}));
}

TEST(MatchLfs, SeveralEnumerationsAtOnceDoNotDisturbEachOther) {
  const HostDir dir;
  for (const char32_t* const name : {U"a.plt", U"b.plt", U"c.plt"}) dir.make_file(name);
  const WideText spec = wide(dir.spec(U"*"));
  FUMatchLFSHandle *one, *two;
  CPWChar out[FU_WIDE];
  const auto next = [&out](FUMatchLFSHandle*& handle) {
    EXPECT_EQ(FUMatchLFSNextW(&handle, out), FU_OK);
    return WideText(out);
  };
  ASSERT_EQ(FUMatchLFSFirstW(spec.c_str(), nullptr, nullptr, nullptr, nullptr, out, &one), FU_OK);
  ASSERT_EQ(FUMatchLFSFirstW(spec.c_str(), nullptr, nullptr, nullptr, nullptr, out, &two), FU_OK);
  EXPECT_EQ(next(one), wide(dir.spec(U"b.plt")));
  EXPECT_EQ(next(one), wide(dir.spec(U"c.plt")));
  EXPECT_EQ(next(two), wide(dir.spec(U"b.plt")));
  FUMatchLFSFreeW(one);
  EXPECT_EQ(next(two), wide(dir.spec(U"c.plt")));
  FUMatchLFSFreeW(two);
}

TEST(MatchLfs, StoppingEarlyLeaksNothing) {
  const HostDir dir;
  dir.make_file(U"a.plt");
  dir.make_file(U"b.plt");
  const WideText spec = wide(dir.spec(U"*"));
  const long before = platform::capi_blocks_out();
  FUMatchLFSHandle* handle;
  CPWChar out[FU_WIDE];
  ASSERT_EQ(FUMatchLFSFirstW(spec.c_str(), nullptr, nullptr, nullptr, nullptr, out, &handle), FU_OK);
  EXPECT_GT(platform::capi_blocks_out(), before);
  FUMatchLFSFreeW(handle);
  FUMatchLFSFreeW(nullptr);
  FUMatchLFSFree(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before);
  matches(spec);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(MatchLfs, AnEnumerationThatHasEndedStaysAtItsEnd) {
  FUMatchLFSHandle* handle = nullptr;
  CPWChar out[FU_WIDE] = {'x', 0};
  EXPECT_EQ(FUMatchLFSNextW(&handle, out), FU_FAILED);
  EXPECT_EQ(out[0], 0);
}

TEST(MatchLfs, MemoryThatRanOutIsReported) {
  const HostDir dir;
  dir.make_file(U"a.plt");
  const WideText spec = wide(dir.spec(U"*"));
  const long before = platform::capi_blocks_out();
  const HostVariables variables{};
  int no_memory = 0;
  for (int successes = 0;; ++successes) {
    ASSERT_LT(successes, 100);
    FUMatchLFSHandle* handle;
    CPWChar out[FU_WIDE] = {'x', 0};
    platform::capi_fail_after(successes);
    const int status = FUMatchLFSFirstW(spec.c_str(), nullptr, nullptr, nullptr, nullptr, out, &handle);
    platform::capi_fail_after(-1);
    if (status == FU_OK) {
      FUMatchLFSFreeW(handle);
      break;
    }
    ASSERT_EQ(status, FU_NO_MEMORY);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(platform::capi_blocks_out(), before);
    ++no_memory;
  }
  EXPECT_GE(no_memory, 3);
}

TEST(MatchLfs, ADirectoryThatLeavesNoRoomForThePatternHasNoMatch) {
  const HostDir dir;
  std::u32string deep = U"d";
  while (dir.spec(deep).size() < 251) deep += deep.size() % 40 == 39 ? U'\\' : U'd';
  for (int extra = 0; extra < 8; ++extra) {
    const HostVariables variables{
        {wide(U"DEEP"), wide(dir.spec(deep) + std::u32string(static_cast<std::size_t>(extra), U'e'))}};
    EXPECT_EQ(matches(wide(U"DEEP:*.plt")), std::vector<WideText>());
    EXPECT_EQ(matches(wide(U"DEEP:**********")), std::vector<WideText>());
  }
}

TEST(MatchLfs, TextsOfAnyLengthAreHarmless) {
  for (const std::size_t length : {253u, 254u, 255u, 256u, 257u, 511u, 512u, 513u, 5000u}) {
    const std::u32string text(length, U'n');
    EXPECT_EQ(handed_back(text), wide(text).substr(0, 255));
    EXPECT_EQ(matches(wide(U"*" + text)), std::vector<WideText>());
    const Defaults defaults{text, text, text, text};
    EXPECT_EQ(handed_back(U"*", defaults), wide(U"*"));  // no room was left for the star
  }
}

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

}  // namespace
}  // namespace Corvane::Print::tests
