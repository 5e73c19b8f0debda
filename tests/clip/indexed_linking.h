// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A subject in the indexed form that has been linked with all polygons of a fence. As with any subject, only
// one may be alive at a time.
#ifndef CORVANE_PRINT_TESTS_CLIP_INDEXED_LINKING_H
#define CORVANE_PRINT_TESTS_CLIP_INDEXED_LINKING_H

#include "clip/indexed_links.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/engine.h"

namespace Corvane::Print::tests {

class IndexedLinking {
public:
  IndexedLinking(const Fence& fence, const Ring& subject, int dim = 2)
      : fence(*fence.handle()), ring(build(subject_, fence, subject, dim)), limit(ring.extent) {
    int number = 0;
    for (FencePolygon* f = fence.handle(); f != nullptr; f = f->nextPoly) {
      if (clip::fence_index(*f) != nullptr) links.link_with(*f, number);
      ++number;
    }
    links.finish();
  }

  // Once the fence's crossings are marked.
  PieceList pieces(long long most_steps = 1000) {
    PieceList sink;
    links.emit_pieces(fence, most_steps, sink);
    return sink;
  }

private:
  const InForm indexed_{clip::Form::kIndexed};
  clip::Subject subject_{clip::Form::kIndexed};

public:
  FencePolygon& fence;
  FencePolygon& ring;
  ClipExtent limit;
  clip::IndexedLinks links{ring, limit};
};

}  // namespace Corvane::Print::tests

#endif
