// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The sine and the cosine of an angle, with the same bits on every target. The runtimes' own functions differ
// in the last bit, and near multiples of pi in many.
#ifndef CORVANE_PRINT_GEOM_ANGLE_H
#define CORVANE_PRINT_GEOM_ANGLE_H

namespace Corvane::Print::geom {

struct SinCos {
  double sin, cos;
};

// Of an angle in radians, of any size; both are rounded correctly, as far as some 100 bits decide. An
// infinite angle, or one that is no number, has neither (NaN).
SinCos sin_cos(double angle);

}  // namespace Corvane::Print::geom

#endif
