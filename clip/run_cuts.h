// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a polyline run meets fence polygons, and on which side of each of them it runs in between. Unlike a
// polygon, a run leaves the fence's rings alone: it may pass the same fence vertex any number of times.
#ifndef CORVANE_PRINT_CLIP_RUN_CUTS_H
#define CORVANE_PRINT_CLIP_RUN_CUTS_H

#include "clip/edge_index.h"
#include "clip/polyline.h"
#include "clip/records.h"
#include "platform/capi_memory.h"

#include <span>

namespace Corvane::Print::clip {

// A run in the caller's points. Edge i leads from point i to the next; the last point starts none.
struct Run {
  std::span<const LinePoint> points;
  ClipExtent extent;       // x and y
  const EdgeIndex* edges;  // null: all edges are compared

  int edge_count() const { return static_cast<int>(points.size()) - 1; }
  const LinePoint& operator[](int i) const { return points[static_cast<std::size_t>(i)]; }
};

// A place on a run where it meets a fence polygon. Small, because a hatch may have millions of them.
struct Cut {
  double param;              // the place on the run's edge; 0 at its start, where the whole cut is that point
  const FenceVertex* fence;  // the fence's vertex here, or the start of its edge when it is cut inside
  int edge;                  // the number of the run's edge
  int fence_edge;            // the number of the fence edge that reported the cut
  bool inside_edge;          // whether a fence edge is cut inside
  bool inside_after;         // whether the run lies inside that polygon (or along its edge) behind the cut
};
using Cuts = platform::CapiVector<Cut>;

// Where it is; with the run's interpolated z.
LinePoint point_of(const Cut& cut, const Run& run);

// The cuts of a run with one fence polygon, in the order of the run, each place once.
// `inside_at_start` receives whether the run starts inside the polygon. Throws std::bad_alloc.
Cuts cut_run_at(const Run& run, FencePolygon& fence, bool& inside_at_start);

}  // namespace Corvane::Print::clip

#endif
