// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Which edges of a fence polygon the ray of its inside test can meet. All rays of a polygon are parallel, so
// the plane is divided into slabs along them, and each slab lists the edges that reach into it, in the ring's
// order.
//
// What it buys: the inside test of a ring of 100,000 edges looks at a handful of them, four at a time.
//
// Why it changes no answer: an edge that is not listed in the probe's slab answers "missed" and asks for no
// skip. Each edge reaches beyond its ends by a margin that covers the cases in which the exact test answers
// something else for a line that passes it by: the tolerance at its ends, a ray along a nearly parallel edge,
// and rounding. An edge without length answers nothing else for any ray.
#ifndef CORVANE_PRINT_CLIP_RAY_INDEX_H
#define CORVANE_PRINT_CLIP_RAY_INDEX_H

#include "clip/polyline.h"
#include "clip/ray_quad_vector.h"
#include "clip/records.h"
#include "platform/capi_memory.h"

#include <cstddef>
#include <span>

namespace Corvane::Print::clip {

class RayIndex {
public:
  static constexpr int kNoEdge = -1;

  // `points`: of the ring, the first repeated. When memory runs out the index covers nothing.
  void build(std::span<const LinePoint> points, const ClipExtent& extent, const ProbeRecord& ray) noexcept;

  bool built() const { return built_; }

  // Whether it covers nothing.
  bool empty() const { return slabs_ == 0; }

  // Whether the index can answer for this probe: it lies within the ring's extent.
  bool covers(double x, double y) const {
    return !empty() && x >= extent_.xmin && x <= extent_.xmax && y >= extent_.ymin && y <= extent_.ymax;
  }

  // A probe that is covered, as its slab sees it. Telling this of many probes before asking for any verdict
  // lets the processor wait for their memory all at once.
  struct Place {
    int quads_begin, quads_end;
    float across, along;
  };
  Place place_of(double x, double y) const {
    const double place = slabs_across(x, y);
    const int slab = slab_at(place);
    const double off = clamped(-1.0, place - slab, 2.0);
    const auto s = static_cast<std::size_t>(slab);
    return {starts_[s], starts_[s + 1], static_cast<float>(off), static_cast<float>(along(x, y))};
  }

  // Whether an odd number of edges is crossed. Unclear where one of them has to be asked exactly; elsewhere
  // none asks for a skip.
  struct Verdict {
    bool inside, unclear;
  };
  Verdict verdict_at(const Place& place) const {
    int crossed = 0, unclear = 0;
    for (const EdgeQuad& edges : quads_at(place)) {
      const QuickAnswers answers = quick_answers(edges, place.across, place.along, tolerances_);
      crossed ^= answers.crossed;
      unclear |= answers.unclear;
    }
    constexpr int kOddBits = 0x6996;  // bit n: whether n has an odd number of bits
    return {((kOddBits >> crossed) & 1) != 0, unclear != 0};
  }

  // The edges in the probe's slab by ascending number, in fours. Behind the last one there may be kNoEdge.
  std::span<const EdgeQuad> quads_at(const Place& place) const {
    return {quads_.data() + place.quads_begin, static_cast<std::size_t>(place.quads_end - place.quads_begin)};
  }
  std::span<const int> edges_at(const Place& place) const {
    const std::span<const EdgeQuad> quads = quads_at(place);
    return {numbers_.data() + 4 * (quads.data() - quads_.data()), 4 * quads.size()};
  }
  const RayTolerances& tolerances() const { return tolerances_; }

private:
  using Points = std::span<const LinePoint>;
  struct Slabs {
    int first, last;
  };

  double slabs_across(double x, double y) const { return (across(x, y) - least_) * slabs_per_unit_; }
  int slab_at(double place) const { return static_cast<int>(clamped(0.0, place, slabs_ - 1.0)); }
  double across(double x, double y) const {
    return (y - extent_.ymin) * ray_dx_ - (x - extent_.xmin) * ray_dy_;
  }
  double along(double x, double y) const {
    return ((x - extent_.xmin) * ray_dx_ + (y - extent_.ymin) * ray_dy_) * shares_per_unit_;
  }

  bool measure(Points points);
  double parallel_margin(const LinePoint& p, const LinePoint& q) const;
  Slabs slabs_of_edge(const LinePoint& p, const LinePoint& q) const;
  platform::CapiVector<Slabs> choose_slabs(Points points);
  void set_tolerances(double ray_tolerance);
  EdgeCourse course_of(const LinePoint& p, const LinePoint& q) const;
  void list_edges(Points points, std::span<const Slabs> slabs_of);

  bool built_ = false;
  int slabs_ = 0;  // 0: nothing is covered
  ClipExtent extent_ = {};
  double ray_dx_ = 0.0, ray_dy_ = 0.0, ray_length_ = 0.0;
  double rounding_ = 0.0;
  double least_ = 0.0, width_ = 0.0, slabs_per_unit_ = 0.0, shares_per_unit_ = 0.0;
  RayTolerances tolerances_ = {};
  platform::CapiVector<int> starts_;  // of each slab's quads, and the last one's end
  platform::CapiVector<EdgeQuad> quads_;
  platform::CapiVector<int> numbers_;  // of the edges in the quads; kNoEdge where there is none
};

}  // namespace Corvane::Print::clip

#endif
