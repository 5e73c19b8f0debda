// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>
#include <windows.h>

#include <csetjmp>

#include "platform/platform.h"

namespace Corvane::Print::tests {
namespace {

using platform::guarded_call;

int raise_code(void* code) {
  RaiseException(*static_cast<DWORD*>(code), 0, 0, nullptr);
  return 1;  // reached when somebody continued the execution
}

TEST(GuardedCallWin32, EveryStructuredExceptionCountsAsZero) {
  for (DWORD code :
       {0xE06D7363u, 0xC06D007Eu, 0xC06D007Fu, 0xE0000001u, 0x40001234u, 0xC0000094u, 0x80000003u}) {
    EXPECT_EQ(guarded_call(raise_code, &code), 0) << std::hex << code;
  }
}

LONG g_seen = 0;

LONG CALLBACK continue_our_code(EXCEPTION_POINTERS* pointers) {
  if (pointers->ExceptionRecord->ExceptionCode != 0xE0001111) return EXCEPTION_CONTINUE_SEARCH;
  ++g_seen;
  return EXCEPTION_CONTINUE_EXECUTION;
}

TEST(GuardedCallWin32, AHostsOwnHandlerComesFirst) {
  void* const handler = AddVectoredExceptionHandler(1, continue_our_code);
  DWORD code = 0xE0001111;
  EXPECT_EQ(guarded_call(raise_code, &code), 1);
  RemoveVectoredExceptionHandler(handler);
  EXPECT_EQ(g_seen, 1);
}

int raise_debug_output(void*) {
  OutputDebugStringA("a structured exception that the system handles itself");
  return 4;
}

TEST(GuardedCallWin32, WhatTheSystemHandlesItselfIsLeftAlone) {
  EXPECT_EQ(guarded_call(raise_debug_output, nullptr), 4);
}

// Not 1 divided by zero, which the compiler knows how to do without a division.
int divide_by_zero(void*) {
  volatile int zero = 0;
  return 100 / zero;
}

int divide_by_zero_amid_x87(void*) {
  // Leaves values on the x87 stack, as an expression does that is interrupted.
  volatile int zero = 0;
  asm volatile("fld1; fld1; fld1");
  return 100 / zero;
}

TEST(GuardedCallWin32, ProcessorExceptionsAreCaught) {
  for (int i = 0; i < 1000; ++i) ASSERT_EQ(guarded_call(divide_by_zero, nullptr), 0) << i;
}

TEST(GuardedCallWin32, AnExceptionAmidAnExpressionLeavesTheFloatingPointStackEmpty) {
  for (int i = 0; i < 20; ++i) ASSERT_EQ(guarded_call(divide_by_zero_amid_x87, nullptr), 0) << i;
  volatile long double one = 1;
  EXPECT_EQ(static_cast<double>(one + one * (one + one * (one + one))), 4.0);
}

std::jmp_buf g_far;

int jump_far(void*) {
  std::longjmp(g_far, 1);
}

bool jump_arrives() {
  if (setjmp(g_far) != 0) return true;
  guarded_call(jump_far, nullptr);
  return false;
}

TEST(GuardedCallWin32, ALongJumpPassesThroughAndLaterCallsAreGuarded) {
  for (int i = 0; i < 100; ++i) {
    ASSERT_TRUE(jump_arrives());
    DWORD code = 0xE06D7363;
    ASSERT_EQ(guarded_call(raise_code, &code), 0);
  }
}

[[gnu::noinline]] int recurse_for_ever(int depth) {
  volatile char frame[4096];
  frame[0] = static_cast<char>(depth);
  return depth < 0 ? 0 : recurse_for_ever(depth + 1) + frame[0];
}

int overflow_stack(void*) {
  return recurse_for_ever(1);
}

TEST(GuardedCallWin32, AStackThatRanOutIsCaughtAndWorksAgain) {
  for (int i = 0; i < 3; ++i) ASSERT_EQ(guarded_call(overflow_stack, nullptr), 0) << i;
}

}  // namespace
}  // namespace Corvane::Print::tests
