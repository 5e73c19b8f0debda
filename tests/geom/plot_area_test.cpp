// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The outlines that are plot areas, and the longest side of a shape under the configured tolerance.
#include <gtest/gtest.h>

#include <climits>
#include <string>

#include "corvane/print/geom.h"
#include "platform/capi_memory.h"
#include "tests/geom/longest_side.h"
#include "tests/geom/numbers.h"
#include "tests/platform/system_seam.h"
#include "tests/support/heap_watch.h"

namespace Corvane::Print::tests {
namespace {

int count_of(int dim, const Doubles& pts) {
  return static_cast<int>(pts.size()) / dim;
}

int check_rect(Doubles pts, int dim = 2) {
  return GEOMCheckRect(dim, count_of(dim, pts), pts.data());
}

int check_area(Doubles pts, int dim = 2) {
  return GEOMCheckRectangularPlotArea(dim, count_of(dim, pts), pts.data());
}

Doubles joined(Doubles a, const Doubles& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

const Doubles kCorners = {0, 0, 10, 0, 10, 5, 0, 5};
const Doubles kFirst = {0, 0};
const Doubles kElsewhere = {1, 0};

// 10 by 10.005; the first side is one of 10.
const Doubles kNearlySquare = {0, 0, 10, 0, 10, 10.005, 0, 10.005};
const Doubles kFirstSide = {0, 0, 10, 0};
const Doubles kSecondSide = {10, 0, 10, 10.005};

Doubles nearly_squares_side(std::u32string_view tolerance) {
  const ScopedVariable variable(kTolerance, tolerance);
  return longest_side(2, 4, kNearlySquare);
}

TEST(PlotArea, ARectangleIsOneWhicheverWayItIsTraced) {
  EXPECT_EQ(check_rect(kCorners), 1);
  EXPECT_EQ(check_rect({0, 0, 0, 5, 10, 5, 10, 0}), 1);
  EXPECT_EQ(check_rect({10, 5, 0, 5, 0, 0, 10, 0}), 1);
  EXPECT_EQ(check_rect({0, 0, -10, 0, -10, -5, 0, -5}), 1);
}

TEST(PlotArea, AClosedRectangleMustRepeatItsFirstPoint) {
  EXPECT_EQ(check_rect(joined(kCorners, kFirst)), 1);
  EXPECT_EQ(check_rect(joined(kCorners, {0.4, -0.4})), 1);
  EXPECT_EQ(check_rect(joined(kCorners, {1, 0})), 0);
  EXPECT_EQ(check_rect(joined(kCorners, {0, 1})), 0);
}

TEST(PlotArea, CoordinatesAreRoundedToWholeUnits) {
  EXPECT_EQ(check_rect({0, 0, 10.4, 0, 10, 5, 0, 5.3}), 1);
  EXPECT_EQ(check_rect({0, 0, 10.6, 0, 10, 5, 0, 5}), 0);
}

// Whether a point stands on the left side of a rectangle whose left side is at 0 shows what it was rounded
// to.
bool rounds_to_zero(double x) {
  return check_rect({0, 0, 10, 0, 10, 5, x, 5}) == 1;
}

TEST(PlotArea, HalvesAreRoundedAwayFromZero) {
  EXPECT_EQ(check_rect({-0.5, 0, 10, 0, 10, 5, -1, 5}), 1);
  EXPECT_EQ(check_rect({0.5, 0, 10, 0, 10, 5, 1, 5}), 1);
  EXPECT_EQ(check_rect({-0.5, 0, 10, 0, 10, 5, 0.4, 5}), 0);
  EXPECT_TRUE(rounds_to_zero(0.4));
  EXPECT_TRUE(rounds_to_zero(-0.4));
  EXPECT_TRUE(rounds_to_zero(-0.0));
  EXPECT_FALSE(rounds_to_zero(0.5));
  EXPECT_FALSE(rounds_to_zero(-0.5));
  // The sum with a half is rounded up to 1 before it is cut off.
  EXPECT_FALSE(rounds_to_zero(std::nextafter(0.5, 0.0)));
}

TEST(PlotArea, WhatNoIntegerHoldsIsTheSmallestOne) {
  const double smallest = -2147483648.0;
  EXPECT_EQ(check_rect({smallest, 0, 10, 0, 10, 5, 2147483647.5, 5}), 1);
  EXPECT_EQ(check_rect({smallest, 0, 10, 0, 10, 5, 2147483647.0, 5}), 0);
  EXPECT_EQ(check_rect({smallest, 0, 10, 0, 10, 5, -2147483648.4, 5}), 1);
  for (const double other : {-1e300, 1e300, kInfinity, -kInfinity, kNaN}) {
    EXPECT_EQ(check_rect({smallest, 0, 10, 0, 10, 5, other, 5}), 1) << other;
    EXPECT_EQ(check_rect({other, 0, 10, 0, 10, 5, other, 5}), 1) << other;
    EXPECT_EQ(check_rect({0, 0, 10, 0, 10, 5, other, 5}), 0) << other;
  }
}

TEST(PlotArea, SlantedMissingAndRepeatedEdgesMakeNoRectangle) {
  EXPECT_EQ(check_rect({0, 0, 0, 0, 10, 10, 0, 10}), 0);   // an edge without length
  EXPECT_EQ(check_rect({0, 0, 10, 1, 10, 5, 0, 5}), 0);    // a slanted one
  EXPECT_EQ(check_rect({0, 0, 5, 0, 10, 0, 10, 5}), 0);    // two level ones in a row
  EXPECT_EQ(check_rect({0, 0, 0, 5, 0, 9, 10, 9}), 0);     // two upright ones in a row
  EXPECT_EQ(check_rect({0, 0, 10, 0, 10, 5, 10, 0}), 0);   // there and back
  EXPECT_EQ(check_rect({0, 0, 0.4, 0, 0.4, 5, 0, 5}), 0);  // no width left by rounding
  EXPECT_EQ(check_rect({5, 5, 5, 5, 5, 5, 5, 5}), 0);
}

TEST(PlotArea, OnlyXAndYTakePart) {
  EXPECT_EQ(check_rect({0, 0, 1, 10, 0, 2, 10, 5, 3, 0, 5, kNaN}, 3), 1);
  EXPECT_EQ(check_area({0, 0, 1, 10, 0, 2, 10, 5, 3, 0, 5, 4, 0, 0, 99}, 3), 1);
}

TEST(PlotArea, OtherCountsAreNoRectangle) {
  Doubles pts = joined(joined(kCorners, kCorners), joined(kCorners, kCorners));
  for (const int n : {INT_MIN, -1, 0, 1, 3, 6, 8, INT_MAX}) {
    EXPECT_EQ(GEOMCheckRect(2, n, pts.data()), 0) << n;
  }
  for (const int n : {INT_MIN, -1, 0, 1, 3, 6, 7, 11, 12, INT_MAX}) {
    EXPECT_EQ(GEOMCheckRectangularPlotArea(2, n, pts.data()), 0) << n;
  }
}

TEST(PlotArea, DimensionsWithoutYAndNullPointsAreNoRectangle) {
  double flat[10] = {};
  for (const int dim : {INT_MIN, -1, 0, 1}) {
    EXPECT_EQ(GEOMCheckRect(dim, 4, flat), 0);
    EXPECT_EQ(GEOMCheckRectangularPlotArea(dim, 10, flat), 0);
  }
  EXPECT_EQ(GEOMCheckRect(2, 4, nullptr), 0);
  EXPECT_EQ(GEOMCheckRectangularPlotArea(2, 10, nullptr), 0);
}

TEST(PlotArea, AnAreaMayBeTracedOnceOrTwiceOpenOrClosed) {
  EXPECT_EQ(check_area(kCorners), 1);
  EXPECT_EQ(check_area(joined(kCorners, kFirst)), 1);
  EXPECT_EQ(check_area(joined(kCorners, kCorners)), 1);
  EXPECT_EQ(check_area(joined(joined(kCorners, kCorners), kFirst)), 1);
  EXPECT_EQ(check_area(joined(joined(kCorners, kFirst), joined(kCorners, kFirst))), 1);
}

TEST(PlotArea, AnAreaIsClosedByItsFirstPoint) {
  EXPECT_EQ(check_area(joined(kCorners, kElsewhere)), 0);
  EXPECT_EQ(check_area(joined(joined(kCorners, kCorners), kElsewhere)), 0);
  EXPECT_EQ(check_area(joined(joined(kCorners, kFirst), joined(kCorners, kElsewhere))), 0);
  EXPECT_EQ(check_area(joined(joined(kCorners, kElsewhere), joined(kCorners, kFirst))), 0);
}

TEST(PlotArea, TheSecondRoundRepeatsEveryPointOfTheFirst) {
  for (std::size_t wrong = 0; wrong < kCorners.size(); ++wrong) {
    Doubles second = kCorners;
    second[wrong] += 0.4;
    EXPECT_EQ(check_area(joined(kCorners, second)), 1);
    EXPECT_EQ(check_area(joined(joined(kCorners, kFirst), joined(second, kFirst))), 1);
    second[wrong] += 1;
    EXPECT_EQ(check_area(joined(kCorners, second)), 0);
    EXPECT_EQ(check_area(joined(joined(kCorners, second), kFirst)), 0);
    EXPECT_EQ(check_area(joined(joined(kCorners, kFirst), joined(second, kFirst))), 0);
  }
}

TEST(PlotArea, WhatIsTracedTwiceMustBeARectangle) {
  const Doubles slanted = {0, 0, 10, 1, 10, 5, 0, 5};
  EXPECT_EQ(check_area(slanted), 0);
  EXPECT_EQ(check_area(joined(slanted, slanted)), 0);
}

TEST(PlotArea, TheFirstOfSidesOfAlmostEqualLengthIsTheLongest) {
  EXPECT_EQ(longest_side(2, 4, kNearlySquare), kFirstSide);
  EXPECT_EQ(longest_side(2, 4, {0, 0, 10, 0, 10, 10.02, 0, 10.02}), (Doubles{10, 0, 10, 10.02}));
  EXPECT_EQ(longest_side(2, 4, {0, 0, 10, 0, 10, 10, 0, 10}), kFirstSide);
}

TEST(PlotArea, TheLastSideLeadsBackToTheFirstPoint) {
  EXPECT_EQ(longest_side(2, 3, {0, 0, 1, 0, 5, 9}), (Doubles{5, 9, 0, 0}));
}

TEST(PlotArea, SidesInSpaceAreMeasuredInSpace) {
  EXPECT_EQ(longest_side(3, 3, {0, 0, 0, 4, 0, 0, 4, 3, 100}), (Doubles{4, 0, 0, 4, 3, 100}));
  // On the plane the first side is the longest.
  EXPECT_EQ(longest_side(2, 3, {0, 0, 5, 0, 4, 3}), (Doubles{0, 0, 5, 0}));
}

// The tolerance is exceeded, not reached: 0.5 is a ratio of 0.5 here.
TEST(PlotArea, ASideLongerByTheToleranceItselfIsNotLonger) {
  const ScopedVariable variable(kTolerance, U"0.5");
  EXPECT_EQ(longest_side(2, 4, {0, 0, 8, 0, 8, 12, 0, 12}), (Doubles{0, 0, 8, 0}));
  EXPECT_EQ(longest_side(2, 4, {0, 0, 8, 0, 8, 12.001, 0, 12.001}), (Doubles{8, 0, 8, 12.001}));
}

// Sides of 100, 108 and 115: the last is longer than the one before by less than the tolerance, but longer
// than the longest so far, which is the first, by more.
TEST(PlotArea, SidesAreComparedWithTheLongestSoFar) {
  const ScopedVariable variable(kTolerance, U"0.1");
  EXPECT_EQ(longest_side(2, 3, {0, 0, 100, 0, 57.805, 99.416}), (Doubles{57.805, 99.416, 0, 0}));
}

TEST(PlotArea, TheLengthToleranceIsARatioWhateverItsNameSays) {
  EXPECT_EQ(nearly_squares_side(U"0.0001"), kSecondSide);
  EXPECT_EQ(nearly_squares_side(U"0.001"), kFirstSide);
  // Were it percent, a hundredth of it would be less than the sides differ by.
  EXPECT_EQ(nearly_squares_side(U"0.01"), kFirstSide);
  EXPECT_EQ(nearly_squares_side(U"0.0004"), kSecondSide);
}

TEST(PlotArea, ATextThatIsNoNumberAboveZeroLeavesTheDefault) {
  const Doubles clearly_longer = {0, 0, 10, 0, 10, 10.02, 0, 10.02};
  for (const std::u32string_view text : {U"0", U"-1", U"abc", U" ", U"-0.0001", U"nan", U"0x", U"."}) {
    EXPECT_EQ(nearly_squares_side(text), kFirstSide);
    const ScopedVariable variable(kTolerance, text);
    EXPECT_EQ(longest_side(2, 4, clearly_longer), (Doubles{10, 0, 10, 10.02}));
  }
}

TEST(PlotArea, ANumberIsReadAsFarAsItGoes) {
  EXPECT_EQ(nearly_squares_side(U"  1e-4 percent"), kSecondSide);
  EXPECT_EQ(nearly_squares_side(U"+.0001x"), kSecondSide);
  EXPECT_EQ(nearly_squares_side(U"1e-400"), kFirstSide);
}

TEST(PlotArea, TheToleranceIsReadByEveryCall) {
  EXPECT_EQ(nearly_squares_side(U"0.0001"), kSecondSide);
  EXPECT_EQ(longest_side(2, 4, kNearlySquare), kFirstSide);
  EXPECT_EQ(nearly_squares_side(U"0.0002"), kSecondSide);
}

TEST(PlotArea, ShapesWithoutAreaHaveNoLongestSide) {
  EXPECT_EQ(longest_side(2, 3, {0, 0, 1, 1, 2, 2}), Doubles{});
  EXPECT_EQ(longest_side(2, 3, {4, 4, 4, 4, 4, 4}), Doubles{});
  EXPECT_EQ(longest_side(3, 3, {0, 0, 0, 1, 1, 9, 2, 2, 0}), Doubles{});
  for (const int n : {1, 0, -1, INT_MIN}) {
    EXPECT_EQ(longest_side(2, n, {0, 0}), Doubles{});
    EXPECT_EQ(longest_side(3, n, {0, 0, 0}), Doubles{});
  }
}

TEST(PlotArea, OtherDimensionsHaveNoLongestSide) {
  Doubles pts = {0, 0, 0, 0, 5, 0, 0, 0, 0, 5, 0, 0}, side(16, kCanary);
  for (const int dim : {INT_MIN, -1, 0, 1, 4, INT_MAX}) {
    EXPECT_EQ(GEOMShapeFindLongestSide(dim, 3, pts.data(), side.data()), 1);
  }
  EXPECT_EQ(side, Doubles(16, kCanary));
}

TEST(PlotArea, NullArraysHaveNoLongestSide) {
  Doubles pts = kNearlySquare, side(4, kCanary);
  EXPECT_EQ(GEOMShapeFindLongestSide(2, 4, nullptr, side.data()), 1);
  EXPECT_EQ(GEOMShapeFindLongestSide(2, 4, pts.data(), nullptr), 1);
  EXPECT_EQ(side, Doubles(4, kCanary));
}

TEST(PlotArea, TheSideMayTakeThePlaceOfThePoints) {
  for (const int dim : {2, 3}) {
    Doubles pts = dim == 2 ? Doubles{0, 0, 1, 0, 5, 9} : Doubles{0, 0, 7, 1, 0, 8, 5, 9, 9};
    const Doubles expected = longest_side(dim, 3, pts);
    ASSERT_EQ(GEOMShapeFindLongestSide(dim, 3, pts.data(), pts.data()), 0);
    pts.resize(expected.size());
    EXPECT_EQ(pts, expected);
  }
}

TEST(PlotArea, WithoutMemoryForItsCopyAFlatShapeHasNoLongestSide) {
  const long before = platform::capi_blocks_out();
  platform::capi_fail_after(0);
  EXPECT_EQ(longest_side(2, 4, kNearlySquare), Doubles{});
  platform::capi_fail_after(-1);
  EXPECT_EQ(platform::capi_blocks_out(), before);
  EXPECT_EQ(longest_side(2, 4, kNearlySquare), kFirstSide);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

// The lookup of the tolerance may run out of memory too; the variable then counts as undefined.
TEST(PlotArea, WithoutMemoryForTheToleranceTheDefaultHolds) {
  const long before = platform::capi_blocks_out();
  platform::capi_fail_after(-1);
  longest_side(2, 4, kNearlySquare);
  const long requests = platform::capi_fail_after(-1);
  ASSERT_GT(requests, 1);
  for (long successes = 0; successes <= requests; ++successes) {
    platform::capi_fail_after(successes);
    const Doubles side = longest_side(2, 4, kNearlySquare);
    platform::capi_fail_after(-1);
    EXPECT_EQ(side, successes == 0 ? Doubles{} : kFirstSide) << successes;
    EXPECT_EQ(platform::capi_blocks_out(), before);
  }
  platform::capi_fail_after(0);
  const Doubles side = longest_side(3, 3, {0, 0, 0, 1, 0, 0, 5, 9, 0});
  platform::capi_fail_after(-1);
  EXPECT_EQ(side, (Doubles{5, 9, 0, 0, 0, 0})) << "a shape in space needs no copy";
}

TEST(PlotArea, TheChecksDoNotAskTheHeap) {
  Doubles pts = joined(joined(kCorners, kCorners), joined(kCorners, kCorners));
  HeapWatch watch;
  GEOMCheckRect(2, 5, pts.data());
  GEOMCheckRectangularPlotArea(2, 10, pts.data());
  EXPECT_EQ(watch.requests(), 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
