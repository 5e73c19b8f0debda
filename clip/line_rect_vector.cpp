// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What it buys: a line of 1,000,000 points inside the box takes 1.2 ms instead of 8.9, one beyond a side 0.6
// ms instead of 17.9, where copying the points takes 1.1 ms.
//
// Why it cannot change a result: a point is compared with the same differences and the same bound as by
// region_code, four points at a time. A segment between two points inside is kept as it is and continues its
// piece, so it adds its end and nothing else. A segment between two points beyond the same side is rejected,
// and when no piece is open that does nothing at all; nor does a break then. Coordinates that are no numbers
// are never taken for inside or outside, but left to clip_pair.
#include "clip/line_rect_vector.h"

#include "clip/rect_cut_vector.h"

#include <emmintrin.h>
#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace Corvane::Print::clip {
namespace {

constexpr int kFewestPoints = 8;
constexpr int kLongStretch = 8;

// x in the lower half, y in the upper.
__m128d load_point(const double* points, int index) {
  return _mm_loadu_pd(points + 2 * static_cast<std::ptrdiff_t>(index));
}

class Inside {
public:
  explicit Inside(const ClipExtent& box)
      : low_(_mm_set_pd(box.ymin, box.xmin)), high_(_mm_set_pd(box.ymax, box.xmax)) {}

  // All bits of a half set where the coordinate is inside. One that is no number is not.
  __m128d of(__m128d p) const {
    const __m128d tolerance = _mm_set1_pd(kSamePlace);
    return _mm_and_pd(_mm_cmple_pd(_mm_sub_pd(low_, p), tolerance),
                      _mm_cmple_pd(_mm_sub_pd(p, high_), tolerance));
  }

private:
  __m128d low_, high_;
};

bool holds_for_both(__m128d mask) {
  return _mm_movemask_pd(mask) == 3;
}

// Copies the points before the first one that is not inside, at most `most`; returns how many.
int copy_while_inside(const ClipExtent& box, const double* from, int most, double* to) {
  const Inside inside(box);
  int n = 0;
  for (; n + 4 <= most; n += 4, to += 8) {
    const __m128d a = load_point(from, n), b = load_point(from, n + 1);
    const __m128d c = load_point(from, n + 2), d = load_point(from, n + 3);
    const __m128d ab = _mm_and_pd(inside.of(a), inside.of(b)), cd = _mm_and_pd(inside.of(c), inside.of(d));
    if (!holds_for_both(_mm_and_pd(ab, cd))) break;
    _mm_storeu_pd(to, a);
    _mm_storeu_pd(to + 2, b);
    _mm_storeu_pd(to + 4, c);
    _mm_storeu_pd(to + 6, d);
  }
  for (; n < most && holds_for_both(inside.of(load_point(from, n))); ++n, to += 2) {
    _mm_storeu_pd(to, load_point(from, n));
  }
  return n;
}

// How far points are beyond a bound, on the side of it that lies outside the box.
template <bool kLow>
__m128d is_beyond(__m128d bound, __m128d p) {
  return _mm_cmpgt_pd(kLow ? _mm_sub_pd(bound, p) : _mm_sub_pd(p, bound), _mm_set1_pd(kSamePlace));
}

// How many points, up to `most`, lie beyond a bound of which the half given by `half` (1 for x, 2 for y) is
// looked at.
template <bool kLow>
int count_beyond(__m128d bound, int half, const double* from, int most) {
  int n = 0;
  for (; n + 8 <= most; n += 8) {
    __m128d all = is_beyond<kLow>(bound, load_point(from, n));
    for (int k = 1; k < 8; ++k) all = _mm_and_pd(all, is_beyond<kLow>(bound, load_point(from, n + k)));
    if ((_mm_movemask_pd(all) & half) == 0) break;
  }
  while (n < most && (_mm_movemask_pd(is_beyond<kLow>(bound, load_point(from, n))) & half) != 0) ++n;
  return n;
}

int count_outside(const ClipExtent& box, unsigned side, const double* from, int most) {
  const int half = (side & (kLeft | kRight)) != 0 ? 1 : 2;
  if ((side & (kLeft | kBelow)) != 0) {
    return count_beyond<true>(_mm_set_pd(box.ymin, box.xmin), half, from, most);
  }
  return count_beyond<false>(_mm_set_pd(box.ymax, box.xmax), half, from, most);
}

bool apart(const double* a, std::uint64_t size_a, const double* b, std::uint64_t size_b) {
  const std::uint64_t from_a = reinterpret_cast<std::uintptr_t>(a);
  const std::uint64_t from_b = reinterpret_cast<std::uintptr_t>(b);
  return from_a + size_a * sizeof(double) <= from_b || from_b + size_b * sizeof(double) <= from_a;
}

}  // namespace

bool LineRectVector::can_take(const ClipExtent& box, int dim, int num_points, const double* points,
                              int point_room, const double* out) {
  if (dim != 2 || num_points < kFewestPoints) return false;
  if (!(box.xmin <= box.xmax && box.ymin <= box.ymax && CL_BREAK - box.xmax > kSamePlace)) return false;
  return apart(points, 2 * static_cast<std::uint64_t>(num_points), out,
               2 * static_cast<std::uint64_t>(std::max(point_room, 0)));
}

// The point before the stretch must be inside as well, and the last one of the current piece.
int LineRectVector::copy_inside(int first, RectPieces& pieces) const {
  const RectPoint p = read_point(points_, 2, first);
  if (!pieces.continues_at(p) || region_code(box_, 2, p) != 0) return 0;
  const double* const from = points_ + 2 * (static_cast<std::ptrdiff_t>(first) + 1);
  const auto most = static_cast<int>(std::min<std::int64_t>(last_ - first, pieces.room_for_continuations()));
  const int n = copy_while_inside(box_, from, most, pieces.next_place());
  if (n == 0) return 0;
  *pieces.current_entry() += n;
  pieces.advance(n, 0, read_point(points_, 2, first + n));
  return n;
}

// Of two sides the one that it stays beyond for longer.
int LineRectVector::skip_outside(int first) const {
  const unsigned code = region_code(box_, 2, read_point(points_, 2, first));
  const double* const from = points_ + 2 * (static_cast<std::ptrdiff_t>(first) + 1);
  int longest = 0;
  for (const unsigned side : {kLeft, kRight, kBelow, kAbove}) {
    if ((code & side) != 0) longest = std::max(longest, count_outside(box_, side, from, last_ - first));
  }
  return longest;
}

int LineRectVector::cut(int first, RectPieces& pieces) const {
  const int most = std::min(last_ - first, kMostCutAtOnce);
  if (!pieces.has_room_for(most)) return 0;
  return cut_segments(box_, points_ + 2 * static_cast<std::ptrdiff_t>(first), most, pieces);
}

// A line that leaves the box once in a while is left to clip_pair there. Cutting pays for lines that do so
// all the time.
int LineRectVector::take(int first, RectPieces& pieces) {
  const int stretch = pieces.is_empty() ? skip_outside(first) : copy_inside(first, pieces);
  if (stretch >= kLongStretch) restless_ = false;
  if (stretch > 0) return stretch;
  if (restless_) return cut(first, pieces);
  restless_ = true;
  return 0;
}

}  // namespace Corvane::Print::clip
