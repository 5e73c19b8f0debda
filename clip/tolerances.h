// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Every tolerance of the clipper, once: its value, its unit and what it decides. Results depend on each of
// them to the last bit.
#ifndef CORVANE_PRINT_CLIP_TOLERANCES_H
#define CORVANE_PRINT_CLIP_TOLERANCES_H

#include <limits>

namespace Corvane::Print::clip {

// Length. Neighbouring points of a ring closer than this in x and in y are one point; also the band around a
// clip rectangle that counts as inside.
inline constexpr double kSamePlace = 0.001;

// Length. How far from an edge's end, along the edge, a crossing snaps to the end's vertex. Edges shorter
// than 1 use the number itself as a share of the edge.
inline constexpr double kSnap = 1e-5;

// Length squared: the cross product of two edges. KEEP(parallel-threshold): an absolute bound, so edges below
// about 0.2 never cross one another. Looks wrong; plots depend on which strokes survive.
// Pinned by PolygonClip.NearlyParallelEdgesNeverIntersect.
inline constexpr double kParallel = 0.05;

// The ray of the inside test: direction, and reach as a multiple of the ring's extent.
inline constexpr double kRayX = 0.811031147527;
inline constexpr double kRayY = 0.585002972425;
inline constexpr double kRayReach = 2.0;
inline constexpr double kRayToleranceDivisor = 1000.0;

inline constexpr double kLargest = std::numeric_limits<double>::max();

}  // namespace Corvane::Print::clip

#endif
