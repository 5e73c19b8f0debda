// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Clips polylines to the box of a rectangular fence, segment by segment, and joins consecutive segments that
// touch into one piece. No state beyond the call.
//
// Invariants
//  - before a segment is handled there is room for two more points and for the current piece's entry;
//  - an end of a segment is moved to each side of the box at most once, so every cut ends after eight moves;
//  - the order of the floating-point operations is fixed, callers compare results bit by bit.
#include "clip/line_rect.h"

#include "clip/tolerances.h"

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Corvane::Print::clip {
namespace {

// Which sides of the box a point lies outside of; at most one of each pair.
enum Side : unsigned { kLeft = 1, kRight = 2, kBelow = 4, kAbove = 8, kUnder = 16, kOver = 32 };
constexpr unsigned kDepthSides = kUnder | kOver;

struct Point {
  double x, y, z;
};

Point read_point(const double* points, int dim, int index) {
  const double* at = points + static_cast<std::size_t>(index) * static_cast<std::size_t>(dim);
  return {at[0], at[1], dim == 3 ? at[2] : 0.0};
}

bool is_break(const Point& p) {
  return p.x == CL_BREAK;
}

// KEEP(line-rect-tolerance): points up to the tolerance outside count as inside and are kept unchanged.
// Looks wrong, the output leaves the fence; a line along the fence's own edge must survive rounding. Pinned
// by LineRect.PointsWithinTheToleranceStayAsTheyAre.
unsigned region_code(const ClipExtent& box, int dim, const Point& p) {
  unsigned code = 0;
  if (box.xmin - p.x > kSamePlace) {
    code |= kLeft;
  } else if (p.x - box.xmax > kSamePlace) {
    code |= kRight;
  }
  if (box.ymin - p.y > kSamePlace) {
    code |= kBelow;
  } else if (p.y - box.ymax > kSamePlace) {
    code |= kAbove;
  }
  if (dim != 3) return code;
  if (box.zmin - p.z > kSamePlace) {
    code |= kUnder;
  } else if (p.z - box.zmax > kSamePlace) {
    code |= kOver;
  }
  return code;
}

unsigned depth_code(const ClipExtent& box, const Point& p) {
  if (p.z < box.zmin) return kUnder;
  return p.z > box.zmax ? kOver : 0u;
}

Point meet_x(const Point& p, const Point& q, double x) {
  const double t = (x - p.x) / (q.x - p.x);
  return {x, p.y + t * (q.y - p.y), p.z + t * (q.z - p.z)};
}

Point meet_y(const Point& p, const Point& q, double y) {
  const double t = (y - p.y) / (q.y - p.y);
  return {p.x + t * (q.x - p.x), y, p.z + t * (q.z - p.z)};
}

Point meet_z(const Point& p, const Point& q, double z) {
  const double t = (z - p.z) / (q.z - p.z);
  return {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), z};
}

Point meet_side(const ClipExtent& box, const Point& p, const Point& q, unsigned side) {
  switch (side) {
    case kLeft:
      return meet_x(p, q, box.xmin);
    case kRight:
      return meet_x(p, q, box.xmax);
    case kBelow:
      return meet_y(p, q, box.ymin);
    case kAbove:
      return meet_y(p, q, box.ymax);
    case kUnder:
      return meet_z(p, q, box.zmin);
    default:
      return meet_z(p, q, box.zmax);
  }
}

// KEEP(line-rect-depth-exact): a segment with an end well out of the depth range is cut at the range exactly,
// also at its other end, while a segment with both ends within the tolerance is not cut at all.
// Looks wrong; the tolerance decides whether to cut, the bound where. Pinned by
// LineRect.DepthIsCutExactlyOrNotAtAll.
bool cut_to_depth(const ClipExtent& box, Point& p, Point& q) {
  unsigned code_p = depth_code(box, p), code_q = depth_code(box, q);
  while ((code_p | code_q) != 0) {
    if ((code_p & code_q) != 0) return false;
    const bool moves_p = code_p != 0;
    const Point met = meet_side(box, p, q, moves_p ? code_p : code_q);
    (moves_p ? p : q) = met;
    (moves_p ? code_p : code_q) = 0;
  }
  return true;
}

// An end can come back to a side it was moved to: beside a corner, a segment to a point within the tolerance
// meets each side's line beyond the other side. Such a segment cannot be settled and is rejected.
bool cut_to_rectangle(const ClipExtent& box, Point& p, Point& q) {
  unsigned code_p = region_code(box, 2, p), code_q = region_code(box, 2, q);
  unsigned done_p = 0, done_q = 0;
  while ((code_p | code_q) != 0) {
    if ((code_p & code_q) != 0) return false;
    const bool moves_p = code_p != 0;
    Point& end = moves_p ? p : q;
    unsigned& code = moves_p ? code_p : code_q;
    unsigned& done = moves_p ? done_p : done_q;
    const unsigned side = code & (~code + 1u);  // the lowest bit
    if ((done & side) != 0) return false;
    end = meet_side(box, p, q, side);
    done |= side;
    code = region_code(box, 2, end);
  }
  return true;
}

// Cuts the segment to the box; false when nothing is left of it.
bool cut_segment(const ClipExtent& box, int dim, Point& p, Point& q) {
  const unsigned codes = region_code(box, dim, p) | region_code(box, dim, q);
  if ((codes & kDepthSides) != 0 && !cut_to_depth(box, p, q)) return false;
  return codes == 0 || cut_to_rectangle(box, p, q);
}

// The caller's arrays and how far they are filled. The current piece is the counts entry being filled.
class PieceWriter {
public:
  PieceWriter(int dim, int piece_room, int* counts, double* out, int point_room)
      : dim_(dim), piece_room_(piece_room), counts_(counts), out_(out), point_room_(point_room) {
    if (has_entry()) counts_[0] = 0;
  }

  // Whether the current piece has an entry; nothing may be written without one.
  bool has_entry() const { return ended_ < piece_room_; }
  bool has_room() const { return has_entry() && written_ <= std::int64_t{point_room_} - 2; }

  bool continues_at(const Point& p) const {
    return counts_[ended_] > 0 && p.x == last_.x && p.y == last_.y && (dim_ == 2 || p.z == last_.z);
  }

  // Ends the current piece if it holds points.
  void end_piece() {
    if (counts_[ended_] == 0) return;
    ++ended_;
    if (has_entry()) counts_[ended_] = 0;
  }

  void append(const Point& p) {
    if (!has_entry()) return;
    double* at = out_ + static_cast<std::size_t>(written_) * static_cast<std::size_t>(dim_);
    at[0] = p.x;
    at[1] = p.y;
    if (dim_ == 3) at[2] = p.z;
    last_ = p;
    ++written_;
    ++counts_[ended_];
  }

  int points() const { return static_cast<int>(written_); }

  // KEEP(line-rect-trailing-piece): an empty current piece counts when another one was ended before it.
  // Looks wrong, the last reported piece has 0 points; callers step over it and size their arrays by the
  // count. Pinned by LineRect.AnEndedLastPieceIsFollowedByAnEmptyOne.
  int pieces() const { return ended_ + (counts_[ended_] > 0 || ended_ > 0 ? 1 : 0); }

private:
  int dim_;
  int piece_room_;
  int* counts_;
  double* out_;
  int point_room_;
  int ended_ = 0;
  std::int64_t written_ = 0;
  Point last_ = {};
};

// P is the last point before a break. Where a segment has just ended in it, it has been written already.
void finish_run(const ClipExtent& box, int dim, const Point& p, PieceWriter& writer) {
  if (region_code(box, dim, p) != 0) return;
  const bool written_already = writer.continues_at(p);
  writer.end_piece();
  if (!written_already) writer.append(p);
}

void clip_segment(const ClipExtent& box, int dim, Point p, Point q, PieceWriter& writer) {
  if (!cut_segment(box, dim, p, q)) {
    writer.end_piece();
    return;
  }
  if (!writer.continues_at(p)) {
    writer.end_piece();
    writer.append(p);
  }
  writer.append(q);
}

// KEEP(line-rect-lone-last-point): a single point behind the last break is not looked at.
// Looks wrong, between two breaks it would be a piece; points are looked at as first of a pair, and a break
// behind the point is how callers ask for a dot. Pinned by LineRect.ASinglePointAfterTheLastBreakIsDropped.
void clip_pair(const ClipExtent& box, int dim, const Point& p, const Point& q, PieceWriter& writer) {
  if (is_break(p)) {
    writer.end_piece();
  } else if (is_break(q)) {
    finish_run(box, dim, p, writer);
  } else {
    clip_segment(box, dim, p, q, writer);
  }
}

// KEEP(line-rect-twice-the-input): both counts are raised to twice the input, whatever was short and by how
// much. Looks wrong; callers rely on the second call to succeed. Pinned by
// LineRect.ShortageAsksForTwiceTheInputOfBothKinds.
int ask_for_more(int num_points, int* num_pieces, int* num_out) {
  constexpr int kMost = std::numeric_limits<int>::max();
  const int twice = num_points > kMost / 2 ? kMost : 2 * num_points;
  *num_pieces = std::max(*num_pieces, twice);
  *num_out = std::max(*num_out, twice);
  return CL_TOO_SMALL;
}

}  // namespace

int CORVANE_PRINT_CALL clip_line_rect(FencePolygon* fence, int dim, int numPoints, const double* points,
                                      int* numPieces, int* counts, double* out, int* numOut) {
  assert(fence && points && numPieces && counts && out && numOut);
  assert((dim == 2 || dim == 3) && numPoints >= 1);
  const ClipExtent& box = fence->extent;
  PieceWriter writer(dim, *numPieces, counts, out, *numOut);
  // KEEP(line-rect-single-point): one point alone is a segment from itself to itself, so it is written twice.
  // Looks wrong; callers draw such a dot as a line without length. Pinned by
  // LineRect.OnePointAloneIsWrittenTwice.
  const int last = std::max(numPoints - 1, 1);
  for (int i = 0; i < last; ++i) {
    if (!writer.has_room()) return ask_for_more(numPoints, numPieces, numOut);
    const int next = std::min(i + 1, numPoints - 1);
    clip_pair(box, dim, read_point(points, dim, i), read_point(points, dim, next), writer);
  }
  if (!writer.has_entry()) return ask_for_more(numPoints, numPieces, numOut);
  *numOut = writer.points();
  *numPieces = writer.pieces();
  return CL_OK;
}

}  // namespace Corvane::Print::clip
