// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// State: the working fields of the rings, reset before each use.
#include "clip/emit.h"
#include "clip/keep.h"
#include "clip/links.h"
#include "clip/ring.h"
#include "clip/subject_ring.h"
#include "clip/verdict.h"

namespace Corvane::Print::clip {
namespace {

void keep_inside_polygon(FencePolygon& fence, FencePolygon& subject, long long fence_points,
                         ClipExtent& limit, PieceSink& sink) {
  restart_ring(subject);
  RingLinker linker(subject, limit);
  linker.link_with(fence, 0);
  linker.finish();
  const VertexList linked = linked_vertices(subject);
  if (mark_crossings(linked, subject, fence) > 0) {
    subject.start = walk_start(subject, fence);
    emit_pieces(subject, fence_points + subject.vertexCount + 2LL * linker.links(), sink);
  } else if (subject_lies_inside(subject, linked, fence)) {
    fence.overlap = kSubjectInside;
    emit_ring(subject, sink);
  } else if (fence_lies_inside(fence, linked, subject)) {
    fence.overlap = kFenceInside;
    emit_ring(fence, sink);
  }
}

}  // namespace

void keep_inside(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink) {
  for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly) {
    f->overlap = overlap_xy(f->extent, subject.extent) ? kOverlapping : kApart;
    if (f->overlap != kApart) keep_inside_polygon(*f, subject, fence.totalPoints, limit, sink);
  }
}

}  // namespace Corvane::Print::clip
