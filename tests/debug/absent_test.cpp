// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB functions without a debug library. No other test of this program may let one be found.
#include "corvane/print/db.h"
#include "platform/capi_memory.h"
#include "tests/debug/every_call.h"

namespace Corvane::Print::tests {

TEST(DebugAbsent, EveryFunctionReturns0) {
  expect_all_return_0();
  expect_all_return_0();
}

TEST(DebugAbsent, WideTextIsFormattedAllTheSame) {
  const CPWChar text[] = {'%', 'd', 0};
  platform::capi_fail_after(-1);
  DBMSGW(text, 1);
  EXPECT_EQ(platform::capi_fail_after(-1), 1) << "the narrow text";
}

TEST(DebugAbsent, NothingIsAllocatedForAList) {
  char text[] = "text";
  platform::capi_fail_after(-1);
  EXPECT_EQ(DBLB(text, 1000000, text), 0);
  EXPECT_EQ(platform::capi_fail_after(-1), 0);
}

}  // namespace Corvane::Print::tests
