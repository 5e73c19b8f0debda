// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Runs of doubles whose places may overlap, as outputs and inputs of one call may.
#ifndef CORVANE_PRINT_GEOM_DOUBLES_H
#define CORVANE_PRINT_GEOM_DOUBLES_H

#include <cstddef>
#include <cstring>

namespace Corvane::Print::geom {

inline void move_doubles(const double* from, std::ptrdiff_t count, double* to) {
  std::memmove(to, from, static_cast<std::size_t>(count) * sizeof(double));
}

}  // namespace Corvane::Print::geom

#endif
