// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two forms of sums and extents write the same bits.
#include "geom/coordinates.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "tests/geom/numbers.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

int random_count(Random& random) {
  if (random.one_in(500)) return random.between(500, 1100);
  return random.between(0, 20);
}

// Numbers whose extremes are often zeros of both signs.
Doubles random_numbers(Random& random, int count) {
  Doubles found = Numbers(random).next(count);
  if (random.one_in(2)) return found;
  const bool above = random.one_in(2);
  for (double& number : found) number = above ? std::max(number, -0.0) : std::min(number, 0.0);
  return found;
}

TEST(Coordinates, BothFormsOfAnExtentWriteTheSameBits) {
  constexpr std::uint64_t kFamily = 304;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  int zeros = 0;
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    const int dim = random.between(2, 3), n = random_count(random);
    const Doubles points = random_numbers(random, dim * n), seeds = Numbers(random).next(2 * dim);
    Doubles plain = seeds, fast = seeds;
    geom::widen_plain(dim, n, points.data(), plain.data(), plain.data() + dim);
    geom::widen_fast(dim, n, points.data(), fast.data(), fast.data() + dim);
    ASSERT_TRUE(same_bits(fast, plain)) << "case " << i;
    zeros += n >= 8 && plain[0] == 0.0 && seeds[0] != 0.0;
  }
  EXPECT_GT(zeros, scaled(1000000) / 50);
}

TEST(Coordinates, TheZeroThatComesFirstBecomesTheBound) {
  for (const double first : {0.0, -0.0}) {
    Doubles points(2 * 600, 5.0), low = {9.0, 9.0}, high = {9.0, 9.0};
    points[2 * 301] = first;
    points[2 * 302] = -first;
    points[2 * 599] = -first;
    geom::widen_fast(2, 600, points.data(), low.data(), high.data());
    EXPECT_TRUE(same_bits(low, Doubles{first, 5.0}));
  }
}

// Whatever parts the arrays have in common, each sum is stored before the next number is read.
TEST(Coordinates, BothFormsOfASumWriteTheSameBits) {
  constexpr std::uint64_t kFamily = 305;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    const int n = random.between(-1, 20);
    Doubles plain = Numbers(random).next(40);
    Doubles fast = plain;
    const int a = random.between(0, 20), b = random.between(0, 20), sum = random.between(0, 20);
    geom::add_plain(n, plain.data() + a, plain.data() + b, plain.data() + sum);
    geom::add_fast(n, fast.data() + a, fast.data() + b, fast.data() + sum);
    ASSERT_TRUE(same_bits(fast, plain)) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
