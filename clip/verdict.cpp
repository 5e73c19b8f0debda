// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where rings are linked the links tell, exactly; elsewhere the ray of the inside test does. A ring whose
// edges all run along the other's is the same ring and counts as inside.
#include "clip/verdict.h"

#include "clip/contain.h"
#include "clip/links.h"
#include "clip/ring.h"
#include "clip/subject_ring.h"

#include <algorithm>

namespace Corvane::Print::clip {
namespace {

template <class Point>
bool sticks_out(const ClipExtent& extent, const Point& p) {
  return p.x < extent.xmin || p.x > extent.xmax || p.y < extent.ymin || p.y > extent.ymax;
}

// Whether a vertex, or a point of a stretch, sticks out.
bool reaches_out(const ClipExtent& extent, const FenceVertex& v, const PolygonIndex* index) {
  if (v.marker != kStretch) return sticks_out(extent, v);
  const StretchPoints points = points_of_stretch(v, *index);
  const auto out = [&](const LinePoint& p) { return sticks_out(extent, p); };
  return std::any_of(points.first.begin(), points.first.end(), out) ||
         std::any_of(points.then.begin(), points.then.end(), out);
}

bool lies_inside(FencePolygon& ring, std::span<FenceVertex* const> linked, FencePolygon& other,
                 bool other_clockwise) {
  const Side side = side_of_ring(linked, ring, other, other_clockwise);
  if (side != Side::kUnknown) return side != Side::kOutside;
  return is_inside(*ring.first, ring.extent, other);
}

}  // namespace

bool subject_lies_inside(FencePolygon& subject, std::span<FenceVertex* const> linked, FencePolygon& fence) {
  const bool inside = lies_inside(subject, linked, fence, fence.mode != CL_KEEP_OUTSIDE);
  store_verdict(subject, inside, fence.mode);
  return inside;
}

bool fence_lies_inside(FencePolygon& fence, std::span<FenceVertex* const> linked, FencePolygon& subject) {
  subject.mode = CL_KEEP_INSIDE;
  // Without links the fence's ring need not be walked.
  const VertexList on_fence = linked.empty() ? VertexList() : linked_vertices(fence);
  const bool inside = lies_inside(fence, on_fence, subject, true);
  store_verdict(fence, inside, subject.mode);
  return inside;
}

FenceVertex* walk_start(const FencePolygon& subject, const FencePolygon& fence) {
  const bool inside_extent = within_xy(subject.extent, fence.extent);
  const PolygonIndex* index = index_of(subject);
  FenceVertex* v = subject.first;
  do {
    if (inside_extent ? v->partner == nullptr : reaches_out(fence.extent, *v, index)) return v;
    v = v->next;
  } while (v != subject.first);
  return v;
}

}  // namespace Corvane::Print::clip
