// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Writing pieces in the indexed form, by the walk that emit.cpp describes: link by link, and the points
// between as they stand.
#include "clip/indexed_links.h"
#include "clip/links.h"
#include "clip/ring.h"
#include "clip/verdict.h"

#include <algorithm>

namespace Corvane::Print::clip {
namespace {

void emit_link(const Link& link, WhichRing ring, PieceSink& sink) {
  const LinePoint& p = link.point;
  if ((link.bits & kCrossing) != 0 || link.place[ring].at_vertex()) {
    sink.point(p.x, p.y, p.z);
  } else {
    sink.touch(p.x, p.y, p.z);
  }
}

// Writes at most so many points and returns how many.
long long emit_row(std::span<const LinePoint> row, long long most, PieceSink& sink) {
  const auto count =
      static_cast<std::size_t>(std::min(static_cast<unsigned long long>(most), 0ULL + row.size()));
  if (count > 0) sink.points(row.first(count));
  return static_cast<long long>(count);
}

}  // namespace

// Writes one piece and returns the steps it took.
long long IndexedLinks::emit_piece(int start, long long most_steps, PieceSink& sink) {
  long long steps = 0;
  WhichRing ring = kOnSubject;
  int here = start;
  sink.begin_piece();
  do {
    emit_link(at(here), ring, sink);
    ++steps;
    const int next = next_on(ring, here);
    const PointsBetween between = points_between(ring, here, next);
    steps += emit_row(between.first, most_steps - steps, sink);
    steps += emit_row(between.then, most_steps - steps, sink);
    here = next;
    Link& there = at(here);
    if ((there.bits & kCrossing) != 0) {
      there.bits |= kVisited;
      ring = other_of(ring);
    }
  } while ((here != start || ring != kOnSubject) && steps < most_steps);
  sink.end_piece();
  return steps;
}

void IndexedLinks::emit_pieces(const FencePolygon& fence, long long most_steps, PieceSink& sink) {
  const RingPlace start = {0.0, walk_start(fence)};
  const Numbers& order = order_[kOnSubject];
  const auto before_start = [&](int link) { return comes_before(at(link).place[kOnSubject], start); };
  const auto first = std::partition_point(order.begin(), order.end(), before_start) - order.begin();
  for (int i = 0; i < count() && most_steps > 0; ++i) {
    const auto turn = first + i < count() ? first + i : first + i - count();
    const int link = order[static_cast<std::size_t>(turn)];
    const int bits = at(link).bits;
    if ((bits & kEntry) != 0 && (bits & kVisited) == 0) most_steps -= emit_piece(link, most_steps, sink);
  }
}

// The number of the vertex that walk_start of records finds.
int IndexedLinks::walk_start(const FencePolygon& fence) const {
  int number = 0;
  if (within_xy(subject_.extent, fence.extent)) {
    for (const int link : order_[kOnSubject]) {
      const RingPlace& place = at(link).place[kOnSubject];
      if (place.edge > number) break;
      if (place.at_vertex()) ++number;
    }
    return number < points_.count() ? number : 0;
  }
  while (number < points_.count() &&
         !sticks_out(fence.extent, points_.point(number).x, points_.point(number).y)) {
    ++number;
  }
  return number < points_.count() ? number : 0;
}

}  // namespace Corvane::Print::clip
