// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Cuts the segments of a line to a rectangle, two at a time and without asking which sides they cross.
#ifndef CORVANE_PRINT_CLIP_RECT_CUT_VECTOR_H
#define CORVANE_PRINT_CLIP_RECT_CUT_VECTOR_H

#include "clip/records.h"
#include "clip/rect_pieces.h"

namespace Corvane::Print::clip {

inline constexpr int kMostCutAtOnce = 128;

// Handles segments of a two-dimensional line, from the one between points 0 and 1 on, and returns how many:
// an even number of at most `most`; 0 when a break is near. There must be room for `most` of them, which is
// at most kMostCutAtOnce. The box's sides must be in order.
int cut_segments(const ClipExtent& box, const double* points, int most, RectPieces& pieces);

}  // namespace Corvane::Print::clip

#endif
