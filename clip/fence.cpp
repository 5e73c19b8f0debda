// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A fence's headers and vertices lie in one heap block whose first node is the fence's first header, so the
// handle is also the block's address. A polygon that cannot be finished takes its nodes back out of the
// block; that keeps the first finished header at the front.
#include "clip/fence.h"

#include "clip/line_general.h"
#include "clip/node_pool.h"
#include "clip/polygon_index.h"
#include "clip/probe.h"
#include "clip/ring.h"
#include "platform/capi_memory.h"

#include <cmath>

namespace Corvane::Print::clip {
namespace {

double rounded(double v) {
  return v >= 0 ? std::trunc(v + 0.5) : std::trunc(v - 0.5);
}

// Mode 1 wants counter-clockwise rings and mode 2 clockwise ones: with a clockwise subject the same walk then
// yields the subject's part outside or inside.
void orient(FencePolygon& polygon) {
  double sum = shoelace_sum(polygon.first);
  polygon.clockwise = 0;
  if (sum <= 0) {
    polygon.clockwise = 1;
    sum = -sum;
  }
  polygon.area = sum / 2.0;
  if ((polygon.clockwise == 1) == (polygon.mode == CL_KEEP_OUTSIDE)) {
    reverse_ring(polygon.first);
    polygon.clockwise = polygon.mode == CL_KEEP_INSIDE ? 1 : 0;
  }
}

// Null when memory for its probe record ran out.
// KEEP(fence-drops-polygon): the polygon is then left out, and the fence is built of the others.
// Looks wrong; a plot with a wider cut goes on, and a fence fails only when nothing of it is left.
// Pinned by Fence.APolygonWithoutMemoryForItsProbeIsDropped.
FencePolygon* build_polygon(int dim, int count, const double* points, double z_low, double z_high, int mode) {
  FencePolygon* polygon = take_header();
  polygon->first = build_ring(points, count, dim);
  polygon->dim = dim;
  polygon->mode = mode;
  polygon->extent.zmin = z_low;
  polygon->extent.zmax = z_high;
  orient(*polygon);
  prepare_ring(*polygon);
  polygon->probe = take_probe(polygon->extent);
  return polygon->probe != nullptr ? polygon : nullptr;
}

}  // namespace

// KEEP(rectangle-by-rounding): corners up to half a unit off count as a rectangle, whose lines are then
// clipped by the ring's extent. Looks wrong; drawings carry rounded frames, and hosts count on the fast
// clipper for them. Pinned by Fence.FourPointsThatRoundToARectangleCountAsOne.
bool is_rectangle(int count, const double* points, int dim) {
  if (count != 4 && count != 5) return false;
  double x[5], y[5];
  for (int i = 0; i < count; ++i) {
    x[i] = rounded(points[i * dim]);
    y[i] = rounded(points[i * dim + 1]);
  }
  if (count == 5 && (x[4] != x[0] || y[4] != y[0])) return false;
  const bool first_is_vertical = x[0] == x[1];
  for (int i = 0; i < 4; ++i) {
    const int j = (i + 1) % 4;
    const bool wants_vertical = (i % 2 == 0) == first_is_vertical;
    const bool vertical = x[i] == x[j] && y[i] != y[j];
    const bool horizontal = y[i] == y[j] && x[i] != x[j];
    if (!(wants_vertical ? vertical : horizontal)) return false;
  }
  return true;
}

// KEEP(corner-rectangle-winding): the 3-D ring runs against the 2-D one and drops the second corner's z.
// Looks wrong; the fence turns every ring its own way afterwards, and hosts put the depth's two bounds into
// the corners' z. Pinned by Fence.TwoCornersBecomeARing.
void rectangle_from_corners(const double* corners, int dim, double ring[15]) {
  const double x0 = corners[0], y0 = corners[1], x1 = corners[dim], y1 = corners[dim + 1];
  if (dim == 2) {
    const double flat[10] = {x0, y0, x0, y1, x1, y1, x1, y0, x0, y0};
    for (int i = 0; i < 10; ++i) ring[i] = flat[i];
    return;
  }
  const double z0 = corners[2];
  const double solid[15] = {x0, y0, z0, x1, y0, z0, x1, y1, z0, x0, y1, z0, x0, y0, z0};
  for (int i = 0; i < 15; ++i) ring[i] = solid[i];
}

FencePolygon* build_fence(int dim, int num_polys, const int* counts, const double* points, int total,
                          double z_low, double z_high, int mode) {
  Cnode* block = start_fence_block(total + num_polys);
  if (block == nullptr) return nullptr;
  FencePolygon* first = nullptr;
  FencePolygon* last = nullptr;
  for (int k = 0; k < num_polys; ++k) {
    const int nodes_before = CurIdx;
    FencePolygon* polygon = build_polygon(dim, counts[k], points, z_low, z_high, mode);
    points += static_cast<std::ptrdiff_t>(counts[k]) * dim;
    if (polygon == nullptr) {
      CurIdx = nodes_before;
      continue;
    }
    (last == nullptr ? first : last->nextPoly) = polygon;
    last = polygon;
  }
  if (first == nullptr) {
    BufferTable[0] = Cmemory{0, nullptr};
    platform::capi_free(block);
    return nullptr;
  }
  first->totalPoints = total;
  first->refCount = 1;
  first->lineClipper = clip_line_general;
  return first;
}

void release_fence(FencePolygon* fence) {
  for (FencePolygon* p = fence; p != nullptr; p = p->nextPoly) {
    give_probe(p->probe);
    release_index(*p);
  }
  platform::capi_free(fence);
}

}  // namespace Corvane::Print::clip
