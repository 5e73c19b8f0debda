// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The polygon clip through its exported call: arguments, results, regions of degenerate input. Its behaviour
// at its limits (room, memory, numbers that are not finite, size) is in polygon_clip_limits_test.cpp.
//
// Not tested: that the engine reads the marker fields in no other way than its phases' tests show; nothing
// outside the library can see it.
#include "clip/polygon_clip.h"

#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/halfspace.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <climits>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};  // clockwise

Rings clip(const Rings& fence, int mode, const Ring& subject, int dim = 2, FenceShape shape = {}) {
  const Pieces pieces = clip_polygon(Fence(fence, mode, shape), subject, dim);
  EXPECT_EQ(pieces.status, CL_OK) << text_of(subject);
  EXPECT_TRUE(pieces.canaries && pieces.counted);
  return pieces.rings;
}

// What is kept inside and outside, by area, whatever the rings' directions and first points.
void expect_areas(const Ring& fence, const Ring& subject, double inside) {
  for (std::size_t i = 0; i < fence.size(); ++i) {
    for (std::size_t k = 0; k < subject.size(); ++k) {
      for (const Ring& s : {rotated(subject, k), rotated(reversed(subject), k)}) {
        EXPECT_NEAR(kept_area(clip({rotated(fence, i)}, CL_KEEP_INSIDE, s)), inside, 1e-9) << text_of(s) << i;
        EXPECT_NEAR(kept_area(clip({rotated(fence, i)}, CL_KEEP_OUTSIDE, s)), area(subject) - inside, 1e-9)
            << text_of(s) << i;
      }
    }
  }
}

TEST(PolygonClip, ASubjectInsideIsReturnedUnchangedOrNotAtAll) {
  const Ring subject = {{3, 3}, {3, 7}, {7, 7}, {7, 3}};
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, subject), Rings{subject});
  EXPECT_TRUE(clip({kSquare}, CL_KEEP_OUTSIDE, subject).empty());
}

TEST(PolygonClip, ASubjectOutsideIsReturnedUnchangedOrNotAtAll) {
  const Ring subject = {{13, 3}, {13, 7}, {17, 7}, {17, 3}};
  EXPECT_TRUE(clip({kSquare}, CL_KEEP_INSIDE, subject).empty());
  EXPECT_EQ(clip({kSquare}, CL_KEEP_OUTSIDE, subject), Rings{subject});
}

TEST(PolygonClip, ASubjectAroundTheFenceKeepsTheFenceOrGetsAHole) {
  const Ring subject = {{-5, -5}, {-5, 15}, {15, 15}, {15, -5}};
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, subject), Rings{kSquare});
  const Rings with_hole = clip({kSquare}, CL_KEEP_OUTSIDE, subject);
  ASSERT_EQ(with_hole.size(), 2u);
  EXPECT_EQ(with_hole[0], subject);
  EXPECT_GT(signed_area(with_hole[1]), 0);
  EXPECT_EQ(area(with_hole[1]), 100);
}

TEST(PolygonClip, PiecesAreOpenRingsAndStartWhereTheSubjectEnters) {
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, {{5, 5}, {5, 15}, {8, 15}, {8, 5}}),
            (Rings{{{8, 10}, {8, 5}, {5, 5}, {5, 10}}}));
}

// The cross product of the edges is what counts, not their angle and not the unit.
TEST(PolygonClip, NearlyParallelEdgesNeverIntersect) {
  const Fence inside({{{0, 0}, {0, 0.2}, {0.2, 0.2}, {0.2, 0}}}, CL_KEEP_INSIDE);
  const Ring shifted = {{0.1, 0.1}, {0.1, 0.3}, {0.3, 0.3}, {0.3, 0.1}};
  const Pieces small = clip_polygon(inside, shifted);
  EXPECT_EQ(small.status, CL_OK);
  EXPECT_TRUE(small.rings.empty());  // the squares overlap, but no edges met and neither ring holds the other
  // A quarter larger the cross product is 0.0625.
  const Rings large =
      clip({enlarged(rectangle(0, 0, 0.2, 0.2), 1.25)}, CL_KEEP_INSIDE, enlarged(shifted, 1.25));
  ASSERT_EQ(large.size(), 1u);
  EXPECT_NEAR(area(large[0]), 0.015625, 1e-12);
}

