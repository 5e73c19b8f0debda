// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "tests/support/clip_call.h"

#include "tests/support/guarded.h"

#include <utility>

namespace Corvane::Print::tests {
namespace {

// Far more rounds than doubling needs for any output that fits the memory.
constexpr int kMaxCalls = 40;

// False when the counts do not describe the points.
bool collect(int dim, int pieces, int used, const Guarded<int>& counts, const Guarded<double>& points,
             Rings& rings) {
  int at = 0;
  for (int k = 0; k < pieces; ++k) {
    const int count = counts[static_cast<std::size_t>(k)];
    if (count < 0 || count > used - at) return false;
    Ring ring;
    for (int i = 0; i < count; ++i, ++at) {
      const auto first = static_cast<std::size_t>(at * dim);
      ring.push_back({points[first], points[first + 1], dim == 3 ? points[first + 2] : 0.0});
    }
    rings.push_back(std::move(ring));
  }
  return at == used;
}

// `call` gets (in/out pieces, counts, points, in/out point count).
template <class Call>
Pieces grow_and_repeat(int dim, Room room, Call call) {
  Pieces result;
  result.status = CL_TOO_SMALL;
  while (result.status == CL_TOO_SMALL && result.calls < kMaxCalls) {
    ++result.calls;
    Guarded<int> counts(room.pieces);
    Guarded<double> points(room.points * dim);
    int pieces = room.pieces, used = room.points;
    result.status = call(&pieces, counts.data(), points.data(), &used);
    result.canaries = result.canaries && counts.intact() && points.intact();
    if (result.status == CL_OK) {
      result.counted = pieces <= room.pieces && used <= room.points &&
                       collect(dim, pieces, used, counts, points, result.rings);
    }
    room = {pieces > room.pieces ? pieces : room.pieces, used > room.points ? used : room.points};
  }
  return result;
}

}  // namespace

Fence::Fence(const Rings& polygons, int mode, FenceShape shape) {
  std::vector<int> counts;
  std::vector<double> points;
  for (const Ring& ring : polygons) {
    counts.push_back(static_cast<int>(ring.size()));
    const std::vector<double> flat = flatten(ring, shape.dim);
    points.insert(points.end(), flat.begin(), flat.end());
  }
  status_ = CLdefFence(&handle_, shape.dim, static_cast<int>(counts.size()), counts.data(), points.data(),
                       shape.zLow, shape.zHigh, mode);
}

Fence::Fence(Fence&& other) noexcept
    : handle_(std::exchange(other.handle_, nullptr)), status_(other.status_) {}

Fence& Fence::operator=(Fence&& other) noexcept {
  std::swap(handle_, other.handle_);
  std::swap(status_, other.status_);
  return *this;
}

Fence::~Fence() {
  CLdeleteFence(handle_);
}

Pieces clip_polygon(const Fence& fence, const Ring& subject, int dim, Room room) {
  const std::vector<double> flat = flatten(subject, dim);
  return grow_and_repeat(dim, room, [&](int* pieces, int* counts, double* points, int* used) {
    return CLclipPolygon(fence.handle(), dim, static_cast<int>(subject.size()), flat.data(), pieces, counts,
                         points, used);
  });
}

Pieces clip_line(const Fence& fence, const Ring& line, int dim, Room room) {
  const std::vector<double> flat = flatten(line, dim);
  return grow_and_repeat(dim, room, [&](int* pieces, int* counts, double* points, int* used) {
    return CLclipLine(fence.handle(), dim, static_cast<int>(line.size()), flat.data(), pieces, counts, points,
                      used);
  });
}

Pieces extract_polygons(const Fence& fence, int dim, Room room) {
  return grow_and_repeat(dim, room, [&](int* pieces, int* counts, double* points, int* used) {
    return CLextractPolygons(fence.handle(), pieces, counts, points, used);
  });
}

FenceResult clip_fences(const Fence& clip, const Fence& subject) {
  FenceResult result;
  result.status = CLclipFences(clip.handle(), subject.handle(), result.fence.slot());
  return result;
}

}  // namespace Corvane::Print::tests
