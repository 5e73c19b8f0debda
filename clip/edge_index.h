// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Boxes over the edges of a ring or a run, in their own order: one over every 8 consecutive edges, one over
// every 8 of those, and so on up to a single one. Neighbours in the drawing are mostly neighbours in the
// ring, so these boxes are tight without any sorting, and a walk from left to right meets the edges in order.
#ifndef CORVANE_PRINT_CLIP_EDGE_INDEX_H
#define CORVANE_PRINT_CLIP_EDGE_INDEX_H

#include "clip/box_vector.h"
#include "clip/polyline.h"
#include "platform/capi_memory.h"

#include <cstddef>

namespace Corvane::Print::clip {

class EdgeIndex {
public:
  static constexpr int kFan = 8;  // edges of a block, and blocks of a larger block

  // Of the edges between each of `edges` + 1 points and the next, which the caller keeps. A coordinate that
  // is no number is in no box. Room is kept for the next build. Throws std::bad_alloc.
  void build(const LinePoint* points, int edges);

  // The same while the points are written: begin() with room for so many edges, extend() whenever so many of
  // them are final, finish() with their number. What it buys: a subject of 100,000 points, which no fast
  // cache holds, is clipped in 0.45 ms instead of 0.47.
  void begin(const LinePoint* points, int most_edges);
  void extend(int edges);
  void finish(int edges);

  const LinePoint* points() const { return points_; }
  int edges() const { return edges_; }

  // Level 0 has the boxes over edges, the last level a single one. No levels without edges.
  int levels() const { return levels_; }
  int blocks(int level) const { return static_cast<int>(starts_[level + 1] - starts_[level]); }
  const Box& box(int level, int block) const {
    return boxes_[starts_[level] + static_cast<std::size_t>(block)];
  }

private:
  void set_levels(int edges);

  static constexpr int kMostLevels = 11;  // 8 to the 11th is more than an int counts

  const LinePoint* points_ = nullptr;
  int ready_ = 0;  // edges of finished boxes of level 0
  int edges_ = 0;
  int levels_ = 0;
  std::size_t starts_[kMostLevels + 1] = {};  // where each level's boxes start, and where the last one's end
  platform::CapiRawVector<Box> boxes_;
};

}  // namespace Corvane::Print::clip

#endif
