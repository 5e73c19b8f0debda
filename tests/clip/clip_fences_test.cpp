// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The intersection of two fences: its short cuts, its depth, what it leaves alone, and, over random fences,
// that it is what a caller gets who copies the subject's polygons out and clips them one by one.
//
// What the shared memories start with is looked at before any test has used them.
#include "clip/clip_memory.h"
#include "clip/line_rect.h"
#include "clip/records.h"
#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/area.h"
#include "tests/support/clip_call.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

const Ring kTriangle = {{0, 0, 0}, {20, 0, 0}, {0, 20, 0}};

const CLclpMemType g_first_values[2] = {clip::clipMem1, clip::clipMem2};

TEST(ClipFences, TheSharedMemoriesStartWithoutArraysAndWithModestRequests) {
  for (const CLclpMemType& memory : g_first_values) {
    EXPECT_EQ(memory.dim, 3);
    EXPECT_EQ(memory.polyRequest, 25);
    EXPECT_EQ(memory.polyCapacity, 0);
    EXPECT_EQ(memory.counts, nullptr);
    EXPECT_EQ(memory.pointRequest, 150);
    EXPECT_EQ(memory.pointCapacity, 0);
    EXPECT_EQ(memory.points, nullptr);
  }
}

Fence box(double x0, double y0, double x1, double y1, FenceShape shape = {}, int mode = CL_KEEP_INSIDE) {
  return Fence({{{x0, y0, 0}, {x1, y1, 0}}}, mode, shape);
}

FencePolygon& header(const FenceResult& result) {
  return *result.fence.handle();
}

FencePolygon* not_a_fence() {
  static FencePolygon nowhere;
  return &nowhere;
}

// The status of an intersection whose handle starts as not_a_fence(), and that handle.
struct Outcome {
  int status;
  CLFenceHandle handle;
};
Outcome outcome(const Fence& clip, const Fence& subject) {
  Outcome o{0, not_a_fence()};
  o.status = CLclipFences(clip.handle(), subject.handle(), &o.handle);
  return o;
}

TEST(ClipFences, NullArgumentsAreRefusedAndTheHandleStays) {
  const Fence fence = box(0, 0, 10, 10);
  CLFenceHandle result = not_a_fence();
  EXPECT_EQ(CLclipFences(nullptr, fence.handle(), &result), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipFences(fence.handle(), nullptr, &result), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipFences(fence.handle(), fence.handle(), nullptr), CL_BAD_ARGUMENT);
  EXPECT_EQ(result, not_a_fence());
}

TEST(ClipFences, DisjointDepthsLeaveTheHandleUntouched) {
  const FenceShape low{3, 0, 5}, high{3, 5.5, 9};
  const Rings triangle = {kTriangle};
  const struct {
    Fence a, b;
  } pairs[] = {{box(0, 0, 10, 10, low), box(0, 0, 10, 10, high)},
               {Fence(triangle, CL_KEEP_INSIDE, low), Fence(triangle, CL_KEEP_INSIDE, high)},
               {Fence(triangle, CL_KEEP_OUTSIDE, low), box(0, 0, 10, 10, high)}};
  for (const auto& pair : pairs) {
    for (const Outcome& o : {outcome(pair.a, pair.b), outcome(pair.b, pair.a)}) {
      EXPECT_EQ(o.status, CL_EMPTY);
      EXPECT_EQ(o.handle, not_a_fence());
    }
  }
}

