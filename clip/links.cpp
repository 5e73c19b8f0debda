// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The engine's answer to degenerate input. A link is a vertex that lies on both rings. Links cut the subject
// into parts, each of which lies inside the fence, outside it or along its edge. Parts along the edge are
// taken as one with the links at their ends; where the part before such a chain and the part after it lie on
// different sides, the rings cross there, once. Everything else is a touch and changes nothing.
//
//   outside -- a == along == b -- inside      crosses at b: entering counts where the chain ends,
//   inside  -- a == along == b -- outside     crosses at a: leaving counts where it starts,
//
// so that a walk which turns at the crossings follows the fence along the chain when it bounds the kept
// region, and not at all when it does not.
//
// No shared state.
#include "clip/links.h"

#include "clip/candidates.h"
#include "clip/node_pool.h"
#include "clip/ring.h"

#include <algorithm>
#include <functional>
#include <new>

namespace Corvane::Print::clip {
namespace {

FenceVertex* new_vertex_on(FenceVertex& edge, double param, double x, double y, double z) {
  FenceVertex* v = take_vertex();
  if (v == nullptr) throw std::bad_alloc();
  v->x = x;
  v->y = y;
  v->z = z;
  v->dx = edge.dx;
  v->dy = edge.dy;
  v->tolerance = edge.tolerance;
  v->param = param;
  v->marker = kInserted;
  v->prev = &edge;
  v->next = v->next2 = edge.next;
  return v;
}

double z_on(const FenceVertex& edge, double param) {
  return edge.z + param * (edge.next->z - edge.z);
}

// An inserted vertex with what it is ordered by, so that sorting does not have to look at the records.
struct Insertion {
  const FenceVertex* edge;
  double param;
  FenceVertex* vertex;
};

// Leads the working successors through the inserted vertices: by edge, along the edge, and where two have the
// same place in the order in which they were found.
void thread(VertexList& inserted) {
  platform::CapiVector<Insertion> order;
  order.reserve(inserted.size());
  for (FenceVertex* v : inserted) order.push_back({v->prev, v->param, v});
  const auto comes_before = [](const Insertion& a, const Insertion& b) {
    if (a.edge != b.edge) return std::less<>{}(a.edge, b.edge);
    return a.param < b.param;
  };
  if (!std::is_sorted(order.begin(), order.end(), comes_before)) {
    std::stable_sort(order.begin(), order.end(), comes_before);
  }
  const FenceVertex* edge = nullptr;
  FenceVertex* last = nullptr;
  for (std::size_t i = 0; i < order.size(); ++i) {
    FenceVertex* v = inserted[i] = order[i].vertex;
    if (v->prev != edge) last = v->prev;
    edge = v->prev;
    last->next2 = v;
    v->next2 = v->next;
    last = v;
  }
}

// Between two links that follow one another on both rings there is nothing but one straight edge of each.
bool share_an_edge(const FenceVertex* from, const FenceVertex* to) {
  const FenceVertex *other_from = from->partner, *other_to = to->partner;
  return from->next2 == to && (other_from->next2 == other_to || other_to->next2 == other_from);
}

// The part of a ring from one link with `other` to the next.
Side side_of_part(const FenceVertex* from, const FenceVertex* to, const FencePolygon& other, bool clockwise) {
  const Side side = agreed_side(side_of(leaving(*from), *from->partner, clockwise),
                                side_of(arriving(*to).reversed(), *to->partner, clockwise));
  const bool settled = side == Side::kAlong ? share_an_edge(from, to) : side != Side::kUnknown;
  if (settled) return side;
  Witness witness(other.first);
  const FenceVertex* v = from;
  do {
    witness.add_stretch(v->x, v->y, v->next2->x, v->next2->y);
    v = v->next2;
  } while (v != to);
  return witness.side();
}

void mark_pair(FenceVertex& on_subject, int bits) {
  on_subject.marker2 |= bits;
  on_subject.partner->marker2 |= kCrossing;
}

}  // namespace

void RingLinker::pair(FenceVertex& on_fence, FenceVertex& on_subject, int number) {
  changed_on_fence_.push_back(on_fence.marker == kInserted ? on_fence.prev : &on_fence);
  on_fence.partner = &on_subject;
  on_subject.partner = &on_fence;
  on_fence.marker2 = on_subject.marker2 = number << kFenceShift;
  include_point(limit_, on_fence.x, on_fence.y);
  include_point(limit_, on_subject.x, on_subject.y);
  ++links_;
}

// A vertex that is linked already stays as it is, whatever further edge it meets.
void RingLinker::connect(const Meeting& m, FenceVertex& e, FenceVertex& f, int number) {
  if (m.fence_vertex != nullptr && m.fence_vertex->partner != nullptr) return;
  if (m.subject_vertex != nullptr && m.subject_vertex->partner != nullptr) {
    contested_ = contested_ || linked_fence(*m.subject_vertex) != number;
    return;
  }
  FenceVertex* on_fence = m.fence_vertex;
  FenceVertex* on_subject = m.subject_vertex;
  if (on_subject == nullptr) {
    // The subject's z, also where the fence's vertex gives the place.
    const double u = m.subject_param;
    const double x = on_fence != nullptr ? on_fence->x : f.x + u * f.dx;
    const double y = on_fence != nullptr ? on_fence->y : f.y + u * f.dy;
    on_subject = new_vertex_on(f, u, x, y, z_on(f, u));
    new_on_subject_.push_back(on_subject);
  }
  if (on_fence == nullptr) {
    on_fence = new_vertex_on(e, m.fence_param, on_subject->x, on_subject->y, on_subject->z);
    new_on_fence_.push_back(on_fence);
  }
  pair(*on_fence, *on_subject, number);
}

void RingLinker::link_with(FencePolygon& fence, int number) {
  new_on_fence_.clear();
  for_each_candidate({fence.first, fence.vertexCount}, {subject_.first, subject_.vertexCount},
                     [&](FenceVertex& e, FenceVertex& f) {
                       const Meeting m = meet(e, f);
                       if (m.found()) connect(m, e, f, number);
                     });
  thread(new_on_fence_);
}

void RingLinker::release_fence_rings() {
  for (FenceVertex* v : changed_on_fence_) {
    v->next2 = v->next;
    v->marker2 = 0;
    v->partner = nullptr;
  }
  changed_on_fence_.clear();
}

void RingLinker::finish() {
  thread(new_on_subject_);
  for (std::size_t i = 0; i + 1 < new_on_subject_.size(); ++i) {
    const FenceVertex &a = *new_on_subject_[i], &b = *new_on_subject_[i + 1];
    const bool same_place = a.prev == b.prev && b.param - a.param <= a.tolerance;
    if (same_place && linked_fence(a) != linked_fence(b)) contested_ = true;
  }
}

VertexList linked_vertices(FencePolygon& ring) {
  VertexList linked;
  FenceVertex* v = ring.first;
  do {
    if (v->partner != nullptr) linked.push_back(v);
    v = v->next2;
  } while (v != ring.first);
  return linked;
}

VertexList linked_vertices_by_fence(FencePolygon& ring) {
  VertexList linked = linked_vertices(ring);
  std::stable_sort(linked.begin(), linked.end(), [](const FenceVertex* a, const FenceVertex* b) {
    return linked_fence(*a) < linked_fence(*b);
  });
  return linked;
}

Side side_of_ring(std::span<FenceVertex* const> linked, const FencePolygon& other, bool other_clockwise) {
  Side side = Side::kUnknown;
  for (std::size_t i = 0; i < linked.size(); ++i) {
    side = side_of_part(linked[i], linked[(i + 1) % linked.size()], other, other_clockwise);
    if (side != Side::kAlong) break;
  }
  return side;
}

int mark_crossings(std::span<FenceVertex* const> linked, const FencePolygon& fence) {
  const std::size_t n = linked.size();
  const bool clockwise = fence.mode != CL_KEEP_OUTSIDE;
  platform::CapiVector<Side> sides(n);
  for (std::size_t i = 0; i < n; ++i) {
    sides[i] = side_of_part(linked[i], linked[(i + 1) % n], fence, clockwise);
  }
  return for_each_crossing(sides, fence.mode, [&](std::size_t i, bool entering) {
    mark_pair(*linked[i], entering ? kCrossing | kEntry : kCrossing);
  });
}

}  // namespace Corvane::Print::clip
