// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Matrices as they are built, and the inverses of those, element by element.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "corvane/print/mat.h"
#include "geom/angle.h"
#include "tests/geom/matrix_model.h"
#include "tests/geom/numbers.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 100000;
constexpr double kCanary = 77.0;
constexpr double kHalfPi = 1.5707963267948966;
constexpr int kNoDimensions[] = {INT_MIN, -2, -1, 0, 1, 4, 5, INT_MAX};

std::size_t size_of(int dim) {
  return static_cast<std::size_t>((dim + 1) * (dim + 1));
}

// A place for a matrix with a canary behind it.
Doubles place_for(int dim) {
  return Doubles(size_of(dim) + 1, kCanary);
}

// Without the canary, which is looked at.
Doubles matrix(Doubles place) {
  EXPECT_EQ(place.back(), kCanary);
  place.pop_back();
  return place;
}

Doubles translation(int dim, double x, double y, double z) {
  Doubles m = place_for(dim);
  EXPECT_EQ(MATBuildTransHMat(dim, x, y, z, m.data()), 0);
  return matrix(m);
}

Doubles scaling(int dim, double x, double y, double z) {
  Doubles m = place_for(dim);
  EXPECT_EQ(MATBuildScaleHMat(dim, x, y, z, m.data()), 0);
  return matrix(m);
}

Doubles rotation(int dim, double angle) {
  Doubles m = place_for(dim);
  EXPECT_EQ(MATBuildRotAboutZHMat(dim, angle, m.data()), 0);
  return matrix(m);
}

using Inverter = int (*)(int dim, double* m, double* inv);

// The same whether or not it takes the matrix's place.
Doubles inverted(Inverter invert, int dim, Doubles m) {
  Doubles inv = place_for(dim);
  EXPECT_EQ(invert(dim, m.data(), inv.data()), 0);
  EXPECT_EQ(invert(dim, m.data(), m.data()), 0);
  inv = matrix(inv);
  EXPECT_TRUE(same_bits(inv, m));
  return inv;
}

Doubles product(int dim, Doubles a, Doubles b) {
  Doubles c(size_of(dim));
  MATMulMatMat(dim + 1, a.data(), b.data(), c.data());
  return c;
}

Doubles moved(Doubles point, Doubles m) {
  Doubles result(point.size());
  MATMulVecMat(static_cast<int>(point.size()), point.data(), 1, m.data(), result.data());
  return result;
}

Doubles identity(int dim) {
  return model::flat(model::identity(static_cast<std::size_t>(dim) + 1));
}

TEST(MatrixBuild, ATranslationStandsInTheLastRow) {
  EXPECT_EQ(translation(2, 5, 7, 99), (Doubles{1, 0, 0, 0, 1, 0, 5, 7, 1}));
  EXPECT_EQ(translation(3, 5, 7, 9), (Doubles{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 7, 9, 1}));
  EXPECT_EQ(moved({1, 1, 1}, translation(2, 5, 7, 0)), (Doubles{6, 8, 1}));
}

TEST(MatrixBuild, AScalingStandsInTheDiagonal) {
  EXPECT_EQ(scaling(2, 5, 7, 99), (Doubles{5, 0, 0, 0, 7, 0, 0, 0, 1}));
  EXPECT_EQ(scaling(3, 5, 7, 9), (Doubles{5, 0, 0, 0, 0, 7, 0, 0, 0, 0, 9, 0, 0, 0, 0, 1}));
}

TEST(MatrixBuild, APositiveAngleTurnsXTowardsY) {
  const Doubles turned = moved({1, 0, 1}, rotation(2, kHalfPi));
  EXPECT_NEAR(turned[0], 0, 1e-16);
  EXPECT_EQ(turned[1], 1);
  EXPECT_EQ(turned[2], 1);
  const double c = geom::sin_cos(0.5).cos, s = geom::sin_cos(0.5).sin;
  EXPECT_EQ(rotation(2, 0.5), (Doubles{c, s, 0, -s, c, 0, 0, 0, 1}));
  EXPECT_EQ(rotation(3, 0.5), (Doubles{c, s, 0, 0, -s, c, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}));
}

TEST(MatrixBuild, NoTurnKeepsTheSignOfItsZero) {
  EXPECT_TRUE(same_bits(rotation(2, 0.0), {1, 0.0, 0, -0.0, 1, 0, 0, 0, 1}));
  EXPECT_TRUE(same_bits(rotation(2, -0.0), {1, -0.0, 0, 0.0, 1, 0, 0, 0, 1}));
}

