// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The polygon clipping engine.
#ifndef CORVANE_PRINT_CLIP_POLYGON_CLIP_H
#define CORVANE_PRINT_CLIP_POLYGON_CLIP_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// Arguments and results are those of CLclipPolygon.
int clip_polygon(FencePolygon* fence, int dim, int num_points, const double* points, int* num_pieces,
                 int* counts, double* out, int* num_out);

}  // namespace Corvane::Print::clip

#endif
