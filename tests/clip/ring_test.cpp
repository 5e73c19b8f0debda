// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Rings: links, direction, cleaning, edge data and reset. The rings lie in the overflow buffers.
#include "clip/ring.h"

#include "clip/node_pool.h"
#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/ring.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

FenceVertex* built(const Ring& points, int dim = 2) {
  EXPECT_TRUE(clip::restart_overflow());
  return clip::build_ring(flatten(points, dim).data(), static_cast<int>(points.size()), dim);
}

FencePolygon prepared(const Ring& points, int dim = 2) {
  FencePolygon polygon{};
  polygon.first = built(points, dim);
  clip::prepare_ring(polygon);
  return polygon;
}

// Along `next`; fails when the links do not fit.
Ring points_of(const FenceVertex* first) {
  Ring points;
  clip::for_each_vertex(first, [&](const FenceVertex& v) {
    points.push_back({v.x, v.y, v.z});
    EXPECT_EQ(v.next->prev, &v);
    EXPECT_EQ(v.next2, v.next);
    EXPECT_EQ(v.partner, nullptr);
  });
  return points;
}

Ring cleaned(const Ring& points, int dim = 2) {
  const FencePolygon polygon = prepared(points, dim);
  const Ring result = points_of(polygon.first);
  EXPECT_EQ(polygon.vertexCount, static_cast<int>(result.size()));
  return result;
}

const Ring kSquare = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};

TEST(Ring, VerticesStandInTheOrderOfTheInputLinkedBothWays) {
  const FenceVertex* first = built(kSquare);
  EXPECT_EQ(points_of(first), kSquare);
  EXPECT_EQ(first->next->next->next->next, first);
  EXPECT_EQ(first->prev, first->next->next->next);
}

TEST(Ring, ANewVertexHasWOneAndNoMarks) {
  clip::for_each_vertex(built(kSquare), [](const FenceVertex& v) {
    EXPECT_EQ(v.w, 1.0);
    EXPECT_EQ(v.marker, 0);
    EXPECT_EQ(v.marker2, 0);
  });
}

TEST(Ring, AllInputPointsBecomeVerticesAlsoRepeatedOnes) {
  const Ring points = {{1, 1, 0}, {1, 1, 0}, {2, 1, 0}, {1, 1, 0}};
  EXPECT_EQ(points_of(built(points)), points);
}

TEST(Ring, OnePointIsLinkedToItself) {
  const FenceVertex* v = built({{3, 4, 0}});
  EXPECT_TRUE(v->next == v && v->prev == v && v->next2 == v);
}

TEST(Ring, ZIsTakenIn3DAndZeroIn2D) {
  const Ring points = {{0, 0, 1}, {10, 0, -2}, {10, 10, 3.5}};
  EXPECT_EQ(points_of(built(points, 3)), points);
  for (const Point& p : points_of(built(points, 2))) EXPECT_EQ(p.z, 0.0);
}

TEST(Ring, NoMemoryIsNull) {
  const FailurePlanEnds plan_ends;
  release_overflow_buffers();
  ASSERT_TRUE(clip::restart_overflow());
  const std::vector<double> points(2 * 600, 1.0);
  platform::capi_fail_after(0);
  EXPECT_EQ(clip::build_ring(points.data(), 600, 2), nullptr);
}

TEST(Ring, TheShoelaceSumIsTwiceTheAreaPositiveCounterClockwise) {
  EXPECT_EQ(clip::shoelace_sum(built(kSquare)), 200);
  EXPECT_EQ(clip::shoelace_sum(built(reversed(kSquare))), -200);
  EXPECT_EQ(clip::shoelace_sum(built({{5, 5, 0}})), 0);
  EXPECT_EQ(clip::shoelace_sum(built({{0, 0, 0}, {3, 4, 0}})), 0);
}

TEST(Ring, TheShoelaceSumIsAddedUpFromTheFirstVertexInXAndYOnly) {
  for (int i = 0; i < scaled(300); ++i) {
    Random random(case_seed(62, i));
    const Ring points = lifted(moved(any_shape(random, 1000), 1e5, -3e4), 1.5, -2, 7);
    double sum = 0.0;
    for (std::size_t k = 0; k < points.size(); ++k) {
      const Point &a = points[k], &b = points[(k + 1) % points.size()];
      sum += a.x * b.y - a.y * b.x;
    }
    ASSERT_TRUE(same_bits(clip::shoelace_sum(built(points, 3)), sum)) << "seed " << i;
  }
}

TEST(Ring, ReversalSwapsTheLinksAndKeepsTheFirstVertex) {
  FenceVertex* first = built(kSquare);
  clip::reverse_ring(first);
  EXPECT_EQ(points_of(first), (Ring{{0, 0, 0}, {0, 10, 0}, {10, 10, 0}, {10, 0, 0}}));
}