TEST(ClipFences, TwoSolidFencesShareTheirCommonDepth) {
  const struct {
    FenceShape clip, subject;
    double low, high;
  } cases[] = {{{3, 0, 5}, {3, 3, 9}, 3, 5}, {{3, 3, 9}, {3, 0, 5}, 3, 5}, {{3, 0, 9}, {3, 2, 4}, 2, 4},
               {{3, 2, 4}, {3, 0, 9}, 2, 4}, {{3, 0, 5}, {3, 5, 9}, 5, 5}, {{3, 5, 9}, {3, 0, 5}, 5, 5},
               {{3, 1, 1}, {3, 1, 1}, 1, 1}};
  for (const auto& c : cases) {
    const FenceResult boxes = clip_fences(box(0, 0, 10, 10, c.clip), box(5, 5, 20, 20, c.subject));
    ASSERT_EQ(boxes.status, CL_OK);
    EXPECT_TRUE(header(boxes).extent.zmin == c.low && header(boxes).extent.zmax == c.high);
    const Ring triangle = lifted(kTriangle, 0, 0, c.low);
    const FenceResult general = clip_fences(Fence({triangle}, CL_KEEP_INSIDE, c.clip),
                                            Fence({moved(triangle, 2, 2)}, CL_KEEP_INSIDE, c.subject));
    ASSERT_EQ(general.status, CL_OK);
    EXPECT_TRUE(header(general).extent.zmin == c.low && header(general).extent.zmax == c.high);
  }
}

TEST(ClipFences, WithAFlatFenceTheDepthIsTheSubjects) {
  const struct {
    FenceShape clip, subject;
  } cases[] = {{{2, 0, 5}, {3, 6, 9}}, {{3, 0, 5}, {2, 6, 9}}, {{2, 0, 5}, {2, 6, 9}}};
  for (const auto& c : cases) {
    const FenceResult boxes = clip_fences(box(0, 0, 10, 10, c.clip), box(5, 5, 20, 20, c.subject));
    ASSERT_EQ(boxes.status, CL_OK);
    EXPECT_EQ(header(boxes).dim, c.subject.dim);
    EXPECT_TRUE(header(boxes).extent.zmin == 6 && header(boxes).extent.zmax == 9);
  }
  const FenceResult general = clip_fences(Fence({kTriangle}, CL_KEEP_INSIDE, {3, 0, 5}),
                                          Fence({moved(kTriangle, 2, 2)}, CL_KEEP_INSIDE, {2, 6, 9}));
  ASSERT_EQ(general.status, CL_OK);
  EXPECT_TRUE(header(general).extent.zmin == 6 && header(general).extent.zmax == 9);
  // The vertices of a solid subject still have to lie within the flat fence's own range.
  const Fence flat({kTriangle}, CL_KEEP_INSIDE, {2, 0, 5});
  const Ring low = lifted(moved(kTriangle, 2, 2), 0, 0, 3), high = lifted(moved(kTriangle, 2, 2), 0, 0, 7);
  const FenceResult solid = clip_fences(flat, Fence({low}, CL_KEEP_INSIDE, {3, 6, 9}));
  ASSERT_EQ(solid.status, CL_OK);
  EXPECT_EQ(header(solid).dim, 3);
  EXPECT_TRUE(header(solid).extent.zmin == 6 && header(solid).extent.zmax == 9);
  EXPECT_EQ(clip_fences(flat, Fence({high}, CL_KEEP_INSIDE, {3, 6, 9})).status, CL_EMPTY);
}

TEST(ClipFences, RectanglesApartGiveEmptyAndANullHandle) {
  const Fence middle = box(0, 0, 10, 10);
  for (const Ring& corners : {Ring{{10.5, 0, 0}, {20, 10, 0}}, Ring{{-20, 0, 0}, {-0.5, 10, 0}},
                              Ring{{0, 10.5, 0}, {10, 20, 0}}, Ring{{0, -20, 0}, {10, -0.5, 0}}}) {
    const Outcome o = outcome(middle, Fence({corners}, CL_KEEP_INSIDE));
    EXPECT_EQ(o.status, CL_EMPTY);
    EXPECT_EQ(o.handle, nullptr);
  }
}

TEST(ClipFences, RectanglesThatTouchGiveARectangleWithoutWidth) {
  const FenceResult side = clip_fences(box(0, 0, 10, 10), box(10, 2, 20, 8));
  ASSERT_EQ(side.status, CL_OK);
  EXPECT_TRUE(header(side).extent.xmin == 10 && header(side).extent.xmax == 10);
  EXPECT_TRUE(header(side).extent.ymin == 2 && header(side).extent.ymax == 8);
  EXPECT_EQ(header(side).area, 0);
  EXPECT_EQ(header(side).lineClipper, clip::clip_line_rect);
  const FenceResult corner = clip_fences(box(0, 0, 10, 10), box(10, 10, 20, 20));
  ASSERT_EQ(corner.status, CL_OK);
  EXPECT_EQ(header(corner).vertexCount, 1);
}

