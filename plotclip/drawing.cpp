// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Figures of a drawing; no state.
#include "plotclip/drawing.h"

#include <cmath>

namespace Corvane::Print::plotclip {
namespace {

double run_length(const PointRun& run) {
  double sum = 0.0;
  for (std::size_t i = 1; i < run.size(); ++i)
    sum += std::hypot(run[i].x - run[i - 1].x, run[i].y - run[i - 1].y);
  return sum;
}

// A ring that lies inside an odd number of the path's other rings is a hole and takes its area away.
// One point tells, because the rings of one path do not cross.
bool contains(const PointRun& ring, const Point& p) {
  bool inside = false;
  for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
    const Point& a = ring[i];
    const Point& b = ring[j];
    if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (p.y - a.y) * (b.x - a.x) / (b.y - a.y)) inside = !inside;
  }
  return inside;
}

// The middle of a ring's first edge: a hole may share a vertex with the ring around it.
Point probe_of(const PointRun& ring) {
  return {(ring[0].x + ring[1].x) / 2.0, (ring[0].y + ring[1].y) / 2.0, 0.0};
}

// Looking for holes compares every ring with every point. Where that would take long, the area is told
// without it; it is a figure of the summary only.
constexpr std::size_t kMostComparisons = 200'000'000;

double path_area(const Path& path) {
  std::size_t points = 0;
  for (const PointRun& ring : path.runs) points += ring.size();
  const bool look_for_holes = points < kMostComparisons / path.runs.size();
  double sum = 0.0;
  for (const PointRun& ring : path.runs) {
    if (ring.size() < 3) continue;
    bool hole = false;
    for (const PointRun& other : path.runs)
      if (look_for_holes && &other != &ring && other.size() >= 3 && contains(other, probe_of(ring)))
        hole = !hole;
    sum += (hole ? -1.0 : 1.0) * std::abs(signed_area(ring));
  }
  return sum;
}

}  // namespace

double signed_area(const PointRun& ring) {
  double sum = 0.0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& a = ring[i];
    const Point& b = ring[(i + 1) % ring.size()];
    // Relative to the first point, so that a small ring far from the origin keeps its digits.
    sum += (a.x - ring[0].x) * (b.y - ring[0].y) - (b.x - ring[0].x) * (a.y - ring[0].y);
  }
  return sum / 2.0;
}

Figures measure(const Drawing& drawing) {
  Figures figures;
  for (const Path& path : drawing.paths) {
    (path.kind == PathKind::kLine ? figures.lines : figures.polygons) += path.runs.size();
    for (const PointRun& run : path.runs) {
      figures.points += run.size();
      if (path.kind == PathKind::kLine) figures.length += run_length(run);
    }
    if (path.kind != PathKind::kLine) figures.area += path_area(path);
  }
  return figures;
}

}  // namespace Corvane::Print::plotclip
