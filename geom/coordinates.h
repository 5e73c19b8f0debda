// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Sums and extents of long runs of coordinates. Each in two forms, number by number and several at a time,
// which write the same.
#ifndef CORVANE_PRINT_GEOM_COORDINATES_H
#define CORVANE_PRINT_GEOM_COORDINATES_H

namespace Corvane::Print::geom {

// sum[i] = a[i] + b[i] from i = 0 on; the arrays may have parts in common.
void add_plain(int n, const double* a, const double* b, double* sum);
void add_fast(int n, const double* a, const double* b, double* sum);

// Takes n points of `dim` (2 or 3) doubles, one after the other, into the box from low to high. Of equal
// coordinates, as 0.0 and -0.0 are, the first one stays. A point's coordinate that is no number is passed
// over; one of low or high stays. low and high are not part of the points.
void widen_plain(int dim, int n, const double* points, double* low, double* high);
void widen_fast(int dim, int n, const double* points, double* low, double* high);

}  // namespace Corvane::Print::geom

#endif
