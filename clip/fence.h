// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Building and releasing fence records; the exported calls stand on these two.
#ifndef CORVANE_PRINT_CLIP_FENCE_H
#define CORVANE_PRINT_CLIP_FENCE_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// True when 4 or 5 points (dim doubles each), rounded to integers, are the corners of an axis-parallel
// rectangle in order, the fifth repeating the first.
bool is_rectangle(int count, const double* points, int dim);

// The corners of a two-corner rectangle as a closed ring of 5 points, dim doubles each. In 2-D up the left
// side first; in 3-D the other way round and at the first corner's z throughout.
void rectangle_from_corners(const double* corners, int dim, double ring[15]);

// A fence of checked arguments, with reference count 1 and the general line clipper; null when memory ran
// out.
FencePolygon* build_fence(int dim, int num_polys, const int* counts, const double* points, int total,
                          double z_low, double z_high, int mode);

// Releases the block of a fence and gives its probe records back.
void release_fence(FencePolygon* fence);

}  // namespace Corvane::Print::clip

#endif
