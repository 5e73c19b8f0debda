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

#include "clip/tolerances.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <stdexcept>

namespace Corvane::Print::clip {

void RayIndex::build(Points points, const ClipExtent& extent, const ProbeRecord& ray) noexcept try {
  built_ = true;
  extent_ = extent;
  ray_dx_ = ray.dx;
  ray_dy_ = ray.dy;
  if (!measure(points)) return;
  const platform::CapiVector<Slabs> slabs = choose_slabs(points);
  set_tolerances(ray.tolerance);
  list_edges(points, slabs);
} catch (const std::bad_alloc&) {
  slabs_ = 0;
} catch (const std::length_error&) {
  slabs_ = 0;
}

// False without a width, or where it cannot be told.
bool RayIndex::measure(Points points) {
  ray_length_ = std::sqrt(ray_dx_ * ray_dx_ + ray_dy_ * ray_dy_);
  const double reach = ray_length_ * ((extent_.xmax - extent_.xmin) + (extent_.ymax - extent_.ymin));
  rounding_ = reach * 0x1p-40;
  shares_per_unit_ = 1.0 / reach;
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

double RayIndex::parallel_margin(const LinePoint& p, const LinePoint& q) const {
  const double dx = q.x - p.x, dy = q.y - p.y;
  return 0.1 * ray_length_ / std::sqrt(dx * dx + dy * dy);
}

RayIndex::Slabs RayIndex::slabs_of_edge(const LinePoint& p, const LinePoint& q) const {
  if (p.x == q.x && p.y == q.y) return {0, -1};
  const double a = across(p.x, p.y), b = across(q.x, q.y);
  const double margin = parallel_margin(p, q) + 2e-5 * std::fabs(b - a) + rounding_;
  return {slab_at((std::min(a, b) - margin - least_) * slabs_per_unit_),
          slab_at((std::max(a, b) + margin - least_) * slabs_per_unit_)};
}

// Two slabs for every edge, unless the edges are so long that the lists would grow beyond some entries for
// each.
platform::CapiVector<RayIndex::Slabs> RayIndex::choose_slabs(Points points) {
  platform::CapiVector<Slabs> slabs_of(points.size() - 1);
  const auto edges = static_cast<double>(slabs_of.size());
  const double most_entries = 8.0 * edges;
  for (double slabs = 2.0 * edges;;) {
    slabs_ = std::max(1, static_cast<int>(slabs));
    slabs_per_unit_ = static_cast<double>(slabs_) / width_;
    long long entries = 0;
    for (std::size_t e = 0; e < slabs_of.size(); ++e) {
      slabs_of[e] = slabs_of_edge(points[e], points[e + 1]);
      entries += slabs_of[e].last - slabs_of[e].first + 1;
    }
    if (static_cast<double>(entries) <= most_entries || slabs_ == 1) return slabs_of;
    slabs *= 0.75 * most_entries / static_cast<double>(entries);
  }
}

void RayIndex::set_tolerances(double ray_tolerance) {
  const double across = (2.0 * kSnap * ray_length_ + rounding_) * slabs_per_unit_ + 0x1p-20;
  const double along = 2.0 * ray_tolerance * ray_length_ * ray_length_ * shares_per_unit_ + 0x1p-19;
  tolerances_ = {static_cast<float>(across), static_cast<float>(along)};
}

// The exact test takes an edge for parallel by the same sum.
EdgeCourse RayIndex::course_of(const LinePoint& p, const LinePoint& q) const {
  constexpr double kNever = std::numeric_limits<double>::quiet_NaN(), kSteepest = 1e6;
  const bool forward = across(p.x, p.y) <= across(q.x, q.y);
  const LinePoint &a = forward ? p : q, &b = forward ? q : p;
  const double low = slabs_across(a.x, a.y), high = slabs_across(b.x, b.y);
  if (std::fabs((q.y - p.y) * ray_dx_ - (q.x - p.x) * ray_dy_) <= kParallel) {
    const double margin = parallel_margin(p, q) * slabs_per_unit_;
    return {low - margin, high + margin, 0.0, kNever};
  }
  const double start = along(a.x, a.y), slope = (along(b.x, b.y) - start) / (high - low);
  return {low, high, start, std::fabs(slope) <= kSteepest ? slope : kNever};
}

void RayIndex::list_edges(Points points, std::span<const Slabs> slabs_of) {
  platform::CapiVector<int> next(static_cast<std::size_t>(slabs_), 0);
  for (const Slabs& slabs : slabs_of) {
    for (int s = slabs.first; s <= slabs.last; ++s) ++next[static_cast<std::size_t>(s)];
  }
  starts_.resize(next.size() + 1);
  starts_[0] = 0;
  for (std::size_t s = 0; s < next.size(); ++s) {
    starts_[s + 1] = starts_[s] + (next[s] + 3) / 4;
    next[s] = 4 * starts_[s];
  }
  const auto quads = static_cast<std::size_t>(starts_.back());
  quads_.assign(quads, kNoEdges);
  numbers_.assign(4 * quads, kNoEdge);
  for (std::size_t e = 0; e < slabs_of.size(); ++e) {
    if (slabs_of[e].first > slabs_of[e].last) continue;
    const EdgeCourse course = course_of(points[e], points[e + 1]);
    for (int s = slabs_of[e].first; s <= slabs_of[e].last; ++s) {
      const auto at = static_cast<std::size_t>(next[static_cast<std::size_t>(s)]++);
      numbers_[at] = static_cast<int>(e);
      course.put_into(quads_[at / 4], at % 4, s);
    }
  }
}

}  // namespace Corvane::Print::clip
