// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the checks of a plot area must answer, and which side is the longest, a second time.
#ifndef CORVANE_PRINT_TESTS_GEOM_PLOT_AREA_MODEL_H
#define CORVANE_PRINT_TESTS_GEOM_PLOT_AREA_MODEL_H

#include <string>
#include <utility>

#include "tests/geom/predicates_model.h"

namespace Corvane::Print::tests::model {

using UnitPoint = std::pair<long long, long long>;

inline long long unit(double c) {
  const double whole = std::trunc(c > 0 ? c + 0.5 : c - 0.5);
  const bool fits = whole >= -2147483648.0 && whole <= 2147483647.0;
  return fits ? static_cast<long long>(whole) : -2147483648LL;
}

inline UnitPoint unit_point(int dim, const Doubles& pts, int i) {
  return {unit(at(dim, pts, i, 0)), unit(at(dim, pts, i, 1))};
}

inline bool coincide(int dim, const Doubles& pts, int i, int j) {
  return unit_point(dim, pts, i) == unit_point(dim, pts, j);
}

// The four edges as letters: upright, level, or neither.
inline std::string edges(int dim, const Doubles& pts) {
  std::string letters;
  for (int i = 0; i < 4; ++i) {
    const UnitPoint p = unit_point(dim, pts, i), q = unit_point(dim, pts, i == 3 ? 0 : i + 1);
    const bool same_x = p.first == q.first, same_y = p.second == q.second;
    letters += same_x == same_y ? 'x' : same_x ? 'u' : 'l';
  }
  return letters;
}

inline int check_rect(int dim, int n, const Doubles& pts) {
  if (n != 4 && n != 5) return 0;
  if (n == 5 && !coincide(dim, pts, 4, 0)) return 0;
  const std::string found = edges(dim, pts);
  return found == "ulul" || found == "lulu" ? 1 : 0;
}

inline int check_area(int dim, int n, const Doubles& pts) {
  // For every point behind the fourth, the point that it has to repeat.
  std::string repeated;
  if (n == 4)
    repeated = "";
  else if (n == 5)
    repeated = "0";
  else if (n == 8)
    repeated = "0123";
  else if (n == 9)
    repeated = "01230";
  else if (n == 10)
    repeated = "001230";
  else
    return 0;
  for (std::size_t k = 0; k < repeated.size(); ++k) {
    if (!coincide(dim, pts, 4 + static_cast<int>(k), repeated[k] - '0')) return 0;
  }
  return check_rect(dim, 4, pts);
}

inline double length(int dim, const Doubles& pts, int i, int j) {
  const double dx = at(dim, pts, j, 0) - at(dim, pts, i, 0);
  const double dy = at(dim, pts, j, 1) - at(dim, pts, i, 1);
  const double dz = dim == 3 ? at(dim, pts, j, 2) - at(dim, pts, i, 2) : 0.0;
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

// The points of the longest side; none where there is no answer.
inline Doubles longest_side(int dim, int n, const Doubles& pts, double tolerance) {
  if (points_equal(dim, n, pts) == 1 || points_colinear(dim, n, pts) == 1) return {};
  int start = 0;
  double longest = length(dim, pts, 0, 1);
  for (int i = 1; i < n; ++i) {
    const double side = length(dim, pts, i, i + 1 == n ? 0 : i + 1);
    if (side > longest && (side - longest) / longest > tolerance) {
      start = i;
      longest = side;
    }
  }
  Doubles ends;
  for (int k = 0; k < dim; ++k) ends.push_back(at(dim, pts, start, k));
  for (int k = 0; k < dim; ++k) ends.push_back(at(dim, pts, start + 1 == n ? 0 : start + 1, k));
  return ends;
}

}  // namespace Corvane::Print::tests::model

#endif
