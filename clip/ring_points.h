// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A subject's ring as points in a row, and what ring.h does to records: the same operations in the same
// order, for the same bits. Input is asked before it is copied, and copied once.
#ifndef CORVANE_PRINT_CLIP_RING_POINTS_H
#define CORVANE_PRINT_CLIP_RING_POINTS_H

#include "clip/edge_index.h"
#include "clip/polyline.h"
#include "clip/records.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::clip {

// The points of a ring, and the first of them once more at the end. Never fewer than two entries.
using RingPoints = platform::CapiRawVector<LinePoint>;

// With boxes over the edges between them.
struct IndexedRing {
  RingPoints points;
  EdgeIndex edges;
};

struct DepthRange {
  double low, high;
};

// Of `count` >= 1 points of `dim` doubles each.
double shoelace_sum(const double* points, int count, int dim);

// Of `count` >= 1 points of 3 doubles each.
DepthRange depth_of(const double* points, int count);
bool has_depth(const double* points, int count);  // whether every z is a number

// Without repeated points. Backwards, too, the first point is the first. Throws std::bad_alloc.
IndexedRing read_ring(const double* points, int count, int dim);
IndexedRing read_ring_backwards(const double* points, int count, int dim);
IndexedRing points_of_ring(const FenceVertex* first);

}  // namespace Corvane::Print::clip

#endif
