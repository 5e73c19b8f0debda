// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The links between a subject ring and the fence rings that it meets, in rings of records: finding and
// inserting them, and then telling crossings from mere touches.
#ifndef CORVANE_PRINT_CLIP_LINKS_H
#define CORVANE_PRINT_CLIP_LINKS_H

#include "clip/meeting.h"
#include "clip/records.h"
#include "clip/sides.h"
#include "platform/capi_memory.h"

#include <algorithm>
#include <span>

namespace Corvane::Print::clip {

// Bits of FenceVertex::marker2 during a polygon clip. Above them stands the number of the fence polygon that
// the vertex is linked with, counted from 0 in the fence's order.
enum LinkMarker { kCrossing = 1, kEntry = 2, kVisited = 4, kFenceShift = 3 };

using VertexList = platform::CapiVector<FenceVertex*>;

// Links one subject ring with any number of fence rings, and takes the links off the fence again when it
// goes. The subject must have been reset. Throws std::bad_alloc.
class RingLinker {
public:
  // `limit` grows with every linked vertex: snapping may leave one a hair outside the subject.
  RingLinker(FencePolygon& subject, ClipExtent& limit) : subject_(subject), limit_(limit) {}
  ~RingLinker() { release_fence_rings(); }
  RingLinker(const RingLinker&) = delete;
  RingLinker& operator=(const RingLinker&) = delete;

  // Finds where the subject meets this fence polygon and puts the new vertices into the fence's ring, which
  // must be free of links.
  void link_with(FencePolygon& fence, int number);

  // Puts the new vertices into the subject's ring; once, after the last fence polygon.
  void finish();

  // Linked pairs of vertices.
  int links() const { return links_; }

  // Whether two fence polygons meet the subject at one place; known after finish().
  bool contested() const { return contested_; }

  // Leaves the fence's rings as they were, at the cost of the links alone: a small subject does not pay for a
  // large fence.
  void release_fence_rings();

private:
  void connect(const Meeting& m, FenceVertex& e, FenceVertex& f, int number);
  void pair(FenceVertex& on_fence, FenceVertex& on_subject, int number);

  FencePolygon& subject_;
  ClipExtent& limit_;
  VertexList new_on_subject_;
  VertexList new_on_fence_;
  VertexList changed_on_fence_;  // original vertices that are linked, or with a new one on their edge
  int links_ = 0;
  bool contested_ = false;
};

// The vertices of a ring that are linked, in the order of the ring as it is walked, or (by_fence) first by
// the number of the fence polygon and then in that order.
VertexList linked_vertices(FencePolygon& ring);
VertexList linked_vertices_by_fence(FencePolygon& ring);

inline int linked_fence(const FenceVertex& v) {
  return v.marker2 >> kFenceShift;
}

// What the links of one ring to another say: `linked` are vertices of the one, in order, all linked with the
// other.
// The side of the other ring on which the one lies, where it does not cross it: unknown without links, along
// when the rings are the same.
Side side_of_ring(std::span<FenceVertex* const> linked, const FencePolygon& other, bool other_clockwise);

// Calls mark(i, entering) for those of a subject's links, in their order, where it crosses a fence polygon of
// this mode, entering its kept side or leaving it. sides[i]: that of the part from link i to the next.
// Returns how many there are.
template <class Mark>
int for_each_crossing(std::span<const Side> sides, int mode, Mark&& mark) {
  const std::size_t n = sides.size();
  const Side kept = mode == CL_KEEP_OUTSIDE ? Side::kOutside : Side::kInside;
  const auto last = std::find_if(sides.rbegin(), sides.rend(), [](Side s) { return s != Side::kAlong; });
  if (last == sides.rend()) return 0;
  std::size_t before = static_cast<std::size_t>(sides.rend() - last) - 1;  // the last decided part
  int crossings = 0;
  for (std::size_t i = 0; i < n; ++i) {
    if (sides[i] == Side::kAlong) continue;
    if (sides[i] != sides[before]) {
      const bool entering = sides[i] == kept;
      mark(entering ? i : (before + 1) % n, entering);
      ++crossings;
    }
    before = i;
  }
  return crossings;
}

// Marks the crossings among the links of the subject with one fence polygon, on both rings, and those of them
// where the subject enters the kept side. Returns how many there are.
int mark_crossings(std::span<FenceVertex* const> linked, const FencePolygon& fence);

}  // namespace Corvane::Print::clip

#endif
