// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Clips polylines to the box of a rectangular fence, segment by segment, and joins consecutive segments that
// touch into one piece. No state beyond the call.
//
// Most lines run inside the box, or outside it, for many points, and drawings have lines of many points. So
// two-dimensional lines have a second form, which hands stretches of them to LineRectVector; the results are
// the same to the bit.
#include "clip/line_rect.h"

#include "clip/line_rect_vector.h"
#include "clip/rect_cut.h"
#include "clip/rect_pieces.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace Corvane::Print::clip {
namespace {

// P is the last point before a break. Where a segment has just ended in it, it has been written already.
void finish_run(const ClipExtent& box, int dim, const RectPoint& p, RectPieces& pieces) {
  if (region_code(box, dim, p) != 0) return;
  const bool written_already = pieces.continues_at(p);
  pieces.end_piece();
  if (!written_already) pieces.append(p);
}

void clip_segment(const ClipExtent& box, int dim, RectPoint p, RectPoint q, RectPieces& pieces) {
  if (!cut_segment(box, dim, p, q)) {
    pieces.end_piece();
    return;
  }
  if (!pieces.continues_at(p)) {
    pieces.end_piece();
    pieces.append(p);
  }
  pieces.append(q);
}

// KEEP(line-rect-lone-last-point): a single point behind the last break is not looked at.
// Looks wrong, between two breaks it would be a piece; points are looked at as first of a pair, and a break
// behind the point is how callers ask for a dot. Pinned by LineRect.ASinglePointAfterTheLastBreakIsDropped.
void clip_pair(const ClipExtent& box, int dim, const RectPoint& p, const RectPoint& q, RectPieces& pieces) {
  if (is_break(p)) {
    pieces.end_piece();
  } else if (is_break(q)) {
    finish_run(box, dim, p, pieces);
  } else {
    clip_segment(box, dim, p, q, pieces);
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

// What handles several pairs of points at a time: none ever.
struct OneByOne {
  int take(int, RectPieces&) { return 0; }
};

// `ahead.take` handles as many pairs from pair i on as it can, just as clip_pair would, and says how many.
template <class Ahead>
int clip_line(const ClipExtent& box, int dim, int num_points, const double* points, int* num_pieces,
              int* counts, double* out, int* num_out, Ahead ahead) {
  RectPieces pieces(dim, *num_pieces, counts, out, *num_out);
  // KEEP(line-rect-single-point): one point alone is a segment from itself to itself, so it is written twice.
  // Looks wrong; callers draw such a dot as a line without length. Pinned by
  // LineRect.OnePointAloneIsWrittenTwice.
  const int last = std::max(num_points - 1, 1);
  for (int i = 0; i < last;) {
    if (!pieces.has_room()) return ask_for_more(num_points, num_pieces, num_out);
    const int taken = ahead.take(i, pieces);
    if (taken == 0) {
      const int next = std::min(i + 1, num_points - 1);
      clip_pair(box, dim, read_point(points, dim, i), read_point(points, dim, next), pieces);
    }
    i += std::max(taken, 1);
  }
  if (!pieces.has_entry()) return ask_for_more(num_points, num_pieces, num_out);
  *num_out = pieces.points();
  *num_pieces = pieces.pieces();
  return CL_OK;
}

}  // namespace

int CORVANE_PRINT_CALL clip_line_rect(FencePolygon* fence, int dim, int numPoints, const double* points,
                                      int* numPieces, int* counts, double* out, int* numOut) {
#ifdef CORVANE_PRINT_PLAIN
  return clip_line_rect_plain(fence, dim, numPoints, points, numPieces, counts, out, numOut);
#else
  return clip_line_rect_fast(fence, dim, numPoints, points, numPieces, counts, out, numOut);
#endif
}

int clip_line_rect_plain(FencePolygon* fence, int dim, int numPoints, const double* points, int* numPieces,
                         int* counts, double* out, int* numOut) {
  assert(fence && points && numPieces && counts && out && numOut);
  assert((dim == 2 || dim == 3) && numPoints >= 1);
  return clip_line(fence->extent, dim, numPoints, points, numPieces, counts, out, numOut, OneByOne());
}

int clip_line_rect_fast(FencePolygon* fence, int dim, int numPoints, const double* points, int* numPieces,
                        int* counts, double* out, int* numOut) {
  const ClipExtent& box = fence->extent;
  if (!LineRectVector::can_take(box, dim, numPoints, points, *numOut, out)) {
    return clip_line_rect_plain(fence, dim, numPoints, points, numPieces, counts, out, numOut);
  }
  return clip_line(box, dim, numPoints, points, numPieces, counts, out, numOut,
                   LineRectVector(box, numPoints, points));
}

}  // namespace Corvane::Print::clip
