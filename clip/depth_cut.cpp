// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A bound is a plane that meets the ring's own plane in a line. The ring crosses that line at an even number
// of points; ordered along the line, the first and second of them bound a stretch inside the ring, the third
// and fourth the next, and so on. Joining them in these pairs turns the arcs on the kept side into rings. A
// vertex on the plane counts as being beyond it, so an edge in the plane belongs to neither side and a ring
// that only touches the plane is not cut.
//
// Comparisons with the bound are exact. No shared state.
#include "clip/depth_cut.h"

#include "clip/node_pool.h"
#include "clip/ring.h"
#include "clip/tolerances.h"

#include <algorithm>
#include <new>

namespace Corvane::Print::clip {
namespace {

// One bound with its kept side: above the low bound, below the high one.
struct Bound {
  double z;
  bool keep_above;
  // Positive on the kept side, 0 on the plane, negative beyond it.
  int side(const FenceVertex& v) const {
    const int above = (v.z > z) - (v.z < z);
    return keep_above ? above : -above;
  }
};

// A point where the ring passes the plane; `entering` when the ring comes onto the kept side there.
struct Passage {
  FenceVertex* vertex;
  bool entering;
};
using Passages = platform::CapiVector<Passage>;

bool any_on_side(FenceVertex* ring, const Bound& bound, int side) {
  bool any = false;
  for_each_vertex(ring, [&](const FenceVertex& v) { any = any || bound.side(v) == side; });
  return any;
}

// Adds the point where the edge from `v` reaches the plane.
void insert_after(FenceVertex* v, const Bound& bound) {
  FenceVertex* end = v->next;
  const double t = (bound.z - v->z) / (end->z - v->z);
  FenceVertex* cut = take_vertex();
  if (cut == nullptr) throw std::bad_alloc();
  cut->x = v->x + t * (end->x - v->x);
  cut->y = v->y + t * (end->y - v->y);
  cut->z = bound.z;
  v->next = v->next2 = cut;
  cut->prev = v;
  cut->next = cut->next2 = end;
  end->prev = cut;
}

Passages find_passages(FenceVertex* ring, const Bound& bound) {
  for_each_vertex(ring, [&](FenceVertex& v) {
    if (bound.side(v) * bound.side(*v.next) < 0) insert_after(&v, bound);
  });
  Passages passages;
  for_each_vertex(ring, [&](FenceVertex& v) {
    if (bound.side(v) != 0) return;
    const bool from_kept = bound.side(*v.prev) > 0;
    const bool to_kept = bound.side(*v.next) > 0;
    if (from_kept != to_kept) passages.push_back({&v, to_kept});
  });
  return passages;
}

// Orders the passages along the cut line. The coordinate in which they spread further is the one that
// rounding cannot disorder; when all share their x it is y.
void order_along_line(Passages& passages) {
  ClipExtent extent = empty_extent();
  for (const Passage& p : passages) include_point(extent, p.vertex->x, p.vertex->y);
  const bool by_x = extent.xmax - extent.xmin >= extent.ymax - extent.ymin && extent.xmax > extent.xmin;
  std::stable_sort(passages.begin(), passages.end(), [by_x](const Passage& a, const Passage& b) {
    return by_x ? a.vertex->x < b.vertex->x : a.vertex->y < b.vertex->y;
  });
}

// Brings each way out together with a way in: neighbours where the ring is simple and flat. In a ring that
// crosses itself neighbours may both be ways in; then the i-th way out goes with the i-th way in.
void pair_up(Passages& passages) {
  bool neighbours_match = true;
  for (std::size_t i = 0; i + 1 < passages.size(); i += 2) {
    neighbours_match = neighbours_match && passages[i].entering != passages[i + 1].entering;
  }
  if (neighbours_match) return;
  Passages in, out;
  for (const Passage& p : passages) (p.entering ? in : out).push_back(p);
  for (std::size_t i = 0; i < in.size(); ++i) {
    passages[2 * i] = in[i];
    passages[2 * i + 1] = out[i];
  }
}

// Joins the ring's arcs on the kept side. Every way in starts a ring until it has become part of one.
void join_arcs(Passages& passages, VertexList& rings) {
  for (std::size_t i = 0; i + 1 < passages.size(); i += 2) {
    const bool first_enters = passages[i].entering;
    FenceVertex* in = passages[first_enters ? i : i + 1].vertex;
    FenceVertex* out = passages[first_enters ? i + 1 : i].vertex;
    in->partner = out;  // for the moment: which way out leads here
    out->partner = in;
  }
  for (const Passage& p : passages) {
    if (!p.entering || p.vertex->partner == nullptr) continue;
    rings.push_back(p.vertex);
    FenceVertex* in = p.vertex;
    while (in->partner != nullptr) {
      in->partner = nullptr;
      FenceVertex* out = in->next;
      while (out->partner == nullptr) out = out->next;
      FenceVertex* next_in = out->partner;
      out->partner = nullptr;
      out->next = out->next2 = next_in;
      next_in->prev = out;
      in = next_in;
    }
  }
}

void cut(FenceVertex* ring, const Bound& bound, VertexList& rings) {
  if (!any_on_side(ring, bound, -1)) return rings.push_back(ring);
  if (!any_on_side(ring, bound, +1)) return;
  Passages passages = find_passages(ring, bound);
  order_along_line(passages);
  pair_up(passages);
  join_arcs(passages, rings);
}

}  // namespace

VertexList cut_to_depth(FenceVertex* ring, double z_low, double z_high) {
  VertexList above_low, rings;
  cut(ring, {z_low, true}, above_low);
  for (FenceVertex* part : above_low) cut(part, {z_high, false}, rings);
  return rings;
}

}  // namespace Corvane::Print::clip
