// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Builds homogeneous matrices and the inverses of those that it builds. Points are row vectors, so a
// translation stands in the last row.
#include "corvane/print/mat.h"
#include "geom/angle.h"
#include "geom/doubles.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Corvane::Print {
namespace {

bool is_dimension(int dim) {
  return dim == 2 || dim == 3;
}

// KEEP(mat-clears-any-dimension): (dim+1)^2 doubles are cleared whatever the dimension is.
// Looks wrong; callers with matrices of other orders take it for clearing them. Pinned by
// MatrixBuild.AnUnsupportedDimensionClearsItsSquareAndNothingElse.
void clear(int dim, double* m) {
  const std::int64_t order = std::int64_t{dim} + 1, count = order * order;
  if (count <= std::numeric_limits<std::int32_t>::max()) std::fill_n(m, count, 0.0);
}

// Writes a diagonal of `dim` given elements and 1 at its end into a cleared matrix.
void set_diagonal(int dim, double x, double y, double z, double* m) {
  const int step = dim + 2;
  m[0] = x;
  m[step] = y;
  if (dim == 3) m[2 * step] = z;
  m[dim * step] = 1.0;
}

}  // namespace

int MATBuildTransHMat(int dim, double tx, double ty, double tz, double* m) {
  if (m == nullptr) return 0;
  clear(dim, m);
  if (!is_dimension(dim)) return 0;
  set_diagonal(dim, 1.0, 1.0, 1.0, m);
  double* const last_row = m + dim * (dim + 1);
  last_row[0] = tx;
  last_row[1] = ty;
  if (dim == 3) last_row[2] = tz;
  return 0;
}

int MATBuildScaleHMat(int dim, double sx, double sy, double sz, double* m) {
  if (m == nullptr) return 0;
  clear(dim, m);
  if (is_dimension(dim)) set_diagonal(dim, sx, sy, sz, m);
  return 0;
}

int MATBuildRotAboutZHMat(int dim, double angle, double* m) {
  if (m == nullptr) return 0;
  clear(dim, m);
  if (!is_dimension(dim)) return 0;
  const geom::SinCos turn = geom::sin_cos(angle);
  set_diagonal(dim, turn.cos, turn.cos, 1.0, m);
  m[1] = turn.sin;
  m[dim + 1] = -turn.sin;
  return 0;
}

int MATBuildInvTransHMat(int dim, double* m, double* inv) {
  if (!is_dimension(dim) || m == nullptr || inv == nullptr) return 0;
  const int last_row = dim * (dim + 1);
  geom::move_doubles(m, last_row, inv);
  for (int k = 0; k < dim; ++k) inv[last_row + k] = -m[last_row + k];
  inv[last_row + dim] = 1.0;
  return 0;
}

int MATBuildInvScaleHMat(int dim, double* m, double* inv) {
  if (!is_dimension(dim) || m == nullptr || inv == nullptr) return 0;
  geom::move_doubles(m, (dim + 1) * (dim + 1), inv);
  for (int k = 0; k < dim; ++k) inv[k * (dim + 2)] = 1.0 / inv[k * (dim + 2)];
  return 0;
}

int MATBuildInvRotHMat(int dim, double* m, double* inv) {
  return is_dimension(dim) ? MATTransposeMat(dim + 1, m, inv) : 0;
}

int MATInvRotMat(int dim, double* r, double* inv) {
  return is_dimension(dim) ? MATTransposeMat(dim, r, inv) : 0;
}

}  // namespace Corvane::Print
