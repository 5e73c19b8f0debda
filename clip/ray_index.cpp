// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Places are measured across the rays, as the cross product with the ray itself. The margin of an edge of
// length L, with a ray of length R:
//   0.1 R / L        a nearly parallel edge counts as met by a probe within 0.05 / L of its line, and along
//                    the line it may be as far off as the extent is wide, where it has drifted as much again;
//   2e-5 of its own  twice the snapping tolerance;
//   2^-40 R (w + h)  rounding, some thousand times over.
#include "clip/ray_index.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <stdexcept>

namespace Corvane::Print::clip {

void RayIndex::build(Points points, const ClipExtent& extent, double ray_dx, double ray_dy) noexcept try {
  built_ = true;
  extent_ = extent;
  ray_dx_ = ray_dx;
  ray_dy_ = ray_dy;
  if (!measure(points)) return;
  choose_slabs(points);
  list_edges(points);
} catch (const std::bad_alloc&) {
  slabs_ = 0;
} catch (const std::length_error&) {
  slabs_ = 0;
}

// False without a width, or where it cannot be told.
bool RayIndex::measure(Points points) {
  ray_length_ = std::sqrt(ray_dx_ * ray_dx_ + ray_dy_ * ray_dy_);
  rounding_ = ray_length_ * ((extent_.xmax - extent_.xmin) + (extent_.ymax - extent_.ymin)) * 0x1p-40;
  double most = -std::numeric_limits<double>::max();
  least_ = -most;
  for (const LinePoint& p : points) {
    const double place = across(p.x, p.y);
    least_ = std::min(least_, place);
    most = std::max(most, place);
  }
  width_ = most - least_;
  return width_ > rounding_ && std::isfinite(width_) && std::isfinite(rounding_);
}

RayIndex::Slabs RayIndex::slabs_of_edge(const LinePoint& p, const LinePoint& q) const {
  const double dx = q.x - p.x, dy = q.y - p.y;
  if (dx == 0.0 && dy == 0.0) return {0, -1};
  const double a = across(p.x, p.y), b = across(q.x, q.y);
  const double margin =
      0.1 * ray_length_ / std::sqrt(dx * dx + dy * dy) + 2e-5 * std::fabs(b - a) + rounding_;
  return {slab_of(std::min(a, b) - margin), slab_of(std::max(a, b) + margin)};
}

long long RayIndex::entries_of(Points points) const {
  long long entries = 0;
  for (std::size_t e = 0; e + 1 < points.size(); ++e) {
    const Slabs slabs = slabs_of_edge(points[e], points[e + 1]);
    entries += slabs.last - slabs.first + 1;
  }
  return entries;
}

// Two slabs for every edge, unless the edges are so long that the lists would grow beyond some entries for
// each.
void RayIndex::choose_slabs(Points points) {
  const auto edges = static_cast<double>(points.size() - 1);
  const double most_entries = 8.0 * edges;
  for (double slabs = 2.0 * edges;;) {
    slabs_ = std::max(1, static_cast<int>(slabs));
    slabs_per_unit_ = static_cast<double>(slabs_) / width_;
    const auto entries = static_cast<double>(entries_of(points));
    if (entries <= most_entries || slabs_ == 1) return;
    slabs *= 0.75 * most_entries / entries;
  }
}

void RayIndex::list_edges(Points points) {
  const auto for_each_entry = [&](auto visit) {
    for (std::size_t e = 0; e + 1 < points.size(); ++e) {
      const Slabs slabs = slabs_of_edge(points[e], points[e + 1]);
      for (int s = slabs.first; s <= slabs.last; ++s) visit(static_cast<std::size_t>(s), static_cast<int>(e));
    }
  };
  starts_.assign(static_cast<std::size_t>(slabs_) + 1, 0);
  for_each_entry([&](std::size_t slab, int) { ++starts_[slab + 1]; });
  for (std::size_t s = 1; s < starts_.size(); ++s) starts_[s] += starts_[s - 1];
  edges_.resize(static_cast<std::size_t>(starts_.back()));
  platform::CapiVector<int> next(starts_.begin(), starts_.end() - 1);
  for_each_entry([&](std::size_t slab, int edge) {
    const LinePoint &p = points[static_cast<std::size_t>(edge)],
                    &q = points[static_cast<std::size_t>(edge) + 1];
    edges_[static_cast<std::size_t>(next[slab]++)] = {p.x, p.y, q.x - p.x, q.y - p.y, edge};
  });
}

}  // namespace Corvane::Print::clip
