// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Fence records: how they are built from points, what counts as a rectangle, and what is left when memory ran
// out. The argument checks and the other calls are tested in fence_calls_test.cpp.
#include "clip/fence.h"

#include "clip/line_general.h"
#include "clip/line_rect.h"
#include "clip/node_pool.h"
#include "clip/ring.h"
#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/area.h"
#include "tests/support/clip_call.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace Corvane::Print::tests {
namespace {

// Along `next`, not closed.
Ring ring_of(const FencePolygon& polygon) {
  Ring points;
  clip::for_each_vertex(polygon.first, [&](const FenceVertex& v) { points.push_back({v.x, v.y, v.z}); });
  return points;
}

std::vector<FencePolygon*> polygons_of(const Fence& fence) {
  std::vector<FencePolygon*> polygons;
  for (FencePolygon* p = fence.handle(); p != nullptr; p = p->nextPoly) polygons.push_back(p);
  return polygons;
}

bool rectangular(const Fence& fence) {
  return fence.handle()->lineClipper == clip::clip_line_rect;
}

bool is_rectangle(const Ring& ring, int dim = 2) {
  return clip::is_rectangle(static_cast<int>(ring.size()), flatten(ring, dim).data(), dim);
}

const Ring kSquare = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {0, 10, 0}};
const Ring kClockwiseSquare = {{0, 0, 0}, {0, 10, 0}, {10, 10, 0}, {10, 0, 0}};

TEST(Fence, TwoCornersBecomeARing) {
  double ring[15] = {};
  const double flat_corners[4] = {1, 2, 11, 22};
  clip::rectangle_from_corners(flat_corners, 2, ring);
  const double clockwise[10] = {1, 2, 1, 22, 11, 22, 11, 2, 1, 2};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(ring[i], clockwise[i]);
  const double solid_corners[6] = {1, 2, 7, 11, 22, 9};
  clip::rectangle_from_corners(solid_corners, 3, ring);
  const double counter_clockwise[15] = {1, 2, 7, 11, 2, 7, 11, 22, 7, 1, 22, 7, 1, 2, 7};
  for (int i = 0; i < 15; ++i) EXPECT_EQ(ring[i], counter_clockwise[i]);

  for (const int dim : {2, 3}) {
    int count = 2;
    CLFenceHandle fence = nullptr;
    ASSERT_EQ(CLdefFence(&fence, dim, 1, &count, dim == 2 ? flat_corners : solid_corners, 0, 0, 2), CL_OK);
    EXPECT_EQ(count, 5);
    EXPECT_EQ(fence->totalPoints, 5);
    EXPECT_EQ(fence->vertexCount, 4);
    const double z = dim == 2 ? 0 : 7;
    EXPECT_EQ(ring_of(*fence), (Ring{{1, 2, z}, {1, 22, z}, {11, 22, z}, {11, 2, z}}));
    CLdeleteFence(fence);
  }
}

TEST(Fence, TwoCornersAmongSeveralPolygonsAreARingOfTwo) {
  int counts[2] = {2, 3};
  const double points[10] = {0, 0, 10, 10, 20, 0, 30, 0, 30, 10};
  CLFenceHandle fence = nullptr;
  ASSERT_EQ(CLdefFence(&fence, 2, 2, counts, points, 0, 0, 2), CL_OK);
  EXPECT_EQ(counts[0], 2);
  EXPECT_EQ(ring_of(*fence), (Ring{{0, 0, 0}, {10, 10, 0}}));
  EXPECT_EQ(fence->lineClipper, clip::clip_line_general);
  CLdeleteFence(fence);
}

