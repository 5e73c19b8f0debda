// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The driver: a subject goes through building (subject), linking (links), the inside test (contain) and
// emission (emit). A fence that keeps its inside is worked through polygon by polygon, each for itself; one
// that keeps its outside is worked through with all its polygons linked at once, so that every piece and
// every hole is written once.
//
// State: the working fields of the fence's headers and vertices, reset before each use.
#include "clip/polygon_clip.h"

#include "clip/contain.h"
#include "clip/emit.h"
#include "clip/links.h"
#include "clip/output_room.h"
#include "clip/ring.h"
#include "clip/subject.h"

#include <limits>
#include <new>

namespace Corvane::Print::clip {
namespace {

// A call without room learns a first size to allocate.
bool lacks_room(const double* points, const int* num_pieces, const int* counts, const double* out,
                const int* num_out) {
  return points == nullptr || counts == nullptr || out == nullptr || *num_pieces < 1 || *num_out < 1;
}

int suggest_room(int num_points, int* num_pieces, int* num_out) {
  constexpr int kMost = std::numeric_limits<int>::max();
  if (*num_pieces <= 0) *num_pieces = num_points;
  if (*num_out <= 0) *num_out = num_points > kMost / 2 ? kMost : 2 * num_points;
  return CL_TOO_SMALL;
}

bool sticks_out(const ClipExtent& extent, const FenceVertex& v) {
  return v.x < extent.xmin || v.x > extent.xmax || v.y < extent.ymin || v.y > extent.ymax;
}

// Where the walk around the subject starts: at a vertex outside the fence polygon's extent where there is
// one, else at one that is not linked, so that the walk starts away from the fence's edge.
FenceVertex* walk_start(const FencePolygon& subject, const FencePolygon& fence) {
  const bool inside_extent = within_xy(subject.extent, fence.extent);
  FenceVertex* v = subject.first;
  do {
    if (inside_extent ? v->partner == nullptr : sticks_out(fence.extent, *v)) return v;
    v = v->next;
  } while (v != subject.first);
  return v;
}

// Whether one ring lies inside another that it does not cross. Links tell where there are any; a ring whose
// edges all run along the other's is the same ring and counts as inside.
bool lies_inside(FencePolygon& ring, std::span<FenceVertex* const> linked, FencePolygon& other,
                 bool other_clockwise) {
  const Side side = side_of_ring(linked, other.first, other_clockwise);
  if (side != Side::kUnknown) return side != Side::kOutside;
  return is_inside(*ring.first, ring.extent, other);
}

bool subject_lies_inside(FencePolygon& subject, std::span<FenceVertex* const> linked, FencePolygon& fence) {
  const bool inside = lies_inside(subject, linked, fence, fence.mode != CL_KEEP_OUTSIDE);
  store_verdict(subject, inside, fence.mode);
  return inside;
}

bool fence_lies_inside(FencePolygon& fence, FencePolygon& subject) {
  subject.mode = CL_KEEP_INSIDE;
  const VertexList linked = linked_vertices(fence);
  const bool inside = lies_inside(fence, linked, subject, true);
  store_verdict(fence, inside, subject.mode);
  return inside;
}

// The links of one fence polygon within a list ordered by fence polygon.
std::span<FenceVertex* const> links_with(const VertexList& linked, int number, std::size_t& from) {
  const std::size_t begin = from;
  while (from < linked.size() && linked_fence(*linked[from]) == number) ++from;
  return {linked.data() + begin, from - begin};
}

// One subject polygon against one fence.
class PolygonClip {
public:
  PolygonClip(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, OutputRoom& room)
      : fence_(fence), subject_(subject), limit_(limit), room_(room) {}

  void keep_inside() {
    for (FencePolygon* f = &fence_; f != nullptr; f = f->nextPoly) {
      f->overlap = overlap_xy(f->extent, subject_.extent) ? kOverlapping : kApart;
      if (f->overlap != kApart) keep_inside_of(*f);
    }
  }