TEST(PolygonClip, IdenticalPolygonsCountAsInside) {
  expect_areas(kSquare, kSquare, 100);
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, kSquare), Rings{kSquare});
  EXPECT_TRUE(clip({kSquare}, CL_KEEP_OUTSIDE, kSquare).empty());
  const Ring l = {{0, 0}, {0, 10}, {5, 10}, {5, 5}, {10, 5}, {10, 0}};
  expect_areas(l, l, 75);
}

TEST(PolygonClip, SharedEdgesOfEitherSide) {
  expect_areas(kSquare, rectangle(0, 2, 5, 8), 30);     // inside, part of an edge
  expect_areas(kSquare, rectangle(-5, 2, 0, 8), 0);     // outside
  expect_areas(kSquare, rectangle(0, 0, 5, 10), 50);    // three shared edges
  expect_areas(kSquare, rectangle(0, -5, 5, 15), 50);   // enters and leaves along the edge
  expect_areas(kSquare, rectangle(0, 0, 20, 20), 100);  // two shared edges, around
  expect_areas(kSquare, rectangle(-5, 0, 15, 10), 100);
}

TEST(PolygonClip, CollinearVerticesOnASharedEdge) {
  expect_areas({{0, 0}, {0, 3}, {0, 6}, {0, 10}, {10, 10}, {10, 0}},
               {{0, 2}, {0, 4}, {0, 6}, {0, 8}, {5, 8}, {5, 2}}, 30);
  expect_areas({{0, 0}, {0, 3}, {0, 6}, {0, 10}, {10, 10}, {10, 0}}, {{0, -5}, {0, 5}, {0, 15}, {-5, 15}}, 0);
}

TEST(PolygonClip, SharedVerticesAndVerticesOnEdges) {
  expect_areas(kSquare, {{10, 10}, {15, 15}, {15, 9}}, 0);  // a corner, from outside
  expect_areas(kSquare, {{10, 10}, {5, 8}, {8, 5}}, 10.5);  // from inside
  expect_areas(kSquare, {{0, 5}, {-5, 2}, {-5, 8}}, 0);     // a vertex on an edge, from outside
  expect_areas(kSquare, {{0, 5}, {5, 8}, {5, 2}}, 15);      // from inside
  expect_areas(kSquare, {{0, 5}, {5, 10}, {10, 5}, {5, 0}}, 50);
  expect_areas({{0, 5}, {5, 10}, {10, 5}, {5, 0}}, kSquare, 50);
}

TEST(PolygonClip, CrossingsExactlyThroughVertices) {
  expect_areas(kSquare, {{-5, -5}, {15, 15}, {15, -5}}, 50);
  expect_areas(kSquare, {{-5, 5}, {5, 15}, {15, 5}, {5, -5}}, 100);  // all four corners touched by its edges
  expect_areas(kSquare, {{0, 5}, {5, 5}, {5, 20}, {-20, 20}, {-20, 5}}, 25);
}

TEST(PolygonClip, ChainsOfSharedEdgesEnteringAndLeaving) {
  const Ring stairs = {{0, 0}, {0, 30}, {10, 30}, {10, 20}, {20, 20}, {20, 10}, {30, 10}, {30, 0}};
  expect_areas(stairs, {{10, 40}, {10, 20}, {20, 20}, {20, 5}, {40, 5}, {40, 40}}, 50);
  expect_areas(stairs, {{10, 40}, {10, 20}, {20, 20}, {20, 10}, {30, 10}, {40, 40}}, 0);
  expect_areas(stairs, {{10, 30}, {10, 20}, {20, 20}, {20, 10}, {0, 0}},
               area(Ring{{10, 30}, {10, 20}, {20, 20}, {20, 10}, {0, 0}}));
}

