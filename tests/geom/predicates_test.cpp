// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Predicates on points: their answers to counts, dimensions and codes of all kinds, at the tolerance, and for
// what is no number.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <vector>

#include "corvane/print/geom.h"
#include "tests/geom/numbers.h"
#include "tests/geom/predicates_model.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 100000;

int equal(int dim, const Doubles& pts) {
  return GEOMPointsEqual(dim, static_cast<int>(pts.size()) / dim, pts.data());
}

int colinear(int dim, const Doubles& pts) {
  return GEOMPointsColinear(dim, static_cast<int>(pts.size()) / dim, pts.data());
}

TEST(Predicates, PointsAreEqualUpToTheToleranceItself) {
  EXPECT_EQ(equal(2, {0, 0, 1e-6, 0}), 1);
  EXPECT_EQ(equal(2, {0, 0, 0, -1e-6}), 1);
  EXPECT_EQ(equal(2, {0, 0, std::nextafter(1e-6, 1), 0}), 0);
  EXPECT_EQ(equal(2, {0, 0, 1.1e-6, 0}), 0);
  EXPECT_EQ(equal(2, {0, 0, 0, -1.1e-6}), 0);
  EXPECT_EQ(equal(3, {0, 0, 0, 0, 0, 1e-6}), 1);
  EXPECT_EQ(equal(3, {0, 0, 0, 0, 0, 1.1e-6}), 0);
}

TEST(Predicates, PointsAreComparedWithTheFirstOne) {
  // Each is within the tolerance of its neighbours.
  EXPECT_EQ(equal(2, {0, 0, 0.9e-6, 0, 1.8e-6, 0}), 0);
  EXPECT_EQ(equal(2, {0.9e-6, 0, 0, 0, 1.8e-6, 0}), 1);
}

TEST(Predicates, WithoutPointsOrCoordinatesAllAreEqual) {
  const double pts[] = {1, 2, 3, 4};
  for (const int n : {0, -1, INT_MIN}) EXPECT_EQ(GEOMPointsEqual(2, n, pts), 1);
  for (const int dim : {0, -1, INT_MIN}) EXPECT_EQ(GEOMPointsEqual(dim, 2, pts), 1);
  EXPECT_EQ(GEOMPointsEqual(2, 1, pts), 1);
  EXPECT_EQ(GEOMPointsEqual(1, 4, pts), 0);
}

TEST(Predicates, ADifferenceThatIsNoNumberDoesNotExceedTheTolerance) {
  EXPECT_EQ(equal(2, {0, 0, kNaN, 0}), 1);
  EXPECT_EQ(equal(2, {kNaN, 0, 5, 0}), 1);
  EXPECT_EQ(equal(2, {kInfinity, 0, kInfinity, 0}), 1);
  EXPECT_EQ(equal(2, {kInfinity, 0, -kInfinity, 0}), 0);
  EXPECT_EQ(equal(2, {0, 0, kInfinity, 0}), 0);
  EXPECT_EQ(equal(2, {0.0, 0, -0.0, 0}), 1);
}

TEST(Predicates, PointsOnALineAreColinear) {
  EXPECT_EQ(colinear(2, {0, 0, 1, 1, 2, 2}), 1);
  EXPECT_EQ(colinear(2, {0, 5, 1, 5, -7, 5}), 1);
  EXPECT_EQ(colinear(2, {0, 0, 1, 1, 2, 2.000002}), 0);
  EXPECT_EQ(colinear(2, {0, 0, 1, 0, 1, 1}), 0);
}

TEST(Predicates, PointsOnAnUprightLineAreColinear) {
  EXPECT_EQ(colinear(2, {0, 0, 0, 5, 0, 9}), 1);
  EXPECT_EQ(colinear(2, {0, 0, 1e-6, 5, 0, 9}), 1);
}

// Each pair shares one x within the tolerance, so none gives a slope, however far the line leans in all.
TEST(Predicates, ALineThatLeansByTheToleranceFromPointToPointIsUpright) {
  EXPECT_EQ(colinear(2, {0, 0, 0.9e-6, 5, 1.8e-6, 5, 2.7e-6, -3}), 1);
}

