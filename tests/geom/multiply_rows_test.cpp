// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two forms of products with matrices write the same bits, also over their inputs.
#include "geom/multiply_rows.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>

#include "tests/geom/numbers.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

TEST(MultiplyRows, BothFormsWriteTheSameBits) {
  constexpr std::uint64_t kFamily = 347;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    Numbers numbers(random);
    const int n = random.between(2, 4), count = random.between(0, 6);
    const Doubles rows = numbers.next(n * count), m = numbers.next(n * n);
    Doubles plain(rows.size()), fast(rows.size()), place = rows;
    geom::multiply_rows_plain(n, rows.data(), count, m.data(), plain.data());
    geom::multiply_rows_fast(n, rows.data(), count, m.data(), fast.data());
    geom::multiply_rows_fast(n, place.data(), count, m.data(), place.data());
    ASSERT_TRUE(same_bits(fast, plain)) << "case " << i;
    ASSERT_TRUE(same_bits(place, plain)) << "case " << i;
  }
}

// Wherever the output begins in the input, a row is what the rows before have left of it.
TEST(MultiplyRows, BothFormsWriteTheSameBitsIntoPartsOfTheirInput) {
  constexpr std::uint64_t kFamily = 970;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    Numbers numbers(random);
    const int n = random.between(2, 4), count = random.between(0, 9);
    const int rows = random.between(0, 3 * n), out = random.between(0, 3 * n);
    const Doubles m = numbers.next(n * n);
    Doubles plain = numbers.next(n * count + 3 * n), fast = plain;
    geom::multiply_rows_plain(n, plain.data() + rows, count, m.data(), plain.data() + out);
    geom::multiply_rows_fast(n, fast.data() + rows, count, m.data(), fast.data() + out);
    ASSERT_TRUE(same_bits(fast, plain)) << "case " << i;
  }
}

// As long as what is written past the caches, and longer; apart, and closer to the input than that.
TEST(MultiplyRows, BothFormsWriteTheSameBitsForMoreThanACacheHolds) {
  constexpr std::ptrdiff_t kDoubles = (8 << 20) / sizeof(double);
  Random random(case_seed(971, 0));
  Numbers numbers(random);
  for (const int n : {2, 3, 4}) {
    const Doubles m = numbers.next(n * n);
    const std::ptrdiff_t count = kDoubles / n + 3;
    Doubles source(static_cast<std::size_t>(2 * n * count + 8));
    for (double& number : source) number = random.between(-1000, 1000) / 16.0;
    for (const std::ptrdiff_t out :
         {n * count, n * count + 1, n * count + 8, n * count - 2, std::ptrdiff_t{0}}) {
      Doubles plain = source, fast = source;
      geom::multiply_rows_plain(n, plain.data(), count, m.data(), plain.data() + out);
      geom::multiply_rows_fast(n, fast.data(), count, m.data(), fast.data() + out);
      EXPECT_TRUE(same_bits(fast, plain)) << "order " << n << ", output at " << out;
    }
  }
}

TEST(MultiplyRows, BothFormsOfAProductOfMatricesWriteTheSameBits) {
  constexpr std::uint64_t kFamily = 348;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    Numbers numbers(random);
    const int n = random.between(2, 4);
    Doubles a = numbers.next(n * n), b = numbers.next(n * n), plain(a.size()), fast(a.size());
    geom::multiply_matrices_plain(n, a.data(), b.data(), plain.data());
    geom::multiply_matrices_fast(n, a.data(), b.data(), fast.data());
    ASSERT_TRUE(same_bits(fast, plain)) << "case " << i;
    Doubles& place = random.one_in(2) ? a : b;
    geom::multiply_matrices_fast(n, a.data(), b.data(), place.data());
    ASSERT_TRUE(same_bits(place, plain)) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
