// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The longest side as a test wants it.
#ifndef CORVANE_PRINT_TESTS_GEOM_LONGEST_SIDE_H
#define CORVANE_PRINT_TESTS_GEOM_LONGEST_SIDE_H

#include <gtest/gtest.h>

#include "corvane/print/geom.h"
#include "tests/geom/numbers.h"

namespace Corvane::Print::tests {

constexpr double kCanary = 77.0;
constexpr char32_t kTolerance[] = U"TQ_PLT_PERCENT_LENEQUAL_TOLERANCE";

// The ends of the longest side; none when the call failed, which must have written nothing then.
inline Doubles longest_side(int dim, int n, Doubles pts) {
  Doubles side(7, kCanary);
  const int result = GEOMShapeFindLongestSide(dim, n, pts.data(), side.data());
  const auto written = static_cast<std::size_t>(result == 0 ? 2 * dim : 0);
  for (std::size_t i = written; i < side.size(); ++i) EXPECT_EQ(side[i], kCanary);
  EXPECT_TRUE(result == 0 || result == 1) << result;
  side.resize(written);
  return side;
}

}  // namespace Corvane::Print::tests

#endif
