// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "clip/polyline.h"

#include "corvane/print/cl.h"

namespace Corvane::Print::clip {
namespace {

void end_run(Polylines& lines) {
  const std::size_t last_end = lines.ends.empty() ? 0 : lines.ends.back();
  if (lines.points.size() > last_end) lines.ends.push_back(lines.points.size());
}

LinePoint at_depth(const LinePoint& a, const LinePoint& b, double z) {
  const double t = (z - a.z) / (b.z - a.z);
  return {a.x + t * (b.x - a.x), a.y + t * (b.y - a.y), z};
}

// Cuts one run at a plane. `side(p)` is positive on the kept side, 0 on the plane, negative beyond it; a
// point on the plane is kept, and a line that goes beyond it there ends there.
template <class SideOf>
void cut_run(const LinePoint* run, std::size_t count, double z, SideOf side, Polylines& kept) {
  for (std::size_t i = 0; i < count; ++i) {
    const int here = side(run[i]);
    if (here >= 0) kept.points.push_back(run[i]);
    if (i + 1 == count) break;
    const int there = side(run[i + 1]);
    if (here * there < 0) kept.points.push_back(at_depth(run[i], run[i + 1], z));
    if (there < 0) end_run(kept);
  }
  end_run(kept);
}

template <class SideOf>
Polylines cut_at(const Polylines& lines, double z, SideOf side) {
  Polylines kept;
  std::size_t begin = 0;
  for (const std::size_t end : lines.ends) {
    cut_run(lines.points.data() + begin, end - begin, z, side, kept);
    begin = end;
  }
  return kept;
}

}  // namespace

Polylines split_at_breaks(int dim, int count, const double* points) {
  Polylines lines;
  lines.points.reserve(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i, points += dim) {
    if (points[0] == CL_BREAK) {
      end_run(lines);
    } else {
      lines.points.push_back({points[0], points[1], dim == 3 ? points[2] : 0.0});
    }
  }
  end_run(lines);
  return lines;
}

Polylines cut_to_depth(const Polylines& lines, double z_low, double z_high) {
  const auto above = [](double z, double bound) { return (z > bound) - (z < bound); };
  const Polylines above_low = cut_at(lines, z_low, [=](const LinePoint& p) { return above(p.z, z_low); });
  return cut_at(above_low, z_high, [=](const LinePoint& p) { return -above(p.z, z_high); });
}

}  // namespace Corvane::Print::clip
