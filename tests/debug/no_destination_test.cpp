// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A debug library with everything but dllSetDest.
#include "tests/debug/every_call.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugWithoutDestination = WithStandin;

}  // namespace

TEST_F(DebugWithoutDestination, ListBoxAndApplicationAreNotCalled) {
  expect_boxes_return_0();
  ASSERT_TRUE(standin_is_loaded());
  DebugRecord& record = cleared_record();
  record.result = 5;
  expect_boxes_return_0();
  EXPECT_EQ(record.calls, 0);
}

TEST_F(DebugWithoutDestination, TheOtherEntryPointsAre) {
  DBMSG("load");
  DebugRecord& record = cleared_record();
  record.result = 5;
  EXPECT_EQ(DBMSG("%d", 1), 5);
  EXPECT_STREQ(record.entry, "dllPrintF");
  EXPECT_EQ(DBMEMDUMP(&record, 1), 5);
  char question[] = "?", buffer[16];
  EXPECT_EQ(DBGETSA(question, buffer), 5);
  EXPECT_EQ(record.calls, 3);
}

}  // namespace Corvane::Print::tests
