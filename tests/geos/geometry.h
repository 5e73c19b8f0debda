// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Geometries of the independent library as values. A failed operation throws std::runtime_error with the
// library's own words.
#ifndef CORVANE_PRINT_TESTS_GEOS_GEOMETRY_H
#define CORVANE_PRINT_TESTS_GEOS_GEOMETRY_H

#include "tests/support/ring.h"

#include <memory>

struct GEOSGeom_t;

namespace Corvane::Print::tests {

class Geometry {
public:
  Geometry() = default;  // nothing at all

  static Geometry polygon(const Ring& ring);
  // The union; the rings may touch or overlap.
  static Geometry united(const Rings& rings);
  // What lies inside an odd number of the rings: outlines with their holes.
  static Geometry even_odd(const Rings& rings);
  static Geometry line(const Ring& points);

  // Whether the ring neither crosses nor touches itself.
  static bool is_simple_ring(const Ring& ring);

  Geometry intersection(const Geometry& other) const;
  Geometry difference(const Geometry& other) const;
  Geometry symmetric_difference(const Geometry& other) const;
  double area() const;
  double length() const;
  bool empty() const { return !geometry_; }

private:
  struct Release {
    void operator()(GEOSGeom_t* geometry) const;
  };
  explicit Geometry(GEOSGeom_t* geometry);

  std::unique_ptr<GEOSGeom_t, Release> geometry_;
};

}  // namespace Corvane::Print::tests

#endif
