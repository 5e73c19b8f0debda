// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// State: the origin in the fence polygon's probe record.
#include "clip/run_cuts.h"

#include "clip/contain.h"
#include "clip/cut_list.h"
#include "clip/meeting.h"
#include "clip/pair_search.h"
#include "clip/polygon_index.h"
#include "clip/ring.h"
#include "clip/sides.h"

namespace Corvane::Print::clip {
namespace {

Direction direction_of(const Run& run, int edge) {
  const LinePoint &a = run[edge], &b = run[edge + 1];
  return {b.x - a.x, b.y - a.y};
}

// An edge of the run as the classification wants it; the end is a vertex of its own.
struct RunEdge {
  RunEdge(const LinePoint& a, const LinePoint& b) {
    start.x = a.x;
    start.y = a.y;
    start.dx = b.x - a.x;
    start.dy = b.y - a.y;
    start.tolerance = edge_tolerance(start.dx, start.dy);
    start.next = &end;
  }
  RunEdge(const RunEdge&) = delete;
  RunEdge& operator=(const RunEdge&) = delete;

  FenceVertex start, end;
};

// Adds the cut of the run's edge f by the fence's edge e, if they meet.
void cut_edge(const Run& run, int f, FenceVertex& e, int fence_edge, CutList& cuts) {
  RunEdge edge(run[f], run[f + 1]);
  const Meeting m = meet(e, edge.start);
  if (!m.found()) return;
  const bool at_vertex = m.subject_vertex != nullptr;
  const int place = m.subject_vertex == &edge.end ? f + 1 : f;
  const bool inside_edge = m.fence_vertex == nullptr;
  cuts.add({at_vertex ? 0.0 : m.subject_param, inside_edge ? &e : m.fence_vertex, place, fence_edge,
            inside_edge, false});
}

Cuts find_cuts(const Run& run, FencePolygon& fence) {
  CutList cuts;
  const PolygonIndex* index = run.edges != nullptr ? fence_index(fence) : nullptr;
  if (index != nullptr) {
    for_each_near_pair(*run.edges, index->edges, [&](int f, int e) {
      cuts.start_edge(f);
      cut_edge(run, f, index->vertex(e), e, cuts);
    });
    return cuts.take();
  }
  for (int f = 0; f < run.edge_count(); ++f) {
    cuts.start_edge(f);
    const Box box = box_of_edge(run[f], run[f + 1]);
    int e = 0;
    for_each_vertex(fence.first, [&](FenceVertex& edge) {
      const Box other = {edge.extent.xmin, edge.extent.ymin, edge.extent.xmax, edge.extent.ymax};
      if (overlap(box, other)) cut_edge(run, f, edge, e, cuts);
      ++e;
    });
  }
  return cuts.take();
}

Direction leaving_cut(const Run& run, const Cut& cut) {
  return direction_of(run, cut.edge);
}

Direction arriving_at_cut(const Run& run, const Cut& cut) {
  return direction_of(run, cut.param == 0.0 ? cut.edge - 1 : cut.edge);
}

// The side of the fence to which the run points at a cut.
Side side_at_cut(Direction d, const Cut& cut, bool clockwise) {
  if (!cut.inside_edge) return side_of(d, *cut.fence, clockwise);
  const Direction edge = {cut.fence->dx, cut.fence->dy};
  return side_of(d, edge, edge.reversed(), clockwise);
}

// Follows the run from one cut to another; null stands for the run's start and end.
Witness witness_between(const Run& run, const Cut* from, const Cut* to, const FencePolygon& fence) {
  Witness witness(fence.first);
  int i = from != nullptr ? from->edge : 0;
  const LinePoint start = from != nullptr ? point_of(*from, run) : run[0];
  double x = start.x, y = start.y;
  const int last = to != nullptr ? to->edge : run.edge_count();
  while (i != last) {
    ++i;
    witness.add_stretch(x, y, run[i].x, run[i].y);
    x = run[i].x;
    y = run[i].y;
  }
  if (to != nullptr) {
    const LinePoint end = point_of(*to, run);
    witness.add_stretch(x, y, end.x, end.y);
  }
  return witness;
}

bool inside_between(const Run& run, const Cut* from, const Cut* to, const FencePolygon& fence) {
  const bool clockwise = fence.mode != CL_KEEP_OUTSIDE;
  const Side at_start =
      from != nullptr ? side_at_cut(leaving_cut(run, *from), *from, clockwise) : Side::kUnknown;
  const Side at_end =
      to != nullptr ? side_at_cut(arriving_at_cut(run, *to).reversed(), *to, clockwise) : Side::kUnknown;
  const Side side = agreed_side(at_start, at_end);
  if (side == Side::kInside || side == Side::kOutside) return side == Side::kInside;
  return witness_between(run, from, to, fence).side() != Side::kOutside;
}

// For a run without cuts.
bool lies_inside(const Run& run, FencePolygon& fence) {
  if (!within_xy(run.extent, fence.extent)) return false;
  fence_index(fence);  // for the inside test
  const LinePoint &first = run.points.front(), &second = run.points[run.points.size() > 1 ? 1 : 0];
  FenceVertex probe, next;
  probe.x = first.x;
  probe.y = first.y;
  probe.next = &next;
  next.x = second.x;
  return probe_is_inside(probe, fence);
}

}  // namespace

LinePoint point_of(const Cut& cut, const Run& run) {
  const LinePoint& a = run[cut.edge];
  if (cut.param == 0.0) return a;
  const LinePoint& b = run[cut.edge + 1];
  const double u = cut.param, z = a.z + u * (b.z - a.z);
  if (!cut.inside_edge) return {cut.fence->x, cut.fence->y, z};
  return {a.x + u * (b.x - a.x), a.y + u * (b.y - a.y), z};
}

Cuts cut_run_at(const Run& run, FencePolygon& fence, bool& inside_at_start) {
  Cuts cuts;
  if (run.edge_count() > 0) cuts = find_cuts(run, fence);
  if (cuts.empty()) {
    inside_at_start = lies_inside(run, fence);
    return cuts;
  }
  const bool starts_at_cut = cuts.front().edge == 0 && cuts.front().param == 0.0;
  bool inside = starts_at_cut ? false : inside_between(run, nullptr, &cuts.front(), fence);
  inside_at_start = inside;
  for (std::size_t i = 0; i < cuts.size(); ++i) {
    const bool ends_at_cut = cuts[i].edge == run.edge_count();
    const Cut* following = i + 1 < cuts.size() ? &cuts[i + 1] : nullptr;
    if (!ends_at_cut) inside = inside_between(run, &cuts[i], following, fence);
    if (i == 0 && starts_at_cut) inside_at_start = inside;
    cuts[i].inside_after = inside;
  }
  return cuts;
}

}  // namespace Corvane::Print::clip
