// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search over real directories, with the switches as they are when nobody sets them.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "tests/filespec/host_dir.h"
#include "tests/filespec/searching.h"
#include "tests/platform/system_seam.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

std::vector<Tried> tried(std::initializer_list<std::pair<int, std::u32string_view>> all, bool last_found) {
  std::vector<Tried> list;
  for (const auto& [step, candidate] : all) list.push_back({step, wide(candidate), false});
  if (last_found) list.back().found = true;
  return list;
}

// What a search tries where there is no file at all.
class Nothing : public filespec::FileProbe, public filespec::SearchObserver {
public:
  bool is_file(const CPWChar*) override { return false; }
  void tried(int step, const CPWChar* candidate, bool found) override {
    all.push_back({step, candidate, found});
  }
  std::vector<Tried> all;
};

std::vector<Tried> tried_in_vain(std::u32string_view ufs, std::u32string_view list, std::u32string_view ver,
                                 filespec::SearchSwitches switches) {
  Nothing nothing;
  CPWChar out[FU_WIDE];
  const filespec::SearchConditions conditions{.switches = switches, .files = &nothing, .observer = &nothing};
  EXPECT_EQ(filespec::search_file(conditions, wide(ufs).c_str(), wide(list).c_str(), nullptr,
                                  wide(ver).c_str(), out),
            FU_NOT_FOUND);
  EXPECT_EQ(out[0], 0);
  return nothing.all;
}

TEST(Search, AFileIsFoundAsItStands) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  EXPECT_EQ(found(dir.spec(U"f.txt")), wide(dir.spec(U"f.txt")));
  const ScopedCurrentDirectory inside(dir.path());
  EXPECT_EQ(found(U"f.txt"), wide(U"f.txt"));
}

TEST(Search, ADirectoryIsNeverFound) {
  const HostDir dir;
  dir.make_dir(U"f.txt");
  EXPECT_EQ(found(dir.spec(U"f.txt")), WideText());
  EXPECT_EQ(found(U"f.txt", dir.spec()), WideText());
}

TEST(Search, DefaultsFillWhatACandidateLacks) {
  const HostDir dir;
  dir.make_file(U"f.fence");
  dir.make_file(U"g.fence;2");
  EXPECT_EQ(found(dir.spec(U"f")), WideText());
  EXPECT_EQ(found(dir.spec(U"f"), {}, U"fence"), wide(dir.spec(U"f.fence")));
  EXPECT_EQ(found(dir.spec(U"f.plt"), {}, U"fence"), WideText());
  EXPECT_EQ(found(U"g", dir.spec(), U"fence", U"2"), wide(dir.spec(U"g.fence;2")));
}

TEST(Search, TheCandidateItselfComesBeforeTheDefaults) {
  const HostDir dir;
  dir.make_file(U"f");
  dir.make_file(U"f.fence");
  EXPECT_EQ(found(dir.spec(U"f"), {}, U"fence"), wide(dir.spec(U"f")));
}

TEST(Search, AVariableStandsForItsValue) {
  const HostDir dir;
  dir.make_file(U"f.fence");
  const HostVariables variables{{wide(U"MYFENCE"), wide(dir.spec(U"f"))}};
  const SearchResult result = look_for(U"MYFENCE", {}, U"fence");
  EXPECT_EQ(result.found, wide(dir.spec(U"f.fence")));
  EXPECT_EQ(result.tried.back().step, FU_STEP_VARIABLE);
}

// A specification that takes every step but the last, which is for what is not full.
TEST(Search, TheStepsAreTakenInTheirOrder) {
  const HostVariables variables{{wide(U"C:\\a\\b\\f.e"), wide(U"C:\\value")},
                                {wide(U"C"), wide(U"C:\\device")},
                                {wide(U"VX_PWP"), wide(U"C:\\pwp")}};
  const filespec::SearchSwitches both{.current_directory_first = true, .as_is = true};
  EXPECT_EQ(tried_in_vain(U"C:\\a\\b\\f.e", U"C:\\list", U"7", both),
            tried({{FU_STEP_CURRENT_DIRECTORY, U".\\f.e"},
                   {FU_STEP_CURRENT_DIRECTORY, U".\\f.e;7"},
                   {FU_STEP_AS_IS, U"C:\\a\\b\\f.e"},
                   {FU_STEP_AS_IS, U"C:\\a\\b\\f.e;7"},
                   {FU_STEP_VARIABLE, U"C:\\value"},
                   {FU_STEP_VARIABLE, U"C:\\value;7"},
                   {FU_STEP_LISTS, U"C:\\device\\f.e"},
                   {FU_STEP_LISTS, U"C:\\device\\f.e;7"},
                   {FU_STEP_LISTS, U"C:\\device\\\\a\\b\\f.e"},
                   {FU_STEP_LISTS, U"C:\\device\\\\a\\b\\f.e;7"},
                   {FU_STEP_LISTS, U"C:\\list\\f.e"},
                   {FU_STEP_LISTS, U"C:\\list\\f.e;7"},
                   {FU_STEP_LISTS, U"C:\\list\\\\a\\b\\f.e"},
                   {FU_STEP_LISTS, U"C:\\list\\\\a\\b\\f.e;7"},
                   {FU_STEP_RELOCATED, U".\\f.e"},
                   {FU_STEP_RELOCATED, U"VX_PWP:b\\f.e"},
                   {FU_STEP_RELOCATED, U"C:\\pwp\\f.e"},
                   {FU_STEP_RELOCATED, U"C:\\pwp\\b\\f.e"}},
                  false));
}

