// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Random calls of the CL family for the digest. A random case calls more than once: arrays start small, so
// that the answers of calls without enough room are part of the digest.
#include "tests/digest/digest.h"
#include "tests/support/clip_call.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/shapes.h"

#include <array>
#include <vector>

namespace Corvane::Print::tests {
namespace {

constexpr double kSize = 10000;

int random_mode(Random& random) {
  return random.one_in(2) ? CL_KEEP_OUTSIDE : CL_KEEP_INSIDE;
}

Room random_room(Random& random) {
  return {random.between(1, 10), random.between(1, 60)};
}

Ring random_shape(Random& random) {
  const double size = random.between(0.1, 1.0) * kSize;
  const Ring ring = any_shape(random, size);
  const double x = random.between(-0.5, 0.5) * kSize, y = random.between(-0.5, 0.5) * kSize;
  return moved(ring, x, y);
}

Rings random_polygons(Random& random) {
  return random.one_in(3) ? disjoint_shapes(random, 6, kSize) : Rings{random_shape(random)};
}

Ring random_lift(Random& random, const Ring& ring) {
  const double a = random.between(-1.0, 1.0), b = random.between(-1.0, 1.0);
  Ring up = lifted(ring, a, b, random.between(-1.0, 1.0) * kSize);
  // One in four is no plane at all.
  if (random.one_in(4)) {
    for (Point& p : up) p.z = random.between(-2, 2) * 1000;
  }
  return up;
}

FenceShape random_depth(Random& random, int dim) {
  const double low = random.between(-1.0, 0.5) * kSize;
  return {dim, low, low + random.between(0.0, 1.0) * kSize};
}

Rings axis_parallel(Random& random) {
  const double x0 = random.between(-1.0, 0.0) * kSize, y0 = random.between(-1.0, 0.0) * kSize;
  const double x1 = random.between(0.0, 1.0) * kSize, y1 = random.between(0.0, 1.0) * kSize;
  return {rectangle(x0, y0, x1, y1)};
}

Fence general_fence(Random& random) {
  const int mode = random_mode(random);
  return Fence(random_polygons(random), mode);
}

Fence deep_fence(Random& random, int dim) {
  const int mode = random_mode(random);
  const FenceShape depth = random_depth(random, dim);
  return Fence(random_polygons(random), mode, depth);
}

// `polyline` works in two dimensions; heights that jump from point to point do for a line.
Ring random_line(Random& random, int dim) {
  Ring line = polyline(random, random.between(1, 40), kSize);
  for (Point& p : line) {
    if (dim == 3) p.z = p.x == CL_BREAK ? CL_BREAK : random.between(-1.0, 1.0) * kSize;
  }
  return line;
}

void flat_polygon(Random& random, Digest& digest) {
  const Fence fence = general_fence(random);
  const Ring subject = random_shape(random);
  digest.add(clip_polygon(fence, subject, 2, random_room(random)));
}

void grid_clip(Random& random, Digest& digest) {
  GridKin kin{};
  const GridPair pair = grid_pair(random, &kin);
  const int mode = random_mode(random);
  const Fence fence(random.one_in(4) ? grid_disjoint(random, 4) : Rings{pair.fence}, mode);
  digest.add(clip_polygon(fence, pair.subject, 2, random_room(random)));
}

void lifted_polygon(Random& random, Digest& digest) {
  const Fence fence = deep_fence(random, 3);
  const Ring flat = random_shape(random);
  const Ring subject = random_lift(random, flat);
  digest.add(clip_polygon(fence, subject, 3, random_room(random)));
}

void rectangle_line(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  const FenceShape depth = random_depth(random, dim);
  const Fence fence(axis_parallel(random), CL_KEEP_INSIDE, depth);
  const Ring line = random_line(random, dim);
  digest.add(clip_line(fence, line, dim, random_room(random)));
}

void general_line(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  const Fence fence = deep_fence(random, dim);
  const Ring line = random_line(random, dim);
  digest.add(clip_line(fence, line, dim, random_room(random)));
}

Fence intersected_fence(Random& random, bool rectangular) {
  return rectangular ? Fence(axis_parallel(random), CL_KEEP_INSIDE) : general_fence(random);
}

void fence_intersection(Random& random, Digest& digest) {
  const bool rectangles = random.one_in(4);
  const Fence clip = intersected_fence(random, rectangles);
  const Fence subject = intersected_fence(random, rectangles);
  const FenceResult result = clip_fences(clip, subject);
  digest.add(result.status);
  if (result.status == CL_OK) digest.add(extract_polygons(result.fence, 2, random_room(random)));
}

void extraction(Random& random, Digest& digest) {
  const int dim = random.between(2, 3), mode = random_mode(random);
  const FenceShape depth = random_depth(random, dim);
  Rings rings = random_polygons(random);
  for (Ring& ring : rings) {
    ring = random_lift(random, ring);
    if (random.one_in(2)) ring.push_back(ring.front());
  }
  const Fence fence(rings, mode, depth);
  std::array<int, 14> words{};
  digest.add(CLinqFenceInfo(fence.handle(), words.data()));
  for (const int word : words) digest.add(word);
  digest.add(extract_polygons(fence, dim, random_room(random)));
}

void growing(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  std::vector<int> counts;
  std::vector<double> points;
  for (Ring& ring : random_polygons(random)) {
    if (random.one_in(2)) ring.push_back(ring.front());
    const std::vector<double> flat = flatten(random_lift(random, ring), dim);
    points.insert(points.end(), flat.begin(), flat.end());
    counts.push_back(static_cast<int>(ring.size()));
  }
  std::vector<double> grown(points.size());
  digest.add(CLGrowPolygons(dim, static_cast<int>(counts.size()), counts.data(), points.data(),
                            random.between(-0.01, 0.01) * kSize, grown.data()));
  for (const double coordinate : grown) digest.add(coordinate);
}

constexpr Family kFamilies[] = {
    {"flat-polygons", 25000, flat_polygon},     {"grid-polygons", 25000, grid_clip},
    {"lifted-polygons", 10000, lifted_polygon}, {"rectangle-lines", 15000, rectangle_line},
    {"general-lines", 10000, general_line},     {"fence-intersections", 5000, fence_intersection},
    {"extractions", 5000, extraction},          {"growing", 5000, growing},
};

}  // namespace

std::span<const Family> clip_families() {
  return kFamilies;
}

}  // namespace Corvane::Print::tests
