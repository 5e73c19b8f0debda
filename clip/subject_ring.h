// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The ring of an indexed subject. Only vertices that a fence comes near have records; what lies between them
// is a stretch of the index's points, for which one record stands (marker kStretch). A stretch has no edge
// data and no links, and nothing is inserted on the edges to, within and from it.
//
//   v3 --> v4 --> stretch of 5 to 98 --> v99 --> v100 ...
//
// What it buys: a subject of 100,000 points that crosses the fence four times costs a copy of its points and
// not 15 MB of records. Why it changes no result: a record is made of the points as the plain form makes it,
// and a stretch is written out as its points.
#ifndef CORVANE_PRINT_CLIP_SUBJECT_RING_H
#define CORVANE_PRINT_CLIP_SUBJECT_RING_H

#include "clip/polygon_index.h"
#include "clip/ring_points.h"

#include <span>

namespace Corvane::Print::clip {

// Gives the polygon its index, which it owns from now on, its vertex count and its first vertex. Throws
// std::bad_alloc, as all that make records do.
void start_subject_ring(FencePolygon& subject, RingPoints points);

// Makes a subject's ring, indexed or not, free of links. An indexed one forgets all records but the first.
void restart_ring(FencePolygon& subject);

// The vertex with this number, with its edge data, its edge and its successor.
FenceVertex& vertex_with_edge(PolygonIndex& index, int number);

// Closes the ring: neighbours of the vertices that have records get theirs, as far as directions are asked
// for there, and stretches stand for the rest. Once, when all that a fence comes near has a record.
void close_subject_ring(FencePolygon& subject);

// Replaces the stretches by vertices, for the rare questions that need all of them. Nothing happens to a ring
// that has none.
void complete_ring(FencePolygon& polygon);

// The points that a stretch stands for: those up to the end of the index and those from its start.
struct StretchPoints {
  std::span<const LinePoint> first, then;
};
StretchPoints points_of_stretch(const FenceVertex& stretch, const PolygonIndex& index);

}  // namespace Corvane::Print::clip

#endif
