// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "clip/record_links.h"

#include "clip/emit.h"
#include "clip/ring.h"
#include "clip/subject_index.h"
#include "clip/verdict.h"

#include <algorithm>

namespace Corvane::Print::clip {

RecordLinks::RecordLinks(FencePolygon& subject, ClipExtent& limit)
    : subject_(subject), linker_(subject, limit) {
  if (index_of(subject) != nullptr) make_records(subject);
  reset_ring(subject);
}

void RecordLinks::link_with(FencePolygon& fence, int number) {
  linker_.link_with(fence, number);
}

void RecordLinks::finish() {
  linker_.finish();
  linked_ = linked_vertices_by_fence(subject_);
}

int RecordLinks::count() const {
  return linker_.links();
}

bool RecordLinks::contested() const {
  return linker_.contested();
}

std::span<FenceVertex* const> RecordLinks::links_with(int number) const {
  const auto before = [](const FenceVertex* v, int n) { return linked_fence(*v) < n; };
  const auto begin = std::lower_bound(linked_.begin(), linked_.end(), number, before);
  const auto end = std::lower_bound(begin, linked_.end(), number + 1, before);
  return {begin, end};
}

int RecordLinks::mark_crossings(FencePolygon& fence, int number) {
  return clip::mark_crossings(links_with(number), fence);
}

bool RecordLinks::subject_lies_inside(FencePolygon& fence, int number) {
  return clip::subject_lies_inside(subject_, links_with(number), fence);
}

bool RecordLinks::fence_lies_inside(FencePolygon& fence, int number) {
  return clip::fence_lies_inside(fence, links_with(number), subject_);
}

void RecordLinks::emit_pieces(const FencePolygon& fence, long long most_steps, PieceSink& sink) {
  subject_.start = walk_start(subject_, fence);
  clip::emit_pieces(subject_, most_steps, sink);
}

}  // namespace Corvane::Print::clip