TEST(Ring, EdgeVectorAndExtentReachFromAVertexToItsSuccessor) {
  const Ring points = {{0, 0, 5}, {10, 2, 6}, {7, -9, 7}};
  const FencePolygon polygon = prepared(points, 3);
  std::size_t k = 0;
  clip::for_each_vertex(polygon.first, [&](const FenceVertex& v) {
    const Point &a = points[k], &b = points[(k + 1) % 3];
    EXPECT_TRUE(same_bits(v.dx, b.x - a.x));
    EXPECT_TRUE(same_bits(v.dy, b.y - a.y));
    EXPECT_EQ(v.extent.xmin, std::min(a.x, b.x));
    EXPECT_EQ(v.extent.ymin, std::min(a.y, b.y));
    EXPECT_EQ(v.extent.xmax, std::max(a.x, b.x));
    EXPECT_EQ(v.extent.ymax, std::max(a.y, b.y));
    ++k;
  });
}

TEST(Ring, TheEdgeToleranceIsAShareOfTheEdge) {
  EXPECT_TRUE(same_bits(clip::edge_tolerance(3, 4), 1e-5 / 5.0));
  EXPECT_TRUE(same_bits(clip::edge_tolerance(-300, 400), 1e-5 / 500.0));
  EXPECT_TRUE(same_bits(clip::edge_tolerance(1, 0), 1e-5));
}

TEST(Ring, EdgesShorterThanOneUseTheToleranceAsItStands) {
  EXPECT_TRUE(same_bits(clip::edge_tolerance(0.3, 0.4), 1e-5));
  EXPECT_TRUE(same_bits(clip::edge_tolerance(0, -0.9999), 1e-5));
  EXPECT_TRUE(same_bits(clip::edge_tolerance(0, 0), 1e-5));
}

TEST(Ring, EveryVertexGetsTheToleranceOfItsEdge) {
  const FencePolygon polygon = prepared({{0, 0, 0}, {30, 40, 0}, {30, 40.5, 0}});
  EXPECT_TRUE(same_bits(polygon.first->tolerance, 1e-5 / 50.0));
  EXPECT_TRUE(same_bits(polygon.first->next->tolerance, 1e-5));
}

TEST(Ring, TheExtentIsTheUnionOfTheEdgesAndLeavesTheDepthAlone) {
  FencePolygon polygon{};
  polygon.first = built({{0, 5, 100}, {-10, 2, 200}, {7, -9, 300}}, 3);
  polygon.extent.zmin = 1;
  polygon.extent.zmax = 2;
  clip::prepare_ring(polygon);
  EXPECT_TRUE(polygon.extent.xmin == -10 && polygon.extent.ymin == -9 && polygon.extent.zmin == 1);
  EXPECT_TRUE(polygon.extent.xmax == 7 && polygon.extent.ymax == 5 && polygon.extent.zmax == 2);
}

TEST(Ring, PointsCloserThanAThousandthInXAndYAreOne) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {0.0009, -0.0009, 0}, {10, 0, 0}, {10, 10, 0}}),
            (Ring{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}));
}

TEST(Ring, PointsAThousandthApartInXOrYAreTwo) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {0.001, 0, 0}, {10, 0, 0}, {10, 10, 0}}).size(), 4u);
  EXPECT_EQ(cleaned({{0, 0, 0}, {0, -0.001, 0}, {10, 0, 0}, {10, 10, 0}}).size(), 4u);
  EXPECT_EQ(cleaned({{0, 0, 0}, {0.0001, 0.5, 0}, {10, 0, 0}, {10, 10, 0}}).size(), 4u);
}

TEST(Ring, PointsThatDifferInZAreTwoHoweverLittle) {
  const double above = std::nextafter(5.0, 6.0);
  EXPECT_EQ(cleaned({{0, 0, 5}, {0, 0, above}, {10, 0, 5}, {10, 10, 5}}, 3).size(), 4u);
  EXPECT_EQ(cleaned({{0, 0, 5}, {0, 0, 5}, {10, 0, 5}, {10, 10, 5}}, 3).size(), 3u);
}

TEST(Ring, ManyEqualPointsInARowAreOne) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {10, 0, 0}, {10, 0, 0}, {10, 10, 0}, {10, 10, 0}}),
            (Ring{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}));
}

// A long chain of tiny steps keeps its shape: each point is measured from the one that stayed.
TEST(Ring, AChainOfTinyStepsIsThinnedAndNotSwallowed) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {0.0009, 0, 0}, {0.0018, 0, 0}, {0.0027, 0, 0}, {10, 0, 0}, {10, 10, 0}}),
            (Ring{{0, 0, 0}, {0.0018, 0, 0}, {10, 0, 0}, {10, 10, 0}}));
}

