// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Writing rings and walking pieces: what is written, where a piece starts, and that the walk ends.
#include "clip/emit.h"

#include "tests/clip/linking.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};
// Clockwise, crosses the square's upper side at x = 5 and x = 8.
const Ring kUpright = {{5, 5}, {5, 15}, {8, 15}, {8, 5}};
// Comes below the upper side twice.
const Ring kTwoTeeth = {{1, 12}, {20, 12}, {8, 8}, {6, 11}, {3, 8}};
constexpr long long kEnough = 1000;

PieceList pieces_of(Linking& l, FenceVertex* start, long long most_steps = kEnough) {
  l.crossings();
  l.ring.start = start;
  PieceList sink;
  clip::emit_pieces(l.ring, most_steps, sink);
  EXPECT_EQ(static_cast<std::size_t>(sink.ended), sink.pieces.size());
  return sink;
}

TEST(Emit, ARingIsWrittenAsItWasGivenWithoutWhatWasInserted) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, kUpright);
  PieceList sink;
  clip::emit_ring(l.ring, sink);
  clip::emit_ring(l.fence, sink);
  ASSERT_EQ(sink.pieces.size(), 2u);
  EXPECT_EQ(sink.pieces[0], kUpright);
  EXPECT_EQ(sink.pieces[1], kSquare);
  EXPECT_EQ(sink.ended, 2);
}

TEST(Emit, APieceStartsWhereTheSubjectEntersAndIsOpen) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, kUpright);
  const PieceList sink = pieces_of(l, l.at(5, 5));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{8, 10}, {8, 5}, {5, 5}, {5, 10}};
  EXPECT_EQ(sink.pieces[0], expected);
}

TEST(Emit, WithTheFenceCounterClockwiseTheSameWalkYieldsThePartOutside) {
  const Fence fence({kSquare}, CL_KEEP_OUTSIDE);
  Linking l(fence, kUpright);
  const PieceList sink = pieces_of(l, l.at(5, 5));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{5, 10}, {5, 15}, {8, 15}, {8, 10}};
  EXPECT_EQ(sink.pieces[0], expected);
}

TEST(Emit, PiecesComeInTheOrderInWhichTheWalkFromTheStartVertexEntersThem) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const auto walk_from = [&](double x, double y) {
    Linking l(fence, kTwoTeeth);
    return pieces_of(l, l.at(x, y));
  };
  const PieceList from_start = walk_from(1, 12), from_between = walk_from(6, 11);
  ASSERT_EQ(from_start.pieces.size(), 2u);
  ASSERT_EQ(from_between.pieces.size(), 2u);
  EXPECT_EQ(from_start.pieces[0], from_between.pieces[1]);
  EXPECT_EQ(from_start.pieces[1], from_between.pieces[0]);
}

TEST(Emit, EveryPieceIsWrittenOnce) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, kTwoTeeth);
  const PieceList once = pieces_of(l, l.at(1, 12));
  EXPECT_EQ(once.pieces.size(), 2u);
  // The crossings are visited now: a second walk finds no entry any more.
  PieceList sink;
  clip::emit_pieces(l.ring, kEnough, sink);
  EXPECT_TRUE(sink.pieces.empty());
}

TEST(Emit, AMereTouchIsNoPointOfThePiece) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  // Leaves through the upper side; its vertex (0, 5) touches the left one, the corner (10, 0) touches an
  // edge.
  Linking l(fence, {{0, 5}, {5, 8}, {5, 15}, {8, 15}, {8, 5}});
  const PieceList sink = pieces_of(l, l.at(5, 15));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{8, 10}, {8, 5}, {0, 5}, {5, 8}, {5, 10}};
  EXPECT_EQ(sink.pieces[0], expected);
  EXPECT_TRUE(sink.touches.empty());  // the touch is a corner of the subject
}

TEST(Emit, AVertexInsertedForATouchIsReportedApart) {
  const Ring notched = {{0, 0}, {0, 10}, {10, 10}, {10, 0}, {6, 5}};
  const Fence fence({notched}, CL_KEEP_INSIDE);
  Linking l(fence, {{2, 5}, {2, 15}, {8, 15}, {8, 5}});  // the lower edge touches the notch's tip (6, 5)
  const PieceList sink = pieces_of(l, l.at(2, 15));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{8, 10}, {8, 5}, {2, 5}, {2, 10}};
  EXPECT_EQ(sink.pieces[0], expected);
  const Ring touches = {{6, 5}};
  EXPECT_EQ(sink.touches, touches);
}

TEST(Emit, AtLinkedPlacesTheSubjectsPointAndZAreWritten) {
  const Fence fence({{{0, 0, 77}, {0, 10, 77}, {10, 10, 77}, {10, 0, 77}}}, CL_KEEP_INSIDE, {3, -100, 100});
  // Enters through the right side, leaves through the upper one: the fence's corner lies between.
  Linking l(fence, {{5, 5, 1}, {5, 15, 3}, {15, 15, 5}, {15, 5, 7}}, 3);
  const PieceList sink = pieces_of(l, l.at(15, 15));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{10, 5, 4}, {5, 5, 1}, {5, 10, 2}, {10, 10, 77}};
  EXPECT_EQ(sink.pieces[0], expected);
}

TEST(Emit, WhereTwoVerticesAreLinkedTheSubjectsCoordinatesAreWritten) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, {{5, 5}, {5, 8}, {10.000003, 10.000002}, {20, 10.5}, {20, 5}});
  const PieceList sink = pieces_of(l, l.at(20, 5));
  ASSERT_EQ(sink.pieces.size(), 1u);
  const Ring expected = {{10, 5}, {5, 5}, {5, 8}, {10.000003, 10.000002}};
  EXPECT_EQ(sink.pieces[0], expected);
}

// A loop that no linking would make: the walk never comes back to its start.
TEST(Emit, TheGuardBoundEndsAWalkThatDoesNotComeBack) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  for (const long long bound : {1LL, 7LL, 100LL}) {
    Linking l(fence, kUpright);
    FenceVertex trap = {};
    trap.next2 = &trap;
    l.at(5, 10)->partner->next2 = &trap;
    const PieceList sink = pieces_of(l, l.at(5, 5), bound);
    ASSERT_EQ(sink.pieces.size(), 1u);
    EXPECT_EQ(static_cast<long long>(sink.pieces[0].size()), bound);
  }
}

TEST(Emit, TheBoundIsReducedByThePointsOfEachPieceAlreadyWritten) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  const auto walk = [&](long long most_steps) {
    Linking l(fence, kTwoTeeth);
    return pieces_of(l, l.at(1, 12), most_steps);
  };
  const PieceList all = walk(kEnough);
  ASSERT_EQ(all.pieces.size(), 2u);
  const auto first = static_cast<long long>(all.pieces[0].size() + all.touches.size());
  EXPECT_EQ(walk(first).pieces.size(), 1u);
  const PieceList cut = walk(first + 1);
  ASSERT_EQ(cut.pieces.size(), 2u);
  EXPECT_EQ(cut.pieces[1].size(), 1u);
}

TEST(Emit, WithoutStepsNothingIsWritten) {
  const Fence fence({kSquare}, CL_KEEP_INSIDE);
  Linking l(fence, kUpright);
  EXPECT_TRUE(pieces_of(l, l.at(5, 5), 0).pieces.empty());
}

}  // namespace
}  // namespace Corvane::Print::tests
