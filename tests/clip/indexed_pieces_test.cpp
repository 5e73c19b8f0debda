// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Pieces of the indexed form: what is written, where a walk starts, and that it ends.
#include "tests/clip/indexed_linking.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
// Clockwise, crosses the square's upper side at x = 5 and x = 8.
const Ring kUpright = {{5, 5}, {5, 15}, {8, 15}, {8, 5}};
// Comes below the upper side twice.
const Ring kTwoTeeth = {{1, 12}, {20, 12}, {8, 8}, {6, 11}, {3, 8}};

PieceList pieces_of(const Ring& fence_ring, const Ring& subject, int mode = CL_KEEP_INSIDE,
                    long long most_steps = 1000) {
  const Fence fence({fence_ring}, mode);
  IndexedLinking l(fence, subject);
  l.links.mark_crossings(l.fence, 0);
  return l.pieces(most_steps);
}

TEST(IndexedPieces, APieceStartsWhereTheSubjectEntersAndIsOpen) {
  const PieceList inside = pieces_of(kSquare, kUpright);
  const PieceList outside = pieces_of(kSquare, kUpright, CL_KEEP_OUTSIDE);
  ASSERT_EQ(inside.pieces.size(), 1u);
  ASSERT_EQ(outside.pieces.size(), 1u);
  EXPECT_EQ(inside.pieces[0], (Ring{{8, 10}, {8, 5}, {5, 5}, {5, 10}}));
  EXPECT_EQ(outside.pieces[0], (Ring{{5, 10}, {5, 15}, {8, 15}, {8, 10}}));
}

TEST(IndexedPieces, PointsOfBothRingsRunOverTheirFirst) {
  // The lower left corner is cut off; either ring's first vertex lies in the middle of a run.
  const PieceList cut = pieces_of({{5, 0}, {0, 0}, {0, 5}, {0, 10}, {10, 10}, {10, 0}},
                                  {{-5, 0}, {-5, 5}, {5, 5}, {5, -5}, {0, -5}, {-5, -5}});
  ASSERT_EQ(cut.pieces.size(), 1u);
  EXPECT_EQ(cut.pieces[0], (Ring{{0, 5}, {5, 5}, {5, 0}, {0, 0}}));
}

TEST(IndexedPieces, APieceThatTouchesTheFenceReportsWhatIsNoCornerApart) {
  const Ring notched = {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {6, 5}};
  const PieceList sink = pieces_of(notched, {{2, 5}, {2, 15}, {8, 15}, {8, 5}});  // touches the tip (6, 5)
  ASSERT_EQ(sink.pieces.size(), 1u);
  EXPECT_EQ(sink.pieces[0], (Ring{{8, 10}, {8, 5}, {2, 5}, {2, 10}}));
  EXPECT_EQ(sink.touches, (Ring{{6, 5}}));
}

TEST(IndexedPieces, AtLinkedPlacesTheSubjectsPointAndZAreWritten) {
  const Fence fence({{{0, 0, 77}, {0, 10, 77}, {10, 10, 77}, {10, 0, 77}}}, CL_KEEP_INSIDE, {3, -100, 100});
  IndexedLinking l(fence, {{5, 5, 1}, {5, 15, 3}, {15, 15, 5}, {15, 5, 7}}, 3);
  l.links.mark_crossings(l.fence, 0);
  const PieceList sink = l.pieces();
  ASSERT_EQ(sink.pieces.size(), 1u);
  EXPECT_EQ(sink.pieces[0], (Ring{{10, 5, 4}, {5, 5, 1}, {5, 10, 2}, {10, 10, 77}}));
}

TEST(IndexedPieces, AWalkStartsOutsideTheFencesExtent) {
  const PieceList sink = pieces_of(kSquare, kTwoTeeth);  // (1, 12) and (20, 12) are outside
  ASSERT_EQ(sink.pieces.size(), 2u);
  EXPECT_EQ(sink.pieces[0].size(), 4u);  // with the fence's corner
  EXPECT_EQ(sink.pieces[0][1], (Point{8, 8}));
  EXPECT_EQ(sink.pieces[1][1], (Point{3, 8}));
}

TEST(IndexedPieces, EveryPieceIsWrittenOnce) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  IndexedLinking l(fence, kTwoTeeth);
  l.links.mark_crossings(l.fence, 0);
  EXPECT_EQ(l.pieces().pieces.size(), 2u);
  EXPECT_TRUE(l.pieces().pieces.empty());
}

TEST(IndexedPieces, TheBoundCountsThePointsOfAllPieces) {
  for (long long bound = 0; bound <= 6; ++bound) {
    const PieceList sink = pieces_of(kSquare, kTwoTeeth, CL_KEEP_INSIDE, bound);
    std::size_t points = 0;
    for (const Ring& piece : sink.pieces) points += piece.size();
    EXPECT_EQ(static_cast<long long>(points), bound);
    EXPECT_EQ(sink.pieces.size(), bound == 0 ? 0u : bound <= 4 ? 1u : 2u);
  }
}

TEST(IndexedPieces, WithoutCrossingsThereAreNone) {
  EXPECT_TRUE(pieces_of(kSquare, {{0, 5}, {5, 8}, {5, 2}}).pieces.empty());
}

}  // namespace
}  // namespace Corvane::Print::tests
