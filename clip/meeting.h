// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How one fence edge and one subject edge meet: the classification that lines and polygons share.
#ifndef CORVANE_PRINT_CLIP_MEETING_H
#define CORVANE_PRINT_CLIP_MEETING_H

#include "clip/records.h"

namespace Corvane::Print::clip {

enum class Place { kNowhere, kAtVertex, kInside };

// Where two edges meet. At a vertex the place says so and names it; inside, the parameter says where.
struct Meeting {
  Place on_fence = Place::kNowhere;
  Place on_subject = Place::kNowhere;
  FenceVertex* fence_vertex = nullptr;    // with kAtVertex
  FenceVertex* subject_vertex = nullptr;  // with kAtVertex
  double fence_param = 0.0;               // 0 and 1 at the vertices
  double subject_param = 0.0;

  bool found() const { return on_fence != Place::kNowhere && on_subject != Place::kNowhere; }
};

// Both edges are taken whole, whatever was inserted on them before. Edges that count as parallel do not meet.
Meeting meet(FenceVertex& fence_edge, FenceVertex& subject_edge);

}  // namespace Corvane::Print::clip

#endif
