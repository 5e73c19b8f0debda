// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a point lies beside the box of a rectangular fence, and what of a segment lies in it.
//
// Invariants
//  - an end of a segment is moved to each side of the box at most once, so every cut ends after eight moves;
//  - the order of the floating-point operations is fixed, callers compare results bit by bit.
#ifndef CORVANE_PRINT_CLIP_RECT_CUT_H
#define CORVANE_PRINT_CLIP_RECT_CUT_H

#include "clip/records.h"
#include "clip/tolerances.h"

#include <cstddef>

namespace Corvane::Print::clip {

// Which sides of the box a point lies outside of; at most one of each pair.
enum RectSide : unsigned { kLeft = 1, kRight = 2, kBelow = 4, kAbove = 8, kUnder = 16, kOver = 32 };
inline constexpr unsigned kDepthSides = kUnder | kOver;

struct RectPoint {
  double x, y, z;
};

inline RectPoint read_point(const double* points, int dim, int index) {
  const double* at = points + static_cast<std::size_t>(index) * static_cast<std::size_t>(dim);
  return {at[0], at[1], dim == 3 ? at[2] : 0.0};
}

inline bool is_break(const RectPoint& p) {
  return p.x == CL_BREAK;
}

// KEEP(line-rect-tolerance): points up to the tolerance outside count as inside and are kept unchanged.
// Looks wrong, the output leaves the fence; a line along the fence's own edge must survive rounding. Pinned
// by LineRect.PointsWithinTheToleranceStayAsTheyAre.
inline unsigned region_code(const ClipExtent& box, int dim, const RectPoint& p) {
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

inline unsigned depth_code(const ClipExtent& box, const RectPoint& p) {
  if (p.z < box.zmin) return kUnder;
  return p.z > box.zmax ? kOver : 0u;
}

inline RectPoint meet_x(const RectPoint& p, const RectPoint& q, double x) {
  const double t = (x - p.x) / (q.x - p.x);
  return {x, p.y + t * (q.y - p.y), p.z + t * (q.z - p.z)};
}

inline RectPoint meet_y(const RectPoint& p, const RectPoint& q, double y) {
  const double t = (y - p.y) / (q.y - p.y);
  return {p.x + t * (q.x - p.x), y, p.z + t * (q.z - p.z)};
}

inline RectPoint meet_z(const RectPoint& p, const RectPoint& q, double z) {
  const double t = (z - p.z) / (q.z - p.z);
  return {p.x + t * (q.x - p.x), p.y + t * (q.y - p.y), z};
}

inline RectPoint meet_side(const ClipExtent& box, const RectPoint& p, const RectPoint& q, unsigned side) {
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
inline bool cut_to_depth(const ClipExtent& box, RectPoint& p, RectPoint& q) {
  unsigned code_p = depth_code(box, p), code_q = depth_code(box, q);
  while ((code_p | code_q) != 0) {
    if ((code_p & code_q) != 0) return false;
    const bool moves_p = code_p != 0;
    const RectPoint met = meet_side(box, p, q, moves_p ? code_p : code_q);
    (moves_p ? p : q) = met;
    (moves_p ? code_p : code_q) = 0;
  }
  return true;
}

// An end can come back to a side it was moved to: beside a corner, a segment to a point within the tolerance
// meets each side's line beyond the other side. Such a segment cannot be settled and is rejected.
inline bool cut_to_rectangle(const ClipExtent& box, RectPoint& p, RectPoint& q) {
  unsigned code_p = region_code(box, 2, p), code_q = region_code(box, 2, q);
  unsigned done_p = 0, done_q = 0;
  while ((code_p | code_q) != 0) {
    if ((code_p & code_q) != 0) return false;
    const bool moves_p = code_p != 0;
    RectPoint& end = moves_p ? p : q;
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
inline bool cut_segment(const ClipExtent& box, int dim, RectPoint& p, RectPoint& q) {
  const unsigned codes = region_code(box, dim, p) | region_code(box, dim, q);
  if ((codes & kDepthSides) != 0 && !cut_to_depth(box, p, q)) return false;
  return codes == 0 || cut_to_rectangle(box, p, q);
}

}  // namespace Corvane::Print::clip

#endif
