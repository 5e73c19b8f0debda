// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The indexed search for pairs of edges that may meet. It visits pairs in the order of the plain double loop
// and leaves out only pairs that cannot meet, so what the engine makes of them is the same.
//
// What it buys: two outlines of 100,000 edges have 10,000,000,000 pairs, of which an outline's usual course
// leaves some 100,000 to look at.
//
// Why nothing is lost: a pair is left out for one of two reasons. Boxes that hold the two edges are apart;
// then the edges' own extents are apart, and the plain loop leaves the pair out too. Or both ends of one edge
// lie clear of the other edge's line on the same side; see LineTest.
#ifndef CORVANE_PRINT_CLIP_PAIR_SEARCH_H
#define CORVANE_PRINT_CLIP_PAIR_SEARCH_H

#include "clip/edge_index.h"
#include "clip/line_test_vector.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <type_traits>

namespace Corvane::Print::clip {

template <class Visit>
class PairSearch {
public:
  PairSearch(const EdgeIndex& outer, const EdgeIndex& inner, Visit& visit)
      : outer_(outer), inner_(inner), visit_(visit) {}

  void run() {
    if (outer_.levels() == 0 || inner_.levels() == 0) return;
    blocks_.push_back(0);
    descend(outer_.levels() - 1, 0, inner_.levels() - 1, {0, 1});
  }

private:
  // A stretch of blocks_: blocks of the inner index, all of one level, in ascending order.
  struct Stretch {
    std::size_t begin, end;
  };

  // `candidates` are the inner blocks that overlap the outer block's parent. What of them overlaps the block
  // itself is taken down to the block's own level, so that both sides become finer together.
  void descend(int level, int block, int inner_level, Stretch candidates) {
    const std::size_t before = blocks_.size();
    const Box& box = outer_.box(level, block);
    Stretch near = candidates;
    if (inner_level <= level) {
      near = overlapping(box, inner_level, candidates);
    } else {
      for (; inner_level > level; --inner_level) near = children(box, inner_level, near);
    }
    if (near.begin != near.end) {
      if (level == 0) {
        search_block(block, inner_level, near);
      } else {
        const int first = block * EdgeIndex::kFan;
        const int end = std::min(first + EdgeIndex::kFan, outer_.blocks(level - 1));
        for (int b = first; b < end; ++b) descend(level - 1, b, inner_level, near);
      }
    }
    blocks_.resize(before);
  }

  Stretch overlapping(const Box& box, int level, Stretch from) {
    const std::size_t begin = blocks_.size();
    for (std::size_t i = from.begin; i < from.end; ++i) {
      const int block = blocks_[i];
      if (overlap(box, inner_.box(level, block))) blocks_.push_back(block);
    }
    return {begin, blocks_.size()};
  }

  // Blocks one level further down.
  Stretch children(const Box& box, int level, Stretch from) {
    const std::size_t begin = blocks_.size();
    for (std::size_t i = from.begin; i < from.end; ++i) {
      if (!overlap(box, inner_.box(level, blocks_[i]))) continue;
      const int first = blocks_[i] * EdgeIndex::kFan;
      const int end = std::min(first + EdgeIndex::kFan, inner_.blocks(level - 1));
      for (int b = first; b < end; ++b) {
        if (overlap(box, inner_.box(level - 1, b))) blocks_.push_back(b);
      }
    }
    return {begin, blocks_.size()};
  }

  // Here inner_level is 0: an outer block of level 0 has brought it down.
  void search_block(int block, int inner_level, Stretch near) {
    const int first = block * EdgeIndex::kFan;
    const int end = std::min(first + EdgeIndex::kFan, outer_.edges());
    GrowingBox growing;
    for (std::size_t i = near.begin; i < near.end; ++i) growing.include(inner_.box(inner_level, blocks_[i]));
    const Box around = growing.box();
    for (int e = first; e < end; ++e) {
      const LinePoint &start = outer_.points()[e], &stop = outer_.points()[e + 1];
      const Box box = box_of_edge(start, stop);
      const LineTest line(start, stop, around);
      for (std::size_t i = near.begin; i < near.end; ++i) {
        if (overlap(box, inner_.box(inner_level, blocks_[i]))) search_edges(e, box, line, blocks_[i]);
      }
    }
  }

  void search_edges(int e, const Box& box, const LineTest& line, int inner_block) {
    const int first = inner_block * EdgeIndex::kFan;
    const LinePoint* points = inner_.points() + first;
    const int count = std::min(EdgeIndex::kFan, inner_.edges() - first);
    for (unsigned left = line.may_meet(points, count); left != 0; left &= left - 1) {
      const int i = std::countr_zero(left);
      if (overlap(box, box_of_edge(points[i], points[i + 1]))) visit_(e, first + i);
    }
  }

  const EdgeIndex& outer_;
  const EdgeIndex& inner_;
  Visit& visit_;
  platform::CapiVector<int> blocks_;  // a stack of stretches
};

// Calls visit(e, f) for the numbers of edges that may meet: those of `outer` in order, and for each of them
// those of `inner` in order. Throws std::bad_alloc, and what visit throws.
template <class Visit>
void for_each_near_pair(const EdgeIndex& outer, const EdgeIndex& inner, Visit&& visit) {
  PairSearch<std::remove_reference_t<Visit>>(outer, inner, visit).run();
}

}  // namespace Corvane::Print::clip

#endif
