// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A polygon on its way into the engine: direction, cleaning, depth rules, records.
#include "clip/subject.h"

#include "clip/node_pool.h"
#include "clip/ring.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/runtime_variable.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <new>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};  // clockwise

Fence deep_fence(double low, double high, int mode = CL_KEEP_INSIDE) {
  return Fence({kSquare}, mode, {3, low, high});
}

void build_any(clip::Subject& subject, const Fence& fence, const Ring& ring, int dim) {
  const std::vector<double> flat = flatten(ring, dim);
  subject.build(*fence.handle(), dim, static_cast<int>(ring.size()), flat.data());
}

std::size_t polygons(const Fence& fence, const Ring& ring, int dim) {
  clip::Subject subject;
  build_any(subject, fence, ring, dim);
  EXPECT_EQ(subject.empty(), subject.size() == 0);
  return subject.size();
}

TEST(Subject, ASubjectIsAlwaysMadeClockwise) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence fence({kSquare}, mode);
    for (const Ring& ring : {kSquare, reversed(kSquare)}) {
      clip::Subject subject;
      const FencePolygon& p = build(subject, fence, ring);
      EXPECT_LT(clip::shoelace_sum(p.first), 0);
      EXPECT_TRUE((Point{p.first->x, p.first->y, 0}) == ring[0]);  // the first point stays the first
      EXPECT_EQ(p.area, 100);
      EXPECT_EQ(p.vertexCount, 4);
      EXPECT_EQ(p.dim, 2);
      EXPECT_EQ(p.first->w, 1.0);
    }
  }
}

TEST(Subject, ARingWithoutAreaYieldsNothing) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(polygons(fence, {{1, 1}}, 2), 0u);
  EXPECT_EQ(polygons(fence, {{1, 1}, {5, 5}}, 2), 0u);
  EXPECT_EQ(polygons(fence, {{1, 1}, {5, 5}, {9, 9}}, 2), 0u);
  EXPECT_EQ(polygons(fence, {{1, 1}, {5, 5}, {9, 1}, {5, 5}}, 2), 0u);
  EXPECT_EQ(polygons(fence, {{0, 0}, {4, 4}, {4, 0}, {0, 4}}, 2), 0u);  // a bow: the halves cancel out
  EXPECT_EQ(polygons(fence, {{1, 1}, {nan, 5}, {9, 1}}, 2), 0u);
}

TEST(Subject, ARepeatedClosingPointGoes) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  for (const Point& last : {Point{0, 0}, Point{0.0009, -0.0009}}) {
    Ring closed = kSquare;
    closed.push_back(last);
    clip::Subject subject;
    const FencePolygon& p = build(subject, fence, closed);
    EXPECT_EQ(p.vertexCount, 4);
    EXPECT_EQ(points_of(p.first), kSquare);
  }
  Ring open = kSquare;
  open.push_back({0.001, -0.001});
  clip::Subject subject;
  EXPECT_EQ(build(subject, fence, open).vertexCount, 5);
}

TEST(Subject, PointsCloserThanAThousandthAreOne) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  clip::Subject subject;
  const FencePolygon& p =
      build(subject, fence, {{0, 0}, {0.0005, 0.0005}, {0, 10}, {10, 10}, {10, 10.0009}, {10, 0}});
  EXPECT_EQ(p.vertexCount, 4);
  EXPECT_EQ(points_of(p.first), kSquare);
  EXPECT_EQ(p.first->dy, 10);  // the edge leads to the next point that stayed
}

TEST(Subject, ARingSmallerThanAPointsWidthBecomesOneVertexOrTwo) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const auto vertices = [&](const Ring& ring) {
    clip::Subject subject;
    return build(subject, fence, ring).vertexCount;
  };
  EXPECT_EQ(vertices({{5, 5}, {5, 5.0005}, {5.0005, 5}}), 1);
  EXPECT_EQ(vertices({{5, 5}, {5.0005, 5.0005}, {7, 5}}), 2);
}

TEST(Subject, TheExtentHoldsTheVerticesAndTheirDepth) {
  const Fence fence = deep_fence(-100, 100);
  clip::Subject subject;
  const FencePolygon& p = build(subject, fence, {{1, 2, 3}, {1, 9, 5}, {8, 9, -4}}, 3);
  EXPECT_EQ(p.extent.xmin, 1);
  EXPECT_EQ(p.extent.ymin, 2);
  EXPECT_EQ(p.extent.zmin, -4);
  EXPECT_EQ(p.extent.xmax, 8);
  EXPECT_EQ(p.extent.ymax, 9);
  EXPECT_EQ(p.extent.zmax, 5);
}

TEST(Subject, TheRayIsThatOfTheSubjectsOwnExtent) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  clip::Subject subject;
  const FencePolygon& p = build(subject, fence, {{0, 0}, {0, 3}, {50, 3}, {50, 0}});
  EXPECT_EQ(p.probe->dx, 100 * 0.811031147527);
  EXPECT_EQ(p.probe->dy, 100 * 0.585002972425);
  EXPECT_EQ(p.probe->tolerance, 1 / (100 * 1000.0));
}

TEST(Subject, TheVariableTurnsItsRayToo) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const RuntimeVariable variable("VX_CLIP_RAY_SLOPE", "-3");
  clip::Subject subject;
  const FencePolygon& p = build(subject, fence, {{0, 0}, {0, 3}, {50, 3}, {50, 0}});
  EXPECT_EQ(p.probe->dx, 100 * -3.0 / std::sqrt(10.0));
  EXPECT_EQ(p.probe->dy, 100 / std::sqrt(10.0));
}

