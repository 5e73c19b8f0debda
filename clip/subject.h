// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A polygon that is to be clipped, made into clockwise rings within the fence's depth range.
#ifndef CORVANE_PRINT_CLIP_SUBJECT_H
#define CORVANE_PRINT_CLIP_SUBJECT_H

#include "clip/form.h"
#include "clip/polyline.h"
#include "clip/records.h"
#include "clip/ring_points.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::clip {

// The polygons that one subject turned into; gives their probe records back when it goes.
class Subject {
public:
  explicit Subject(Form form = Form::kPlain) : form_(form) {}
  ~Subject();
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  // Restarts the node pool. Throws std::bad_alloc; the records taken until then are given back all the same.
  void build(const FencePolygon& fence, int dim, int count, const double* points);

  // Clockwise rings with an area that were cut from a subject. Throws std::bad_alloc.
  void add_pieces(const Polylines& rings);

  std::size_t size() const { return polygons_.size(); }
  auto begin() const { return polygons_.begin(); }
  auto end() const { return polygons_.end(); }
  bool empty() const { return polygons_.empty(); }

private:
  void build_records(const FencePolygon& fence, int dim, int count, const double* points);
  void build_points(const FencePolygon& fence, int dim, int count, const double* points);
  void add_parts(const FencePolygon& fence, int dim, FenceVertex* ring);
  void add_polygon(FenceVertex* ring, int dim);
  void add_polygon(IndexedRing ring, int dim, double shoelace);
  static bool within_depth(const FencePolygon& fence, DepthRange depth);
  static bool cuts_depth(const FencePolygon& fence, int dim);

  Form form_;
  platform::CapiVector<FencePolygon*> polygons_;
};

}  // namespace Corvane::Print::clip

#endif
