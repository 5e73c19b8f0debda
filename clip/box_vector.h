// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Boxes in x and y, both coordinates at a time.
#ifndef CORVANE_PRINT_CLIP_BOX_VECTOR_H
#define CORVANE_PRINT_CLIP_BOX_VECTOR_H

#include "clip/polyline.h"
#include "clip/tolerances.h"

#include <emmintrin.h>

#include <algorithm>

namespace Corvane::Print::clip {

struct Box {
  double xmin, ymin, xmax, ymax;
};

// Touching boxes are not apart.
inline bool overlap(const Box& a, const Box& b) {
  const __m128d low_enough = _mm_cmple_pd(_mm_loadu_pd(&a.xmin), _mm_loadu_pd(&b.xmax));
  const __m128d high_enough = _mm_cmpge_pd(_mm_loadu_pd(&a.xmax), _mm_loadu_pd(&b.xmin));
  return _mm_movemask_pd(_mm_and_pd(low_enough, high_enough)) == 3;
}

inline Box box_of_edge(const LinePoint& a, const LinePoint& b) {
  return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

// A box being grown. `min_pd(p, low)` is `p < low ? p : low` in both lanes, so what is no number leaves the
// box as it is.
struct GrowingBox {
  __m128d low = _mm_set1_pd(kLargest);
  __m128d high = _mm_set1_pd(-kLargest);

  void include(const LinePoint& p) {
    const __m128d xy = _mm_loadu_pd(&p.x);
    low = _mm_min_pd(xy, low);
    high = _mm_max_pd(xy, high);
  }
  void include(const Box& other) {
    low = _mm_min_pd(_mm_loadu_pd(&other.xmin), low);
    high = _mm_max_pd(_mm_loadu_pd(&other.xmax), high);
  }
  Box box() const {
    Box result;
    _mm_storeu_pd(&result.xmin, low);
    _mm_storeu_pd(&result.xmax, high);
    return result;
  }
};

}  // namespace Corvane::Print::clip

#endif
