// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where polygon headers and vertices come from. One process-wide pool: a fence being built fills one block of
// its own, every clip fills the overflow buffers from their start and abandons what it took when it ends.
#ifndef CORVANE_PRINT_CLIP_NODE_POOL_H
#define CORVANE_PRINT_CLIP_NODE_POOL_H

#include "clip/records.h"

#include <cstddef>

namespace Corvane::Print::clip {

inline constexpr int kBufferNodes = 512;  // nodes of an overflow buffer
inline constexpr int kTableEntries = 129;

struct Cmemory {
  int capacity;  // nodes
  Cnode* buffer;
};

// Entry 0 describes the block of the newest fence, entries 1 to 128 are overflow buffers, kept for reuse for
// the life of the process. Further buffers follow behind the table, without limit.
extern Cmemory BufferTable[kTableEntries];
extern int CurBuf;         // the entry that nodes are taken from
extern int CurIdx;         // next free node of it
extern Cnode* NodeMemory;  // its base

// Starts a block of `nodes` nodes for a fence. The block is the caller's, who frees it with capi_free.
// Null when memory ran out or the size does not fit.
Cnode* start_fence_block(int nodes);

// Goes back to the first overflow buffer, whose nodes are taken anew. False when memory ran out.
bool restart_overflow();

// The next node: null when memory ran out. A header is zeroed; so is a vertex, with w = 1.
FencePolygon* take_header();
FenceVertex* take_vertex();

}  // namespace Corvane::Print::clip

#endif
