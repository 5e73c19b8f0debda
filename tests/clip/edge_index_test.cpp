// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Boxes over the edges of a ring or a run.
#include "clip/edge_index.h"

#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Points = std::vector<clip::LinePoint>;

Points random_points(Random& random, int count) {
  Points points;
  for (int i = 0; i < count; ++i) {
    const double x = random.between(-50.0, 50.0), y = random.between(-50.0, 50.0);
    points.push_back({x, y, 0});
  }
  return points;
}

// Of the points of so many edges from one on.
clip::Box box_of(const Points& points, int edge, int edges) {
  clip::Box box = {1e308, 1e308, -1e308, -1e308};
  for (int i = edge; i <= edge + edges; ++i) {
    const clip::LinePoint& p = points[static_cast<std::size_t>(i)];
    box = {std::min(box.xmin, p.x), std::min(box.ymin, p.y), std::max(box.xmax, p.x),
           std::max(box.ymax, p.y)};
  }
  return box;
}

void expect_equal(const clip::Box& a, const clip::Box& b) {
  EXPECT_EQ(a.xmin, b.xmin);
  EXPECT_EQ(a.ymin, b.ymin);
  EXPECT_EQ(a.xmax, b.xmax);
  EXPECT_EQ(a.ymax, b.ymax);
}

TEST(EdgeIndex, EveryLevelHasTheBoxesOfItsEdges) {
  Random random(0xED6E);
  clip::EdgeIndex index;
  for (const int edges : {1, 2, 7, 8, 9, 63, 64, 65, 511, 512, 513, 1000, 5000}) {
    const Points points = random_points(random, edges + 1);
    index.build(points.data(), edges);
    int span = 1;
    for (int level = 0; level < index.levels(); ++level) {
      span *= clip::EdgeIndex::kFan;
      ASSERT_EQ(index.blocks(level), (edges + span - 1) / span);
      for (int b = 0; b < index.blocks(level); ++b) {
        expect_equal(index.box(level, b), box_of(points, b * span, std::min(span, edges - b * span)));
      }
    }
    EXPECT_EQ(index.blocks(index.levels() - 1), 1);
    EXPECT_GE(span, edges);
  }
}

// The end of the last edge that is announced may be the last point that is final.
TEST(EdgeIndex, BuiltInPortionsItIsTheSame) {
  std::printf("seeds: case_seed(0xED70, i)\n");
  for (int i = 0; i < scaled(2000); ++i) {
    Random random(case_seed(0xED70, i));
    const int edges = random.between(1, 700), most = edges + random.between(0, 100);
    const Points points = random_points(random, edges + 1);
    clip::EdgeIndex whole, grown;
    whole.build(points.data(), edges);
    Points written = random_points(random, most + 1);
    grown.begin(written.data(), most);
    for (int final = -1; final < edges;) {
      const int from = final + 1;
      final = std::min(edges, from + random.between(0, 80));
      std::copy(points.begin() + from, points.begin() + final + 1, written.begin() + from);
      grown.extend(random.one_in(2) ? final : std::max(0, final - random.between(0, 20)));
    }
    grown.finish(edges);
    ASSERT_EQ(grown.edges(), edges);
    ASSERT_EQ(grown.levels(), whole.levels());
    for (int level = 0; level < whole.levels(); ++level) {
      ASSERT_EQ(grown.blocks(level), whole.blocks(level));
      for (int b = 0; b < whole.blocks(level); ++b) expect_equal(grown.box(level, b), whole.box(level, b));
    }
    ASSERT_FALSE(HasFailure()) << "case " << i;
  }
}

TEST(EdgeIndex, WithoutEdgesThereAreNoLevels) {
  const Points points = {{1, 2, 3}};
  clip::EdgeIndex index;
  index.build(points.data(), 0);
  EXPECT_EQ(index.levels(), 0);
  EXPECT_EQ(index.edges(), 0);
}

TEST(EdgeIndex, WhatIsNoNumberIsInNoBox) {
  Points points = {{1, 2, 0}, {std::nan(""), 7, 0}, {3, std::nan(""), 0}};
  clip::EdgeIndex index;
  index.build(points.data(), 2);
  expect_equal(index.box(0, 0), {1, 2, 3, 7});
  points[0].x = std::numeric_limits<double>::infinity();
  index.build(points.data(), 2);
  EXPECT_EQ(index.box(0, 0).xmax, std::numeric_limits<double>::infinity());
}

}  // namespace
}  // namespace Corvane::Print::tests
