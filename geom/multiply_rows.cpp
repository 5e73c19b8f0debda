// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Sums begin with the first product and go on in the order of the elements; the bits of results hang on it.
#include "geom/multiply_rows.h"

#include <algorithm>

namespace Corvane::Print::geom {

namespace {

// A row vector of N doubles times column j of a matrix.
template <int N>
double row_times_column(const double* row, const double* m, int j) {
  double sum = row[0] * m[j];
  for (int k = 1; k < N; ++k) sum += row[k] * m[k * N + j];
  return sum;
}

template <int N>
void multiply(const double* rows, std::ptrdiff_t count, const double* m, double* out) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    double result[N];
    for (int j = 0; j < N; ++j) result[j] = row_times_column<N>(rows + i * N, m, j);
    std::copy_n(result, N, out + i * N);
  }
}

}  // namespace

void multiply_rows_plain(int n, const double* rows, std::ptrdiff_t count, const double* m, double* out) {
  switch (n) {
    case 2:
      return multiply<2>(rows, count, m, out);
    case 3:
      return multiply<3>(rows, count, m, out);
    default:
      return multiply<4>(rows, count, m, out);
  }
}

void multiply_matrices_plain(int n, const double* a, const double* b, double* c) {
  double product[4 * 4];
  multiply_rows_plain(n, a, n, b, product);
  std::copy_n(product, n * n, c);
}

}  // namespace Corvane::Print::geom