TEST(SearchLists, TheDevicesListComesBeforeTheSearchPath) {
  const HostVariables variables{{wide(U"DATA"), wide(U"C:\\a;C:\\b")}};
  const SearchResult result = look_for(U"DATA:sub\\f", U"C:\\p;;Q");
  EXPECT_EQ(result.status, FU_NOT_FOUND);
  EXPECT_EQ(result.tried, tried({{FU_STEP_AS_IS, U"DATA:sub\\f"},
                                 {FU_STEP_LISTS, U"C:\\a\\f"},
                                 {FU_STEP_LISTS, U"C:\\a\\sub\\f"},
                                 {FU_STEP_LISTS, U"C:\\b\\f"},
                                 {FU_STEP_LISTS, U"C:\\b\\sub\\f"},
                                 {FU_STEP_LISTS, U"C:\\p\\f"},
                                 {FU_STEP_LISTS, U"C:\\p\\sub\\f"},
                                 {FU_STEP_LISTS, U"Q\\f"},
                                 {FU_STEP_LISTS, U"Q\\sub\\f"}},
                                false));
}

TEST(SearchLists, TheFirstDirectoryThatHasTheFileWins) {
  const HostDir dir;
  dir.make_file(U"two\\f.txt");
  dir.make_file(U"three\\f.txt");
  dir.make_file(U"three\\sub\\g.txt");
  const std::u32string list = dir.spec(U"one") + U";" + dir.spec(U"two") + U";" + dir.spec(U"three");
  EXPECT_EQ(found(U"f.txt", list), wide(dir.spec(U"two\\f.txt")));
  EXPECT_EQ(found(U"sub\\g.txt", list), wide(dir.spec(U"three\\sub\\g.txt")));
  const HostVariables variables{{wide(U"DATA"), wide(list)}};
  EXPECT_EQ(found(U"DATA:f.txt"), wide(dir.spec(U"two\\f.txt")));
  EXPECT_EQ(found(U"DATA:sub\\g.txt"), wide(dir.spec(U"three\\sub\\g.txt")));
}

TEST(SearchLists, AFileOfTheFullNameIsLookedForInTheListsToo) {
  const HostDir dir;
  dir.make_file(U"here\\f.txt");
  EXPECT_EQ(found(U"C:\\nowhere\\f.txt", dir.spec(U"here")), wide(dir.spec(U"here\\f.txt")));
}

TEST(SearchLists, TheVersionIsNotLookedFor) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  dir.make_file(U"g.txt;2");
  EXPECT_EQ(found(U"f.txt;2", dir.spec()), wide(dir.spec(U"f.txt")));
  EXPECT_EQ(found(U"g.txt;2", dir.spec()), WideText());
  EXPECT_EQ(found(U"g.txt;2", dir.spec(), {}, U"2"), wide(dir.spec(U"g.txt;2")));
}

TEST(SearchLists, ListsMayHaveAnyLength) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  std::u32string list;
  for (int i = 0; i < 200; ++i) list += U"C:\\nowhere\\of\\importance;";
  list += std::u32string(1000, U'e') + U";" + dir.spec();
  EXPECT_EQ(found(U"f.txt", list), wide(dir.spec(U"f.txt")));
  const HostVariables variables{{wide(U"DATA"), wide(list)}};
  EXPECT_EQ(found(U"DATA:f.txt"), wide(dir.spec(U"f.txt")));
}

