// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Equality of results bit by bit. All NaNs are one: which of two NaNs an addition hands on is the compiler's
// choice.
#ifndef CORVANE_PRINT_TESTS_CLIP_BITS_H
#define CORVANE_PRINT_TESTS_CLIP_BITS_H

#include <bit>
#include <cmath>
#include <cstdint>

namespace Corvane::Print::tests {

inline bool same_bits(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

}  // namespace Corvane::Print::tests

#endif
