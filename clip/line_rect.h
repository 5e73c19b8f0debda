// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The line clipper of rectangular fences that keep their inside. It reads nothing but the fence's extent, so
// it needs no nodes and no memory.
#ifndef CORVANE_PRINT_CLIP_LINE_RECT_H
#define CORVANE_PRINT_CLIP_LINE_RECT_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// Arguments and results are those of CLclipLine, which has checked them: no null pointer, dim 2 or 3, at
// least one point. The capacities may be any numbers; nothing is written beyond them. Returns CL_OK, or
// CL_TOO_SMALL with both counts raised to twice the input points where they were less. Coordinates may be
// anything, also not finite.
int CORVANE_PRINT_CALL clip_line_rect(FencePolygon* fence, int dim, int numPoints, const double* points,
                                      int* numPieces, int* counts, double* out, int* numOut);

// The same in two forms, of which clip_line_rect is one: segment by segment, and with stretches of a line at
// a time. They write the same, also where there is no room.
int clip_line_rect_plain(FencePolygon* fence, int dim, int numPoints, const double* points, int* numPieces,
                         int* counts, double* out, int* numOut);
int clip_line_rect_fast(FencePolygon* fence, int dim, int numPoints, const double* points, int* numPieces,
                        int* counts, double* out, int* numOut);

}  // namespace Corvane::Print::clip

#endif
