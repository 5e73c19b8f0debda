// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "tests/support/predicates.h"

#include <cmath>

namespace Corvane::Print::tests {
namespace {

constexpr double kMargin = 0.002;
constexpr double kSafeCross = 0.5;

bool boxes_apart(const Point& a, const Point& b, const Point& c, const Point& d, double margin) {
  return std::max(a.x, b.x) + margin < std::min(c.x, d.x) ||
         std::max(c.x, d.x) + margin < std::min(a.x, b.x) ||
         std::max(a.y, b.y) + margin < std::min(c.y, d.y) || std::max(c.y, d.y) + margin < std::min(a.y, b.y);
}

bool edges_general(const Point& a, const Point& b, const Point& c, const Point& d) {
  if (boxes_apart(a, b, c, d, kMargin)) return true;
  if (distance(a, c, d) < kMargin || distance(b, c, d) < kMargin || distance(c, a, b) < kMargin ||
      distance(d, a, b) < kMargin) {
    return false;
  }
  const double cross = (b.x - a.x) * (d.y - c.y) - (b.y - a.y) * (d.x - c.x);
  return std::fabs(cross) > kSafeCross || !segments_touch(a, b, c, d);
}

bool edge_general(const Point& a, const Point& b, const Ring& other, Outlines kind) {
  const std::size_t edges = kind == Outlines::kRings ? other.size() : other.size() - 1;
  for (std::size_t i = 0; i < edges; ++i) {
    const Point& c = other[i];
    const Point& d = other[(i + 1) % other.size()];
    if (c.x != CL_BREAK && d.x != CL_BREAK && !edges_general(a, b, c, d)) return false;
  }
  return true;
}

}  // namespace

bool segments_touch(const Point& a, const Point& b, const Point& c, const Point& d) {
  const double abc = turn(a, b, c), abd = turn(a, b, d), cda = turn(c, d, a), cdb = turn(c, d, b);
  if (((abc > 0 && abd < 0) || (abc < 0 && abd > 0)) && ((cda > 0 && cdb < 0) || (cda < 0 && cdb > 0)))
    return true;
  return (abc == 0 && between(a, b, c)) || (abd == 0 && between(a, b, d)) || (cda == 0 && between(c, d, a)) ||
         (cdb == 0 && between(c, d, b));
}

bool is_simple(const Ring& ring) {
  const std::size_t n = ring.size();
  if (n < 3) return false;
  for (std::size_t i = 0; i < n; ++i) {
    const Point& a = ring[i];
    const Point& b = ring[(i + 1) % n];
    const Point& after = ring[(i + 2) % n];
    // Neighbouring edges share their vertex and nothing else.
    if (a == b || on_segment(a, b, after) || on_segment(b, after, a)) return false;
    for (std::size_t k = i + 2; k < n && k + 1 < n + i; ++k) {
      if (segments_touch(a, b, ring[k], ring[(k + 1) % n])) return false;
    }
  }
  return true;
}

bool segments_overlap(const Point& p, const Point& q, const Point& r, const Point& s) {
  if (turn(p, q, r) != 0 || turn(p, q, s) != 0) return false;
  // On one line: more than a point in common along the longer axis?
  const bool level = p.y == q.y;
  const double low = level ? std::max(std::min(p.x, q.x), std::min(r.x, s.x))
                           : std::max(std::min(p.y, q.y), std::min(r.y, s.y));
  const double high = level ? std::min(std::max(p.x, q.x), std::max(r.x, s.x))
                            : std::min(std::max(p.y, q.y), std::max(r.y, s.y));
  return low < high;
}

bool overlaps_itself(const Ring& ring) {
  for (std::size_t i = 0; i < ring.size(); ++i) {
    for (std::size_t k = i + 1; k < ring.size(); ++k) {
      if (segments_overlap(ring[i], ring[i + 1], ring[k], ring[(k + 1) % ring.size()])) return true;
    }
  }
  return false;
}

double distance_to_outline(const Point& p, const Ring& ring) {
  double least = distance(p, ring.back(), ring.front());
  for (std::size_t i = 0; i + 1 < ring.size(); ++i)
    least = std::fmin(least, distance(p, ring[i], ring[i + 1]));
  return least;
}

bool outlines_touch(const Ring& a, const Ring& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t k = 0; k < b.size(); ++k) {
      if (segments_touch(a[i], a[(i + 1) % a.size()], b[k], b[(k + 1) % b.size()])) return true;
    }
  }
  return false;
}

double distance(const Point& p, const Point& a, const Point& b) {
  const double dx = b.x - a.x, dy = b.y - a.y, square = dx * dx + dy * dy;
  double t = square > 0 ? ((p.x - a.x) * dx + (p.y - a.y) * dy) / square : 0;
  t = t < 0 ? 0 : t > 1 ? 1 : t;
  return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

bool in_general_position(const Rings& rings, const Rings& others, Outlines kind) {
  for (const Ring& ring : rings) {
    for (std::size_t i = 0; i < ring.size(); ++i) {
      for (const Ring& other : others) {
        if (!edge_general(ring[i], ring[(i + 1) % ring.size()], other, kind)) return false;
      }
    }
  }
  return true;
}

}  // namespace Corvane::Print::tests
