// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The line clipper of every fence that is not a rectangle keeping its inside.
#ifndef CORVANE_PRINT_CLIP_LINE_GENERAL_H
#define CORVANE_PRINT_CLIP_LINE_GENERAL_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// Arguments and results are those of CLclipLine, which has checked them.
int CORVANE_PRINT_CALL clip_line_general(FencePolygon* fence, int dim, int num_points, const double* points,
                                         int* num_pieces, int* counts, double* out, int* num_out);

}  // namespace Corvane::Print::clip

#endif
