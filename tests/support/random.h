// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The random numbers of all random tests: splitmix64. It works on integers and one exact conversion, so that
// the same seed gives the same cases on every target.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_RANDOM_H
#define CORVANE_PRINT_TESTS_SUPPORT_RANDOM_H

#include <cstdint>

namespace Corvane::Print::tests {

class Random {
public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t next() {
    state_ += 0x9E3779B97F4A7C15u;
    std::uint64_t z = state_;
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  // 0 <= u < 1, a multiple of 2^-53.
  double unit() { return static_cast<double>(next() >> 11) * 0x1p-53; }
  double between(double low, double high) { return low + (high - low) * unit(); }

  // 0 .. n-1. The slight preference for small numbers does not matter here.
  int below(int n) { return static_cast<int>(next() % static_cast<std::uint64_t>(n)); }
  int between(int low, int high) { return low + below(high - low + 1); }
  bool one_in(int n) { return below(n) == 0; }

private:
  std::uint64_t state_;
};

// A seed of its own for each case of each family, so that a failing case can be run alone.
inline std::uint64_t case_seed(std::uint64_t family, int index) {
  return Random(family * 0x100000000u + static_cast<std::uint64_t>(index)).next();
}

}  // namespace Corvane::Print::tests

#endif
