// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The subject's part outside all polygons of a fence.
#include "clip/keep.h"

#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/random.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

Rings kept(const Fence& fence, const Ring& subject) {
  clip::Subject s;
  FencePolygon& ring = build(s, fence, subject);
  ClipExtent limit = ring.extent;
  PieceList sink;
  clip::keep_outside(*fence.handle(), ring, limit, sink);
  return sink.pieces;
}

// Outlines are expected as given here, clockwise; holes counter-clockwise.
void expect_kept(const Rings& fence, const Ring& subject, const Rings& expected) {
  for (std::size_t first = 0; first < subject.size(); ++first) {
    const Fence f(fence, CL_KEEP_OUTSIDE);
    EXPECT_EQ(normal_text(kept(f, rotated(subject, first))), normal_text(expected)) << first;
    EXPECT_EQ(normal_text(kept(f, rotated(reversed(subject), first))), normal_text(expected)) << first;
  }
}

Ring outline(double x0, double y0, double x1, double y1) {
  return reversed(rectangle(x0, y0, x1, y1));
}

const Ring kLeft = rectangle(0, 0, 10, 10), kRight = rectangle(20, 0, 30, 10);

TEST(KeepOutside, ASubjectInsideLeavesNothing) {
  expect_kept({kLeft}, rectangle(2, 3, 4, 5), {});
  expect_kept({kLeft}, kLeft, {});
  expect_kept({kLeft, kRight}, rectangle(22, 3, 24, 5), {});
  expect_kept({kLeft}, rectangle(0, 3, 4, 10), {});  // shares edge parts from within
}

// Fence polygons should not overlap; where they do, one that holds the subject settles it.
TEST(KeepOutside, NothingIsLeftWhenOneHoldsTheSubjectWhateverTheOthersDo) {
  const Ring subject = rectangle(2, 3, 8, 5), across = rectangle(4, -5, 6, 15),
             within = rectangle(3, 3.5, 4, 4);
  for (const Rings& fence : {Rings{kLeft, across}, Rings{across, kLeft}, Rings{kLeft, within},
                             Rings{within, kLeft}, Rings{kLeft, kLeft}}) {
    expect_kept(fence, subject, {});
  }
}

TEST(KeepOutside, ASubjectElsewhereIsKeptWholeAndOnce) {
  expect_kept({kLeft}, rectangle(12, 3, 14, 5), {outline(12, 3, 14, 5)});
  expect_kept({kLeft, kRight}, rectangle(12, 3, 14, 5), {outline(12, 3, 14, 5)});
  expect_kept({kLeft, kRight}, rectangle(10, 3, 20, 5), {outline(10, 3, 20, 5)});  // touches both
  expect_kept({kLeft, kRight}, rectangle(100, 3, 120, 5), {outline(100, 3, 120, 5)});
}

TEST(KeepOutside, AFencePolygonInsideTheSubjectIsAHole) {
  expect_kept({kLeft}, rectangle(-5, -5, 50, 50), {outline(-5, -5, 50, 50), kLeft});
  expect_kept({kLeft, kRight}, rectangle(-5, -5, 50, 50), {outline(-5, -5, 50, 50), kLeft, kRight});
}

TEST(KeepOutside, PiecesAreWrittenOnceWhateverTheNumberOfFencePolygons) {
  expect_kept({kLeft, kRight}, rectangle(5, 3, 25, 5), {outline(10, 3, 20, 5)});
  expect_kept({kLeft, kRight}, rectangle(-5, 3, 35, 5),
              {outline(-5, 3, 0, 5), outline(10, 3, 20, 5), outline(30, 3, 35, 5)});
}

TEST(KeepOutside, PiecesAndHolesStandTogether) {
  expect_kept({kLeft, rectangle(12, 4, 14, 6)}, rectangle(5, 3, 25, 7),
              {outline(10, 3, 25, 7), rectangle(12, 4, 14, 6)});
}

TEST(KeepOutside, FencePolygonsThatShareAnEdgeAreTakenOffTogether) {
  const Rings pair = {kLeft, rectangle(10, 0, 20, 10)};
  expect_kept(pair, rectangle(5, 3, 15, 5), {});
  expect_kept(pair, rectangle(5, 3, 25, 5), {outline(20, 3, 25, 5)});
  expect_kept(pair, rectangle(-5, 3, 25, 5), {outline(-5, 3, 0, 5), outline(20, 3, 25, 5)});
}

TEST(KeepOutside, FencePolygonsThatShareACornerAreTakenOffTogether) {
  const Rings pair = {kLeft, rectangle(10, 10, 20, 20)};
  const Rings pieces = kept(Fence(pair, CL_KEEP_OUTSIDE), rectangle(5, 5, 15, 15));
  EXPECT_EQ(kept_area(pieces), 50);  // the corner lies inside the subject: one outline passes it twice
}

TEST(KeepOutside, TheOverlapStateTellsWhatWasFound) {
  const Fence fence({kLeft, kRight, rectangle(40, 0, 41, 1)}, CL_KEEP_OUTSIDE);
  kept(fence, rectangle(-5, -5, 35, 30));
  EXPECT_EQ(fence.handle()->overlap, 3);
  EXPECT_EQ(fence.handle()->nextPoly->overlap, 3);
  EXPECT_EQ(fence.handle()->nextPoly->nextPoly->overlap, 0);
  kept(fence, rectangle(2, 3, 4, 5));
  EXPECT_EQ(fence.handle()->overlap, 2);
}

TEST(KeepOutside, InsideAndOutsideTogetherAreTheSubject) {
  constexpr std::uint64_t kSeed = 0x0B5;
  for (int i = 0; i < 500; ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Rings fence = grid_disjoint(random, 4);
    const Ring subject = grid_polygon(random);
    const Pieces inside = clip_polygon(Fence(fence, CL_KEEP_INSIDE), subject);
    const Pieces outside = clip_polygon(Fence(fence, CL_KEEP_OUTSIDE), subject);
    ASSERT_EQ(inside.status, CL_OK);
    ASSERT_EQ(outside.status, CL_OK);
    EXPECT_NEAR(kept_area(inside.rings) + kept_area(outside.rings), area(subject), 1e-9 * area(subject))
        << text_of(subject) << " fence " << text_of(fence);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
