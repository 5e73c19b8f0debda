// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The inside test: casts the ray of a polygon's probe record from a vertex and counts the edges that it
// meets.
#ifndef CORVANE_PRINT_CLIP_CONTAIN_H
#define CORVANE_PRINT_CLIP_CONTAIN_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// What one edge answers to the ray.
enum RayAnswer { kMiss = 0, kCross = 1, kOnEdge = 4 };

// Tests the edge that starts at `edge`. `skip_next` is set when the ray crosses through one of the edge's
// vertices: the cast leaves out the next edge then. `at_start` is set when the ray passes through the edge's
// first vertex.
RayAnswer edge_meets_ray(const FenceVertex& edge, const ProbeRecord& ray, const FenceVertex& probe,
                         bool& skip_next, bool& at_start);

// Whether the vertex `probe` of another ring or line lies inside the polygon or on its edge. The polygon's
// probe record takes the vertex for its origin.
bool probe_is_inside(const FenceVertex& probe, FencePolygon& polygon);

// The same for a ring whose extent, and with it a vertex, may stick out of the polygon's: then it is outside.
bool is_inside(const FenceVertex& probe, const ClipExtent& extent, FencePolygon& polygon);

// Stores the verdict on `ring` in its containment status, as the other polygon's mode words it: kKept marks
// the side that this mode keeps.
void store_verdict(FencePolygon& ring, bool inside, int other_mode);

}  // namespace Corvane::Print::clip

#endif
