// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Puts the cuts of a run in order while they are found, edge by edge of the run: each place once.
#ifndef CORVANE_PRINT_CLIP_CUT_LIST_H
#define CORVANE_PRINT_CLIP_CUT_LIST_H

#include "clip/run_cuts.h"

namespace Corvane::Print::clip {

// Cuts may be added in any order as long as the edge that meets the fence never goes back; a cut at an edge's
// end is one at the start of the next edge. Throws std::bad_alloc.
class CutList {
public:
  // The cuts that follow were found on this edge of the run.
  void start_edge(int edge);
  void add(const Cut& cut);

  // All cuts, in order.
  Cuts take();

private:
  void finish_edge();

  Cuts cuts_;
  std::size_t edge_begin_ = 0;  // of the cuts at the edge that is being filled
  Cuts at_end_;                 // of those at its end
  int edge_ = 0;
};

}  // namespace Corvane::Print::clip

#endif
