// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Transposes, products, and the way to and from homogeneous form; outputs over inputs wherever that is
// allowed.
#include <gtest/gtest.h>

#include <climits>

#include "corvane/print/mat.h"
#include "tests/geom/matrix_model.h"
#include "tests/geom/numbers.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 100000;
constexpr double kCanary = 77.0;
constexpr int kNoOrders[] = {INT_MIN, -2, -1, 0, 1, 5, 6, INT_MAX};
constexpr int kNoDimensions[] = {INT_MIN, -2, -1, 0, 1, 4, 5, INT_MAX};

TEST(Matrix, TransposingTurnsRowsIntoColumns) {
  const Doubles m = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  Doubles t(10, kCanary);
  EXPECT_EQ(MATTransposeMat(3, m.data(), t.data()), 0);
  EXPECT_EQ(t, (Doubles{1, 4, 7, 2, 5, 8, 3, 6, 9, kCanary}));
}

TEST(Matrix, APlainRotationIsInvertedByTransposingIt) {
  Doubles two = {1, 2, 3, 4}, three = {1, 2, 3, 4, 5, 6, 7, 8, 9}, inv(10, kCanary);
  EXPECT_EQ(MATInvRotMat(2, two.data(), inv.data()), 0);
  EXPECT_EQ(inv, (Doubles{1, 3, 2, 4, kCanary, kCanary, kCanary, kCanary, kCanary, kCanary}));
  EXPECT_EQ(MATInvRotMat(3, three.data(), inv.data()), 0);
  EXPECT_EQ(inv, (Doubles{1, 4, 7, 2, 5, 8, 3, 6, 9, kCanary}));
  EXPECT_EQ(MATInvRotMat(3, three.data(), three.data()), 0);
  EXPECT_EQ(three, (Doubles{1, 4, 7, 2, 5, 8, 3, 6, 9}));
}

TEST(Matrix, InAProductTheFirstFactorsRowsMeetTheSecondsColumns) {
  Doubles a = {1, 2, 3, 4}, b = {5, 6, 7, 8}, c(5, kCanary);
  EXPECT_EQ(MATMulMatMat(2, a.data(), b.data(), c.data()), 0);
  EXPECT_EQ(c, (Doubles{19, 22, 43, 50, kCanary}));
}

TEST(Matrix, AProductMayTakeThePlaceOfEitherFactor) {
  for (const int n : {2, 3, 4}) {
    Random random(case_seed(340, n));
    Numbers numbers(random);
    const Doubles a = numbers.next(n * n), b = numbers.next(n * n);
    Doubles first = a, second = b, separate(a.size()), left = a, right = b, square(a.size()), own = a;
    MATMulMatMat(n, left.data(), right.data(), separate.data());
    MATMulMatMat(n, first.data(), right.data(), first.data());
    MATMulMatMat(n, left.data(), second.data(), second.data());
    EXPECT_TRUE(same_bits(first, separate) && same_bits(second, separate)) << n;
    MATMulMatMat(n, left.data(), left.data(), square.data());
    MATMulMatMat(n, own.data(), own.data(), own.data());
    EXPECT_TRUE(same_bits(own, square)) << n;
  }
}

// 1e16 + 1 - 1e16 is 0, whatever a wider register would make of it; in another order it would be 1.
TEST(Matrix, SumsAreTakenInTheOrderOfTheElements) {
  Doubles row = {1e16, 1, -1e16}, m = {1, 0, 0, 1, 0, 0, 1, 0, 0}, out(3);
  MATMulVecMat(3, row.data(), 1, m.data(), out.data());
  EXPECT_EQ(out[0], 0.0);
}

TEST(Matrix, AProductOfZerosKeepsTheirSign) {
  Doubles row = {-0.0, -0.0}, m = {1, 1, 1, -1}, out(2);
  MATMulVecMat(2, row.data(), 1, m.data(), out.data());
  EXPECT_TRUE(same_bits(out, {-0.0, 0.0}));
}

TEST(Matrix, ZeroTimesInfinityIsNoNumber) {
  Doubles a = {0, 0, 0, 1}, b = {kInfinity, 1, 1, kNaN}, c(4);
  MATMulMatMat(2, a.data(), b.data(), c.data());
  EXPECT_TRUE(same_bits(c, {kNaN, kNaN, kNaN, kNaN}));
}

