// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// One subject polygon against a fence, in either mode. Both throw std::bad_alloc.
#ifndef CORVANE_PRINT_CLIP_KEEP_H
#define CORVANE_PRINT_CLIP_KEEP_H

#include "clip/piece_sink.h"
#include "clip/records.h"

namespace Corvane::Print::clip {

// `limit` grows by what snapping to the fence adds to the subject's extent.

// The subject's part in each polygon of the fence, each for itself.
void keep_inside(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink);

// The subject's part outside all polygons of the fence: its pieces, or the subject whole, and a hole for each
// fence polygon inside it. Nothing when one of them holds it all.
void keep_outside(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink);

}  // namespace Corvane::Print::clip

#endif
