// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The clipper's process-wide state in the hands of a test. What the library keeps for the next call would
// hide requests to the heap: these helpers take it away, so that every request is made and can be made to
// fail.
#ifndef CORVANE_PRINT_TESTS_CLIP_CLIP_STATE_H
#define CORVANE_PRINT_TESTS_CLIP_CLIP_STATE_H

#include "clip/clip_memory.h"
#include "clip/form.h"
#include "clip/node_pool.h"
#include "clip/probe.h"
#include "platform/capi_memory.h"

#include <vector>

namespace Corvane::Print::tests {

// No plan to let requests fail outlives the test.
struct FailurePlanEnds {
  FailurePlanEnds() = default;
  ~FailurePlanEnds() { platform::capi_fail_after(-1); }
  FailurePlanEnds(const FailurePlanEnds&) = delete;
  FailurePlanEnds& operator=(const FailurePlanEnds&) = delete;
};

// The engine's form for as long as the guard lives.
class InForm {
public:
  explicit InForm(clip::Form form) : before_(clip::g_form) { clip::g_form = form; }
  ~InForm() { clip::g_form = before_; }
  InForm(const InForm&) = delete;
  InForm& operator=(const InForm&) = delete;

private:
  clip::Form before_;
};

// Holds all free probe records, so that each further one must come from the heap.
class NoFreeProbes {
public:
  NoFreeProbes() {
    platform::capi_fail_after(0);
    while (ProbeRecord* probe = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0})) held_.push_back(probe);
    platform::capi_fail_after(-1);
  }
  ~NoFreeProbes() {
    for (ProbeRecord* probe : held_) clip::give_probe(probe);
  }
  NoFreeProbes(const NoFreeProbes&) = delete;
  NoFreeProbes& operator=(const NoFreeProbes&) = delete;

  long count() const { return static_cast<long>(held_.size()); }

private:
  std::vector<ProbeRecord*> held_;
};

// Gives the buffers of the pool's table back to the heap. Those behind the table stay.
inline void release_overflow_buffers() {
  for (int i = 1; i < clip::kTableEntries; ++i) {
    platform::capi_free(clip::BufferTable[i].buffer);
    clip::BufferTable[i] = clip::Cmemory{0, nullptr};
  }
  clip::BufferTable[0] = clip::Cmemory{0, nullptr};
  clip::CurBuf = clip::CurIdx = 0;
  clip::NodeMemory = nullptr;
}

inline void release_clip_memory() {
  for (CLclpMemType* memory : {&clip::clipMem1, &clip::clipMem2}) {
    platform::capi_free(memory->counts);
    platform::capi_free(memory->points);
    *memory = CLclpMemType{3, 25, 0, nullptr, 150, 0, nullptr};
  }
}

// Blocks of the heap that are in use, apart from free probe records and the shared memories, which are
// released.
inline long blocks_in_use() {
  release_overflow_buffers();
  release_clip_memory();
  return platform::capi_blocks_out() - NoFreeProbes().count();
}

}  // namespace Corvane::Print::tests

#endif
