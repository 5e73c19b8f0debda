// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Links: where they are inserted, what they carry, and which of them are crossings.
#include "clip/links.h"

#include "platform/capi_memory.h"
#include "tests/clip/bits.h"
#include "tests/clip/linking.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <new>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

Fence inside_of(const Ring& ring) {
  return Fence({ring}, CL_KEEP_INSIDE);
}

int crossings(const Ring& fence, const Ring& subject, int mode) {
  const Fence f({fence}, mode);
  Linking l(f, subject);
  return l.crossings();
}

// A touch is none in either mode, and whatever is linked.
void expect_crossings(const Ring& fence, const Ring& subject, int expected) {
  for (std::size_t first = 0; first < subject.size(); ++first) {
    EXPECT_EQ(crossings(fence, rotated(subject, first), CL_KEEP_INSIDE), expected)
        << text_of(subject) << first;
    EXPECT_EQ(crossings(fence, rotated(subject, first), CL_KEEP_OUTSIDE), expected)
        << text_of(subject) << first;
  }
}

TEST(Links, ACrossingOfTwoInteriorsIsInsertedIntoBothRings) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{5, 5}, {5, 15}, {8, 15}, {8, 5}});
  ASSERT_EQ(l.linker.links(), 2);
  FenceVertex* v = l.at(5, 10);
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(v->marker, clip::kInserted);
  EXPECT_EQ(v->prev, l.at(5, 5));
  EXPECT_EQ(v->next, l.at(5, 15));
  EXPECT_EQ(v->next2, l.at(5, 15));
  EXPECT_EQ(l.at(5, 5)->next2, v);
  EXPECT_EQ(l.at(5, 5)->next, l.at(5, 15));  // the ring as it was given stays
  EXPECT_EQ(v->partner, vertex_at(l.fence, 5, 10));
  EXPECT_EQ(v->partner->partner, v);
  EXPECT_EQ(v->partner->marker, clip::kInserted);
  EXPECT_EQ(v->w, 1.0);
}

TEST(Links, ACrossingIsComputedFromTheSubjectsEdge) {
  const Fence fence = inside_of({{-50, -50}, {-47, 61}, {55, 57}, {61, -43}});
  const Ring subject = {{0.1, 0.3}, {7.7, 100.3}, {9.1, 0.7}};
  Linking l(fence, subject);
  ASSERT_EQ(l.linker.links(), 2);
  for (const FenceVertex* v : l.linked) {
    EXPECT_TRUE(same_bits(v->x, v->prev->x + v->param * v->prev->dx));
    EXPECT_TRUE(same_bits(v->y, v->prev->y + v->param * v->prev->dy));
    EXPECT_TRUE(same_bits(v->partner->x, v->x) && same_bits(v->partner->y, v->y));
  }
}

TEST(Links, AFenceVertexWithinTheToleranceIsUsedAndNoVertexStandsBesideIt) {
  const Fence fence = inside_of(kSquare);
  // The subject's edge passes the corner (10, 10) by less than the tolerance.
  Linking l(fence, {{5, 15.000004}, {15.000004, 5}, {20, 20}});
  ASSERT_EQ(l.linker.links(), 1);
  EXPECT_EQ(points_of(l.fence.first).size(), walked_points_of(l.fence.first).size());
  FenceVertex* v = l.at(10, 10);  // the fence's coordinates, exactly
  ASSERT_NE(v, nullptr);
  EXPECT_EQ(v->marker, clip::kInserted);
  EXPECT_EQ(v->partner->marker, clip::kOriginal);
}

TEST(Links, ASubjectVertexOnAFenceEdgeIsPutIntoThatEdge) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{0, 4}, {5, 8}, {5, 1}});
  ASSERT_EQ(l.linker.links(), 1);
  EXPECT_EQ(l.at(0, 4)->marker, clip::kOriginal);
  EXPECT_EQ(l.at(0, 4)->partner->marker, clip::kInserted);
  EXPECT_EQ(l.at(0, 4)->partner->param, 0.4);
  EXPECT_EQ(points_of(l.ring.first).size(), walked_points_of(l.ring.first).size());
}

