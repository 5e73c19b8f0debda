// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The cuts of one edge are few, however many the run has: sorting them edge by edge costs little, and the
// list itself never has to be sorted.
#include "clip/cut_list.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace Corvane::Print::clip {
namespace {

using Iterator = Cuts::iterator;

// In which order the fence's edges report cuts. What one of them reports twice, of the end of a run's edge
// and of the start of the next, is the same.
bool reported_before(const Cut& a, const Cut& b) {
  return a.fence_edge < b.fence_edge;
}

// By the fence's vertex, the cuts inside fence edges behind.
bool by_fence_vertex(const Cut& a, const Cut& b) {
  if (a.inside_edge != b.inside_edge) return b.inside_edge;
  if (!a.inside_edge && a.fence != b.fence) return std::less<>{}(a.fence, b.fence);
  return reported_before(a, b);
}

bool along_edge(const Cut& a, const Cut& b) {
  return a.param != b.param ? a.param < b.param : by_fence_vertex(a, b);
}

// Both fence edges at a vertex report it; the first report stays.
Iterator drop_repeated_vertices(Iterator begin, Iterator end) {
  std::sort(begin, end, by_fence_vertex);
  return std::unique(begin, end, [](const Cut& a, const Cut& b) {
    return !a.inside_edge && !b.inside_edge && a.fence == b.fence;
  });
}

}  // namespace

void CutList::start_edge(int edge) {
  while (edge_ < edge && (edge_begin_ != cuts_.size() || !at_end_.empty())) finish_edge();
  edge_ = std::max(edge_, edge);
}

void CutList::add(const Cut& cut) {
  (cut.edge == edge_ ? cuts_ : at_end_).push_back(cut);
}

void CutList::finish_edge() {
  const auto begin = cuts_.begin() + static_cast<std::ptrdiff_t>(edge_begin_);
  auto end = cuts_.end();
  if (end - begin > 1) {
    const auto at_vertex = [](const Cut& cut) { return !cut.inside_edge; };
    if (std::count_if(begin, end, at_vertex) > 1) end = drop_repeated_vertices(begin, end);
    std::sort(begin, end, along_edge);
    // One cut is enough for each point of the run.
    end =
        std::unique(begin, end, [](const Cut& a, const Cut& b) { return a.param == 0.0 && b.param == 0.0; });
    cuts_.erase(end, cuts_.end());
  }
  edge_begin_ = cuts_.size();
  cuts_.insert(cuts_.end(), at_end_.begin(), at_end_.end());
  at_end_.clear();
  ++edge_;
}

Cuts CutList::take() {
  while (edge_begin_ != cuts_.size() || !at_end_.empty()) finish_edge();
  edge_begin_ = 0;
  return std::exchange(cuts_, Cuts());
}

}  // namespace Corvane::Print::clip
