// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The caller's output arrays, as the polygon clip and the general line clipper fill them: what has been asked
// for, what fitted, and what to tell the caller when it did not.
//
//   begin_piece  point  point  end_piece   begin_piece  point ...  end_piece   finish_polygons or
//   finish_lines
//
// Invariants
//  - everything is counted, in 64 bits; what does not fit is not written;
//  - nothing is written at or beyond a capacity, whatever numbers are given;
//  - once something did not fit, nothing later is written of that kind.
#ifndef CORVANE_PRINT_CLIP_OUTPUT_ROOM_H
#define CORVANE_PRINT_CLIP_OUTPUT_ROOM_H

#include "clip/piece_sink.h"

#include <cstdint>
#include <limits>

namespace Corvane::Print::clip {

class OutputRoom final : public PieceSink {
public:
  // `counts` has `piece_capacity` entries, `points` room for `point_capacity` points of `dim` (2 or 3)
  // doubles; either may be null with a capacity below 1. One point of the room is held back, see point().
  OutputRoom(int dim, int piece_capacity, int* counts, double* points, int point_capacity);

  void begin_piece() override;
  void point(double x, double y, double z) override;
  void points(std::span<const LinePoint> row) override;
  void end_piece() override;
  // Each of them a piece of its own.
  void point_pieces(std::span<const LinePoint> row);

  // Whether the room of either kind ran out.
  bool full() const;

  // Both take the capacities and leave what was written or is needed; results are CL_OK or CL_TOO_SMALL.
  // A kind that ran out is raised by its shortage, the other becomes what was counted.
  int finish_polygons(int* num_pieces, int* num_out) const;
  // When either kind ran out, both are raised by their shortage, the pieces by one more.
  int finish_lines(int* num_pieces, int* num_out) const;

  // The extent of all points so far, also of those that did not fit. NaN does not grow it.
  double xmin() const { return xmin_; }
  double ymin() const { return ymin_; }
  double xmax() const { return xmax_; }
  double ymax() const { return ymax_; }
  bool empty() const { return points_counted_ == 0; }

private:
  bool piece_fits() const;
  bool point_fits() const;
  void write(std::span<const LinePoint> row);
  void grow_extent(double x, double y);
  void grow_extent(std::span<const LinePoint> row);
  std::int64_t piece_shortage() const;
  std::int64_t point_shortage() const;

  int dim_;
  std::int64_t piece_capacity_;
  int* counts_;
  double* points_;
  std::int64_t usable_points_;  // the capacity less the one held back; may be negative

  std::int64_t pieces_counted_ = 0;  // the current piece not included
  std::int64_t points_counted_ = 0;
  std::int64_t piece_start_ = 0;  // points counted before the current piece

  double xmin_ = std::numeric_limits<double>::max();
  double ymin_ = std::numeric_limits<double>::max();
  double xmax_ = -std::numeric_limits<double>::max();
  double ymax_ = -std::numeric_limits<double>::max();
};

}  // namespace Corvane::Print::clip

#endif
