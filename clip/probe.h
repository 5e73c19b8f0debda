// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The probe records: for each polygon the ray that its inside test casts.
#ifndef CORVANE_PRINT_CLIP_PROBE_H
#define CORVANE_PRINT_CLIP_PROBE_H

#include "clip/records.h"

namespace Corvane::Print::clip {

// A record for a polygon of this extent; null when memory ran out.
// The environment variable VX_CLIP_RAY_SLOPE, a decimal number x/y, turns the ray.
ProbeRecord* take_probe(const ClipExtent& extent);

// Gives a record back. Its memory is kept for the next taker and never returned to the heap.
void give_probe(ProbeRecord* probe);

}  // namespace Corvane::Print::clip

#endif
