// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A subject that has been linked with all polygons of a fence, for the tests of links and of what follows. As
// with any subject, only one may be alive at a time.
#ifndef CORVANE_PRINT_TESTS_CLIP_LINKING_H
#define CORVANE_PRINT_TESTS_CLIP_LINKING_H

#include "clip/links.h"
#include "tests/clip/engine.h"

namespace Corvane::Print::tests {

class Linking {
public:
  Linking(const Fence& fence, const Ring& subject, int dim = 2)
      : fence(*fence.handle()),
        ring(build(subject_, fence, subject, dim)),
        limit(ring.extent),
        linker(ring, limit) {
    int number = 0;
    for (FencePolygon* f = fence.handle(); f != nullptr; f = f->nextPoly) linker.link_with(*f, number++);
    linker.finish();
    linked = clip::linked_vertices(ring);
  }

  // With the fence's first polygon, where it has only that one.
  int crossings() { return clip::mark_crossings(linked, fence); }
  FenceVertex* at(double x, double y) { return vertex_at(ring, x, y); }

private:
  clip::Subject subject_;

public:
  FencePolygon& fence;
  FencePolygon& ring;
  ClipExtent limit;
  clip::RingLinker linker;
  clip::VertexList linked;
};

}  // namespace Corvane::Print::tests

#endif