  void keep_outside() {
    RingLinker linker(subject_, limit_);
    reset_ring(subject_);
    int number = 0;
    for (FencePolygon* f = &fence_; f != nullptr; f = f->nextPoly, ++number) {
      f->overlap = overlap_xy(f->extent, subject_.extent) ? kOverlapping : kApart;
      if (f->overlap == kApart) continue;
      reset_ring(*f);
      linker.link_with(*f, number);
    }
    linker.finish();
    emit_outside(linker.links());
  }

private:
  void keep_inside_of(FencePolygon& f) {
    RingLinker linker(subject_, limit_);
    reset_ring(subject_);
    reset_ring(f);
    linker.link_with(f, 0);
    linker.finish();
    const VertexList linked = linked_vertices(subject_);
    if (mark_crossings(linked, f) > 0) {
      subject_.start = walk_start(subject_, f);
      return emit_pieces(subject_, most_steps(linker.links()), room_);
    }
    if (subject_lies_inside(subject_, linked, f)) {
      f.overlap = kSubjectInside;
      emit_ring(subject_, room_);
    } else if (fence_lies_inside(f, subject_)) {
      f.overlap = kFenceInside;
      emit_ring(f, room_);
    }
  }

  // Nothing remains of a subject inside any one of the fence's polygons.
  void emit_outside(int links) {
    const VertexList linked = linked_vertices_by_fence(subject_);
    std::size_t from = 0;
    int crossings = 0, number = 0;
    for (FencePolygon* f = &fence_; f != nullptr; f = f->nextPoly, ++number) {
      if (f->overlap == kApart) continue;
      const auto with_f = links_with(linked, number, from);
      const int crossings_with_f = mark_crossings(with_f, *f);
      crossings += crossings_with_f;
      if (crossings_with_f > 0) continue;
      if (subject_lies_inside(subject_, with_f, *f)) {
        f->overlap = kSubjectInside;
        return;
      }
      if (fence_lies_inside(*f, subject_)) f->overlap = kFenceInside;
    }
    if (crossings > 0) {
      subject_.start = walk_start(subject_, fence_);
      emit_pieces(subject_, most_steps(links), room_);
    } else {
      emit_ring(subject_, room_);
    }
    for (FencePolygon* f = &fence_; f != nullptr; f = f->nextPoly) {
      if (f->overlap == kFenceInside) emit_ring(*f, room_);
    }
  }

  // Each vertex is passed once by a walk that closes; a link adds at most one to either ring.
  long long most_steps(int links) const {
    return static_cast<long long>(fence_.totalPoints) + subject_.vertexCount + 2LL * links;
  }

  FencePolygon& fence_;
  FencePolygon& subject_;
  ClipExtent& limit_;
  OutputRoom& room_;
};

bool left_the_subject(const OutputRoom& room, const ClipExtent& limit) {
  return room.xmin() < limit.xmin || room.xmax() > limit.xmax || room.ymin() < limit.ymin ||
         room.ymax() > limit.ymax;
}

}  // namespace

int clip_polygon(FencePolygon* fence, int dim, int num_points, const double* points, int* num_pieces,
                 int* counts, double* out, int* num_out) try {
  if (num_pieces == nullptr || num_out == nullptr || num_points < 0) return CL_BAD_ARGUMENT;
  if (lacks_room(points, num_pieces, counts, out, num_out)) {
    return suggest_room(num_points, num_pieces, num_out);
  }
  if (fence == nullptr || (dim != 2 && dim != 3) || num_points == 0) return CL_BAD_ARGUMENT;
  OutputRoom room(dim, *num_pieces, counts, out, *num_out);
  Subject subject;
  subject.build(*fence, dim, num_points, points);
  // What was inserted by snapping to the fence belongs to the subject's extent: its edges lead there.
  ClipExtent limit = empty_extent();
  for (FencePolygon* polygon : subject) include_extent(limit, polygon->extent);
  for (FencePolygon* polygon : subject) {
    PolygonClip clip(*fence, *polygon, limit, room);
    fence->mode == CL_KEEP_OUTSIDE ? clip.keep_outside() : clip.keep_inside();
  }
  const int status = room.finish_polygons(num_pieces, num_out);
  if (status != CL_OK || subject.empty()) return status;
  return left_the_subject(room, limit) ? CL_INCONSISTENT : CL_OK;
} catch (const std::bad_alloc&) {
  return CL_NO_MEMORY;
}

}  // namespace Corvane::Print::clip
