// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Walking a ring that is a row of points: places on it, the points between two places, and directions there.
#ifndef CORVANE_PRINT_CLIP_RING_WALK_H
#define CORVANE_PRINT_CLIP_RING_WALK_H

#include "clip/polygon_index.h"
#include "clip/sides.h"

#include <span>

namespace Corvane::Print::clip {

// A vertex, or a place within the edge from a vertex to the next.
struct RingPlace {
  double param;  // 0 at the vertex, between 0 and 1 within the edge
  int edge;      // the number of the vertex
  bool at_vertex() const { return param == 0.0; }
};

inline bool comes_before(const RingPlace& a, const RingPlace& b) {
  return a.edge != b.edge ? a.edge < b.edge : a.param < b.param;
}

// Consecutive vertices: those up to the end of the index and those from its start.
struct PointsBetween {
  std::span<const LinePoint> first, then;
  bool empty() const { return first.empty() && then.empty(); }
};

// The vertices strictly between two places. `passes_start`: `to` is reached through the ring's first vertex,
// which it may be itself.
inline PointsBetween points_between(const PolygonIndex& index, const RingPlace& from, const RingPlace& to,
                                    bool passes_start) {
  const LinePoint* points = index.points.data();
  const int begin = from.edge + 1, end = to.at_vertex() ? to.edge : to.edge + 1;
  if (!passes_start) return {{points + begin, points + end}, {}};
  return {{points + begin, points + index.count()}, {points, points + end}};
}

// The ring's direction after and before a place of it.
Direction leaving(const PolygonIndex& index, const RingPlace& place);
Direction arriving(const PolygonIndex& index, const RingPlace& place);

}  // namespace Corvane::Print::clip

#endif
