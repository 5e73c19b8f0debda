// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Vectors, corner lists, enclosing boxes and intersections, bit for bit.
#include <gtest/gtest.h>

#include <algorithm>

#include "corvane/print/geom.h"
#include "tests/geom/boxes_model.h"
#include "tests/geom/numbers.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 100000;
constexpr double kCanary = 77.0;

// The corners that a call wrote, and its result.
struct Corners {
  int result = 0;
  Doubles low, high;
};

Corners rect_intersection(Doubles a1, Doubles a2, Doubles b1, Doubles b2) {
  Corners found{0, {kCanary, kCanary}, {kCanary, kCanary}};
  found.result = GEOMComputeRectIntersection(a1.data(), a2.data(), b1.data(), b2.data(), found.low.data(),
                                             found.high.data());
  return found;
}

Corners cube_intersection(Doubles a1, Doubles a2, Doubles b1, Doubles b2) {
  Corners found{0, Doubles(3, kCanary), Doubles(3, kCanary)};
  found.result = GEOMComputeCubeIntersection(a1.data(), a2.data(), b1.data(), b2.data(), found.low.data(),
                                             found.high.data());
  return found;
}

Corners enclosing_rect(int n, Doubles pts) {
  Corners found{-1, Doubles(2, kCanary), Doubles(2, kCanary)};
  found.result = GEOMComputeMinEnclRect(n, reinterpret_cast<double(*)[2]>(pts.data()), found.low.data(),
                                        found.high.data());
  return found;
}

Corners enclosing_cube(int n, Doubles pts) {
  Corners found{-1, Doubles(3, kCanary), Doubles(3, kCanary)};
  found.result = GEOMComputeMinEnclCube(n, reinterpret_cast<double(*)[3]>(pts.data()), found.low.data(),
                                        found.high.data());
  return found;
}

Corners diagonal(int n, Doubles pts) {
  Corners found{-1, Doubles(3, kCanary), Doubles(3, kCanary)};
  found.result = GEOMComputeCubeDiag(n, pts.data(), found.low.data(), found.high.data());
  return found;
}

void expect_corners(const Corners& found, int result, const Doubles& low, const Doubles& high) {
  EXPECT_EQ(found.result, result);
  EXPECT_TRUE(same_bits(found.low, low)) << testing::PrintToString(found.low);
  EXPECT_TRUE(same_bits(found.high, high)) << testing::PrintToString(found.high);
}

TEST(Boxes, VectorsAreAddedComponentByComponent) {
  Doubles a = {1, 2, 3}, b = {10, 20, 30}, sum(4, kCanary);
  EXPECT_EQ(GEOMAddVector(3, a.data(), b.data(), sum.data()), 0);
  EXPECT_EQ(sum, (Doubles{11, 22, 33, kCanary}));
}

TEST(Boxes, TheSumMayTakeThePlaceOfEitherVector) {
  Doubles a = {1, 2, 3}, b = {10, 20, 30};
  EXPECT_EQ(GEOMAddVector(3, a.data(), b.data(), a.data()), 0);
  EXPECT_EQ(a, (Doubles{11, 22, 33}));
  EXPECT_EQ(GEOMAddVector(3, a.data(), b.data(), b.data()), 0);
  EXPECT_EQ(b, (Doubles{21, 42, 63}));
  EXPECT_EQ(GEOMAddVector(3, b.data(), b.data(), b.data()), 0);
  EXPECT_EQ(b, (Doubles{42, 84, 126}));
}

TEST(Boxes, NothingIsAddedForACountBelowOne) {
  Doubles a = {1}, b = {2}, sum = {kCanary};
  for (const int n : {0, -1, -2147483647 - 1}) {
    EXPECT_EQ(GEOMAddVector(n, a.data(), b.data(), sum.data()), 0);
    EXPECT_EQ(sum[0], kCanary);
  }
}