TEST(MatrixBuild, ATurnByNoAngleIsNoNumber) {
  for (const double angle : {kNaN, kInfinity, -kInfinity}) {
    EXPECT_TRUE(same_bits(rotation(2, angle), {kNaN, kNaN, 0, kNaN, kNaN, 0, 0, 0, 1}));
  }
}

TEST(MatrixBuild, AnUnsupportedDimensionClearsItsSquareAndNothingElse) {
  for (const int dim : {4, 5, 1, 0, -1, -2, -5}) {
    const auto cleared = static_cast<std::size_t>((dim + 1) * (dim + 1));
    Doubles expected(40, kCanary);
    std::fill_n(expected.begin(), cleared, 0.0);
    for (int builder = 0; builder < 3; ++builder) {
      Doubles m(40, kCanary);
      const int result = builder == 0   ? MATBuildTransHMat(dim, 1, 2, 3, m.data())
                         : builder == 1 ? MATBuildScaleHMat(dim, 1, 2, 3, m.data())
                                        : MATBuildRotAboutZHMat(dim, 1, m.data());
      EXPECT_EQ(result, 0) << dim;
      EXPECT_TRUE(same_bits(m, expected)) << dim;
    }
  }
}

TEST(MatrixBuild, ASquareBeyondAnIntegerClearsNothing) {
  for (const int dim : {INT_MIN, -50000, 50000, INT_MAX}) {
    Doubles m(4, kCanary);
    EXPECT_EQ(MATBuildTransHMat(dim, 1, 2, 3, m.data()), 0);
    EXPECT_EQ(MATBuildScaleHMat(dim, 1, 2, 3, m.data()), 0);
    EXPECT_EQ(MATBuildRotAboutZHMat(dim, 1, m.data()), 0);
    EXPECT_EQ(m, Doubles(4, kCanary));
  }
}

TEST(MatrixBuild, ATranslationTimesItsInverseIsTheIdentity) {
  for (const int dim : {2, 3}) {
    const Doubles m = translation(dim, 5, -7, 0.1), inv = inverted(MATBuildInvTransHMat, dim, m);
    EXPECT_EQ(product(dim, m, inv), identity(dim));
    EXPECT_EQ(product(dim, inv, m), identity(dim));
  }
}

TEST(MatrixBuild, AScalingTimesItsInverseIsTheIdentity) {
  for (const int dim : {2, 3}) {
    const Doubles m = scaling(dim, 4, -0.5, 8), inv = inverted(MATBuildInvScaleHMat, dim, m);
    EXPECT_EQ(product(dim, m, inv), identity(dim));
  }
}

TEST(MatrixBuild, ARotationsInverseTurnsTheOtherWay) {
  for (const int dim : {2, 3}) {
    EXPECT_EQ(inverted(MATBuildInvRotHMat, dim, rotation(dim, 0.7)), rotation(dim, -0.7));
  }
}

TEST(MatrixBuild, InversesTrustTheKindOfTheirMatrix) {
  const Doubles any = {2, 3, 4, 5, 6, 7, 8, 9, 10};
  EXPECT_EQ(inverted(MATBuildInvTransHMat, 2, any), (Doubles{2, 3, 4, 5, 6, 7, -8, -9, 1}));
  EXPECT_EQ(inverted(MATBuildInvScaleHMat, 2, any), (Doubles{1.0 / 2, 3, 4, 5, 1.0 / 6, 7, 8, 9, 10}));
  EXPECT_EQ(inverted(MATBuildInvRotHMat, 2, any), (Doubles{2, 5, 8, 3, 6, 9, 4, 7, 10}));
}

TEST(MatrixBuild, TheInverseOfAZeroFactorIsInfinite) {
  EXPECT_TRUE(same_bits(inverted(MATBuildInvScaleHMat, 2, scaling(2, 0.0, -0.0, 0)),
                        {kInfinity, 0, 0, 0, -kInfinity, 0, 0, 0, 1}));
  EXPECT_TRUE(same_bits(inverted(MATBuildInvTransHMat, 2, translation(2, 0.0, -0.0, 0)),
                        {1, 0, 0, 0, 1, 0, -0.0, 0.0, 1}));
}

