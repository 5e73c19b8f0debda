// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How two edges meet: parameters, snapping to the ends, and edges that count as parallel.
#include "clip/meeting.h"

#include "tests/clip/bits.h"
#include "tests/clip/engine.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Corvane::Print::tests {
namespace {

using clip::meet;
using clip::Meeting;
using clip::Place;

// A subject edge of length 8 upwards through (x, 0), halfway up. Its cross product with a level edge is
// exact.
struct Upright : Edge {
  explicit Upright(double x, double below = 4) : Edge(x, -below, x, 8 - below) {}
};

TEST(Meeting, TwoInteriorsMeetAtTheirParameters) {
  Edge e(0, 0, 10, 0), f(4, -5, 4, 15);
  const Meeting m = meet(e.start, f.start);
  ASSERT_TRUE(m.found());
  EXPECT_EQ(m.on_fence, Place::kInside);
  EXPECT_EQ(m.on_subject, Place::kInside);
  EXPECT_EQ(m.fence_param, 0.4);
  EXPECT_EQ(m.subject_param, 0.25);
  EXPECT_EQ(m.fence_vertex, nullptr);
  EXPECT_EQ(m.subject_vertex, nullptr);
}

TEST(Meeting, TheFenceParameterSnapsToAnEndWithinTheTolerance) {
  Edge e(0, 0, 8, 0);  // 0.00001 along the edge
  for (const double x : {0.0, 0.9e-5, -0.9e-5}) {
    Upright f(x);
    const Meeting m = meet(e.start, f.start);
    EXPECT_EQ(m.on_fence, Place::kAtVertex) << x;
    EXPECT_EQ(m.fence_vertex, &e.start) << x;
    EXPECT_EQ(m.fence_param, 0.0) << x;
    EXPECT_EQ(m.on_subject, Place::kInside) << x;
  }
  for (const double x : {8.0, 8 - 0.9e-5, 8 + 0.9e-5}) {
    Upright f(x);
    const Meeting m = meet(e.start, f.start);
    EXPECT_EQ(m.on_fence, Place::kAtVertex) << x;
    EXPECT_EQ(m.fence_vertex, &e.end) << x;
    EXPECT_EQ(m.fence_param, 1.0) << x;
  }
}

TEST(Meeting, OutsideTheToleranceAnInteriorStaysInteriorAndBeyondTheEdgeThereIsNothing) {
  Edge e(0, 0, 8, 0);
  for (const double x : {1.1e-5, 8 - 1.1e-5}) {
    Upright f(x);
    EXPECT_EQ(meet(e.start, f.start).on_fence, Place::kInside) << x;
  }
  for (const double x : {-1.1e-5, 8 + 1.1e-5, -5.0, 13.0}) {
    Upright f(x);
    EXPECT_FALSE(meet(e.start, f.start).found()) << x;
    EXPECT_EQ(meet(e.start, f.start).on_fence, Place::kNowhere) << x;
  }
}

TEST(Meeting, AParameterOfExactlyTheToleranceSnaps) {
  Edge e(0, 0, 1, 0);
  for (const double x : {1e-5, -1e-5}) {
    Upright f(x);
    EXPECT_EQ(meet(e.start, f.start).fence_vertex, &e.start) << x;
  }
  for (const double x : {1.0 - 1e-5, 1.0 + 1e-5}) {
    Upright f(x);
    EXPECT_EQ(meet(e.start, f.start).fence_vertex, &e.end) << x;
  }
  Upright next_up(std::nextafter(1e-5, 1.0));
  EXPECT_EQ(meet(e.start, next_up.start).on_fence, Place::kInside);
}

TEST(Meeting, AnEdgeShorterThanOneSnapsWithinAShareOfItself) {
  Edge e(0, 0, 0.5, 0);
  Upright snaps(0.4e-5), stays(0.6e-5);  // 1e-5 of the edge are 0.5e-5
  EXPECT_EQ(meet(e.start, snaps.start).on_fence, Place::kAtVertex);
  EXPECT_EQ(meet(e.start, stays.start).on_fence, Place::kInside);
}

TEST(Meeting, TheSubjectParameterSnapsWithTheSubjectsTolerance) {
  Edge e(0, 0, 1000, 0);  // its own tolerance is far smaller as a share of the edge
  Upright at_start(3, 0.9e-5), at_end(3, 8 - 0.9e-5), above(3, -0.9e-5), off(3, -1.1e-5);
  Meeting m = meet(e.start, at_start.start);
  EXPECT_EQ(m.on_subject, Place::kAtVertex);
  EXPECT_EQ(m.subject_vertex, &at_start.start);
  EXPECT_EQ(m.subject_param, 0.0);
  EXPECT_EQ(m.on_fence, Place::kInside);
  m = meet(e.start, at_end.start);
  EXPECT_EQ(m.subject_vertex, &at_end.end);
  EXPECT_EQ(m.subject_param, 1.0);
  EXPECT_EQ(meet(e.start, above.start).subject_vertex, &above.start);
  EXPECT_FALSE(meet(e.start, off.start).found());
  EXPECT_EQ(meet(e.start, off.start).on_subject, Place::kNowhere);
}

TEST(Meeting, TwoEndsMeetAtBothVertices) {
  Edge e(0, 0, 10, 0), f(10, 0, 10, 10), g(5, 9, 0, 0);
  Meeting m = meet(e.start, f.start);
  ASSERT_TRUE(m.found());
  EXPECT_EQ(m.fence_vertex, &e.end);
  EXPECT_EQ(m.subject_vertex, &f.start);
  m = meet(e.start, g.start);
  EXPECT_EQ(m.fence_vertex, &e.start);
  EXPECT_EQ(m.subject_vertex, &g.end);
}

TEST(Meeting, EdgesThatCountAsParallelDoNotMeet) {
  Edge e(0, 0, 1, 0);
  Edge at_limit(0.5, -0.025, 0.5, 0.025), above(0.5, -0.026, 0.5, 0.026);
  Edge against(0.5, 0.025, 0.5, -0.025), along(0.25, 0, 0.75, 0);
  EXPECT_FALSE(meet(e.start, at_limit.start).found());
  EXPECT_FALSE(meet(e.start, against.start).found());
  EXPECT_FALSE(meet(e.start, along.start).found());
  EXPECT_TRUE(meet(e.start, above.start).found());
}

// The edges before anything was inserted are tested: a working successor changes nothing.
TEST(Meeting, InsertedVerticesDoNotShortenAnEdge) {
  Edge e(0, 0, 10, 0), f(8, -4, 8, 4);
  FenceVertex inserted = {};
  inserted.x = 2;
  e.start.next2 = &inserted;
  inserted.next2 = &e.end;
  const Meeting m = meet(e.start, f.start);
  EXPECT_TRUE(m.found());
  EXPECT_EQ(m.fence_param, 0.8);
  Upright at_end(10);
  EXPECT_EQ(meet(e.start, at_end.start).fence_vertex, &e.end);
}

TEST(Meeting, NumbersThatAreNotFiniteDoNotMeet) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (const double bad : {nan, inf, -inf}) {
    for (int place = 0; place < 8; ++place) {
      double c[8] = {0, 0, 10, 0, 4, -5, 4, 5};
      c[place] = bad;
      Edge e(c[0], c[1], c[2], c[3]), f(c[4], c[5], c[6], c[7]);
      const Meeting m = meet(e.start, f.start);
      if (!m.found()) continue;
      // An infinite end may leave a meeting at the other edge's finite end, never one without a place.
      EXPECT_TRUE(m.fence_param >= 0 && m.fence_param <= 1) << place << ' ' << bad;
      EXPECT_TRUE(m.subject_param >= 0 && m.subject_param <= 1) << place << ' ' << bad;
    }
  }
  Edge nowhere(nan, nan, nan, nan), e(0, 0, 10, 0);
  EXPECT_FALSE(meet(e.start, nowhere.start).found());
}

// The order of the operations is a contract: the last bit of every crossing hangs on it.
TEST(Meeting, ParametersAreComputedInTheirStatedOrder) {
  constexpr std::uint64_t kSeed = 0x33EE;
  int met = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    double c[8];
    for (double& value : c) value = random.between(-100.0, 100.0);
    Edge e(c[0], c[1], c[2], c[3]), f(c[4], c[5], c[6], c[7]);
    const double ex = c[2] - c[0], ey = c[3] - c[1], fx = c[6] - c[4], fy = c[7] - c[5];
    const double denom = fx * ey - fy * ex;
    const double t = (fx * (c[5] - c[1]) - fy * (c[4] - c[0])) / denom;
    const double u = ((c[5] - c[1]) * ex - (c[4] - c[0]) * ey) / denom;
    const Meeting m = meet(e.start, f.start);
    if (m.on_fence != Place::kInside || m.on_subject != Place::kInside) continue;
    ++met;
    EXPECT_TRUE(same_bits(m.fence_param, t));
    EXPECT_TRUE(same_bits(m.subject_param, u));
  }
  EXPECT_GT(met, 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
