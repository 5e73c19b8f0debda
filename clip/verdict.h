// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Which of two rings lies inside the other when they do not cross, and where the walk around a subject starts
// when they do.
#ifndef CORVANE_PRINT_CLIP_VERDICT_H
#define CORVANE_PRINT_CLIP_VERDICT_H

#include "clip/records.h"

#include <span>

namespace Corvane::Print::clip {

// Whether the subject lies inside the fence polygon, or the other way round. `linked` are the subject's
// vertices that are linked with it. The verdict is also stored on the ring it is about. Both throw
// std::bad_alloc.
bool subject_lies_inside(FencePolygon& subject, std::span<FenceVertex* const> linked, FencePolygon& fence);
bool fence_lies_inside(FencePolygon& fence, std::span<FenceVertex* const> linked, FencePolygon& subject);

// A vertex of the subject outside the fence polygon's extent where there is one, else one that is not linked,
// so that the walk starts away from the fence's edge; else the first.
FenceVertex* walk_start(const FencePolygon& subject, const FencePolygon& fence);

bool sticks_out(const ClipExtent& extent, double x, double y);

}  // namespace Corvane::Print::clip

#endif
