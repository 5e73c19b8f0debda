// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Vectors, rectangles and boxes: sums, corners, enclosing boxes, intersections. All comparisons are exact.
#include "corvane/print/geom.h"
#include "geom/coordinates.h"

namespace Corvane::Print {
namespace {

#ifdef CORVANE_PRINT_PLAIN
constexpr auto add = geom::add_plain;
constexpr auto widen = geom::widen_plain;
#else
constexpr auto add = geom::add_fast;
constexpr auto widen = geom::widen_fast;
#endif

template <class... Arrays>
bool any_null(const Arrays*... arrays) {
  return (... || (arrays == nullptr));
}

void copy_point(const double* from, int dim, double* to) {
  for (int k = 0; k < dim; ++k) to[k] = from[k];
}

int enclose(int n, const double* pts, int dim, double* low, double* high) {
  if (any_null(pts, low, high)) return 0;
  copy_point(pts, dim, low);
  copy_point(pts, dim, high);
  if (n > 1) widen(dim, n - 1, pts + dim, low, high);
  return 0;
}

// The ends of two closed intervals that lie in the other interval.
class CommonEnds {
public:
  CommonEnds(double a1, double a2, double b1, double b2) {
    take_if_within(a1, b1, b2);
    take_if_within(a2, b1, b2);
    take_if_within(b1, a1, a2);
    take_if_within(b2, a1, a2);
  }
  bool any() const { return count_ > 0; }

  // The first one of equal ones, which tells 0.0 from -0.0.
  double smallest() const {
    double found = ends_[0];
    for (int i = 1; i < count_; ++i) found = ends_[i] < found ? ends_[i] : found;
    return found;
  }
  double largest() const {
    double found = ends_[0];
    for (int i = 1; i < count_; ++i) found = ends_[i] > found ? ends_[i] : found;
    return found;
  }

private:
  void take_if_within(double end, double low, double high) {
    if (GEOMValueInRange(end, low, high) == 1) ends_[count_++] = end;
  }

  double ends_[4] = {};
  int count_ = 0;
};

}  // namespace

int GEOMAddVector(int n, double* a, double* b, double* sum) {
  if (any_null(a, b, sum)) return 0;
  add(n, a, b, sum);
  return 0;
}

int GEOMComputeRectVerts(double* minCorner, double* maxCorner, double* verts) {
  if (any_null(minCorner, maxCorner, verts)) return 0;
  const double x0 = minCorner[0], y0 = minCorner[1], x1 = maxCorner[0], y1 = maxCorner[1];
  const double corners[] = {x0, y0, x1, y0, x1, y1, x0, y1};
  copy_point(corners, 8, verts);
  return 0;
}

int GEOMComputeCubeVerts(double* minCorner, double* maxCorner, double* verts) {
  if (any_null(minCorner, maxCorner, verts)) return 0;
  const double x0 = minCorner[0], y0 = minCorner[1], z0 = minCorner[2];
  const double x1 = maxCorner[0], y1 = maxCorner[1], z1 = maxCorner[2];
  const double corners[] = {x0, y0, z0, x1, y0, z0, x1, y1, z0, x0, y1, z0,
                            x0, y0, z1, x1, y0, z1, x1, y1, z1, x0, y1, z1};
  copy_point(corners, 24, verts);
  return 0;
}

int GEOMComputeMinEnclRect(int n, double (*pts)[2], double* minCorner, double* maxCorner) {
  return enclose(n, reinterpret_cast<double*>(pts), 2, minCorner, maxCorner);
}

int GEOMComputeMinEnclCube(int n, double (*pts)[3], double* minCorner, double* maxCorner) {
  return enclose(n, reinterpret_cast<double*>(pts), 3, minCorner, maxCorner);
}

// KEEP(cube-diag-second-point): point 1 is the first maximum, read before the count is looked at.
// Looks wrong for a single point; callers pass two at least and lay out their arrays for it. Pinned by
// Boxes.TheDiagonalTakesTheSecondPointIntoAccountWhateverTheCount.
int GEOMComputeCubeDiag(int n, double* pts, double* minCorner, double* maxCorner) {
  if (any_null(pts, minCorner, maxCorner)) return 0;
  copy_point(pts, 3, minCorner);
  copy_point(pts + 3, 3, maxCorner);
  widen(3, n, pts, minCorner, maxCorner);
  return 0;
}

int GEOMComputeRectIntersection(double* a1, double* a2, double* b1, double* b2, double* outMin,
                                double* outMax) {
  if (any_null(a1, a2, b1, b2, outMin, outMax)) return 0;
  for (int k = 0; k < 2; ++k) outMin[k] = outMax[k] = 0.0;
  const CommonEnds x(a1[0], a2[0], b1[0], b2[0]), y(a1[1], a2[1], b1[1], b2[1]);
  if (!x.any() || !y.any()) return 0;
  outMin[0] = x.smallest();
  outMin[1] = y.smallest();
  outMax[0] = x.largest();
  outMax[1] = y.largest();
  return outMax[0] >= outMin[0] && outMax[1] >= outMin[1] ? 1 : 0;
}

int GEOMComputeCubeIntersection(double* a1, double* a2, double* b1, double* b2, double* outMin,
                                double* outMax) {
  if (any_null(a1, a2, b1, b2, outMin, outMax)) return 0;
  for (int k = 0; k < 3; ++k) outMin[k] = outMax[k] = 0.0;
  double low_xy[2], high_xy[2], low_xz[2], high_xz[2];
  if (GEOMComputeRectIntersection(a1, a2, b1, b2, low_xy, high_xy) == 0) return 0;
  double a1_xz[] = {a1[0], a1[2]}, a2_xz[] = {a2[0], a2[2]};
  double b1_xz[] = {b1[0], b1[2]}, b2_xz[] = {b2[0], b2[2]};
  if (GEOMComputeRectIntersection(a1_xz, a2_xz, b1_xz, b2_xz, low_xz, high_xz) == 0) return 0;
  copy_point(low_xy, 2, outMin);
  copy_point(high_xy, 2, outMax);
  outMin[2] = low_xz[1];
  outMax[2] = high_xz[1];
  return 1;
}

}  // namespace Corvane::Print
