// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The links between one subject and the fence polygons that it meets, as the drivers work with them. A link
// is a place that both rings pass. The plain form keeps links as vertices in rings of records (record_links),
// the indexed form as rows of small entries beside the rings' points (indexed_links).
//
//   link_with, for each fence polygon    finish    the questions and the writing, in the order given here
#ifndef CORVANE_PRINT_CLIP_POLYGON_LINKS_H
#define CORVANE_PRINT_CLIP_POLYGON_LINKS_H

#include "clip/piece_sink.h"
#include "clip/records.h"

namespace Corvane::Print::clip {

class PolygonLinks {
public:
  // Finds where the subject meets this fence polygon. `number` counts the fence's polygons and ascends.
  // Throws std::bad_alloc, as all that follow do.
  virtual void link_with(FencePolygon& fence, int number) = 0;

  // Puts the links in order; once, after the last fence polygon.
  virtual void finish() = 0;

  virtual int count() const = 0;

  // Whether two fence polygons meet the subject at one place.
  virtual bool contested() const = 0;

  // Marks the crossings among the links with one fence polygon, and those of them where the subject enters
  // the kept side. Returns how many there are.
  virtual int mark_crossings(FencePolygon& fence, int number) = 0;

  // Which ring lies inside which where they do not cross. The verdict is also stored on the ring it is about.
  virtual bool subject_lies_inside(FencePolygon& fence, int number) = 0;
  virtual bool fence_lies_inside(FencePolygon& fence, int number) = 0;

  // The pieces of the subject once its crossings are marked, in the order in which a walk around it enters
  // them. The walk starts outside the extent of `fence` where it can. `most_steps` bounds the points of all
  // pieces together, so that no input can make the walk go round for ever.
  virtual void emit_pieces(const FencePolygon& fence, long long most_steps, PieceSink& sink) = 0;

protected:
  ~PolygonLinks() = default;
};

}  // namespace Corvane::Print::clip

#endif