TEST(Links, SharedVerticesBecomePartnersOnce) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{0, 0}, {0, 10}, {10, 10}, {10, 0}});
  EXPECT_EQ(l.linker.links(), 4);
  EXPECT_EQ(l.linked.size(), 4u);
  for (const FenceVertex* v : l.linked) {
    EXPECT_EQ(v->marker, clip::kOriginal);
    EXPECT_EQ(v->partner->marker, clip::kOriginal);
    EXPECT_EQ(v->partner->partner, v);
    EXPECT_EQ(v->partner->x, v->x);
  }
}

TEST(Links, APartneredVertexThatMeetsAFurtherEdgeIsLeftAsItIs) {
  // Three subject edges end at or pass the fence's corner (0, 0); the first to be found has it.
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{-5, 0.000001}, {0, 0}, {5, -5}, {-5, 5}});
  int with_corner = 0;
  for (const FenceVertex* v : l.linked) with_corner += v->partner == l.fence.first ? 1 : 0;
  EXPECT_EQ(with_corner, 1);
  EXPECT_EQ(l.fence.first->partner->partner, l.fence.first);
  for (const FenceVertex* v : l.linked) EXPECT_EQ(v->partner->partner, v);
}

TEST(Links, InsertedVerticesAreOrderedAlongTheirEdge) {
  const Ring comb = {{0, 0}, {1, 10}, {2, 0}, {3, 10}, {4, 0}, {5, 10}, {6, 0}, {6, -2}, {0, -2}};
  const Fence fence = inside_of(comb);
  Linking l(fence, {{-5, 5}, {-5, 6}, {15, 6}, {15, 5}});
  double at = -6;
  for (const FenceVertex* v = l.at(-5, 6)->next2; v != l.at(15, 6); v = v->next2) {
    EXPECT_LT(at, v->x);
    at = v->x;
    EXPECT_EQ(v->y, 6);
  }
  double param = -1;
  const FenceVertex* back = l.at(15, 5);
  for (const FenceVertex* v = back->next2; v != l.at(-5, 5); v = v->next2) {
    EXPECT_LT(param, v->param);
    param = v->param;
  }
  EXPECT_EQ(l.linker.links(), 12);
}

// Two polygons of a fence meet the subject's edge at one place: the order is that of the fence's polygons.
TEST(Links, EqualParametersStayInTheOrderOfInsertion) {
  const Fence fence({{{0, 0}, {0, 10}, {5, 10}, {5, 0}}, {{5, 0}, {5, 10}, {9, 10}, {9, 0}}},
                    CL_KEEP_OUTSIDE);
  for (const Ring& subject : {Ring{{3, 3}, {3, 4}, {7, 4}, {7, 3}}, Ring{{7, 3}, {7, 4}, {3, 4}, {3, 3}}}) {
    Linking l(fence, subject);
    ASSERT_EQ(l.linked.size(), 4u);
    for (std::size_t i = 0; i < 4; i += 2) {
      EXPECT_EQ(l.linked[i]->x, 5);
      EXPECT_EQ(l.linked[i]->param, l.linked[i + 1]->param);
      EXPECT_EQ(clip::linked_fence(*l.linked[i]), 0);
      EXPECT_EQ(clip::linked_fence(*l.linked[i + 1]), 1);
    }
    EXPECT_TRUE(l.linker.contested());
  }
}