TEST(Boxes, SumsOfNoNumbersAndOfZeros) {
  Doubles a = {kNaN, kInfinity, -0.0, -0.0, kInfinity}, b = {1, -kInfinity, -0.0, 0.0, 1}, sum(5);
  GEOMAddVector(5, a.data(), b.data(), sum.data());
  EXPECT_TRUE(same_bits(sum, {kNaN, kNaN, -0.0, 0.0, kInfinity}));
}

TEST(Boxes, ARectanglesCornersRunCounterClockwise) {
  Doubles low = {1, 2}, high = {3, 4}, verts(9, kCanary);
  EXPECT_EQ(GEOMComputeRectVerts(low.data(), high.data(), verts.data()), 0);
  EXPECT_EQ(verts, (Doubles{1, 2, 3, 2, 3, 4, 1, 4, kCanary}));
}

TEST(Boxes, ABoxsCornersAreItsBottomAndThenItsTop) {
  Doubles low = {1, 2, 3}, high = {4, 5, 6}, verts(25, kCanary);
  EXPECT_EQ(GEOMComputeCubeVerts(low.data(), high.data(), verts.data()), 0);
  EXPECT_EQ(verts, (Doubles{1, 2, 3, 4, 2, 3, 4, 5, 3, 1, 5, 3,  //
                            1, 2, 6, 4, 2, 6, 4, 5, 6, 1, 5, 6, kCanary}));
}

TEST(Boxes, CornersAreTakenAsGivenWhetherOrNotTheyAreInOrder) {
  Doubles low = {5, -0.0}, high = {kNaN, -kInfinity}, verts(8);
  GEOMComputeRectVerts(low.data(), high.data(), verts.data());
  EXPECT_TRUE(same_bits(verts, {5, -0.0, kNaN, -0.0, kNaN, -kInfinity, 5, -kInfinity}));
}

TEST(Boxes, OnePointIsItsOwnEnclosingBox) {
  for (const int n : {1, 0, -5}) {
    expect_corners(enclosing_rect(n, {7, 8}), 0, {7, 8}, {7, 8});
    expect_corners(enclosing_cube(n, {7, 8, 9}), 0, {7, 8, 9}, {7, 8, 9});
  }
}

TEST(Boxes, EnclosingBoxesReachToTheOutermostPoints) {
  expect_corners(enclosing_rect(3, {1, 5, -2, 6, 0, 4}), 0, {-2, 4}, {1, 6});
  expect_corners(enclosing_cube(3, {1, 5, 9, -2, 6, 8, 0, 4, 10}), 0, {-2, 4, 8}, {1, 6, 10});
}

TEST(Boxes, TheFirstOfEqualCoordinatesIsKept) {
  expect_corners(enclosing_rect(2, {0.0, -0.0, -0.0, 0.0}), 0, {0.0, -0.0}, {0.0, -0.0});
  expect_corners(diagonal(2, {0.0, -0.0, 0.0, -0.0, 0.0, -0.0}), 0, {0.0, -0.0, 0.0}, {-0.0, 0.0, -0.0});
}

TEST(Boxes, WhatIsNoNumberStaysAsFirstPointAndIsPassedOverLater) {
  expect_corners(enclosing_rect(3, {kNaN, 1, 2, kNaN, 3, 0}), 0, {kNaN, 0}, {kNaN, 1});
  expect_corners(enclosing_cube(2, {1, 1, 1, kInfinity, -kInfinity, kNaN}), 0, {1, -kInfinity, 1},
                 {kInfinity, 1, 1});
}

TEST(Boxes, TheDiagonalTakesTheSecondPointIntoAccountWhateverTheCount) {
  const Doubles pts = {5, 5, 5, 9, 2, 6};
  expect_corners(diagonal(2, pts), 0, {5, 2, 5}, {9, 5, 6});
  // Point 1 is the first maximum; that it is smaller in y shows when point 0 is looked at, and only there.
  expect_corners(diagonal(1, pts), 0, {5, 5, 5}, {9, 5, 6});
  expect_corners(diagonal(0, pts), 0, {5, 5, 5}, {9, 2, 6});
  expect_corners(diagonal(-1, pts), 0, {5, 5, 5}, {9, 2, 6});
}

