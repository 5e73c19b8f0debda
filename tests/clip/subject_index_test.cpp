// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The index that stands for a subject's ring, and the records made of it.
#include "clip/subject_index.h"

#include "tests/clip/engine.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSubject = {{1, 2}, {3, 9}, {3.0005, 9}, {8, 4}};

TEST(SubjectIndex, ASubjectHasPointsAndBoxesAndNoRecords) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  clip::Subject subject(clip::Form::kIndexed);
  const FencePolygon& ring = build(subject, fence, kSubject);
  const clip::PolygonIndex* index = clip::index_of(ring);
  ASSERT_NE(index, nullptr);
  EXPECT_EQ(ring.first, nullptr);
  EXPECT_EQ(ring.vertexCount, 3);
  EXPECT_EQ(index->count(), 3);
  EXPECT_EQ(index->edges.edges(), 3);
  EXPECT_TRUE(index->records.empty());
  EXPECT_EQ(ring.extent.xmin, 1);
  EXPECT_EQ(ring.extent.ymin, 2);
  EXPECT_EQ(ring.extent.xmax, 8);
  EXPECT_EQ(ring.extent.ymax, 9);
}

TEST(SubjectIndex, ItsRecordsAreThoseOfAPlainSubject) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  std::vector<FenceVertex> plain;
  {
    clip::Subject subject;
    clip::for_each_vertex(build(subject, fence, kSubject).first,
                          [&](const FenceVertex& v) { plain.push_back(v); });
  }
  clip::Subject subject(clip::Form::kIndexed);
  FencePolygon& ring = build(subject, fence, kSubject);
  clip::make_records(ring);
  std::size_t i = 0;
  clip::for_each_vertex(ring.first, [&](const FenceVertex& v) {
    ASSERT_LT(i, plain.size());
    EXPECT_TRUE(v.x == plain[i].x && v.y == plain[i].y && v.z == plain[i].z && v.w == 1);
    EXPECT_TRUE(v.dx == plain[i].dx && v.dy == plain[i].dy && v.tolerance == plain[i].tolerance);
    EXPECT_TRUE(v.extent.xmin == plain[i].extent.xmin && v.extent.ymax == plain[i].extent.ymax);
    EXPECT_EQ(v.next->prev, &v);
    EXPECT_EQ(v.next2, v.next);
    EXPECT_EQ(v.partner, nullptr);
    ++i;
  });
  EXPECT_EQ(i, plain.size());
  const FenceVertex* first = ring.first;
  clip::make_records(ring);
  EXPECT_EQ(ring.first, first);
}

}  // namespace
}  // namespace Corvane::Print::tests
