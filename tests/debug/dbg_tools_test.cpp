// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Debug flags, on objects of the tests' own: the object of the process keeps what it was told.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "corvane/print/dbgtools.h"
#include "platform/capi_memory.h"
#include "tests/platform/system_seam.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr char kVariable[] = "CORVANE_TEST_FLAGS";

// Flags with the value in one variable. The list stays allocated, as it does in the library.
struct Flags {
  DbgTools tools = {false, false, nullptr};
  Flags& add(const std::string& value) {
    const ScopedVariable variable(U"CORVANE_TEST_FLAGS", std::u32string(value.begin(), value.end()));
    tools.AddDebugVar(kVariable);
    kept().push_back(tools.flags);
    return *this;
  }
  bool has(const char* flag) const { return tools.IsFlagDefined(flag); }

  // For the leak checkers: lists are never destroyed.
  static std::vector<DbgFlagList*>& kept() {
    static auto* const all = new std::vector<DbgFlagList*>;
    return *all;
  }
};

// The object of the process as it was before, whatever a test does to it.
class DebugFlagsOfTheProcess : public testing::Test {
protected:
  void SetUp() override { before_ = DbgTools::Instance(); }
  void TearDown() override { DbgTools::Instance() = before_; }

  static void give(const DbgTools& tools) { DbgTools::Instance() = tools; }

private:
  DbgTools before_;
};

}  // namespace

TEST(DebugFlags, BeforeAnyVariableEverythingIsOff) {
  const Flags flags;
  EXPECT_FALSE(flags.has("clip"));
  EXPECT_FALSE(flags.has(nullptr));
  EXPECT_FALSE(flags.has(""));
}

TEST(DebugFlags, AreSeparatedBySpacesTabsAndCommas) {
  Flags flags;
  flags.add("Plot, clip\tALL");
  EXPECT_TRUE(flags.tools.enabled);
  EXPECT_TRUE(flags.tools.all);
  EXPECT_TRUE(flags.has("Plot"));
  EXPECT_TRUE(flags.has("clip"));
  EXPECT_TRUE(flags.has("CLIP"));
  EXPECT_FALSE(flags.has("all")) << "it is no flag";
  EXPECT_FALSE(flags.has("lip"));
  EXPECT_FALSE(flags.has("clip\tALL"));
}

TEST(DebugFlags, OtherCharactersArePartOfAFlag) {
  Flags flags;
  flags.add("a;b c\nd");
  EXPECT_TRUE(flags.has("A;B"));
  EXPECT_TRUE(flags.has("c\nd"));
  EXPECT_FALSE(flags.has("a"));
}

TEST(DebugFlags, RunsOfSeparatorsMakeNoEmptyFlags) {
  Flags flags;
  flags.add(" ,\t, one ,,\t two,, ");
  EXPECT_TRUE(flags.has("one"));
  EXPECT_TRUE(flags.has("two"));
  EXPECT_FALSE(flags.has(""));
  EXPECT_FALSE(flags.tools.all);
}

TEST(DebugFlags, AValueOfSeparatorsAloneEnablesNothing) {
  Flags flags;
  flags.add(" ,\t, ");
  EXPECT_NE(flags.tools.flags, nullptr);
  EXPECT_FALSE(flags.tools.enabled);
}

TEST(DebugFlags, AnUndefinedVariableCreatesTheListAndNothingElse) {
  for (const char* name : {kVariable, "", static_cast<const char*>(nullptr)}) {
    Flags flags;
    flags.tools.AddDebugVar(name);
    Flags::kept().push_back(flags.tools.flags);
    EXPECT_NE(flags.tools.flags, nullptr);
    EXPECT_FALSE(flags.tools.enabled);
    EXPECT_FALSE(flags.tools.all);
    EXPECT_FALSE(flags.has("x"));
  }
}

TEST(DebugFlags, SeveralVariablesAddUp) {
  Flags flags;
  flags.add("one");
  DbgFlagList* const list = flags.tools.flags;
  flags.add("two");
  EXPECT_EQ(flags.tools.flags, list);
  EXPECT_TRUE(flags.has("one"));
  EXPECT_TRUE(flags.has("two"));
  flags.add("all");
  flags.add("three");
  EXPECT_TRUE(flags.tools.all);
  EXPECT_TRUE(flags.tools.enabled);
}

TEST(DebugFlags, AllAloneEnablesAndLeavesTheListEmpty) {
  Flags flags;
  flags.add("aLL");
  EXPECT_TRUE(flags.tools.enabled);
  EXPECT_TRUE(flags.tools.all);
  EXPECT_FALSE(flags.has("aLL"));
}

TEST(DebugFlags, AFlagThatOnlyBeginsLikeAllIsAFlag) {
  Flags flags;
  flags.add("al allo");
  EXPECT_FALSE(flags.tools.all);
  EXPECT_TRUE(flags.has("AL"));
  EXPECT_TRUE(flags.has("ALLO"));
}

