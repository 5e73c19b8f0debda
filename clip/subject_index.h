// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The index of an indexed subject, which stands for its ring: a subject of 100,000 points costs a copy of its
// points and boxes over them, and not 15 MB of records.
#ifndef CORVANE_PRINT_CLIP_SUBJECT_INDEX_H
#define CORVANE_PRINT_CLIP_SUBJECT_INDEX_H

#include "clip/polygon_index.h"

namespace Corvane::Print::clip {

// Gives the polygon its index, which it owns from now on, its vertex count and its x/y extent. Throws
// std::bad_alloc.
void index_subject(FencePolygon& subject, IndexedRing ring);

// Gives an indexed subject the ring of records that a plain one has, for the rare questions that walk one.
// Nothing happens where it has it already. Throws std::bad_alloc.
void make_records(FencePolygon& subject);

}  // namespace Corvane::Print::clip

#endif
