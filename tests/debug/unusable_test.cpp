// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A debug library of another version, or without one.
#include "tests/debug/every_call.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugUnusable = WithStandin;

}  // namespace

TEST_F(DebugUnusable, EveryFunctionReturns0AndTheLibraryStaysLoaded) {
  EXPECT_FALSE(standin_is_loaded());
  expect_all_return_0();
  ASSERT_TRUE(standin_is_loaded());
  expect_all_return_0();
  EXPECT_TRUE(standin_is_loaded());
  EXPECT_EQ(standin_record().calls, 0);
  EXPECT_EQ(standin_record().starts, 1);
}

}  // namespace Corvane::Print::tests
