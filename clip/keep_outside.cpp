// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// All polygons of the fence are linked with the subject at once, so that each piece is walked once. That
// needs places of its own for every fence polygon: where two of them meet the subject at one place, because
// they share a corner or an edge there, the fence polygons are taken off one after the other instead.
//
// State: the working fields of the rings, reset before each use.
#include "clip/emit.h"
#include "clip/keep.h"
#include "clip/links.h"
#include "clip/ring.h"
#include "clip/simple_loops.h"
#include "clip/subject.h"
#include "clip/subject_ring.h"
#include "clip/verdict.h"

namespace Corvane::Print::clip {
namespace {

// Some consecutive polygons of a fence.
struct FenceRange {
  FencePolygon* first;
  FencePolygon* end;
  long long total_points;  // of the whole fence
};

// Calls visit(polygon, number) for those of the polygons that overlap the subject's extent.
template <class Visit>
void for_each_overlapping(const FenceRange& fence, Visit&& visit) {
  int number = 0;
  for (FencePolygon* f = fence.first; f != fence.end; f = f->nextPoly, ++number) {
    if (f->overlap != kApart) visit(*f, number);
  }
}

// False when two fence polygons meet the subject at one place.
bool link_all(const FenceRange& fence, FencePolygon& subject, RingLinker& linker) {
  for (FencePolygon* f = fence.first; f != fence.end; f = f->nextPoly) {
    f->overlap = overlap_xy(f->extent, subject.extent) ? kOverlapping : kApart;
  }
  restart_ring(subject);
  for_each_overlapping(fence, [&](FencePolygon& f, int number) { linker.link_with(f, number); });
  linker.finish();
  return !linker.contested();
}

// The links of one fence polygon within a list ordered by fence polygon.
std::span<FenceVertex* const> links_with(const VertexList& linked, int number, std::size_t& from) {
  const std::size_t begin = from;
  while (from < linked.size() && linked_fence(*linked[from]) == number) ++from;
  return {linked.data() + begin, from - begin};
}

// Marks all crossings and gives every fence polygon its overlap state. Returns the number of crossings.
int mark_all(const FenceRange& fence, FencePolygon& subject) {
  const VertexList linked = linked_vertices_by_fence(subject);
  std::size_t from = 0;
  int crossings = 0;
  for_each_overlapping(fence, [&](FencePolygon& f, int number) {
    const auto with_f = links_with(linked, number, from);
    const int crossings_with_f = mark_crossings(with_f, subject, f);
    crossings += crossings_with_f;
    if (crossings_with_f > 0) return;
    if (subject_lies_inside(subject, with_f, f)) {
      f.overlap = kSubjectInside;
    } else if (fence_lies_inside(f, with_f, subject)) {
      f.overlap = kFenceInside;
    }
  });
  return crossings;
}

bool one_holds_the_subject(const FenceRange& fence) {
  bool holds = false;
  for_each_overlapping(fence, [&](FencePolygon& f, int) { holds = holds || f.overlap == kSubjectInside; });
  return holds;
}

void emit_holes(const FenceRange& fence, PieceSink& sink) {
  for_each_overlapping(fence, [&](FencePolygon& f, int) {
    if (f.overlap == kFenceInside) emit_ring(f, sink);
  });
}

// The subject's outlines outside the range, without holes.
void emit_outlines(const FenceRange& fence, FencePolygon& subject, int links, PieceSink& sink) {
  const int crossings = mark_all(fence, subject);
  if (one_holds_the_subject(fence)) return;
  if (crossings == 0) return emit_ring(subject, sink);
  subject.start = walk_start(subject, *fence.first);
  emit_pieces(subject, fence.total_points + subject.vertexCount + 2LL * links, sink);
}

// Collects pieces as further subjects. A piece that touches itself comes apart there: links are told from one
// another by their place, so a subject may pass each place but once.
class NextSubjects final : public PieceSink {
public:
  explicit NextSubjects(Subject& subjects) : subjects_(subjects) {}
  void begin_piece() override { ring_.clear(); }
  void point(double x, double y, double z) override { ring_.push_back({x, y, z}); }
  void touch(double x, double y, double z) override { ring_.push_back({x, y, z}); }
  void end_piece() override { subjects_.add_pieces(simple_loops(ring_)); }

private:
  Subject& subjects_;
  platform::CapiVector<LinePoint> ring_;
};

void take_off_one(FencePolygon& f, long long total_points, FencePolygon& subject, ClipExtent& limit,
                  PieceSink& outlines) {
  const FenceRange alone{&f, f.nextPoly, total_points};
  RingLinker linker(subject, limit);
  link_all(alone, subject, linker);
  emit_outlines(alone, subject, linker.links(), outlines);
}

// Takes the fence polygons off one after the other: what is left of one round is the next round's subject.
void take_off_in_turn(const FenceRange& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink) {
  Subject pieces(index_of(subject) != nullptr ? Form::kIndexed : Form::kPlain);
  platform::CapiVector<FencePolygon*> rest{&subject};
  platform::CapiVector<const FencePolygon*> holes;
  for (FencePolygon* f = fence.first; f != fence.end; f = f->nextPoly) {
    const std::size_t pieces_before = pieces.size();
    NextSubjects next(pieces);
    bool is_hole = false;
    for (FencePolygon* polygon : rest) {
      take_off_one(*f, fence.total_points, *polygon, limit, next);
      is_hole = is_hole || f->overlap == kFenceInside;
    }
    if (is_hole) holes.push_back(f);
    rest.assign(pieces.begin() + static_cast<std::ptrdiff_t>(pieces_before), pieces.end());
  }
  for (const FencePolygon* polygon : rest) emit_ring(*polygon, sink);
  for (const FencePolygon* hole : holes) emit_ring(*hole, sink);
}

}  // namespace

void keep_outside(FencePolygon& fence, FencePolygon& subject, ClipExtent& limit, PieceSink& sink) {
  const FenceRange all{&fence, nullptr, fence.totalPoints};
  RingLinker linker(subject, limit);
  if (!link_all(all, subject, linker)) {
    linker.release_fence_rings();
    return take_off_in_turn(all, subject, limit, sink);
  }
  emit_outlines(all, subject, linker.links(), sink);
  if (!one_holds_the_subject(all)) emit_holes(all, sink);
}

}  // namespace Corvane::Print::clip