// A walk may be far longer than the subject.
TEST(PolygonClip, APieceMayTakeInAnyNumberOfFenceVertices) {
  Random random(0x1046);
  const Ring around = star(random, 200, 50, 90), half = {{-200, 3}, {-200, 200}, {200, 200}, {200, 3}};
  const double inside = kept_area(clip({around}, CL_KEEP_INSIDE, half));
  EXPECT_GT(inside, 1000);
  EXPECT_NEAR(inside, kept_area(clip({half}, CL_KEEP_INSIDE, around)), 1e-6);
  EXPECT_NEAR(kept_area(clip({around}, CL_KEEP_OUTSIDE, half)), area(half) - inside, 1e-6);
}

TEST(PolygonClip, ASubjectEdgeWithinTheToleranceOfAFenceVertexMeetsItThere) {
  // Past the corner (10, 10) by 0.000004: no vertex beside it appears in the output.
  for (const double off : {-0.000004, 0.0, 0.000004}) {
    const Ring subject = {{5, 15 + off}, {15 + off, 5}, {-20, -20}};
    int corners = 0;
    for (const Ring& piece : clip({kSquare}, CL_KEEP_INSIDE, subject)) {
      for (const Point& p : piece) {
        const bool near_corner = p.x > 9.99 && p.y > 9.99;
        EXPECT_TRUE(!near_corner || (p.x == 10 && p.y == 10)) << text_of(piece);
        corners += near_corner ? 1 : 0;
      }
    }
    EXPECT_EQ(corners, 1) << off;
  }
}

TEST(PolygonClip, ARepeatedClosingPointMakesNoDifference) {
  const Ring open = {{5, 5}, {5, 15}, {8, 15}, {8, 5}};
  for (const Point& last : {Point{5, 5}, Point{5.0009, 4.9991}}) {
    Ring closed = open;
    closed.push_back(last);
    for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
      EXPECT_EQ(clip({kSquare}, mode, closed), clip({kSquare}, mode, open));
    }
  }
}

TEST(PolygonClip, NothingLeftIsSuccessWithoutPieces) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  for (const Ring& subject : {Ring{{20, 20}, {20, 30}, {30, 30}}, Ring{{1, 1}}, Ring{{1, 1}, {2, 2}},
                              Ring{{1, 1}, {2, 2}, {3, 3}}, Ring{{5, 5}, {5, 5.0002}, {5.0002, 5}}}) {
    const std::vector<double> flat = flatten(subject, 2);
    int pieces = 3, counts[3] = {77, 77, 77}, points = 9;
    double out[27];
    const int status = CLclipPolygon(fence.handle(), 2, static_cast<int>(subject.size()), flat.data(),
                                     &pieces, counts, out, &points);
    EXPECT_EQ(status, CL_OK);
    EXPECT_LE(pieces, 1);
    if (area(subject) > 1e-3 || area(subject) == 0) {
      EXPECT_EQ(pieces, 0);
      EXPECT_EQ(points, 0);
      EXPECT_EQ(counts[0], 0);
    }
  }
}

// The ring is cut to the range in depth first; what lies above or below is nothing, in either mode.
TEST(PolygonClip, OutsideTheDepthRangeNothingIsKeptInEitherMode) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Ring above = lifted(rectangle(20, 20, 30, 30), 0, 0, 11);
    EXPECT_TRUE(clip({kSquare}, mode, above, 3, {3, 0, 10}).empty());
    EXPECT_TRUE(clip({kSquare}, mode, lifted(kSquare, 0, 0, -1), 3, {3, 0, 10}).empty());
  }
}

TEST(PolygonClip, AFlatSubjectLiesAtDepthZero) {
  const Ring subject = {{3, 3}, {3, 7}, {7, 7}, {7, 3}};
  EXPECT_TRUE(clip({kSquare}, CL_KEEP_INSIDE, subject, 2, {2, 1, 5}).empty());
  EXPECT_TRUE(clip({kSquare}, CL_KEEP_OUTSIDE, moved(subject, 50, 0), 2, {2, 1, 5}).empty());
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, subject, 2, {2, 0, 5}), Rings{subject});
}