TEST(Subject, WhollyAboveOrBelowTheDepthRangeItYieldsNothingInEitherMode) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence fence = deep_fence(0, 10, mode);
    EXPECT_EQ(polygons(fence, lifted(kSquare, 0, 0, 10.5), 3), 0u);
    EXPECT_EQ(polygons(fence, lifted(kSquare, 0, 0, -0.5), 3), 0u);
    EXPECT_EQ(polygons(fence, lifted(kSquare, 0, 0, 5), 3), 1u);
  }
}

TEST(Subject, FlatInABoundOfTheDepthRangeItIsKept) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence fence = deep_fence(0, 10, mode);
    EXPECT_EQ(polygons(fence, lifted(kSquare, 0, 0, 0), 3), 1u);
    EXPECT_EQ(polygons(fence, lifted(kSquare, 0, 0, 10), 3), 1u);
  }
}

TEST(Subject, AFlatSubjectLiesAtDepthZero) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    EXPECT_EQ(polygons(deep_fence(1, 2, mode), kSquare, 2), 0u);
    EXPECT_EQ(polygons(deep_fence(-2, -1, mode), kSquare, 2), 0u);
    EXPECT_EQ(polygons(deep_fence(0, 2, mode), kSquare, 2), 1u);
    EXPECT_EQ(polygons(deep_fence(-2, 2, mode), kSquare, 2), 1u);
  }
}

TEST(Subject, OnlyAFenceThatKeepsItsInsideCutsTheDepth) {
  const Ring tilted = lifted(kSquare, 1, 0, 0);  // z from 0 to 10
  {
    clip::Subject cut;
    const FencePolygon& inside = build(cut, deep_fence(2, 4), tilted, 3);
    EXPECT_EQ(inside.extent.xmin, 2);
    EXPECT_EQ(inside.extent.xmax, 4);
    EXPECT_EQ(inside.extent.zmin, 2);
    EXPECT_EQ(inside.extent.zmax, 4);
    EXPECT_EQ(inside.area, 20);
  }
  clip::Subject whole;
  const FencePolygon& outside = build(whole, deep_fence(2, 4, CL_KEEP_OUTSIDE), tilted, 3);
  EXPECT_EQ(outside.extent.xmax, 10);
  EXPECT_EQ(outside.area, 100);
}

// The range is the fence's whatever its dimension; a flat fence has one too.
TEST(Subject, AFlatFencesDepthRangeCutsItToo) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE, {2, 2, 4});
  clip::Subject subject;
  const FencePolygon& p = build(subject, fence, lifted(kSquare, 1, 0, 0), 3);
  EXPECT_EQ(p.area, 20);
  EXPECT_EQ(p.dim, 3);
}

TEST(Subject, EachPartOfACutIsAPolygonOfItsOwn) {
  const Ring comb = {{0, 0, 0}, {0, 9, 9}, {2, 9, 9}, {2, 1, 1}, {4, 1, 1}, {4, 9, 9}, {6, 9, 9}, {6, 0, 0}};
  clip::Subject subject;
  build_any(subject, deep_fence(5, 20), comb, 3);
  ASSERT_EQ(subject.size(), 2u);
  for (const FencePolygon* p : subject) {
    EXPECT_EQ(p->area, 8);
    EXPECT_EQ(p->clockwise, 1);
    EXPECT_LT(clip::shoelace_sum(p->first), 0);
    EXPECT_NE(p->probe, nullptr);
  }
}

// There and back above the bound: a part without area is none.
TEST(Subject, ASpikeIntoTheDepthRangeYieldsNothing) {
  const Ring spiked = {{0, 0, 0}, {0, 4, 4}, {4, 4, 4}, {4, 9, 9}, {4, 4, 4}, {8, 4, 4}, {8, 0, 0}};
  EXPECT_EQ(polygons(deep_fence(5, 20), spiked, 3), 0u);
  EXPECT_EQ(polygons(deep_fence(2, 20), spiked, 3), 1u);
}

TEST(Subject, PiecesAreAddedAsFurtherPolygons) {
  clip::Polylines rings;
  for (const Point& p : kSquare) rings.points.push_back({p.x, p.y, 7});
  rings.ends.push_back(4);
  for (const Point& p : kSquare) rings.points.push_back({p.x + 50, p.y, 8});
  rings.ends.push_back(8);
  const Fence fence({kSquare}, CL_KEEP_OUTSIDE);
  clip::Subject subject;
  build(subject, fence, kSquare);
  subject.add_pieces(rings);
  ASSERT_EQ(subject.size(), 3u);
  const FencePolygon& last = **(subject.end() - 1);
  EXPECT_EQ(points_of(last.first), lifted(moved(kSquare, 50, 0), 0, 0, 8));
  EXPECT_EQ(last.area, 100);
}

TEST(Subject, LackOfMemoryIsThrownAndNothingIsLost) {
  const FailurePlanEnds ends;
  const Fence fence = deep_fence(2, 4);
  const long blocks = blocks_in_use();
  {
    const NoFreeProbes no_probes;
    int failures = 0;
    for (long n = 0; n < 100; ++n) {
      release_overflow_buffers();
      clip::Subject subject;
      platform::capi_fail_after(n);
      try {
        build_any(subject, fence, lifted(kSquare, 1, 0, 0), 3);
        break;
      } catch (const std::bad_alloc&) {
        ++failures;
      }
    }
    EXPECT_GT(failures, 2);
    EXPECT_LT(failures, 100);
    platform::capi_fail_after(-1);
  }
  EXPECT_EQ(blocks_in_use(), blocks);
}

}  // namespace
}  // namespace Corvane::Print::tests
