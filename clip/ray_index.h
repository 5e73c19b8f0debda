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
#include "platform/capi_memory.h"

#include <span>

namespace Corvane::Print::clip {

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

  // The numbers of the edges in the slab of a probe that is covered, ascending.
  std::span<const int> edges_at(double x, double y) const {
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
  platform::CapiVector<int> edges_;
};

}  // namespace Corvane::Print::clip

#endif
