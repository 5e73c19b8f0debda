// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Matrix arithmetic and the way to and from homogeneous form. Every result is formed before it is stored, so
// that outputs may be inputs.
#include "corvane/print/mat.h"
#include "geom/doubles.h"
#include "geom/multiply_rows.h"

#include <algorithm>
#include <cstddef>
#include <type_traits>

namespace Corvane::Print {
namespace {

constexpr int kLargestOrder = 4;
using Elements = double[kLargestOrder * kLargestOrder];

#ifdef CORVANE_PRINT_PLAIN
constexpr auto multiply_rows = geom::multiply_rows_plain;
constexpr auto multiply_matrices = geom::multiply_matrices_plain;
#else
constexpr auto multiply_rows = geom::multiply_rows_fast;
constexpr auto multiply_matrices = geom::multiply_matrices_fast;
#endif

bool is_order(int n) {
  return n >= 2 && n <= kLargestOrder;
}

// A dimension that the compiler knows: points of it are moved without a call.
template <int kDim>
using Fixed = std::integral_constant<std::ptrdiff_t, kDim>;

// From the last point backwards: in place, nothing is written over before it was read.
template <class Dim>
void append_ones(Dim dim, int count, const double* pts, double* hpts) {
  for (std::ptrdiff_t i = std::ptrdiff_t{count} - 1; i >= 0; --i) {
    double* const point = hpts + i * (dim + 1);
    geom::move_doubles(pts + i * dim, dim, point);
    point[dim] = 1.0;
  }
}

template <class Dim>
void drop_last(Dim dim, int count, const double* hpts, double* pts) {
  for (std::ptrdiff_t i = 0; i < count; ++i) geom::move_doubles(hpts + i * (dim + 1), dim, pts + i * dim);
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
  multiply_matrices(n, a, b, c);
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

void MATConvertPtDimToHomog(int dim, int count, const double* pts, double* hpts) {
  if (dim < 1 || count < 1 || pts == nullptr || hpts == nullptr) return;
  switch (dim) {
    case 2:
      return append_ones(Fixed<2>(), count, pts, hpts);
    case 3:
      return append_ones(Fixed<3>(), count, pts, hpts);
    default:
      return append_ones(std::ptrdiff_t{dim}, count, pts, hpts);
  }
}

// KEEP(homog-no-division): the last element is dropped, not divided by.
// Looks wrong; callers keep it at 1, or want the point as it is. Pinned by
// Matrix.GoingBackToPlainPointsDividesByNothing.
void MATConvertPtHomogToDim(int dim, int count, const double* hpts, double* pts) {
  if (dim < 1 || count < 1 || pts == nullptr || hpts == nullptr) return;
  switch (dim) {
    case 2:
      return drop_last(Fixed<2>(), count, hpts, pts);
    case 3:
      return drop_last(Fixed<3>(), count, hpts, pts);
    default:
      return drop_last(std::ptrdiff_t{dim}, count, hpts, pts);
  }
}

}  // namespace Corvane::Print