TEST(SearchPwp, ALostFullPathIsRelocatedByItsLastTwoLevels) {
  const HostDir dir;
  dir.make_file(U"sub\\f.txt");
  const HostVariables variables{{wide(U"VX_PWP"), wide(dir.spec())}};
  const SearchResult result = look_for(U"C:\\old\\place\\sub\\f.txt");
  EXPECT_EQ(result.found, wide(dir.spec(U"sub\\f.txt")));
  EXPECT_EQ(result.tried, tried({{FU_STEP_AS_IS, U"C:\\old\\place\\sub\\f.txt"},
                                 {FU_STEP_RELOCATED, U"VX_PWP:sub\\f.txt"},
                                 {FU_STEP_RELOCATED, dir.spec(U"f.txt")},
                                 {FU_STEP_RELOCATED, dir.spec(U"sub\\f.txt")}},
                                true));
}

TEST(SearchPwp, TheTwoLevelsFollowARootWhole) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}};
  const SearchResult result = look_for(U"C:\\sub\\f");
  EXPECT_EQ(result.tried, tried({{FU_STEP_AS_IS, U"C:\\sub\\f"},
                                 {FU_STEP_RELOCATED, U"VX_PWP:sub\\f"},
                                 {FU_STEP_RELOCATED, U"C:\\none\\f"},
                                 {FU_STEP_RELOCATED, U"C:\\none\\sub\\f"}},
                                false));
}

TEST(SearchPwp, WithoutTheVariableNothingIsRelocated) {
  const HostVariables variables{};
  EXPECT_EQ(look_for(U"C:\\old\\sub\\f").tried, tried({{FU_STEP_AS_IS, U"C:\\old\\sub\\f"}}, false));
  EXPECT_EQ(look_for(U"sub\\f").tried, tried({{FU_STEP_AS_IS, U"sub\\f"}}, false));
}

TEST(SearchPwp, TheLastTwoLevelsKeepTheirTextAsItIs) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}};
  const auto relocated = [](std::u32string_view ufs) { return tried_in_vain(ufs, U"", U"", {}).at(1); };
  EXPECT_EQ(relocated(U"\\\\srv\\share\\f"), (Tried{FU_STEP_RELOCATED, wide(U"VX_PWP:share\\f"), false}));
  EXPECT_EQ(relocated(U"\\\\srv\\f"), (Tried{FU_STEP_RELOCATED, wide(U"VX_PWP:srv\\f"), false}));
  EXPECT_EQ(relocated(U"C:\\a/b\\sub\\f.e;2"), (Tried{FU_STEP_RELOCATED, wide(U"VX_PWP:sub\\f.e;2"), false}));
  EXPECT_EQ(relocated(U"C:\\a\\b\\sub\\"), (Tried{FU_STEP_RELOCATED, wide(U"VX_PWP:b\\sub\\"), false}));
}

TEST(SearchPwp, ASingleLevelIsNotRelocated) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}};
  EXPECT_EQ(look_for(U"C:\\f").tried, tried({{FU_STEP_AS_IS, U"C:\\f"}}, false));
}

TEST(SearchPwp, ABareNameIsLookedForByItself) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none;" + dir.spec())}};
  const SearchResult result = look_for(U"lost\\f.txt");
  EXPECT_EQ(result.found, wide(dir.spec(U"\\f.txt")).erase(dir.spec().size(), 1));
  EXPECT_EQ(result.tried.back().step, FU_STEP_BY_NAME);
  EXPECT_EQ(result.tried[1], (Tried{FU_STEP_BY_NAME, wide(U"VX_PWP:\\f.txt"), false}));
}

TEST(SearchPwp, DefaultsDoNotReachTheInnerSearches) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const HostVariables variables{{wide(U"VX_PWP"), wide(dir.spec())}};
  EXPECT_EQ(found(U"lost\\f", {}, U"txt"), WideText());
  EXPECT_EQ(found(U"C:\\old\\lost\\f", {}, U"txt"), WideText());
}

TEST(SearchPwp, AFullLogicalNameIsNotLookedForByItself) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const HostVariables variables{{wide(U"VX_PWP"), wide(dir.spec())}};
  EXPECT_EQ(found(U"NODEVICE:f.txt"), WideText());
}

TEST(SearchPwp, ASearchThatWouldRepeatItselfEnds) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}, {wide(U"DATA"), wide(U"C:\\no")}};
  for (const char32_t* const ufs :
       {U"sub\\", U"DATA:", U".", U"VX_PWP:", U"VX_PWP:.", U"VX_PWP", U"VX_PWP:sub\\", U"C:", U";", U"a\\.",
        U":", U"\\", U"/", U"]", U";;", U"VX_PWP:;", U"C:\\"}) {
    EXPECT_EQ(look_for(ufs).status, FU_NOT_FOUND) << wide(ufs).size();
  }
}

