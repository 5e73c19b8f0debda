// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Finding links and putting them in order. The rules are those of links.cpp: who comes first has a vertex,
// and links at one place keep the order in which they were found.
#include "clip/indexed_links.h"

#include "clip/pair_search.h"
#include "clip/ring.h"

#include <algorithm>
#include <numeric>

namespace Corvane::Print::clip {
namespace {

constexpr int kNone = -1;

// What the meeting of two edges wants to know of one.
void load_edge(FenceVertex& edge, const PolygonIndex& index, int number) {
  const LinePoint &start = index.point(number), &end = index.point(number + 1);
  edge.x = start.x;
  edge.y = start.y;
  edge.dx = end.x - start.x;
  edge.dy = end.y - start.y;
  edge.tolerance = edge_tolerance(edge.dx, edge.dy);
}

RingPlace place_on(const PolygonIndex& index, int edge, Place place, double param) {
  if (place == Place::kInside) return {param, edge};
  return {0.0, param == 0.0 ? edge : following(index, edge)};
}

int link_at(const PolygonIndex& index, const RingPlace& place) {
  if (!place.at_vertex() || index.links_at.empty()) return kNone;
  return index.links_at[static_cast<std::size_t>(place.edge)];
}

void link_vertex(PolygonIndex& index, const RingPlace& place, int link) {
  if (!place.at_vertex()) return;
  if (index.links_at.empty()) index.links_at.assign(static_cast<std::size_t>(index.count()), kNone);
  index.links_at[static_cast<std::size_t>(place.edge)] = link;
}

void forget_vertex(PolygonIndex& index, const RingPlace& place) {
  if (place.at_vertex() && !index.links_at.empty()) {
    index.links_at[static_cast<std::size_t>(place.edge)] = kNone;
  }
}

}  // namespace

void IndexedLinks::link_with(FencePolygon& fence, int number) {
  PolygonIndex& index = *index_of(fence);
  const int begin = count();
  fences_.push_back({&index, number, begin, begin});
  int loaded = kNone;
  FenceVertex fence_edge = {}, subject_edge = {};
  for_each_near_pair(index.edges, points_.edges, [&](int e, int f) {
    if (e != loaded) load_edge(fence_edge, index, loaded = e);
    load_edge(subject_edge, points_, f);
    const Meeting m = meet(fence_edge, subject_edge);
    if (m.found()) connect(m, e, f);
  });
  fences_.back().end = count();
  if (fences_.back().end == begin) fences_.pop_back();
}

// A vertex that is linked already stays as it is, whatever further edge it meets.
void IndexedLinks::connect(const Meeting& m, int e, int f) {
  const int fence_number = static_cast<int>(fences_.size()) - 1;
  PolygonIndex& fence = *fences_.back().index;
  const RingPlace on_fence = place_on(fence, e, m.on_fence, m.fence_param);
  const RingPlace on_subject = place_on(points_, f, m.on_subject, m.subject_param);
  if (link_at(fence, on_fence) != kNone) return;
  if (const int earlier = link_at(points_, on_subject); earlier != kNone) {
    contested_ = contested_ || at(earlier).fence != fence_number;
    return;
  }
  LinePoint point = points_.point(on_subject.edge);
  if (!on_subject.at_vertex()) {
    // The subject's z, also where the fence's vertex gives the place.
    const LinePoint &start = points_.point(f), &end = points_.point(f + 1);
    const double u = on_subject.param;
    const LinePoint& corner = fence.point(on_fence.edge);
    point.x = on_fence.at_vertex() ? corner.x : start.x + u * (end.x - start.x);
    point.y = on_fence.at_vertex() ? corner.y : start.y + u * (end.y - start.y);
    point.z = start.z + u * (end.z - start.z);
  }
  links_.push_back({point, {on_subject, on_fence}, fence_number, {0, 0}, 0});
  link_vertex(points_, on_subject, count() - 1);
  link_vertex(fence, on_fence, count() - 1);
  include_point(limit_, point.x, point.y);
  if (on_fence.at_vertex()) include_point(limit_, fence.point(on_fence.edge).x, fence.point(on_fence.edge).y);
}

IndexedLinks::~IndexedLinks() {
  for (const Link& link : links_) {
    forget_vertex(points_, link.place[kOnSubject]);
    forget_vertex(*fences_[static_cast<std::size_t>(link.fence)].index, link.place[kOnFence]);
  }
  lead_records_past_links();
}

void IndexedLinks::finish() {
  order_[kOnSubject].resize(links_.size());
  order_[kOnFence].resize(links_.size());
  by_fence_.resize(links_.size());
  put_in_order(kOnSubject, 0, count(), points_.count());
  for (const LinkedFence& fence : fences_) {
    put_in_order(kOnFence, fence.begin, fence.end, fence.index->count());
  }
  list_by_fence();
  find_contested();
}

// By edge, along the edge, and links at one place as they were found. Where links are as many as edges they
// are counted into place, in the order in which they were found; few are sorted.
void IndexedLinks::put_in_order(WhichRing ring, int begin, int end, int edges) {
  const auto place = [&](int link) -> const RingPlace& { return at(link).place[ring]; };
  const auto before = [&](int a, int b) {
    if (place(a).edge != place(b).edge) return place(a).edge < place(b).edge;
    return place(a).param != place(b).param ? place(a).param < place(b).param : a < b;
  };
  const auto order = order_[ring].begin();
  if (end - begin < edges / 16) {
    std::iota(order + begin, order + end, begin);
    std::sort(order + begin, order + end, before);
  } else {
    Numbers next(static_cast<std::size_t>(edges) + 1);  // place in the order, for each edge
    for (int i = begin; i < end; ++i) ++next[static_cast<std::size_t>(place(i).edge) + 1];
    std::partial_sum(next.begin(), next.end(), next.begin());
    for (int i = begin; i < end; ++i) order[begin + next[static_cast<std::size_t>(place(i).edge)]++] = i;
    for (int from = begin, to; from < end; from = to) {
      for (to = from + 1; to < end && place(order[to]).edge == place(order[from]).edge;) ++to;
      if (to - from > 1) std::sort(order + from, order + to, before);
    }
  }
  for (int i = begin; i < end; ++i) at(order[i]).turn[ring] = i;
}

void IndexedLinks::list_by_fence() {
  Numbers next;  // place in the list, for each fence polygon
  for (const LinkedFence& fence : fences_) next.push_back(fence.begin);
  for (const int link : order_[kOnSubject]) {
    by_fence_[static_cast<std::size_t>(next[static_cast<std::size_t>(at(link).fence)]++)] = link;
  }
}

// Neighbours on one edge of the subject, closer than snapping tells apart.
void IndexedLinks::find_contested() {
  if (fences_.size() < 2) return;
  FenceVertex edge = {};
  for (std::size_t i = 0; i + 1 < links_.size(); ++i) {
    const Link &a = at(order_[kOnSubject][i]), &b = at(order_[kOnSubject][i + 1]);
    const RingPlace &from = a.place[kOnSubject], &to = b.place[kOnSubject];
    if (a.fence == b.fence || from.edge != to.edge || from.at_vertex()) continue;
    load_edge(edge, points_, from.edge);
    if (to.param - from.param <= edge.tolerance) contested_ = true;
  }
}

const PolygonIndex& IndexedLinks::index_on(WhichRing ring, const Link& link) const {
  return ring == kOnSubject ? points_ : *fences_[static_cast<std::size_t>(link.fence)].index;
}

int IndexedLinks::next_on(WhichRing ring, int link) const {
  const int next = at(link).turn[ring] + 1;
  const LinkedFence& fence = fences_[static_cast<std::size_t>(at(link).fence)];
  const int begin = ring == kOnSubject ? 0 : fence.begin, end = ring == kOnSubject ? count() : fence.end;
  return order_[ring][static_cast<std::size_t>(next < end ? next : begin)];
}

PointsBetween IndexedLinks::points_between(WhichRing ring, int link, int next) const {
  const Link &here = at(link), &there = at(next);
  return clip::points_between(index_on(ring, here), here.place[ring], there.place[ring],
                              there.turn[ring] <= here.turn[ring]);
}

std::span<const int> IndexedLinks::links_with(int number, const Numbers& order) const {
  const auto fence = std::ranges::lower_bound(fences_, number, {}, &LinkedFence::number);
  if (fence == fences_.end() || fence->number != number) return {};
  return std::span(order).subspan(static_cast<std::size_t>(fence->begin),
                                  static_cast<std::size_t>(fence->end - fence->begin));
}

}  // namespace Corvane::Print::clip
