// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A debug library that can neither print nor ask for texts.
#include "tests/debug/every_call.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugWithoutPrint = WithStandin;

}  // namespace

TEST_F(DebugWithoutPrint, WhatIsMissingReturns0AndTheRestIsCalled) {
  expect_printing_returns_0();
  ASSERT_TRUE(standin_is_loaded());
  EXPECT_EQ(standin_record().calls, 0);
  DebugRecord& record = cleared_record();
  record.result = 5;
  expect_printing_returns_0();
  expect_texts_become_empty();
  EXPECT_EQ(record.calls, 0);
  char text[] = "text";
  EXPECT_EQ(DBMB(text, text, 1), 5);
  EXPECT_EQ(DBInitApp(text), 5);
}

}  // namespace Corvane::Print::tests
