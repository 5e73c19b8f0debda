// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The records come from the node pool and are abandoned with the clip.
#include "clip/subject_ring.h"

#include "clip/node_pool.h"
#include "clip/ring.h"

#include <algorithm>
#include <new>
#include <utility>

namespace Corvane::Print::clip {
namespace {

FenceVertex& new_record() {
  FenceVertex* v = take_vertex();
  if (v == nullptr) throw std::bad_alloc();
  return *v;
}

FenceVertex& vertex_at(PolygonIndex& index, int number) {
  FenceVertex*& v = index.vertices[static_cast<std::size_t>(number)];
  if (v == nullptr) {
    index.made.push_back(number);
    FenceVertex& made = new_record();
    const LinePoint& p = index.points[static_cast<std::size_t>(number)];
    made.x = p.x;
    made.y = p.y;
    made.z = p.z;
    made.param = number;
    v = &made;
  }
  return *v;
}

int following(const PolygonIndex& index, int number) {
  return number + 1 < index.count() ? number + 1 : 0;
}
int preceding(const PolygonIndex& index, int number) {
  return number > 0 ? number - 1 : index.count() - 1;
}

bool has_length(const FenceVertex& edge) {
  return edge.dx != 0.0 || edge.dy != 0.0;
}

void make_edge(PolygonIndex& index, int number) {
  FenceVertex& v = vertex_at(index, number);
  FenceVertex& end = vertex_at(index, following(index, number));
  v.next = v.next2 = &end;
  end.prev = &v;
  set_edge(v);
  v.tolerance = edge_tolerance(v.dx, v.dy);
}

// The direction at a vertex is that of the next edge that has a length, forwards and backwards.
void make_directions(PolygonIndex& index, int number) {
  int n = number;
  for (int i = 0; i < index.count() && !has_length(vertex_with_edge(index, n)); ++i) n = following(index, n);
  n = preceding(index, number);
  for (int i = 0; i < index.count() && !has_length(vertex_with_edge(index, n)); ++i) n = preceding(index, n);
}

// The numbers in ascending order: by looking through all vertices when a good part of them was made.
void put_in_order(PolygonIndex& index) {
  if (index.made.size() < index.vertices.size() / 16) {
    std::sort(index.made.begin(), index.made.end());
    return;
  }
  auto next = index.made.begin();
  for (std::size_t i = 0; i < index.vertices.size(); ++i) {
    if (index.vertices[i] != nullptr) *next++ = static_cast<int>(i);
  }
}

void bridge(PolygonIndex& index, int from, int to) {
  const int next = following(index, from);
  if (next == to) {
    vertex_with_edge(index, from);
    return;
  }
  FenceVertex& stretch = new_record();
  FenceVertex &before = index.vertex(from), &after = index.vertex(to);
  stretch.marker = kStretch;
  stretch.param = next;
  stretch.prev = &before;
  stretch.next = stretch.next2 = &after;
  before.next = before.next2 = &stretch;
  after.prev = &stretch;
}

}  // namespace

FenceVertex& vertex_with_edge(PolygonIndex& index, int number) {
  FenceVertex& v = vertex_at(index, number);
  if (v.next == nullptr) make_edge(index, number);
  return v;
}

void start_subject_ring(FencePolygon& subject, RingPoints points) {
  PolygonIndex* index = new_index();
  attach_index(subject, index);
  index->points = std::move(points);
  const std::size_t count = index->points.size() - 1;
  index->vertices.assign(count, nullptr);
  index->edges.build(index->points.data(), static_cast<int>(count));
  subject.vertexCount = static_cast<int>(count);
  subject.first = &vertex_with_edge(*index, 0);
}

void restart_ring(FencePolygon& subject) {
  PolygonIndex* index = index_of(subject);
  if (index == nullptr) return reset_ring(subject);
  for (const int number : index->made) index->vertices[static_cast<std::size_t>(number)] = nullptr;
  index->made.clear();
  subject.first = &vertex_with_edge(*index, 0);
}

void close_subject_ring(FencePolygon& subject) {
  PolygonIndex& index = *index_of(subject);
  const std::size_t touched = index.made.size();
  for (std::size_t i = 0; i < touched; ++i) make_directions(index, index.made[i]);
  put_in_order(index);
  // Bridging makes no vertices any more.
  for (std::size_t i = 0; i + 1 < index.made.size(); ++i) bridge(index, index.made[i], index.made[i + 1]);
  bridge(index, index.made.back(), index.made.front());
}

void complete_ring(FencePolygon& polygon) {
  PolygonIndex* index = index_of(polygon);
  if (index == nullptr || index->made.empty() || static_cast<int>(index->made.size()) == index->count()) {
    return;
  }
  FenceVertex* v = polygon.first;
  do {
    FenceVertex* following_vertex = v->next;
    if (v->marker == kStretch) {
      const int before = number_of(*v->prev), end = number_of(*v->next);
      for (int n = before; n != end; n = following(*index, n)) make_edge(*index, n);
    }
    v = following_vertex;
  } while (v != polygon.first);
}

StretchPoints points_of_stretch(const FenceVertex& stretch, const PolygonIndex& index) {
  const std::span<const LinePoint> points(index.points.data(), static_cast<std::size_t>(index.count()));
  const auto begin = static_cast<std::size_t>(number_of(stretch));
  const auto end = static_cast<std::size_t>(number_of(*stretch.next));
  if (begin < end) return {points.subspan(begin, end - begin), {}};
  return {points.subspan(begin), points.first(end)};
}

}  // namespace Corvane::Print::clip
