// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/ring_points.h"

#include "clip/ring.h"

#include <cmath>
#include <cstddef>

namespace Corvane::Print::clip {
namespace {

template <int kDim>
LinePoint point_at(const double* p) {
  return {p[0], p[1], kDim == 3 ? p[2] : 0.0};
}

// The first point, then the others from `next` on, `step` doubles apart. The last goes where it repeats the
// first.
template <int kDim>
RingPoints distinct_points(const double* first, const double* next, std::ptrdiff_t step, int count) {
  RingPoints ring(static_cast<std::size_t>(count) + 1);
  LinePoint* const begin = ring.data();
  LinePoint* last = begin;
  *begin = point_at<kDim>(first);
  for (int i = 1; i < count; ++i, next += step) {
    const LinePoint p = point_at<kDim>(next);
    if (!same_place(*last, p)) *++last = p;
  }
  if (last != begin && same_place(*last, *begin)) --last;
  *++last = *begin;
  ring.resize(static_cast<std::size_t>(last - begin) + 1);
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

RingPoints read_ring(const double* points, int count, int dim) {
  const double* second = points + dim;
  return dim == 3 ? distinct_points<3>(points, second, 3, count)
                  : distinct_points<2>(points, second, 2, count);
}

RingPoints read_ring_backwards(const double* points, int count, int dim) {
  const double* last = points + (static_cast<std::ptrdiff_t>(count) - 1) * dim;
  return dim == 3 ? distinct_points<3>(points, last, -3, count) : distinct_points<2>(points, last, -2, count);
}

RingPoints points_of_ring(const FenceVertex* first) {
  platform::CapiVector<LinePoint> points;
  for_each_vertex(first, [&](const FenceVertex& v) { points.push_back({v.x, v.y, v.z}); });
  return read_ring(&points.front().x, static_cast<int>(points.size()), 3);
}

}  // namespace Corvane::Print::clip
