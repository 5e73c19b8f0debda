// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state. Every function leaves a ring that satisfies the invariants of records.h.
#include "clip/ring.h"

#include "clip/node_pool.h"
#include "clip/tolerances.h"

#include <cmath>
#include <utility>

namespace Corvane::Print::clip {
namespace {

void link(FenceVertex* a, FenceVertex* b) {
  a->next = a->next2 = b;
  b->prev = a;
}

// Returns the number of vertices that remain. A vertex that repeats its predecessor goes; at the seam the
// last vertex goes, so that `first` always stays. The edge that is left runs from the vertex that stays to
// the next one that stays, as if the points between had never been given.
int drop_repeated_points(FenceVertex* first) {
  int count = 1;
  FenceVertex* v = first;
  while (v->next != first) {
    if (same_place(*v, *v->next)) {
      link(v, v->next->next);
      set_edge(*v);
    } else {
      v = v->next;
      ++count;
    }
  }
  if (v != first && same_place(*v, *first)) {
    link(v->prev, first);
    set_edge(*first->prev);
    --count;
  }
  return count;
}

}  // namespace

ClipExtent empty_extent() {
  return {kLargest, kLargest, kLargest, -kLargest, -kLargest, -kLargest};
}

void include_extent(ClipExtent& extent, const ClipExtent& other) {
  include_point(extent, other.xmin, other.ymin);
  include_point(extent, other.xmax, other.ymax);
}

FenceVertex* build_ring(const double* points, int count, int dim) {
  FenceVertex* first = nullptr;
  FenceVertex* last = nullptr;
  for (int i = 0; i < count; ++i, points += dim) {
    FenceVertex* v = take_vertex();
    if (v == nullptr) return nullptr;
    v->x = points[0];
    v->y = points[1];
    v->z = dim == 3 ? points[2] : 0.0;
    if (first == nullptr) {
      first = v;
    } else {
      link(last, v);
    }
    last = v;
  }
  link(last, first);
  return first;
}

double shoelace_sum(const FenceVertex* first) {
  double sum = 0.0;
  for_each_vertex(first, [&](const FenceVertex& v) { sum += v.x * v.next->y - v.y * v.next->x; });
  return sum;
}

void reverse_ring(FenceVertex* first) {
  for_each_vertex(first, [](FenceVertex& v) {
    std::swap(v.next, v.prev);
    v.next2 = v.next;
  });
}

void set_edge(FenceVertex& v) {
  const FenceVertex& end = *v.next;
  v.dx = end.x - v.x;
  v.dy = end.y - v.y;
  v.extent = ClipExtent{v.x, v.y, 0.0, v.x, v.y, 0.0};
  include_point(v.extent, end.x, end.y);
}

double edge_tolerance(double dx, double dy) {
  const double length = std::sqrt(dx * dx + dy * dy);
  return length >= 1.0 ? kSnap / length : kSnap;
}

void prepare_ring(FencePolygon& polygon) {
  for_each_vertex(polygon.first, [](FenceVertex& v) { set_edge(v); });
  polygon.vertexCount = drop_repeated_points(polygon.first);
  ClipExtent extent = empty_extent();
  for_each_vertex(polygon.first, [&](FenceVertex& v) {
    v.tolerance = edge_tolerance(v.dx, v.dy);
    include_extent(extent, v.extent);
  });
  polygon.extent.xmin = extent.xmin;
  polygon.extent.ymin = extent.ymin;
  polygon.extent.xmax = extent.xmax;
  polygon.extent.ymax = extent.ymax;
}

void reset_ring(FencePolygon& polygon) {
  for_each_vertex(polygon.first, [](FenceVertex& v) {
    v.next2 = v.next;
    v.next->prev = &v;
    v.marker2 = 0;
    v.partner = nullptr;
  });
}

}  // namespace Corvane::Print::clip