TEST(MatrixBuild, InversesOfOtherDimensionsWriteNothing) {
  Doubles m(36, 1.0), inv(36, kCanary);
  for (const int dim : kNoDimensions) {
    EXPECT_EQ(MATBuildInvTransHMat(dim, m.data(), inv.data()), 0);
    EXPECT_EQ(MATBuildInvScaleHMat(dim, m.data(), inv.data()), 0);
    EXPECT_EQ(MATBuildInvRotHMat(dim, m.data(), inv.data()), 0);
  }
  EXPECT_EQ(inv, Doubles(36, kCanary));
}

TEST(MatrixBuild, NullArraysAreNeitherReadNorWritten) {
  Doubles any(16, kCanary);
  double* const p = any.data();
  EXPECT_EQ(MATBuildTransHMat(2, 1, 2, 3, nullptr), 0);
  EXPECT_EQ(MATBuildScaleHMat(5, 1, 2, 3, nullptr), 0);
  EXPECT_EQ(MATBuildRotAboutZHMat(3, 1, nullptr), 0);
  for (const Inverter invert : {MATBuildInvTransHMat, MATBuildInvScaleHMat, MATBuildInvRotHMat}) {
    EXPECT_EQ(invert(3, nullptr, p), 0);
    EXPECT_EQ(invert(3, p, nullptr), 0);
  }
  EXPECT_EQ(any, Doubles(16, kCanary));
}

TEST(MatrixBuild, TheHeapIsNotAsked) {
  double m[16] = {}, inv[16] = {};
  HeapWatch watch;
  MATBuildTransHMat(3, 1, 2, 3, m);
  MATBuildInvTransHMat(3, m, inv);
  MATBuildScaleHMat(3, 1, 2, 3, m);
  MATBuildInvScaleHMat(3, m, inv);
  MATBuildRotAboutZHMat(3, 1e300, m);
  MATBuildInvRotHMat(3, m, inv);
  EXPECT_EQ(watch.requests(), 0);
}

TEST(MatrixBuildModel, TranslationsAndScalingsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(350, i));
    Numbers numbers(random);
    const int dim = random.between(2, 3);
    const Doubles by = numbers.next(3);
    model::Rows shift = model::identity(static_cast<std::size_t>(dim) + 1), scale = shift;
    for (std::size_t k = 0; k < static_cast<std::size_t>(dim); ++k) {
      shift.back()[k] = by[k];
      scale[k][k] = by[k];
    }
    ASSERT_TRUE(same_bits(translation(dim, by[0], by[1], by[2]), model::flat(shift))) << "case " << i;
    ASSERT_TRUE(same_bits(scaling(dim, by[0], by[1], by[2]), model::flat(scale))) << "case " << i;
  }
}

TEST(MatrixBuildModel, InversesAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(351, i));
    Numbers numbers(random);
    const int dim = random.between(2, 3);
    const Doubles m = numbers.next((dim + 1) * (dim + 1));
    const model::Rows rows = model::rows_of(m, static_cast<std::size_t>(dim) + 1);
    model::Rows shift = rows, scale = rows;
    shift.back().back() = 1.0;
    for (std::size_t k = 0; k < static_cast<std::size_t>(dim); ++k) {
      shift.back()[k] = -rows.back()[k];
      scale[k][k] = 1.0 / rows[k][k];
    }
    ASSERT_TRUE(same_bits(inverted(MATBuildInvTransHMat, dim, m), model::flat(shift))) << "case " << i;
    ASSERT_TRUE(same_bits(inverted(MATBuildInvScaleHMat, dim, m), model::flat(scale))) << "case " << i;
    const model::Rows turned = model::transposed(rows);
    ASSERT_TRUE(same_bits(inverted(MATBuildInvRotHMat, dim, m), model::flat(turned))) << "case " << i;
  }
}

// The place of each element; that sine and cosine are right to the last bit is tested with the angles.
TEST(MatrixBuildModel, RotationsAgree) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(352, i));
    const int dim = random.between(2, 3);
    const double angle = random.one_in(2) ? random.between(-10.0, 10.0) : any_finite(random);
    const geom::SinCos turn = geom::sin_cos(angle);
    model::Rows rows = model::identity(static_cast<std::size_t>(dim) + 1);
    rows[0][0] = rows[1][1] = turn.cos;
    rows[0][1] = turn.sin;
    rows[1][0] = -turn.sin;
    ASSERT_TRUE(same_bits(rotation(dim, angle), model::flat(rows))) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
