// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the tests of the engine's phases share: edges and subjects made by hand, a sink that collects pieces,
// and the form in which rings are compared when their first point does not matter.
#ifndef CORVANE_PRINT_TESTS_CLIP_ENGINE_H
#define CORVANE_PRINT_TESTS_CLIP_ENGINE_H

#include "clip/piece_sink.h"
#include "clip/ring.h"
#include "clip/subject.h"
#include "tests/support/clip_call.h"
#include "tests/support/ring.h"

#include <algorithm>
#include <string>
#include <tuple>

namespace Corvane::Print::tests {

// An edge with its edge data, not part of any ring: both ends lead to each other.
struct Edge {
  Edge(double x0, double y0, double x1, double y1) {
    start = end = FenceVertex{};
    start.x = x0, start.y = y0, start.w = 1;
    end.x = x1, end.y = y1, end.w = 1;
    start.next = start.next2 = start.prev = &end;
    end.next = end.next2 = end.prev = &start;
    for (FenceVertex* v : {&start, &end}) {
      clip::set_edge(*v);
      v->tolerance = clip::edge_tolerance(v->dx, v->dy);
    }
  }
  Edge(const Edge&) = delete;
  Edge& operator=(const Edge&) = delete;

  FenceVertex start, end;
};

// Builds a subject that is known to become one polygon. Only one subject may be alive at a time: they all
// take their nodes from the start of one pool.
inline FencePolygon& build(clip::Subject& subject, const Fence& fence, const Ring& ring, int dim = 2) {
  const std::vector<double> flat = flatten(ring, dim);
  subject.build(*fence.handle(), dim, static_cast<int>(ring.size()), flat.data());
  return **subject.begin();
}

// The vertex of a ring, as it is walked, at a place; null when there is none.
inline FenceVertex* vertex_at(const FencePolygon& ring, double x, double y) {
  FenceVertex* v = ring.first;
  do {
    if (v->x == x && v->y == y) return v;
    v = v->next2;
  } while (v != ring.first);
  return nullptr;
}

// The ring as it was given, and as it is walked.
inline Ring points_of(const FenceVertex* first) {
  Ring points;
  clip::for_each_vertex(first, [&](const FenceVertex& v) { points.push_back({v.x, v.y, v.z}); });
  return points;
}

inline Ring walked_points_of(const FenceVertex* first) {
  Ring points;
  const FenceVertex* v = first;
  do {
    points.push_back({v->x, v->y, v->z});
    v = v->next2;
  } while (v != first);
  return points;
}

class PieceList final : public clip::PieceSink {
public:
  void begin_piece() override { pieces.emplace_back(); }
  void point(double x, double y, double z) override { pieces.back().push_back({x, y, z}); }
  void touch(double x, double y, double z) override { touches.push_back({x, y, z}); }
  void end_piece() override { ++ended; }

  Rings pieces;
  Ring touches;
  int ended = 0;
};

inline bool before(const Point& a, const Point& b) {
  return std::tie(a.x, a.y, a.z) < std::tie(b.x, b.y, b.z);
}

// The ring from its least point on; direction and all points are kept.
inline Ring from_least_point(const Ring& ring) {
  const auto least = std::min_element(ring.begin(), ring.end(), before);
  return rotated(ring, static_cast<std::size_t>(least - ring.begin()));
}

// Rings as text, whatever their order and first points.
inline std::string normal_text(Rings rings) {
  std::vector<std::string> texts;
  for (const Ring& ring : rings) texts.push_back(text_of(from_least_point(ring)));
  std::sort(texts.begin(), texts.end());
  std::string all;
  for (const std::string& text : texts) {
    all += text;
    all += '\n';
  }
  return all;
}

}  // namespace Corvane::Print::tests

#endif
