// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Cutting a 3-D ring to a depth range, before it is clipped in x and y.
#ifndef CORVANE_PRINT_CLIP_DEPTH_CUT_H
#define CORVANE_PRINT_CLIP_DEPTH_CUT_H

#include "clip/links.h"

namespace Corvane::Print::clip {

// The parts of the ring with z_low <= z <= z_high, as first vertices of rings that run in the ring's
// direction. The ring's own vertices are used again. Throws std::bad_alloc.
VertexList cut_to_depth(FenceVertex* ring, double z_low, double z_high);

}  // namespace Corvane::Print::clip

#endif
