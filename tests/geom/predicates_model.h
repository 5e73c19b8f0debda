// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the predicates on points must answer, a second time.
#ifndef CORVANE_PRINT_TESTS_GEOM_PREDICATES_MODEL_H
#define CORVANE_PRINT_TESTS_GEOM_PREDICATES_MODEL_H

#include "tests/geom/numbers.h"

namespace Corvane::Print::tests::model {

// Too far apart to be equal; what is no number is not.
inline bool apart(double a, double b) {
  const double difference = a - b;
  return difference > 1e-6 || -difference > 1e-6;
}

inline double at(int dim, const Doubles& pts, int i, int k) {
  return pts[static_cast<std::size_t>(i * dim + k)];
}

inline int all_equal(int dim, int n, const Doubles& pts, int coordinate) {
  for (int i = n - 1; i > 0; --i) {
    if (apart(at(dim, pts, i, coordinate), at(dim, pts, 0, coordinate))) return 0;
  }
  return 1;
}

inline int points_equal(int dim, int n, const Doubles& pts) {
  int equal = 1;
  for (int k = 0; k < dim; ++k) equal &= all_equal(dim, n, pts, k);
  return equal;
}

// For the codes that there are.
inline int parallel(int code, int dim, int n, const Doubles& pts) {
  switch (code) {
    case 1:
      return all_equal(dim, n, pts, 1);
    case 2:
      return all_equal(dim, n, pts, 0);
    case 4:
      return all_equal(dim, n, pts, 2);
    case 5:
      return all_equal(dim, n, pts, 1);
    case 6:
      return all_equal(dim, n, pts, 0);
    default:
      return 0;
  }
}

// For two points at least, of two coordinates at least.
inline int points_colinear(int dim, int n, const Doubles& pts) {
  if (points_equal(dim, n, pts) == 1) return 1;
  int i = 0;
  for (; i < n - 1; ++i) {
    bool same_point = true;
    for (int k = 0; k < dim; ++k)
      same_point = same_point && !apart(at(dim, pts, i + 1, k), at(dim, pts, i, k));
    const bool same_x = !apart(at(dim, pts, i + 1, 0), at(dim, pts, i, 0));
    if (!same_point && !same_x) break;
  }
  if (i == n - 1) return 1;
  const double slope =
      (at(dim, pts, i + 1, 1) - at(dim, pts, i, 1)) / (at(dim, pts, i + 1, 0) - at(dim, pts, i, 0));
  const double intercept = at(dim, pts, i, 1) - slope * at(dim, pts, i, 0);
  for (int j = 0; j < n; ++j) {
    const double above_slope = at(dim, pts, j, 1) - slope * at(dim, pts, j, 0);
    if (apart(above_slope, intercept)) return 0;
  }
  return 1;
}

}  // namespace Corvane::Print::tests::model

#endif
