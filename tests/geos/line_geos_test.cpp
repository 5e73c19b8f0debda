// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Polylines against polygonal fences in general position: the kept length, piece by piece of the input,
// against the independent library. Rectangular fences in mode 2 have another line clipper with a tolerance of
// its own and are left out here.
#include "tests/geos/cases.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/scale.h"

#include <cmath>

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

constexpr double kTolerance = 1e-9;

// Segment by segment: a polyline that crosses itself gives the library no trouble then.
double expected_length(const Ring& line, const Rings& fence, int mode) {
  const Geometry all = Geometry::united(fence);
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i - 1].x == CL_BREAK || line[i].x == CL_BREAK || line[i - 1] == line[i]) continue;
    const Geometry segment = Geometry::line({line[i - 1], line[i]});
    const Geometry kept = mode == CL_KEEP_INSIDE ? segment.intersection(all) : segment.difference(all);
    sum += kept.length();
  }
  return sum;
}

bool uses_rectangle_clipper(const Fence& fence) {
  int words[14] = {};
  CLinqFenceInfo(fence.handle(), words);
  return words[13] == 1;
}

// Each piece must also lie where it should, not only have the right length.
bool lies_on_kept_side(const Ring& piece, const Geometry& all, int mode, double slack) {
  for (std::size_t i = 1; i < piece.size(); ++i) {
    if (segment_length(piece[i - 1], piece[i]) <= slack) continue;
    const Geometry segment = Geometry::line({piece[i - 1], piece[i]});
    const double outside =
        mode == CL_KEEP_INSIDE ? segment.difference(all).length() : segment.intersection(all).length();
    if (outside > slack) return false;
  }
  return true;
}

std::string length_fault(const Case& c, int mode, const Pieces& pieces) {
  if (pieces.status != CL_OK) return "status " + std::to_string(pieces.status);
  if (!pieces.canaries) return "wrote past its arrays";
  if (!pieces.counted) return "the counts do not describe the points";
  const double whole = length(c.subject), expected = expected_length(c.subject, c.fence, mode);
  const double found = length(pieces.rings);
  if (std::fabs(found - expected) <= kTolerance * whole) return "";
  return "length " + std::to_string(found) + " not " + std::to_string(expected);
}

std::string side_fault(const Case& c, int mode, const Pieces& pieces) {
  const Geometry all = Geometry::united(c.fence);
  const double slack = kTolerance * length(c.subject);
  for (const Ring& piece : pieces.rings) {
    if (!lies_on_kept_side(piece, all, mode, slack)) return "a piece on the wrong side " + text_of(piece);
  }
  for (std::size_t i = 1; i < pieces.rings.size(); ++i) {
    if (pieces.rings[i - 1].back() == pieces.rings[i].front()) return "a piece that is cut for nothing";
  }
  return "";
}

void note(Offenders& offenders, int index, const std::string& fault, const Case& c, int mode,
          const Pieces& pieces) {
  if (fault.empty()) {
    offenders.equal();
  } else {
    offenders.differs(index, fault, c.subject, c.fence, mode, pieces.rings);
  }
}

void compare(const char* family, std::uint64_t seeds, int cases, int most_fence_polygons) {
  Offenders offenders(family);
  for (int i = 0; i < scaled(cases); ++i) {
    Random random(case_seed(seeds, i));
    const Case c = line_case(random, most_fence_polygons);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      const Fence fence(c.fence, mode);
      if (uses_rectangle_clipper(fence)) continue;
      const Pieces pieces = clip_line(fence, c.subject);
      std::string fault = length_fault(c, mode, pieces);
      if (fault.empty()) fault = side_fault(c, mode, pieces);
      note(offenders, i, fault, c, mode, pieces);
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

TEST(LineAgainstGeos, OneFencePolygon) {
  compare("lines, one fence polygon", 31, 4000, 1);
}

TEST(LineAgainstGeos, SeveralDisjointFencePolygons) {
  compare("lines, several fence polygons", 32, 2000, 8);
}

// Between grid points, often level or upright.
Ring grid_line(Random& random) {
  Ring line;
  for (int k = random.between(2, 12); k > 0; --k) {
    const int x = random.below(kGridSide), y = random.below(kGridSide);
    Point p = {x * kGridSpacing, y * kGridSpacing, 0};
    if (!line.empty() && random.one_in(4)) p.x = line.back().x;
    if (!line.empty() && random.one_in(4)) p.y = line.back().y;
    if (line.empty() || p != line.back()) line.push_back(p);
  }
  if (line.size() < 2) line.push_back({line[0].x + kGridSpacing, line[0].y, 0});
  return line;
}

// A part along the fence's outline counts as inside, as the library has it too. On which side a piece along
// the outline lies is a matter of its last bit, so only lengths are compared.
TEST(LineAgainstGeos, LinesOnTheGrid) {
  Offenders offenders("lines on the grid");
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(33, i));
    Case c;
    c.fence = {grid_polygon(random)};
    c.subject = grid_line(random);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      const Fence fence(c.fence, mode);
      if (uses_rectangle_clipper(fence)) continue;
      const Pieces pieces = clip_line(fence, c.subject);
      note(offenders, i, length_fault(c, mode, pieces), c, mode, pieces);
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
