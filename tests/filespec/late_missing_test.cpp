// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The network provider library cannot be loaded.
#include "tests/filespec/late_support.h"

namespace Corvane::Print::tests {
namespace {

constexpr DWORD kNoModule = 0xC06D007E;
constexpr unsigned kFailLoadLibrary = 3;  // the notification

void expect_module_exception(int (*call)()) {
  const Outcome outcome = outcome_of(call);
  EXPECT_FALSE(outcome.returned);
  EXPECT_EQ(outcome.code, kNoModule) << std::hex << outcome.code;
}

void expect_one_record(const LoadedSupport& support, int (*call)(), const char* function) {
  Record& record = support.record();
  record = {};
  expect_module_exception(call);
  EXPECT_EQ(record.calls, 1);
  EXPECT_EQ(record.notification, kFailLoadLibrary);
  EXPECT_EQ(record.error, static_cast<unsigned long>(ERROR_MOD_NOT_FOUND));
  EXPECT_STREQ(record.library, "mpr.dll");
  EXPECT_STREQ(record.function, function);
}

}  // namespace

TEST(LateBinding, NothingIsLoadedBeforeTheFirstCall) {
  EXPECT_EQ(GetModuleHandleA("mpr.dll"), nullptr);
  // No drive: the provider is not asked.
  EXPECT_EQ(FUGetUniversalNameW(L"\\\\srv\\share\\f", g_wide), FU_FAILED);
  EXPECT_EQ(FUGetUniversalName("f.plt", g_narrow), FU_FAILED);
  EXPECT_EQ(GetModuleHandleA("mpr.dll"), nullptr);
}

TEST(LateBinding, AMissingProviderRaisesTheModuleException) {
  g_wide[0] = 'x';
  g_narrow[0] = 'x';
  expect_module_exception(ask_wide);
  expect_module_exception(ask_narrow);
  EXPECT_STREQ(g_wide, L"");
  EXPECT_STREQ(g_narrow, "");
}

TEST(LateBinding, TheLibraryStaysUsableAfterTheException) {
  for (int i = 0; i < 10; ++i) {
    expect_module_exception(ask_wide);
    CPWChar name[FU_WIDE];
    FUParseUFSW(L"H:\\plots\\a.plt", nullptr, nullptr, name, nullptr, nullptr);
    ASSERT_STREQ(name, L"a");
    ASSERT_EQ(FUGetUniversalNameW(L"plot", g_wide), FU_FAILED);
  }
}

TEST(LateBinding, TheExceptionLeavesNothingOnTheHeap) {
  const LoadedSupport support("recorder");
  for (int i = 0; i < 3; ++i) {
    expect_module_exception(ask_wide);
    expect_module_exception(ask_narrow);
  }
  const long before = blocks_in_use();
  ASSERT_GT(before, 0);
  for (int i = 0; i < 100; ++i) {
    outcome_of(ask_wide);
    outcome_of(ask_narrow);
  }
  EXPECT_EQ(blocks_in_use(), before);
}

TEST(LateBinding, ALoadedSupportLibraryIsHandedTheNotification) {
  const LoadedSupport support("recorder");
  expect_one_record(support, ask_wide, "WNetGetUniversalNameW");
  expect_one_record(support, ask_narrow, "WNetGetUniversalNameA");
}

TEST(LateBinding, ARecorderOfThePlainConventionIsHandedTheNotification) {
  const LoadedSupport support("plain_recorder");
  for (int i = 0; i < 1000; ++i) expect_one_record(support, ask_wide, "WNetGetUniversalNameW");
}

TEST(LateBinding, ASupportLibraryWithoutARecorderIsLeftAlone) {
  const LoadedSupport support("silent_support");
  expect_module_exception(ask_wide);
}

TEST(LateBinding, ASupportLibraryThatIsNotLoadedIsNotLoaded) {
  look_for_libraries_in("recorder");
  expect_module_exception(ask_wide);
  EXPECT_EQ(GetModuleHandleA("vantrel.dll"), nullptr);
  SetDllDirectoryA(nullptr);
}

// From here on the wide function is bound.
TEST(LateBinding, ARecordersSubstituteIsUsed) {
  const LoadedSupport support("recorder");
  const HMODULE provider = LoadLibraryA((standin_folder("substitute") + "\\substitute.dll").c_str());
  ASSERT_NE(provider, nullptr);
  support.record() = {};
  support.record().answer = reinterpret_cast<void*>(provider);
  const Outcome outcome = outcome_of(ask_wide);
  EXPECT_TRUE(outcome.returned);
  EXPECT_EQ(outcome.status, FU_OK);
  EXPECT_STREQ(g_wide, L"\\\\srv\\share\\plots\\a.plt");
  EXPECT_EQ(support.record().calls, 1);
}

}  // namespace Corvane::Print::tests
