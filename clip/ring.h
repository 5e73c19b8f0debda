// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Rings of vertices: building, direction, cleaning, edge data, reset. Fences and subjects share all of it.
#ifndef CORVANE_PRINT_CLIP_RING_H
#define CORVANE_PRINT_CLIP_RING_H

#include "clip/records.h"
#include "clip/tolerances.h"

#include <cmath>

namespace Corvane::Print::clip {

// Calls visit(vertex) for each vertex of the ring as it was given, from `first` on.
template <class Vertex, class Visit>
void for_each_vertex(Vertex* first, Visit&& visit) {
  Vertex* v = first;
  do {
    Vertex* following = v->next;
    visit(*v);
    v = following;
  } while (v != first);
}

// An extent that holds nothing yet: including a point makes it that point.
ClipExtent empty_extent();
inline void include_point(ClipExtent& extent, double x, double y) {
  if (x < extent.xmin) extent.xmin = x;
  if (x > extent.xmax) extent.xmax = x;
  if (y < extent.ymin) extent.ymin = y;
  if (y > extent.ymax) extent.ymax = y;
}

void include_extent(ClipExtent& extent, const ClipExtent& other);

inline bool overlap_xy(const ClipExtent& a, const ClipExtent& b) {
  return a.xmin <= b.xmax && a.xmax >= b.xmin && a.ymin <= b.ymax && a.ymax >= b.ymin;
}

inline bool within_xy(const ClipExtent& inner, const ClipExtent& outer) {
  return inner.xmin >= outer.xmin && inner.xmax <= outer.xmax && inner.ymin >= outer.ymin &&
         inner.ymax <= outer.ymax;
}

// KEEP(repeated-points-z): x and y are compared with a tolerance and z exactly.
// Looks wrong; steep lines in depth live on points that differ in z alone. Pinned by
// Ring.PointsThatDifferInZAreTwoHoweverLittle.
template <class Point>
bool same_place(const Point& a, const Point& b) {
  return std::fabs(b.x - a.x) < kSamePlace && std::fabs(b.y - a.y) < kSamePlace && a.z == b.z;
}

// A ring of `count` >= 1 points, dim doubles each. Null when memory ran out.
FenceVertex* build_ring(const double* points, int count, int dim);

// The sum of x(i)*y(i+1) - y(i)*x(i+1): twice the area, positive when the ring runs counter-clockwise.
double shoelace_sum(const FenceVertex* first);

void reverse_ring(FenceVertex* first);

// Fills the edge vector and edge extent of one vertex from its successor.
void set_edge(FenceVertex& v);

// Edge vectors and extents, then the removal of repeated points, then tolerances; sets the polygon's vertex
// count and its x/y extent. `polygon.first` must be set.
void prepare_ring(FencePolygon& polygon);

// The share of the edge that a crossing may be off its end and still snap to it.
double edge_tolerance(double dx, double dy);

// Forgets a clip: every vertex is its own working successor's predecessor again and has no partner.
void reset_ring(FencePolygon& polygon);

}  // namespace Corvane::Print::clip

#endif
