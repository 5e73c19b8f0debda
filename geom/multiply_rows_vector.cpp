// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What it buys: 1,000,000 rows of 3 take 4.5 ms instead of 8.8, near the 3.5 ms of copying them, and one row
// in the cache 1.5 ns instead of 6.4; a product of two matrices of order 3 takes 4.6 ns instead of 27, of
// order 4 9 ns instead of 25.
//
// Why it cannot change a result: two columns of the matrix stand in the halves of a register, and each half
// goes through the products and sums of row_times_column in their order. Nothing is summed across halves.
#include "geom/multiply_rows.h"

#include <emmintrin.h>

#include <cstddef>
#include <utility>

namespace Corvane::Print::geom {

namespace {

// A row of a matrix, or of what it makes of another, as it stands in registers: one type for each order.
struct Row2 {
  static constexpr int kOrder = 2;
  __m128d pair;

  explicit Row2(const double* at) : pair(_mm_loadu_pd(at)) {}
  void store(double* at) const { _mm_storeu_pd(at, pair); }
  void scale(const double* factor) { pair = _mm_mul_pd(_mm_load1_pd(factor), pair); }
  void add(const Row2& other) { pair = _mm_add_pd(pair, other.pair); }
};

struct Row3 {
  static constexpr int kOrder = 3;
  __m128d pair, last;

  explicit Row3(const double* at) : pair(_mm_loadu_pd(at)), last(_mm_load_sd(at + 2)) {}
  void store(double* at) const {
    _mm_storeu_pd(at, pair);
    _mm_store_sd(at + 2, last);
  }
  void scale(const double* factor) {
    const __m128d both = _mm_load1_pd(factor);
    pair = _mm_mul_pd(both, pair);
    last = _mm_mul_sd(both, last);
  }
  void add(const Row3& other) {
    pair = _mm_add_pd(pair, other.pair);
    last = _mm_add_sd(last, other.last);
  }
};

struct Row4 {
  static constexpr int kOrder = 4;
  __m128d left, right;

  explicit Row4(const double* at) : left(_mm_loadu_pd(at)), right(_mm_loadu_pd(at + 2)) {}
  void store(double* at) const {
    _mm_storeu_pd(at, left);
    _mm_storeu_pd(at + 2, right);
  }
  void scale(const double* factor) {
    const __m128d both = _mm_load1_pd(factor);
    left = _mm_mul_pd(both, left);
    right = _mm_mul_pd(both, right);
  }
  void add(const Row4& other) {
    left = _mm_add_pd(left, other.left);
    right = _mm_add_pd(right, other.right);
  }
};

template <class Row>
class Matrix {
public:
  explicit Matrix(const double* m) : Matrix(m, std::make_index_sequence<Row::kOrder>()) {}

  Row times(const double* row) const {
    Row sum = rows_[0];
    sum.scale(row);
#pragma GCC unroll 4
    for (int k = 1; k < Row::kOrder; ++k) {
      Row product = rows_[k];
      product.scale(row + k);
      sum.add(product);
    }
    return sum;
  }

private:
  template <std::size_t... kRow>
  Matrix(const double* m, std::index_sequence<kRow...>) : rows_{Row(m + kRow * Row::kOrder)...} {}

  Row rows_[Row::kOrder];
};

template <class Row>
void multiply(const double* rows, std::ptrdiff_t count, const double* m, double* out) {
  const Matrix<Row> matrix(m);
  for (std::ptrdiff_t i = 0; i < count; ++i)
    matrix.times(rows + i * Row::kOrder).store(out + i * Row::kOrder);
}

template <class Row, std::size_t... kRow>
void product(const double* a, const double* b, double* c, std::index_sequence<kRow...>) {
  const Matrix<Row> matrix(b);
  const Row rows[] = {matrix.times(a + kRow * Row::kOrder)...};
  (rows[kRow].store(c + kRow * Row::kOrder), ...);
}

template <class Row>
void product(const double* a, const double* b, double* c) {
  product<Row>(a, b, c, std::make_index_sequence<Row::kOrder>());
}

}  // namespace

void multiply_rows_fast(int n, const double* rows, std::ptrdiff_t count, const double* m, double* out) {
  switch (n) {
    case 2:
      return multiply<Row2>(rows, count, m, out);
    case 3:
      return multiply<Row3>(rows, count, m, out);
    default:
      return multiply<Row4>(rows, count, m, out);
  }
}

void multiply_matrices_fast(int n, const double* a, const double* b, double* c) {
  switch (n) {
    case 2:
      return product<Row2>(a, b, c);
    case 3:
      return product<Row3>(a, b, c);
    default:
      return product<Row4>(a, b, c);
  }
}

}  // namespace Corvane::Print::geom
