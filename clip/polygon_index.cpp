// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/polygon_index.h"

#include "clip/form.h"
#include "clip/ring.h"
#include "platform/capi_memory.h"

#include <new>
#include <stdexcept>

namespace Corvane::Print::clip {
namespace {

void fill(PolygonIndex& index, FencePolygon& polygon) {
  const auto count = static_cast<std::size_t>(polygon.vertexCount);
  index.points.reserve(count + 1);
  index.vertices.reserve(count);
  for_each_vertex(polygon.first, [&](FenceVertex& v) {
    v.param = static_cast<double>(index.vertices.size());
    index.points.push_back({v.x, v.y, v.z});
    index.vertices.push_back(&v);
  });
  index.points.push_back(index.points.front());
  index.edges.build(index.points.data(), index.count());
}

}  // namespace

PolygonIndex* new_index() {
  void* room = platform::capi_alloc(sizeof(PolygonIndex));
  if (room == nullptr) throw std::bad_alloc();
  return new (room) PolygonIndex();
}

void release_index(FencePolygon& polygon) noexcept {
  PolygonIndex* index = index_of(polygon);
  if (index == nullptr) return;
  index->~PolygonIndex();
  platform::capi_free(index);
  attach_index(polygon, nullptr);
}

PolygonIndex* fence_index(FencePolygon& polygon) noexcept {
  if (g_form == Form::kPlain) return nullptr;
  if (PolygonIndex* index = index_of(polygon)) return index;
  try {
    attach_index(polygon, new_index());
    fill(*index_of(polygon), polygon);
  } catch (const std::bad_alloc&) {
    release_index(polygon);
  } catch (const std::length_error&) {  // on 32 bits: more points than a vector can count
    release_index(polygon);
  }
  return index_of(polygon);
}

const PolygonIndex* index_with_rays(const FencePolygon& polygon) noexcept {
  PolygonIndex* index = index_of(polygon);
  if (index == nullptr || index->vertices.empty()) return nullptr;
  if (!index->rays.built()) index->rays.build(index->points, polygon.extent, *polygon.probe);
  return index;
}

}  // namespace Corvane::Print::clip
