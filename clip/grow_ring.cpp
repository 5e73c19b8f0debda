// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Every edge moves along its outward normal; every vertex goes to where its two moved edges meet. The order
// of the floating-point operations is fixed, callers compare results bit by bit.
#include "clip/grow_ring.h"

#include "clip/grow_ring_vector.h"

#include <cmath>

namespace Corvane::Print::clip {
namespace {

struct Vec {
  double x, y;
};

Vec ring_point(const double* ring, std::size_t dim, std::size_t j) {
  return {ring[j * dim], ring[j * dim + 1]};
}

// KEEP(grow-open-direction): the sum leaves out the edge from the last point back to the first.
// Looks wrong for an open ring; which way it grows is part of the contract. Pinned by
// Grow.OpenRingsDirectionIsJudgedWithoutItsClosingEdge.
bool runs_counter_clockwise(const double* ring, std::size_t dim, std::size_t n) {
  double sum = 0;
  for (std::size_t j = 1; j < n; ++j) {
    const Vec a = ring_point(ring, dim, j), b = ring_point(ring, dim, j + 1);
    sum += a.x * b.y - a.y * b.x;
  }
  return sum > 0;
}

// A guess at the same, from every 16th point of a long ring. Seen from the first point, so that the edges
// which are passed over matter no more far from the origin than near to it.
bool seems_counter_clockwise(const double* ring, std::size_t dim, std::size_t n) {
  constexpr std::size_t kStep = 16, kLong = 8 * kStep;
  if (n < kLong) return runs_counter_clockwise(ring, dim, n);
  const Vec first = ring_point(ring, dim, 1), last = ring_point(ring, dim, n);
  double sum = first.x * last.y - first.y * last.x;  // without the closing edge
  Vec a = {0, 0};
  for (std::size_t j = 1 + kStep; j <= n; j += kStep) {
    const Vec p = ring_point(ring, dim, j), b = {p.x - first.x, p.y - first.y};
    sum += a.x * b.y - a.y * b.x;
    a = b;
  }
  return sum > 0;
}

Vec unit(Vec d) {
  const double length = std::sqrt(d.x * d.x + d.y * d.y);
  return {d.x / length, d.y / length};
}

// The offset of an edge of direction u along its outward normal.
Vec outward(Vec u, bool counter_clockwise, double distance) {
  if (counter_clockwise) return {u.y * distance, -u.x * distance};
  return {-u.y * distance, u.x * distance};
}

Vec move_vertex(Vec before, Vec q, Vec after, bool counter_clockwise, double distance) {
  const Vec d1 = {q.x - before.x, q.y - before.y}, d2 = {after.x - q.x, after.y - q.y};
  if ((d1.x == 0 && d1.y == 0) || (d2.x == 0 && d2.y == 0)) return q;
  const Vec u1 = unit(d1), u2 = unit(d2);
  const Vec o1 = outward(u1, counter_clockwise, distance), o2 = outward(u2, counter_clockwise, distance);
  const double det = u1.x * u2.y - u2.x * u1.y;
  if (det == 0) return {q.x + o1.x, q.y + o1.y};
  const double c1 = (q.y + o1.y) * u1.x - (q.x + o1.x) * u1.y;
  const double c2 = (q.y + o2.y) * u2.x - (q.x + o2.x) * u2.y;
  return {(u2.x * c1 - u1.x * c2) / det, (u2.y * c1 - u1.y * c2) / det};
}

}  // namespace

void move_vertices(std::size_t dim, std::size_t from, std::size_t to, const double* ring,
                   bool counter_clockwise, double distance, double* out) {
  for (std::size_t j = from; j < to; ++j) {
    const Vec moved = move_vertex(ring_point(ring, dim, j - 1), ring_point(ring, dim, j),
                                  ring_point(ring, dim, j + 1), counter_clockwise, distance);
    double* const at = out + (j - 1) * dim;
    at[0] = moved.x;
    at[1] = moved.y;
    if (dim == 3) at[2] = ring[j * dim + 2];
  }
}

void grow_ring(std::size_t dim, std::size_t n, const double* ring, double distance, double* out) {
#ifdef CORVANE_PRINT_PLAIN
  grow_ring_plain(dim, n, ring, distance, out);
#else
  grow_ring_fast(dim, n, ring, distance, out);
#endif
}

void grow_ring_plain(std::size_t dim, std::size_t n, const double* ring, double distance, double* out) {
  move_vertices(dim, 1, n + 1, ring, runs_counter_clockwise(ring, dim, n), distance, out);
}

void grow_ring_fast(std::size_t dim, std::size_t n, const double* ring, double distance, double* out) {
  // The vertices are moved on a guess, and once more when the sum, which comes with them, says otherwise.
  const bool guess = seems_counter_clockwise(ring, dim, n);
  const Moved moved = move_by_two(dim, n, ring, guess, distance, out);
  const bool counter_clockwise = moved.sum > 0;
  if (counter_clockwise != guess) move_by_two(dim, n, ring, counter_clockwise, distance, out);
  move_vertices(dim, moved.vertices + 1, n + 1, ring, counter_clockwise, distance, out);
}

}  // namespace Corvane::Print::clip
