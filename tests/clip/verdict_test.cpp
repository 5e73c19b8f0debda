// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Which ring lies inside which, with and without links, and where a walk starts.
#include "clip/verdict.h"

#include "tests/clip/linking.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

struct Verdicts {
  bool subject_inside, fence_inside;
  int subject_status, fence_status, subject_mode;
};

Verdicts verdicts(const Ring& fence_ring, const Ring& subject, int mode) {
  const Fence fence({fence_ring}, mode);
  Linking l(fence, subject);
  Verdicts v{};
  v.subject_inside = clip::subject_lies_inside(l.ring, l.linked, l.fence);
  v.subject_status = l.ring.containment;
  v.fence_inside = clip::fence_lies_inside(l.fence, l.linked, l.ring);
  v.fence_status = l.fence.containment;
  v.subject_mode = l.ring.mode;
  return v;
}

void expect_verdicts(const Ring& fence, const Ring& subject, bool subject_inside, bool fence_inside) {
  for (std::size_t first = 0; first < subject.size(); ++first) {
    for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
      const Verdicts v = verdicts(fence, rotated(subject, first), mode);
      EXPECT_EQ(v.subject_inside, subject_inside) << text_of(subject) << mode;
      EXPECT_EQ(v.fence_inside, fence_inside) << text_of(subject) << mode;
    }
  }
}

TEST(Verdict, WithoutLinksTheRayDecides) {
  expect_verdicts(kSquare, {{3, 3}, {3, 5}, {5, 3}}, true, false);
  expect_verdicts(kSquare, {{13, 3}, {13, 5}, {15, 3}}, false, false);
  expect_verdicts(kSquare, {{-3, -3}, {-3, 50}, {50, -3}}, false, true);
  // Within the extent and yet outside.
  expect_verdicts({{0, 0}, {0, 10}, {10, 10}}, {{8, 1}, {8, 3}, {9, 3}}, false, false);
}

TEST(Verdict, IdenticalRingsCountAsInside) {
  for (std::size_t first = 0; first < 4; ++first) {
    expect_verdicts(rotated(kSquare, first), kSquare, true, true);
    expect_verdicts(rotated(kSquare, first), reversed(kSquare), true, true);
  }
  expect_verdicts(kSquare, {{0, 0}, {0, 4}, {0, 10}, {10, 10}, {10, 0}}, true, true);
}

TEST(Verdict, TouchingRingsAreDecidedByTheirLinks) {
  expect_verdicts(kSquare, {{0, 5}, {5, 8}, {5, 2}}, true, false);
  expect_verdicts(kSquare, {{0, 0}, {0, 10}, {10, 10}}, true, false);  // every vertex is linked
  expect_verdicts(kSquare, {{0, 5}, {-5, 2}, {-5, 8}}, false, false);
  expect_verdicts(kSquare, {{0, 0}, {0, 10}, {-5, 10}, {-5, 0}}, false, false);
  expect_verdicts(kSquare, {{0, -3}, {0, 20}, {20, 20}, {20, -3}}, false, true);
}

// Every vertex of the subject is a vertex of the fence, yet it lies outside: in the fence's notch.
TEST(Verdict, ASubjectWithEveryVertexPartneredIsDecidedByItsEdges) {
  const Ring notched = {{0, 0}, {0, 10}, {5, 5}, {10, 10}, {10, 0}};
  expect_verdicts(notched, {{0, 10}, {10, 10}, {5, 5}}, false, false);
  expect_verdicts(notched, {{0, 0}, {0, 10}, {5, 5}}, true, false);
  expect_verdicts(notched, {{0, 0}, {0, 10}, {10, 10}, {10, 0}}, false, true);
}

TEST(Verdict, TheVerdictIsStoredAsTheOthersModeWordsIt) {
  const Ring inner = {{3, 3}, {3, 5}, {5, 3}}, outer = {{-3, -3}, {-3, 50}, {50, -3}};
  EXPECT_EQ(verdicts(kSquare, inner, CL_KEEP_INSIDE).subject_status, 2);
  EXPECT_EQ(verdicts(kSquare, inner, CL_KEEP_OUTSIDE).subject_status, 1);
  EXPECT_EQ(verdicts(kSquare, outer, CL_KEEP_INSIDE).subject_status, 1);
  EXPECT_EQ(verdicts(kSquare, outer, CL_KEEP_OUTSIDE).subject_status, 2);
  // The other way round the subject's mode is set to 2, whatever the fence's is.
  EXPECT_EQ(verdicts(kSquare, outer, CL_KEEP_OUTSIDE).subject_mode, CL_KEEP_INSIDE);
  EXPECT_EQ(verdicts(kSquare, outer, CL_KEEP_OUTSIDE).fence_status, 2);
  EXPECT_EQ(verdicts(kSquare, inner, CL_KEEP_OUTSIDE).fence_status, 1);
}

TEST(Verdict, AWalkStartsAtAVertexOutsideTheFencesExtent) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, {{5, 5}, {5, 15}, {8, 15}, {8, 5}});
  EXPECT_EQ(clip::walk_start(l.ring, l.fence), l.at(5, 15));
}

TEST(Verdict, AWalkWithinTheExtentStartsAtTheFirstVertexWithoutAPartner) {
  const Fence fence({{{0, 0}, {0, 10}, {10, 10}, {5, 5}, {10, 0}}}, CL_KEEP_INSIDE);
  Linking l(fence, {{0, 5}, {2, 6}, {9, 6}, {9, 4}, {2, 4}});
  EXPECT_EQ(clip::walk_start(l.ring, l.fence), l.at(2, 6));
}

TEST(Verdict, AWalkStartsAtTheFirstVertexWhereAllHavePartners) {
  const Fence fence({{{0, 0}, {0, 10}, {5, 5}, {10, 10}, {10, 0}}}, CL_KEEP_INSIDE);
  Linking l(fence, {{10, 10}, {10, 0}, {0, 0}, {0, 10}});
  EXPECT_EQ(clip::walk_start(l.ring, l.fence), l.at(10, 10));
}

}  // namespace
}  // namespace Corvane::Print::tests
