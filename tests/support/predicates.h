// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How segments and rings lie to each other. Exact for coordinates that are integers below 2^25.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_PREDICATES_H
#define CORVANE_PRINT_TESTS_SUPPORT_PREDICATES_H

#include "tests/support/ring.h"

namespace Corvane::Print::tests {

// Positive when a, b, c turn left.
inline double turn(const Point& a, const Point& b, const Point& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

// Whether c, known to lie on the line through a and b, lies between them or on one of them.
inline bool between(const Point& a, const Point& b, const Point& c) {
  return std::min(a.x, b.x) <= c.x && c.x <= std::max(a.x, b.x) && std::min(a.y, b.y) <= c.y &&
         c.y <= std::max(a.y, b.y);
}

inline bool on_segment(const Point& a, const Point& b, const Point& c) {
  return turn(a, b, c) == 0 && between(a, b, c);
}

// Whether two closed segments have a point in common.
bool segments_touch(const Point& a, const Point& b, const Point& c, const Point& d);

// Whether two segments lie on one line and have more than a point in common.
bool segments_overlap(const Point& p, const Point& q, const Point& r, const Point& s);

// A ring without spikes, repeated points or any other touching of itself.
bool is_simple(const Ring& ring);

// Whether two edges of the ring lie on one another for more than a point.
bool overlaps_itself(const Ring& ring);

double distance_to_outline(const Point& p, const Ring& ring);

// Whether any two edges of the rings touch.
bool outlines_touch(const Ring& a, const Ring& b);

// How far a point lies from a segment.
double distance(const Point& p, const Point& a, const Point& b);

// Whether no tolerance of the engine can matter between the two sets of outlines: no vertex of one lies
// within 0.002 of an edge of the other (the widest tolerance is the inside test's 0.001), and edges that
// cross have a cross product well above the limit of 0.05 under which they count as parallel. `closed` tells
// whether the second set are rings or polylines with breaks.
enum class Outlines { kRings, kLines };
bool in_general_position(const Rings& rings, const Rings& others, Outlines kind = Outlines::kRings);

}  // namespace Corvane::Print::tests

#endif
