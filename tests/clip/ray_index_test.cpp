// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// For every probe within the ring's extent: edges that the ray index leaves out answer that they are missed,
// and those that it finds clear answer so exactly.
#include "clip/ray_index.h"

#include "clip/contain.h"
#include "clip/polygon_index.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/random_input.h"
#include "tests/support/clip_call.h"
#include "tests/support/runtime_variable.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace Corvane::Print::tests {
namespace {

struct Probe {
  Probe(double x, double y, double next_x) {
    v.x = x, v.y = y;
    next.x = next_x;
    v.next = &next;
  }
  Probe(const Probe&) = delete;
  Probe& operator=(const Probe&) = delete;
  FenceVertex v = {}, next = {};
};

// Somewhere within the extent, on a vertex, or hardly off a vertex or an edge's line.
Point some_place(Random& random, const FencePolygon& polygon, const clip::PolygonIndex& index) {
  const ClipExtent& extent = polygon.extent;
  const clip::LinePoint& v = index.points[static_cast<std::size_t>(random.below(index.count()))];
  const double x = random.between(extent.xmin, extent.xmax), y = random.between(extent.ymin, extent.ymax);
  switch (random.below(4)) {
    case 0:
      return {v.x, v.y, 0};
    case 1:
      return {v.x, y, 0};
    case 2: {
      const double along = random.between(-2.0, 2.0), off = random.between(-1e-3, 1e-3);
      return {std::clamp(v.x + along * polygon.probe->dx * 0.1 + off, extent.xmin, extent.xmax),
              std::clamp(v.y + along * polygon.probe->dy * 0.1 - off, extent.ymin, extent.ymax), 0};
    }
    default:
      return {x, y, 0};
  }
}

struct Edges {
  long all = 0, listed = 0, clear = 0;
};

void expect_edges_answer_exactly(const FencePolygon& polygon, const clip::PolygonIndex& index,
                                 const Point& place, double next_x, int i, Edges& counts) {
  ProbeRecord ray = *polygon.probe;
  ray.x = place.x, ray.y = place.y;
  const Probe probe(place.x, place.y, next_x);
  std::vector<int> listed;
  const clip::RayIndex::Place at = index.rays.place_of(place.x, place.y);
  const std::span<const clip::EdgeQuad> quads = index.rays.quads_at(at);
  const std::span<const int> edges = index.rays.edges_at(at);
  for (std::size_t k = 0; k < edges.size(); ++k) {
    const clip::QuickAnswers quick =
        clip::quick_answers(quads[k / 4], at.across, at.along, index.rays.tolerances());
    const bool crossed = (quick.crossed >> k % 4 & 1) != 0, unclear = (quick.unclear >> k % 4 & 1) != 0;
    if (edges[k] == clip::RayIndex::kNoEdge) {
      ASSERT_TRUE(k + 4 > edges.size() && !crossed && !unclear) << "case " << i;
      continue;
    }
    ASSERT_EQ(listed.size(), k);
    listed.push_back(edges[k]);
    if (unclear) continue;
    ++counts.clear;
    bool skip_next = false, at_start = false;
    ASSERT_EQ(clip::edge_meets_ray(index.vertex(edges[k]), ray, probe.v, skip_next, at_start),
              crossed ? clip::kCross : clip::kMiss)
        << "case " << i << " edge " << edges[k];
    ASSERT_FALSE(skip_next);
  }
  ASSERT_TRUE(std::is_sorted(listed.begin(), listed.end()));
  counts.all += index.count();
  counts.listed += static_cast<long>(listed.size());
  for (int e = 0; e < index.count(); ++e) {
    if (std::binary_search(listed.begin(), listed.end(), e)) continue;
    bool skip_next = false, at_start = false;
    ASSERT_EQ(clip::edge_meets_ray(index.vertex(e), ray, probe.v, skip_next, at_start), clip::kMiss)
        << "case " << i << " edge " << e << ' ' << place.x << ' ' << place.y;
    ASSERT_FALSE(skip_next);
  }
}

void compare(std::uint64_t seed, int cases, double scale) {
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(seed));
  const InForm indexed(clip::Form::kIndexed);
  Edges edges;
  for (int i = 0; i < cases; ++i) {
    Random random(case_seed(seed, i));
    Ring ring = edge_case_ring(random, 2);
    for (Point& p : ring) p.x *= scale, p.y *= scale;
    const Fence fence({ring}, CL_KEEP_INSIDE);
    FencePolygon& polygon = *fence.handle();
    clip::PolygonIndex* index = clip::fence_index(polygon);
    ASSERT_NE(index, nullptr);
    index->rays.build(index->points, polygon.extent, *polygon.probe);
    for (int k = 0; k < 20; ++k) {
      const Point place = some_place(random, polygon, *index);
      if (!index->rays.covers(place.x, place.y)) continue;
      const double next_x = random.between(polygon.extent.xmin, polygon.extent.xmax);
      expect_edges_answer_exactly(polygon, *index, place, next_x, i, edges);
    }
  }
  EXPECT_LT(edges.listed * 2, edges.all);
  EXPECT_GT(edges.clear * 4, edges.listed);
}

