// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search for pairs of edges that may meet: the only place that compares every edge with every other. What
// it delivers, and in which order, is all that the engine relies on; a faster search that leaves out only
// pairs which give no crossing, and keeps the order, may take this one's place.
#ifndef CORVANE_PRINT_CLIP_CANDIDATES_H
#define CORVANE_PRINT_CLIP_CANDIDATES_H

#include "clip/ring.h"

namespace Corvane::Print::clip {

// Consecutive edges: of a ring (as many as it has vertices) or of an open run (one less).
struct EdgeRun {
  FenceVertex* first;
  int edges;
};

// Calls visit(e, f) for each fence edge e and each subject edge f whose extents overlap: fence edges in ring
// order, and for each of them the subject's edges in order. An edge is named by the vertex it starts at.
template <class Visit>
void for_each_candidate(const EdgeRun& fence, const EdgeRun& subject, Visit&& visit) {
  FenceVertex* e = fence.first;
  for (int i = 0; i < fence.edges; ++i, e = e->next) {
    FenceVertex* f = subject.first;
    for (int j = 0; j < subject.edges; ++j, f = f->next) {
      if (overlap_xy(e->extent, f->extent)) visit(*e, *f);
    }
  }
}

}  // namespace Corvane::Print::clip

#endif
