// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Stretches of a two-dimensional line, clipped to the box of a rectangular fence several points at a time,
// with the results of doing it segment by segment. There are three kinds of them:
//
//   inside the box   copied until the first point that is not inside
//   beyond one side  skipped until the first point that is not beyond that side
//   neither          cut, two segments at a time, when the line turns out to change its kind often
#ifndef CORVANE_PRINT_CLIP_LINE_RECT_VECTOR_H
#define CORVANE_PRINT_CLIP_LINE_RECT_VECTOR_H

#include "clip/rect_cut.h"
#include "clip/rect_pieces.h"

namespace Corvane::Print::clip {

class LineRectVector {
public:
  // Whether this call may be handled so: in two dimensions, in a box that a break lies outside of, from and
  // to arrays without a common part, and with points enough to be worth it.
  static bool can_take(const ClipExtent& box, int dim, int num_points, const double* points, int point_room,
                       const double* out);

  // `points` must live as long as this.
  LineRectVector(const ClipExtent& box, int num_points, const double* points)
      : box_(box), points_(points), last_(num_points - 1) {}

  // Handles pairs of points from `first` and its successor on, and returns how many; 0 when the pair is none
  // for it. There must be room for one more segment.
  int take(int first, RectPieces& pieces);

private:
  int copy_inside(int first, RectPieces& pieces) const;
  int skip_outside(int first) const;
  int cut(int first, RectPieces& pieces) const;

  ClipExtent box_;
  const double* points_;
  int last_;               // index of the last point
  bool restless_ = false;  // whether the last stretch was a short one
};

}  // namespace Corvane::Print::clip

#endif
