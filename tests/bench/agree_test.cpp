// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A benchmark is worth as much as its check that all did the same.
#include "bench/agree.h"

#include <gtest/gtest.h>

#include <limits>

namespace Corvane::Print::bench {
namespace {

Entrant entrant(const char* who, Kind kind, const Answer& answer) {
  return {who, kind, [] {}, [answer] { return answer; }};
}

bool agree(const Answer& known, const Answer& ours, const Answer& other, double tolerance = 1e-9) {
  const Job job = {"family", "task", 1, 1, known, {}};
  Prepared prepared = {{}, {entrant("us", Kind::kOurs, ours), entrant("other", Kind::kPeer, other)}};
  prepared.entrants.back().tolerance = tolerance;
  std::vector<double> seconds;
  const bool result = all_agree(job, prepared, seconds);
  EXPECT_EQ(seconds.size(), 2u);
  return result;
}

TEST(BenchAgree, EqualAnswersAgree) {
  EXPECT_TRUE(agree({1e12, 3, 40}, {1e12, 3, 40}, {1e12, 3, 40}));
}

TEST(BenchAgree, AnotherMeasureDisagrees) {
  EXPECT_FALSE(agree({}, {1e12, {}, {}}, {1e12 + 2000, {}, {}}));
  EXPECT_TRUE(agree({}, {1e12, {}, {}}, {1e12 + 500, {}, {}}));
}

TEST(BenchAgree, AnEntrantMayHaveAToleranceOfItsOwn) {
  EXPECT_TRUE(agree({}, {1e12, {}, {}}, {1e12 + 2000, {}, {}}, 1e-8));
}

TEST(BenchAgree, NothingIsNoAnswerToAMeasure) {
  EXPECT_FALSE(agree({}, {1e12, {}, {}}, {0.0, {}, {}}));
  EXPECT_TRUE(agree({}, {0.0, {}, {}}, {0.0, {}, {}}));
}

TEST(BenchAgree, AMeasureThatIsNoNumberDisagrees) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_FALSE(agree({}, {1.0, {}, {}}, {nan, {}, {}}));
  EXPECT_FALSE(agree({}, {nan, {}, {}}, {1.0, {}, {}}));
}

TEST(BenchAgree, AnotherCountDisagrees) {
  EXPECT_FALSE(agree({}, {{}, 3, {}}, {{}, 4, {}}));
  EXPECT_FALSE(agree({}, {{}, {}, 40}, {{}, {}, 41}));
}

TEST(BenchAgree, OursIsComparedWithWhatIsKnown) {
  EXPECT_FALSE(agree({{}, 3, {}}, {{}, 4, {}}, {{}, 4, {}}));
  EXPECT_TRUE(agree({1.44851e12, {}, {}}, {1.448511e12, {}, {}}, {}));
  EXPECT_FALSE(agree({1.44851e12, {}, {}}, {1.4486e12, {}, {}}, {}));
}

TEST(BenchAgree, WhatOnlyOneSideTellsIsNotCompared) {
  EXPECT_TRUE(agree({}, {1.0, 3, 40}, {1.0, {}, {}}));
}

}  // namespace
}  // namespace Corvane::Print::bench