TEST(Links, FencePolygonsThatMeetTheSubjectElsewhereAreNotContested) {
  const Fence fence({{{0, 0}, {0, 10}, {4, 10}, {4, 0}}, {{5, 0}, {5, 10}, {9, 10}, {9, 0}}},
                    CL_KEEP_OUTSIDE);
  Linking l(fence, {{3, 3}, {3, 4}, {7, 4}, {7, 3}});
  EXPECT_EQ(l.linked.size(), 4u);
  EXPECT_FALSE(l.linker.contested());
  const clip::VertexList by_fence = clip::linked_vertices_by_fence(l.ring);
  ASSERT_EQ(by_fence.size(), 4u);
  EXPECT_EQ(clip::linked_fence(*by_fence[0]), 0);
  EXPECT_EQ(clip::linked_fence(*by_fence[1]), 0);
  EXPECT_EQ(clip::linked_fence(*by_fence[2]), 1);
  EXPECT_EQ(clip::linked_fence(*by_fence[3]), 1);
}

// A gap narrower than the snapping distance is none.
TEST(Links, FencePolygonsThatMeetTheSubjectWithinTheToleranceAreContested) {
  const auto contested = [](double gap) {
    const Ring left = {{0, 0}, {0, 10}, {5, 10}, {5, 0}};
    const Ring right = {{5 + gap, 0}, {5 + gap, 10}, {9, 10}, {9, 0}};
    const Fence fence({left, right}, CL_KEEP_OUTSIDE);
    Linking l(fence, {{3, 3}, {3, 4}, {7, 4}, {7, 3}});
    return l.linker.contested();
  };
  EXPECT_TRUE(contested(0.9e-5));
  EXPECT_FALSE(contested(1.1e-5));
}

TEST(Links, ASubjectVertexSharedByTwoFencePolygonsIsContested) {
  const Fence fence({{{0, 0}, {0, 10}, {5, 10}, {5, 0}}, {{5, 0}, {5, 10}, {9, 10}, {9, 0}}},
                    CL_KEEP_OUTSIDE);
  Linking l(fence, {{5, 5}, {3, 20}, {7, 20}});
  EXPECT_TRUE(l.linker.contested());
}

TEST(Links, ACrossingCarriesTheSubjectsInterpolatedZ) {
  const Fence fence({{{0, 0, 7}, {0, 10, 7}, {10, 10, 7}, {10, 0, 7}}}, CL_KEEP_INSIDE, {3, -100, 100});
  Linking l(fence, {{5, 5, 10}, {5, 15, 30}, {8, 15, 0}, {8, 5, 40}}, 3);
  EXPECT_EQ(l.at(5, 10)->z, 20);
  EXPECT_EQ(l.at(8, 10)->z, 20);
  EXPECT_EQ(l.at(5, 10)->partner->z, 20);
}

TEST(Links, AtAFenceVertexTheSubjectsOwnZIsKept) {
  const Fence fence({{{0, 0, 7}, {0, 10, 7}, {10, 10, 7}, {10, 0, 7}}}, CL_KEEP_INSIDE, {3, -100, 100});
  Linking l(fence, {{5, 15, 10}, {15, 5, 30}, {20, 20, 0}}, 3);
  ASSERT_NE(l.at(10, 10), nullptr);
  EXPECT_EQ(l.at(10, 10)->z, 20);
  EXPECT_EQ(l.at(10, 10)->partner->z, 7);  // the fence's own vertex is not touched
}

TEST(Links, TheLimitGrowsByLinkedVerticesOutsideTheSubject) {
  const Fence fence = inside_of({{0, 0}, {0, 10}, {10, 5}});
  Linking l(fence, {{2, 0}, {2, 20}, {9.999996, 20}, {9.999996, 0}});
  EXPECT_EQ(l.ring.extent.xmax, 9.999996);
  EXPECT_EQ(l.limit.xmax, 10);  // the fence's corner that the right edge snapped to
}

TEST(Links, ARingWithoutMeetingsHasNoLinks) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{3, 3}, {3, 5}, {5, 5}, {5, 3}});
  EXPECT_EQ(l.linker.links(), 0);
  EXPECT_TRUE(l.linked.empty());
  EXPECT_EQ(l.crossings(), 0);
  EXPECT_EQ(clip::side_of_ring(l.linked, l.fence, true), clip::Side::kUnknown);
}

