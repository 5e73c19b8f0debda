// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exported calls that define, share, describe, copy and release fences. Arguments are checked here, once;
// behind them everything is trusted.
#include "clip/fence.h"
#include "clip/line_rect.h"
#include "clip/node_pool.h"
#include "clip/ring.h"
#include "corvane/print/cl.h"

#include <cmath>
#include <cstring>
#include <limits>

namespace Corvane::Print::clip {
namespace {

// The sum of the counts, or -1 when one of them is below 1 or the nodes for them cannot be addressed.
int total_points(int num_polys, const int* counts) {
  constexpr std::size_t kMostNodes = std::numeric_limits<std::size_t>::max() / sizeof(Cnode);
  constexpr std::size_t kMostInt = std::numeric_limits<int>::max();
  const std::size_t most = kMostNodes < kMostInt ? kMostNodes : kMostInt;
  std::size_t nodes = static_cast<std::size_t>(num_polys);
  for (int k = 0; k < num_polys; ++k) {
    if (counts[k] < 1) return -1;
    nodes += static_cast<std::size_t>(counts[k]);
    if (nodes > most) return -1;
  }
  return static_cast<int>(nodes - static_cast<std::size_t>(num_polys));
}

bool all_finite(const double* values, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (!std::isfinite(values[i])) return false;
  }
  return true;
}

// Answers total points, or -1 when CLdefFence must refuse.
int check_definition(const CLFenceHandle* fence, int dim, int num_polys, const int* counts,
                     const double* points, double z_low, double z_high) {
  if (fence == nullptr || counts == nullptr || points == nullptr) return -1;
  if (num_polys < 1 || (dim != 2 && dim != 3) || !(z_low <= z_high)) return -1;
  const int total = total_points(num_polys, counts);
  if (total < 0) return -1;
  return all_finite(points, static_cast<std::size_t>(total) * static_cast<std::size_t>(dim)) ? total : -1;
}

// The room of one kind of array while polygons are copied out. Room is consumed even after it ran out, so
// that the need is known in the end.
class ExtractRoom {
public:
  explicit ExtractRoom(int capacity) : capacity_(capacity) {}
  bool take() { return ++needed_ <= capacity_; }
  bool was_enough() const { return needed_ <= capacity_; }
  // KEEP(extract-plus-one): on shortage the need is reported with one entry to spare.
  // Looks wrong; callers allocate what they are told and use the spare entry.
  // Pinned by Fence.ExtractionReportsTheNeedPlusOne.
  int report() const {
    const long long count = was_enough() ? needed_ : needed_ + 1;
    constexpr long long kMost = std::numeric_limits<int>::max();
    return static_cast<int>(count < kMost ? count : kMost);
  }

private:
  long long capacity_;
  long long needed_ = 0;
};

void extract_point(const FenceVertex& v, int dim, double*& out) {
  *out++ = v.x;
  *out++ = v.y;
  if (dim == 3) *out++ = v.z;
}

// Copies the ring and its first vertex again, to close it.
void extract_ring(const FencePolygon& polygon, int dim, int* count, double*& out, ExtractRoom& room) {
  const auto put = [&](const FenceVertex& v) {
    if (!room.take()) return;
    extract_point(v, dim, out);
    if (count != nullptr) ++*count;
  };
  for_each_vertex(polygon.first, put);
  put(*polygon.first);
}

bool extraction_has_arguments(CLFenceHandle fence, const int* num_polys, const int* counts,
                              const double* points, const int* num_points) {
  if (fence == nullptr || num_polys == nullptr || num_points == nullptr) return false;
  return (*num_polys < 1 || counts != nullptr) && (*num_points < 1 || points != nullptr);
}

}  // namespace
}  // namespace Corvane::Print::clip

using namespace Corvane::Print::clip;

int CORVANE_PRINT_CALL CLdefFence(CLFenceHandle* fence, int dim, int numPolys, int* counts,
                                  const double* points, double zLow, double zHigh, int mode) {
  // KEEP(two-corner-count): a rectangle given by two corners sets the caller's count to 5.
  // Looks wrong; callers size what they allocate next by it. Pinned by Fence.TwoCornersBecomeARing.
  const bool corners = fence != nullptr && counts != nullptr && numPolys == 1 && counts[0] == 2;
  const int total = check_definition(fence, dim, numPolys, counts, points, zLow, zHigh);
  if (total < 0) return CL_BAD_ARGUMENT;
  double ring[15];
  const int five = 5;
  if (corners) rectangle_from_corners(points, dim, ring);
  FencePolygon* built = corners ? build_fence(dim, 1, &five, ring, five, zLow, zHigh, mode)
                                : build_fence(dim, numPolys, counts, points, total, zLow, zHigh, mode);
  // KEEP(fence-no-memory): running out of memory is reported as a bad argument.
  // Looks wrong; callers know only these two results of a definition. Pinned by Fence.NoMemoryIsABadArgument.
  if (built == nullptr) return CL_BAD_ARGUMENT;
  const bool rectangular = corners || (numPolys == 1 && is_rectangle(counts[0], points, dim));
  if (corners) counts[0] = five;
  if (rectangular && mode == CL_KEEP_INSIDE) built->lineClipper = clip_line_rect;
  *fence = built;
  return CL_OK;
}

int CORVANE_PRINT_CALL CLdeleteFence(CLFenceHandle fence) {
  if (fence != nullptr && --fence->refCount < 1) release_fence(fence);
  return CL_OK;
}

int CORVANE_PRINT_CALL CLaddFenceRef(CLFenceHandle fence) {
  if (fence == nullptr) return CL_BAD_ARGUMENT;
  ++fence->refCount;
  return CL_OK;
}

int CORVANE_PRINT_CALL CLinqFenceInfo(CLFenceHandle fence, int* words) {
  if (fence == nullptr || words == nullptr) return CL_BAD_ARGUMENT;
  static_assert(sizeof(ClipExtent) == 12 * sizeof(int));
  std::memcpy(words, &fence->extent, sizeof(ClipExtent));
  words[12] = fence->mode;
  words[13] = fence->lineClipper == clip_line_rect ? 1 : 0;
  return CL_OK;
}

int CORVANE_PRINT_CALL CLextractPolygons(CLFenceHandle fence, int* numPolys, int* counts, double* points,
                                         int* numPoints) {
  if (!extraction_has_arguments(fence, numPolys, counts, points, numPoints)) return CL_BAD_ARGUMENT;
  ExtractRoom polygons(*numPolys);
  ExtractRoom room(*numPoints);
  for (const FencePolygon* p = fence; p != nullptr; p = p->nextPoly) {
    int* count = polygons.take() ? counts++ : nullptr;
    if (count != nullptr) *count = 0;
    extract_ring(*p, fence->dim, count, points, room);
  }
  *numPolys = polygons.report();
  *numPoints = room.report();
  return polygons.was_enough() && room.was_enough() ? CL_OK : CL_TOO_SMALL;
}
