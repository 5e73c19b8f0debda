// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The network provider library is there, but lacks the functions.
#include "tests/filespec/late_support.h"

namespace Corvane::Print::tests {
namespace {

constexpr DWORD kNoFunction = 0xC06D007F;
constexpr unsigned kFailGetProcedure = 4;  // the notification

void expect_function_exception(int (*call)()) {
  const Outcome outcome = outcome_of(call);
  EXPECT_FALSE(outcome.returned);
  EXPECT_EQ(outcome.code, kNoFunction) << std::hex << outcome.code;
}

// A substitute that knows every drive.
DWORD WINAPI name_of_any_drive(LPCSTR path, DWORD, LPVOID room, LPDWORD) {
  char* const text = static_cast<char*>(room) + sizeof(char*);
  *static_cast<char**>(room) = text;
  lstrcpyA(text, "\\\\any\\");
  text[6] = path[0];
  text[7] = '\0';
  return NO_ERROR;
}

class LateFunction : public testing::Test {
protected:
  void SetUp() override { look_for_libraries_in("old_provider"); }
};

}  // namespace

TEST_F(LateFunction, AMissingFunctionRaisesTheProcedureException) {
  EXPECT_EQ(GetModuleHandleA("mpr.dll"), nullptr);
  expect_function_exception(ask_wide);
  const HMODULE provider = GetModuleHandleA("mpr.dll");
  ASSERT_NE(provider, nullptr);
  EXPECT_NE(GetProcAddress(provider, "standin_is_old"), nullptr) << "this is the system's own library";
  g_narrow[0] = 'x';
  expect_function_exception(ask_narrow);
  EXPECT_STREQ(g_narrow, "");
}

TEST_F(LateFunction, TheExceptionLeavesNothingOnTheHeap) {
  for (int i = 0; i < 3; ++i) {
    outcome_of(ask_wide);
    outcome_of(ask_narrow);
  }
  const long before = blocks_in_use();
  ASSERT_GT(before, 0);
  for (int i = 0; i < 100; ++i) {
    outcome_of(ask_wide);
    outcome_of(ask_narrow);
  }
  EXPECT_EQ(blocks_in_use(), before);
}

TEST_F(LateFunction, ALoadedSupportLibraryIsHandedTheNotification) {
  const LoadedSupport support("recorder");
  expect_function_exception(ask_wide);
  const Record& record = support.record();
  EXPECT_EQ(record.calls, 1);
  EXPECT_EQ(record.notification, kFailGetProcedure);
  EXPECT_EQ(record.error, static_cast<unsigned long>(ERROR_PROC_NOT_FOUND));
  EXPECT_STREQ(record.library, "mpr.dll");
  EXPECT_STREQ(record.function, "WNetGetUniversalNameW");
}

// From here on the narrow function is bound.
TEST_F(LateFunction, ARecordersSubstituteIsUsed) {
  const LoadedSupport support("recorder");
  support.record().answer = reinterpret_cast<void*>(name_of_any_drive);
  const Outcome outcome = outcome_of(ask_narrow);
  EXPECT_TRUE(outcome.returned);
  EXPECT_EQ(outcome.status, FU_OK);
  EXPECT_STREQ(g_narrow, "\\\\any\\H\\plots\\a.plt");
  EXPECT_EQ(support.record().calls, 1);
  support.record().answer = nullptr;
  expect_function_exception(ask_wide);
}

}  // namespace Corvane::Print::tests
