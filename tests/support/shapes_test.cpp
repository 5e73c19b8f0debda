// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The random tests are only as good as their shapes: these tests look at the generators themselves.
#include "tests/support/shapes.h"

#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/halfspace.h"
#include "tests/support/predicates.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

bool has_straight_vertex(const Ring& ring) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    if (turn(ring[i], ring[(i + 1) % ring.size()], ring[(i + 2) % ring.size()]) == 0) return true;
  }
  return false;
}

bool has_grid_vertices(const Ring& ring) {
  for (const Point& p : ring) {
    if (p.x != kGridSpacing * static_cast<int>(p.x / kGridSpacing)) return false;
    if (p.y != kGridSpacing * static_cast<int>(p.y / kGridSpacing)) return false;
  }
  return true;
}

TEST(Shapes, BenchmarkStarsHaveTheirKnownAreas) {
  const double a = area(benchmark_star(StarFamily::kSpiky, 10000, 1, 0, 0, 0, 1e6));
  const double b = area(benchmark_star(StarFamily::kRough, 10000, 2, 0.5, 0, 0, 1e6));
  const double c = area(benchmark_star(StarFamily::kWavy, 10000, 1, 0, -150000, -100000, 1e6));
  EXPECT_NEAR(a, 1742847226925.479, 1);
  EXPECT_NEAR(b, 1767145010084.829, 1);
  EXPECT_NEAR(c, 1802473547473.566, 1);
}

TEST(Shapes, DirectionsHaveLengthOneAndGoRoundOnce) {
  double turned = 0;
  for (int i = 0; i < 1000; ++i) {
    const Point d = direction(i, 1000), next = direction((i + 1) % 1000, 1000);
    EXPECT_NEAR(d.x * d.x + d.y * d.y, 1, 1e-14);
    turned += std::asin(d.x * next.y - d.y * next.x);
  }
  EXPECT_NEAR(turned, 6.283185307179586, 1e-9);
}

TEST(Shapes, RandomShapesAreSimpleAndCounterClockwise) {
  for (int i = 0; i < scaled(5000); ++i) {
    Random random(case_seed(1, i));
    const Ring ring = any_shape(random, 1000);
    EXPECT_TRUE(is_simple(ring)) << "case " << i << " " << text_of(ring);
    EXPECT_GT(signed_area(ring), 0) << "case " << i << " " << text_of(ring);
  }
}

TEST(Shapes, DisjointShapesDoNotTouch) {
  for (int i = 0; i < scaled(500); ++i) {
    Random random(case_seed(2, i));
    const Rings rings = disjoint_shapes(random, 6, 1000);
    for (std::size_t k = 1; k < rings.size(); ++k) {
      const Box a = box_of(rings[k - 1]), b = box_of(rings[k]);
      EXPECT_TRUE(a.xmax < b.xmin || b.xmax < a.xmin || a.ymax < b.ymin || b.ymax < a.ymin) << "case " << i;
    }
  }
}

TEST(Shapes, GridPolygonsAreSimpleAndOftenHaveStraightVertices) {
  const int cases = scaled(5000);
  int straight = 0;
  for (int i = 0; i < cases; ++i) {
    Random random(case_seed(3, i));
    const Ring ring = grid_polygon(random);
    ASSERT_TRUE(is_simple(ring)) << "case " << i << " " << text_of(ring);
    EXPECT_TRUE(has_grid_vertices(ring)) << "case " << i << " " << text_of(ring);
    EXPECT_LE(ring.size(), 14u) << "case " << i;
    straight += has_straight_vertex(ring);
  }
  EXPECT_GT(straight, cases / 4);
}

TEST(Shapes, GridSetsShareNoInnerPoint) {
  int together = 0;
  for (int i = 0; i < scaled(500); ++i) {
    Random random(case_seed(4, i));
    const Rings rings = grid_disjoint(random, 4);
    double cells = 0, covered = 0;
    for (const Ring& ring : rings) cells += area(ring) / (kGridSpacing * kGridSpacing);
    for (int x = 0; x < kGridSide; ++x) {
      for (int y = 0; y < kGridSide; ++y) {
        // One cell of each ring at the most lies there: cut the rings to the cell's square.
        double in_cell = 0;
        for (const Ring& ring : rings) {
          Ring part = ring;
          for (Point& p : part) p.z = p.x;
          part = keep_between(part, x * kGridSpacing, (x + 1) * kGridSpacing);
          for (Point& p : part) p.z = p.y;
          part = keep_between(part, y * kGridSpacing, (y + 1) * kGridSpacing);
          in_cell += area(part) / (kGridSpacing * kGridSpacing);
        }
        EXPECT_LE(in_cell, 1) << "case " << i;
        covered += in_cell;
      }
    }
    EXPECT_EQ(cells, covered) << "case " << i;
    together += rings.size() > 1;
  }
  EXPECT_GT(together, scaled(500) / 4);
}

TEST(Shapes, TouchingSegmentsAreNotInGeneralPosition) {
  const Rings fence = {rectangle(0, 0, 10, 10)};
  EXPECT_FALSE(in_general_position({rectangle(10, 5, 20, 15)}, fence));
  EXPECT_FALSE(in_general_position({rectangle(10.001, 5, 20, 15)}, fence));
  EXPECT_TRUE(in_general_position({rectangle(9, 5, 20, 15)}, fence));
  EXPECT_TRUE(in_general_position({rectangle(11, 5, 20, 15)}, fence));
}

TEST(Halfspace, CutsACombIntoItsTeeth) {
  // Teeth of width 1 and heights 3 and 2 on a back of height 1, z rising with y.
  const Ring comb_ring = lifted(
      {{0, 0, 0}, {3, 0, 0}, {3, 2, 0}, {2, 2, 0}, {2, 1, 0}, {1, 1, 0}, {1, 3, 0}, {0, 3, 0}}, 0, 10, 5);
  EXPECT_EQ(signed_area(comb_ring), 6);
  EXPECT_EQ(signed_area(keep_above(comb_ring, 15)), 3);
  EXPECT_EQ(signed_area(keep_above(comb_ring, 20)), 2);
  EXPECT_EQ(signed_area(keep_below(comb_ring, 20)), 4);
  EXPECT_EQ(signed_area(keep_between(comb_ring, 20, 30)), 1.5);
  EXPECT_EQ(signed_area(keep_above(comb_ring, 36)), 0);
  EXPECT_EQ(signed_area(keep_below(comb_ring, 40)), 6);
}

}  // namespace
}  // namespace Corvane::Print::tests
