// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See transform.h. The steps are built, multiplied and applied by the library's matrices: points are row
// vectors, so the first factor of a product is the first step.
#include "plotclip/transform.h"

#include <array>
#include <cmath>

#include "corvane/print/mat.h"
#include "plotclip/log.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr int kPlane = 2;  // dimensions
constexpr int kOrder = 3;  // of a homogeneous matrix of the plane

using Matrix = std::array<double, kOrder * kOrder>;

Matrix rotation_by(double degrees) {
  const double rest = std::fmod(degrees, 360.0);
  Matrix matrix;
  MATBuildRotAboutZHMat(kPlane, rest * kPi / 180.0, matrix.data());
  // Quarter turns without the rounding error of pi: upright rectangles stay upright.
  if (std::fmod(rest, 90.0) == 0.0)
    for (double& element : matrix) element = std::round(element);
  return matrix;
}

Matrix matrix_of(const Options& options) {
  Matrix matrix, move;
  MATBuildScaleHMat(kPlane, options.scale_x, options.scale_y, 1.0, matrix.data());
  Matrix rotation = rotation_by(options.rotate);
  MATMulMatMat(kOrder, matrix.data(), rotation.data(), matrix.data());
  MATBuildTransHMat(kPlane, options.move_x, options.move_y, 0.0, move.data());
  MATMulMatMat(kOrder, matrix.data(), move.data(), matrix.data());
  return matrix;
}

// `vectors` is scratch memory, kept from run to run.
void transform(PointRun& run, Matrix& matrix, std::vector<double>& vectors) {
  vectors.clear();
  for (const Point& p : run) vectors.insert(vectors.end(), {p.x, p.y, 1.0});
  MATMulVecMat(kOrder, vectors.data(), static_cast<int>(run.size()), matrix.data(), vectors.data());
  const double* at = vectors.data();
  for (Point& p : run) {
    p.x = at[0];
    p.y = at[1];
    at += kOrder;
  }
}

}  // namespace

void transform(Drawing& drawing, const Options& options) {
  constexpr Matrix kIdentity = {1, 0, 0, 0, 1, 0, 0, 0, 1};
  Matrix matrix = matrix_of(options);
  if (matrix == kIdentity) return;
  log_line(Topic::kTransform, "x' = %g x + %g y + %g, y' = %g x + %g y + %g", matrix[0], matrix[3], matrix[6],
           matrix[1], matrix[4], matrix[7]);
  const double spacing_factor = std::sqrt(std::abs(options.scale_x * options.scale_y));
  std::vector<double> vectors;
  for (Path& path : drawing.paths) {
    path.fill.spacing *= spacing_factor;
    path.fill.angle += options.rotate;
    for (PointRun& run : path.runs) transform(run, matrix, vectors);
  }
}

void multiply(Drawing& drawing, double factor) {
  if (factor == 1.0) return;
  for (Path& path : drawing.paths) {
    path.fill.spacing *= factor;
    for (PointRun& run : path.runs)
      for (Point& p : run) p = {p.x * factor, p.y * factor, p.z * factor};
  }
}

}  // namespace Corvane::Print::plotclip
