// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A subject's ring as points in a row, before it has any records, and what ring.h does to records: the same
// operations in the same order, for the same bits.
#ifndef CORVANE_PRINT_CLIP_RING_POINTS_H
#define CORVANE_PRINT_CLIP_RING_POINTS_H

#include "clip/polyline.h"
#include "clip/records.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::clip {

// The points of a ring, and the first of them once more at the end. Never fewer than two entries.
using RingPoints = platform::CapiVector<LinePoint>;

struct DepthRange {
  double low, high;
};

// `count` >= 1 points of `dim` doubles each. Throws std::bad_alloc.
RingPoints read_ring(const double* points, int count, int dim);
RingPoints points_of_ring(const FenceVertex* first);

double shoelace_sum(const RingPoints& ring);
void reverse_ring(RingPoints& ring);  // the first point stays the first
DepthRange depth_of(const RingPoints& ring);

// Whether every z is a number.
bool has_depth(const RingPoints& ring);

void drop_repeated_points(RingPoints& ring);

// Of x, y and z.
ClipExtent extent_of(const RingPoints& ring);

}  // namespace Corvane::Print::clip

#endif
