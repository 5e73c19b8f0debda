// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Which edges of a fence polygon the ray of its inside test can meet. All rays of a polygon are parallel, so
// the plane is divided into slabs along them, and each slab lists the edges that reach into it, in the ring's
// order.
//
// What it buys: the inside test of a ring of 100,000 edges looks at a handful of them.
//
// Why it changes no answer: an edge that is not listed in the probe's slab answers "missed" and asks for no
// skip. Each edge reaches beyond its ends by a margin that covers the cases in which the exact test answers
// something else for a line that passes it by: the tolerance at its ends, a ray along a nearly parallel edge,
// and rounding. An edge without length answers nothing else for any ray.
#ifndef CORVANE_PRINT_CLIP_RAY_INDEX_H
#define CORVANE_PRINT_CLIP_RAY_INDEX_H

#include "clip/polyline.h"
#include "clip/records.h"
#include "clip/tolerances.h"
#include "platform/capi_memory.h"

#include <cmath>
#include <span>

namespace Corvane::Print::clip {

// An edge in a slab's list, with what most probes need to know of it, so that its record stays untouched.
struct RayEdge {
  double x, y, dx, dy;
  int number;
};

// What an edge answers where that is clear beyond all tolerances, without a division and without a branch:
// for a probe anywhere no branch could be foretold. Neither is set when it is missed.
struct QuickAnswer {
  bool crossed, unclear;
};

class RayIndex {
public:
  // `points`: of the ring, the first repeated. When memory runs out the index covers nothing.
  void build(std::span<const LinePoint> points, const ClipExtent& extent, double ray_dx,
             double ray_dy) noexcept;

  bool built() const { return built_; }

  // Whether the index can answer for this probe: it lies within the ring's extent.
  bool covers(double x, double y) const {
    return slabs_ > 0 && x >= extent_.xmin && x <= extent_.xmax && y >= extent_.ymin && y <= extent_.ymax;
  }

  // The edges in the slab of a probe that is covered, by ascending number.
  std::span<const RayEdge> edges_at(double x, double y) const {
    const auto slab = static_cast<std::size_t>(slab_of(across(x, y)));
    return {edges_.data() + starts_[slab], static_cast<std::size_t>(starts_[slab + 1] - starts_[slab])};
  }

private:
  using Points = std::span<const LinePoint>;
  struct Slabs {
    int first, last;
  };

  double across(double x, double y) const {
    return (y - extent_.ymin) * ray_dx_ - (x - extent_.xmin) * ray_dy_;
  }
  int slab_of(double across) const {
    const double slab = (across - least_) * slabs_per_unit_;
    if (!(slab > 0.0)) return 0;
    return slab < static_cast<double>(slabs_) ? static_cast<int>(slab) : slabs_ - 1;
  }

  bool measure(Points points);
  Slabs slabs_of_edge(const LinePoint& p, const LinePoint& q) const;
  long long entries_of(Points points) const;
  void choose_slabs(Points points);
  void list_edges(Points points);

  bool built_ = false;
  int slabs_ = 0;  // 0: nothing is covered
  ClipExtent extent_ = {};
  double ray_dx_ = 0.0, ray_dy_ = 0.0, ray_length_ = 0.0;
  double rounding_ = 0.0;
  double least_ = 0.0, width_ = 0.0, slabs_per_unit_ = 0.0;
  platform::CapiVector<int> starts_;  // of each slab's list, and the last one's end
  platform::CapiVector<RayEdge> edges_;
};

// The exact test divides both numerators by the denominator and compares the quotients with 0 and 1, give or
// take a tolerance of at most 1e-5 along the edge and the ray's own. What is off these limits by ten times
// the one or twice the other before the division is off them behind it.
inline QuickAnswer quick_answer(const RayEdge& e, const ProbeRecord& ray) {
  const double px = ray.x - e.x, py = ray.y - e.y;
  const double denominator = e.dy * ray.dx - e.dx * ray.dy;
  const double size = std::fabs(denominator), sign = std::copysign(1.0, denominator);
  const double t = (py * ray.dx - px * ray.dy) * sign, u = (py * e.dx - px * e.dy) * sign;
  const double band = 10.0 * kSnap * size, near_probe = 2.0 * ray.tolerance * size;
  const bool told = size > kParallel;
  const bool within = (t > band) & (t < size - band);
  const bool missed = (t < -band) | (t > size + band) | (within & (u < -near_probe));
  const bool crossed = within & (u > near_probe);
  return {static_cast<bool>(told & crossed), !(told & (missed | crossed))};
}

}  // namespace Corvane::Print::clip

#endif
