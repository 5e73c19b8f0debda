// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No state. The order of operations decides the last bits of every crossing; it is not to be rearranged.
#include "clip/meeting.h"

#include "clip/tolerances.h"

#include <cmath>

namespace Corvane::Print::clip {
namespace {

// Snaps a parameter to the ends of its edge, or says that it lies inside or off the edge.
Place classify(double& param, FenceVertex& edge, FenceVertex*& vertex) {
  const double tolerance = edge.tolerance;
  if (std::fabs(param) <= tolerance) {
    param = 0.0;
    vertex = &edge;
    return Place::kAtVertex;
  }
  if (param >= 1.0 - tolerance && param <= 1.0 + tolerance) {
    param = 1.0;
    vertex = edge.next;
    return Place::kAtVertex;
  }
  return param > 0.0 && param < 1.0 ? Place::kInside : Place::kNowhere;
}

}  // namespace

Meeting meet(FenceVertex& e, FenceVertex& f) {
  Meeting m;
  const double denom = f.dx * e.dy - f.dy * e.dx;
  if (denom >= -kParallel && denom <= kParallel) return m;
  m.fence_param = (f.dx * (f.y - e.y) - f.dy * (f.x - e.x)) / denom;
  m.on_fence = classify(m.fence_param, e, m.fence_vertex);
  if (m.on_fence == Place::kNowhere) return m;
  m.subject_param = ((f.y - e.y) * e.dx - (f.x - e.x) * e.dy) / denom;
  m.on_subject = classify(m.subject_param, f, m.subject_vertex);
  return m;
}

}  // namespace Corvane::Print::clip