TEST(Search, EmptyAndNullSpecificationsAreNotFound) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}};
  EXPECT_EQ(look_for(U"").status, FU_NOT_FOUND);
  EXPECT_EQ(look_for(U"").tried, std::vector<Tried>());
  CPWChar out[FU_WIDE] = {'x', 0};
  EXPECT_EQ(FUSearchUFSW(nullptr, nullptr, nullptr, nullptr, out), FU_NOT_FOUND);
  EXPECT_EQ(out[0], 0);
}

TEST(Search, TheOutputMayBeTheSpecification) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  CPWChar text[FU_WIDE] = {'f', 0};
  EXPECT_EQ(FUSearchUFSW(text, wide(dir.spec()).c_str(), wide(U"txt").c_str(), nullptr, text), FU_OK);
  EXPECT_EQ(WideText(text), wide(dir.spec(U"f.txt")));
}

TEST(Search, NamesNeedNotBeAscii) {
  if (!narrow_has(U'\u00F6')) return;
  const HostDir dir;
  dir.make_file(U"Gr\u00F6\u00DFe\\Pl\u00E4ne.plt");
  EXPECT_EQ(found(U"Pl\u00E4ne", dir.spec(U"Gr\u00F6\u00DFe"), U"plt"),
            wide(dir.spec(U"Gr\u00F6\u00DFe\\Pl\u00E4ne.plt")));
  Guarded<char> out(FU_NARROW);
  EXPECT_EQ(FUSearchUFS(narrow(U"Pl\u00E4ne.plt").c_str(), narrow(dir.spec(U"Gr\u00F6\u00DFe")).c_str(), "",
                        "", out.data()),
            FU_OK);
  EXPECT_EQ(std::string(out.data()), narrow(dir.spec(U"Gr\u00F6\u00DFe\\Pl\u00E4ne.plt")));
}

TEST(Search, LongSpecificationsAreCut) {
  for (const std::size_t length : {254u, 255u, 256u, 257u, 511u, 512u, 513u, 5000u}) {
    const std::u32string name(length, U'n');
    const SearchResult result = look_for(name, U"C:\\list", U"ext");
    EXPECT_EQ(result.status, FU_NOT_FOUND);
    for (const Tried& each : result.tried) EXPECT_LE(each.candidate.size(), 255u);
  }
}

TEST(SearchExplain, WithoutAnObserverItIsTheSearch) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  CPWChar out[FU_WIDE];
  EXPECT_EQ(
      FUSearchExplainW(wide(dir.spec(U"f.txt")).c_str(), nullptr, nullptr, nullptr, out, nullptr, nullptr),
      FU_OK);
  EXPECT_EQ(WideText(out), wide(dir.spec(U"f.txt")));
}

TEST(SearchExplain, WhatTheObserverThrowsDoesNotEndTheSearch) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  int calls = 0;
  CPWChar out[FU_WIDE];
  EXPECT_EQ(FUSearchExplainW(
                wide(U"f.txt").c_str(), wide(U"C:\\none;" + dir.spec()).c_str(), nullptr, nullptr, out,
                [](void* context, int, const CPWChar*, int) {
                  ++*static_cast<int*>(context);
                  throw std::runtime_error("on purpose");
                },
                &calls),
            FU_OK);
  EXPECT_EQ(calls, 3);
  EXPECT_EQ(WideText(out), wide(dir.spec(U"f.txt")));
}

// Random searches over a real tree, the variables those of the caller; how many cases, and how many found a
// file.
class RealTree {
public:
  RealTree() {
    for (const char32_t* const name : {U"a", U"b.txt", U"sub\\a.txt", U"sub\\b", U"sub\\\u00E9.txt"})
      dir_.make_file(name);
  }
  const HostDir& dir() const { return dir_; }

