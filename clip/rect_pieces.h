// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The caller's arrays, as the rectangle line clipper fills them. The current piece is the counts entry being
// filled.
//
// Invariants
//  - before a segment is handled there is room for two more points and for the current piece's entry;
//  - nothing is written behind the points and entries that count, whatever comes.
#ifndef CORVANE_PRINT_CLIP_RECT_PIECES_H
#define CORVANE_PRINT_CLIP_RECT_PIECES_H

#include "clip/rect_cut.h"

#include <cstddef>
#include <cstdint>

namespace Corvane::Print::clip {

class RectPieces {
public:
  RectPieces(int dim, int piece_room, int* counts, double* out, int point_room)
      : dim_(dim), piece_room_(piece_room), counts_(counts), out_(out), point_room_(point_room) {
    if (has_entry()) counts_[0] = 0;
  }

  // Whether the current piece has an entry; nothing may be written without one.
  bool has_entry() const { return ended_ < piece_room_; }
  bool has_room() const { return has_entry() && written_ <= std::int64_t{point_room_} - 2; }
  bool is_empty() const { return counts_[ended_] == 0; }  // the current piece
  const RectPoint& last() const { return last_; }         // its last point, if it has any

  bool continues_at(const RectPoint& p) const {
    return !is_empty() && p.x == last_.x && p.y == last_.y && (dim_ == 2 || p.z == last_.z);
  }

  // Ends the current piece if it holds points.
  void end_piece() {
    if (is_empty()) return;
    ++ended_;
    if (has_entry()) counts_[ended_] = 0;
  }

  void append(const RectPoint& p) {
    if (!has_entry()) return;
    double* at = next_place();
    at[0] = p.x;
    at[1] = p.y;
    if (dim_ == 3) at[2] = p.z;
    last_ = p;
    ++written_;
    ++counts_[ended_];
  }

  // For those who write several points, and end several pieces, at a time. There must be room for them as
  // has_room() counts it before each segment.

  // How many segments that add one point each may come before there is room for none, from here on.
  std::int64_t room_for_continuations() const { return std::int64_t{point_room_} - 1 - written_; }
  bool has_room_for(int segments) const {
    return std::int64_t{ended_} + segments < piece_room_ &&
           written_ + 2 * std::int64_t{segments} <= point_room_;
  }
  double* next_place() const {
    return out_ + static_cast<std::size_t>(written_) * static_cast<std::size_t>(dim_);
  }
  int* current_entry() const { return counts_ + ended_; }
  // So many points and ends were added, entries included; `last` is the last point when the current piece
  // holds any.
  void advance(int points, int ends, const RectPoint& last) {
    written_ += points;
    ended_ += ends;
    last_ = last;
  }

  int points() const { return static_cast<int>(written_); }

  // KEEP(line-rect-trailing-piece): an empty current piece counts when another one was ended before it.
  // Looks wrong, the last reported piece has 0 points; callers step over it and size their arrays by the
  // count. Pinned by LineRect.AnEndedLastPieceIsFollowedByAnEmptyOne.
  int pieces() const { return ended_ + (!is_empty() || ended_ > 0 ? 1 : 0); }

private:
  int dim_;
  int piece_room_;
  int* counts_;
  double* out_;
  int point_room_;
  int ended_ = 0;
  std::int64_t written_ = 0;
  RectPoint last_ = {};
};

}  // namespace Corvane::Print::clip

#endif
