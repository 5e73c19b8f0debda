// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a polyline run meets fence polygons, and on which side of each of them it runs in between. Unlike a
// polygon, a run leaves the fence's rings alone: it may pass the same fence vertex any number of times.
#ifndef CORVANE_PRINT_CLIP_RUN_CUTS_H
#define CORVANE_PRINT_CLIP_RUN_CUTS_H

#include "clip/meeting.h"
#include "clip/polyline.h"
#include "clip/records.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::clip {

// A run as vertices with edge data. They form a ring, so that every vertex has a successor; the edge from the
// last to the first is not part of the run.
struct Run {
  FenceVertex* first;
  int count;
  ClipExtent extent;  // x and y
};

// Throws std::bad_alloc.
Run build_run(const LinePoint* points, std::size_t count);

// A place on a run where it meets a fence polygon.
struct Cut {
  FenceVertex* edge;         // the run's edge
  int edge_index;            // its number in the run
  double param;              // the place on it; 0 at its start, where the whole cut is that vertex
  const FenceVertex* fence;  // the fence's vertex here; one made for the cut where it is inside an edge
  int number;                // of the fence polygon
  LinePoint point;
  bool inside_after;  // whether the run lies inside that polygon (or along its edge) behind the cut
};
using Cuts = platform::CapiVector<Cut>;

// The cuts of a run with one fence polygon, in the order of the run, each place once.
// `inside_at_start` receives whether the run starts inside the polygon. Throws std::bad_alloc.
Cuts cut_run_at(const Run& run, FencePolygon& fence, int number, bool& inside_at_start);

}  // namespace Corvane::Print::clip

#endif
