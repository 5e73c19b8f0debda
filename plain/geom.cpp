// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the GEOM family.
#include "corvane/print/geom.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

int GEOMAddVector(int n, double* a, double* b, double* sum) {
  return print::GEOMAddVector(n, a, b, sum);
}

int GEOMComputeRectVerts(double* minCorner, double* maxCorner, double* verts) {
  return print::GEOMComputeRectVerts(minCorner, maxCorner, verts);
}

int GEOMComputeCubeVerts(double* minCorner, double* maxCorner, double* verts) {
  return print::GEOMComputeCubeVerts(minCorner, maxCorner, verts);
}

int GEOMComputeMinEnclRect(int n, double (*pts)[2], double* minCorner, double* maxCorner) {
  return print::GEOMComputeMinEnclRect(n, pts, minCorner, maxCorner);
}

int GEOMComputeMinEnclCube(int n, double (*pts)[3], double* minCorner, double* maxCorner) {
  return print::GEOMComputeMinEnclCube(n, pts, minCorner, maxCorner);
}

int GEOMComputeCubeDiag(int n, double* pts, double* minCorner, double* maxCorner) {
  return print::GEOMComputeCubeDiag(n, pts, minCorner, maxCorner);
}

int GEOMComputeRectIntersection(double* a1, double* a2, double* b1, double* b2, double* outMin,
                                double* outMax) {
  return print::GEOMComputeRectIntersection(a1, a2, b1, b2, outMin, outMax);
}

int GEOMComputeCubeIntersection(double* a1, double* a2, double* b1, double* b2, double* outMin,
                                double* outMax) {
  return print::GEOMComputeCubeIntersection(a1, a2, b1, b2, outMin, outMax);
}

int GEOMPointsEqual(int dim, int n, const double* pts) {
  return print::GEOMPointsEqual(dim, n, pts);
}

int GEOMPointsColinear(int dim, int n, const double* pts) {
  return print::GEOMPointsColinear(dim, n, pts);
}

int GEOMPointsParallelToAxis(int axis, int dim, int n, const double* pts) {
  return print::GEOMPointsParallelToAxis(axis, dim, n, pts);
}

int GEOMPointsParallelToPlane(int plane, int dim, int n, const double* pts) {
  return print::GEOMPointsParallelToPlane(plane, dim, n, pts);
}

int GEOMValueInRange(double value, double low, double high) {
  return print::GEOMValueInRange(value, low, high);
}

int GEOMCheckRect(int dim, int n, double* pts) {
  return print::GEOMCheckRect(dim, n, pts);
}

int GEOMCheckRectangularPlotArea(int dim, int n, double* pts) {
  return print::GEOMCheckRectangularPlotArea(dim, n, pts);
}

int GEOMShapeFindLongestSide(int dim, int n, double* pts, double* side) {
  return print::GEOMShapeFindLongestSide(dim, n, pts, side);
}

}  // namespace Corvane::Plain
