// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names where there is no debug library.
#include "corvane/print/plain.h"

#include <gtest/gtest.h>

#include <vector>

#include "corvane/print/cf.h"
#include "corvane/print/dbgtools.h"
#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

// "PLOT_É" -> "wert"; every other name is undefined. The count is in bytes.
int CORVANE_PRINT_CALL host_lookup(const CPWChar* name, CPWChar* buffer, int capacity) {
  if (name != wide(U"PLOT_\u00c9")) return 0;
  const WideText value = wide(U"wert");
  const int needed = static_cast<int>((value.size() + 1) * sizeof(CPWChar));
  if (needed <= capacity) value.copy(buffer, value.size());
  if (needed <= capacity) buffer[value.size()] = 0;
  return needed;
}

// The flags of the process as they were before, whatever a test does to them. Lists are never destroyed; they
// are kept here for the leak checkers.
class PlainFlags : public testing::Test {
protected:
  void SetUp() override {
    before_ = DbgTools::Instance();
    DbgTools::Instance() = {false, false, nullptr};
  }
  void TearDown() override {
    static auto* const kept = new std::vector<DbgFlagList*>;
    kept->push_back(DbgTools::Instance().flags);
    DbgTools::Instance() = before_;
  }

  static int add(std::u32string_view value) {
    const ScopedVariable variable(U"CORVANE_TEST_FLAGS", value);
    return Plain::DbgTools_addDebugVar("CORVANE_TEST_FLAGS");
  }
  static int is_on(std::u32string_view flag) { return Plain::DbgTools_isDebugOnW(wide(flag).c_str()); }
  static int is_dev_on(std::u32string_view flag) { return Plain::DbgTools_isDevDebugOnW(wide(flag).c_str()); }

private:
  DbgTools before_;
};

}  // namespace

TEST(PlainNames, LookUpConfigurationVariables) {
  Plain::CFSetGetEnvVarCallback(host_lookup);
  CPWChar* const value = Plain::CFGetenvW(wide(U"PLOT_\u00c9").c_str());
  EXPECT_EQ(Plain::CFGetenvW(wide(U"PLOT_E").c_str()), nullptr);
  EXPECT_EQ(Plain::CFGetenvW(nullptr), nullptr);
  CPWChar* const same = Corvane::Print::CFGetenvW(wide(U"PLOT_\u00c9").c_str());
  Plain::CFSetGetEnvVarCallback(nullptr);
  ASSERT_NE(value, nullptr);
  ASSERT_NE(same, nullptr);
  EXPECT_EQ(WideText(value), wide(U"wert"));
  const long before = platform::capi_blocks_out();
  Plain::CFReleaseValue(value);
  Plain::CFReleaseValue(same);
  Plain::CFReleaseValue(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before - 2);
}

TEST(PlainNames, MessagesGoNowhereWithoutADebugLibrary) {
  const WideText text = wide(U"%s%s%d");
  EXPECT_EQ(Plain::DBMSGW(text.c_str()), 0);
  EXPECT_EQ(Plain::DBERRW(text.c_str()), 0);
  EXPECT_EQ(Plain::DBATTW(text.c_str()), 0);
  EXPECT_EQ(Plain::DBHMSGW(text.c_str()), 0);
}

TEST_F(PlainFlags, AreOffBeforeAnyVariable) {
  EXPECT_EQ(is_on(U"clip"), 0);
  EXPECT_EQ(is_dev_on(U"clip"), 0);
  EXPECT_EQ(Plain::DbgTools_isDebugOnW(nullptr), 0);
}

TEST_F(PlainFlags, AreThoseOfTheVariable) {
  EXPECT_EQ(add(U"clip, Fences"), 1);
  EXPECT_EQ(is_on(U"CLIP"), 1);
  EXPECT_EQ(is_dev_on(U"fences"), 1);
  EXPECT_EQ(is_on(U"grow"), 0);
  EXPECT_EQ(is_on(U""), 0);
  EXPECT_EQ(is_dev_on(U""), 0);
  EXPECT_EQ(Plain::DbgTools_isDebugOnW(nullptr), 0);
  EXPECT_EQ(Plain::DbgTools_isDevDebugOnW(nullptr), 0);
}

TEST_F(PlainFlags, AllNeverSwitchesOnADeveloperFlag) {
  EXPECT_EQ(add(U"Plot, clip\tALL"), 1);
  EXPECT_EQ(is_on(U"anything"), 1);
  EXPECT_EQ(Plain::DbgTools_isDebugOnW(nullptr), 1);
  EXPECT_EQ(is_dev_on(U"anything"), 0);
  EXPECT_EQ(is_dev_on(U"CLIP"), 1);
  EXPECT_EQ(Plain::DbgTools_isDevDebugOnW(nullptr), 0);
}

TEST_F(PlainFlags, AreComparedInNarrowText) {
  EXPECT_EQ(add(U"\u00e4"), 1);
  EXPECT_EQ(is_on(U"\u00e4"), 1);
  EXPECT_EQ(is_on(U"a"), 0);
  // Longer than twice its characters in UTF-8.
  EXPECT_EQ(is_on(std::u32string(3000, U'\u4e2d')), 0);
}

TEST_F(PlainFlags, WithoutMemoryAFlagIsAskedForAsNone) {
  EXPECT_EQ(add(U"clip"), 1);
  platform::capi_fail_after(0);
  const int on = is_on(U"clip");
  const int dev_on = is_dev_on(U"clip");
  platform::capi_fail_after(-1);
  EXPECT_EQ(on, 0);
  EXPECT_EQ(dev_on, 0);
}

TEST_F(PlainFlags, AnAdditionWithoutMemorySaysSo) {
  const std::string long_flag(500, 'f');
  bool failed = false;
  for (long successes = 0; successes < 20; ++successes) {
    const ScopedVariable variable(U"CORVANE_TEST_FLAGS", std::u32string(long_flag.begin(), long_flag.end()));
    platform::capi_fail_after(successes);
    const int added = Plain::DbgTools_addDebugVar("CORVANE_TEST_FLAGS");
    platform::capi_fail_after(-1);
    failed = failed || added == 0;
  }
  EXPECT_TRUE(failed);
  EXPECT_EQ(DbgTools_isDebugOn(long_flag.c_str()), 1) << "in the end there was memory";
}

TEST(HostFileName, HasNoRoomInABufferThatIsTooShort) {
  const WideText hfs = wide(U"abcd");
  CPWChar out[5];
  EXPECT_EQ(Plain::HostFile_nameW(hfs.c_str(), out, 5), 4);
  EXPECT_EQ(WideText(out), hfs);
  EXPECT_EQ(Plain::HostFile_nameW(hfs.c_str(), out, 4), 0);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(Plain::HostFile_nameW(wide(U"").c_str(), out, 5), 0);
  EXPECT_EQ(out[0], 0);
}

}  // namespace Corvane::Print::tests
