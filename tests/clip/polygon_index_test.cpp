// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The index of a fence polygon: when it is made, what it holds, and that it goes with the fence.
#include "clip/polygon_index.h"

#include "tests/clip/clip_state.h"
#include "tests/support/clip_call.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kTriangle = {{0, 0}, {0, 10}, {10, 10}};

TEST(PolygonIndex, AFenceGetsItWithItsFirstClipAndKeepsIt) {
  const InForm indexed(clip::Form::kIndexed);
  const Fence fence({kTriangle, {{20, 0}, {20, 10}, {30, 10}}}, CL_KEEP_INSIDE);
  FencePolygon &first = *fence.handle(), &second = *first.nextPoly;
  EXPECT_EQ(clip::index_of(first), nullptr);
  EXPECT_EQ(clip_polygon(fence, {{1, 1}, {1, 20}, {5, 20}}).status, CL_OK);
  const clip::PolygonIndex* index = clip::index_of(first);
  ASSERT_NE(index, nullptr);
  EXPECT_EQ(clip::index_of(second), nullptr);  // nothing came near it
  EXPECT_EQ(clip_polygon(fence, {{1, 1}, {1, 20}, {5, 20}}).status, CL_OK);
  EXPECT_EQ(clip::index_of(first), index);
}

TEST(PolygonIndex, ThePlainFormMakesNone) {
  const InForm plain(clip::Form::kPlain);
  const Fence fence({kTriangle}, CL_KEEP_INSIDE);
  EXPECT_EQ(clip_polygon(fence, {{1, 1}, {1, 20}, {5, 20}}).status, CL_OK);
  EXPECT_EQ(clip::fence_index(*fence.handle()), nullptr);
  EXPECT_EQ(clip::index_of(*fence.handle()), nullptr);
}

TEST(PolygonIndex, ItGoesWithTheFence) {
  const InForm indexed(clip::Form::kIndexed);
  const long before = platform::capi_blocks_out();
  {
    const Fence fence({kTriangle}, CL_KEEP_INSIDE);
    ASSERT_NE(clip::fence_index(*fence.handle()), nullptr);
  }
  EXPECT_LE(platform::capi_blocks_out(), before + 1);  // the probe record stays
}

TEST(PolygonIndex, ItHoldsTheRingInItsOrder) {
  const InForm indexed(clip::Form::kIndexed);
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence fence({kTriangle}, mode);
    const clip::PolygonIndex* index = clip::fence_index(*fence.handle());
    ASSERT_NE(index, nullptr);
    ASSERT_EQ(index->count(), 3);
    const FenceVertex* v = fence.handle()->first;
    for (int i = 0; i < 3; ++i, v = v->next) {
      EXPECT_EQ(&index->vertex(i), v);
      EXPECT_EQ(clip::number_of(*v), i);
      EXPECT_EQ(index->points[static_cast<std::size_t>(i)].x, v->x);
      EXPECT_EQ(index->points[static_cast<std::size_t>(i)].y, v->y);
    }
    EXPECT_EQ(index->points.size(), 4u);
    EXPECT_EQ(index->edges.edges(), 3);
  }
}

TEST(PolygonIndex, WithoutMemoryThereIsNone) {
  const InForm indexed(clip::Form::kIndexed);
  const FailurePlanEnds plan_ends;
  const Fence fence({kTriangle}, CL_KEEP_INSIDE);
  const long before = platform::capi_blocks_out();
  for (long successes = 0; successes < 4; ++successes) {
    platform::capi_fail_after(successes);
    EXPECT_EQ(clip::fence_index(*fence.handle()), nullptr) << successes;
    platform::capi_fail_after(-1);
    EXPECT_EQ(platform::capi_blocks_out(), before);
  }
  EXPECT_NE(clip::fence_index(*fence.handle()), nullptr);
}

}  // namespace
}  // namespace Corvane::Print::tests
