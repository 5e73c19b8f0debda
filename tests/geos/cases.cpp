// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "tests/geos/cases.h"

#include "tests/support/area.h"
#include "tests/support/predicates.h"
#include "tests/support/shapes.h"

#include <array>
#include <utility>

namespace Corvane::Print::tests {
namespace {

constexpr int kTold = 5;

// 1e2, 1e3, 1e4, 1e5 or 1e6 times something between 1 and 2.
double random_scale(Random& random) {
  static constexpr std::array<double, 5> kScales = {1e2, 1e3, 1e4, 1e5, 1e6};
  return kScales[static_cast<std::size_t>(random.below(5))] * random.between(1.0, 2.0);
}

Ring somewhere(Random& random, Ring ring, double reach) {
  const double x = random.between(-reach, reach), y = random.between(-reach, reach);
  return moved(std::move(ring), x, y);
}

void move_all(Random& random, Case& c) {
  const double x = random.between(-3.0, 3.0) * c.scale, y = random.between(-3.0, 3.0) * c.scale;
  for (Ring& ring : c.fence) ring = moved(std::move(ring), x, y);
  for (Point& p : c.subject) {
    if (p.x != CL_BREAK) p.x += x, p.y += y;
  }
}

Rings random_fence(Random& random, int most, double scale) {
  if (most > 1) return disjoint_shapes(random, most, scale);
  Ring ring = any_shape(random, scale * random.between(0.1, 1.0));
  return {somewhere(random, std::move(ring), 0.5 * scale)};
}

// Rings are handed over in both directions.
Ring either_way(Random& random, Ring ring) {
  return random.one_in(2) ? reversed(std::move(ring)) : ring;
}

}  // namespace

Case polygon_case(Random& random, int most_fence_polygons) {
  for (;;) {
    Case c;
    c.scale = random_scale(random);
    c.fence = random_fence(random, most_fence_polygons, c.scale);
    for (Ring& ring : c.fence) ring = either_way(random, std::move(ring));
    c.subject = any_shape(random, c.scale * random.between(0.1, 1.0));
    c.subject = either_way(random, somewhere(random, std::move(c.subject), 0.5 * c.scale));
    move_all(random, c);
    if (in_general_position(c.fence, {c.subject})) return c;
  }
}

Case line_case(Random& random, int most_fence_polygons) {
  for (;;) {
    Case c;
    c.scale = random_scale(random);
    c.fence = random_fence(random, most_fence_polygons, c.scale);
    c.subject = polyline(random, random.between(2, 40), c.scale);
    move_all(random, c);
    if (in_general_position(c.fence, {c.subject}, Outlines::kLines)) return c;
  }
}

Geometry expected_kept(const Geometry& subject, const Rings& fence, int mode) {
  const Geometry all = Geometry::united(fence);
  return mode == CL_KEEP_INSIDE ? subject.intersection(all) : subject.difference(all);
}

std::string formal_faults(const Pieces& pieces, int mode) {
  if (pieces.status != CL_OK) return "status " + std::to_string(pieces.status);
  if (!pieces.canaries) return "wrote past its arrays";
  if (!pieces.counted) return "the counts do not describe the points";
  for (const Ring& ring : pieces.rings) {
    if (ring.empty()) return "an empty piece";
    if (mode == CL_KEEP_INSIDE && signed_area(ring) > 0) return "a counter-clockwise piece";
  }
  return "";
}

std::string shape_faults(const Rings& pieces) {
  for (const Ring& ring : pieces) {
    if (!Geometry::is_simple_ring(ring)) return "a piece that touches itself " + text_of(ring);
  }
  return "";
}

double relative_difference(const Rings& pieces, const Geometry& expected, double subject_area) {
  return Geometry::even_odd(pieces).symmetric_difference(expected).area() / subject_area;
}

std::string text_of(const Case& c, int mode) {
  return "mode " + std::to_string(mode) + " subject " + text_of(c.subject) + " fence " + text_of(c.fence);
}

Offenders::~Offenders() {
  std::fprintf(stderr, "%s: %d of %d cases differ\n", family_.c_str(), differing_, cases_);
}

void Offenders::differs(int index, const std::string& what, const Ring& subject, const Rings& fence, int mode,
                        const Rings& pieces) {
  ++cases_;
  if (++differing_ > kTold) return;
  std::fprintf(stderr, "%s case %d mode %d: %s\n  subject %s\n  fence %s\n  pieces %s\n", family_.c_str(),
               index, mode, what.c_str(), text_of(subject).c_str(), text_of(fence).c_str(),
               text_of(pieces).c_str());
}

}  // namespace Corvane::Print::tests
