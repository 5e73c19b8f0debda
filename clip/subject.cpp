// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// All nodes come from the overflow buffers and are abandoned with the clip.
#include "clip/subject.h"

#include "clip/depth_cut.h"
#include "clip/node_pool.h"
#include "clip/probe.h"
#include "clip/ring.h"
#include "clip/subject_index.h"

#include <cmath>
#include <new>
#include <utility>

namespace Corvane::Print::clip {
namespace {

template <class T>
T* or_throw(T* node) {
  if (node == nullptr) throw std::bad_alloc();
  return node;
}

DepthRange depth_of(const FenceVertex* ring) {
  DepthRange range{ring->z, ring->z};
  for_each_vertex(ring, [&](const FenceVertex& v) {
    if (v.z < range.low) range.low = v.z;
    if (v.z > range.high) range.high = v.z;
  });
  return range;
}

// Also false for an area that is not a number: such a ring has no inside.
bool has_area(double shoelace) {
  return shoelace > 0.0 || shoelace < 0.0;
}

}  // namespace

void Subject::build(const FencePolygon& fence, int dim, int count, const double* points) {
  if (!restart_overflow()) throw std::bad_alloc();
  if (form_ == Form::kPlain) {
    build_records(fence, dim, count, points);
  } else {
    build_points(fence, dim, count, points);
  }
}

// KEEP(depth-in-both-modes): beyond the depth range nothing is kept, also by a fence that keeps its
// outside. Looks wrong; plots are laid out in layers and a fence speaks for its own. Pinned by
// Subject.WhollyAboveOrBelowTheDepthRangeItYieldsNothingInEitherMode.
//
// KEEP(flat-at-depth-zero): a 2-D subject lies at depth 0; a fence whose range leaves 0 out keeps nothing.
// Looks wrong; hosts give flat plots a range around 0. Pinned by Subject.AFlatSubjectLiesAtDepthZero.
bool Subject::within_depth(const FencePolygon& fence, DepthRange depth) {
  return !(depth.low > fence.extent.zmax || depth.high < fence.extent.zmin);
}

// KEEP(outside-cuts-no-depth): a fence that keeps its outside cuts neither polygons nor lines in depth.
// Looks wrong; its region has no outside in depth. Pinned by
// Subject.OnlyAFenceThatKeepsItsInsideCutsTheDepth and LineGeneral.AFenceThatKeepsItsOutsideCutsNoDepth.
bool Subject::cuts_depth(const FencePolygon& fence, int dim) {
  return dim == 3 && fence.mode != CL_KEEP_OUTSIDE;
}

void Subject::build_records(const FencePolygon& fence, int dim, int count, const double* points) {
  FenceVertex* ring = or_throw(build_ring(points, count, dim));
  const double sum = shoelace_sum(ring);
  if (sum > 0.0) reverse_ring(ring);
  // The first vertex stays the first when the ring is reversed.
  if (!has_area(sum) || !within_depth(fence, depth_of(ring))) return;
  if (!cuts_depth(fence, dim)) return add_polygon(ring, dim);
  add_parts(fence, dim, ring);
}

void Subject::add_parts(const FencePolygon& fence, int dim, FenceVertex* ring) {
  for (FenceVertex* part : cut_to_depth(ring, fence.extent.zmin, fence.extent.zmax)) {
    if (part != ring && !has_area(shoelace_sum(part))) continue;
    if (form_ == Form::kPlain) {
      add_polygon(part, dim);
    } else {
      add_polygon(points_of_ring(part), dim, shoelace_sum(part));
    }
  }
}

// Without records, unless the depth range cuts the subject.
void Subject::build_points(const FencePolygon& fence, int dim, int count, const double* points) {
  const double sum = shoelace_sum(points, count, dim);
  const DepthRange depth = dim == 2 ? DepthRange{0.0, 0.0} : clip::depth_of(points, count);
  if (!has_area(sum) || !within_depth(fence, depth)) return;
  const bool all_within = depth.low >= fence.extent.zmin && depth.high <= fence.extent.zmax;
  if (cuts_depth(fence, dim) && !(all_within && has_depth(points, count))) {
    return build_records(fence, dim, count, points);
  }
  const auto read = sum > 0.0 ? read_ring_backwards : read_ring;
  add_polygon(read(points, count, dim), dim, sum);
}

void Subject::add_pieces(const Polylines& rings) {
  static_assert(sizeof(LinePoint) == 3 * sizeof(double));
  std::size_t begin = 0;
  for (const std::size_t end : rings.ends) {
    const double* points = &rings.points[begin].x;
    const int count = static_cast<int>(end - begin);
    if (form_ == Form::kPlain) {
      add_polygon(or_throw(build_ring(points, count, 3)), 3);
    } else {
      add_polygon(read_ring(points, count, 3), 3, shoelace_sum(points, count, 3));
    }
    begin = end;
  }
}

Subject::~Subject() {
  for (FencePolygon* polygon : polygons_) {
    give_probe(polygon->probe);
    release_index(*polygon);
  }
}

void Subject::add_polygon(FenceVertex* ring, int dim) {
  FencePolygon* polygon = or_throw(take_header());
  polygon->first = ring;
  polygon->dim = dim;
  polygon->clockwise = 1;
  polygon->area = std::fabs(shoelace_sum(ring)) / 2.0;
  prepare_ring(*polygon);
  const DepthRange depth = depth_of(ring);
  polygon->extent.zmin = depth.low;
  polygon->extent.zmax = depth.high;
  polygons_.push_back(polygon);
  polygon->probe = or_throw(take_probe(polygon->extent));
}

void Subject::add_polygon(IndexedRing ring, int dim, double shoelace) {
  FencePolygon* polygon = or_throw(take_header());
  polygon->dim = dim;
  polygon->clockwise = 1;
  polygon->area = std::fabs(shoelace) / 2.0;
  const int count = static_cast<int>(ring.points.size()) - 1;
  const DepthRange depth = dim == 2 ? DepthRange{0.0, 0.0} : clip::depth_of(&ring.points.front().x, count);
  polygons_.push_back(polygon);
  index_subject(*polygon, std::move(ring));
  polygon->extent.zmin = depth.low;
  polygon->extent.zmax = depth.high;
  polygon->probe = or_throw(take_probe(polygon->extent));
}

}  // namespace Corvane::Print::clip
