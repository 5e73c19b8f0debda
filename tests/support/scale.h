// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How many random cases a test runs. The environment variable CORVANE_TEST_SCALE, a number above 0 and at
// most 1, cuts the counts down for slow tools: `for (int i = 0; i < scaled(100000); ++i)` runs 1,000 cases
// with 0.01.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_SCALE_H
#define CORVANE_PRINT_TESTS_SUPPORT_SCALE_H

#include <cstdlib>

namespace Corvane::Print::tests {

inline double test_scale() {
  const char* text = std::getenv("CORVANE_TEST_SCALE");
  const double scale = text != nullptr ? std::strtod(text, nullptr) : 1.0;
  return scale > 0.0 && scale <= 1.0 ? scale : 1.0;
}

// `n` cases cut to the scale, at least one.
inline int scaled(int n) {
  const int cut = static_cast<int>(n * test_scale());
  return cut > 0 ? cut : 1;
}

}  // namespace Corvane::Print::tests

#endif
