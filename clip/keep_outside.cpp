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
#include "clip/ring.h"
#include "clip/simple_loops.h"
#include "clip/subject.h"
#include "clip/with_links.h"

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

// Tells which polygons overlap the subject's extent, and whether the indexed form can link them all with it.
bool find_overlapping(const FenceRange& fence, FencePolygon& subject) {
  bool indexed = index_of(subject) != nullptr;
  for (FencePolygon* f = fence.first; f != fence.end; f = f->nextPoly) {
    f->overlap = overlap_xy(f->extent, subject.extent) ? kOverlapping : kApart;
    if (f->overlap != kApart) indexed = indexed && both_indexed(subject, *f);
  }
  return indexed;
}

// Marks all crossings and gives every fence polygon its overlap state. Returns the number of crossings.
int mark_all(const FenceRange& fence, PolygonLinks& links) {
  int crossings = 0;
  for_each_overlapping(fence, [&](FencePolygon& f, int number) {
    const int crossings_with_f = links.mark_crossings(f, number);
    crossings += crossings_with_f;
    if (crossings_with_f > 0) return;
    if (links.subject_lies_inside(f, number)) {
      f.overlap = kSubjectInside;
    } else if (links.fence_lies_inside(f, number)) {
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
void emit_outlines(const FenceRange& fence, FencePolygon& subject, PolygonLinks& links, PieceSink& sink) {
  const int crossings = mark_all(fence, links);
  if (one_holds_the_subject(fence)) return;
  if (crossings == 0) return emit_ring(subject, sink);
  links.emit_pieces(*fence.first, fence.total_points + subject.vertexCount + 2LL * links.count(), sink);
}

// False when two fence polygons meet the subject at one place: then nothing was written.
bool take_off_at_once(const FenceRange& fence, FencePolygon& subject, ClipExtent& limit,
                      PieceSink& outlines) {
  const bool indexed = find_overlapping(fence, subject);
  return with_links(indexed, subject, limit, [&](PolygonLinks& links) {
    for_each_overlapping(fence, [&](FencePolygon& f, int number) { links.link_with(f, number); });
    links.finish();
    if (links.contested()) return false;
    emit_outlines(fence, subject, links, outlines);
    return true;
  });
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
      take_off_at_once({f, f->nextPoly, fence.total_points}, *polygon, limit, next);
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
  if (!take_off_at_once(all, subject, limit, sink)) return take_off_in_turn(all, subject, limit, sink);
  if (!one_holds_the_subject(all)) emit_holes(all, sink);
}

}  // namespace Corvane::Print::clip
