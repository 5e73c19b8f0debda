// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Points go onto a stack; where one comes back to a place that is on the stack already, the points since then
// are a loop. No shared state.
#include "clip/simple_loops.h"

#include <algorithm>
#include <cstddef>
#include <numeric>

namespace Corvane::Print::clip {
namespace {

using Indices = platform::CapiVector<std::size_t>;

// For each point the number of its place: equal for points at the same x and y.
Indices number_places(const platform::CapiVector<LinePoint>& ring) {
  Indices order(ring.size()), places(ring.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    return ring[a].x != ring[b].x ? ring[a].x < ring[b].x : ring[a].y < ring[b].y;
  });
  std::size_t place = 0;
  for (std::size_t i = 0; i < order.size(); ++i) {
    const LinePoint &p = ring[order[i]], &before = ring[order[i > 0 ? i - 1 : 0]];
    if (p.x != before.x || p.y != before.y) ++place;
    places[order[i]] = place;
  }
  return places;
}

double shoelace_sum(const LinePoint* points, std::size_t count) {
  double sum = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const LinePoint &a = points[i], &b = points[(i + 1) % count];
    sum += a.x * b.y - a.y * b.x;
  }
  return sum;
}

void append_ring(Polylines& rings, const LinePoint* points, std::size_t count) {
  rings.points.insert(rings.points.end(), points, points + count);
  rings.ends.push_back(rings.points.size());
}

}  // namespace

Polylines simple_loops(const platform::CapiVector<LinePoint>& ring) {
  constexpr std::size_t kNotThere = static_cast<std::size_t>(-1);
  const Indices places = number_places(ring);
  Indices depth_of_place(ring.size() + 1, kNotThere), place_at_depth;
  platform::CapiVector<LinePoint> stack;
  Polylines rings;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const std::size_t depth = depth_of_place[places[i]];
    if (depth != kNotThere) {
      const std::size_t count = stack.size() - depth;
      const double sum = shoelace_sum(stack.data() + depth, count);
      if (sum < 0.0) append_ring(rings, stack.data() + depth, count);
      if (sum <= 0.0) {
        for (std::size_t k = depth; k < stack.size(); ++k) depth_of_place[place_at_depth[k]] = kNotThere;
        stack.resize(depth);
        place_at_depth.resize(depth);
      }
    }
    depth_of_place[places[i]] = stack.size();
    stack.push_back(ring[i]);
    place_at_depth.push_back(places[i]);
  }
  if (shoelace_sum(stack.data(), stack.size()) < 0.0) append_ring(rings, stack.data(), stack.size());
  return rings;
}

}  // namespace Corvane::Print::clip