TEST(PolygonClip, ASubjectFlatInABoundIsKept) {
  for (const double z : {0.0, 10.0}) {
    const Ring subject = lifted({{3, 3}, {3, 7}, {7, 7}, {7, 3}}, 0, 0, z);
    EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, subject, 3, {3, 0, 10}), Rings{subject});
  }
}

TEST(PolygonClip, CrossingsCarryTheSubjectsZ) {
  const Rings pieces = clip({lifted(kSquare, 0, 0, 77)}, CL_KEEP_INSIDE,
                            {{5, 5, 1}, {5, 15, 3}, {8, 15, 5}, {8, 5, 7}}, 3, {3, -100, 100});
  EXPECT_EQ(pieces, (Rings{{{8, 10, 6}, {8, 5, 7}, {5, 5, 1}, {5, 10, 2}}}));
}

TEST(PolygonClip, ADeepSubjectKeepsItsPartWithinTheRangeAndTheFence) {
  constexpr std::uint64_t kSeed = 0x3DDD;
  for (int i = 0; i < scaled(500); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const double a = random.between(-1.0, 1.0);
    const Ring subject = lifted(any_shape(random, 100), a, 0.3, 1);
    const Ring around = rectangle(-200, -200, 200, 200);
    const double low = random.between(-60.0, 0.0);
    const double high = random.between(0.0, 60.0);
    const Rings pieces = clip({around}, CL_KEEP_INSIDE, subject, 3, {3, low, high});
    EXPECT_NEAR(kept_area(pieces), area(keep_between(subject, low, high)), 1e-7);
  }
}

TEST(PolygonClip, NoRoomAsksForAsManyPiecesAsPointsAndTwiceThePoints) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const std::vector<double> flat = flatten(kSquare, 2);
  int counts[9];
  double out[99];
  const auto ask = [&](int pieces, int* c, double* o, int points, int expected_pieces, int expected_points,
                       const double* subject) {
    EXPECT_EQ(CLclipPolygon(fence.handle(), 2, 4, subject, &pieces, c, o, &points), CL_TOO_SMALL);
    EXPECT_EQ(pieces, expected_pieces);
    EXPECT_EQ(points, expected_points);
  };
  ask(0, counts, out, 0, 4, 8, flat.data());
  ask(0, nullptr, nullptr, 0, 4, 8, flat.data());
  ask(-7, counts, out, 3, 4, 3, flat.data());
  ask(2, counts, out, -1, 2, 8, flat.data());
  ask(2, nullptr, out, 9, 2, 9, flat.data());
  ask(2, counts, nullptr, 9, 2, 9, flat.data());
  ask(2, counts, out, 9, 2, 9, nullptr);
}

// Room is asked for before the other arguments are looked at.
TEST(PolygonClip, TheCheckForRoomComesBeforeTheOtherArguments) {
  int pieces = 0, points = 0;
  EXPECT_EQ(CLclipPolygon(nullptr, 77, 5, nullptr, &pieces, nullptr, nullptr, &points), CL_TOO_SMALL);
  EXPECT_EQ(pieces, 5);
  EXPECT_EQ(points, 10);
}

TEST(PolygonClip, ArgumentsThatAreNullOrOutOfRangeAreRefused) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const std::vector<double> flat = flatten(kSquare, 2);
  int pieces = 5, counts[5], points = 5;
  double out[15];
  EXPECT_EQ(CLclipPolygon(nullptr, 2, 4, flat.data(), &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 1, 4, flat.data(), &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 4, 4, flat.data(), &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 2, 0, flat.data(), &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 2, -4, flat.data(), &pieces, counts, out, &points),
            CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 2, INT_MAX, flat.data(), &pieces, counts, out, &points),
            CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 2, 4, flat.data(), nullptr, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipPolygon(fence.handle(), 2, 4, flat.data(), &pieces, counts, out, nullptr), CL_BAD_ARGUMENT);
}

