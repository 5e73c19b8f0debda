// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the indexed form keeps beside a polygon's header, in the rest of the header's node: the ring's points
// in a row, boxes over its edges, and where each vertex record is.
//
// A fence polygon gets its index when a polygon or a line is first clipped by it, and keeps it as long as it
// lives. A subject's index stands for its ring, see subject_index.h.
#ifndef CORVANE_PRINT_CLIP_POLYGON_INDEX_H
#define CORVANE_PRINT_CLIP_POLYGON_INDEX_H

#include "clip/edge_index.h"
#include "clip/ray_index.h"
#include "clip/records.h"
#include "clip/ring_points.h"

namespace Corvane::Print::clip {

struct PolygonIndex {
  RingPoints points;  // in the ring's order from its first vertex, which is repeated
  EdgeIndex edges;
  platform::CapiVector<int> links_at;  // during a clip: the link at each vertex; none while there is no such

  // Of a fence polygon.
  platform::CapiVector<FenceVertex*> vertices;  // by number
  RayIndex rays;                                // once its inside test was asked

  // Of a subject, once a question needed them.
  platform::CapiVector<FenceVertex> records;

  int count() const { return static_cast<int>(points.size()) - 1; }
  const LinePoint& point(int number) const { return points[static_cast<std::size_t>(number)]; }
  FenceVertex& vertex(int number) const { return *vertices[static_cast<std::size_t>(number)]; }
  FenceVertex& record(int number) { return records[static_cast<std::size_t>(number)]; }
};

inline int following(const PolygonIndex& index, int number) {
  return number + 1 < index.count() ? number + 1 : 0;
}
inline int preceding(const PolygonIndex& index, int number) {
  return number > 0 ? number - 1 : index.count() - 1;
}

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

// The index of a fence polygon with what its inside test needs, if it has one. Null for other polygons.
const PolygonIndex* index_with_rays(const FencePolygon& polygon) noexcept;

// An empty index. Throws std::bad_alloc.
PolygonIndex* new_index();
void release_index(FencePolygon& polygon) noexcept;

inline void attach_index(FencePolygon& polygon, PolygonIndex* index) {
  reinterpret_cast<HeaderNode&>(polygon).index = index;
}

}  // namespace Corvane::Print::clip

#endif
