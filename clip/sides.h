// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// On which side of a ring a line runs. Where two rings are linked (a vertex of one lies on the other), the
// directions there tell the side exactly, also when the rings touch, share vertices or share edges. Between
// two links a line stays on one side; when its two ends disagree, because a link is where the rings meet only
// within the snapping tolerance, a point between them decides.
#ifndef CORVANE_PRINT_CLIP_SIDES_H
#define CORVANE_PRINT_CLIP_SIDES_H

#include "clip/records.h"

namespace Corvane::Print::clip {

enum class Side { kUnknown, kOutside, kInside, kAlong };

struct Direction {
  double dx, dy;
  Direction reversed() const { return {-dx, -dy}; }
};

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

// Whether a point lies inside the ring through `first`, by the even-odd rule, without tolerance.
bool encloses(const FenceVertex* first, double x, double y);

// Judges a line whose ends do not settle it by the point of it that lies farthest from the ring. A line that
// nowhere leaves the ring by more than the distance within which points are one runs along it.
class Witness {
public:
  explicit Witness(const FenceVertex* ring) : ring_(ring) {}

  // The next stretch of the line, from the end of the one before.
  void add_stretch(double x0, double y0, double x1, double y1);
  Side side() const;

private:
  void consider(double x, double y);

  const FenceVertex* ring_;
  double clearance_ = -1.0;  // squared
  double x_ = 0.0, y_ = 0.0;
  bool started_ = false;
};

}  // namespace Corvane::Print::clip

#endif
