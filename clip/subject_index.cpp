// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/subject_index.h"

#include "clip/ring.h"

#include <utility>

namespace Corvane::Print::clip {

void index_subject(FencePolygon& subject, IndexedRing ring) {
  PolygonIndex* index = new_index();
  attach_index(subject, index);
  index->points = std::move(ring.points);
  index->edges = std::move(ring.edges);
  subject.vertexCount = index->count();
  const Box& all = index->edges.box(index->edges.levels() - 1, 0);
  subject.extent.xmin = all.xmin;
  subject.extent.ymin = all.ymin;
  subject.extent.xmax = all.xmax;
  subject.extent.ymax = all.ymax;
}

void make_records(FencePolygon& subject) {
  PolygonIndex& index = *index_of(subject);
  if (!index.records.empty()) return;
  const int count = index.count();
  index.records.resize(static_cast<std::size_t>(count));
  for (int i = 0; i < count; ++i) {
    FenceVertex &v = index.record(i), &end = index.record(following(index, i));
    const LinePoint& p = index.point(i);
    v.x = p.x;
    v.y = p.y;
    v.z = p.z;
    v.w = 1.0;
    v.next = v.next2 = &end;
    end.prev = &v;
  }
  subject.first = &index.record(0);
  for_each_vertex(subject.first, [](FenceVertex& v) {
    set_edge(v);
    v.tolerance = edge_tolerance(v.dx, v.dy);
  });
}

}  // namespace Corvane::Print::clip
