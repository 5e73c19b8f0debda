// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Clips a drawing against a fence by the library, as a plot engine does.
#ifndef CORVANE_PRINT_PLOTCLIP_CLIP_H
#define CORVANE_PRINT_PLOTCLIP_CLIP_H

#include <cstddef>

#include "plotclip/drawing.h"
#include "plotclip/fence.h"
#include "plotclip/options.h"

namespace Corvane::Print::plotclip {

struct ClipResult {
  Drawing kept;
  std::size_t failed = 0;  // polygons that the library reported as inconsistent and that are left out
};

// Polygons are kept in their order; lines follow, gathered by pen. Throws a Problem when the library refuses
// the work.
ClipResult clip(const Drawing& drawing, const FencePolygons& fence, const Options& options);

// The power of two by which coordinates are multiplied before clipping, and divided afterwards without
// rounding. The library's tolerances are lengths (0.001, and 0.05 for the product of two short edges), so a
// drawing a few units wide, such as a map in degrees, must become larger than them.
double working_factor(const Drawing& drawing, const FencePolygons& fence);

}  // namespace Corvane::Print::plotclip

#endif