TEST(Predicates, APairWithoutSlopeIsPassedOver) {
  EXPECT_EQ(colinear(2, {0, 0, 0, 0, 1, 1, 2, 2}), 1);
  EXPECT_EQ(colinear(2, {0, 0, 0, 0, 1, 1, 2, 3}), 0);
  // An upright pair first, and the line from the next pair, on which the first point does not lie.
  EXPECT_EQ(colinear(2, {0, 0, 0, 5, 1, 5}), 0);
}

TEST(Predicates, HeightsDoNotCountForALine) {
  EXPECT_EQ(colinear(3, {0, 0, 7, 1, 1, -3, 2, 2, 100}), 1);
  EXPECT_EQ(colinear(3, {0, 0, 0, 1, 1, 0, 2, 2.000002, 0}), 0);
  // Points above each other give no slope.
  EXPECT_EQ(colinear(3, {0, 0, 0, 0, 0, 5, 1, 1, 0, 2, 2, 0}), 1);
}

TEST(Predicates, FewPointsAreColinearUnlessTheDimensionIsTooSmallToo) {
  const double pts[] = {1, 2, 3, 4};
  for (const int n : {1, 0, -1, INT_MIN}) {
    for (const int dim : {1, 0, -1, INT_MIN})
      EXPECT_EQ(GEOMPointsColinear(dim, n, pts), 0) << dim << ' ' << n;
    for (const int dim : {2, 3}) EXPECT_EQ(GEOMPointsColinear(dim, n, pts), 1) << dim << ' ' << n;
  }
  // Enough points, but without coordinates, of which all are equal.
  EXPECT_EQ(GEOMPointsColinear(0, 2, pts), 1);
}

TEST(Predicates, PointsWithoutYAreColinearOnlyWhereTheyCoincide) {
  const double pts[] = {1, 2, 1, 1};
  EXPECT_EQ(GEOMPointsColinear(1, 4, pts), 0);
  EXPECT_EQ(GEOMPointsColinear(1, 2, pts + 2), 1);
}

TEST(Predicates, TheDistanceFromTheLineIsTakenUpright) {
  // The point stands off by some 1.5e-9 at right angles to the line, but by 1.5e-6 along y.
  EXPECT_EQ(colinear(2, {0, 0, 1, 1000, 0.5, 500.0000015}), 0);
  // By 0.9e-6 at right angles and along y.
  EXPECT_EQ(colinear(2, {0, 0, 1000, 1, 500, 0.5000009}), 1);
}

TEST(Predicates, TheDistanceIsTakenInTheGivenOrderOfOperations) {
  // A line that far away leaves a residue that a distance from its first point would not have.
  const Doubles far = {1e9, 1e9 / 3, 1e9 + 1, 1e9 / 3 + 1.0 / 3, 1e9 + 2, 1e9 / 3 + 2.0 / 3};
  EXPECT_EQ(colinear(2, far), model::points_colinear(2, 3, far));
}

TEST(Predicates, ColinearityOfWhatIsNoNumber) {
  EXPECT_EQ(colinear(2, {0, 0, kNaN, 5, 1, 1}), 1);  // upright as far as can be told
  EXPECT_EQ(colinear(2, {0, 0, 1, kNaN, 2, 7}), 1);  // the slope is no number, and no distance either
  EXPECT_EQ(colinear(2, {0, 0, 1, 1, 2, kNaN}), 1);
  EXPECT_EQ(colinear(2, {0, 0, 1, 1, kNaN, 5, 2, 5}), 0);
  EXPECT_EQ(colinear(2, {0, 0, 1, 1, 2, kInfinity}), 0);
  EXPECT_EQ(colinear(2, {0, 0, kInfinity, 1, 5, 0}), 1);  // the slope is 0, and 0 times infinity no number
}

TEST(Predicates, OneCoordinateIsConstantAlongAnAxisOrAPlane) {
  const Doubles pts = {1, 5, 9, 2, 5, 9, 3, 5, 9};  // y and z are
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 3, 3, pts.data()), 1);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_Y_AXIS, 3, 3, pts.data()), 0);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XY_PLANE, 3, 3, pts.data()), 1);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XZ_PLANE, 3, 3, pts.data()), 1);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_YZ_PLANE, 3, 3, pts.data()), 0);
  // Neither the x axis nor a plane looks at another coordinate.
  const Doubles flat = {1, 5, 2, 5, 3, 5};
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 2, 3, flat.data()), 1);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XZ_PLANE, 2, 3, flat.data()), 1);
}