TEST(Matrix, EachVectorIsMultiplied) {
  Doubles m = {1, 0, 0, 0, 1, 0, 5, 7, 1}, vecs = {1, 1, 1, 2, 3, 1, 2, 3, 0}, out(10, kCanary);
  EXPECT_EQ(MATMulVecMat(3, vecs.data(), 3, m.data(), out.data()), 0);
  EXPECT_EQ(out, (Doubles{6, 8, 1, 7, 10, 1, 2, 3, 0, kCanary}));
  EXPECT_EQ(MATMulVecMat(3, vecs.data(), 3, m.data(), vecs.data()), 0);
  EXPECT_EQ(vecs, (Doubles{6, 8, 1, 7, 10, 1, 2, 3, 0}));
}

TEST(Matrix, NothingIsDividedByTheHomogeneousCoordinate) {
  Doubles m = {1, 0, 0, 0, 1, 0, 0, 0, 2}, p = {4, 6, 2}, q(3);
  MATMulVecMat(3, p.data(), 1, m.data(), q.data());
  EXPECT_EQ(q, (Doubles{4, 6, 4}));
}

TEST(Matrix, OtherOrdersAndCountsWriteNothing) {
  Doubles m(36, 1.0), out(36, kCanary);
  for (const int n : kNoOrders) {
    EXPECT_EQ(MATTransposeMat(n, m.data(), out.data()), 0);
    EXPECT_EQ(MATMulMatMat(n, m.data(), m.data(), out.data()), 0);
    EXPECT_EQ(MATMulVecMat(n, m.data(), 1, m.data(), out.data()), 0);
  }
  for (const int count : {INT_MIN, -1, 0})
    EXPECT_EQ(MATMulVecMat(3, m.data(), count, m.data(), out.data()), 0);
  for (const int dim : kNoDimensions) EXPECT_EQ(MATInvRotMat(dim, m.data(), out.data()), 0);
  EXPECT_EQ(out, Doubles(36, kCanary));
}

TEST(Matrix, APlainMatrixIsPutIntoAHomogeneousOne) {
  Doubles two = {1, 2, 3, 4}, three = {1, 2, 3, 4, 5, 6, 7, 8, 9}, h(17, kCanary);
  EXPECT_EQ(MATCvtMatToHomog(3, three.data(), h.data()), 0);
  EXPECT_EQ(h, (Doubles{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1, kCanary}));
  Doubles small(10, kCanary);
  EXPECT_EQ(MATCvtMatToHomog(2, two.data(), small.data()), 0);
  EXPECT_EQ(small, (Doubles{1, 2, 0, 3, 4, 0, 0, 0, 1, kCanary}));
}

TEST(Matrix, AMatrixIsPutIntoAHomogeneousOneInItsPlace) {
  Doubles m = {1, 2, 3, 4, 5, 6, 7, 8, 9, 0, 0, 0, 0, 0, 0, 0};
  EXPECT_EQ(MATCvtMatToHomog(3, m.data(), m.data()), 0);
  EXPECT_EQ(m, (Doubles{1, 2, 3, 0, 4, 5, 6, 0, 7, 8, 9, 0, 0, 0, 0, 1}));
}

TEST(Matrix, OnlyTwoAndThreeDimensionsHaveAHomogeneousForm) {
  Doubles m(36, 1.0), h(36, kCanary);
  for (const int dim : kNoDimensions) EXPECT_EQ(MATCvtMatToHomog(dim, m.data(), h.data()), 1) << dim;
  EXPECT_EQ(MATCvtMatToHomog(4, nullptr, nullptr), 1);
  EXPECT_EQ(h, Doubles(36, kCanary));
}

TEST(Matrix, PointsReceiveTheirHomogeneousCoordinateInPlace) {
  Doubles pts = {1, 2, 3, 4, kCanary, kCanary, kCanary};
  MATConvertPtDimToHomog(2, 2, pts.data(), pts.data());
  EXPECT_EQ(pts, (Doubles{1, 2, 1, 3, 4, 1, kCanary}));
  Doubles space = {1, 2, 3, 4, 5, 6, 0, 0, kCanary};
  MATConvertPtDimToHomog(3, 2, space.data(), space.data());
  EXPECT_EQ(space, (Doubles{1, 2, 3, 1, 4, 5, 6, 1, kCanary}));
}

