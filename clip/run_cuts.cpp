// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state but the node pool, which the vertices come from, and the working fields of the fence's
// rings.
#include "clip/run_cuts.h"

#include "clip/candidates.h"
#include "clip/contain.h"
#include "clip/node_pool.h"
#include "clip/ring.h"
#include "clip/sides.h"

#include <algorithm>
#include <functional>
#include <new>

namespace Corvane::Print::clip {
namespace {

FenceVertex* new_vertex() {
  FenceVertex* v = take_vertex();
  if (v == nullptr) throw std::bad_alloc();
  return v;
}

// A stand-in for the place inside a fence edge where the run meets it; it has the edge's direction.
const FenceVertex* place_on(FenceVertex& edge) {
  FenceVertex* v = new_vertex();
  v->dx = edge.dx;
  v->dy = edge.dy;
  v->marker = kInserted;
  v->prev = &edge;
  v->next = v->next2 = edge.next;
  return v;
}

Cut make_cut(const Meeting& m, FenceVertex& e, FenceVertex& f, int number) {
  Cut cut{};
  cut.number = number;
  cut.fence = m.fence_vertex != nullptr ? m.fence_vertex : place_on(e);
  // The end of an edge is the start of the next one; the run's last vertex starts the edge that is not its
  // own.
  cut.edge = m.subject_vertex != nullptr ? m.subject_vertex : &f;
  cut.edge_index = cut.edge->marker2;
  cut.param = m.subject_vertex != nullptr ? 0.0 : m.subject_param;
  const double u = cut.param;
  if (m.subject_vertex != nullptr) {
    cut.point = {cut.edge->x, cut.edge->y, cut.edge->z};
  } else {
    const bool at_fence_vertex = m.fence_vertex != nullptr;
    cut.point = {at_fence_vertex ? m.fence_vertex->x : f.x + u * f.dx,
                 at_fence_vertex ? m.fence_vertex->y : f.y + u * f.dy, f.z + u * (f.next->z - f.z)};
  }
  return cut;
}

bool in_run_order(const Cut& a, const Cut& b) {
  if (a.edge_index != b.edge_index) return a.edge_index < b.edge_index;
  return a.param < b.param;
}

// Both edges at a vertex report it. One cut is enough for each vertex of the run, and for each place where
// one of its edges passes a vertex of the fence.
void drop_repeated(Cuts& cuts) {
  const auto by_fence_vertex = [](const Cut& a, const Cut& b) {
    if (a.edge_index != b.edge_index) return a.edge_index < b.edge_index;
    return std::less<>{}(a.fence, b.fence);
  };
  const auto same_fence_vertex = [](const Cut& a, const Cut& b) {
    return a.edge_index == b.edge_index && a.fence == b.fence;
  };
  std::stable_sort(cuts.begin(), cuts.end(), by_fence_vertex);
  cuts.erase(std::unique(cuts.begin(), cuts.end(), same_fence_vertex), cuts.end());
  const auto same_run_vertex = [](const Cut& a, const Cut& b) {
    return a.edge_index == b.edge_index && a.param == 0.0 && b.param == 0.0;
  };
  std::stable_sort(cuts.begin(), cuts.end(), in_run_order);
  cuts.erase(std::unique(cuts.begin(), cuts.end(), same_run_vertex), cuts.end());
}

Direction leaving_cut(const Cut& cut) {
  return {cut.edge->dx, cut.edge->dy};
}

Direction arriving_at_cut(const Cut& cut) {
  const FenceVertex* edge = cut.param == 0.0 ? cut.edge->prev : cut.edge;
  return {edge->dx, edge->dy};
}

// Follows the run from one cut to another; null stands for the run's start and end.
Witness witness_between(const Run& run, const Cut* from, const Cut* to, const FencePolygon& fence) {
  Witness witness(fence.first);
  const FenceVertex* v = from != nullptr ? from->edge : run.first;
  double x = from != nullptr ? from->point.x : v->x;
  double y = from != nullptr ? from->point.y : v->y;
  const FenceVertex* last = to != nullptr ? to->edge : run.first->prev;
  while (v != last) {
    v = v->next;
    witness.add_stretch(x, y, v->x, v->y);
    x = v->x;
    y = v->y;
  }
  if (to != nullptr) witness.add_stretch(x, y, to->point.x, to->point.y);
  return witness;
}

bool inside_between(const Run& run, const Cut* from, const Cut* to, const FencePolygon& fence) {
  const bool clockwise = fence.mode != CL_KEEP_OUTSIDE;
  const Side at_start =
      from != nullptr ? side_of(leaving_cut(*from), *from->fence, clockwise) : Side::kUnknown;
  const Side at_end =
      to != nullptr ? side_of(arriving_at_cut(*to).reversed(), *to->fence, clockwise) : Side::kUnknown;
  const Side side = agreed_side(at_start, at_end);
  if (side == Side::kInside || side == Side::kOutside) return side == Side::kInside;
  return witness_between(run, from, to, fence).side() != Side::kOutside;
}

// For a run without cuts. The ring is reset first: a polygon clip leaves it leading through vertices whose
// nodes the run has taken over meanwhile.
bool lies_inside(const Run& run, FencePolygon& fence) {
  if (!within_xy(run.extent, fence.extent)) return false;
  reset_ring(fence);
  return probe_is_inside(*run.first, fence);
}

}  // namespace

Run build_run(const LinePoint* points, std::size_t count) {
  Run run{nullptr, static_cast<int>(count), empty_extent()};
  FenceVertex* last = nullptr;
  for (std::size_t i = 0; i < count; ++i) {
    FenceVertex* v = new_vertex();
    v->x = points[i].x;
    v->y = points[i].y;
    v->z = points[i].z;
    v->marker2 = static_cast<int>(i);
    include_point(run.extent, v->x, v->y);
    if (last == nullptr) {
      run.first = v;
    } else {
      last->next = last->next2 = v;
      v->prev = last;
    }
    last = v;
  }
  last->next = last->next2 = run.first;
  run.first->prev = last;
  for_each_vertex(run.first, [](FenceVertex& v) {
    set_edge(v);
    v.tolerance = edge_tolerance(v.dx, v.dy);
  });
  return run;
}

Cuts cut_run_at(const Run& run, FencePolygon& fence, int number, bool& inside_at_start) {
  Cuts cuts;
  for_each_candidate({fence.first, fence.vertexCount}, {run.first, run.count - 1},
                     [&](FenceVertex& e, FenceVertex& f) {
                       const Meeting m = meet(e, f);
                       if (m.found()) cuts.push_back(make_cut(m, e, f, number));
                     });
  if (cuts.empty()) {
    inside_at_start = lies_inside(run, fence);
    return cuts;
  }
  drop_repeated(cuts);
  const bool starts_at_cut = cuts.front().edge_index == 0 && cuts.front().param == 0.0;
  bool inside = starts_at_cut ? false : inside_between(run, nullptr, &cuts.front(), fence);
  inside_at_start = inside;
  for (std::size_t i = 0; i < cuts.size(); ++i) {
    const bool ends_at_cut = cuts[i].edge_index == run.count - 1;
    const Cut* following = i + 1 < cuts.size() ? &cuts[i + 1] : nullptr;
    if (!ends_at_cut) inside = inside_between(run, &cuts[i], following, fence);
    if (i == 0 && starts_at_cut) inside_at_start = inside;
    cuts[i].inside_after = inside;
  }
  return cuts;
}

}  // namespace Corvane::Print::clip
