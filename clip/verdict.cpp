// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where rings are linked the links tell, exactly; elsewhere the ray of the inside test does. A ring whose
// edges all run along the other's is the same ring and counts as inside.
#include "clip/verdict.h"

#include "clip/contain.h"
#include "clip/links.h"
#include "clip/ring.h"

namespace Corvane::Print::clip {
namespace {

bool lies_inside(FencePolygon& ring, std::span<FenceVertex* const> linked, FencePolygon& other,
                 bool other_clockwise) {
  const Side side = side_of_ring(linked, other, other_clockwise);
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

bool sticks_out(const ClipExtent& extent, double x, double y) {
  return x < extent.xmin || x > extent.xmax || y < extent.ymin || y > extent.ymax;
}

FenceVertex* walk_start(const FencePolygon& subject, const FencePolygon& fence) {
  const bool inside_extent = within_xy(subject.extent, fence.extent);
  FenceVertex* v = subject.first;
  do {
    if (inside_extent ? v->partner == nullptr : sticks_out(fence.extent, v->x, v->y)) return v;
    v = v->next;
  } while (v != subject.first);
  return v;
}

}  // namespace Corvane::Print::clip
