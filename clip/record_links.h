// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Links in the plain form: vertices in rings of records, found by comparing all edges.
#ifndef CORVANE_PRINT_CLIP_RECORD_LINKS_H
#define CORVANE_PRINT_CLIP_RECORD_LINKS_H

#include "clip/links.h"
#include "clip/polygon_links.h"

namespace Corvane::Print::clip {

class RecordLinks final : public PolygonLinks {
public:
  // Gives an indexed subject its records, for a fence that memory for an index was short for.
  RecordLinks(FencePolygon& subject, ClipExtent& limit);

  void link_with(FencePolygon& fence, int number) override;
  void finish() override;
  int count() const override;
  bool contested() const override;
  int mark_crossings(FencePolygon& fence, int number) override;
  bool subject_lies_inside(FencePolygon& fence, int number) override;
  bool fence_lies_inside(FencePolygon& fence, int number) override;
  void emit_pieces(const FencePolygon& fence, long long most_steps, PieceSink& sink) override;

private:
  std::span<FenceVertex* const> links_with(int number) const;

  FencePolygon& subject_;
  RingLinker linker_;
  VertexList linked_;  // by fence polygon
};

}  // namespace Corvane::Print::clip

#endif