TEST(ClipFences, TwoRectanglesGiveTheirCommonRectangle) {
  const FenceResult result = clip_fences(box(0, 0, 10, 12), box(4, -3, 30, 7));
  ASSERT_EQ(result.status, CL_OK);
  EXPECT_EQ(extract_polygons(result.fence).rings,
            (Rings{{{4, 0, 0}, {4, 7, 0}, {10, 7, 0}, {10, 0, 0}, {4, 0, 0}}}));
  EXPECT_EQ(header(result).lineClipper, clip::clip_line_rect);
  EXPECT_EQ(header(result).mode, CL_KEEP_INSIDE);
  EXPECT_EQ(header(result).refCount, 1);
}

TEST(ClipFences, TwoSolidRectanglesGiveARectangleAtTheLowDepth) {
  const FenceResult result = clip_fences(box(0, 0, 10, 12, {3, 0, 5}), box(4, -3, 30, 7, {3, 2, 9}));
  ASSERT_EQ(result.status, CL_OK);
  EXPECT_EQ(extract_polygons(result.fence, 3).rings,
            (Rings{{{4, 0, 2}, {4, 7, 2}, {10, 7, 2}, {10, 0, 2}, {4, 0, 2}}}));
}

// Only rectangles that keep their inside take the short cut, which knows nothing but extents.
TEST(ClipFences, ARectangleThatKeepsItsOutsideCutsAHole) {
  const FenceResult result = clip_fences(box(2, 2, 8, 8, {}, CL_KEEP_OUTSIDE), box(0, 0, 10, 10));
  ASSERT_EQ(result.status, CL_OK);
  const Rings rings = extract_polygons(result.fence).rings;
  ASSERT_EQ(rings.size(), 2u);
  EXPECT_EQ(area(rings[0]) + area(rings[1]), 100 + 36);
}

TEST(ClipFences, TheClippingFenceIsUsedInItsOwnModeAndTheSubjectsModeIsHandedOn) {
  for (const int clip_mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
    for (const int subject_mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      const FenceResult result =
          clip_fences(Fence({kTriangle}, clip_mode), Fence({moved(kTriangle, 10, 0)}, subject_mode));
      ASSERT_EQ(result.status, CL_OK);
      EXPECT_EQ(header(result).mode, subject_mode);
      EXPECT_EQ(header(result).area, clip_mode == CL_KEEP_INSIDE ? 50 : 150);
      EXPECT_EQ(header(result).clockwise, subject_mode == CL_KEEP_INSIDE ? 1 : 0);
    }
  }
}

TEST(ClipFences, NothingLeftGivesEmptyAndANullHandle) {
  const Fence triangle({kTriangle}, CL_KEEP_INSIDE), hole({kTriangle}, CL_KEEP_OUTSIDE);
  const Fence far_away({moved(kTriangle, 100, 0)}, CL_KEEP_INSIDE), within = box(1, 1, 5, 5);
  for (const Outcome& o : {outcome(triangle, far_away), outcome(hole, within), outcome(hole, triangle)}) {
    EXPECT_EQ(o.status, CL_EMPTY);
    EXPECT_EQ(o.handle, nullptr);
  }
}

// The subject crosses itself: the clip of its polygon is what reports it.
TEST(ClipFences, AnInconsistentPolygonClipIsReportedAndTheHandleStays) {
  const Fence clip({{{20, 0, 0}, {60, 30, 0}, {40, 60, 0}}}, CL_KEEP_OUTSIDE);
  const Fence subject({{{0, 10, 0}, {0, 50, 0}, {20, 0, 0}, {30, 10, 0}, {40, 10, 0}}}, CL_KEEP_INSIDE);
  const Outcome o = outcome(clip, subject);
  EXPECT_EQ(o.status, CL_INCONSISTENT);
  EXPECT_EQ(o.handle, not_a_fence());
}

