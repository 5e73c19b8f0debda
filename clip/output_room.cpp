// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// All count and shortage arithmetic of the clip's output. The sums are held in 64 bits, where no input can
// overflow them, and stop at the largest int on their way out.
#include "clip/output_room.h"

#include "clip/box_vector.h"
#include "corvane/print/cl.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstring>

namespace Corvane::Print::clip {
namespace {

int saturated(std::int64_t value) {
  return static_cast<int>(std::min<std::int64_t>(value, std::numeric_limits<int>::max()));
}

}  // namespace

OutputRoom::OutputRoom(int dim, int piece_capacity, int* counts, double* points, int point_capacity)
    : dim_(dim),
      piece_capacity_(piece_capacity),
      counts_(counts),
      points_(points),
      usable_points_(std::int64_t{point_capacity} - 1) {
  assert(dim == 2 || dim == 3);
  assert((counts || piece_capacity < 1) && (points || point_capacity < 1));
  if (piece_capacity >= 1) counts_[0] = 0;
}

bool OutputRoom::piece_fits() const {
  return pieces_counted_ < piece_capacity_;
}

bool OutputRoom::point_fits() const {
  return points_counted_ < usable_points_;
}

void OutputRoom::begin_piece() {
  piece_start_ = points_counted_;
}

// KEEP(output-three-doubles): three doubles are written also in 2-D, where the third is the next point's
// place. Looks wrong; it is why one point of the room is held back, and callers ask for one point more than
// they need. Pinned by OutputRoom.OnePointOfRoomIsHeldBackForTheThirdDouble.
void OutputRoom::point(double x, double y, double z) {
  if (piece_fits() && point_fits()) {
    double* at = points_ + static_cast<std::size_t>(points_counted_) * static_cast<std::size_t>(dim_);
    at[0] = x;
    at[1] = y;
    at[2] = z;
  }
  ++points_counted_;
  grow_extent(x, y);
}

// As if point() were called for each of them. Long rows go in portions that the fastest cache holds between
// measuring and writing.
void OutputRoom::points(std::span<const LinePoint> row) {
  constexpr std::size_t kPortion = 512;
  while (!row.empty()) {
    const auto portion = row.first(std::min(row.size(), kPortion));
    grow_extent(portion);
    if (piece_fits() && point_fits()) write(portion);
    points_counted_ += std::ssize(portion);
    row = row.subspan(portion.size());
  }
}

// What fits of a row that is not empty. The third double of a flat point is the next point's place.
void OutputRoom::write(std::span<const LinePoint> row) {
  const std::int64_t room = usable_points_ - points_counted_;
  row = row.first(static_cast<std::size_t>(std::min<std::int64_t>(room, std::ssize(row))));
  double* at = points_ + static_cast<std::size_t>(points_counted_) * static_cast<std::size_t>(dim_);
  if (dim_ == 3) {
    std::memcpy(at, row.data(), row.size_bytes());
    return;
  }
  for (const LinePoint& p : row) {
    _mm_storeu_pd(at, _mm_loadu_pd(&p.x));
    at += 2;
  }
  *at = row.back().z;
}

// Each box waits for its last point, so four of them take turns; by name, in order to stay in registers.
void OutputRoom::grow_extent(std::span<const LinePoint> row) {
  GrowingBox a, b, c, d;
  a.include(Box{xmin_, ymin_, xmax_, ymax_});
  std::size_t i = 0;
  for (; i + 4 <= row.size(); i += 4) {
    a.include(row[i]);
    b.include(row[i + 1]);
    c.include(row[i + 2]);
    d.include(row[i + 3]);
  }
  for (; i < row.size(); ++i) a.include(row[i]);
  a.include(b.box());
  c.include(d.box());
  a.include(c.box());
  const Box box = a.box();
  xmin_ = box.xmin;
  ymin_ = box.ymin;
  xmax_ = box.xmax;
  ymax_ = box.ymax;
}

void OutputRoom::end_piece() {
  if (piece_fits()) counts_[pieces_counted_] = saturated(points_counted_ - piece_start_);
  ++pieces_counted_;
}

// A point is written where its piece fits as well as itself.
void OutputRoom::point_pieces(std::span<const LinePoint> row) {
  const std::int64_t pieces = std::clamp<std::int64_t>(piece_capacity_ - pieces_counted_, 0, std::ssize(row));
  if (pieces > 0) {
    if (point_fits()) write(row.first(static_cast<std::size_t>(pieces)));
    std::fill_n(counts_ + pieces_counted_, pieces, 1);
  }
  points_counted_ += std::ssize(row);
  pieces_counted_ += std::ssize(row);
  grow_extent(row);
}

void OutputRoom::grow_extent(double x, double y) {
  if (x < xmin_) xmin_ = x;
  if (y < ymin_) ymin_ = y;
  if (x > xmax_) xmax_ = x;
  if (y > ymax_) ymax_ = y;
}

// Without need there is no shortage, however little room there is.
std::int64_t OutputRoom::piece_shortage() const {
  return pieces_counted_ > std::max<std::int64_t>(piece_capacity_, 0) ? pieces_counted_ - piece_capacity_ : 0;
}

std::int64_t OutputRoom::point_shortage() const {
  return points_counted_ > std::max<std::int64_t>(usable_points_, 0) ? points_counted_ - usable_points_ : 0;
}

bool OutputRoom::full() const {
  return piece_shortage() > 0 || point_shortage() > 0;
}

int OutputRoom::finish_polygons(int* num_pieces, int* num_out) const {
  const std::int64_t pieces_short = piece_shortage(), points_short = point_shortage();
  *num_out = saturated(points_short > 0 ? *num_out + points_short : points_counted_);
  *num_pieces = saturated(pieces_short > 0 ? *num_pieces + pieces_short : pieces_counted_);
  return pieces_short > 0 || points_short > 0 ? CL_TOO_SMALL : CL_OK;
}

// KEEP(line-shortage-plus-one): whatever was short, one piece more than needed is asked for.
// Looks wrong; callers allocate what they are told and use the spare entry. Pinned by
// OutputRoom.LinesRaiseThePiecesByOneMore.
int OutputRoom::finish_lines(int* num_pieces, int* num_out) const {
  if (full()) {
    *num_out = saturated(*num_out + point_shortage());
    *num_pieces = saturated(*num_pieces + piece_shortage() + 1);
    return CL_TOO_SMALL;
  }
  *num_out = saturated(points_counted_);
  *num_pieces = saturated(pieces_counted_);
  return CL_OK;
}

}  // namespace Corvane::Print::clip
