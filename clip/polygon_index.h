// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the indexed form keeps beside a polygon's header, in the rest of the header's node: the ring's points
// in a row, boxes over its edges, and where each vertex record is.
//
// A fence polygon gets its index when a polygon or a line is first clipped by it, and keeps it as long as it
// lives. A subject's index comes before its vertices: it starts with the points alone, see subject_ring.h.
#ifndef CORVANE_PRINT_CLIP_POLYGON_INDEX_H
#define CORVANE_PRINT_CLIP_POLYGON_INDEX_H

#include "clip/edge_index.h"
#include "clip/ray_index.h"
#include "clip/records.h"

namespace Corvane::Print::clip {

struct PolygonIndex {
  platform::CapiVector<LinePoint> points;  // in the ring's order from its first vertex, which is repeated
  platform::CapiVector<FenceVertex*> vertices;  // by number; null where a subject has no record yet
  EdgeIndex edges;
  RayIndex rays;  // of a fence polygon, once its inside test was asked

  // Of a subject: the numbers of the vertices that have records.
  platform::CapiVector<int> made;

  int count() const { return static_cast<int>(vertices.size()); }
  FenceVertex& vertex(int number) const { return *vertices[static_cast<std::size_t>(number)]; }
};

// An original vertex of an indexed ring carries its number.
inline int number_of(const FenceVertex& original) {
  return static_cast<int>(original.param);
}

// Null when the polygon has none.
inline PolygonIndex* index_of(const FencePolygon& polygon) {
  static_assert(offsetof(HeaderNode, polygon) == 0);
  return reinterpret_cast<const HeaderNode&>(polygon).index;
}

// The index of a fence polygon, made if need be. Null in the plain form and when memory ran out: the engine
// then compares all edges.
PolygonIndex* fence_index(FencePolygon& polygon) noexcept;

// An index with room for a subject of `count` points. Throws std::bad_alloc.
PolygonIndex* new_index();
void release_index(FencePolygon& polygon) noexcept;

inline void attach_index(FencePolygon& polygon, PolygonIndex* index) {
  reinterpret_cast<HeaderNode&>(polygon).index = index;
}

}  // namespace Corvane::Print::clip

#endif
