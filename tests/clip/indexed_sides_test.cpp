// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the links of the indexed form tell: crossings and verdicts.
#include "tests/clip/indexed_linking.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

int crossings(const Ring& fence_ring, const Ring& subject) {
  const Fence fence({fence_ring}, CL_KEEP_INSIDE);
  IndexedLinking l(fence, subject);
  return l.links.mark_crossings(l.fence, 0);
}

std::string verdicts(const Ring& fence_ring, const Ring& subject, int mode = CL_KEEP_INSIDE) {
  const Fence fence({fence_ring}, mode);
  IndexedLinking l(fence, subject);
  std::string text = l.links.subject_lies_inside(l.fence, 0) ? "subject inside, " : "subject outside, ";
  text += l.links.fence_lies_inside(l.fence, 0) ? "fence inside" : "fence outside";
  return text + ' ' + std::to_string(l.ring.containment) + std::to_string(l.fence.containment);
}

TEST(IndexedSides, AWayThroughIsTwoCrossings) {
  EXPECT_EQ(crossings(kSquare, {{5, 5}, {5, 15}, {8, 15}, {8, 5}}), 2);
  EXPECT_EQ(crossings(kSquare, {{-5, -5}, {15, 15}, {15, -5}}), 2);
  EXPECT_EQ(crossings(kSquare, {{0, -5}, {0, 15}, {5, 15}, {5, -5}}), 2);  // enters along an edge
}

TEST(IndexedSides, ATouchIsNone) {
  EXPECT_EQ(crossings(kSquare, {{0, 5}, {5, 8}, {5, 2}}), 0);
  EXPECT_EQ(crossings(kSquare, {{10, 10}, {15, 15}, {15, 9}}), 0);
  EXPECT_EQ(crossings(kSquare, {{0, 2}, {0, 8}, {5, 8}, {5, 2}}), 0);  // along a part of an edge
  EXPECT_EQ(crossings(kSquare, kSquare), 0);
}

// The subject meets the notch's two corners within the tolerance only, seemingly on two sides.
TEST(IndexedSides, WhereTheEndsOfAPartDisagreeAPointBetweenDecides) {
  const Ring bent = {{0, 0}, {0, 10}, {10, 10.000004}, {20, 10}, {20, 0}};
  const Ring subject = {{0, 10}, {20, 10.000004}, {20, 5}, {0, 5}};
  EXPECT_EQ(verdicts(bent, subject).substr(0, 14), "subject inside");
}

TEST(IndexedSides, TouchingRingsAreDecidedByTheirLinks) {
  EXPECT_EQ(verdicts(kSquare, {{0, 5}, {5, 8}, {5, 2}}), "subject inside, fence outside 21");
  EXPECT_EQ(verdicts(kSquare, {{0, 5}, {-5, 2}, {-5, 8}}), "subject outside, fence outside 11");
  EXPECT_EQ(verdicts(kSquare, {{0, -3}, {0, 20}, {20, 20}, {20, -3}}), "subject outside, fence inside 12");
  EXPECT_EQ(verdicts(kSquare, kSquare), "subject inside, fence inside 22");
}

TEST(IndexedSides, WithoutLinksTheRayDecides) {
  EXPECT_EQ(verdicts(kSquare, {{3, 3}, {3, 5}, {5, 3}}), "subject inside, fence outside 21");
  EXPECT_EQ(verdicts(kSquare, {{13, 3}, {13, 5}, {15, 3}}), "subject outside, fence outside 11");
  EXPECT_EQ(verdicts(kSquare, {{-3, -3}, {-3, 50}, {50, -3}}), "subject outside, fence inside 12");
  EXPECT_EQ(verdicts(kSquare, {{-3, -3}, {-3, 50}, {50, -3}}, CL_KEEP_OUTSIDE),
            "subject outside, fence inside 22");
}

// The ray is cast over the subject's records, whose edges lead through the places of the other links.
TEST(IndexedSides, AFencePolygonWithoutLinksIsJudgedBesideOneWithLinks) {
  const Fence fence({rectangle(40, -5, 60, 5), rectangle(10, 10, 20, 20)}, CL_KEEP_OUTSIDE);
  IndexedLinking l(fence, {{0, 0}, {0, 50}, {100, 50}, {100, 0}});
  EXPECT_EQ(l.links.mark_crossings(l.fence, 0), 2);
  EXPECT_FALSE(l.links.subject_lies_inside(*l.fence.nextPoly, 1));
  EXPECT_TRUE(clip::index_of(l.ring)->records.empty());
  EXPECT_TRUE(l.links.fence_lies_inside(*l.fence.nextPoly, 1));
  const FenceVertex* first = l.ring.first;
  ASSERT_NE(first, nullptr);
  int led_through = 0;
  clip::for_each_vertex(first, [&](const FenceVertex& v) { led_through += v.next2 != v.next ? 1 : 0; });
  EXPECT_EQ(led_through, 1);  // both links are on one edge
}

TEST(IndexedSides, RecordsAreLedPastTheLinksWhenTheyGo) {
  const InForm indexed(clip::Form::kIndexed);
  const Fence fence({rectangle(40, -5, 60, 5), rectangle(10, 10, 20, 20)}, CL_KEEP_OUTSIDE);
  clip::Subject subject(clip::Form::kIndexed);
  FencePolygon& ring = build(subject, fence, {{0, 0}, {0, 50}, {100, 50}, {100, 0}});
  ClipExtent limit = ring.extent;
  FencePolygon &first = *fence.handle(), &second = *first.nextPoly;
  ASSERT_TRUE(clip::fence_index(first) != nullptr && clip::fence_index(second) != nullptr);
  {
    clip::IndexedLinks links(ring, limit);
    links.link_with(first, 0);
    links.link_with(second, 1);
    links.finish();
    EXPECT_TRUE(links.fence_lies_inside(second, 1));
  }
  clip::for_each_vertex(ring.first, [](const FenceVertex& v) { EXPECT_EQ(v.next2, v.next); });
}

}  // namespace
}  // namespace Corvane::Print::tests