TEST(Ring, TheEdgeOverADroppedPointLeadsToTheNextOne) {
  const FencePolygon polygon = prepared({{0, 0, 0}, {0.0005, 0, 0}, {10, 0, 0}, {10, 10, 0}});
  EXPECT_EQ(polygon.first->dx, 10);
  EXPECT_EQ(polygon.first->extent.xmin, 0);
  EXPECT_EQ(polygon.first->extent.xmax, 10);
}

TEST(Ring, ARepeatedLastPointIsDropped) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0.0005, -0.0009, 0}}),
            (Ring{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}));
  const FencePolygon polygon = prepared({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0.0005, -0.0009, 0}});
  EXPECT_EQ(polygon.first->prev->dx, -10);  // its edge leads to the first point
  EXPECT_EQ(polygon.first->prev->dy, -10);
  EXPECT_EQ(polygon.first->prev->extent.xmin, 0);
}

TEST(Ring, ALastPointAThousandthOffTheFirstStays) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 0.001, 0}}).size(), 4u);
  EXPECT_EQ(cleaned({{0, 0, 1}, {10, 0, 1}, {10, 10, 1}, {0, 0, 2}}, 3).size(), 4u);
}

TEST(Ring, OnlyTheLastPointIsComparedWithTheFirst) {
  EXPECT_EQ(cleaned({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0.0008, 0, 0}, {-0.0008, 0, 0}}),
            (Ring{{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0.0008, 0, 0}}));
}

TEST(Ring, ARingOfOnePlaceIsOneVertex) {
  EXPECT_EQ(cleaned({{7, 8, 0}}), (Ring{{7, 8, 0}}));
  EXPECT_EQ(cleaned({{7, 8, 0}, {7, 8, 0}, {7, 8, 0}}), (Ring{{7, 8, 0}}));
  const FencePolygon polygon = prepared({{7, 8, 0}, {7.0001, 8, 0}});
  EXPECT_TRUE(polygon.first->dx == 0 && polygon.first->dy == 0);
  EXPECT_TRUE(polygon.extent.xmin == 7 && polygon.extent.xmax == 7);
  EXPECT_TRUE(polygon.extent.ymin == 8 && polygon.extent.ymax == 8);
}

TEST(Ring, ResetForgetsEverythingThatAClipInserted) {
  FencePolygon polygon = prepared(kSquare);
  FenceVertex* a = polygon.first;
  FenceVertex* b = a->next;
  FenceVertex* inserted = clip::take_vertex();
  inserted->next = inserted->next2 = b;
  inserted->prev = a;
  inserted->partner = a;
  a->next2 = b->prev = inserted;
  a->partner = inserted;
  a->marker2 = b->marker2 = 7;
  clip::reset_ring(polygon);
  EXPECT_EQ(points_of(a), kSquare);
  clip::for_each_vertex(a, [](const FenceVertex& v) { EXPECT_EQ(v.marker2, 0); });
}

TEST(Ring, ExtentsThatTouchOverlap) {
  const ClipExtent a{0, 0, 0, 10, 10, 0};
  EXPECT_TRUE(clip::overlap_xy(a, {10, 10, 0, 20, 20, 0}));
  EXPECT_TRUE(clip::overlap_xy(a, {-5, -5, 0, 0, 0, 0}));
  EXPECT_FALSE(clip::overlap_xy(a, {10.0001, 0, 0, 20, 10, 0}));
  EXPECT_FALSE(clip::overlap_xy(a, {0, -5, 0, 10, -0.0001, 0}));
  EXPECT_TRUE(clip::within_xy(a, a));
  EXPECT_FALSE(clip::within_xy({0, 0, 0, 10, 10.0001, 0}, a));
}

TEST(Ring, NotANumberOverlapsNothing) {
  constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
  const ClipExtent a{0, 0, 0, 10, 10, 0};
  EXPECT_FALSE(clip::overlap_xy({kNaN, 0, 0, 5, 5, 0}, a));
  EXPECT_FALSE(clip::within_xy({0, kNaN, 0, 5, 5, 0}, a));
}

TEST(Ring, TheEmptyExtentBecomesThePointThatItIncludes) {
  ClipExtent extent = clip::empty_extent();
  clip::include_point(extent, -3, 4);
  EXPECT_TRUE(extent.xmin == -3 && extent.xmax == -3 && extent.ymin == 4 && extent.ymax == 4);
}

}  // namespace
}  // namespace Corvane::Print::tests
