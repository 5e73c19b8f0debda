// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the links of the indexed form tell: crossings, and which ring lies inside which. See links.cpp for the
// rules.
#include "clip/contain.h"
#include "clip/indexed_links.h"
#include "clip/links.h"
#include "clip/subject_index.h"

namespace Corvane::Print::clip {

const LinePoint& IndexedLinks::point_on(WhichRing ring, const Link& link) const {
  const RingPlace& place = link.place[ring];
  return place.at_vertex() ? index_on(ring, link).point(place.edge) : link.point;
}

// The part of `ring` from one link with the other ring to the next.
Side IndexedLinks::side_of_part(WhichRing ring, int from, int to, bool clockwise) const {
  const WhichRing other = other_of(ring);
  const Link &a = at(from), &b = at(to);
  const PolygonIndex &index = index_on(ring, a), &other_index = index_on(other, a);
  const Side side =
      agreed_side(side_of(leaving(index, a.place[ring]), leaving(other_index, a.place[other]),
                          arriving(other_index, a.place[other]).reversed(), clockwise),
                  side_of(arriving(index, b.place[ring]).reversed(), leaving(other_index, b.place[other]),
                          arriving(other_index, b.place[other]).reversed(), clockwise));
  const bool settled = side == Side::kAlong ? share_an_edge(ring, from, to) : side != Side::kUnknown;
  return settled ? side : side_by_witness(ring, from, to);
}

// Between two links that follow one another on both rings there is nothing but one straight edge of each.
bool IndexedLinks::share_an_edge(WhichRing ring, int from, int to) const {
  const WhichRing other = other_of(ring);
  const auto adjoin = [&](WhichRing on, int a, int b) {
    return next_on(on, a) == b && points_between(on, a, b).empty();
  };
  return adjoin(ring, from, to) && (adjoin(other, from, to) || adjoin(other, to, from));
}

Side IndexedLinks::side_by_witness(WhichRing ring, int from, int to) const {
  const Link& start = at(from);
  Witness witness(std::span<const LinePoint>(index_on(other_of(ring), start).points));
  const LinePoint* last = &point_on(ring, start);
  const auto go_to = [&](const LinePoint& p) {
    witness.add_stretch(last->x, last->y, p.x, p.y);
    last = &p;
  };
  int link = from;
  do {
    const int next = next_on(ring, link);
    const PointsBetween between = points_between(ring, link, next);
    for (const LinePoint& p : between.first) go_to(p);
    for (const LinePoint& p : between.then) go_to(p);
    link = next;
    go_to(point_on(ring, at(link)));
  } while (link != to);
  return witness.side();
}

int IndexedLinks::mark_crossings(FencePolygon& fence, int number) {
  const std::span<const int> with_fence = links_with(number, by_fence_);
  const std::size_t n = with_fence.size();
  const bool clockwise = fence.mode != CL_KEEP_OUTSIDE;
  platform::CapiVector<Side> sides(n);
  for (std::size_t i = 0; i < n; ++i) {
    sides[i] = side_of_part(kOnSubject, with_fence[i], with_fence[i + 1 < n ? i + 1 : 0], clockwise);
  }
  return for_each_crossing(sides, fence.mode, [&](std::size_t i, bool entering) {
    at(with_fence[i]).bits |= entering ? kCrossing | kEntry : kCrossing;
  });
}

Side IndexedLinks::side_of_ring(WhichRing ring, std::span<const int> links, bool clockwise) const {
  Side side = Side::kUnknown;
  for (std::size_t i = 0; i < links.size(); ++i) {
    side = side_of_part(ring, links[i], links[i + 1 < links.size() ? i + 1 : 0], clockwise);
    if (side != Side::kAlong) break;
  }
  return side;
}

bool IndexedLinks::subject_lies_inside(FencePolygon& fence, int number) {
  const Side side = side_of_ring(kOnSubject, links_with(number, by_fence_), fence.mode != CL_KEEP_OUTSIDE);
  bool inside = side != Side::kOutside;
  if (side == Side::kUnknown) {
    FenceVertex first = {}, second = {};
    first.x = points_.point(0).x;
    first.y = points_.point(0).y;
    second.x = points_.point(1).x;
    first.next = &second;
    inside = is_inside(first, subject_.extent, fence);
  }
  store_verdict(subject_, inside, fence.mode);
  return inside;
}

bool IndexedLinks::fence_lies_inside(FencePolygon& fence, int number) {
  subject_.mode = CL_KEEP_INSIDE;
  const Side side = side_of_ring(kOnFence, links_with(number, order_[kOnFence]), true);
  bool inside = side != Side::kOutside;
  if (side == Side::kUnknown) {
    inside = within_xy(fence.extent, subject_.extent);
    if (inside) {
      lead_records_through_links();
      inside = probe_is_inside(*fence.first, subject_);
    }
  }
  store_verdict(fence, inside, subject_.mode);
  return inside;
}

// The inside test looks along the working successors of the ring it casts over; of what is inserted on an
// edge only the first place matters to it.
void IndexedLinks::lead_records_through_links() {
  make_records(subject_);
  if (!inserted_.empty()) return;
  inserted_.reserve(links_.size());
  int last_edge = -1;
  for (const int number : order_[kOnSubject]) {
    const Link& link = at(number);
    const RingPlace& place = link.place[kOnSubject];
    if (place.at_vertex() || place.edge == last_edge) continue;
    last_edge = place.edge;
    FenceVertex& v = inserted_.emplace_back();
    v.x = link.point.x;
    v.y = link.point.y;
    points_.record(place.edge).next2 = &v;
  }
}

void IndexedLinks::lead_records_past_links() {
  if (inserted_.empty()) return;
  for (const Link& link : links_) {
    FenceVertex& v = points_.record(link.place[kOnSubject].edge);
    v.next2 = v.next;
  }
}

}  // namespace Corvane::Print::clip
