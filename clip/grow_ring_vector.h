// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Moves the vertices of a ring two at a time.
#ifndef CORVANE_PRINT_CLIP_GROW_RING_VECTOR_H
#define CORVANE_PRINT_CLIP_GROW_RING_VECTOR_H

#include <cstddef>

namespace Corvane::Print::clip {

struct Moved {
  std::size_t vertices;  // all, or all but the last one
  double sum;            // their part of the sum that judges the ring's direction, added in the plain order
};

// Arguments as those of grow_ring.
Moved move_by_two(std::size_t dim, std::size_t n, const double* ring, bool counter_clockwise, double distance,
                  double* out);

}  // namespace Corvane::Print::clip

#endif
