// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Points go onto a stack; where one comes back to a place that is on the stack already, the points since then
// are a loop. No shared state.
#include "clip/simple_loops.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace Corvane::Print::clip {
namespace {

using Indices = platform::CapiVector<std::size_t>;

// Numbers first, in ascending order: sorting needs an order of everything.
bool precedes(double a, double b) {
  return a < b || (std::isnan(b) && !std::isnan(a));
}

// For each point the number of its place, from 1: equal for points at the same x and y, in ascending order.
Indices number_places(const platform::CapiVector<LinePoint>& ring) {
  Indices order(ring.size()), places(ring.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) {
    if (precedes(ring[a].x, ring[b].x)) return true;
    return !precedes(ring[b].x, ring[a].x) && precedes(ring[a].y, ring[b].y);
  });
  std::size_t place = 1;
  for (std::size_t i = 0; i < order.size(); ++i) {
    if (i > 0) {
      const LinePoint &p = ring[order[i]], &before = ring[order[i - 1]];
      if (p.x != before.x || p.y != before.y) ++place;
    }
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

double turn(const LinePoint& p, const LinePoint& a, const LinePoint& b) {
  return (a.x - p.x) * (b.y - p.y) - (a.y - p.y) * (b.x - p.x);
}

// Where to start, so that no hole comes before the outline that it touches: at the least place, which is on
// the outline. When a hole touches the outline there, the hole's way leads off to the right of the outline's.
// A ring without repeated places keeps its start.
std::size_t start_on_outline(const platform::CapiVector<LinePoint>& ring, const Indices& places) {
  const std::size_t n = ring.size();
  const auto most = std::max_element(places.begin(), places.end());
  if (most == places.end() || *most == n) return 0;
  std::size_t start =
      static_cast<std::size_t>(std::min_element(places.begin(), places.end()) - places.begin());
  for (std::size_t i = start + 1; i < n; ++i) {
    if (places[i] != places[start]) continue;
    if (turn(ring[i], ring[(i + 1) % n], ring[(start + 1) % n]) > 0.0) start = i;
  }
  return start;
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
  const std::size_t start = start_on_outline(ring, places);
  for (std::size_t k = 0; k < ring.size(); ++k) {
    const std::size_t i = (start + k) % ring.size();
    const std::size_t depth = depth_of_place[places[i]];
    if (depth != kNotThere) {
      const std::size_t count = stack.size() - depth;
      const double sum = shoelace_sum(stack.data() + depth, count);
      if (sum < 0.0) append_ring(rings, stack.data() + depth, count);
      if (sum <= 0.0) {
        for (std::size_t j = depth; j < stack.size(); ++j) depth_of_place[place_at_depth[j]] = kNotThere;
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