  void search_at_random(std::uint64_t family) {
    const ScopedCurrentDirectory inside(dir_.path());
    for (int i = 0; i < cases; ++i) {
      const std::uint64_t seed = case_seed(family, i);
      SCOPED_TRACE(testing::Message() << "seed " << seed);
      Random random(seed);
      search(random_spec(random), random_list(random), random.one_in(2) ? U"txt" : U"");
    }
    EXPECT_GT(hits, cases / 20);
  }

private:
  std::u32string random_spec(Random& random) const {
    const std::u32string pieces[] = {U"a",      U"b", U"sub", U"\\",    U"\\",     U"/",
                                     U".txt",   U";", U":",   U"DATA:", U"\u00E9", dir_.spec() + U"\\",
                                     U"nothing"};
    std::u32string spec;
    for (int n = random.below(6); n > 0; --n) {
      const std::u32string& piece = pieces[random.below(static_cast<int>(std::size(pieces)))];
      if (piece != U"\u00E9" || narrow_has(0x00E9)) spec += piece;
    }
    return spec;
  }
  // Directories as lists have them, and as they had better not.
  std::u32string random_list(Random& random) const {
    const std::u32string long_way = dir_.spec() + U"\\sub";
    const std::u32string elements[] = {dir_.spec(),
                                       dir_.spec(U"sub"),
                                       dir_.spec() + U"\\",
                                       dir_.spec(U"sub") + U"/",
                                       dir_.spec(U"sub") + std::u32string(random.below(300), U'\\'),
                                       long_way + std::u32string(random.between(200, 300), U'n'),
                                       U"C:",
                                       U"Z:\\",
                                       U"Q:\\none",
                                       U"sub",
                                       U".",
                                       U"",
                                       U"\u00E9"};
    std::u32string list;
    for (int n = random.below(5); n > 0; --n)
      list += elements[random.below(static_cast<int>(std::size(elements)))] + U";";
    return list;
  }
  void search(const std::u32string& ufs, const std::u32string& list, std::u32string_view ext) {
    const WideText wide_found = look_for(ufs, list, ext).found;
    Guarded<char> out(FU_NARROW);
    FUSearchUFS(narrow(ufs).c_str(), narrow(list).c_str(), "txt", "", out.data());
    std::u32string back;
    CPWChar expected[FU_WIDE];
    FUSearchUFSW(wide(ufs).c_str(), wide(list).c_str(), wide(U"txt").c_str(), wide(U"").c_str(), expected);
    for (const CPWChar c : WideText(expected)) back += c;
    ASSERT_EQ(std::string(out.data()), narrow(back));
    if (!wide_found.empty()) ++hits;
  }

  HostDir dir_;
  const int cases = scaled(5000);
  long hits = 0;
};

TEST(SearchRandom, NarrowWideAndExplainedAgreeOverARealTree) {
  RealTree tree;
  const HostVariables variables{{wide(U"DATA"), wide(U"C:\\none;" + tree.dir().spec())},
                                {wide(U"VX_PWP"), wide(tree.dir().spec(U"sub"))}};
  tree.search_at_random(0x5EA5);
}

TEST(SearchRandom, TheyAgreeWithVariablesOfTheEnvironmentToo) {
  RealTree tree;
  const ScopedVariable data(U"DATA", U"C:\\none;" + tree.dir().spec());
  const ScopedVariable name(U"a", U"nothing");
  const ScopedVariable pwp(U"VX_PWP", tree.dir().spec(U"sub"));
  tree.search_at_random(0x5EA6);
}

// What a host is asked for, in order.
std::vector<WideText>& lookups() {
  static std::vector<WideText> all;
  return all;
}

std::vector<WideText> lookups_of(std::u32string_view ufs, bool explain) {
  const auto nobody = [](void*, int, const CPWChar*, int) {};
  lookups().clear();
  CFSetGetEnvVarCallback([](const CPWChar* name, CPWChar*, int) {
    lookups().push_back(name);
    return 0;
  });
  CPWChar out[FU_WIDE];
  FUSearchExplainW(wide(ufs).c_str(), wide(U"C:\\none;C:\\no").c_str(), nullptr, nullptr, out,
                   explain ? static_cast<FUSearchTried>(nobody) : nullptr, nullptr);
  CFSetGetEnvVarCallback(nullptr);
  return lookups();
}

TEST(Search, AHostIsAskedForTheSameVariablesInTheSameOrder) {
  for (const bool explain : {false, true}) {
    EXPECT_EQ(lookups_of(U"f.txt", explain),
              (std::vector{wide(U"f.txt"), wide(U""), wide(U"f.txt"), wide(U"VX_PWP")}));
    EXPECT_EQ(lookups_of(U"X:f", explain),
              (std::vector{wide(U"X:f"), wide(U"X"), wide(U"X:f"), wide(U"X"), wide(U"VX_PWP")}));
    EXPECT_EQ(lookups_of(U"DATA:f", explain), (std::vector{wide(U"DATA:f"), wide(U"DATA"), wide(U"DATA:f")}));
    EXPECT_EQ(lookups_of(U"C:\\a\\f", explain),
              (std::vector{wide(U"C:\\a\\f"), wide(U"C"), wide(U"VX_PWP")}));
    EXPECT_EQ(lookups_of(U"", explain), (std::vector{wide(U""), wide(U"")}));
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
