// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Matrices as rows of numbers, and what is computed with them, a second time.
#ifndef CORVANE_PRINT_TESTS_GEOM_MATRIX_MODEL_H
#define CORVANE_PRINT_TESTS_GEOM_MATRIX_MODEL_H

#include "tests/geom/numbers.h"

namespace Corvane::Print::tests::model {

using Rows = std::vector<Doubles>;

inline Rows rows_of(const Doubles& flat, std::size_t width) {
  Rows rows;
  for (std::size_t i = 0; i < flat.size(); i += width) {
    rows.emplace_back(flat.begin() + static_cast<std::ptrdiff_t>(i),
                      flat.begin() + static_cast<std::ptrdiff_t>(i + width));
  }
  return rows;
}

inline Doubles flat(const Rows& rows) {
  Doubles numbers;
  for (const Doubles& row : rows) numbers.insert(numbers.end(), row.begin(), row.end());
  return numbers;
}

inline Rows transposed(const Rows& m) {
  Rows result(m.front().size());
  for (const Doubles& row : m) {
    for (std::size_t c = 0; c < row.size(); ++c) result[c].push_back(row[c]);
  }
  return result;
}

// The rows of a, each times the matrix b; sums in ascending order of the elements.
inline Rows product(const Rows& a, const Rows& b) {
  const Rows columns = transposed(b);
  Rows result;
  for (const Doubles& row : a) {
    Doubles& sums = result.emplace_back();
    for (const Doubles& column : columns) {
      Doubles products;
      for (std::size_t k = 0; k < row.size(); ++k) products.push_back(row[k] * column[k]);
      double sum = products[0];
      for (std::size_t k = 1; k < products.size(); ++k) sum = sum + products[k];
      sums.push_back(sum);
    }
  }
  return result;
}

inline Rows identity(std::size_t order) {
  Rows m(order, Doubles(order, 0.0));
  for (std::size_t i = 0; i < order; ++i) m[i][i] = 1.0;
  return m;
}

}  // namespace Corvane::Print::tests::model

#endif
