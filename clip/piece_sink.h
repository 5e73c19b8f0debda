// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where pieces go, point by point: the caller's arrays (output_room), or a list that is clipped further.
#ifndef CORVANE_PRINT_CLIP_PIECE_SINK_H
#define CORVANE_PRINT_CLIP_PIECE_SINK_H

#include "clip/polyline.h"

#include <span>

namespace Corvane::Print::clip {

class PieceSink {
public:
  virtual void begin_piece() = 0;
  virtual void point(double x, double y, double z) = 0;
  virtual void end_piece() = 0;

  // Several points in a row.
  virtual void points(std::span<const LinePoint> row) {
    for (const LinePoint& p : row) point(p.x, p.y, p.z);
  }

  // A place on the piece's outline where the other ring touches it, and which is no corner of it.
  virtual void touch(double /*x*/, double /*y*/, double /*z*/) {}

protected:
  ~PieceSink() = default;
};

}  // namespace Corvane::Print::clip

#endif