TEST(Predicates, OtherCodesAreAnsweredNoWhateverTheCount) {
  const double pts[] = {1, 1, 1, 1, 1, 1};
  for (const int code : {INT_MIN, -1, 0, 3, 4, 5, 6, 7, INT_MAX}) {
    for (const int n : {2, 1, 0, -1}) EXPECT_EQ(GEOMPointsParallelToAxis(code, 3, n, pts), 0) << code;
  }
  for (const int code : {INT_MIN, -1, 0, 1, 2, 3, 7, INT_MAX}) {
    for (const int n : {2, 1, 0, -1}) EXPECT_EQ(GEOMPointsParallelToPlane(code, 3, n, pts), 0) << code;
  }
}

TEST(Predicates, WithoutPointsAllIsParallel) {
  for (const int n : {0, -1, INT_MIN}) {
    EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XY_PLANE, 3, n, nullptr), 1);
    EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 2, n, nullptr), 1);
  }
}

TEST(Predicates, PointsWithoutTheCoordinateAreNotParallel) {
  const double pts[] = {1, 1, 1, 1};
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XY_PLANE, 2, 2, pts), 0);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 1, 2, pts), 0);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_Y_AXIS, 0, 2, pts), 0);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_Y_AXIS, INT_MIN, 2, pts), 0);
}

TEST(Predicates, AValueIsInItsRangeEndsIncluded) {
  EXPECT_EQ(GEOMValueInRange(5, 5, 5), 1);
  EXPECT_EQ(GEOMValueInRange(5, 6, 4), 0);
  EXPECT_EQ(GEOMValueInRange(5, 4, 6), 1);
  EXPECT_EQ(GEOMValueInRange(4, 4, 6), 1);
  EXPECT_EQ(GEOMValueInRange(6, 4, 6), 1);
  EXPECT_EQ(GEOMValueInRange(std::nextafter(6.0, 7.0), 4, 6), 0);
  EXPECT_EQ(GEOMValueInRange(std::nextafter(4.0, 3.0), 4, 6), 0);
  EXPECT_EQ(GEOMValueInRange(-0.0, 0.0, 0.0), 1);
  EXPECT_EQ(GEOMValueInRange(kInfinity, 0, kInfinity), 1);
}

TEST(Predicates, WhatIsNoNumberIsInNoRange) {
  EXPECT_EQ(GEOMValueInRange(kNaN, 0, 1), 0);
  EXPECT_EQ(GEOMValueInRange(0, kNaN, 1), 0);
  EXPECT_EQ(GEOMValueInRange(0, 0, kNaN), 0);
}

TEST(Predicates, NullPointsAreNotEqualColinearOrParallel) {
  EXPECT_EQ(GEOMPointsEqual(2, 1, nullptr), 0);
  EXPECT_EQ(GEOMPointsEqual(2, 0, nullptr), 1);
  EXPECT_EQ(GEOMPointsColinear(2, 3, nullptr), 0);
  EXPECT_EQ(GEOMPointsColinear(2, 0, nullptr), 1);
  EXPECT_EQ(GEOMPointsParallelToAxis(GEOM_X_AXIS, 2, 1, nullptr), 0);
  EXPECT_EQ(GEOMPointsParallelToPlane(GEOM_XY_PLANE, 3, 1, nullptr), 0);
}

TEST(Predicates, TheHeapIsNotAsked) {
  const double pts[] = {0, 0, 0, 1, 1, 1, 2, 2, 2};
  HeapWatch watch;
  GEOMPointsEqual(3, 3, pts);
  GEOMPointsColinear(3, 3, pts);
  GEOMPointsParallelToAxis(GEOM_X_AXIS, 3, 3, pts);
  GEOMPointsParallelToPlane(GEOM_XY_PLANE, 3, 3, pts);
  GEOMValueInRange(1, 0, 2);
  EXPECT_EQ(watch.requests(), 0);
}

// How often a predicate said yes and no: both must be common.
class Verdicts {
public:
  void add(int verdict) { ++count_[verdict == 1 ? 1 : 0]; }
  void expect_both() const {
    const int all = count_[0] + count_[1];
    EXPECT_GT(count_[0], all / 20);
    EXPECT_GT(count_[1], all / 20);
  }

private:
  int count_[2] = {};
};

