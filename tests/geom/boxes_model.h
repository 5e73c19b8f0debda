// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the functions on vectors, rectangles and boxes must do, a second time: coordinate by coordinate on
// vectors, without a thought for speed.
#ifndef CORVANE_PRINT_TESTS_GEOM_BOXES_MODEL_H
#define CORVANE_PRINT_TESTS_GEOM_BOXES_MODEL_H

#include <algorithm>

#include "tests/geom/numbers.h"

namespace Corvane::Print::tests::model {

struct Box {
  Doubles low, high;
  bool there = true;
};

inline Doubles sum(const Doubles& a, const Doubles& b) {
  Doubles result;
  for (std::size_t i = 0; i < a.size(); ++i) result.push_back(a[i] + b[i]);
  return result;
}

// Corner by corner: which of the two values each coordinate takes.
inline Doubles corners(int dim, const Doubles& low, const Doubles& high) {
  constexpr const char* kCorners[] = {"000", "100", "110", "010", "001", "101", "111", "011"};
  Doubles result;
  for (int corner = 0; corner < (dim == 2 ? 4 : 8); ++corner) {
    for (std::size_t k = 0; k < static_cast<std::size_t>(dim); ++k) {
      result.push_back(kCorners[corner][k] == '0' ? low[k] : high[k]);
    }
  }
  return result;
}

// One coordinate of all points, `first_high` the first maximum, from point `from` on.
inline void extent(const Doubles& values, std::size_t from, double& low, double& high) {
  for (std::size_t i = from; i < values.size(); ++i) {
    if (values[i] < low) low = values[i];
    if (values[i] > high) high = values[i];
  }
}

inline Doubles coordinate(int dim, int n, const Doubles& pts, int k) {
  Doubles values;
  for (int i = 0; i < n; ++i) values.push_back(pts[static_cast<std::size_t>(i * dim + k)]);
  return values;
}

inline Box enclosing(int dim, int n, const Doubles& pts) {
  Box box;
  for (int k = 0; k < dim; ++k) {
    const Doubles values = coordinate(dim, n, pts, k);
    double low = values[0], high = values[0];
    extent(values, 1, low, high);
    box.low.push_back(low);
    box.high.push_back(high);
  }
  return box;
}

inline Box diagonal(int n, const Doubles& pts) {
  Box box{{pts[0], pts[1], pts[2]}, {pts[3], pts[4], pts[5]}};
  for (int k = 0; k < 3; ++k) {
    const auto at = static_cast<std::size_t>(k);
    extent(coordinate(3, n, pts, k), 0, box.low[at], box.high[at]);
  }
  return box;
}

// The ends of both intervals that lie in the other one, the first interval's first.
inline Doubles common_ends(double a1, double a2, double b1, double b2) {
  Doubles ends;
  for (const double end : {a1, a2}) {
    if (end >= b1 && end <= b2) ends.push_back(end);
  }
  for (const double end : {b1, b2}) {
    if (end >= a1 && end <= a2) ends.push_back(end);
  }
  return ends;
}

// Of two rectangles or two boxes.
inline Box intersection(const Box& a, const Box& b) {
  const std::size_t dim = a.low.size();
  Box box;
  for (std::size_t k = 0; k < dim; ++k) {
    const Doubles ends = common_ends(a.low[k], a.high[k], b.low[k], b.high[k]);
    if (ends.empty()) return {Doubles(dim, 0.0), Doubles(dim, 0.0), false};
    box.low.push_back(*std::min_element(ends.begin(), ends.end()));
    box.high.push_back(*std::max_element(ends.begin(), ends.end()));
  }
  return box;
}

}  // namespace Corvane::Print::tests::model

#endif
