// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the table, its continuation and the position in it, written by every fence definition and
// every clip. Nobody but the functions here moves the indices.
#include "clip/node_pool.h"

#include "platform/capi_memory.h"

namespace Corvane::Print::clip {

Cmemory BufferTable[kTableEntries];
int CurBuf;
int CurIdx;
Cnode* NodeMemory;

namespace {

using platform::capi_alloc_array;
using platform::capi_free;
using platform::capi_realloc;

// The table's continuation: buffers 129 and up. Grown by doubling, kept like the table itself.
Cmemory* g_more;
int g_more_room;

bool grow_continuation(int room_needed) {
  const int room = room_needed < 128 ? 128 : room_needed * 2;
  auto* grown = static_cast<Cmemory*>(capi_realloc(g_more, static_cast<std::size_t>(room) * sizeof(Cmemory)));
  if (grown == nullptr) return false;
  for (int i = g_more_room; i < room; ++i) grown[i] = Cmemory{0, nullptr};
  g_more = grown;
  g_more_room = room;
  return true;
}

// Null when the continuation could not grow.
Cmemory* entry(int index) {
  if (index < kTableEntries) return &BufferTable[index];
  const int beyond = index - kTableEntries;
  if (beyond >= g_more_room && !grow_continuation(beyond + 1)) return nullptr;
  return &g_more[beyond];
}

bool switch_to_next_buffer() {
  Cmemory* next = entry(CurBuf + 1);
  if (next == nullptr) return false;
  if (next->buffer == nullptr) {
    next->buffer = static_cast<Cnode*>(capi_alloc_array(kBufferNodes, sizeof(Cnode)));
    if (next->buffer == nullptr) return false;
    next->capacity = kBufferNodes;
  }
  ++CurBuf;
  CurIdx = 0;
  NodeMemory = next->buffer;
  return true;
}

int current_capacity() {
  return entry(CurBuf)->capacity;
}

}  // namespace

Cnode* start_fence_block(int nodes) {
  auto* block = static_cast<Cnode*>(capi_alloc_array(static_cast<std::size_t>(nodes), sizeof(Cnode)));
  if (block == nullptr) return nullptr;
  CurIdx = 0;
  CurBuf = 0;
  BufferTable[0] = Cmemory{nodes, block};
  NodeMemory = block;
  return block;
}

bool restart_overflow() {
  CurBuf = 0;
  CurIdx = 0;
  BufferTable[0] = Cmemory{0, nullptr};
  return switch_to_next_buffer();
}

// KEEP(header-switch-early): a header leaves the last slot of a buffer unused.
// Looks wrong; debuggers of plot hosts find a header's first vertex in the slot behind it.
// Pinned by NodePool.AHeaderNeverTakesTheLastSlot.
FencePolygon* take_header() {
  if (CurIdx + 1 >= current_capacity() && !switch_to_next_buffer()) return nullptr;
  HeaderNode* header = &NodeMemory[CurIdx++].header;
  *header = HeaderNode{};
  return &header->polygon;
}

FenceVertex* take_vertex() {
  if (CurIdx >= current_capacity() && !switch_to_next_buffer()) return nullptr;
  FenceVertex* vertex = &NodeMemory[CurIdx++].vertex;
  *vertex = FenceVertex{};
  vertex->w = 1.0;
  return vertex;
}

}  // namespace Corvane::Print::clip
