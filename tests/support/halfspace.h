// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A second implementation of the depth cut, for areas only: it keeps one ring, walks its edges once and joins
// what is left with edges along the cut line. Such joints enclose nothing, so the signed area is exactly that
// of the kept part, however many parts it has.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_HALFSPACE_H
#define CORVANE_PRINT_TESTS_SUPPORT_HALFSPACE_H

#include "tests/support/ring.h"

namespace Corvane::Print::tests {

namespace halfspace_detail {

// Keeps sign * z >= sign * bound.
inline Ring one_side(const Ring& ring, double bound, double sign) {
  Ring kept;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& p = ring[i];
    const Point& q = ring[(i + 1) % ring.size()];
    const double dp = sign * (p.z - bound), dq = sign * (q.z - bound);
    if (dp >= 0) kept.push_back(p);
    if ((dp > 0 && dq < 0) || (dp < 0 && dq > 0)) {
      const double t = (bound - p.z) / (q.z - p.z);
      kept.push_back({p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), bound});
    }
  }
  return kept;
}

}  // namespace halfspace_detail

// The part of a ring with z >= bound.
inline Ring keep_above(const Ring& ring, double bound) {
  return halfspace_detail::one_side(ring, bound, 1.0);
}

// The part of a ring with z <= bound.
inline Ring keep_below(const Ring& ring, double bound) {
  return halfspace_detail::one_side(ring, bound, -1.0);
}

inline Ring keep_between(const Ring& ring, double low, double high) {
  return keep_below(keep_above(ring, low), high);
}

}  // namespace Corvane::Print::tests

#endif
