// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A debug library with dllSetDest, but without the entry points that go by it.
#include "tests/debug/every_call.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugWithoutBoxes = WithStandin;

}  // namespace

TEST_F(DebugWithoutBoxes, AMissingEntryPointBehindADestinationIsNotCalled) {
  expect_boxes_return_0();
  ASSERT_TRUE(standin_is_loaded());
  EXPECT_EQ(standin_record().calls, 0);
  DebugRecord& record = cleared_record();
  record.result = 5;
  expect_boxes_return_0();
  EXPECT_EQ(DBMSG("%d", 1), 5);
}

}  // namespace Corvane::Print::tests
