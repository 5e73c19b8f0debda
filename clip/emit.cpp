// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A piece starts where the subject enters the kept side. It follows the subject to the next crossing, turns
// there onto the fence, follows the fence to its next crossing, turns back onto the subject, and so on until
// it is back where it started. With the subject clockwise, and the fence clockwise in mode 2 and
// counter-clockwise in mode 1, that is the boundary of the part inside or outside the fence.
//
// State: the visited marks of the crossings.
#include "clip/emit.h"

#include "clip/links.h"
#include "clip/polygon_index.h"
#include "clip/ring.h"

namespace Corvane::Print::clip {
namespace {

FenceVertex* turn_at(FenceVertex& crossing, bool& on_subject) {
  crossing.marker2 |= kVisited;
  crossing.partner->marker2 |= kVisited;
  on_subject = !on_subject;
  return crossing.partner;
}

// Writes one piece and returns the steps it took.
long long emit_piece(FenceVertex* start, long long most_steps, PieceSink& sink) {
  long long steps = 0;
  bool on_subject = true;
  FenceVertex* v = start;
  sink.begin_piece();
  do {
    // Where the rings are linked the subject's own point and z are written.
    const FenceVertex& place = !on_subject && v->partner != nullptr ? *v->partner : *v;
    if ((v->marker2 & kCrossing) != 0 || v->marker == kOriginal) {
      sink.point(place.x, place.y, place.z);
    } else {
      sink.touch(place.x, place.y, place.z);
    }
    ++steps;
    v = v->next2;
    if ((v->marker2 & kCrossing) != 0) v = turn_at(*v, on_subject);
  } while (v != start && steps < most_steps);
  sink.end_piece();
  return steps;
}

}  // namespace

void emit_ring(const FencePolygon& ring, PieceSink& sink) {
  sink.begin_piece();
  if (const PolygonIndex* index = index_of(ring)) {
    sink.points({index->points.data(), static_cast<std::size_t>(index->count())});
    return sink.end_piece();
  }
  for_each_vertex(ring.first, [&](const FenceVertex& v) { sink.point(v.x, v.y, v.z); });
  sink.end_piece();
}

void emit_pieces(const FencePolygon& subject, long long most_steps, PieceSink& sink) {
  FenceVertex* v = subject.start;
  do {
    const bool enters = (v->marker2 & kEntry) != 0 && (v->marker2 & kVisited) == 0;
    if (enters && most_steps > 0) most_steps -= emit_piece(v, most_steps, sink);
    v = v->next2;
  } while (v != subject.start);
}

}  // namespace Corvane::Print::clip