// Points that lie about where the first one does.
Doubles nearly_equal_points(Random& random, int dim, int n) {
  Numbers numbers(random);
  Doubles pts = numbers.next(dim);
  for (int i = dim; i < n * dim; ++i) {
    const double first = pts[static_cast<std::size_t>(i % dim)];
    pts.push_back(random.one_in(10)  ? numbers.next()
                  : random.one_in(2) ? first
                                     : first + near_tolerance(random));
  }
  return pts;
}

TEST(PredicatesModel, EqualPointsAgree) {
  Verdicts verdicts;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(310, i));
    const int dim = random.between(1, 3), n = random.between(1, 4);
    const Doubles pts = nearly_equal_points(random, dim, n);
    const int expected = model::points_equal(dim, n, pts);
    ASSERT_EQ(GEOMPointsEqual(dim, n, pts.data()), expected) << "case " << i;
    verdicts.add(expected);
  }
  verdicts.expect_both();
}

TEST(PredicatesModel, ParallelPointsAgree) {
  Verdicts axes, planes;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(311, i));
    const int n = random.between(1, 4), axis = random.between(1, 2), plane = random.between(4, 6);
    const Doubles pts = nearly_equal_points(random, 3, n);
    const int along_axis = model::parallel(axis, 3, n, pts), in_plane = model::parallel(plane, 3, n, pts);
    ASSERT_EQ(GEOMPointsParallelToAxis(axis, 3, n, pts.data()), along_axis) << "case " << i;
    ASSERT_EQ(GEOMPointsParallelToPlane(plane, 3, n, pts.data()), in_plane) << "case " << i;
    axes.add(along_axis);
    planes.add(in_plane);
    const int flat = 3 * n / 2;  // the same numbers as points of two
    if (flat < 1) continue;
    ASSERT_EQ(GEOMPointsParallelToAxis(axis, 2, flat, pts.data()), model::parallel(axis, 2, flat, pts))
        << "case " << i;
  }
  axes.expect_both();
  planes.expect_both();
}

// Points about a line, some of them repeated or above each other, some off by the tolerance.
Doubles points_about_a_line(Random& random, int dim, int n) {
  Numbers numbers(random);
  const double slope = random.one_in(3) ? grid_number(random) : random.between(-20.0, 20.0);
  const double intercept = random.one_in(3) ? grid_number(random) : random.between(-20.0, 20.0);
  Doubles pts;
  for (int i = 0; i < n; ++i) {
    const auto at = static_cast<std::size_t>((i - 1) * dim);
    const bool upright = i > 0 && random.one_in(4);
    double x = upright ? pts[at] + (random.one_in(2) ? near_tolerance(random) : 0.0) : numbers.next();
    if (random.one_in(2)) x = random.between(-10, 10);
    double y = slope * x + intercept;
    if (random.one_in(4)) y += near_tolerance(random) * 0.75;
    if (random.one_in(40)) y = numbers.next();
    pts.push_back(x);
    pts.push_back(y);
    if (dim == 3) pts.push_back(numbers.next());
  }
  return pts;
}

Doubles points_for_colinear(Random& random, int dim, int n) {
  if (!random.one_in(8)) return points_about_a_line(random, dim, n);
  return random.one_in(2) ? nearly_equal_points(random, dim, n) : Numbers(random).next(dim * n);
}

TEST(PredicatesModel, ColinearPointsAgree) {
  Verdicts verdicts;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(312, i));
    const int dim = random.between(2, 3), n = random.between(2, 6);
    const Doubles pts = points_for_colinear(random, dim, n);
    const int expected = model::points_colinear(dim, n, pts);
    ASSERT_EQ(GEOMPointsColinear(dim, n, pts.data()), expected) << "case " << i;
    verdicts.add(expected);
  }
  verdicts.expect_both();
}

TEST(PredicatesModel, RangesAgree) {
  Verdicts verdicts;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(313, i));
    Numbers numbers(random);
    const double value = numbers.next(), low = numbers.next(), high = numbers.next();
    const bool none = std::isnan(value) || std::isnan(low) || std::isnan(high);
    const int expected = none || value < low || value > high ? 0 : 1;
    ASSERT_EQ(GEOMValueInRange(value, low, high), expected) << "case " << i;
    verdicts.add(expected);
  }
  verdicts.expect_both();
}

}  // namespace
}  // namespace Corvane::Print::tests
