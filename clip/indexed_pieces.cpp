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
    emit_link(links_[static_cast<std::size_t>(here)], ring, sink);
    ++steps;
    const PointsBetween between = points_after(ring, here);
    steps += emit_row(between.first, most_steps - steps, sink);
    steps += emit_row(between.then, most_steps - steps, sink);
    here = next_on(ring, here);
    Link& there = links_[static_cast<std::size_t>(here)];
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
  const auto before_start = [&](const Link& link) { return comes_before(link.place[kOnSubject], start); };
  const int first =
      static_cast<int>(std::partition_point(links_.begin(), links_.end(), before_start) - links_.begin());
  for (int i = 0; i < count() && most_steps > 0; ++i) {
    const int link = first + i < count() ? first + i : first + i - count();
    const int bits = links_[static_cast<std::size_t>(link)].bits;
    if ((bits & kEntry) != 0 && (bits & kVisited) == 0) most_steps -= emit_piece(link, most_steps, sink);
  }
}

// The number of the vertex that walk_start of records finds.
int IndexedLinks::walk_start(const FencePolygon& fence) const {
  int number = 0;
  if (within_xy(subject_.extent, fence.extent)) {
    for (const Link& link : links_) {
      if (link.place[kOnSubject].edge > number) break;
      if (link.place[kOnSubject].at_vertex()) ++number;
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
