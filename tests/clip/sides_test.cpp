// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// On which side of a ring a line runs at a vertex of it, and the exact inside test for single points.
#include "clip/sides.h"

#include "clip/ring.h"
#include "tests/clip/engine.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/predicates.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <limits>

namespace Corvane::Print::tests {
namespace {

using clip::agreed_side;
using clip::Direction;
using clip::encloses;
using clip::Side;
using clip::side_of;

// A vertex at the origin whose ring arrives from -arriving and leaves along leaving.
struct Corner {
  Corner(Direction arriving, Direction leaving) {
    before = at = after = FenceVertex{};
    before.x = -arriving.dx, before.y = -arriving.dy;
    after.x = leaving.dx, after.y = leaving.dy;
    before.next = &at, at.next = &after, after.next = &before;
    at.prev = &before, after.prev = &at, before.prev = &after;
    for (FenceVertex* v : {&before, &at, &after}) clip::set_edge(*v);
  }
  Corner(const Corner&) = delete;
  Corner& operator=(const Corner&) = delete;
  FenceVertex before, at, after;
};

TEST(Sides, AtAConvexCornerOnlyTheWedgeIsInside) {
  const Corner corner({10, 0}, {0, 10});  // counter-clockwise: the inside is up and to the left
  EXPECT_EQ(side_of({-3, 4}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({3, 4}, corner.at, false), Side::kOutside);
  EXPECT_EQ(side_of({-3, -4}, corner.at, false), Side::kOutside);
  EXPECT_EQ(side_of({-3, 4}, corner.at, true), Side::kOutside);
  EXPECT_EQ(side_of({3, -4}, corner.at, true), Side::kInside);
}

TEST(Sides, AtAReflexCornerOnlyTheWedgeIsOutside) {
  const Corner corner({10, 0}, {0, -10});
  EXPECT_EQ(side_of({-3, -4}, corner.at, false), Side::kOutside);
  EXPECT_EQ(side_of({3, -4}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({-3, 4}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({-3, -4}, corner.at, true), Side::kInside);
}

TEST(Sides, AStraightVertexHasAHalfPlaneOnEitherSide) {
  const Corner corner({10, 0}, {5, 0});
  EXPECT_EQ(side_of({1, 0.1}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({1, -1}, corner.at, false), Side::kOutside);
  EXPECT_EQ(side_of({-1, 1}, corner.at, true), Side::kOutside);
  EXPECT_EQ(side_of({-1, -1}, corner.at, true), Side::kInside);
}

TEST(Sides, ADirectionAlongEitherEdgeRunsAlong) {
  const Corner corner({10, 0}, {0, 10});
  EXPECT_EQ(side_of({0, 3}, corner.at, false), Side::kAlong);
  EXPECT_EQ(side_of({0, 300}, corner.at, true), Side::kAlong);
  EXPECT_EQ(side_of({-3, 0}, corner.at, false), Side::kAlong);
  EXPECT_EQ(side_of({3, 0}, corner.at, false), Side::kOutside);  // the edge's line, but away from the edge
}

TEST(Sides, ADirectionThatLeavesAnEdgesLineByNoMoreThanAPointsWidthRunsAlong) {
  const Corner corner({10, 0}, {5, 0});
  EXPECT_EQ(side_of({1, 0.001}, corner.at, false), Side::kAlong);
  EXPECT_EQ(side_of({1, -0.001}, corner.at, false), Side::kAlong);
  EXPECT_EQ(side_of({1, 0.0011}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({100, 0.0006}, corner.at, false), Side::kAlong);
  // Between long edges the product's own limit is the narrower one.
  const Corner longer({10, 0}, {50, 0});
  EXPECT_EQ(side_of({100, 0.0009}, longer.at, false), Side::kAlong);
  EXPECT_EQ(side_of({100, 0.0011}, longer.at, false), Side::kInside);
}

// The absolute rule for parallel edges alone would take any two short edges for parallel.
TEST(Sides, ShortEdgesInDifferentDirectionsDoNotRunAlong) {
  const Corner corner({0.1, 0}, {0, 0.1});
  EXPECT_EQ(side_of({-0.07, 0.07}, corner.at, false), Side::kInside);
  EXPECT_EQ(side_of({0.07, 0.07}, corner.at, false), Side::kOutside);
}

TEST(Sides, ADirectionWithoutLengthAndASpikeAreUnknown) {
  const Corner corner({10, 0}, {0, 10});
  EXPECT_EQ(side_of({0, 0}, corner.at, false), Side::kUnknown);
  const Corner spike({10, 0}, {-5, 0});
  EXPECT_EQ(side_of({0, 1}, spike.at, false), Side::kUnknown);
  EXPECT_EQ(side_of({0, 1}, spike.at, true), Side::kUnknown);
}

TEST(Sides, AnInsertedVertexHasTheDirectionOfItsEdge) {
  FenceVertex v = {};
  v.marker = clip::kInserted;
  v.dx = 3, v.dy = 4;
  EXPECT_EQ(clip::leaving(v).dx, 3);
  EXPECT_EQ(clip::arriving(v).dy, 4);
  EXPECT_EQ(side_of({-4, 3}, v, false), Side::kInside);
  EXPECT_EQ(side_of({-4, 3}, v, true), Side::kOutside);
  EXPECT_EQ(side_of({6, 8}, v, true), Side::kAlong);
  EXPECT_EQ(side_of({-6, -8}, v, true), Side::kAlong);
}

// Points that differ in z alone are no repeated points; their edge has no direction in x and y.
TEST(Sides, EdgesWithoutLengthArePassedOver) {
  FenceVertex a = {}, b = {}, c = {}, d = {};
  a.x = -10, c.z = 5, d.y = 10;  // b and c at the origin
  a.next = &b, b.next = &c, c.next = &d, d.next = &a;
  b.prev = &a, c.prev = &b, d.prev = &c, a.prev = &d;
  for (FenceVertex* v : {&a, &b, &c, &d}) clip::set_edge(*v);
  EXPECT_EQ(clip::leaving(b).dy, 10);
  EXPECT_EQ(clip::arriving(c).dx, 10);
  EXPECT_EQ(side_of({-3, 4}, b, false), Side::kInside);
  EXPECT_EQ(side_of({-3, 4}, c, false), Side::kInside);
  EXPECT_EQ(side_of({3, 4}, b, false), Side::kOutside);
  FenceVertex point = {};
  point.next = point.prev = &point;
  EXPECT_EQ(clip::leaving(point).dx, 0);
  EXPECT_EQ(clip::arriving(point).dx, 0);
}

TEST(Sides, TwoEndsAgreeUnlessTheyNameDifferentSides) {
  const Side all[] = {Side::kUnknown, Side::kOutside, Side::kInside, Side::kAlong};
  for (const Side a : all) {
    EXPECT_EQ(agreed_side(a, a), a);
    EXPECT_EQ(agreed_side(Side::kUnknown, a), a);
    EXPECT_EQ(agreed_side(a, Side::kUnknown), a);
  }
  EXPECT_EQ(agreed_side(Side::kInside, Side::kOutside), Side::kUnknown);
  EXPECT_EQ(agreed_side(Side::kOutside, Side::kInside), Side::kUnknown);
}

TEST(Sides, ALineThatOnlyStartsOrEndsAlongTheRingIsWhereItGoes) {
  EXPECT_EQ(agreed_side(Side::kAlong, Side::kOutside), Side::kOutside);
  EXPECT_EQ(agreed_side(Side::kOutside, Side::kAlong), Side::kOutside);
  EXPECT_EQ(agreed_side(Side::kAlong, Side::kInside), Side::kInside);
  EXPECT_EQ(agreed_side(Side::kInside, Side::kAlong), Side::kInside);
}

TEST(Sides, AWitnessIsThePointFarthestFromTheRing) {
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  clip::Witness in(fence.handle()->first), out(fence.handle()->first), corner(fence.handle()->first);
  in.add_stretch(0, 0.001, 5, 5);  // the middle is well inside, the start a hair
  in.add_stretch(5, 5, 5, -0.5);
  EXPECT_EQ(in.side(), Side::kInside);
  out.add_stretch(5, 0.001, 5, -8);
  out.add_stretch(5, -8, 9, 0.001);
  EXPECT_EQ(out.side(), Side::kOutside);
  corner.add_stretch(9, 0.5, 5, -1);  // stretches meet at the witness
  corner.add_stretch(5, -1, 2, 0.5);
  EXPECT_EQ(corner.side(), Side::kOutside);
}

TEST(Sides, ALineThatNowhereLeavesTheRingByAPointsWidthRunsAlong) {
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  clip::Witness along(fence.handle()->first), leaves(fence.handle()->first);
  along.add_stretch(1, 0, 9, 0.0009);
  along.add_stretch(9, 0.0009, 9.5, 0);
  EXPECT_EQ(along.side(), Side::kAlong);
  leaves.add_stretch(1, 0, 9, 0.0022);  // its middle is the witness
  EXPECT_EQ(leaves.side(), Side::kInside);
}

// Sixteen directions in angular order make the answer a matter of counting.
TEST(Sides, EveryCornerOfSixteenDirectionsIsDecidedExactly) {
  const Direction way[16] = {{2, 0},  {2, 1},   {2, 2},   {1, 2},   {0, 2},  {-1, 2}, {-2, 2}, {-2, 1},
                             {-2, 0}, {-2, -1}, {-2, -2}, {-1, -2}, {0, -2}, {1, -2}, {2, -2}, {2, -1}};
  for (int ahead = 0; ahead < 16; ++ahead) {
    for (int back = 0; back < 16; ++back) {
      if (back == ahead) continue;
      const Corner corner(way[back].reversed(), way[ahead]);
      for (int d = 0; d < 16; ++d) {
        const int to_d = (d - ahead + 16) % 16, to_back = (back - ahead + 16) % 16;
        const bool along = d == ahead || d == back;
        const Side ccw = along ? Side::kAlong : to_d < to_back ? Side::kInside : Side::kOutside;
        const Side cw = along ? Side::kAlong : to_d < to_back ? Side::kOutside : Side::kInside;
        EXPECT_EQ(side_of(way[d], corner.at, false), ccw) << ahead << ' ' << back << ' ' << d;
        EXPECT_EQ(side_of(way[d], corner.at, true), cw) << ahead << ' ' << back << ' ' << d;
      }
    }
  }
}

TEST(Sides, AVertexOnThePointsLevelIsCountedOnce) {
  const Fence fence({{{0, 0}, {5, 5}, {10, 0}, {15, 5}, {20, 0}, {10, -20}}}, CL_KEEP_INSIDE);
  const FenceVertex* first = fence.handle()->first;
  EXPECT_TRUE(encloses(first, 10, -1));
  EXPECT_FALSE(encloses(first, -1, 0));
  EXPECT_FALSE(encloses(first, 21, 0));
  EXPECT_FALSE(encloses(first, 10, 5));
  EXPECT_TRUE(encloses(first, 5, 4));
  EXPECT_FALSE(encloses(first, 10, 0.001));
}

TEST(Sides, APointThatIsNoNumberIsOutside) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const Fence fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  EXPECT_FALSE(encloses(fence.handle()->first, nan, 5));
  EXPECT_FALSE(encloses(fence.handle()->first, 5, nan));
}

// Half a grid unit off the grid no point lies on an edge with a slope that the oracle could not decide.
TEST(Sides, RandomGridPolygonsEncloseWhatAWindingCountSays) {
  constexpr std::uint64_t kSeed = 0x51DE;
  for (int i = 0; i < scaled(500); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring ring = grid_polygon(random);
    const Fence fence({ring}, random.one_in(2) ? CL_KEEP_INSIDE : CL_KEEP_OUTSIDE);
    for (int k = 0; k < 20; ++k) {
      const double x = random.between(-1, 8) * 100.0 + 37, y = random.between(-1, 8) * 100.0 + 11;
      const Point p = {x, y, 0};
      bool on_edge = false;
      int winding = 0;
      for (std::size_t n = 0; n < ring.size(); ++n) {
        const Point &a = ring[n], &b = ring[(n + 1) % ring.size()];
        on_edge = on_edge || on_segment(a, b, p);
        if (a.y <= y && b.y > y && turn(a, b, p) > 0) ++winding;
        if (b.y <= y && a.y > y && turn(a, b, p) < 0) --winding;
      }
      if (on_edge) continue;
      EXPECT_EQ(encloses(fence.handle()->first, x, y), winding != 0) << x << ' ' << y << text_of(ring);
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
