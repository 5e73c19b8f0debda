// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <exception>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "platform/platform.h"
#include "tests/platform/system_seam.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using platform::guarded_call;

int return_int(void* number) {
  return *static_cast<int*>(number);
}

int raise_kind(void* kind) {
  static_cast<const ExceptionKind*>(kind)->raise();
  return 1;
}

int guard(const ExceptionKind& kind) {
  return guarded_call(raise_kind, const_cast<ExceptionKind*>(&kind));
}

TEST(GuardedCall, PassesTheContextAndTheResult) {
  for (int number : {0, 1, -1, 130, 0x7FFFFFFF}) EXPECT_EQ(guarded_call(return_int, &number), number);
}

TEST(GuardedCall, EveryKindOfExceptionCountsAsZero) {
  for (const ExceptionKind& kind : exception_kinds()) EXPECT_EQ(guard(kind), 0) << kind.what;
}

TEST(GuardedCall, NoExceptionIsInFlightAfterwards) {
  for (const ExceptionKind& kind : exception_kinds()) {
    guard(kind);
    EXPECT_EQ(std::uncaught_exceptions(), 0) << kind.what;
    EXPECT_EQ(std::current_exception(), nullptr) << kind.what;
  }
}

TEST(GuardedCall, AHundredThousandExceptionsLeaveTheProcessSane) {
  const std::vector<ExceptionKind>& kinds = exception_kinds();
  const int rounds = scaled(100000);
  int number = 5;
  double sum = 0;
  for (int i = 0; i < rounds; ++i) {
    ASSERT_EQ(guard(kinds[static_cast<std::size_t>(i) % kinds.size()]), 0) << i;
    ASSERT_EQ(guarded_call(return_int, &number), 5) << i;
    sum += i * 0.5;
  }
  EXPECT_EQ(sum, rounds * (rounds - 1.0) / 4);
}

struct Nest {
  int depth;
  const ExceptionKind* kind;
  int caught;
};

// Each level raises after the level further in was caught.
int nest(void* nest_address) {
  Nest& state = *static_cast<Nest*>(nest_address);
  if (state.depth-- > 0 && guarded_call(nest, &state) == 0) ++state.caught;
  state.kind->raise();
  return 1;
}

TEST(GuardedCall, CallsMayBeNested) {
  for (const ExceptionKind& kind : exception_kinds()) {
    Nest state{50, &kind, 0};
    EXPECT_EQ(guarded_call(nest, &state), 0) << kind.what;
    EXPECT_EQ(state.caught, 50) << kind.what;
  }
}

TEST(GuardedCall, AnInnerExceptionDoesNotEndTheOuterCall) {
  for (const ExceptionKind& kind : exception_kinds()) {
    const auto outer = [](void* inner_kind) { return guarded_call(raise_kind, inner_kind) + 7; };
    EXPECT_EQ(guarded_call(outer, const_cast<ExceptionKind*>(&kind)), 7) << kind.what;
  }
}

int throw_and_handle(void* caught) {
  try {
    throw std::runtime_error("handled further in");
  } catch (const std::runtime_error& error) {
    *static_cast<std::string*>(caught) = error.what();
  }
  return 3;
}

TEST(GuardedCall, WhatTheHostHandlesItselfIsLeftAlone) {
  std::string caught;
  EXPECT_EQ(guarded_call(throw_and_handle, &caught), 3);
  EXPECT_EQ(caught, "handled further in");
}

struct CountsDown {
  int* count;
  ~CountsDown() { --*count; }
};

int throw_past_a_local(void* count) {
  const CountsDown local{static_cast<int*>(count)};
  throw 1;
}

TEST(GuardedCall, LocalsOfTheHostAreDestroyed) {
  int count = 1;
  EXPECT_EQ(guarded_call(throw_past_a_local, &count), 0);
  EXPECT_EQ(count, 0);
}

int guard_while_unwinding_count = -1;

struct GuardsInDestructor {
  ~GuardsInDestructor() {
    for (const ExceptionKind& kind : exception_kinds()) guard_while_unwinding_count += guard(kind) == 0;
  }
};

int throw_past_a_guard(void*) {
  const GuardsInDestructor local;
  throw 1;
}

TEST(GuardedCall, WorksWhileAnotherExceptionUnwinds) {
  guard_while_unwinding_count = 0;
  EXPECT_EQ(guarded_call(throw_past_a_guard, nullptr), 0);
  EXPECT_EQ(guard_while_unwinding_count, static_cast<int>(exception_kinds().size()));
}

TEST(GuardedCall, WorksOnSeveralThreadsAtOnce) {
  std::vector<int> wrong(4, 0);
  std::vector<std::thread> threads;
  for (int& count : wrong) {
    threads.emplace_back([&count] {
      for (int i = 0; i < 1000; ++i) {
        for (const ExceptionKind& kind : exception_kinds()) count += guard(kind) != 0;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(wrong, std::vector<int>(4, 0));
}

}  // namespace
}  // namespace Corvane::Print::tests
