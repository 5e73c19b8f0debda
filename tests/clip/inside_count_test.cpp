// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Many probes at once are judged as they are one by one.
#include "clip/inside_count.h"

#include "clip/contain.h"
#include "clip/polygon_index.h"
#include "clip/ring.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/random_input.h"
#include "tests/support/clip_call.h"
#include "tests/support/runtime_variable.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using clip::LinePoint;
constexpr int kBefore = 7;

// One by one, over all edges: the extent of a run of a single point must lie within the polygon's.
std::vector<int> counts_by_all_edges(const std::vector<LinePoint>& probes, FencePolygon& polygon) {
  const InForm plain(clip::Form::kPlain);
  clip::release_index(polygon);
  std::vector<int> counts;
  for (const LinePoint& p : probes) {
    ClipExtent extent = clip::empty_extent();
    clip::include_point(extent, p.x, p.y);
    FenceVertex probe = {};
    probe.x = p.x, probe.y = p.y;
    probe.next = &probe;
    counts.push_back(kBefore + (clip::is_inside(probe, extent, polygon) ? 1 : 0));
  }
  return counts;
}

std::vector<int> counts_at_once(const std::vector<LinePoint>& probes, FencePolygon& polygon) {
  std::vector<int> counts(probes.size(), kBefore);
  clip::count_inside(probes, polygon, counts.data());
  return counts;
}

// On a vertex or an edge's line or hardly off, on a ray through a vertex or hardly off, anywhere, or nowhere.
LinePoint some_probe(Random& random, const Ring& ring, const FencePolygon& polygon) {
  const auto number = static_cast<std::size_t>(random.below(static_cast<int>(ring.size())));
  const Point &a = ring[number], &b = ring[(number + 1) % ring.size()];
  const ClipExtent& e = polygon.extent;
  const double width = e.xmax - e.xmin, height = e.ymax - e.ymin;
  const double off_x = random.one_in(2) ? random.between(-3e-5, 3e-5) : 0.0;
  const double off_y = random.one_in(2) ? random.between(-3e-3, 3e-3) : 0.0;
  const double along = random.between(-1.0, 2.0), u = random.unit(), v = random.unit();
  switch (random.below(40)) {
    case 0:
      return {std::numeric_limits<double>::quiet_NaN(), a.y, 0};
    case 1:
      return {a.x, std::numeric_limits<double>::quiet_NaN(), 0};
    case 2:
      return {std::numeric_limits<double>::infinity(), a.y, 0};
    default:
      break;
  }
  switch (random.below(5)) {
    case 0:
      return {a.x + off_x, a.y + off_y, 0};
    case 1:
      return {a.x + along * (b.x - a.x) + off_x, a.y + along * (b.y - a.y) + off_y, 0};
    case 2:
      return {a.x - along * 0.5 * polygon.probe->dx + off_x, a.y - along * 0.5 * polygon.probe->dy + off_y,
              0};
    case 3:
      return {e.xmin - width + 3 * width * u, e.ymin - height + 3 * height * v, 0};
    default:
      return {e.xmin + width * u, e.ymin + height * v, 0};
  }
}

void compare(std::uint64_t seed, int cases) {
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(seed));
  long inside = 0, all = 0;
  for (int i = 0; i < cases; ++i) {
    Random random(case_seed(seed, i));
    const Ring ring = edge_case_ring(random, 2);
    const Fence fence({ring}, random.between(1, 2));
    FencePolygon& polygon = *fence.handle();
    std::vector<LinePoint> probes(static_cast<std::size_t>(random.between(0, 70)));
    if (random.one_in(20)) probes.resize(clip::kMostProbes);
    for (LinePoint& p : probes) p = some_probe(random, ring, polygon);
    const InForm indexed(clip::Form::kIndexed);
    const std::vector<int> at_once = counts_at_once(probes, polygon);
    const double x = polygon.probe->x, y = polygon.probe->y;
    ASSERT_EQ(at_once, counts_by_all_edges(probes, polygon)) << "case " << i;
    ASSERT_EQ(std::memcmp(&x, &polygon.probe->x, sizeof x) | std::memcmp(&y, &polygon.probe->y, sizeof y), 0)
        << "case " << i;
    for (const int count : at_once) inside += count - kBefore;
    all += static_cast<long>(probes.size());
  }
  EXPECT_GT(inside * 5, all);
  EXPECT_LT(inside * 5, all * 4);
}

TEST(InsideCount, ManyProbesAreJudgedAsOneByOne) {
  compare(0x1C01, scaled(20000));
}

TEST(InsideCount, TheyAreWithATurnedRayToo) {
  for (const char* slope : {"0", "-0.75", "12345"}) {
    const RuntimeVariable variable("VX_CLIP_RAY_SLOPE", slope);
    compare(0x1C02, scaled(2000));
  }
}

TEST(InsideCount, TheyAreWithoutMemoryForAnIndexToo) {
  const FailurePlanEnds plan_ends;
  Random random(0x1C03);
  const Ring ring = star(random, 300, 60, 100);
  std::vector<LinePoint> probes(100);
  const Fence fence({ring}, CL_KEEP_INSIDE);
  for (LinePoint& p : probes) p = some_probe(random, ring, *fence.handle());
  const std::vector<int> expected = counts_by_all_edges(probes, *fence.handle());
  const InForm indexed(clip::Form::kIndexed);
  for (long successes = 0;; ++successes) {
    clip::release_index(*fence.handle());
    platform::capi_fail_after(successes);
    ASSERT_EQ(counts_at_once(probes, *fence.handle()), expected) << successes;
    if (platform::capi_fail_after(-1) <= successes) break;
  }
}

TEST(InsideCount, ProbesBeyondTheExtentAskForNoIndex) {
  const InForm indexed(clip::Form::kIndexed);
  Random random(0x1C04);
  const Fence fence({star(random, 300, 60, 100)}, CL_KEEP_INSIDE);
  fence.handle()->probe->x = 77;
  EXPECT_EQ(counts_at_once({{101, 0, 0}, {0, -101, 0}}, *fence.handle()),
            (std::vector<int>{kBefore, kBefore}));
  EXPECT_EQ(fence.handle()->probe->x, 77);
  EXPECT_EQ(clip::index_of(*fence.handle()), nullptr);
}

}  // namespace
}  // namespace Corvane::Print::tests
