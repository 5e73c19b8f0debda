// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The fence on plotclip's side: its polygons, growing them, and the library's handle made of them.
#ifndef CORVANE_PRINT_PLOTCLIP_FENCE_H
#define CORVANE_PRINT_PLOTCLIP_FENCE_H

#include <memory>
#include <optional>
#include <vector>

#include "corvane/print/cl.h"
#include "plotclip/drawing.h"
#include "plotclip/options.h"

namespace Corvane::Print::plotclip {

// Polygons listed without repeating their first points; one polygon of two points alone is an upright
// rectangle.
using FencePolygons = std::vector<PointRun>;

// The fence that the options ask for, before it is grown. Throws a Problem.
FencePolygons fence_polygons(const Options& options);

// Moves every edge outward by `distance`; 0 leaves the fence as it is. Throws a Problem when an edge would
// shrink to nothing: what lies behind such an edge is no fence any more.
FencePolygons grow_fence(const FencePolygons& polygons, double distance);

struct ReleaseFence {
  void operator()(CLFenceHandle fence) const { CLdeleteFence(fence); }
};
using Fence = std::unique_ptr<FencePolygon, ReleaseFence>;

// Hands the fence to the library, all coordinates multiplied by `factor`; three-dimensional when there is a
// depth range.
Fence define_fence(const FencePolygons& polygons, const Options& options, double factor);

}  // namespace Corvane::Print::plotclip

#endif
