// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// On which side of a ring a line runs. Where two rings are linked (a vertex of one lies on the other), the
// directions there tell the side exactly, also when the rings touch, share vertices or share edges. Between
// two links a line stays on one side; when its two ends disagree, because a link is where the rings meet only
// within the snapping tolerance, a point between them decides.
#ifndef CORVANE_PRINT_CLIP_SIDES_H
#define CORVANE_PRINT_CLIP_SIDES_H

#include "clip/polyline.h"
#include "clip/ring.h"

#include <cstddef>
#include <span>

namespace Corvane::Print::clip {

enum class Side { kUnknown, kOutside, kInside, kAlong };

struct Direction {
  double dx, dy;
  Direction reversed() const { return {-dx, -dy}; }
};
inline bool has_length(Direction d) {
  return d.dx != 0.0 || d.dy != 0.0;
}

// The ring's direction after and before a vertex of it, inserted or original.
Direction leaving(const FenceVertex& v);
Direction arriving(const FenceVertex& v);

// The side of the ring to which `d` points from the vertex `at` of that ring. `clockwise` is the ring's
// direction. Unknown for a direction of no length.
Side side_of(Direction d, const FenceVertex& at, bool clockwise);

// The same for a place of the ring that goes on in the direction `ahead` and came from where `back` points.
Side side_of(Direction d, Direction ahead, Direction back, bool clockwise);

// The side of a line between two links, from what is seen at its two ends; unknown when they disagree. A line
// that only starts or ends along the ring is on the side where it goes.
Side agreed_side(Side at_start, Side at_end);

// The edges of a ring, of records or of points in a row, the first of them repeated at the end.
class RingEdges {
public:
  RingEdges(const FenceVertex* first) : first_(first) {}
  RingEdges(std::span<const LinePoint> points) : points_(points) {}

  // Calls visit(start, end) for each edge, from the first vertex on.
  template <class Visit>
  void for_each(Visit&& visit) const {
    if (first_ != nullptr) for_each_vertex(first_, [&](const FenceVertex& v) { visit(v, *v.next); });
    for (std::size_t i = 0; i + 1 < points_.size(); ++i) visit(points_[i], points_[i + 1]);
  }

private:
  const FenceVertex* first_ = nullptr;
  std::span<const LinePoint> points_;
};

// Whether a point lies inside a ring, by the even-odd rule, without tolerance.
bool encloses(const RingEdges& ring, double x, double y);

// Judges a line whose ends do not settle it by the point of it that lies farthest from the ring. A line that
// nowhere leaves the ring by more than the distance within which points are one runs along it.
class Witness {
public:
  explicit Witness(const RingEdges& ring) : ring_(ring) {}

  // The next stretch of the line, from the end of the one before.
  void add_stretch(double x0, double y0, double x1, double y1);
  Side side() const;

private:
  void consider(double x, double y);

  RingEdges ring_;
  double clearance_ = -1.0;  // squared
  double x_ = 0.0, y_ = 0.0;
  bool started_ = false;
};

}  // namespace Corvane::Print::clip

#endif
