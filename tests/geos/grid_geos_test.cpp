// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Polygon clips on the grid, where vertices and edges coincide all the time, against the independent library,
// by area. No case may fail, hang or write out of bounds; one in a thousand may differ by area.
#include "tests/geos/cases.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/scale.h"

#include <array>
#include <cmath>
#include <cstdlib>

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

constexpr double kTolerance = 1e-6;  // in square units; the smallest grid triangle has 5,000

struct Tally {
  int failures = 0;  // a bad status, a bad count or a write out of bounds
  int cut = 0;       // something but not everything is kept
};

void compare_areas(int index, const Ring& subject, const Rings& fence_rings, int mode, Offenders& offenders,
                   Tally& tally) {
  const Fence fence(fence_rings, mode);
  const Pieces pieces = clip_polygon(fence, subject);
  const bool sound = pieces.status == CL_OK && pieces.canaries && pieces.counted;
  tally.failures += !sound;
  const double expected = expected_kept(Geometry::polygon(subject), fence_rings, mode).area();
  const double found = kept_area(pieces.rings);
  tally.cut += expected > 0 && expected < area(subject);
  if (sound && std::fabs(found - expected) <= kTolerance) {
    offenders.equal();
    return;
  }
  offenders.differs(index,
                    sound ? "area " + std::to_string(found) + " not " + std::to_string(expected)
                          : formal_faults(pieces, mode),
                    subject, fence_rings, mode, pieces.rings);
}

void expect_nearly_all_equal(const Offenders& offenders, const Tally& tally) {
  EXPECT_EQ(tally.failures, 0);
  EXPECT_LE(offenders.differing() * 1000.0, offenders.cases());
  EXPECT_GT(tally.cut * 4, offenders.cases()) << "too few cases in which anything is cut";
}

TEST(GridAgainstGeos, TwoSimplePolygons) {
  Offenders offenders("grid pairs");
  Tally tally;
  std::array<int, static_cast<std::size_t>(GridKin::kCount)> kin_count{};
  int with_vertex = 0, with_edge = 0;
  const int cases = scaled(100000);
  for (int i = 0; i < cases; ++i) {
    Random random(case_seed(21, i));
    GridKin kin = GridKin::kIndependent;
    const GridPair pair = grid_pair(random, &kin);
    ++kin_count[static_cast<std::size_t>(kin)];
    with_vertex += share_vertex(pair.subject, pair.fence);
    with_edge += share_edge_part(pair.subject, pair.fence);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      compare_areas(i, pair.subject, {pair.fence}, mode, offenders, tally);
    }
  }
  std::fprintf(
      stderr,
      "grid pairs: %d identical, %d with the same outline, %d moved, %d differing in a vertex or two, %d "
      "independent; %d share a vertex, %d share part of an edge\n",
      kin_count[1], kin_count[2], kin_count[3], kin_count[4], kin_count[0], with_vertex, with_edge);
  expect_nearly_all_equal(offenders, tally);
  EXPECT_GT(with_vertex, cases / 4);
  EXPECT_GT(with_edge, cases / 4);
}

// The inside test's ray may be turned: (slope, 1) is its direction. Along the grid's own directions it runs
// through vertices all the time.
class RaySlope {
public:
  explicit RaySlope(double slope) { setenv("VX_CLIP_RAY_SLOPE", std::to_string(slope).c_str(), 1); }
  ~RaySlope() { unsetenv("VX_CLIP_RAY_SLOPE"); }
};

bool has_edge_along(const Ring& ring, double slope) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& p = ring[i];
    const Point& q = ring[(i + 1) % ring.size()];
    if ((q.x - p.x) == slope * (q.y - p.y)) return true;
  }
  return false;
}

// Edges in the ray's own line are left out: the vertex rule counts both of their ends, so a ray along one of
// them may be counted once too often. No other ray direction than the built-in one is promised to do better.
TEST(GridAgainstGeos, InsideTestRaysThroughVertices) {
  for (const double slope : {0.0, 1.0, -1.0, 0.5, 2.0, -3.0}) {
    const RaySlope turned(slope);
    Offenders offenders("ray slope " + std::to_string(slope));
    Tally tally;
    for (int i = 0; i < scaled(5000); ++i) {
      Random random(case_seed(28, i));
      const Ring fence = grid_polygon(random), subject = grid_polygon(random);
      // Half of the subjects are small, so that they lie inside or outside as often as not.
      const bool small = random.one_in(2);
      const double x = 50.0 * random.below(15), y = 50.0 * random.below(15);
      if (has_edge_along(fence, slope) || has_edge_along(subject, slope)) continue;
      const Ring placed = small ? moved(enlarged(subject, 1.0 / 16), x, y) : subject;
      for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
        compare_areas(i, placed, {fence}, mode, offenders, tally);
      }
    }
    EXPECT_EQ(tally.failures, 0);
    EXPECT_EQ(offenders.differing(), 0);
  }
}

// Sets of fence polygons by how they lie to one another.
void compare_sets(const char* family, std::uint64_t seeds, Contact contact, int mode, int cases) {
  Offenders offenders(family);
  Tally tally;
  for (int i = 0, tried = 0; i < scaled(cases); ++tried) {
    Random random(case_seed(seeds, tried));
    const Rings fence = grid_disjoint(random, random.between(2, 5));
    if (fence.size() < 2 || contact_between(fence) != contact) continue;
    compare_areas(tried, grid_polygon(random), fence, mode, offenders, tally);
    ++i;
  }
  expect_nearly_all_equal(offenders, tally);
}

TEST(GridAgainstGeos, InsideOfFencePolygonsApart) {
  compare_sets("inside of sets, apart", 22, Contact::kApart, CL_KEEP_INSIDE, 10000);
}

TEST(GridAgainstGeos, OutsideOfFencePolygonsApart) {
  compare_sets("outside of sets, apart", 23, Contact::kApart, CL_KEEP_OUTSIDE, 10000);
}

TEST(GridAgainstGeos, InsideOfFencePolygonsThatTouchAtPoints) {
  compare_sets("inside of sets touching at points", 24, Contact::kPoints, CL_KEEP_INSIDE, 5000);
}

TEST(GridAgainstGeos, OutsideOfFencePolygonsThatTouchAtPoints) {
  compare_sets("outside of sets touching at points", 25, Contact::kPoints, CL_KEEP_OUTSIDE, 5000);
}

TEST(GridAgainstGeos, InsideOfFencePolygonsThatShareEdges) {
  compare_sets("inside of sets sharing edges", 26, Contact::kEdges, CL_KEEP_INSIDE, 5000);
}

TEST(GridAgainstGeos, OutsideOfFencePolygonsThatShareEdges) {
  compare_sets("outside of sets sharing edges", 27, Contact::kEdges, CL_KEEP_OUTSIDE, 5000);
}

}  // namespace
}  // namespace Corvane::Print::tests
