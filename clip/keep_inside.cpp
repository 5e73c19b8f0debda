// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// State: the working fields of the rings, reset before each use.
#include "clip/emit.h"
#include "clip/keep.h"
#include "clip/ring.h"
#include "clip/with_links.h"

namespace Corvane::Print::clip {
namespace {

void keep_inside_polygon(FencePolygon& fence, FencePolygon& subject, long long fence_points,
                         PolygonLinks& links, PieceSink& sink) {
  links.link_with(fence, 0);
  links.finish();
  if (links.mark_crossings(fence, 0) > 0) {
    links.emit_pieces(fence, fence_points + subject.vertexCount + 2LL * links.count(), sink);
  } else if (links.subject_lies_inside(fence, 0)) {
    fence.overlap = kSubjectInside;
    emit_ring(subject, sink);
  } else if (links.fence_lies_inside(fence, 0)) {
    fence.overlap = kFenceInside;
    emit_ring(fence, sink);
  }
}

}  // namespace

void keep_inside(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink) {
  for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly) {
    f->overlap = overlap_xy(f->extent, subject.extent) ? kOverlapping : kApart;
    if (f->overlap == kApart) continue;
    with_links(both_indexed(subject, *f), subject, limit, [&](PolygonLinks& links) {
      keep_inside_polygon(*f, subject, fence.totalPoints, links, sink);
    });
  }
}

}  // namespace Corvane::Print::clip
