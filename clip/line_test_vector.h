// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// On which side of an edge's line points lie, two points at a time.
#ifndef CORVANE_PRINT_CLIP_LINE_TEST_VECTOR_H
#define CORVANE_PRINT_CLIP_LINE_TEST_VECTOR_H

#include "clip/box_vector.h"
#include "clip/polyline.h"

#include <emmintrin.h>

#include <algorithm>
#include <cmath>

namespace Corvane::Print::clip {

// The line through an edge, and on which side of it points lie.
//
// For a point p, s(p) is the cross product of the edge with p - start. Of another edge from p to q, s(p) is
// the numerator of its parameter of intersection, bit by bit, and s(p) - s(q), but for rounding, its
// denominator. When s(p) and s(q) have one sign and each is more than 3e-5 of the greatest |s| that a point
// can have here, the parameter is at least 2e-5 off [0, 1], and the tolerances that could still make a
// meeting of it are at most 1e-5. Rounding of s is of the order of 1e-15 of that greatest |s|.
class LineTest {
public:
  // `around` holds all points that will be asked about.
  LineTest(const LinePoint& start, const LinePoint& end, const Box& around)
      : x_(_mm_set1_pd(start.x)), y_(_mm_set1_pd(start.y)) {
    const double dx = end.x - start.x, dy = end.y - start.y;
    const double reach_x = std::max(std::fabs(around.xmin - start.x), std::fabs(around.xmax - start.x));
    const double reach_y = std::max(std::fabs(around.ymin - start.y), std::fabs(around.ymax - start.y));
    const double clear = 3e-5 * (std::fabs(dx) + std::fabs(dy)) * std::max(reach_x, reach_y);
    dx_ = _mm_set1_pd(dx);
    dy_ = _mm_set1_pd(dy);
    clear_ = _mm_set1_pd(clear);
    minus_clear_ = _mm_set1_pd(-clear);
  }

  // One bit for each of `count` edges between consecutive points: set when it may meet the line. NaN compares
  // as not clear.
  unsigned may_meet(const LinePoint* points, int count) const {
    unsigned left = 0, right = 0;
    int i = 0;
    for (; i + 1 <= count; i += 2) classify(points[i], points[i + 1], i, left, right);
    if (i == count) classify(points[i], points[i], i, left, right);
    const unsigned all = (1u << count) - 1u;
    return all & ~((left & left >> 1) | (right & right >> 1));
  }

private:
  void classify(const LinePoint& p, const LinePoint& q, int at, unsigned& left, unsigned& right) const {
    const __m128d a = _mm_loadu_pd(&p.x), b = _mm_loadu_pd(&q.x);
    const __m128d x = _mm_sub_pd(_mm_unpacklo_pd(a, b), x_), y = _mm_sub_pd(_mm_unpackhi_pd(a, b), y_);
    const __m128d s = _mm_sub_pd(_mm_mul_pd(y, dx_), _mm_mul_pd(x, dy_));
    left |= static_cast<unsigned>(_mm_movemask_pd(_mm_cmpgt_pd(s, clear_))) << at;
    right |= static_cast<unsigned>(_mm_movemask_pd(_mm_cmplt_pd(s, minus_clear_))) << at;
  }

  __m128d x_, y_, dx_, dy_, clear_, minus_clear_;
};

}  // namespace Corvane::Print::clip

#endif
