// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Plane polygons in space, cut to a fence's depth range. Their part within the range is their outline cut by
// two half-planes, which the independent library intersects; in mode 1 nothing is cut.
#include "tests/geos/cases.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/halfspace.h"
#include "tests/support/predicates.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <cmath>

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

constexpr double kTolerance = 1e-9;

// z = a x + b y + c.
struct Plane {
  double a, b, c;
};

// The part of a box of half side `reach` around `middle` with low <= z <= high.
Geometry slab(const Plane& plane, double low, double high, const Point& middle, double reach) {
  Ring box = rectangle(middle.x - reach, middle.y - reach, middle.x + reach, middle.y + reach);
  const Ring part = keep_between(lifted(std::move(box), plane.a, plane.b, plane.c), low, high);
  return Geometry::polygon(part);  // a convex outline: the cut is the kept part itself
}

struct DepthCase {
  Case flat;
  Plane plane{};
  double low = 0, high = 0;
  Ring lifted_subject;
};

void choose_range(Random& random, DepthCase& c) {
  double least = c.lifted_subject[0].z, most = least;
  for (const Point& p : c.lifted_subject) least = std::fmin(least, p.z), most = std::fmax(most, p.z);
  c.low = random.between(least, most);
  c.high = c.low + random.unit() * random.unit() * 1.5 * (most - least);
}

// Clear of tolerances also along the cut lines.
DepthCase depth_case(Random& random, int most_fence_polygons) {
  for (;;) {
    DepthCase c;
    c.flat = polygon_case(random, most_fence_polygons);
    c.plane = {random.between(-2.0, 2.0), random.between(-2.0, 2.0),
               random.between(-1.0, 1.0) * c.flat.scale};
    c.lifted_subject = lifted(c.flat.subject, c.plane.a, c.plane.b, c.plane.c);
    choose_range(random, c);
    const Ring part = keep_between(c.lifted_subject, c.low, c.high);
    if (part.size() >= 3 && in_general_position(c.flat.fence, {part})) return c;
  }
}

bool is_vertex_of(const Rings& fence, const Point& p) {
  for (const Ring& ring : fence) {
    for (const Point& vertex : ring) {
      if (vertex.x == p.x && vertex.y == p.y) return true;
    }
  }
  return false;
}

// Crossings carry the subject's z; only the fence's own vertices keep theirs.
std::string height_fault(const Rings& pieces, const Rings& fence, const Plane& plane, double slack) {
  for (const Ring& ring : pieces) {
    for (const Point& p : ring) {
      const double expected = plane.a * p.x + plane.b * p.y + plane.c;
      if (std::fabs(p.z - expected) > slack && !is_vertex_of(fence, p)) {
        return "z at " + text_of({p}) + " should be " + std::to_string(expected);
      }
    }
  }
  return "";
}

std::string depth_fault(const DepthCase& c, int mode, Pieces& pieces) {
  const Fence fence(c.flat.fence, mode, {3, c.low, c.high});
  pieces = clip_polygon(fence, c.lifted_subject, 3);
  const std::string fault = formal_faults(pieces, mode);
  if (!fault.empty()) return fault;
  Geometry subject = Geometry::polygon(c.flat.subject);
  if (mode == CL_KEEP_INSIDE) {
    subject = subject.intersection(slab(c.plane, c.low, c.high, c.flat.subject[0], 10 * c.flat.scale));
  }
  const double difference =
      relative_difference(pieces.rings, expected_kept(subject, c.flat.fence, mode), area(c.flat.subject));
  return difference <= kTolerance ? ""
                                  : "region differs by " + std::to_string(difference) + " of the subject's";
}