TEST(Boxes, TheDiagonalOfABoxsCornersIsTheBox) {
  Doubles low = {1, 2, 3}, high = {4, 5, 6}, verts(24);
  GEOMComputeCubeVerts(low.data(), high.data(), verts.data());
  expect_corners(diagonal(8, verts), 0, low, high);
}

TEST(Boxes, TouchingRectanglesIntersectInARectangleWithoutArea) {
  expect_corners(rect_intersection({0, 0}, {10, 10}, {10, 0}, {20, 10}), 1, {10, 0}, {10, 10});
  expect_corners(rect_intersection({0, 0}, {10, 10}, {10, 10}, {20, 20}), 1, {10, 10}, {10, 10});
}

TEST(Boxes, RectanglesApartDoNotIntersectAndTheCornersAreZero) {
  expect_corners(rect_intersection({0, 0}, {10, 10}, {11, 0}, {20, 10}), 0, {0.0, 0.0}, {0.0, 0.0});
  expect_corners(rect_intersection({0, 0}, {10, 10}, {0, 10.000000001}, {10, 20}), 0, {0.0, 0.0}, {0.0, 0.0});
}

TEST(Boxes, ARectangleInsideAnotherIsTheIntersectionEitherWayRound) {
  expect_corners(rect_intersection({0, 0}, {10, 10}, {2, 3}, {4, 5}), 1, {2, 3}, {4, 5});
  expect_corners(rect_intersection({2, 3}, {4, 5}, {0, 0}, {10, 10}), 1, {2, 3}, {4, 5});
}

TEST(Boxes, RectanglesThatCrossIntersectInTheirMiddle) {
  expect_corners(rect_intersection({0, 4}, {10, 6}, {4, 0}, {6, 10}), 1, {4, 4}, {6, 6});
  expect_corners(rect_intersection({0, 0}, {6, 6}, {4, 4}, {10, 10}), 1, {4, 4}, {6, 6});
}

// Of equal ends the first one found counts: those of the first rectangle come before those of the second.
TEST(Boxes, EqualEndsOfIntersectionsAreTheFirstRectangles) {
  expect_corners(rect_intersection({-0.0, 0.0}, {1, 1}, {0.0, -0.0}, {1, 1}), 1, {-0.0, 0.0}, {1, 1});
  expect_corners(rect_intersection({-1, -1}, {-0.0, 0.0}, {0.0, -0.0}, {1, 1}), 1, {-0.0, 0.0}, {-0.0, 0.0});
}

TEST(Boxes, ASideThatIsNoNumberIntersectsNothing) {
  expect_corners(rect_intersection({kNaN, 0}, {kNaN, 10}, {0, 0}, {10, 10}), 0, {0.0, 0.0}, {0.0, 0.0});
  // One end that is no number is no bound to lie within, but the other end is still an end.
  expect_corners(rect_intersection({kNaN, 0}, {5, 10}, {0, 0}, {10, 10}), 1, {5, 0}, {5, 10});
  expect_corners(rect_intersection({-kInfinity, -kInfinity}, {kInfinity, kInfinity}, {1, 2}, {3, 4}), 1,
                 {1, 2}, {3, 4});
}

// Their place is cleared first.
TEST(Boxes, AnIntersectionWrittenOverItsInputReadsTheZeros) {
  Doubles a1 = {4, 4}, a2 = {10, 10}, b1 = {1, 1}, b2 = {8, 8}, high(2);
  EXPECT_EQ(GEOMComputeRectIntersection(a1.data(), a2.data(), b1.data(), b2.data(), a1.data(), high.data()),
            1);
  EXPECT_EQ(a1, (Doubles{1, 1}));
  EXPECT_EQ(high, (Doubles{8, 8}));
}

TEST(Boxes, BoxesThatOverlapFromAboveAndNotInDepthDoNotIntersect) {
  expect_corners(cube_intersection({0, 0, 0}, {10, 10, 10}, {5, 5, 11}, {15, 15, 20}), 0, {0.0, 0.0, 0.0},
                 {0.0, 0.0, 0.0});
  expect_corners(cube_intersection({0, 0, 0}, {10, 10, 10}, {5, 11, 5}, {15, 15, 20}), 0, {0.0, 0.0, 0.0},
                 {0.0, 0.0, 0.0});
}

