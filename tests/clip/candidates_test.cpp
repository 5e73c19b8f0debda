// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search for pairs of edges that may meet: what it delivers and in which order.
#include "clip/candidates.h"

#include "tests/clip/engine.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Pair = std::pair<Point, Point>;  // where the two edges start
using Pairs = std::vector<Pair>;

Point start_of(const FenceVertex& edge) {
  return {edge.x, edge.y, 0};
}

Pairs candidates(const clip::EdgeRun& fence, const clip::EdgeRun& subject) {
  Pairs pairs;
  clip::for_each_candidate(
      fence, subject, [&](FenceVertex& e, FenceVertex& f) { pairs.emplace_back(start_of(e), start_of(f)); });
  return pairs;
}

clip::EdgeRun edges_of(const FencePolygon& ring) {
  return {ring.first, ring.vertexCount};
}

TEST(Candidates, EdgesWithTouchingExtentsArePairsAndOthersAreNot) {
  Edge e(0, 0, 10, 10);
  const auto is_pair = [&](double x0, double y0, double x1, double y1) {
    Edge f(x0, y0, x1, y1);
    return !candidates({&e.start, 1}, {&f.start, 1}).empty();
  };
  EXPECT_TRUE(is_pair(2, 3, 4, 5));
  EXPECT_TRUE(is_pair(10, 10, 20, 20));  // one corner in common
  EXPECT_TRUE(is_pair(-5, 10, 20, 10));
  EXPECT_TRUE(is_pair(-5, -5, 0, 0));
  EXPECT_TRUE(is_pair(9, 0, 20, -5));  // extents touch, the edges do not
  EXPECT_FALSE(is_pair(10.001, 0, 20, 10));
  EXPECT_FALSE(is_pair(-5, 0, -0.001, 10));
  EXPECT_FALSE(is_pair(0, 10.001, 10, 20));
  EXPECT_FALSE(is_pair(0, -5, 10, -0.001));
}

TEST(Candidates, FenceEdgesComeInRingOrderAndTheSubjectsInOrderForEachOfThem) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  {
    clip::Subject around;
    const FencePolygon& large = build(around, fence, {{-5, -5}, {-5, 15}, {15, 15}, {15, -5}});
    EXPECT_TRUE(candidates(edges_of(*fence.handle()), edges_of(large)).empty());
  }
  clip::Subject across;
  const FencePolygon& strip = build(across, fence, {{5, -5}, {5, 15}, {6, 15}, {6, -5}});
  const Pairs expected = {
      {{0, 10, 0}, {5, -5, 0}}, {{0, 10, 0}, {6, 15, 0}}, {{10, 0, 0}, {5, -5, 0}}, {{10, 0, 0}, {6, 15, 0}}};
  EXPECT_EQ(candidates(edges_of(*fence.handle()), edges_of(strip)), expected);
}

TEST(Candidates, AnOpenRunLeavesItsClosingEdgeOut) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  clip::Subject subject;
  const FencePolygon& ring = build(subject, fence, {{5, 5}, {15, 5}, {5, -5}});
  const clip::EdgeRun closed = edges_of(ring), open = {ring.first, ring.vertexCount - 1};
  const Pairs all = candidates(edges_of(*fence.handle()), closed);
  const Pairs without = candidates(edges_of(*fence.handle()), open);
  EXPECT_LT(without.size(), all.size());
  const Point last = start_of(*ring.first->prev);
  for (const Pair& pair : without) EXPECT_FALSE(pair.second == last);
  for (const Pair& pair : all) {
    const bool kept = std::find(without.begin(), without.end(), pair) != without.end();
    EXPECT_NE(kept, pair.second == last);
  }
}

TEST(Candidates, ARunWithoutEdgesHasNoPairs) {
  Edge e(0, 0, 10, 10), f(5, 5, 5, 5);
  EXPECT_TRUE(candidates({&e.start, 1}, {&f.start, 0}).empty());
  EXPECT_TRUE(candidates({&e.start, 0}, {&f.start, 1}).empty());
}

// The plain double loop over points is the oracle.
TEST(Candidates, RandomRingsGiveTheSamePairsAsComparingAllEdges) {
  constexpr std::uint64_t kSeed = 0x33C0;
  for (int i = 0; i < scaled(300); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring a = any_shape(random, 100);
    const Ring b = any_shape(random, 100);
    const Fence fence({a}, CL_KEEP_INSIDE);
    clip::Subject subject;
    const FencePolygon& ring = build(subject, fence, b);
    const Ring e = points_of(fence.handle()->first), f = points_of(ring.first);
    Pairs expected;
    for (std::size_t m = 0; m < e.size(); ++m) {
      const Point &e0 = e[m], &e1 = e[(m + 1) % e.size()];
      for (std::size_t n = 0; n < f.size(); ++n) {
        const Point &f0 = f[n], &f1 = f[(n + 1) % f.size()];
        const bool apart =
            std::max(e0.x, e1.x) < std::min(f0.x, f1.x) || std::max(f0.x, f1.x) < std::min(e0.x, e1.x) ||
            std::max(e0.y, e1.y) < std::min(f0.y, f1.y) || std::max(f0.y, f1.y) < std::min(e0.y, e1.y);
        if (!apart) expected.emplace_back(e0, f0);
      }
    }
    EXPECT_EQ(candidates(edges_of(*fence.handle()), edges_of(ring)), expected);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