TEST(Matrix, PointsLoseTheirHomogeneousCoordinateInPlace) {
  Doubles pts = {1, 2, 9, 3, 4, 9};
  MATConvertPtHomogToDim(2, 2, pts.data(), pts.data());
  EXPECT_EQ(pts, (Doubles{1, 2, 3, 4, 4, 9}));
}

TEST(Matrix, GoingBackToPlainPointsDividesByNothing) {
  const Doubles homogeneous = {4, 6, 2, 1, 1, 0, 5, 5, kNaN};
  Doubles pts(7, kCanary);
  MATConvertPtHomogToDim(2, 3, homogeneous.data(), pts.data());
  EXPECT_EQ(pts, (Doubles{4, 6, 1, 1, 5, 5, kCanary}));
}

TEST(Matrix, WithoutPointsOrCoordinatesNothingIsConverted) {
  const Doubles from(8, 1.0);
  Doubles to(8, kCanary);
  for (const int count : {INT_MIN, -1, 0}) {
    MATConvertPtDimToHomog(2, count, from.data(), to.data());
    MATConvertPtHomogToDim(2, count, from.data(), to.data());
  }
  for (const int dim : {INT_MIN, -1, 0}) {
    MATConvertPtDimToHomog(dim, 2, from.data(), to.data());
    MATConvertPtHomogToDim(dim, 2, from.data(), to.data());
  }
  EXPECT_EQ(to, Doubles(8, kCanary));
}

TEST(Matrix, NullArraysAreNeitherReadNorWritten) {
  Doubles any(16, kCanary);
  double* const p = any.data();
  EXPECT_EQ(MATTransposeMat(3, nullptr, p), 0);
  EXPECT_EQ(MATTransposeMat(3, p, nullptr), 0);
  EXPECT_EQ(MATInvRotMat(3, nullptr, p), 0);
  EXPECT_EQ(MATInvRotMat(3, p, nullptr), 0);
  EXPECT_EQ(MATMulMatMat(3, nullptr, p, p), 0);
  EXPECT_EQ(MATMulMatMat(3, p, nullptr, p), 0);
  EXPECT_EQ(MATMulMatMat(3, p, p, nullptr), 0);
  EXPECT_EQ(MATMulVecMat(3, nullptr, 1, p, p), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, nullptr, p), 0);
  EXPECT_EQ(MATMulVecMat(3, p, 1, p, nullptr), 0);
  EXPECT_EQ(MATCvtMatToHomog(3, nullptr, p), 0);
  EXPECT_EQ(MATCvtMatToHomog(3, p, nullptr), 0);
  MATConvertPtDimToHomog(2, 1, nullptr, p);
  MATConvertPtDimToHomog(2, 1, p, nullptr);
  MATConvertPtHomogToDim(2, 1, nullptr, p);
  MATConvertPtHomogToDim(2, 1, p, nullptr);
  EXPECT_EQ(any, Doubles(16, kCanary));
}

TEST(Matrix, TheHeapIsNotAsked) {
  double p[32] = {}, q[32] = {}, r[32] = {};
  HeapWatch watch;
  MATTransposeMat(4, p, q);
  MATInvRotMat(3, p, q);
  MATMulMatMat(4, p, q, r);
  MATMulVecMat(4, p, 8, q, r);
  MATCvtMatToHomog(3, p, q);
  MATConvertPtDimToHomog(3, 8, p, q);
  MATConvertPtHomogToDim(3, 8, p, q);
  EXPECT_EQ(watch.requests(), 0);
}

std::size_t order(int n) {
  return static_cast<std::size_t>(n);
}

TEST(MatrixModel, TransposesAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(341, i));
    Numbers numbers(random);
    const int n = random.between(2, 4);
    Doubles m = numbers.next(n * n), t(m.size());
    const Doubles expected = model::flat(model::transposed(model::rows_of(m, order(n))));
    ASSERT_EQ(MATTransposeMat(n, m.data(), t.data()), 0);
    ASSERT_TRUE(same_bits(t, expected)) << "case " << i;
    if (n < 4) {
      ASSERT_EQ(MATInvRotMat(n, m.data(), m.data()), 0);
    } else {
      ASSERT_EQ(MATTransposeMat(n, m.data(), m.data()), 0);
    }
    ASSERT_TRUE(same_bits(m, expected)) << "case " << i;
  }
}