TEST(Boxes, BoxesIntersectInABoxAndTouchInAFaceOrACorner) {
  expect_corners(cube_intersection({0, 0, 0}, {10, 10, 10}, {5, 6, 7}, {15, 16, 17}), 1, {5, 6, 7},
                 {10, 10, 10});
  expect_corners(cube_intersection({0, 0, 0}, {10, 10, 10}, {0, 0, 10}, {10, 10, 20}), 1, {0, 0, 10},
                 {10, 10, 10});
  expect_corners(cube_intersection({0, 0, 0}, {1, 1, 1}, {1, 1, 1}, {2, 2, 2}), 1, {1, 1, 1}, {1, 1, 1});
}

TEST(Boxes, NullArraysAreNeitherReadNorWritten) {
  double any[24];
  std::fill(std::begin(any), std::end(any), kCanary);
  auto* const points2 = reinterpret_cast<double(*)[2]>(any);
  auto* const points3 = reinterpret_cast<double(*)[3]>(any);
  EXPECT_EQ(GEOMAddVector(3, nullptr, any, any), 0);
  EXPECT_EQ(GEOMAddVector(3, any, nullptr, any), 0);
  EXPECT_EQ(GEOMAddVector(3, any, any, nullptr), 0);
  EXPECT_EQ(GEOMComputeRectVerts(nullptr, any, any), 0);
  EXPECT_EQ(GEOMComputeRectVerts(any, nullptr, any), 0);
  EXPECT_EQ(GEOMComputeRectVerts(any, any, nullptr), 0);
  EXPECT_EQ(GEOMComputeCubeVerts(nullptr, any, any), 0);
  EXPECT_EQ(GEOMComputeCubeVerts(any, nullptr, any), 0);
  EXPECT_EQ(GEOMComputeCubeVerts(any, any, nullptr), 0);
  EXPECT_EQ(GEOMComputeMinEnclRect(1, nullptr, any, any), 0);
  EXPECT_EQ(GEOMComputeMinEnclRect(1, points2, nullptr, any), 0);
  EXPECT_EQ(GEOMComputeMinEnclRect(1, points2, any, nullptr), 0);
  EXPECT_EQ(GEOMComputeMinEnclCube(1, nullptr, any, any), 0);
  EXPECT_EQ(GEOMComputeMinEnclCube(1, points3, nullptr, any), 0);
  EXPECT_EQ(GEOMComputeMinEnclCube(1, points3, any, nullptr), 0);
  EXPECT_EQ(GEOMComputeCubeDiag(2, nullptr, any, any), 0);
  EXPECT_EQ(GEOMComputeCubeDiag(2, any, nullptr, any), 0);
  EXPECT_EQ(GEOMComputeCubeDiag(2, any, any, nullptr), 0);
  for (int missing = 0; missing < 6; ++missing) {
    double* p[6] = {any, any, any, any, any, any};
    p[missing] = nullptr;
    EXPECT_EQ(GEOMComputeRectIntersection(p[0], p[1], p[2], p[3], p[4], p[5]), 0);
    EXPECT_EQ(GEOMComputeCubeIntersection(p[0], p[1], p[2], p[3], p[4], p[5]), 0);
  }
  EXPECT_EQ(std::count(std::begin(any), std::end(any), kCanary), 24);
}

TEST(Boxes, TheHeapIsNotAsked) {
  double p[24] = {}, q[24] = {}, r[24] = {}, s[24] = {};
  HeapWatch watch;
  GEOMAddVector(24, p, q, r);
  GEOMComputeRectVerts(p, q, r);
  GEOMComputeCubeVerts(p, q, r);
  GEOMComputeMinEnclRect(12, reinterpret_cast<double(*)[2]>(p), q, r);
  GEOMComputeMinEnclCube(8, reinterpret_cast<double(*)[3]>(p), q, r);
  GEOMComputeCubeDiag(8, p, q, r);
  GEOMComputeCubeIntersection(p, q, p, q, r, s);
  EXPECT_EQ(watch.requests(), 0);
}

