// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Polygon clips in general position against the independent library: the region that the pieces enclose, in
// both modes, with one fence polygon and with several. What counts is the region, to 1e-9 of the subject's
// area; where a piece starts is not compared.
#include "tests/geos/cases.h"
#include "tests/support/area.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <cmath>

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

constexpr double kTolerance = 1e-9;

// Empty when the clip is right.
std::string polygon_fault(const Case& c, int mode, Pieces& pieces) {
  const Fence fence(c.fence, mode);
  pieces = clip_polygon(fence, c.subject);
  const std::string fault = formal_faults(pieces, mode);
  if (!fault.empty()) return fault;
  const double whole = area(c.subject);
  const Geometry expected = expected_kept(Geometry::polygon(c.subject), c.fence, mode);
  const double by_area = std::fabs(kept_area(pieces.rings) - expected.area()) / whole;
  if (!(by_area <= kTolerance)) return "area differs by " + std::to_string(by_area) + " of the subject's";
  const double difference = relative_difference(pieces.rings, expected, whole);
  if (!(difference <= kTolerance))
    return "region differs by " + std::to_string(difference) + " of the subject's";
  return shape_faults(pieces.rings);
}

void compare(const char* family, std::uint64_t seeds, int cases, int most_fence_polygons) {
  Offenders offenders(family);
  for (int i = 0; i < scaled(cases); ++i) {
    Random random(case_seed(seeds, i));
    const Case c = polygon_case(random, most_fence_polygons);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      Pieces pieces;
      const std::string fault = polygon_fault(c, mode, pieces);
      if (fault.empty()) {
        offenders.equal();
      } else {
        offenders.differs(i, fault, c.subject, c.fence, mode, pieces.rings);
      }
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

TEST(PolygonAgainstGeos, OneFencePolygon) {
  compare("one fence polygon", 11, 10000, 1);
}

TEST(PolygonAgainstGeos, SeveralDisjointFencePolygons) {
  compare("several fence polygons", 12, 5000, 8);
}

TEST(PolygonAgainstGeos, BenchmarkStars) {
  for (const StarFamily family : {StarFamily::kSpiky, StarFamily::kRough, StarFamily::kWavy}) {
    const double off = family == StarFamily::kWavy ? 1 : 0;
    Case c;
    c.subject = benchmark_star(family, 1000, 1, 0, -150000 * off, -100000 * off, 1e6);
    c.fence = {benchmark_star(family, 1000, 2, 0.5, 150000 * off, 100000 * off, 1e6)};
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      Pieces pieces;
      EXPECT_EQ(polygon_fault(c, mode, pieces), "")
          << "family " << static_cast<int>(family) << " mode " << mode;
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
