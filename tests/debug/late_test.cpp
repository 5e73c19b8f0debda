// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Two functions of the user library are bound by the first load, and in this program they cannot be bound,
// see programs.cmake; EXPECTED_CODE is the structured exception that tells so. On Windows only.
#include <windows.h>

#include "debug/load.h"
#include "platform/platform.h"
#include "tests/debug/every_call.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugLate = WithStandin;

DWORD g_code = 0;
int g_exceptions = 0;

LONG CALLBACK note_code(EXCEPTION_POINTERS* pointers) {
  g_code = pointers->ExceptionRecord->ExceptionCode;
  ++g_exceptions;
  return EXCEPTION_CONTINUE_SEARCH;
}

}  // namespace

TEST_F(DebugLate, AFailedBindingIsSwallowedAndTheNextCallTriesAgain) {
  void* const handler = AddVectoredExceptionHandler(1, note_code);
  char text[] = "text";
  EXPECT_EQ(DBMEMDUMP(text, 1), 0);
  EXPECT_EQ(g_code, static_cast<DWORD>(EXPECTED_CODE)) << std::hex << g_code;
  EXPECT_EQ(g_exceptions, 1);
  EXPECT_EQ(DBSTRDUMP(text), 0);
  EXPECT_EQ(g_exceptions, 2);
  RemoveVectoredExceptionHandler(handler);
  expect_all_return_0();
  EXPECT_FALSE(standin_is_loaded());
}

// The name of the lock is formed by other means, and the version cannot be read.
TEST_F(DebugLate, ALibraryWhoseVersionCannotBeReadStaysLoadedAndIsAvailable) {
  debug::LoadSystem system = debug::kLoadSystem;
  system.process_lock_name = [](const char*, char* out) { lstrcpyA(out, "a lock of this test"); };
  debug::LoadState state;
  EXPECT_EQ(debug::initialize(state, system), 1);
  EXPECT_TRUE(standin_is_loaded());
  EXPECT_EQ(state.status, debug::kAvailable);
  EXPECT_EQ(state.entry_point(debug::EntryPoint::kPrintF), nullptr);
  EXPECT_EQ(WaitForSingleObject(CreateMutexA(nullptr, FALSE, "a lock of this test"), 0), WAIT_OBJECT_0)
      << "it was released";
}

}  // namespace Corvane::Print::tests