TEST(Links, EntriesAreMarkedWhereTheSubjectComesOntoTheKeptSide) {
  const Ring subject = {{5, 5}, {5, 15}, {8, 15}, {8, 5}};  // clockwise: leaves at x 5, comes back at x 8
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence fence({kSquare}, mode);
    Linking l(fence, subject);
    EXPECT_EQ(l.crossings(), 2);
    const bool inside = mode == CL_KEEP_INSIDE;
    EXPECT_EQ((l.at(8, 10)->marker2 & clip::kEntry) != 0, inside);
    EXPECT_EQ((l.at(5, 10)->marker2 & clip::kEntry) != 0, !inside);
    for (const FenceVertex* v : l.linked) {
      EXPECT_TRUE((v->marker2 & clip::kCrossing) && (v->partner->marker2 & clip::kCrossing));
      EXPECT_FALSE(v->partner->marker2 & clip::kEntry);
    }
  }
}

TEST(Links, AVertexThatTouchesAnEdgeFromInsideOrOutsideIsNoCrossing) {
  expect_crossings(kSquare, {{0, 5}, {5, 8}, {5, 2}}, 0);
  expect_crossings(kSquare, {{0, 5}, {-5, 2}, {-5, 8}}, 0);
  expect_crossings(kSquare, {{10, 10}, {15, 15}, {15, 9}}, 0);
  expect_crossings(kSquare, {{10, 10}, {5, 8}, {8, 5}}, 0);
  expect_crossings(kSquare, {{0, 10}, {-5, 5}, {-5, 20}, {20, 20}}, 0);
}

TEST(Links, AnEdgeThatTouchesAVertexIsNoCrossing) {
  expect_crossings({{0, 0}, {5, 5}, {10, 0}}, {{0, 5}, {0, 10}, {10, 10}, {10, 5}}, 0);
  expect_crossings({{0, 0}, {0, 20}, {20, 20}, {20, 0}, {10, 10}}, {{5, 10}, {5, 15}, {15, 15}, {15, 10}}, 0);
}

TEST(Links, AnEdgeThroughAVertexIsOneCrossing) {
  // In through the middle of the left side, out through the corner.
  expect_crossings(kSquare, {{-5, 5}, {5, 25}, {25, 25}, {25, 0.5}, {14, 14}, {-5, -5}}, 2);
  expect_crossings(kSquare, {{-5, -5}, {15, 15}, {15, -5}}, 2);
  expect_crossings(kSquare, {{-5, -5}, {-5, 15}, {15, 15}}, 2);
}

TEST(Links, AVertexOnAnEdgeOrVertexIsOneCrossingWhereTheNeighboursLieOnDifferentSides) {
  expect_crossings(kSquare, {{0, 5}, {5, 7}, {5, 15}, {-5, 15}}, 2);
  expect_crossings(kSquare, {{10, 10}, {20, 10}, {20, 4}, {5, 4}}, 2);
}

TEST(Links, SharedEdgesInEitherDirectionAreNoCrossingOfTheirOwn) {
  expect_crossings(kSquare, {{0, 0}, {0, 10}, {-5, 10}, {-5, 0}}, 0);          // neighbours
  expect_crossings(kSquare, {{0, 2}, {0, 8}, {5, 8}, {5, 2}}, 0);              // inside, along a part
  expect_crossings(kSquare, {{0, -5}, {0, 15}, {-5, 15}, {-5, -5}}, 0);        // longer than the fence's
  expect_crossings(kSquare, {{0, -5}, {0, 15}, {5, 15}, {5, -5}}, 2);          // enters along the edge
  expect_crossings(kSquare, {{0, 0}, {0, 10}, {10, 10}, {10, 0}}, 0);          // the same ring
  expect_crossings(kSquare, {{0, 0}, {0, 5}, {0, 10}, {10, 10}, {10, 0}}, 0);  // with a vertex more
}

