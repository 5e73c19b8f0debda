// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How many points one call may be given, so that no size computed from the number overflows.
#ifndef CORVANE_PRINT_CLIP_POINT_COUNT_H
#define CORVANE_PRINT_CLIP_POINT_COUNT_H

#include <cstddef>
#include <limits>

namespace Corvane::Print::clip {

// Callers are told to come back with room for twice the points; so many must fit a count.
inline constexpr int kMostPoints = std::numeric_limits<int>::max() / 2;

// Whether an array of so many points of `dim` doubles can exist in the address space. On 32 bits the larger
// counts cannot be true.
inline bool is_addressable(int num_points, int dim) {
  constexpr std::size_t kMostDoubles = std::numeric_limits<std::size_t>::max() / sizeof(double);
  return static_cast<std::size_t>(num_points) <= kMostDoubles / static_cast<std::size_t>(dim);
}

}  // namespace Corvane::Print::clip

#endif
