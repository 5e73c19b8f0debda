// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Finding links and putting them in order. The rules are those of links.cpp: who comes first has a vertex, and
// links at one place keep the order in which they were found.
#include "clip/indexed_links.h"

#include "clip/pair_search.h"
#include "clip/ring.h"

#include <algorithm>
#include <utility>

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

// A link with what it is ordered by, so that sorting moves little.
struct Turn {
  RingPlace place;
  int link;
};
using Turns = platform::CapiVector<Turn>;

void sort_turns(Turns& turns) {
  const auto before = [](const Turn& a, const Turn& b) { return comes_before(a.place, b.place); };
  if (!std::is_sorted(turns.begin(), turns.end(), before)) {
    std::stable_sort(turns.begin(), turns.end(), before);
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
    contested_ = contested_ || links_[static_cast<std::size_t>(earlier)].fence != fence_number;
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
  links_.push_back({point, {on_subject, on_fence}, fence_number, 0, 0});
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
  order_along_fences();
  order_along_subject();
  find_contested();
}

void IndexedLinks::order_along_fences() {
  along_fences_.reserve(links_.size());
  Turns turns;
  for (const LinkedFence& fence : fences_) {
    turns.clear();
    for (int i = fence.begin; i < fence.end; ++i) {
      turns.push_back({links_[static_cast<std::size_t>(i)].place[kOnFence], i});
    }
    sort_turns(turns);
    for (const Turn& turn : turns) along_fences_.push_back(turn.link);
  }
  for (std::size_t i = 0; i < along_fences_.size(); ++i) {
    links_[static_cast<std::size_t>(along_fences_[i])].turn = static_cast<int>(i);
  }
}

void IndexedLinks::order_along_subject() {
  Turns turns;
  turns.reserve(links_.size());
  for (int i = 0; i < count(); ++i)
    turns.push_back({links_[static_cast<std::size_t>(i)].place[kOnSubject], i});
  sort_turns(turns);
  platform::CapiVector<Link> ordered;
  ordered.reserve(links_.size());
  for (const Turn& turn : turns) ordered.push_back(links_[static_cast<std::size_t>(turn.link)]);
  links_ = std::move(ordered);
  by_fence_.resize(links_.size());
  Numbers next;  // place in by_fence_, for each fence polygon
  for (const LinkedFence& fence : fences_) next.push_back(fence.begin);
  for (int i = 0; i < count(); ++i) {
    const Link& link = links_[static_cast<std::size_t>(i)];
    along_fences_[static_cast<std::size_t>(link.turn)] = i;
    by_fence_[static_cast<std::size_t>(next[static_cast<std::size_t>(link.fence)]++)] = i;
  }
}

// Neighbours on one edge of the subject, closer than snapping tells apart.
void IndexedLinks::find_contested() {
  FenceVertex edge = {};
  for (std::size_t i = 0; i + 1 < links_.size(); ++i) {
    const RingPlace &a = links_[i].place[kOnSubject], &b = links_[i + 1].place[kOnSubject];
    if (links_[i].fence == links_[i + 1].fence || a.edge != b.edge || a.at_vertex()) continue;
    load_edge(edge, points_, a.edge);
    if (b.param - a.param <= edge.tolerance) contested_ = true;
  }
}

const PolygonIndex& IndexedLinks::index_on(WhichRing ring, const Link& link) const {
  return ring == kOnSubject ? points_ : *fences_[static_cast<std::size_t>(link.fence)].index;
}

int IndexedLinks::next_on(WhichRing ring, int link) const {
  if (ring == kOnSubject) return link + 1 < count() ? link + 1 : 0;
  const Link& here = links_[static_cast<std::size_t>(link)];
  const LinkedFence& fence = fences_[static_cast<std::size_t>(here.fence)];
  return along_fences_[static_cast<std::size_t>(here.turn + 1 < fence.end ? here.turn + 1 : fence.begin)];
}

PointsBetween IndexedLinks::points_after(WhichRing ring, int link) const {
  const int next = next_on(ring, link);
  const Link &here = links_[static_cast<std::size_t>(link)], &there = links_[static_cast<std::size_t>(next)];
  const bool passes_start = ring == kOnSubject ? next <= link : there.turn <= here.turn;
  return points_between(index_on(ring, here), here.place[ring], there.place[ring], passes_start);
}

std::span<const int> IndexedLinks::links_with(int number, const Numbers& order) const {
  const auto fence = std::ranges::lower_bound(fences_, number, {}, &LinkedFence::number);
  if (fence == fences_.end() || fence->number != number) return {};
  return std::span(order).subspan(static_cast<std::size_t>(fence->begin),
                                  static_cast<std::size_t>(fence->end - fence->begin));
}

}  // namespace Corvane::Print::clip