TEST(Fence, AnyTwoOppositeCornersGiveTheSameRectangleInEitherMode) {
  const auto kept = [](const Ring& corners, int mode, int dim) {
    const Fence fence({corners}, mode, {dim, -9, 9});
    const FencePolygon& p = *fence.handle();
    EXPECT_EQ(signed_area(ring_of(p)), mode == CL_KEEP_INSIDE ? -200 : 200);
    EXPECT_EQ(p.clockwise, mode == CL_KEEP_INSIDE ? 1 : 0);
    EXPECT_EQ(ring_of(p)[0], (Point{corners[0].x, corners[0].y, dim == 3 ? corners[0].z : 0.0}));
    EXPECT_TRUE(p.extent.xmin == 1 && p.extent.ymin == 2 && p.extent.xmax == 11 && p.extent.ymax == 22);
    for (const Point& v : ring_of(p)) EXPECT_EQ(v.z, dim == 3 ? corners[0].z : 0.0);
  };
  for (const Ring& corners : {Ring{{1, 2, 7}, {11, 22, 9}}, Ring{{11, 22, 7}, {1, 2, 9}},
                              Ring{{1, 22, 7}, {11, 2, 9}}, Ring{{11, 2, 7}, {1, 22, 9}}}) {
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      kept(corners, mode, 2);
      kept(corners, mode, 3);
    }
  }
}

TEST(Fence, TwoCornersCountAsARectangleEvenWithoutExtent) {
  EXPECT_TRUE(rectangular(Fence({{{0, 0, 0}, {10, 10, 0}}}, CL_KEEP_INSIDE)));
  EXPECT_TRUE(rectangular(Fence({{{0, 0, 0}, {0, 10, 0}}}, CL_KEEP_INSIDE)));
  EXPECT_TRUE(rectangular(Fence({{{5, 5, 0}, {5, 5, 0}}}, CL_KEEP_INSIDE)));
  EXPECT_TRUE(rectangular(Fence({{{0.2, 0.1, 1}, {0.3, 0.4, 2}}}, CL_KEEP_INSIDE, {3, 0, 9})));
  EXPECT_FALSE(rectangular(Fence({{{0, 0, 0}, {10, 10, 0}}}, CL_KEEP_OUTSIDE)));
}

TEST(Fence, FourPointsThatRoundToARectangleCountAsOne) {
  const Ring ring = {{0.4, 0.4, 0}, {9.6, 0.3, 0}, {9.7, 9.6, 0}, {0.1, 9.9, 0}};
  EXPECT_TRUE(is_rectangle({{0.4, 0.4, 0}, {9.6, 0.4, 0}, {9.6, 9.6, 0}, {0.4, 9.6, 0}}));
  EXPECT_TRUE(is_rectangle(ring));
  EXPECT_TRUE(rectangular(Fence({ring}, CL_KEEP_INSIDE)));
  EXPECT_FALSE(rectangular(Fence({ring}, CL_KEEP_OUTSIDE)));
}

TEST(Fence, TheFirstEdgeOfARectangleMayBeEither) {
  EXPECT_TRUE(is_rectangle(kSquare));
  EXPECT_TRUE(is_rectangle(kClockwiseSquare));
  EXPECT_TRUE(is_rectangle(rotated(kSquare, 3)));
}

TEST(Fence, AFifthPointMustRepeatTheFirstAfterRounding) {
  Ring five = kSquare;
  five.push_back({0.4, -0.4, 0});
  EXPECT_TRUE(is_rectangle(five));
  EXPECT_TRUE(rectangular(Fence({five}, CL_KEEP_INSIDE)));
  five.back() = {0.6, 0, 0};
  EXPECT_FALSE(is_rectangle(five));
  five.back() = {0, 0.6, 0};
  EXPECT_FALSE(is_rectangle(five));
}

TEST(Fence, AnyOtherEdgeIsNoRectangle) {
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {1, 10, 0}}));  // a slanted edge
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {10, 1, 0}, {10, 10, 0}, {0, 10, 0}}));
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {10, 0, 0}, {0, 10, 0}, {10, 10, 0}}));   // a bow tie
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {5, 0, 0}, {10, 0, 0}, {10, 10, 0}}));    // two level edges
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {0, 0.4, 0}, {10, 0, 0}, {10, 10, 0}}));  // an edge without length
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {0.4, 0, 0}, {0.4, 0.4, 0}, {0, 0.4, 0}}));
  EXPECT_FALSE(is_rectangle({{0, 0, 0}, {10, 0, 0}, {10, 10, 0}}));
  Ring six = kSquare;
  six.insert(six.end(), 2, kSquare[0]);
  EXPECT_FALSE(is_rectangle(six));
}

