// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Growing of polygons and rectangles by a distance. Every edge moves along its outward normal; every vertex
// goes to where its two moved edges meet. No state between calls.
//
// Invariants
//  - a polygon is copied into the work ring before any of its output is written, and the output position
//    never runs ahead of the input position: so the output may be the input array itself.
#include "corvane/print/cl.h"

#include "clip/grow_ring.h"
#include "platform/capi_memory.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <span>

namespace Corvane::Print::clip {
namespace {

constexpr std::size_t kRingDoubles = 3;    // doubles of a work ring's point, whatever the dimension
constexpr std::size_t kStackPoints = 256;  // a ring up to this size needs no heap

struct Vec {
  double x, y;
};

// The storage of a work ring: n points with the first one's predecessor before and the last one's successor
// behind them. Null when memory ran out.
class WorkRing {
public:
  explicit WorkRing(std::size_t points) {
    if (points > kStackPoints) {
      ring_ = static_cast<double*>(platform::capi_alloc_array(points, kRingDoubles * sizeof(double)));
    }
  }
  ~WorkRing() {
    if (ring_ != local_) platform::capi_free(ring_);
  }
  WorkRing(const WorkRing&) = delete;
  WorkRing& operator=(const WorkRing&) = delete;

  double* data() { return ring_; }

private:
  double local_[kStackPoints * kRingDoubles];
  double* ring_ = local_;
};

std::size_t points_of(int count) {
  return count > 0 ? static_cast<std::size_t>(count) : 0;
}

// The points of all entries together, or SIZE_MAX when an array of them cannot exist in the address space.
std::size_t total_points(std::size_t dim, std::span<const int> counts) {
  const std::uint64_t most = std::numeric_limits<std::size_t>::max() / (dim * sizeof(double));
  std::uint64_t total = 0;
  for (const int count : counts) total += points_of(count);
  return total > most ? std::numeric_limits<std::size_t>::max() : static_cast<std::size_t>(total);
}

int check_args(int dim, int entries, const int* counts, const double* points, const double* out) {
  if (dim != 2 && dim != 3) return CL_BAD_ARGUMENT;
  if (counts == nullptr) return CL_BAD_ARGUMENT;
  const std::size_t total = total_points(static_cast<std::size_t>(dim), {counts, points_of(entries)});
  if (total == std::numeric_limits<std::size_t>::max()) return CL_BAD_ARGUMENT;
  if (total != 0 && (points == nullptr || out == nullptr)) return CL_BAD_ARGUMENT;
  return CL_OK;
}

void copy_point(const double* from, std::size_t dim, double* to) {
  std::memcpy(to, from, dim * sizeof(double));
}

void grow_rectangle(std::size_t dim, const double* corners, double distance, double* out) {
  const Vec a = {corners[0], corners[1]}, b = {corners[dim], corners[dim + 1]};
  if (dim == 3) {
    out[2] = corners[2];
    out[5] = corners[5];
  }
  out[0] = std::min(a.x, b.x) - distance;
  out[1] = std::min(a.y, b.y) - distance;
  out[dim] = std::max(a.x, b.x) + distance;
  out[dim + 1] = std::max(a.y, b.y) + distance;
}

// Puts the n points between copies of their neighbours. Of a closed ring the repeated point is passed over. A
// single point equals itself but has no neighbours to pass over to: it is its own.
void fill_ring(std::size_t dim, std::size_t n, const double* points, double* ring) {
  std::memcpy(ring + dim, points, n * dim * sizeof(double));
  const double* first = ring + dim;
  const double* last = ring + n * dim;
  const bool closed = n > 1 && last[0] == first[0] && last[1] == first[1];
  copy_point(closed ? last - dim : last, dim, ring);
  copy_point(closed ? first + dim : first, dim, ring + (n + 1) * dim);
}

void grow_entries(std::size_t dim, std::span<const int> counts, const double* points, double distance,
                  double* ring, double* out) {
  for (const int count : counts) {
    const std::size_t n = points_of(count);
    if (n == 2) {
      // KEEP(grow-rectangle-stays): the output position stays where it is.
      // Looks wrong, the next entry is written over the rectangle; callers pass rectangles alone or last and
      // read the other entries without a gap. Pinned by Grow.TheNextEntryIsWrittenOverARectangle.
      grow_rectangle(dim, points, distance, out);
    } else if (n != 0) {
      fill_ring(dim, n, points, ring);
      grow_ring(dim, n, ring, distance, out);
      out += n * dim;
    }
    points += n * dim;
  }
}

int grow_polygons(int dim, std::span<const int> counts, const double* points, double distance, double* out) {
  WorkRing ring(points_of(*std::max_element(counts.begin(), counts.end())) + 2);
  if (ring.data() == nullptr) return CL_NO_MEMORY;
  grow_entries(static_cast<std::size_t>(dim), counts, points, distance, ring.data(), out);
  return CL_OK;
}

}  // namespace
}  // namespace Corvane::Print::clip

int CORVANE_PRINT_CALL CLGrowPolygons(int dim, int nPolys, int* counts, double* pts, double distance,
                                      double* out) {
  using namespace Corvane::Print::clip;
  if (nPolys < 1) return CL_OK;
  if (const int status = check_args(dim, nPolys, counts, pts, out); status != CL_OK) return status;
  return grow_polygons(dim, {counts, points_of(nPolys)}, pts, distance, out);
}
