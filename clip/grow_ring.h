// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Moves the vertices of one ring by a distance.
//
// A ring here is n points of `dim` (2 or 3) doubles at places 1 to n, with the first one's predecessor at
// place 0 and the last one's successor at place n + 1. The output is another array, of n points.
#ifndef CORVANE_PRINT_CLIP_GROW_RING_H
#define CORVANE_PRINT_CLIP_GROW_RING_H

#include <cstddef>

namespace Corvane::Print::clip {

void grow_ring(std::size_t dim, std::size_t n, const double* ring, double distance, double* out);

// The same in two forms, of which grow_ring is one: vertex by vertex, and by two. They write the same.
void grow_ring_plain(std::size_t dim, std::size_t n, const double* ring, double distance, double* out);
void grow_ring_fast(std::size_t dim, std::size_t n, const double* ring, double distance, double* out);

// Moves the vertices at places `from` to `to - 1`, one by one.
void move_vertices(std::size_t dim, std::size_t from, std::size_t to, const double* ring,
                   bool counter_clockwise, double distance, double* out);

}  // namespace Corvane::Print::clip

#endif
