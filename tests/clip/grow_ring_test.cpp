// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two forms in which the vertices of a ring are moved write the same bits.
#include "clip/grow_ring.h"

#include "tests/clip/bits.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cfenv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Numbers = std::vector<double>;
using Mover = decltype(&clip::grow_ring_plain);

// A ring with its neighbours in front and behind, which need not be those of a closed line here.
struct Ring {
  std::size_t dim, n;
  Numbers points;
  double distance;
};

double special(Random& random) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kSpecial[] = {std::numeric_limits<double>::quiet_NaN(),
                                 kInfinity,
                                 -kInfinity,
                                 -0.0,
                                 1e200,
                                 -1e300,
                                 1e-200,
                                 -1e-170,
                                 5e-324};
  return kSpecial[random.below(9)];
}

// 0 small integers, with many edges without length or in one direction; 1 anything; 2 also what is none.
double coordinate(Random& random, int kind) {
  if (kind == 2 && random.one_in(8)) return special(random);
  return kind == 0 ? random.between(-2, 2) : random.between(-100.0, 100.0);
}

Ring random_ring(Random& random, int kind) {
  Ring ring = {random.one_in(2) ? std::size_t{2} : std::size_t{3},
               static_cast<std::size_t>(random.between(1, 12)),
               {},
               random.between(-9.0, 9.0)};
  if (kind == 2 && random.one_in(20)) ring.distance = special(random);
  for (std::size_t i = 0; i < (ring.n + 2) * ring.dim; ++i) {
    const bool repeats = i >= ring.dim && random.one_in(10);
    ring.points.push_back(repeats ? ring.points[i - ring.dim] : coordinate(random, kind));
  }
  return ring;
}

Guarded<double> moved(Mover mover, const Ring& ring) {
  Guarded<double> out(static_cast<int>(ring.n * ring.dim));
  mover(ring.dim, ring.n, ring.points.data(), ring.distance, out.data());
  return out;
}

void expect_same(const Ring& ring) {
  const Guarded<double> plain = moved(clip::grow_ring_plain, ring), fast = moved(clip::grow_ring_fast, ring);
  for (std::size_t i = 0; i < plain.size(); ++i) EXPECT_TRUE(same_bits(plain[i], fast[i])) << "double " << i;
  EXPECT_TRUE(fast.intact());
}

TEST(GrowRing, BothFormsWriteTheSameBits) {
  constexpr std::uint64_t kFamily = 343;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    expect_same(random_ring(random, i % 3));
    ASSERT_FALSE(HasFailure()) << "case " << i;
  }
}

// Long rings of which every 16th point turns the other way, or nearly so: an inner ring of few points, passed
// once, between which the line runs far round it the other way.
Ring turning_ring(Random& random) {
  Ring ring = {random.one_in(2) ? std::size_t{2} : std::size_t{3},
               static_cast<std::size_t>(random.between(120, 400)),
               {},
               random.between(-9.0, 9.0)};
  const double far = random.one_in(2) ? 0 : random.between(-1e6, 1e6);
  const double outer = random.between(0.2, 3.0), turn = random.one_in(2) ? 0.1 : -0.1;
  const auto stray = static_cast<std::size_t>(random.between(0, 15));
  for (std::size_t i = 0; i < ring.n + 2; ++i) {
    const bool inner = i % 16 == stray;
    const double angle = (inner ? -turn : turn) * static_cast<double>(i), radius = inner ? 1 : outer;
    ring.points.push_back(far + 100 * radius * std::cos(angle));
    ring.points.push_back(far + 100 * radius * std::sin(angle));
    if (ring.dim == 3) ring.points.push_back(random.between(-100.0, 100.0));
  }
  return ring;
}

TEST(GrowRing, BothFormsWriteTheSameBitsOfLongRingsThatSeemToTurnTheOtherWay) {
  std::printf("seeds: case_seed(345, i)\n");
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(345, i));
    expect_same(turning_ring(random));
    ASSERT_FALSE(HasFailure()) << "case " << i;
  }
}

// Hosts run with floating-point exceptions switched on.
TEST(GrowRing, FiniteNumbersRaiseNoFloatingPointExceptions) {
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(344, i));
    const Ring ring = random_ring(random, i % 2);
    std::feclearexcept(FE_ALL_EXCEPT);
    moved(clip::grow_ring_fast, ring);
    ASSERT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW), 0) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
