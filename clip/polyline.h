// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Polyline input: splitting at breaks and cutting to a depth range, on flat points.
#ifndef CORVANE_PRINT_CLIP_POLYLINE_H
#define CORVANE_PRINT_CLIP_POLYLINE_H

#include "platform/capi_memory.h"

#include <cstddef>

namespace Corvane::Print::clip {

struct LinePoint {
  double x, y, z;
};

// Polylines: the points of all runs one after the other, and where each run ends.
struct Polylines {
  platform::CapiVector<LinePoint> points;
  platform::CapiVector<std::size_t> ends;  // index behind the last point of each run; no run is empty
};

// Throws std::bad_alloc, as the next one does.
Polylines split_at_breaks(int dim, int count, const double* points);

// The stretches with z_low <= z <= z_high, a run for each. Comparisons are exact.
Polylines cut_to_depth(const Polylines& lines, double z_low, double z_high);

}  // namespace Corvane::Print::clip

#endif