void compare(const char* family, std::uint64_t seeds, int cases, int most_fence_polygons) {
  Offenders offenders(family);
  for (int i = 0; i < scaled(cases); ++i) {
    Random random(case_seed(seeds, i));
    const DepthCase c = depth_case(random, most_fence_polygons);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      Pieces pieces;
      const std::string fault = depth_fault(c, mode, pieces);
      if (fault.empty()) {
        offenders.equal();
        continue;
      }
      offenders.differs(i, fault, c.lifted_subject, c.flat.fence, mode, pieces.rings);
      std::fprintf(stderr, "  depth %.17g to %.17g\n", c.low, c.high);
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

TEST(DepthAgainstGeos, OneFencePolygon) {
  compare("depth, one fence polygon", 51, 4000, 1);
}

TEST(DepthAgainstGeos, SeveralDisjointFencePolygons) {
  compare("depth, several fence polygons", 52, 2000, 6);
}

// Edges that lie on one another are the sign of parts that were joined in the wrong order along the cut line.
std::string joint_fault(const Rings& pieces) {
  for (const Ring& ring : pieces) {
    if (overlaps_itself(ring)) return "a piece that overlaps itself " + text_of(ring);
  }
  return "";
}

bool within(const Rings& pieces, double low, double high) {
  for (const Ring& ring : pieces) {
    for (const Point& p : ring) {
      if (p.z < low || p.z > high) return false;
    }
  }
  return true;
}

// Vertices and edges lie exactly in the bounds here; the fence holds the whole subject.
TEST(DepthAgainstGeos, GridPolygonsWithBoundsThroughTheirVertices) {
  Offenders offenders("depth on the grid");
  const Ring around = rectangle(-1000, -1000, 2000, 2000);
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(53, i));
    const Plane plane = {static_cast<double>(random.between(-2, 2)),
                         static_cast<double>(random.between(-2, 2)), 0};
    const Ring subject = lifted(grid_polygon(random), plane.a, plane.b, plane.c);
    const auto size = static_cast<int>(subject.size());
    const double z1 = subject[static_cast<std::size_t>(random.below(size))].z;
    const double z2 = subject[static_cast<std::size_t>(random.below(size))].z;
    const double low = std::fmin(z1, z2), high = std::fmax(z1, z2);
    const Fence fence({around}, CL_KEEP_INSIDE, {3, low, high});
    const Pieces pieces = clip_polygon(fence, subject, 3);
    std::string fault = formal_faults(pieces, CL_KEEP_INSIDE);
    if (fault.empty()) {
      Geometry expected = Geometry::polygon(subject);
      // A horizontal subject lies in both bounds and is kept.
      if (plane.a != 0 || plane.b != 0)
        expected = expected.intersection(slab(plane, low, high, {400, 400, 0}, 1e4));
      const double difference = relative_difference(pieces.rings, expected, area(subject));
      if (!(difference <= kTolerance)) fault = "region differs by " + std::to_string(difference);
      if (fault.empty()) fault = height_fault(pieces.rings, {around}, plane, kTolerance * 1000);
      // Where the cut line is level or upright its points are exact, and so is the answer.
      if (fault.empty() && (plane.a == 0) != (plane.b == 0)) fault = joint_fault(pieces.rings);
      if (fault.empty() && !within(pieces.rings, low, high)) fault = "a point out of the range";
    }
    if (fault.empty()) {
      offenders.equal();
      continue;
    }
    offenders.differs(i, fault, subject, {around}, CL_KEEP_INSIDE, pieces.rings);
    std::fprintf(stderr, "  depth %.17g to %.17g\n", low, high);
  }
  EXPECT_EQ(offenders.differing(), 0);
}

bool has_no_height(const Ring& ring) {
  for (const Point& p : ring) {
    if (p.z != 0) return false;
  }
  return true;
}

bool is_straight_vertex_of(const Ring& fence, const Point& p) {
  for (std::size_t i = 0; i < fence.size(); ++i) {
    const Point& at = fence[(i + 1) % fence.size()];
    if (at.x == p.x && at.y == p.y) return turn(fence[i], at, fence[(i + 2) % fence.size()]) == 0;
  }
  return false;
}

// A fence polygon that is emitted as it is keeps its own z. So does a straight vertex of the fence: where it
// lies on a shared edge all edges are parallel, so nothing crosses there.
std::string grid_height_fault(const Rings& pieces, const GridPair& pair, const Plane& plane) {
  for (const Ring& ring : pieces) {
    if (has_no_height(ring)) continue;
    for (const Point& p : ring) {
      if (is_straight_vertex_of(pair.fence, p)) continue;
      const bool on_subject = distance_to_outline(p, pair.subject) < 1e-9;
      const double expected = on_subject ? plane.a * p.x + plane.b * p.y + plane.c : 0;
      if (!(std::fabs(p.z - expected) <= 1e-5))
        return "z at " + text_of({p}) + " not " + std::to_string(expected);
    }
  }
  return "";
}

// Subjects and fences that share vertices and edges: wherever a piece of both has a point of the subject's
// outline, it has the subject's z, and the fence's only elsewhere.
TEST(DepthAgainstGeos, GridCrossingsCarryTheSubjectsHeight) {
  Offenders offenders("heights on the grid");
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(54, i));
    GridKin kin{};
    const GridPair pair = grid_pair(random, &kin);
    const Plane plane = {random.between(1, 3) * 1.0, random.between(1, 3) * 1.0, 5000};
    const Ring subject = lifted(pair.subject, plane.a, plane.b, plane.c);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      const Fence fence({pair.fence}, mode, {3, -1e5, 1e5});
      const Pieces pieces = clip_polygon(fence, subject, 3);
      const std::string fault = pieces.status == CL_OK ? grid_height_fault(pieces.rings, pair, plane)
                                                       : "status " + std::to_string(pieces.status);
      if (fault.empty()) {
        offenders.equal();
      } else {
        offenders.differs(i, fault, subject, {pair.fence}, mode, pieces.rings);
      }
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
