// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The choice between the two forms of links, for the drivers.
#ifndef CORVANE_PRINT_CLIP_WITH_LINKS_H
#define CORVANE_PRINT_CLIP_WITH_LINKS_H

#include "clip/indexed_links.h"
#include "clip/record_links.h"

namespace Corvane::Print::clip {

// Whether the indexed form can link the two: not in the plain form, nor when memory was short for an index.
inline bool both_indexed(const FencePolygon& subject, FencePolygon& fence) {
  return index_of(subject) != nullptr && fence_index(fence) != nullptr;
}

// Calls visit(links) with links of the subject that nothing has been linked with yet, and returns what it
// returns. They are gone afterwards, and the rings are free of them. Throws std::bad_alloc.
template <class Visit>
auto with_links(bool indexed, FencePolygon& subject, ClipExtent& limit, Visit&& visit) {
  if (indexed) {
    IndexedLinks links(subject, limit);
    return visit(static_cast<PolygonLinks&>(links));
  }
  RecordLinks links(subject, limit);
  return visit(static_cast<PolygonLinks&>(links));
}

}  // namespace Corvane::Print::clip

#endif
