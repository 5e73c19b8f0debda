// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The main program of every test executable. Its last line is "NAME: N passed, N failed": under an emulator
// an exit status of 0 may also mean that nothing ran, so the runners look for that line. A test that is
// disabled or skipped has not shown anything and counts as failed, and so does a run without a single test.
#include <gtest/gtest.h>

#include <cstdio>

#ifndef CORVANE_TEST_PROGRAM
#error "CORVANE_TEST_PROGRAM must be the name of the test executable"
#endif

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const int status = RUN_ALL_TESTS();
  if (GTEST_FLAG_GET(list_tests)) return status;

  const testing::UnitTest& run = *testing::UnitTest::GetInstance();
  const int passed = run.successful_test_count();
  int failed = run.failed_test_count() + run.skipped_test_count() + run.reportable_disabled_test_count();
  if ((passed == 0 || status != 0) && failed == 0) failed = 1;
  std::printf("%s: %d passed, %d failed\n", CORVANE_TEST_PROGRAM, passed, failed);
  std::fflush(stdout);
  return failed == 0 ? 0 : 1;
}