TEST(DebugFlags, ALongValueIsReadToItsEnd) {
  std::string value;
  for (int i = 0; i < 3000; ++i) value += "flag" + std::to_string(i) + ",";
  Flags flags;
  flags.add(value + "last");
  EXPECT_TRUE(flags.has("flag0"));
  EXPECT_TRUE(flags.has("FLAG2999"));
  EXPECT_TRUE(flags.has("last"));
  EXPECT_FALSE(flags.has("flag3000"));
}

TEST(DebugFlags, WithoutMemoryForTheListNothingHappens) {
  Flags flags;
  platform::capi_fail_after(0);
  flags.tools.AddDebugVar(kVariable);
  platform::capi_fail_after(-1);
  EXPECT_EQ(flags.tools.flags, nullptr);
  EXPECT_FALSE(flags.tools.enabled);
}

TEST(DebugFlags, AFailedAllocationLeavesTheCallAndKeepsTheFlagsBefore) {
  const std::string value = "first, a-flag-that-is-too-long-for-the-text-to-hold-it-without-the-heap, last";
  const ScopedVariable variable(U"CORVANE_TEST_FLAGS", std::u32string(value.begin(), value.end()));
  bool completed = false;
  int thrown = 0;
  for (long n = 0; !completed && n < 100; ++n) {
    Flags flags;
    platform::capi_fail_once_after(n);
    try {
      flags.tools.AddDebugVar(kVariable);
      completed = flags.has("last");
    } catch (const std::bad_alloc&) {
      ++thrown;
      EXPECT_TRUE(flags.tools.enabled);
      EXPECT_FALSE(flags.has("last"));
    }
    platform::capi_fail_after(-1);
    Flags::kept().push_back(flags.tools.flags);
  }
  EXPECT_TRUE(completed);
  EXPECT_GE(thrown, 4) << "three entries, and the text of one";
}

TEST(DebugFlags, RandomValuesAgreeWithAPlainSplit) {
  constexpr std::uint64_t kSeed = 62;
  for (int i = 0; i < scaled(100000); ++i) {
    SCOPED_TRACE(testing::Message() << "case " << i << " of family " << kSeed);
    Random random(case_seed(kSeed, i));
    std::string value;
    for (int n = random.between(1, 40); n > 0; --n) value += "aAlL ,\tx;"[random.below(9)];
    std::vector<std::string> tokens(1);
    bool all = false;
    for (const char c : value + ",") {
      if (c != ' ' && c != '\t' && c != ',') {
        tokens.back() += c;
      } else if (!tokens.back().empty()) {
        tokens.emplace_back();
      }
    }
    tokens.pop_back();
    Flags flags;
    flags.add(value);
    for (std::string token : tokens) {
      for (char& c : token) c = c == 'A' ? 'a' : c == 'L' ? 'l' : c;
      all = all || token == "all";
      EXPECT_EQ(flags.has(token.c_str()), token != "all") << value;
    }
    EXPECT_EQ(flags.tools.enabled, !tokens.empty()) << value;
    EXPECT_EQ(flags.tools.all, all) << value;
    EXPECT_FALSE(flags.has("y")) << value;
  }
}

TEST_F(DebugFlagsOfTheProcess, ThereIsOneObject) {
  EXPECT_EQ(&DbgTools::Instance(), &DbgTools::Instance());
}

TEST_F(DebugFlagsOfTheProcess, WithoutFlagsEverythingIsOff) {
  give({false, false, nullptr});
  EXPECT_EQ(DbgTools_isDebugOn("clip"), 0);
  EXPECT_EQ(DbgTools_isDebugOn(nullptr), 0);
}

TEST_F(DebugFlagsOfTheProcess, AddedFlagsAreOnAndOthersOff) {
  Flags flags;
  flags.add("clip");
  give(flags.tools);
  EXPECT_EQ(DbgTools_isDebugOn("Clip"), 1);
  EXPECT_EQ(DbgTools_isDebugOn("fence"), 0);
  EXPECT_EQ(DbgTools_isDebugOn(""), 0);
  EXPECT_EQ(DbgTools_isDebugOn(nullptr), 0);
}

TEST_F(DebugFlagsOfTheProcess, AllSwitchesEveryFlagOnEvenNone) {
  Flags flags;
  flags.add("all");
  give(flags.tools);
  EXPECT_EQ(DbgTools_isDebugOn("fence"), 1);
  EXPECT_EQ(DbgTools_isDebugOn(""), 1);
  EXPECT_EQ(DbgTools_isDebugOn(nullptr), 1);
}

TEST_F(DebugFlagsOfTheProcess, WhatIsNotEnabledIsOffWhateverElseIsSaid) {
  Flags flags;
  flags.add("clip all");
  give({false, true, flags.tools.flags});
  EXPECT_EQ(DbgTools_isDebugOn("clip"), 0);
}

TEST_F(DebugFlagsOfTheProcess, AllNeverSwitchesOnADeveloperFlag) {
  Flags flags;
  flags.add("Plot, clip\tALL");
  EXPECT_TRUE(flags.tools.enabled && flags.has("CLIP"));
  EXPECT_FALSE(flags.tools.enabled && flags.has("fence"));
}

}  // namespace Corvane::Print::tests
