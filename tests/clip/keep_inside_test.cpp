// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The subject's part in each polygon of a fence that keeps its inside.
#include "clip/keep.h"

#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

Rings kept(const Fence& fence, const Ring& subject) {
  clip::Subject s;
  FencePolygon& ring = build(s, fence, subject);
  ClipExtent limit = ring.extent;
  PieceList sink;
  clip::keep_inside(*fence.handle(), ring, limit, sink);
  return sink.pieces;
}

Rings clockwise(Rings rings) {
  for (Ring& ring : rings) {
    if (signed_area(ring) > 0) ring = reversed(ring);
  }
  return rings;
}

void expect_kept(const Rings& fence, const Ring& subject, const Rings& expected) {
  for (std::size_t first = 0; first < subject.size(); ++first) {
    const Fence f(fence, CL_KEEP_INSIDE);
    EXPECT_EQ(normal_text(kept(f, rotated(subject, first))), normal_text(clockwise(expected))) << first;
    EXPECT_EQ(normal_text(kept(f, rotated(reversed(subject), first))), normal_text(clockwise(expected)))
        << first;
  }
}

const Ring kLeft = rectangle(0, 0, 10, 10), kRight = rectangle(20, 0, 30, 10);

TEST(KeepInside, ASubjectInsideIsKeptWhole) {
  expect_kept({kLeft}, rectangle(2, 3, 4, 5), {rectangle(2, 3, 4, 5)});
  expect_kept({kLeft}, kLeft, {kLeft});
}

TEST(KeepInside, AFencePolygonInsideTheSubjectIsKeptWhole) {
  expect_kept({kLeft}, rectangle(-5, -5, 50, 50), {kLeft});
}

TEST(KeepInside, ASubjectElsewhereLeavesNothing) {
  expect_kept({kLeft}, rectangle(12, 3, 14, 5), {});
  expect_kept({kLeft}, rectangle(10, 3, 14, 5), {});                           // touches along an edge
  expect_kept({kLeft}, {{10, 10}, {14, 10}, {14, 15}}, {});                    // touches at a corner
  expect_kept({{{0, 0}, {10, 10}, {0, 10}}}, {{5, 0}, {10, 0}, {10, 5}}, {});  // within the extent
}

TEST(KeepInside, EachFencePolygonKeepsItsPart) {
  expect_kept({kLeft, kRight}, rectangle(5, 3, 25, 5), {rectangle(5, 3, 10, 5), rectangle(20, 3, 25, 5)});
  expect_kept({kLeft, kRight}, rectangle(-5, 3, 15, 5), {rectangle(0, 3, 10, 5)});
  expect_kept({kLeft, kRight}, rectangle(-5, -5, 50, 50), {kLeft, kRight});
  expect_kept({kLeft, kRight}, rectangle(5, -6, 50, 58), {rectangle(5, 0, 10, 10), kRight});
  expect_kept({kLeft, kRight}, rectangle(22, 3, 24, 5), {rectangle(22, 3, 24, 5)});
}

// Crossings with one polygon say nothing about the others.
TEST(KeepInside, CrossingsAreAskedForEachFencePolygonAlone) {
  const Ring around = {{-5, 5}, {35, 5}, {35, 20}, {-5, 20}};
  expect_kept({kLeft, rectangle(12, 7, 15, 9)}, around, {rectangle(0, 5, 10, 10), rectangle(12, 7, 15, 9)});
}

TEST(KeepInside, FencePolygonsThatShareAnEdgeKeepTheirPartsApart) {
  expect_kept({kLeft, rectangle(10, 0, 20, 10)}, rectangle(5, 3, 15, 5),
              {rectangle(5, 3, 10, 5), rectangle(10, 3, 15, 5)});
}

TEST(KeepInside, PiecesComeInTheOrderOfTheFencesPolygons) {
  const Ring strip = rectangle(5, 3, 25, 5);
  const Rings left_first = kept(Fence({kLeft, kRight}, CL_KEEP_INSIDE), strip);
  const Rings right_first = kept(Fence({kRight, kLeft}, CL_KEEP_INSIDE), strip);
  ASSERT_EQ(left_first.size(), 2u);
  ASSERT_EQ(right_first.size(), 2u);
  EXPECT_EQ(left_first[0], right_first[1]);
  EXPECT_EQ(left_first[1], right_first[0]);
}

TEST(KeepInside, TheOverlapStateTellsWhatWasFound) {
  const Fence fence({kLeft, kRight, rectangle(40, 0, 41, 1), rectangle(2, 20, 3, 21)}, CL_KEEP_INSIDE);
  kept(fence, rectangle(-5, -5, 35, 30));
  const FencePolygon* f = fence.handle();
  EXPECT_EQ(f->overlap, 3);
  EXPECT_EQ(f->nextPoly->overlap, 3);
  EXPECT_EQ(f->nextPoly->nextPoly->overlap, 0);
  EXPECT_EQ(f->nextPoly->nextPoly->nextPoly->overlap, 3);
  kept(fence, rectangle(2, 3, 4, 5));
  EXPECT_EQ(f->overlap, 2);
  EXPECT_EQ(f->nextPoly->overlap, 0);
  kept(fence, rectangle(5, 3, 25, 5));
  EXPECT_EQ(f->overlap, 1);
  EXPECT_EQ(f->nextPoly->overlap, 1);
}

TEST(KeepInside, ASecondClipDoesNotSeeTheFirst) {
  const Fence fence({kLeft}, CL_KEEP_INSIDE);
  const Ring subject = rectangle(5, 5, 15, 15);
  const Rings first = kept(fence, subject);
  kept(fence, rectangle(-5, 2, 15, 7));
  EXPECT_EQ(kept(fence, subject), first);
}

}  // namespace
}  // namespace Corvane::Print::tests