TEST(MatrixModel, ProductsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(342, i));
    Numbers numbers(random);
    const int n = random.between(2, 4);
    Doubles a = numbers.next(n * n), b = numbers.next(n * n), c(a.size());
    const Doubles expected =
        model::flat(model::product(model::rows_of(a, order(n)), model::rows_of(b, order(n))));
    ASSERT_EQ(MATMulMatMat(n, a.data(), b.data(), c.data()), 0);
    ASSERT_TRUE(same_bits(c, expected)) << "case " << i;
    Doubles& place = random.one_in(2) ? a : b;
    ASSERT_EQ(MATMulMatMat(n, a.data(), b.data(), place.data()), 0);
    ASSERT_TRUE(same_bits(place, expected)) << "case " << i;
  }
}

TEST(MatrixModel, VectorsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(343, i));
    Numbers numbers(random);
    const int n = random.between(2, 4), count = random.between(1, 6);
    Doubles vecs = numbers.next(n * count), m = numbers.next(n * n), out(vecs.size());
    const Doubles expected =
        model::flat(model::product(model::rows_of(vecs, order(n)), model::rows_of(m, order(n))));
    ASSERT_EQ(MATMulVecMat(n, vecs.data(), count, m.data(), out.data()), 0);
    ASSERT_TRUE(same_bits(out, expected)) << "case " << i;
    ASSERT_EQ(MATMulVecMat(n, vecs.data(), count, m.data(), vecs.data()), 0);
    ASSERT_TRUE(same_bits(vecs, expected)) << "case " << i;
  }
}

TEST(MatrixModel, HomogeneousMatricesAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(344, i));
    Numbers numbers(random);
    const int dim = random.between(2, 3);
    Doubles r = numbers.next(dim * dim), h(order((dim + 1) * (dim + 1)));
    model::Rows rows = model::rows_of(r, order(dim));
    for (Doubles& row : rows) row.push_back(0.0);
    rows.emplace_back(order(dim), 0.0).push_back(1.0);
    ASSERT_EQ(MATCvtMatToHomog(dim, r.data(), h.data()), 0);
    ASSERT_TRUE(same_bits(h, model::flat(rows))) << "case " << i;
    r.resize(h.size());
    ASSERT_EQ(MATCvtMatToHomog(dim, r.data(), r.data()), 0);
    ASSERT_TRUE(same_bits(r, h)) << "case " << i;
  }
}

TEST(MatrixModel, PointsInHomogeneousFormAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(345, i));
    Numbers numbers(random);
    const int dim = random.between(2, 3), count = random.between(1, 8);
    const Doubles pts = numbers.next(dim * count);
    model::Rows rows = model::rows_of(pts, order(dim));
    for (Doubles& row : rows) row.push_back(1.0);
    Doubles apart(order((dim + 1) * count)), place = pts;
    place.resize(apart.size(), kCanary);
    MATConvertPtDimToHomog(dim, count, pts.data(), apart.data());
    MATConvertPtDimToHomog(dim, count, place.data(), place.data());
    ASSERT_TRUE(same_bits(apart, model::flat(rows)) && same_bits(place, apart)) << "case " << i;
  }
}

TEST(MatrixModel, PointsOutOfHomogeneousFormAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(346, i));
    Numbers numbers(random);
    const int dim = random.between(2, 3), count = random.between(1, 8);
    Doubles hpts = numbers.next((dim + 1) * count), pts(order(dim * count));
    model::Rows rows = model::rows_of(hpts, order(dim + 1));
    for (Doubles& row : rows) row.pop_back();
    MATConvertPtHomogToDim(dim, count, hpts.data(), pts.data());
    MATConvertPtHomogToDim(dim, count, hpts.data(), hpts.data());
    hpts.resize(pts.size());
    ASSERT_TRUE(same_bits(pts, model::flat(rows)) && same_bits(hpts, pts)) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