TEST(Fence, HalvesRoundAwayFromZero) {
  const auto left_edge = [](double a, double b) {
    return is_rectangle({{a, 0, 0}, {b, 10, 0}, {20, 10, 0}, {20, 0, 0}});
  };
  EXPECT_TRUE(left_edge(0.5, 1.0) && left_edge(0.5, 1.4) && left_edge(-0.5, -1.0) && left_edge(2.5, 3));
  EXPECT_FALSE(left_edge(0.5, 0.25) || left_edge(-0.5, 0.0) || left_edge(-0.5, 0.5) || left_edge(2.5, 2));
  EXPECT_TRUE(left_edge(-0.25, 0.25) && left_edge(-0.0, 0.0));
  // The sum with a half is what is cut off: the number next below a half makes 1 with it.
  const double below_half = std::nextafter(0.5, 0.0);
  EXPECT_TRUE(left_edge(below_half, 1.0) && left_edge(-below_half, -1.0));
}

TEST(Fence, TheRectangleTestIgnoresZ) {
  EXPECT_TRUE(is_rectangle(lifted(kSquare, 3, -5, 100), 3));
  EXPECT_TRUE(rectangular(Fence({lifted(kSquare, 3, -5, 100)}, CL_KEEP_INSIDE, {3, 0, 9})));
}

TEST(Fence, OnlyASinglePolygonCanBeARectangle) {
  EXPECT_FALSE(rectangular(Fence({kSquare, moved(kSquare, 50, 0)}, CL_KEEP_INSIDE)));
}

TEST(Fence, Mode1RunsCounterClockwiseAndMode2Clockwise) {
  for (const Ring& given : {kSquare, kClockwiseSquare}) {
    const Fence outside({given}, CL_KEEP_OUTSIDE), inside({given}, CL_KEEP_INSIDE);
    EXPECT_EQ(ring_of(*outside.handle()), kSquare);
    EXPECT_EQ(outside.handle()->clockwise, 0);
    EXPECT_EQ(ring_of(*inside.handle()), kClockwiseSquare);
    EXPECT_EQ(inside.handle()->clockwise, 1);
  }
}

TEST(Fence, ARingWithoutAreaCountsAsClockwise) {
  const Ring flat = {{0, 0, 0}, {10, 0, 0}, {20, 0, 0}};
  const Fence outside({flat}, CL_KEEP_OUTSIDE), inside({flat}, CL_KEEP_INSIDE);
  EXPECT_EQ(ring_of(*outside.handle()), (Ring{{0, 0, 0}, {20, 0, 0}, {10, 0, 0}}));
  EXPECT_EQ(outside.handle()->clockwise, 0);
  EXPECT_EQ(ring_of(*inside.handle()), flat);
  EXPECT_EQ(inside.handle()->clockwise, 1);
  EXPECT_EQ(inside.handle()->area, 0);
}

TEST(Fence, AnyOtherModeRunsClockwiseAndIsStored) {
  const Fence fence({kSquare}, 7);
  ASSERT_EQ(fence.status(), CL_OK);
  EXPECT_EQ(ring_of(*fence.handle()), kClockwiseSquare);
  EXPECT_EQ(fence.handle()->clockwise, 0);  // the flag says "mode 2" after a reversal
  EXPECT_EQ(fence.handle()->mode, 7);
  EXPECT_FALSE(rectangular(fence));
}

