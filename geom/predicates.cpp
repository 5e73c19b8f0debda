// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Predicates on points. One absolute tolerance serves them all; whatever the comparison "exceeds" says about
// something that is no number holds: it does not exceed.
#include "corvane/print/geom.h"

#include <cmath>
#include <cstddef>

namespace Corvane::Print {
namespace {

constexpr int kNoCoordinate = -1;

bool exceeds(double difference) {
  return std::fabs(difference) > GEOM_POINT_TOLERANCE;
}

// Point i of a set.
const double* at(const double* pts, int dim, int i) {
  return pts + static_cast<std::ptrdiff_t>(i) * dim;
}

int constant_coordinate(int coordinate, int dim, int n, const double* pts) {
  if (coordinate == kNoCoordinate) return 0;
  if (n < 1) return 1;
  if (coordinate >= dim || pts == nullptr) return 0;
  for (int i = 0; i < n; ++i) {
    if (exceeds(at(pts, dim, i)[coordinate] - pts[coordinate])) return 0;
  }
  return 1;
}

// The first of two consecutive points through which the line can be written as y = m*x + b; null when there
// are none: the points lie on one upright line.
const double* first_pair_with_slope(int dim, int n, const double* pts) {
  for (int i = 0; i + 1 < n; ++i) {
    const double* pair = at(pts, dim, i);
    if (GEOMPointsEqual(dim, 2, pair) == 1) continue;
    if (GEOMPointsParallelToAxis(GEOM_Y_AXIS, dim, 2, pair) == 1) continue;
    return pair;
  }
  return nullptr;
}

}  // namespace

int GEOMPointsEqual(int dim, int n, const double* pts) {
  if (n < 1 || dim < 1) return 1;
  if (pts == nullptr) return 0;
  for (int i = 0; i < n; ++i) {
    const double* point = at(pts, dim, i);
    for (int k = 0; k < dim; ++k) {
      if (exceeds(point[k] - pts[k])) return 0;
    }
  }
  return 1;
}

// KEEP(colinear-few-points): fewer than two points are refused only when dim is below 2 as well.
// Looks wrong; callers take the 1 for single points. Pinned by
// Predicates.FewPointsAreColinearUnlessTheDimensionIsTooSmallToo.
//
// KEEP(colinear-upright-distance): the distance from the line is taken along y.
// Looks wrong, for steep lines are tested more strictly; verdicts must not change. Pinned by
// Predicates.TheDistanceFromTheLineIsTakenUpright.
int GEOMPointsColinear(int dim, int n, const double* pts) {
  if (n < 2 && dim < 2) return 0;
  if (GEOMPointsEqual(dim, n, pts) == 1) return 1;
  if (dim < 2 || pts == nullptr) return 0;
  const double* const pair = first_pair_with_slope(dim, n, pts);
  if (pair == nullptr) return 1;
  const double x1 = pair[0], y1 = pair[1], x2 = pair[dim], y2 = pair[dim + 1];
  const double m = (y2 - y1) / (x2 - x1);
  const double b = y1 - m * x1;
  for (int i = 0; i < n; ++i) {
    const double* point = at(pts, dim, i);
    if (exceeds(point[1] - m * point[0] - b)) return 0;
  }
  return 1;
}

int GEOMPointsParallelToAxis(int axis, int dim, int n, const double* pts) {
  const int coordinate = axis == GEOM_X_AXIS ? 1 : axis == GEOM_Y_AXIS ? 0 : kNoCoordinate;
  return constant_coordinate(coordinate, dim, n, pts);
}

int GEOMPointsParallelToPlane(int plane, int dim, int n, const double* pts) {
  const int coordinate = plane == GEOM_XY_PLANE   ? 2
                         : plane == GEOM_XZ_PLANE ? 1
                         : plane == GEOM_YZ_PLANE ? 0
                                                  : kNoCoordinate;
  return constant_coordinate(coordinate, dim, n, pts);
}

int GEOMValueInRange(double value, double low, double high) {
  return low <= value && value <= high ? 1 : 0;
}

}  // namespace Corvane::Print
