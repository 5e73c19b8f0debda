// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The clip memory that the intersection of two fences works with. Process-wide, unguarded: written by
// CLclipFences only, which no other call of the family may run beside. Both records keep their arrays for the
// next call, for the life of the process.
#ifndef CORVANE_PRINT_CLIP_CLIP_MEMORY_H
#define CORVANE_PRINT_CLIP_CLIP_MEMORY_H

#include "corvane/print/cl.h"

namespace Corvane::Print::clip {

extern CLclpMemType clipMem1;  // the subject fence's polygons
extern CLclpMemType clipMem2;  // what has been kept of them so far

}  // namespace Corvane::Print::clip

#endif
