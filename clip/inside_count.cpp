// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// State: the origin in the polygon's probe record.
#include "clip/inside_count.h"

#include "clip/contain.h"
#include "clip/polygon_index.h"

#include <cassert>

namespace Corvane::Print::clip {
namespace {

// Some of the probes, by number. Those that a condition holds for are put in without a branch.
class Chosen {
public:
  void put_if(bool condition, std::size_t number) {
    numbers_[count_] = number;
    count_ += condition ? 1 : 0;
  }
  bool empty() const { return count_ == 0; }
  std::size_t size() const { return count_; }
  std::size_t operator[](std::size_t i) const { return numbers_[i]; }

private:
  std::size_t numbers_[kMostProbes];
  std::size_t count_ = 0;
};

// A coordinate that is no number counts as within: no comparison holds for it.
bool within(const LinePoint& p, const ClipExtent& e) {
  return !((p.x < e.xmin) | (p.x > e.xmax) | (p.y < e.ymin) | (p.y > e.ymax));
}

bool is_number(const LinePoint& p) {
  return (p.x == p.x) & (p.y == p.y);
}

// Exactly, and one by one.
void count_chosen(const Chosen& chosen, const LinePoint* probes, FencePolygon& polygon, int* counts) {
  for (std::size_t k = 0; k < chosen.size(); ++k) {
    FenceVertex probe;
    probe.x = probes[chosen[k]].x;
    probe.y = probes[chosen[k]].y;
    probe.next = &probe;
    counts[chosen[k]] += probe_is_inside(probe, polygon) ? 1 : 0;
  }
}

// What the index leaves unclear.
Chosen count_clear(const Chosen& asked, const LinePoint* probes, const RayIndex& rays, int* counts) {
  RayIndex::Place places[kMostProbes];
  for (std::size_t k = 0; k < asked.size(); ++k)
    places[k] = rays.place_of(probes[asked[k]].x, probes[asked[k]].y);
  Chosen doubts;
  for (std::size_t k = 0; k < asked.size(); ++k) {
    const std::size_t i = asked[k];
    const RayIndex::Verdict verdict = rays.verdict_at(places[k]);
    const bool unclear = verdict.unclear | !is_number(probes[i]);
    counts[i] += (verdict.inside & !unclear) ? 1 : 0;
    doubts.put_if(unclear, i);
  }
  return doubts;
}

}  // namespace

void count_inside(std::span<const LinePoint> probes, FencePolygon& polygon, int* counts) {
  assert(probes.size() <= kMostProbes);
  Chosen asked;
  for (std::size_t i = 0; i < probes.size(); ++i) asked.put_if(within(probes[i], polygon.extent), i);
  if (asked.empty()) return;
  fence_index(polygon);
  const PolygonIndex* index = index_with_rays(polygon);
  if (index == nullptr || index->rays.empty()) return count_chosen(asked, probes.data(), polygon, counts);
  count_chosen(count_clear(asked, probes.data(), index->rays, counts), probes.data(), polygon, counts);
  polygon.probe->x = probes[asked[asked.size() - 1]].x;
  polygon.probe->y = probes[asked[asked.size() - 1]].y;
}

}  // namespace Corvane::Print::clip