TEST(ClipFences, APolygonOfWhichNothingIsLeftIsPassedOver) {
  const Fence subject({moved(kTriangle, 100, 0), moved(kTriangle, 2, 2), moved(kTriangle, 0, 90)},
                      CL_KEEP_INSIDE);
  const FenceResult result = clip_fences(Fence({kTriangle}, CL_KEEP_INSIDE), subject);
  ASSERT_EQ(result.status, CL_OK);
  EXPECT_EQ(header(result).nextPoly, nullptr);
  EXPECT_EQ(header(result).extent.xmin, 2);
}

TEST(ClipFences, AFenceMeetsItselfInItself) {
  for (const Ring& ring : {kTriangle, rectangle(0, 0, 10, 10)}) {
    const Fence fence({ring}, CL_KEEP_INSIDE);
    const FenceResult result = clip_fences(fence, fence);
    ASSERT_EQ(result.status, CL_OK);
    EXPECT_EQ(header(result).area, fence.handle()->area);
    EXPECT_NE(result.fence.handle(), fence.handle());
  }
}

TEST(ClipFences, TheResultStandsOnItsOwnAndTheFencesStayAsTheyWere) {
  Fence clip({kTriangle}, CL_KEEP_INSIDE), subject({moved(kTriangle, 3, 2)}, CL_KEEP_INSIDE);
  const Rings clip_before = extract_polygons(clip).rings, subject_before = extract_polygons(subject).rings;
  const FenceResult result = clip_fences(clip, subject);
  ASSERT_EQ(result.status, CL_OK);
  EXPECT_EQ(extract_polygons(clip).rings, clip_before);
  EXPECT_EQ(extract_polygons(subject).rings, subject_before);
  EXPECT_TRUE(clip.handle()->refCount == 1 && subject.handle()->refCount == 1);
  EXPECT_EQ(header(result).refCount, 1);
  const Rings before = extract_polygons(result.fence).rings;
  clip = Fence();
  subject = Fence();
  EXPECT_EQ(extract_polygons(result.fence).rings, before);
}

TEST(ClipFences, TheSharedMemoriesAreKeptForTheNextCall) {
  const Fence clip({kTriangle}, CL_KEEP_INSIDE), subject({moved(kTriangle, 3, 2)}, CL_KEEP_INSIDE);
  release_clip_memory();
  ASSERT_EQ(clip_fences(clip, subject).status, CL_OK);
  const CLclpMemType first = clip::clipMem1, second = clip::clipMem2;
  EXPECT_TRUE(first.counts != nullptr && first.points != nullptr);
  EXPECT_EQ(second.polyRequest, 1);  // the totals
  EXPECT_EQ(second.pointRequest, 3);
  ASSERT_EQ(clip_fences(clip, subject).status, CL_OK);
  EXPECT_TRUE(clip::clipMem1.counts == first.counts && clip::clipMem1.points == first.points);
  EXPECT_TRUE(clip::clipMem2.counts == second.counts && clip::clipMem2.points == second.points);
  // Where nothing is left, so are the totals.
  ASSERT_EQ(clip_fences(clip, Fence({moved(kTriangle, 100, 0)}, CL_KEEP_INSIDE)).status, CL_EMPTY);
  EXPECT_EQ(clip::clipMem2.polyRequest, 0);
  EXPECT_EQ(clip::clipMem2.pointRequest, 0);
  EXPECT_TRUE(clip::clipMem2.counts == second.counts && clip::clipMem2.points == second.points);
}

TEST(ClipFences, WithoutMemoryForTheCommonRectangleTheHandleStays) {
  const FailurePlanEnds plan_ends;
  const Fence a = box(0, 0, 10, 12), b = box(4, -3, 30, 7);
  platform::capi_fail_after(0);
  const Outcome o = outcome(a, b);
  platform::capi_fail_after(-1);
  EXPECT_EQ(o.status, CL_BAD_ARGUMENT);  // what a definition answers
  EXPECT_EQ(o.handle, not_a_fence());
}

}  // namespace
}  // namespace Corvane::Print::tests
