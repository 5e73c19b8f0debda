// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Sine and cosine against values that were computed with 2,000 bits, and against a second implementation in
// fixed point, for angles of every size and for those nearest to quarter turns.
#include "geom/angle.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "tests/geom/angle_model.h"
#include "tests/geom/numbers.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using geom::sin_cos;
using geom::SinCos;

constexpr int kCases = 100000;

struct Known {
  double angle, sin, cos;
};

constexpr Known kKnown[] = {
    {0x1.4f8b588e368f1p-17, 0x1.4f8b588e1e8a2p-17, 0x1.ffffffff920c8p-1},
    {0.5, 0x1.eaee8744b05f0p-2, 0x1.c1528065b7d50p-1},
    {1.0, 0x1.aed548f090ceep-1, 0x1.14a280fb5068cp-1},
    {0x1.921fb54442d18p+0, 1.0, 0x1.1a62633145c07p-54},
    {2.0, 0x1.d18f6ead1b446p-1, -0x1.aa22657537205p-2},
    {3.0, 0x1.210386db6d55bp-3, -0x1.fae04be85e5d2p-1},
    {0x1.921fb54442d18p+1, 0x1.1a62633145c07p-53, -1.0},
    {4.0, -0x1.837b9dddc1eaep-1, -0x1.4eaa606db24c1p-1},
    {1e22, -0x1.b453ab76bf397p-1, 0x1.0be2cef01c8f4p-1},
    {0x1.e240c9fbe76c9p+76, -0x1.a04f6114ea45cp-1, 0x1.2a0b2219596a4p-1},
    {0x1.6ac5b262ca1ffp+849, 1.0, -0x1.14ae72e6ba22fp-61},  // nearest of all to a quarter turn
    {1e308, 0x1.d0472b6b4d936p-2, -0x1.c859a523ff229p-1},
    {0x1.fffffffffffffp+1023, 0x1.452fc98b34e97p-8, -0x1.fffe62ecfab75p-1},
};

// Angles m * 2^e that lie nearer to a multiple of a quarter turn than others of their size.
struct Near {
  double mantissa;
  int exponent;
};

constexpr Near kNear[] = {
    {6381956970095103.0, 797}, {6411027962775774.0, -47}, {6381956970095103.0, 798},
    {7763785107565477.0, -29}, {5916243447979695.0, 79},  {6381956970095103.0, 799},
    {8444920710073313.0, 939}, {6411027962775774.0, -45}, {5850965514341686.0, 525},
    {8160885118204141.0, 808}, {8360820580228475.0, 628}, {8583082635084172.0, 145},
    {7958046405119485.0, 243},
};

// The worst error of the sine and the cosine, in units of the last place.
double worst_error(double angle) {
  const SinCos found = sin_cos(angle);
  const model::ExactTurn exact = model::exact_turn(angle);
  return std::max(model::error_in_last_place(found.sin, exact.sine),
                  model::error_in_last_place(found.cos, exact.cosine));
}

// Half a unit is as near as a double comes; the rest is for a result half-way between two of them.
constexpr double kCorrectlyRounded = 0.5 + 0x1p-30;

TEST(Angle, KnownAnglesHaveTheirKnownBits) {
  for (const Known& known : kKnown) {
    const SinCos found = sin_cos(known.angle), back = sin_cos(-known.angle);
    EXPECT_TRUE(same_bits(found.sin, known.sin)) << known.angle << ' ' << found.sin;
    EXPECT_TRUE(same_bits(found.cos, known.cos)) << known.angle << ' ' << found.cos;
    EXPECT_TRUE(same_bits(back.sin, -known.sin)) << known.angle;
    EXPECT_TRUE(same_bits(back.cos, known.cos)) << known.angle;
  }
}

TEST(Angle, ZeroKeepsItsSign) {
  EXPECT_TRUE(same_bits(sin_cos(0.0).sin, 0.0));
  EXPECT_TRUE(same_bits(sin_cos(-0.0).sin, -0.0));
  EXPECT_EQ(sin_cos(0.0).cos, 1.0);
  EXPECT_EQ(sin_cos(-0.0).cos, 1.0);
}

TEST(Angle, TheSineOfATinyAngleIsTheAngle) {
  for (double angle = 0x1p-28; angle > 0; angle /= 8) {
    EXPECT_EQ(sin_cos(angle).sin, angle);
    EXPECT_EQ(sin_cos(-angle).sin, -angle);
    EXPECT_EQ(sin_cos(angle).cos, 1.0);
  }
}

TEST(Angle, WhatIsNoAngleHasNeither) {
  for (const double angle : {kNaN, -kNaN, kInfinity, -kInfinity}) {
    EXPECT_TRUE(std::isnan(sin_cos(angle).sin));
    EXPECT_TRUE(std::isnan(sin_cos(angle).cos));
  }
}

// The model itself: pi/2 has the bits that everybody knows, and known values are within half a unit.
TEST(AngleModel, IsRight) {
  const model::Short quarter = half_pi<8>();
  EXPECT_EQ(quarter.digit[8], 1u);
  EXPECT_EQ(quarter.digit[7], 0x921fb544u);
  EXPECT_EQ(quarter.digit[6], 0x42d18469u);
  for (const Known& known : kKnown) {
    const model::ExactTurn exact = model::exact_turn(known.angle);
    EXPECT_LE(model::error_in_last_place(known.sin, exact.sine), kCorrectlyRounded) << known.angle;
    EXPECT_LE(model::error_in_last_place(known.cos, exact.cosine), kCorrectlyRounded) << known.angle;
    EXPECT_GE(model::error_in_last_place(std::nextafter(known.sin, 2.0), exact.sine), 0.5) << known.angle;
  }
}

TEST(AngleModel, AnglesNearestToQuarterTurnsAreRoundedCorrectly) {
  for (const Near& near : kNear) {
    double angle = std::ldexp(near.mantissa, near.exponent);
    angle = std::nextafter(std::nextafter(angle, 0.0), 0.0);
    for (int step = 0; step < 5; ++step) {
      EXPECT_LE(worst_error(angle), kCorrectlyRounded) << angle;
      EXPECT_LE(worst_error(-angle), kCorrectlyRounded) << angle;
      angle = std::nextafter(angle, kInfinity);
    }
  }
}

double random_angle(Random& random) {
  double angle = 0;
  switch (random.below(4)) {
    case 0:
      return random.between(-10.0, 10.0);
    case 1:
      return random.between(-1e6, 1e6);
    case 2:  // a quarter turn many times over, give or take a little
      angle = 1.5707963267948966 * static_cast<double>(random.next() >> (11 + random.below(53)));
      return random.one_in(2) ? angle : std::nextafter(angle, random.one_in(2) ? 0.0 : kInfinity);
    default:
      return any_finite(random);
  }
}

TEST(AngleModel, RandomAnglesAreRoundedCorrectly) {
  double worst = 0;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(330, i));
    const double angle = random_angle(random);
    if (std::fabs(angle) < 0x1p-40) {
      ASSERT_TRUE(same_bits(sin_cos(angle).sin, angle)) << "case " << i;
      ASSERT_EQ(sin_cos(angle).cos, 1.0) << "case " << i;
      continue;
    }
    const double error = worst_error(angle);
    ASSERT_LE(error, kCorrectlyRounded) << "case " << i << ", angle " << angle;
    worst = std::max(worst, error);
  }
  std::printf("The worst error is %.9f units in the last place.\n", worst);
}

}  // namespace
}  // namespace Corvane::Print::tests
