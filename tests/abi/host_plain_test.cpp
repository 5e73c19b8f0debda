// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A C host calls each plain name once; host_plain.c says where an answer was another one.
#include "host_plain.h"

#include <gtest/gtest.h>

TEST(HostPlain, VariablesAreLookedUp) {
  EXPECT_EQ(host_plain_config(), 0);
}

TEST(HostPlain, PointsAreComputedAndJudged) {
  EXPECT_EQ(host_plain_geometry(), 0);
}

TEST(HostPlain, PointsAreMoved) {
  EXPECT_EQ(host_plain_matrices(), 0);
}

TEST(HostPlain, AListIsKept) {
  EXPECT_EQ(host_plain_list(), 0);
}

TEST(HostPlain, StringsAreEdited) {
  EXPECT_EQ(host_plain_strings(), 0);
  EXPECT_EQ(host_plain_wide_strings(), 0);
}

TEST(HostPlain, NothingIsPrintedWithoutADebugLibrary) {
  EXPECT_EQ(host_plain_debug(), 0);
}
