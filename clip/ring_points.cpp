// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/ring_points.h"

#include "clip/ring.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace Corvane::Print::clip {

RingPoints read_ring(const double* points, int count, int dim) {
  RingPoints ring(static_cast<std::size_t>(count) + 1);
  LinePoint* to = ring.data();
  if (dim == 3) {
    for (int i = 0; i < count; ++i, points += 3) *to++ = {points[0], points[1], points[2]};
  } else {
    for (int i = 0; i < count; ++i, points += 2) *to++ = {points[0], points[1], 0.0};
  }
  *to = ring.front();
  return ring;
}

RingPoints points_of_ring(const FenceVertex* first) {
  RingPoints ring;
  for_each_vertex(first, [&](const FenceVertex& v) { ring.push_back({v.x, v.y, v.z}); });
  ring.push_back(ring.front());
  return ring;
}

double shoelace_sum(const RingPoints& ring) {
  double sum = 0.0;
  for (std::size_t i = 0; i + 1 < ring.size(); ++i)
    sum += ring[i].x * ring[i + 1].y - ring[i].y * ring[i + 1].x;
  return sum;
}

void reverse_ring(RingPoints& ring) {
  std::reverse(ring.begin(), ring.end());
}

DepthRange depth_of(const RingPoints& ring) {
  DepthRange range{ring.front().z, ring.front().z};
  for (const LinePoint& p : ring) {
    if (p.z < range.low) range.low = p.z;
    if (p.z > range.high) range.high = p.z;
  }
  return range;
}

bool has_depth(const RingPoints& ring) {
  return std::none_of(ring.begin(), ring.end(), [](const LinePoint& p) { return std::isnan(p.z); });
}

// The ring's repeated first point is put back at the end.
void drop_repeated_points(RingPoints& ring) {
  const std::size_t count = ring.size() - 1;
  std::size_t kept = 1;
  for (std::size_t i = 1; i < count; ++i) {
    if (!same_place(ring[kept - 1], ring[i])) ring[kept++] = ring[i];
  }
  if (kept > 1 && same_place(ring[kept - 1], ring[0])) --kept;
  ring[kept] = ring[0];
  ring.resize(kept + 1);
}

ClipExtent extent_of(const RingPoints& ring) {
  ClipExtent extent = empty_extent();
  for (const LinePoint& p : ring) include_point(extent, p.x, p.y);
  const DepthRange depth = depth_of(ring);
  extent.zmin = depth.low;
  extent.zmax = depth.high;
  return extent;
}

}  // namespace Corvane::Print::clip
