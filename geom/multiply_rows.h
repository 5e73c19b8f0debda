// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Row vectors times a matrix.
#ifndef CORVANE_PRINT_GEOM_MULTIPLY_ROWS_H
#define CORVANE_PRINT_GEOM_MULTIPLY_ROWS_H

#include <cstddef>

namespace Corvane::Print::geom {

// Each of `count` rows of n (2, 3 or 4) doubles times m, n*n doubles. All results of a row are formed before
// the first of them is stored; `m` is not part of the output. In two forms, element by element and by two,
// which write the same.
void multiply_rows_plain(int n, const double* rows, std::ptrdiff_t count, const double* m, double* out);
void multiply_rows_fast(int n, const double* rows, std::ptrdiff_t count, const double* m, double* out);

// c = a * b, in the same two forms. All results are formed before the first of them is stored, so c may be a
// or b.
void multiply_matrices_plain(int n, const double* a, const double* b, double* c);
void multiply_matrices_fast(int n, const double* a, const double* b, double* c);

}  // namespace Corvane::Print::geom

#endif
