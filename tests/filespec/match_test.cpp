// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "corvane/print/fu.h"
#include "platform/capi_memory.h"
#include "tests/filespec/host_dir.h"
#include "tests/filespec/matching.h"
#include "tests/filespec/searching.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

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
  // What follows the first ; is no version, and one can be filled in.
  dir.make_file(U"a.plt;2");
  EXPECT_EQ(matches(wide(U"FIND")), wides(dir, {U"a.plt"}));
  EXPECT_EQ(matches(wide(U"FIND"), {U"", U"", U"", U"2"}), wides(dir, {U"a.plt;2"}));
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

TEST(MatchLfs, ARelativeDirectoryBeginsAtTheCurrentOne) {
  const HostDir dir;
  dir.make_file(U"sub\\a.plt");
  const ScopedCurrentDirectory inside(dir.path());
  EXPECT_EQ(matches(wide(U"sub\\*.plt")), std::vector<WideText>{wide(U"sub\\a.plt")});
  EXPECT_EQ(matches(wide(U"*.plt"), {U"", U"sub", U"", U""}), std::vector<WideText>{wide(U"sub\\a.plt")});
}

TEST(MatchLfs, ADriveWithoutADirectoryMeansTheCurrentOneThere) {
  const HostDir dir;
  const std::u32string name = dir.path().filename().u32string();
  const ScopedCurrentDirectory inside(DriveC::root());
  const std::vector<WideText> all = matches(wide(U"C:" + name.substr(0, 3) + U"*"));
  EXPECT_EQ(std::count(all.begin(), all.end(), wide(U"C:.\\" + name)), 1);
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

TEST(MatchLfs, MemoryThatRunsOutOnTheWayEndsTheEnumeration) {
  const HostDir dir;
  dir.make_file(U"one\\a.plt");
  dir.make_file(U"two\\b.plt");
  const HostVariables variables{{wide(U"PLOTS"), wide(dir.spec(U"one") + U";" + dir.spec(U"two"))}};
  const long before = platform::capi_blocks_out();
  int no_memory = 0;
  for (int successes = 0;; ++successes) {
    ASSERT_LT(successes, 100);
    FUMatchLFSHandle* handle;
    CPWChar out[FU_WIDE];
    ASSERT_EQ(
        FUMatchLFSFirstW(wide(U"PLOTS:*.plt").c_str(), nullptr, nullptr, nullptr, nullptr, out, &handle),
        FU_OK);
    platform::capi_fail_after(successes);
    const int status = FUMatchLFSNextW(&handle, out);
    platform::capi_fail_after(-1);
    if (status == FU_OK) {
      EXPECT_EQ(WideText(out), wide(dir.spec(U"two\\b.plt")));
      FUMatchLFSFreeW(handle);
      break;
    }
    ASSERT_EQ(status, FU_NO_MEMORY);
    EXPECT_EQ(handle, nullptr);
    EXPECT_EQ(out[0], 0);
    EXPECT_EQ(platform::capi_blocks_out(), before);
    ++no_memory;
  }
  EXPECT_GE(no_memory, 1);
}

TEST(MatchLfs, ADirectoryThatLeavesNoRoomForThePatternHasNoMatch) {
  const HostDir dir;
  dir.make_file(U"ax");
  {
    const HostVariables variables{{wide(U"D"), wide(dir.spec())}};
    const std::size_t room = 255 - dir.spec().size() - 1;
    EXPECT_EQ(matches(wide(U"D:" + std::u32string(room - 1, U'*') + U"x")), wides(dir, {U"ax"}));
    EXPECT_EQ(matches(wide(U"D:" + std::u32string(room, U'*') + U"x")), std::vector<WideText>());
  }
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

}  // namespace
}  // namespace Corvane::Print::tests