TEST(Fence, TheAreaIsThatOfTheRingAsGivenInXAndY) {
  for (int i = 0; i < scaled(300); ++i) {
    Random random(case_seed(63, i));
    Ring ring = lifted(any_shape(random, 1000), 0.5, 2, -3);
    if (random.one_in(2)) ring = reversed(ring);
    ring.push_back({ring[0].x + 0.0004, ring[0].y, ring[0].z});  // counted although it is dropped later
    double sum = 0;
    for (std::size_t k = 0; k < ring.size(); ++k) {
      const Point &a = ring[k], &b = ring[(k + 1) % ring.size()];
      sum += a.x * b.y - a.y * b.x;
    }
    const Fence fence({ring}, CL_KEEP_INSIDE, {3, -5000, 5000});
    ASSERT_TRUE(same_bits(fence.handle()->area, std::fabs(sum) / 2.0)) << "seed " << i;
    ASSERT_EQ(fence.handle()->vertexCount, static_cast<int>(ring.size()) - 1) << "seed " << i;
  }
}

TEST(Fence, HeadersHoldWhatTheFenceWasDefinedWith) {
  Random random(1);
  const Rings rings = {lifted(kSquare, 0, 0, 77), moved(star(random, 9, 5, 9), 50, 0)};
  const Fence fence(rings, CL_KEEP_OUTSIDE, {3, -4, 6});
  const std::vector<FencePolygon*> polygons = polygons_of(fence);
  ASSERT_EQ(polygons.size(), 2u);
  for (const FencePolygon* p : polygons) {
    EXPECT_EQ(p->dim, 3);
    EXPECT_EQ(p->mode, CL_KEEP_OUTSIDE);
    EXPECT_EQ(p->extent.zmin, -4);  // the range, not what the vertices' z are
    EXPECT_EQ(p->extent.zmax, 6);
    EXPECT_EQ(p->start, nullptr);
    EXPECT_EQ(p->containment, 0);
    EXPECT_EQ(p->overlap, 0);
    EXPECT_NE(p->probe, nullptr);
  }
  EXPECT_NE(polygons[0]->probe, polygons[1]->probe);
  EXPECT_EQ(polygons[0]->totalPoints, 13);
  EXPECT_EQ(polygons[0]->refCount, 1);
  EXPECT_EQ(polygons[0]->vertexCount, 4);
  EXPECT_EQ(polygons[1]->totalPoints, 0);
  EXPECT_EQ(polygons[1]->refCount, 0);
  EXPECT_EQ(polygons[1]->vertexCount, 9);
  EXPECT_TRUE(polygons[0]->extent.xmin == 0 && polygons[0]->extent.xmax == 10);
}

TEST(Fence, AllNodesLieInOneBlockInInputOrder) {
  const Fence fence({kSquare, moved(kSquare, 50, 0), {{90, 0, 0}}}, CL_KEEP_INSIDE);
  EXPECT_EQ(clip::BufferTable[0].capacity, 4 + 4 + 1 + 3);
  clip::Cnode* block = clip::BufferTable[0].buffer;
  EXPECT_EQ(static_cast<void*>(fence.handle()), static_cast<void*>(block));
  EXPECT_EQ(clip::CurBuf, 0);
  EXPECT_EQ(clip::CurIdx, 12);
  const std::vector<FencePolygon*> polygons = polygons_of(fence);
  EXPECT_EQ(polygons[1], &block[5].polygon);
  EXPECT_EQ(polygons[2], &block[10].polygon);
  EXPECT_EQ(polygons[0]->first, &block[1].vertex);
  EXPECT_EQ(polygons[1]->first, &block[6].vertex);
  EXPECT_EQ(polygons[2]->first, &block[11].vertex);
}

TEST(Fence, RandomFencesKeepTheInvariantsOfTheirRecords) {
  for (int i = 0; i < scaled(1000); ++i) {
    Random random(case_seed(64, i));
    const Rings rings = disjoint_shapes(random, 6, 1000);
    const int mode = random.one_in(2) ? CL_KEEP_OUTSIDE : CL_KEEP_INSIDE;
    const Fence fence(rings, mode, {random.one_in(2) ? 2 : 3, 0, 0});
    const std::vector<FencePolygon*> polygons = polygons_of(fence);
    ASSERT_EQ(polygons.size(), rings.size()) << "seed " << i;
    for (std::size_t k = 0; k < rings.size(); ++k) {
      const Ring ring = ring_of(*polygons[k]);
      ASSERT_EQ(ring.size(), rings[k].size()) << "seed " << i;
      ASSERT_EQ(ring[0], rings[k][0]) << "seed " << i;
      ASSERT_EQ(mode == CL_KEEP_OUTSIDE, signed_area(ring) > 0) << "seed " << i;
      clip::for_each_vertex(polygons[k]->first, [&](const FenceVertex& v) {
        ASSERT_TRUE(v.next->prev == &v && v.next2 == v.next && v.partner == nullptr) << "seed " << i;
        ASSERT_TRUE(v.dx == v.next->x - v.x && v.dy == v.next->y - v.y) << "seed " << i;
      });
    }
  }
}

