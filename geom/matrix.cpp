// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Matrix arithmetic and the way to and from homogeneous form. Every result is formed before it is stored, so
// that outputs may be inputs. Sums begin with the first product and go on in the order of the elements; the
// bits of results hang on it.
#include "corvane/print/mat.h"
#include "geom/doubles.h"

#include <algorithm>
#include <cstddef>

namespace Corvane::Print {
namespace {

constexpr int kLargestOrder = 4;
using Elements = double[kLargestOrder * kLargestOrder];

bool is_order(int n) {
  return n >= 2 && n <= kLargestOrder;
}

// A row vector of N doubles times column j of a matrix.
template <int N>
double row_times_column(const double* row, const double* m, int j) {
  double sum = row[0] * m[j];
  for (int k = 1; k < N; ++k) sum += row[k] * m[k * N + j];
  return sum;
}

template <int N>
void multiply_rows(const double* rows, std::ptrdiff_t count, const double* m, double* out) {
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    double result[N];
    for (int j = 0; j < N; ++j) result[j] = row_times_column<N>(rows + i * N, m, j);
    std::copy_n(result, N, out + i * N);
  }
}

void multiply_rows(int n, const double* rows, int count, const double* m, double* out) {
  switch (n) {
    case 2:
      return multiply_rows<2>(rows, count, m, out);
    case 3:
      return multiply_rows<3>(rows, count, m, out);
    case 4:
      return multiply_rows<4>(rows, count, m, out);
    default:
      return;
  }
}

}  // namespace

int MATTransposeMat(int n, const double* m, double* t) {
  if (!is_order(n) || m == nullptr || t == nullptr) return 0;
  Elements copy;
  std::copy_n(m, n * n, copy);
  for (int r = 0; r < n; ++r) {
    for (int c = 0; c < n; ++c) t[c * n + r] = copy[r * n + c];
  }
  return 0;
}

int MATMulMatMat(int n, double* a, double* b, double* c) {
  if (!is_order(n) || a == nullptr || b == nullptr || c == nullptr) return 0;
  Elements product;
  multiply_rows(n, a, n, b, product);
  std::copy_n(product, n * n, c);
  return 0;
}

int MATMulVecMat(int n, double* vecs, int count, double* m, double* out) {
  if (!is_order(n) || count < 1 || vecs == nullptr || m == nullptr || out == nullptr) return 0;
  multiply_rows(n, vecs, count, m, out);
  return 0;
}

int MATCvtMatToHomog(int dim, double* r, double* h) {
  if (dim != 2 && dim != 3) return 1;
  if (r == nullptr || h == nullptr) return 0;
  Elements homogeneous = {};
  const int order = dim + 1;
  for (int row = 0; row < dim; ++row) std::copy_n(r + row * dim, dim, homogeneous + row * order);
  homogeneous[order * order - 1] = 1.0;
  std::copy_n(homogeneous, order * order, h);
  return 0;
}

// From the last point backwards: in place, nothing is written over before it was read.
void MATConvertPtDimToHomog(int dim, int count, const double* pts, double* hpts) {
  if (dim < 1 || count < 1 || pts == nullptr || hpts == nullptr) return;
  const std::ptrdiff_t stride = dim;
  for (std::ptrdiff_t i = std::ptrdiff_t{count} - 1; i >= 0; --i) {
    double* const point = hpts + i * (stride + 1);
    geom::move_doubles(pts + i * stride, stride, point);
    point[stride] = 1.0;
  }
}

// KEEP(homog-no-division): the last element is dropped, not divided by.
// Looks wrong; callers keep it at 1, or want the point as it is. Pinned by
// Matrix.GoingBackToPlainPointsDividesByNothing.
void MATConvertPtHomogToDim(int dim, int count, const double* hpts, double* pts) {
  if (dim < 1 || count < 1 || pts == nullptr || hpts == nullptr) return;
  const std::ptrdiff_t stride = dim;
  for (std::ptrdiff_t i = 0; i < count; ++i) {
    geom::move_doubles(hpts + i * (stride + 1), stride, pts + i * stride);
  }
}

}  // namespace Corvane::Print
