// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Links of the plain form as the drivers see them. What they say is tested with links, verdict and emit.
#include "clip/record_links.h"

#include "tests/clip/engine.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

// The subject crosses the first and the third fence polygon, and the second lies elsewhere.
void expect_answers(clip::Form form) {
  const Rings rings = {rectangle(0, 0, 10, 10), rectangle(100, 0, 110, 10), rectangle(20, 0, 30, 10)};
  const Fence fence(rings, CL_KEEP_OUTSIDE);
  clip::Subject subject(form);
  FencePolygon& ring = build(subject, fence, {{5, 5}, {5, 6}, {25, 6}, {25, 5}});
  ClipExtent limit = ring.extent;
  clip::RecordLinks links(ring, limit);
  int number = 0;
  for (FencePolygon* f = fence.handle(); f != nullptr; f = f->nextPoly) links.link_with(*f, number++);
  links.finish();
  EXPECT_EQ(links.count(), 4);
  EXPECT_FALSE(links.contested());
  FencePolygon &first = *fence.handle(), &second = *first.nextPoly, &third = *second.nextPoly;
  EXPECT_EQ(links.mark_crossings(first, 0), 2);
  EXPECT_EQ(links.mark_crossings(second, 1), 0);
  EXPECT_EQ(links.mark_crossings(third, 2), 2);
  EXPECT_FALSE(links.subject_lies_inside(second, 1));
  EXPECT_FALSE(links.fence_lies_inside(second, 1));
  PieceList sink;
  links.emit_pieces(first, 100, sink);
  ASSERT_EQ(sink.pieces.size(), 1u);
  EXPECT_EQ(from_least_point(sink.pieces[0]), (Ring{{10, 5}, {10, 6}, {20, 6}, {20, 5}}));
}

TEST(RecordLinks, TheyAnswerForEachFencePolygon) {
  expect_answers(clip::Form::kPlain);
}

TEST(RecordLinks, AnIndexedSubjectGetsItsRecords) {
  expect_answers(clip::Form::kIndexed);
}

}  // namespace
}  // namespace Corvane::Print::tests
