// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See transform.h.
#include "plotclip/transform.h"

#include <cairo.h>

#include <cmath>

namespace Corvane::Print::plotclip {
namespace {

constexpr double kPi = 3.14159265358979323846;

cairo_matrix_t matrix_of(const Options& options) {
  cairo_matrix_t matrix;
  // Each call puts its step before those already in the matrix.
  cairo_matrix_init_translate(&matrix, options.move_x, options.move_y);
  // Quarter turns without the rounding errors of sine and cosine: upright rectangles stay upright.
  const double quarters = options.rotate / 90.0;
  if (quarters == std::floor(quarters)) {
    const int turn = static_cast<int>(std::fmod(std::fmod(quarters, 4.0) + 4.0, 4.0));
    constexpr double kCos[] = {1.0, 0.0, -1.0, 0.0};
    constexpr double kSin[] = {0.0, 1.0, 0.0, -1.0};
    const cairo_matrix_t quarter = {kCos[turn], kSin[turn], -kSin[turn], kCos[turn], 0.0, 0.0};
    cairo_matrix_multiply(&matrix, &quarter, &matrix);
  } else {
    cairo_matrix_rotate(&matrix, options.rotate * kPi / 180.0);
  }
  cairo_matrix_scale(&matrix, options.scale_x, options.scale_y);
  return matrix;
}

bool is_identity(const cairo_matrix_t& m) {
  return m.xx == 1.0 && m.yy == 1.0 && m.xy == 0.0 && m.yx == 0.0 && m.x0 == 0.0 && m.y0 == 0.0;
}

}  // namespace

void transform(Drawing& drawing, const Options& options) {
  const cairo_matrix_t matrix = matrix_of(options);
  if (is_identity(matrix)) return;
  const double spacing_factor = std::sqrt(std::abs(options.scale_x * options.scale_y));
  for (Path& path : drawing.paths) {
    path.fill.spacing *= spacing_factor;
    path.fill.angle += options.rotate;
    for (PointRun& run : path.runs)
      for (Point& p : run) cairo_matrix_transform_point(&matrix, &p.x, &p.y);
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