TEST(BoxesModel, SumsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(300, i));
    Numbers numbers(random);
    const int n = random.between(1, 6);
    Doubles a = numbers.next(n), b = numbers.next(n), sum(a.size(), kCanary);
    ASSERT_EQ(GEOMAddVector(n, a.data(), b.data(), sum.data()), 0);
    const Doubles expected = model::sum(a, b);
    ASSERT_TRUE(same_bits(sum, expected)) << "case " << i;
    GEOMAddVector(n, a.data(), b.data(), random.one_in(2) ? a.data() : b.data());
    ASSERT_TRUE(same_bits(a, expected) || same_bits(b, expected)) << "case " << i;
  }
}

TEST(BoxesModel, CornersAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(301, i));
    Numbers numbers(random);
    Doubles low = numbers.next(3), high = numbers.next(3), four(8), eight(24);
    ASSERT_EQ(GEOMComputeRectVerts(low.data(), high.data(), four.data()), 0);
    ASSERT_EQ(GEOMComputeCubeVerts(low.data(), high.data(), eight.data()), 0);
    ASSERT_TRUE(same_bits(four, model::corners(2, low, high))) << "case " << i;
    ASSERT_TRUE(same_bits(eight, model::corners(3, low, high))) << "case " << i;
  }
}

TEST(BoxesModel, EnclosingBoxesAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(302, i));
    Numbers numbers(random);
    const int n = random.between(1, 12), dim = random.between(2, 3);
    const Doubles pts = numbers.next(n * dim);
    const Corners found = dim == 2 ? enclosing_rect(n, pts) : enclosing_cube(n, pts);
    const model::Box expected = model::enclosing(dim, n, pts);
    ASSERT_EQ(found.result, 0);
    ASSERT_TRUE(same_bits(found.low, expected.low) && same_bits(found.high, expected.high)) << "case " << i;
  }
}

TEST(BoxesModel, DiagonalsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(303, i));
    Numbers numbers(random);
    const int n = random.between(-1, 12);
    const Doubles pts = numbers.next(3 * std::max(n, 2));
    const Corners found = diagonal(n, pts);
    const model::Box expected = model::diagonal(n, pts);
    ASSERT_EQ(found.result, 0);
    ASSERT_TRUE(same_bits(found.low, expected.low) && same_bits(found.high, expected.high)) << "case " << i;
  }
}

// Mostly in order, as callers give them.
void put_in_order(Random& random, Doubles& low, Doubles& high) {
  if (random.one_in(8)) return;
  for (std::size_t k = 0; k < low.size(); ++k) {
    if (low[k] > high[k]) std::swap(low[k], high[k]);
  }
}

void compare_intersections(int dim, std::uint64_t family) {
  int intersecting = 0;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(family, i));
    Numbers numbers(random);
    Doubles a1 = numbers.next(dim), a2 = numbers.next(dim), b1 = numbers.next(dim), b2 = numbers.next(dim);
    put_in_order(random, a1, a2);
    put_in_order(random, b1, b2);
    const Corners found = dim == 2 ? rect_intersection(a1, a2, b1, b2) : cube_intersection(a1, a2, b1, b2);
    const model::Box expected = model::intersection({a1, a2}, {b1, b2});
    ASSERT_EQ(found.result, expected.there ? 1 : 0) << "case " << i;
    ASSERT_TRUE(same_bits(found.low, expected.low) && same_bits(found.high, expected.high)) << "case " << i;
    intersecting += found.result;
  }
  // A test of nothing but misses, or of nothing but hits, would show little.
  EXPECT_GT(intersecting, scaled(kCases) / 20);
  EXPECT_LT(intersecting, scaled(kCases) - scaled(kCases) / 20);
}

TEST(BoxesModel, RectangleIntersectionsAgree) {
  compare_intersections(2, 304);
}

TEST(BoxesModel, BoxIntersectionsAgree) {
  compare_intersections(3, 305);
}

}  // namespace
}  // namespace Corvane::Print::tests