// A subject that crosses itself has no inside to follow: the walk may take in a fence corner far away.
TEST(PolygonClip, OutputThatLeavesTheSubjectsExtentIsReportedAsInconsistent) {
  const struct {
    Ring fence, subject;
  } beyond_one_side[] = {
      {{{50, 10}, {0, 10}, {60, 60}}, {{30, 50}, {60, 30}, {10, 50}, {30, 10}, {60, 40}}},
      {{{0, 30}, {20, 50}, {60, 30}}, {{10, 60}, {0, 20}, {30, 30}, {50, 0}, {20, 0}}},
      {{{50, 30}, {20, 60}, {50, 0}}, {{60, 40}, {30, 30}, {50, 10}, {10, 30}, {0, 10}}},
      {{{20, 40}, {30, 10}, {10, 60}}, {{20, 50}, {0, 20}, {30, 10}, {40, 30}, {0, 20}}},
  };
  for (const auto& c : beyond_one_side) {
    EXPECT_EQ(clip_polygon(Fence({c.fence}, CL_KEEP_OUTSIDE), c.subject).status, CL_INCONSISTENT)
        << text_of(c.subject);
  }
  const Fence fence({{{20, 0}, {60, 30}, {40, 60}}}, CL_KEEP_OUTSIDE);
  const Pieces pieces = clip_polygon(fence, {{0, 10}, {0, 50}, {20, 0}, {30, 10}, {40, 10}});
  EXPECT_EQ(pieces.status, CL_INCONSISTENT);
  EXPECT_TRUE(pieces.canaries);
  // It is told after the lack of room, not instead of it.
  const Pieces grown = clip_polygon(fence, {{0, 10}, {0, 50}, {20, 0}, {30, 10}, {40, 10}}, 2, Room{1, 1});
  EXPECT_EQ(grown.status, CL_INCONSISTENT);
  EXPECT_EQ(grown.calls, 2);
}

// Snapping to the fence may write a corner a hair outside the subject; that is no inconsistency.
TEST(PolygonClip, LinkedVerticesBelongToTheExtentThatOutputMustNotLeave) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 5}}}, CL_KEEP_INSIDE);
  for (const Ring& subject : {Ring{{2, 0}, {2, 20}, {9.999996, 20}, {9.999996, 0}},
                              Ring{{9.999996, 5}, {9.999996, 0}, {2, 0}, {2, 5}}}) {
    const Pieces pieces = clip_polygon(fence, subject);
    EXPECT_EQ(pieces.status, CL_OK);
    EXPECT_GT(kept_area(pieces.rings), 10);
  }
}

// A fence's state from one clip does not reach the next.
TEST(PolygonClip, AFenceGivesTheSameAnswerEveryTime) {
  Random random(0xFE9CE);
  const Rings polygons = disjoint_shapes(random, 4, 100);
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence used(polygons, mode);
    for (int i = 0; i < 50; ++i) {
      const Ring subject = any_shape(random, 120);
      const Pieces again = clip_polygon(used, subject), fresh = clip_polygon(Fence(polygons, mode), subject);
      EXPECT_EQ(again.status, fresh.status);
      EXPECT_EQ(again.rings, fresh.rings);
    }
  }
}

TEST(PolygonClip, OnTheGridInsideAndOutsideTogetherAreTheSubject) {
  constexpr std::uint64_t kSeed = 0x941D;
  for (int i = 0; i < scaled(3000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    GridKin kin;
    const GridPair pair = grid_pair(random, &kin);
    const double inside = kept_area(clip({pair.fence}, CL_KEEP_INSIDE, pair.subject));
    const double outside = kept_area(clip({pair.fence}, CL_KEEP_OUTSIDE, pair.subject));
    const double other_way = kept_area(clip({pair.subject}, CL_KEEP_INSIDE, pair.fence));
    EXPECT_NEAR(inside + outside, area(pair.subject), 1e-9 * area(pair.subject));
    EXPECT_NEAR(inside, other_way, 1e-9 * area(pair.subject)) << text_of(pair.subject) << text_of(pair.fence);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
