// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Taking a ring apart where it passes the same place twice.
#ifndef CORVANE_PRINT_CLIP_SIMPLE_LOOPS_H
#define CORVANE_PRINT_CLIP_SIMPLE_LOOPS_H

#include "clip/polyline.h"

namespace Corvane::Print::clip {

// The clockwise loops of a clockwise ring that touches itself at points of it; each becomes a ring of its
// own. Loops without area are dropped. A counter-clockwise loop is a hole that touches the outline: it stays
// part of the ring around it. Throws std::bad_alloc.
Polylines simple_loops(const platform::CapiVector<LinePoint>& ring);

}  // namespace Corvane::Print::clip

#endif
