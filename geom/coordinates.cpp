// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
#include "geom/coordinates.h"

namespace Corvane::Print::geom {

namespace {

template <int kDim>
void widen(int n, const double* points, double* low, double* high) {
  for (int i = 0; i < n; ++i, points += kDim) {
    for (int k = 0; k < kDim; ++k) {
      if (low[k] > points[k]) low[k] = points[k];
      if (high[k] < points[k]) high[k] = points[k];
    }
  }
}

}  // namespace

void add_plain(int n, const double* a, const double* b, double* sum) {
  for (int i = 0; i < n; ++i) sum[i] = a[i] + b[i];
}

void widen_plain(int dim, int n, const double* points, double* low, double* high) {
  return dim == 2 ? widen<2>(n, points, low, high) : widen<3>(n, points, low, high);
}

}  // namespace Corvane::Print::geom