TEST(Links, AChainOfSharedEdgesCrossesOnceWhenItsEndsLieOnDifferentSides) {
  const Ring stairs = {{0, 0}, {0, 30}, {10, 30}, {10, 20}, {20, 20}, {20, 10}, {30, 10}, {30, 0}};
  // Comes from outside, runs along three edges of the stairs, leaves into the inside, and crosses out below.
  expect_crossings(stairs, {{10, 35}, {10, 20}, {20, 20}, {20, 5}, {5, 5}, {5, -5}, {40, -5}, {40, 35}}, 2);
  // The same chain left on the outside again touches only.
  expect_crossings(stairs, {{10, 35}, {10, 20}, {20, 20}, {20, 10}, {25, 15}, {25, 35}}, 0);
  // Comes from inside and goes back inside.
  expect_crossings(stairs, {{5, 5}, {5, 25}, {10, 30}, {10, 20}, {20, 20}, {20, 5}}, 0);
}

TEST(Links, CrossingsPlacedAtAChainFollowTheFenceWhereItBoundsTheKeptPart) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{0, -5}, {0, 15}, {5, 15}, {5, -5}});  // up along the left side, down through the middle
  ASSERT_EQ(l.crossings(), 2);
  EXPECT_TRUE(l.at(5, 10)->marker2 & clip::kEntry);
  EXPECT_TRUE(l.at(5, 0)->marker2 & clip::kCrossing);
  EXPECT_FALSE(l.at(0, 0)->marker2 & clip::kCrossing);
  EXPECT_FALSE(l.at(0, 10)->marker2 & clip::kCrossing);
}

// Comes from inside, runs up along the left side and leaves: the crossing is where the chain starts.
TEST(Links, ACrossingOutOfTheKeptSideCountsWhereItsChainStarts) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{5, 5}, {0, 3}, {0, 7}, {-5, 8}, {-5, 20}, {5, 20}});
  ASSERT_EQ(l.crossings(), 2);
  EXPECT_TRUE(l.at(0, 3)->marker2 & clip::kCrossing);
  EXPECT_FALSE(l.at(0, 3)->marker2 & clip::kEntry);
  EXPECT_FALSE(l.at(0, 7)->marker2 & clip::kCrossing);
  EXPECT_TRUE(l.at(5, 10)->marker2 & clip::kEntry);
}

TEST(Links, ARingThatRunsAlongTheOtherEverywhereLiesAlong) {
  const Fence fence = inside_of(kSquare);
  Linking l(fence, {{0, 0}, {0, 10}, {10, 10}, {10, 0}});
  EXPECT_EQ(clip::side_of_ring(l.linked, l.fence, true), clip::Side::kAlong);
}

TEST(Links, TouchingRingsTellTheirSide) {
  const auto side = [](int mode, const Ring& subject) {
    const Fence fence({kSquare}, mode);
    Linking l(fence, subject);
    return clip::side_of_ring(l.linked, l.fence, mode == CL_KEEP_INSIDE);
  };
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    EXPECT_EQ(side(mode, {{0, 5}, {5, 8}, {5, 2}}), clip::Side::kInside);
    EXPECT_EQ(side(mode, {{0, 0}, {0, 10}, {-5, 10}, {-5, 0}}), clip::Side::kOutside);
  }
}

TEST(Links, LackOfMemoryIsThrown) {
  const Fence fence = inside_of(kSquare);
  clip::Subject subject;
  FencePolygon& ring = build(subject, fence, {{5, 5}, {5, 15}, {8, 15}, {8, 5}});
  clip::reset_ring(ring);
  clip::reset_ring(*fence.handle());
  ClipExtent limit = ring.extent;
  clip::RingLinker linker(ring, limit);
  platform::capi_fail_after(0);
  EXPECT_THROW(linker.link_with(*fence.handle(), 0), std::bad_alloc);
  platform::capi_fail_after(-1);
  clip::reset_ring(*fence.handle());
}

}  // namespace
}  // namespace Corvane::Print::tests
