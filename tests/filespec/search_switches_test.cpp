// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two switches of the search. A process reads them once, so this file is compiled into a program for each
// setting: CORVANE_TEST_CURRENT_FIRST and CORVANE_TEST_NOT_AS_IS are the values that the variables have when
// the program searches first; undefined, they are not set.
#include <gtest/gtest.h>

#include <string>

#include "tests/filespec/host_dir.h"
#include "tests/filespec/searching.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

constexpr char32_t kCurrentFirst[] = U"VX_SEARCH_CURRENTDIR_FIRST";
constexpr char32_t kNotAsIs[] = U"VX_NOSEARCH_ASIS";

#ifdef CORVANE_TEST_CURRENT_FIRST
constexpr std::string_view kCurrentFirstValue = CORVANE_TEST_CURRENT_FIRST;
#else
constexpr std::string_view kCurrentFirstValue;
#endif
#ifdef CORVANE_TEST_NOT_AS_IS
constexpr std::string_view kNotAsIsValue = CORVANE_TEST_NOT_AS_IS;
#else
constexpr std::string_view kNotAsIsValue;
#endif

// Which values mean what is said here once more, by hand.
constexpr bool is_true(std::string_view value) {
  return value == "TRUE" || value == "true" || value == "TrUe";
}
constexpr bool kCurrentIsFirst = is_true(kCurrentFirstValue);
constexpr bool kAsIs = !is_true(kNotAsIsValue);

void set_or_remove(std::u32string_view name, std::string_view value) {
  if (value.empty()) {
    remove_variable(name);
  } else {
    set_variable(name, std::u32string(value.begin(), value.end()));
  }
}

// Lets the process read its switches before any test runs.
class FirstSearch : public testing::Environment {
public:
  void SetUp() override {
    set_or_remove(kCurrentFirst, kCurrentFirstValue);
    set_or_remove(kNotAsIs, kNotAsIsValue);
    explained(wide(U"no such file"));
    remove_variable(kCurrentFirst);
    remove_variable(kNotAsIs);
  }
};
[[maybe_unused]] const testing::Environment* const kFirstSearch =
    testing::AddGlobalTestEnvironment(new FirstSearch);

// The search for a file of the current directory by its bare name.
void expect_the_switches_of_the_program() {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const ScopedCurrentDirectory inside(dir.path());
  const SearchResult result = explained(wide(U"f.txt"));
  const bool expected = kCurrentIsFirst || kAsIs;
  EXPECT_EQ(result.status, expected ? FU_OK : FU_NOT_FOUND);
  EXPECT_EQ(result.found, wide(kCurrentIsFirst ? U".\\f.txt" : kAsIs ? U"f.txt" : U""));
  ASSERT_EQ(result.tried.size(), expected ? 1u : 0u);
  if (expected) {
    EXPECT_EQ(result.tried[0].step, kCurrentIsFirst ? FU_STEP_CURRENT_DIRECTORY : FU_STEP_AS_IS);
  }
}

TEST(SearchSwitches, SayWhetherABareNameIsLookedForInTheCurrentDirectory) {
  expect_the_switches_of_the_program();
}

TEST(SearchSwitches, AreReadOnceAndLaterChangesAreNotSeen) {
  const ScopedVariable current_first(kCurrentFirst, kCurrentIsFirst ? U"FALSE" : U"TRUE");
  const ScopedVariable not_as_is(kNotAsIs, kAsIs ? U"TRUE" : U"FALSE");
  expect_the_switches_of_the_program();
}

TEST(SearchSwitches, ABareNameIsFoundThroughAListInAnyCase) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const ScopedCurrentDirectory inside(dir.path());
  const SearchResult result = explained(wide(U"f.txt"), wide(dir.spec()));
  EXPECT_EQ(result.found, kCurrentIsFirst ? wide(U".\\f.txt")
                          : kAsIs         ? wide(U"f.txt")
                                          : wide(dir.spec(U"f.txt")));
}

TEST(SearchSwitches, AFullSpecificationIsTriedAsItStandsInAnyCase) {
  const HostDir dir;
  dir.make_file(U"sub\\f.txt");
  const SearchResult result = explained(wide(dir.spec(U"sub\\f.txt")));
  EXPECT_EQ(result.found, wide(dir.spec(U"sub\\f.txt")));
  EXPECT_EQ(result.tried.back().step, FU_STEP_AS_IS);
}

TEST(SearchSwitches, TheCurrentDirectoryIsAskedForNameAndExtensionOnly) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const ScopedCurrentDirectory inside(dir.path());
  const SearchResult result = explained(wide(U"DATA:sub\\f.txt;3"));
  EXPECT_EQ(result.found, wide(kCurrentIsFirst ? U".\\f.txt" : U""));
}

TEST(SearchSwitches, TheCurrentDirectoryIsTriedWithDefaultsToo) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const ScopedCurrentDirectory inside(dir.path());
  const SearchResult result = explained(wide(U"f"), {}, wide(U"txt"));
  EXPECT_EQ(result.found, wide(kCurrentIsFirst ? U".\\f.txt" : kAsIs ? U"f.txt" : U""));
}

}  // namespace
}  // namespace Corvane::Print::tests
