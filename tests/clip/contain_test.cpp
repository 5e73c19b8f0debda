// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The inside test: what each edge answers to the ray, and the counting around a ring. What holds at exactly a
// tolerance is in contain_limits_test.cpp.
#include "clip/contain.h"

#include "clip/tolerances.h"
#include "tests/clip/engine.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/predicates.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace Corvane::Print::tests {
namespace {

using clip::edge_meets_ray;
using clip::kCross;
using clip::kMiss;
using clip::kOnEdge;
using clip::RayAnswer;

// A probe whose neighbour is the probe itself, so that the neighbour never decides.
struct Probe {
  Probe(double x, double y) {
    v.x = x, v.y = y;
    v.next = v.prev = v.next2 = &v;
  }
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  FenceVertex v = {};
};

ProbeRecord ray_from(double x, double y, double dx, double dy) {
  ProbeRecord ray = {};
  ray.x = x, ray.y = y, ray.dx = dx, ray.dy = dy;
  ray.tolerance = 1e-5;
  return ray;
}

struct Answer {
  RayAnswer answer;
  bool skip_next = false, at_start = false;
};

Answer ask(const FenceVertex& edge, const ProbeRecord& ray) {
  Answer a{};
  const Probe probe(ray.x, ray.y);
  a.answer = edge_meets_ray(edge, ray, probe.v, a.skip_next, a.at_start);
  return a;
}

// A ring whose first vertex starts the edge in question.
struct TestRing {
  explicit TestRing(const Ring& ring) : fence({ring}, CL_KEEP_INSIDE) {}
  const FenceVertex& edge_from(double x, double y) { return *vertex_at(*fence.handle(), x, y); }
  Fence fence;
};

bool inside(const Fence& fence, double x, double y) {
  const Probe probe(x, y);
  return clip::probe_is_inside(probe.v, *fence.handle());
}

// Turns the ray of a fence polygon as the environment variable does for a slope x/y.
void turn_ray(FencePolygon& polygon, double slope) {
  const double width = polygon.extent.xmax - polygon.extent.xmin;
  const double height = polygon.extent.ymax - polygon.extent.ymin;
  const double reach = 2 * (width > height ? width : height);
  polygon.probe->dx = reach * slope / std::sqrt(slope * slope + 1);
  polygon.probe->dy = reach / std::sqrt(slope * slope + 1);
}

TEST(Contain, AnEdgeAcrossTheRayIsCrossed) {
  Edge e(5, -5, 5, 5);
  EXPECT_EQ(ask(e.start, ray_from(0, 0, 20, 0)).answer, kCross);
  EXPECT_FALSE(ask(e.start, ray_from(0, 0, 20, 0)).skip_next);
  EXPECT_EQ(ask(e.start, ray_from(0, 6, 20, 0)).answer, kMiss);
  EXPECT_EQ(ask(e.start, ray_from(0, -6, 20, 0)).answer, kMiss);
}

TEST(Contain, AnEdgeBehindTheProbeIsMissed) {
  Edge e(5, -5, 5, 5);
  EXPECT_EQ(ask(e.start, ray_from(6, 0, 20, 0)).answer, kMiss);
}

// The ray has an origin but no end.
TEST(Contain, AnEdgeBeyondTheRaysFarEndIsCrossedToo) {
  Edge e(500, -5, 500, 5);
  EXPECT_EQ(ask(e.start, ray_from(0, 0, 20, 0)).answer, kCross);
}

TEST(Contain, AProbeOnTheEdgeIsToldApart) {
  Edge e(5, -5, 5, 5);
  EXPECT_EQ(ask(e.start, ray_from(5, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5 - 1.9e-4, 0, 20, 0)).answer, kOnEdge);  // 1e-5 of the ray are 2e-4
  EXPECT_EQ(ask(e.start, ray_from(5 + 1.9e-4, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5 - 2.1e-4, 0, 20, 0)).answer, kCross);
  EXPECT_EQ(ask(e.start, ray_from(5 + 2.1e-4, 0, 20, 0)).answer, kMiss);
}

TEST(Contain, AParallelEdgeOffTheProbesLineIsMissed) {
  Edge e(5, 1, 6, 1);
  EXPECT_EQ(ask(e.start, ray_from(0, 0, 20, 0)).answer, kMiss);
  Edge reversed(6, 1, 5, 1);
  EXPECT_EQ(ask(reversed.start, ray_from(5.5, 0, 20, 0)).answer, kMiss);
}

// The distance from the line is measured by the cross product, like parallelism itself.
TEST(Contain, AProbeWithinTheParallelLimitCountsAsOnTheLine) {
  Edge e(0, 0, 1, 0);
  EXPECT_EQ(ask(e.start, ray_from(0.5, 0.05, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(0.5, -0.05, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(0.5, 0.051, 20, 0)).answer, kMiss);
}

TEST(Contain, AnEdgeWhoseCrossProductWithTheRayIsAtTheLimitCountsAsParallel) {
  Edge at_limit(5, -0.025, 5, 0.025), above(5, -0.026, 5, 0.026);
  EXPECT_EQ(ask(at_limit.start, ray_from(0, 0, 1, 0)).answer, kMiss);
  EXPECT_EQ(ask(above.start, ray_from(0, 0, 1, 0)).answer, kCross);
}

TEST(Contain, OnAParallelEdgesLineTheSpanDecides) {
  Edge e(5, 0, 15, 0);
  EXPECT_EQ(ask(e.start, ray_from(10, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(15, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5 - 0.9e-5, 0, 20, 0)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5 - 1.1e-5, 0, 20, 0)).answer, kMiss);
  EXPECT_EQ(ask(e.start, ray_from(15 + 1.1e-5, 0, 20, 0)).answer, kMiss);
}

TEST(Contain, OnAParallelEdgesLineTheProbesNextVertexCountsByItsXAlone) {
  Edge e(5, 0, 15, 0);
  const auto with_next = [&](double x, double next_x, double next_y) {
    Probe probe(x, 0), next(next_x, next_y);
    probe.v.next = &next.v;
    bool skip = false, start = false;
    return edge_meets_ray(e.start, ray_from(x, 0, 20, 0), probe.v, skip, start);
  };
  EXPECT_EQ(with_next(0, 10, 0), kOnEdge);
  EXPECT_EQ(with_next(0, 10, 77), kOnEdge);
  EXPECT_EQ(with_next(0, 20, 0), kOnEdge);  // on either side of the span
  EXPECT_EQ(with_next(20, 0, 0), kOnEdge);
  EXPECT_EQ(with_next(0, 20, 77), kOnEdge);
  EXPECT_EQ(with_next(0, 1, 0), kMiss);
  EXPECT_EQ(with_next(20, 30, 0), kMiss);
}

TEST(Contain, AParallelEdgeWithoutWidthIsMissedEvenByAProbeOnIt) {
  Edge e(5, 0, 5, 10);
  EXPECT_EQ(ask(e.start, ray_from(5, 5, 0, 20)).answer, kMiss);
  EXPECT_EQ(ask(e.start, ray_from(5, -5, 0, 20)).answer, kMiss);
}

TEST(Contain, ThroughAVertexTheRayCrossesWhereTheNeighboursLieOnDifferentSides) {
  TestRing ring({{0, 0}, {5, 10}, {10, 0}, {20, 0}, {20, -20}, {0, -20}});
  // Along y = 0 through (10, 0): its neighbours are (5, 10), above, and (20, 0), on the line.
  const FenceVertex& into = ring.edge_from(5, 10);
  const Answer a = ask(into, ray_from(6, 0, 40, 0));
  EXPECT_EQ(a.answer, kCross);
  EXPECT_TRUE(a.skip_next);
  EXPECT_FALSE(a.at_start);
}

TEST(Contain, ThroughAVertexTheRayOnlyTouchesWhereTheNeighboursLieOnOneSide) {
  TestRing ring({{0, 0}, {5, 10}, {10, 0}, {10, -20}, {0, -20}});
  const Answer at_end = ask(ring.edge_from(0, 0), ray_from(-5, 10, 40, 0));
  EXPECT_EQ(at_end.answer, kMiss);
  EXPECT_FALSE(at_end.skip_next);
  const Answer at_start = ask(ring.edge_from(5, 10), ray_from(-5, 10, 40, 0));
  EXPECT_EQ(at_start.answer, kMiss);
  EXPECT_TRUE(at_start.at_start);
}

TEST(Contain, ACrossingThroughAnEdgesFirstVertexSaysSo) {
  TestRing ring({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
  const Answer a = ask(ring.edge_from(10, 10), ray_from(0, 0, 20, 20));
  EXPECT_EQ(a.answer, kCross);
  EXPECT_TRUE(a.at_start);
  EXPECT_TRUE(a.skip_next);
}

// An edge of length 1: its tolerance is 0.00001. The ray runs level at height y.
TEST(Contain, TheVertexRuleHoldsWithinTheEdgesTolerance) {
  TestRing ring({{5, 0}, {5, 1}, {9, 0}});
  const FenceVertex& e = ring.edge_from(5, 0);
  EXPECT_EQ(ask(e, ray_from(0, 0.5, 40, 0)).answer, kCross);
  EXPECT_FALSE(ask(e, ray_from(0, 1.1e-5, 40, 0)).at_start);
  EXPECT_TRUE(ask(e, ray_from(0, 0.9e-5, 40, 0)).at_start);
  EXPECT_TRUE(ask(e, ray_from(0, -0.9e-5, 40, 0)).at_start);
  EXPECT_FALSE(ask(e, ray_from(0, -1.1e-5, 40, 0)).at_start);
  EXPECT_EQ(ask(e, ray_from(0, -1.1e-5, 40, 0)).answer, kMiss);
  EXPECT_EQ(ask(e, ray_from(0, 1 - 1.1e-5, 40, 0)).answer, kCross);
  EXPECT_EQ(ask(e, ray_from(0, 1 - 0.9e-5, 40, 0)).answer, kMiss);  // both neighbours lie below
  EXPECT_EQ(ask(e, ray_from(0, 1 + 1.1e-5, 40, 0)).answer, kMiss);
}

// The side of a neighbour is asked by a cross product of 0.05 too.
TEST(Contain, ANeighbourWithinTheParallelLimitLiesOnTheLine) {
  TestRing ring({{5, 0}, {5, 1}, {9, 1.001}, {9, -5}});
  // The line from (5, 1) to the ray's far end (41, 1); (9, 1.001) is 0.036 off by the cross product.
  const Answer a = ask(ring.edge_from(5, 0), ray_from(1, 1, 40, 0));
  EXPECT_EQ(a.answer, kCross);
  EXPECT_TRUE(a.skip_next);
}

TEST(Contain, APointOnTheOutlineIsInside) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  for (const double at : {0.0, 2.5, 5.0, 10.0}) {
    EXPECT_TRUE(inside(fence, at, 0)) << at;
    EXPECT_TRUE(inside(fence, at, 10)) << at;
    EXPECT_TRUE(inside(fence, 0, at)) << at;
    EXPECT_TRUE(inside(fence, 10, at)) << at;
  }
}

// An answer of 4 ends the count: the probe is inside however many edges were crossed before.
TEST(Contain, AProbeOnAnEdgeIsInsideWhateverWasCountedBefore) {
  const Ring ring = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
  for (std::size_t first = 0; first < 4; ++first) {
    for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
      const Fence fence({rotated(ring, first)}, mode);
      EXPECT_TRUE(inside(fence, 0, 3));
      EXPECT_TRUE(inside(fence, 3, 0));
    }
  }
}

TEST(Contain, TheCastStartsAtAVertexNotAboveOrBelowTheProbe) {
  // Every rotation of a ring with several vertices at the probe's x gives the same verdict.
  const Ring ring = {{5, 0}, {5, 10}, {5.0005, 20}, {20, 20}, {20, -20}, {5, -20}};
  for (std::size_t first = 0; first < ring.size(); ++first) {
    const Fence fence({rotated(ring, first)}, CL_KEEP_INSIDE);
    EXPECT_TRUE(inside(fence, 5.5, 1));
    EXPECT_FALSE(inside(fence, 4.9, 1));
  }
}

TEST(Contain, ARingThatIsAboveTheProbeEverywhereEndsTheSearchForAStart) {
  const Fence fence({{{5, 0}, {5, 10}, {5, 20}}}, CL_KEEP_INSIDE);
  EXPECT_FALSE(inside(fence, 5, -5));
}

bool on_outline(const Ring& ring, const Point& p) {
  for (std::size_t n = 0; n < ring.size(); ++n) {
    if (on_segment(ring[n], ring[(n + 1) % ring.size()], p)) return true;
  }
  return false;
}

// Exact on the grid.
bool strictly_inside(const Ring& ring, const Point& p) {
  bool in = false;
  for (std::size_t n = 0; n < ring.size(); ++n) {
    const Point &a = ring[n], &b = ring[(n + 1) % ring.size()];
    if ((a.y > p.y) != (b.y > p.y) && (turn(a, b, p) > 0) == (b.y > a.y)) in = !in;
  }
  return in;
}

// The ray goes straight up and runs along the edge from (0, 10) to (0, 20). It crosses through that edge's
// start, which leaves the edge itself out, and through the start of the one behind, which leaves out the edge
// up to (20, 40). The far wall is the third crossing; with the edge that was left out there would be four.
TEST(Contain, ACrossingThroughAnEdgesFirstVertexSkipsTheNextEdgeToo) {
  const Ring step = {{-20, 0}, {20, 0}, {20, 10}, {0, 10}, {0, 20}, {-10, 30}, {20, 40}, {20, 50}, {-20, 50}};
  const Fence fence({step}, CL_KEEP_OUTSIDE);  // keeps the order of the points
  turn_ray(*fence.handle(), 0);
  EXPECT_TRUE(inside(fence, 0, 5));
  // With the ring's first vertex above the probe the cast starts behind it, at (-10, 30): nothing has been
  // crossed that would leave that edge out.
  for (const std::size_t first : {3u, 4u}) {
    const Fence turned({rotated(step, first)}, CL_KEEP_OUTSIDE);
    turn_ray(*turned.handle(), 0);
    EXPECT_FALSE(inside(turned, 0, 5));
  }
}

bool has_edge_along(const Ring& ring, double slope) {
  for (std::size_t n = 0; n < ring.size(); ++n) {
    const Point &a = ring[n], &b = ring[(n + 1) % ring.size()];
    if (b.x - a.x == slope * (b.y - a.y)) return true;
  }
  return false;
}

// The verdict must not depend on where the ring starts, nor on how many vertices the ray passes through, as
// long as the ray runs along no edge. The default ray runs along none of the grid's.
TEST(Contain, AllRotationsOfARingGiveTheSameVerdictForEverySlope) {
  constexpr std::uint64_t kSeed = 0xC047;
  constexpr double kSlopes[] = {0, 1, -1, 2, 0.5, -3};
  for (int i = 0; i < scaled(300); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring ring = grid_polygon(random);
    const double slope = kSlopes[random.below(6)];
    const double x = random.between(0, 7) * kGridSpacing;
    const double y = random.between(0, 7) * kGridSpacing;
    const bool edge = on_outline(ring, {x, y, 0});
    const bool expected = edge || strictly_inside(ring, {x, y, 0});
    const std::string what = text_of(ring) + text_of(Ring{{x, y, 0}}) + " slope " + std::to_string(slope);
    for (std::size_t first = 0; first < ring.size(); ++first) {
      const Fence fence({rotated(ring, first)}, i % 2 == 0 ? CL_KEEP_INSIDE : CL_KEEP_OUTSIDE);
      EXPECT_EQ(inside(fence, x, y), expected) << what;
      if (has_edge_along(ring, slope)) continue;
      turn_ray(*fence.handle(), slope);
      EXPECT_EQ(inside(fence, x, y), expected) << what;
    }
  }
}

TEST(Contain, TheProbeRecordTakesTheProbeForItsOrigin) {
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  const double dx = fence.handle()->probe->dx, dy = fence.handle()->probe->dy;
  EXPECT_TRUE(inside(fence, 3, 4));
  EXPECT_EQ(fence.handle()->probe->x, 3);
  EXPECT_EQ(fence.handle()->probe->y, 4);
  EXPECT_EQ(fence.handle()->probe->dx, dx);
  EXPECT_EQ(fence.handle()->probe->dy, dy);
}

TEST(Contain, AnExtentThatSticksOutIsOutsideWithoutATest) {
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  const Probe probe(5, 5);
  EXPECT_TRUE(clip::is_inside(probe.v, {1, 1, 0, 9, 9, 0}, *fence.handle()));
  EXPECT_TRUE(clip::is_inside(probe.v, {0, 0, 0, 10, 10, 0}, *fence.handle()));
  EXPECT_FALSE(clip::is_inside(probe.v, {1, 1, 0, 10.5, 9, 0}, *fence.handle()));
  EXPECT_FALSE(clip::is_inside(probe.v, {-0.5, 1, 0, 9, 9, 0}, *fence.handle()));
  EXPECT_FALSE(clip::is_inside(probe.v, {1, -0.5, 0, 9, 9, 0}, *fence.handle()));
  EXPECT_FALSE(clip::is_inside(probe.v, {1, 1, 0, 9, 10.5, 0}, *fence.handle()));
}

TEST(Contain, TwoMarksTheSideThatTheOthersModeKeeps) {
  FencePolygon ring = {};
  const auto verdict = [&](bool inside, int mode) {
    clip::store_verdict(ring, inside, mode);
    return ring.containment;
  };
  EXPECT_EQ(verdict(true, 2), 2);
  EXPECT_EQ(verdict(false, 2), 1);
  EXPECT_EQ(verdict(true, 1), 1);
  EXPECT_EQ(verdict(false, 1), 2);
  EXPECT_EQ(verdict(true, 77), 1);  // any other mode
  EXPECT_EQ(verdict(false, 0), 2);
}

TEST(Contain, ProbesThatAreNoNumbersAreOutside) {
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (const double bad : {nan, inf, -inf}) {
    EXPECT_FALSE(inside(fence, bad, 5));
    EXPECT_FALSE(inside(fence, 5, bad));
    EXPECT_FALSE(inside(fence, bad, bad));
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
