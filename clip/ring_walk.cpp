// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The same operations on points as sides does on records, for the same bits.
#include "clip/ring_walk.h"

namespace Corvane::Print::clip {
namespace {

Direction direction_of(const PolygonIndex& index, int edge) {
  const LinePoint &a = index.point(edge), &b = index.point(edge + 1);
  return {b.x - a.x, b.y - a.y};
}

}  // namespace

Direction leaving(const PolygonIndex& index, const RingPlace& place) {
  Direction d = direction_of(index, place.edge);
  if (!place.at_vertex()) return d;
  // Points that differ in z alone leave edges of no length.
  for (int n = following(index, place.edge); !has_length(d) && n != place.edge; n = following(index, n)) {
    d = direction_of(index, n);
  }
  return d;
}

Direction arriving(const PolygonIndex& index, const RingPlace& place) {
  if (!place.at_vertex()) return direction_of(index, place.edge);
  int n = preceding(index, place.edge);
  Direction d = direction_of(index, n);
  while (!has_length(d) && n != place.edge) {
    n = preceding(index, n);
    d = direction_of(index, n);
  }
  return d;
}

}  // namespace Corvane::Print::clip