TEST(RayIndex, EdgesThatAreLeftOutAreMissedAndClearOnesAnswerExactly) {
  compare(0x4A41, scaled(20000), 1.0);
}

TEST(RayIndex, ItHoldsForLargeDrawingsToo) {
  compare(0x4A42, scaled(5000), 1e9);
}

TEST(RayIndex, ItHoldsForATurnedRay) {
  for (const char* slope : {"0", "-0.75", "12345"}) {
    const RuntimeVariable variable("VX_CLIP_RAY_SLOPE", slope);
    compare(0x4A43, scaled(2000), 1.0);
  }
}

TEST(RayIndex, TheInsideTestAnswersAsOverAllEdges) {
  constexpr std::uint64_t kSeed = 0x4A44;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  int inside = 0, outside = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kSeed, i));
    const Fence fence({edge_case_ring(random, 2)}, CL_KEEP_INSIDE);
    FencePolygon& polygon = *fence.handle();
    for (int k = 0; k < 10; ++k) {
      const InForm indexed(clip::Form::kIndexed);
      const Point place = some_place(random, polygon, *clip::fence_index(polygon));
      const Probe probe(place.x, place.y, random.between(polygon.extent.xmin, polygon.extent.xmax));
      const bool by_index = clip::probe_is_inside(probe.v, polygon);
      clip::release_index(polygon);
      const bool by_all = clip::probe_is_inside(probe.v, polygon);
      ASSERT_EQ(by_index, by_all) << "case " << i << ": " << place.x << ' ' << place.y;
      ++(by_all ? inside : outside);
    }
  }
  EXPECT_GT(inside, scaled(10000));
  EXPECT_GT(outside, scaled(10000));
}

ProbeRecord ray_along(double dx, double dy) {
  ProbeRecord ray = {};
  ray.dx = dx, ray.dy = dy;
  ray.tolerance = 1e-5;
  return ray;
}

TEST(RayIndex, LongEdgesDoNotMakeTheListsGrowWithoutBound) {
  Random random(0x4A45);
  const Ring spikes = star(random, 4000, 1, 100);
  std::vector<clip::LinePoint> points;
  for (const Point& p : spikes) points.push_back({p.x, p.y, 0});
  points.push_back(points.front());
  const long before = platform::capi_blocks_out();
  {
    clip::RayIndex index;
    index.build(points, {-100, -100, 0, 100, 100, 0}, ray_along(162, 117));
    ASSERT_TRUE(index.covers(0, 0));
    EXPECT_LT(index.edges_at(index.place_of(0, 0)).size(), spikes.size());
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(RayIndex, NothingIsCoveredWithoutAWidthOrMemoryOrBeyondTheExtent) {
  const FailurePlanEnds plan_ends;
  const std::vector<clip::LinePoint> flat = {{0, 0, 0}, {0, 0, 0}},
                                     square = {{0, 0, 0}, {0, 1, 0}, {1, 1, 0}, {0, 0, 0}};
  clip::RayIndex index;
  EXPECT_TRUE(index.empty());
  EXPECT_FALSE(index.covers(0, 0));
  index.build(flat, {0, 0, 0, 0, 0, 0}, ray_along(0, 0));
  EXPECT_TRUE(index.built());
  EXPECT_FALSE(index.covers(0, 0));
  platform::capi_fail_after(0);
  index.build(square, {0, 0, 0, 1, 1, 0}, ray_along(2, 1));
  platform::capi_fail_after(-1);
  EXPECT_FALSE(index.covers(0.5, 0.5));
  index.build(square, {0, 0, 0, 1, 1, 0}, ray_along(2, 1));
  EXPECT_FALSE(index.empty());
  EXPECT_TRUE(index.covers(0.5, 0.5));
  EXPECT_TRUE(index.covers(1, 1));
  EXPECT_FALSE(index.covers(1.001, 1));
  EXPECT_FALSE(index.covers(std::nan(""), 1));
}

}  // namespace
}  // namespace Corvane::Print::tests