// Memory that ran out
// ---------------------------------------------------------------------------------------------

CLFenceHandle not_a_fence() {
  static FencePolygon nowhere;
  return &nowhere;
}

// Three triangles at x = 0, 20, 40; the handle starts as not_a_fence().
int define_three(CLFenceHandle* fence) {
  int counts[3] = {3, 3, 3};
  const double points[18] = {0, 0, 0, 9, 9, 9, 20, 0, 20, 9, 29, 9, 40, 0, 40, 9, 49, 9};
  *fence = not_a_fence();
  return CLdefFence(fence, 2, 3, counts, points, 0, 0, CL_KEEP_INSIDE);
}

std::vector<double> left_sides(CLFenceHandle fence) {
  std::vector<double> sides;
  for (const FencePolygon* p = fence; p != nullptr; p = p->nextPoly) sides.push_back(p->first->x);
  return sides;
}

TEST(Fence, NoMemoryIsABadArgument) {
  const FailurePlanEnds plan_ends;
  const long before = blocks_in_use();
  {
    const NoFreeProbes no_free_probes;
    for (int successes = 0; successes < 2; ++successes) {  // the block; all of the probe records
      CLFenceHandle fence;
      platform::capi_fail_after(successes);
      EXPECT_EQ(define_three(&fence), CL_BAD_ARGUMENT);
      EXPECT_EQ(fence, not_a_fence());
      if (successes == 1) {  // the pool does not hold on to the block that was given back
        EXPECT_EQ(clip::BufferTable[0].buffer, nullptr);
      }
    }
    platform::capi_fail_after(-1);
  }
  EXPECT_EQ(blocks_in_use(), before);
}

TEST(Fence, APolygonWithoutMemoryForItsProbeIsDropped) {
  const FailurePlanEnds plan_ends;
  const std::vector<double> remaining[3] = {{20, 40}, {0, 40}, {0, 20}};
  for (int dropped = 0; dropped < 3; ++dropped) {
    const long before = blocks_in_use();
    {
      const NoFreeProbes no_free_probes;
      CLFenceHandle fence;
      platform::capi_fail_once_after(1 + dropped);
      ASSERT_EQ(define_three(&fence), CL_OK);
      EXPECT_EQ(platform::capi_fail_after(-1), 4);
      EXPECT_EQ(left_sides(fence), remaining[dropped]);
      EXPECT_EQ(static_cast<void*>(fence), static_cast<void*>(clip::BufferTable[0].buffer));
      EXPECT_EQ(fence->totalPoints, 9);
      EXPECT_EQ(fence->refCount, 1);
      CLdeleteFence(fence);
    }
    EXPECT_EQ(blocks_in_use(), before);
  }
}

TEST(Fence, AFenceThatLostAPolygonStillClips) {
  const FailurePlanEnds plan_ends;
  for (int kept = 1; kept <= 3; ++kept) {
    const NoFreeProbes no_free_probes;
    Fence fence;
    platform::capi_fail_after(1 + kept);
    ASSERT_EQ(define_three(fence.slot()), CL_OK);
    platform::capi_fail_after(-1);
    ASSERT_EQ(left_sides(fence.handle()).size(), static_cast<std::size_t>(kept));
    const Pieces pieces = clip_polygon(fence, rectangle(-5, -5, 60, 60));
    EXPECT_EQ(pieces.status, CL_OK);
    EXPECT_EQ(kept_area(pieces.rings), kept * 40.5);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
