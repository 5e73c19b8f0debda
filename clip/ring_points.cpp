// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/ring_points.h"

#include "clip/ring.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Corvane::Print::clip {
namespace {

template <int kDim>
LinePoint point_at(const double* p) {
  return {p[0], p[1], kDim == 3 ? p[2] : 0.0};
}

// The first point, then the others from `next` on, `step` doubles apart. The last goes where it repeats the
// first. Long rings are read in portions that the fastest cache holds until there are boxes over them; the
// point at hand is the end of no edge yet, as it may go.
template <int kDim>
IndexedRing distinct_points(const double* first, const double* next, std::ptrdiff_t step, int count) {
  constexpr int kPortion = 512;
  IndexedRing ring = {RingPoints(static_cast<std::size_t>(count) + 1), {}};
  LinePoint* const begin = ring.points.data();
  ring.edges.begin(begin, count);
  LinePoint* last = begin;
  LinePoint before = point_at<kDim>(first);
  *begin = before;
  for (int i = 1; i < count;) {
    const int end = std::min(count - i, kPortion) + i;
    for (; i < end; ++i, next += step) {
      const LinePoint p = point_at<kDim>(next);
      if (same_place(before, p)) continue;
      before = p;
      ++last;
      last->x = p.x;  // one by one: copied whole, it goes over the stack, for a third more time
      last->y = p.y;
      last->z = p.z;
    }
    ring.edges.extend(static_cast<int>(last - begin) - 1);
  }
  if (last != begin && same_place(*last, *begin)) --last;
  *++last = *begin;
  const std::ptrdiff_t edges = last - begin;
  ring.edges.finish(static_cast<int>(edges));
  ring.points.resize(static_cast<std::size_t>(edges) + 1);
  return ring;
}

}  // namespace

double shoelace_sum(const double* points, int count, int dim) {
  double sum = 0.0;
  const double* p = points;
  for (int i = 1; i < count; ++i, p += dim) sum += p[0] * p[dim + 1] - p[1] * p[dim];
  return sum + (p[0] * points[1] - p[1] * points[0]);
}

DepthRange depth_of(const double* points, int count) {
  DepthRange range{points[2], points[2]};
  for (int i = 0; i < count; ++i, points += 3) {
    if (points[2] < range.low) range.low = points[2];
    if (points[2] > range.high) range.high = points[2];
  }
  return range;
}

bool has_depth(const double* points, int count) {
  for (int i = 0; i < count; ++i, points += 3) {
    if (std::isnan(points[2])) return false;
  }
  return true;
}

IndexedRing read_ring(const double* points, int count, int dim) {
  const double* second = points + dim;
  return dim == 3 ? distinct_points<3>(points, second, 3, count)
                  : distinct_points<2>(points, second, 2, count);
}

IndexedRing read_ring_backwards(const double* points, int count, int dim) {
  const double* last = points + (static_cast<std::ptrdiff_t>(count) - 1) * dim;
  return dim == 3 ? distinct_points<3>(points, last, -3, count) : distinct_points<2>(points, last, -2, count);
}

IndexedRing points_of_ring(const FenceVertex* first) {
  platform::CapiVector<LinePoint> points;
  for_each_vertex(first, [&](const FenceVertex& v) { points.push_back({v.x, v.y, v.z}); });
  return read_ring(&points.front().x, static_cast<int>(points.size()), 3);
}

}  // namespace Corvane::Print::clip
