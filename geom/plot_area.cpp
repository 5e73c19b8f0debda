// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The checks of a plot area's outline, on coordinates rounded to whole units, and its longest side.
#include "corvane/print/cf.h"
#include "corvane/print/geom.h"
#include "platform/capi_block.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace Corvane::Print {
namespace {

constexpr const char* kToleranceVariable = "TQ_PLT_PERCENT_LENEQUAL_TOLERANCE";
constexpr double kDefaultTolerance = 0.001;

struct UnitPoint {
  std::int32_t x, y;
  friend bool operator==(const UnitPoint&, const UnitPoint&) = default;
};

// What does not fit, or is no number, becomes the smallest integer, as the processor's own conversion has it.
std::int32_t rounded(double c) {
  constexpr auto kSmallest = std::numeric_limits<std::int32_t>::min();
  const double sum = c > 0.0 ? c + 0.5 : c - 0.5;
  return sum > -2147483649.0 && sum < 2147483648.0 ? static_cast<std::int32_t>(sum) : kSmallest;
}

// An outline of points `dim` doubles apart.
class Outline {
public:
  Outline(int dim, const double* pts) : dim_(dim), pts_(pts) {}
  UnitPoint operator[](int i) const {
    const double* p = pts_ + static_cast<std::ptrdiff_t>(i) * dim_;
    return {rounded(p[0]), rounded(p[1])};
  }

private:
  int dim_;
  const double* pts_;
};

bool four_alternating_edges(const Outline& points) {
  bool vertical_allowed = true, horizontal_allowed = true;
  for (int i = 0; i < 4; ++i) {
    const UnitPoint p = points[i], q = points[(i + 1) % 4];
    const bool vertical = p.x == q.x && p.y != q.y, horizontal = p.y == q.y && p.x != q.x;
    if (!(vertical_allowed && vertical) && !(horizontal_allowed && horizontal)) return false;
    vertical_allowed = horizontal;
    horizontal_allowed = vertical;
  }
  return true;
}

// How a plot area's outline of n points is traced: where the second round begins (0: there is none), and
// which point has to close it (0: none).
struct Tracing {
  int second_round, closing;
};

bool tracing_of(int n, Tracing& tracing) {
  switch (n) {
    case 4:
      tracing = {0, 0};
      return true;
    case 5:
      tracing = {0, 4};
      return true;
    case 8:
      tracing = {4, 0};
      return true;
    case 9:
      tracing = {4, 8};
      return true;
    case 10:
      tracing = {5, 9};
      return true;
    default:
      return false;
  }
}

double relative_tolerance() {
  double tolerance = kDefaultTolerance;
  if (char* value = CFGetenv(kToleranceVariable)) {
    tolerance = std::atof(value);
    CFReleaseValue(value);
  }
  return tolerance > 0.0 ? tolerance : kDefaultTolerance;
}

double distance(const double* p, const double* q) {
  const double dx = q[0] - p[0], dy = q[1] - p[1], dz = q[2] - p[2];
  return std::sqrt(dx * dx + dy * dy + dz * dz);
}

// The start of the longest side of a shape of 3-D points.
int longest_side(const double* points, int n) {
  const auto length = [&](int i) {
    return distance(points + 3 * std::ptrdiff_t{i}, points + 3 * std::ptrdiff_t{(i + 1) % n});
  };
  const double tolerance = relative_tolerance();
  int best = 0;
  double best_length = length(0);
  for (int i = 1; i < n; ++i) {
    const double found = length(i);
    if (!(found > best_length) || !((found - best_length) / best_length > tolerance)) continue;
    best = i;
    best_length = found;
  }
  return best;
}

// Null when memory ran out.
platform::CapiBlock<double> in_space(const double* pts, int n) {
  const auto count = static_cast<std::size_t>(n);
  platform::CapiBlock<double> points(
      static_cast<double*>(platform::capi_alloc_array(count, 3 * sizeof(double))));
  for (std::size_t i = 0; points && i < count; ++i) {
    points.get()[3 * i] = pts[2 * i];
    points.get()[3 * i + 1] = pts[2 * i + 1];
    points.get()[3 * i + 2] = 0.0;
  }
  return points;
}

}  // namespace

int GEOMCheckRect(int dim, int n, double* pts) {
  if ((n != 4 && n != 5) || dim < 2 || pts == nullptr) return 0;
  const Outline points(dim, pts);
  if (n == 5 && points[4] != points[0]) return 0;
  return four_alternating_edges(points) ? 1 : 0;
}

int GEOMCheckRectangularPlotArea(int dim, int n, double* pts) {
  Tracing tracing = {};
  if (!tracing_of(n, tracing) || dim < 2 || pts == nullptr) return 0;
  const Outline points(dim, pts);
  if (points[tracing.closing] != points[0]) return 0;
  if (GEOMCheckRect(dim, 4, pts) != 1) return 0;
  if (tracing.second_round == 0) return 1;
  for (int i = 0; i < 4; ++i) {
    if (points[i + tracing.second_round] != points[i]) return 0;
  }
  // An outline closed before its second round has a fifth point of its own.
  return tracing.second_round == 4 || points[4] == points[0] ? 1 : 0;
}

// KEEP(side-tolerance-ratio): the variable says percent, its number is a ratio.
// Looks wrong; configurations in the field hold ratios. Pinned by
// PlotArea.TheLengthToleranceIsARatioWhateverItsNameSays.
int GEOMShapeFindLongestSide(int dim, int n, double* pts, double* side) {
  if ((dim != 2 && dim != 3) || pts == nullptr || side == nullptr) return 1;
  if (GEOMPointsEqual(dim, n, pts) == 1 || GEOMPointsColinear(dim, n, pts) == 1) return 1;
  platform::CapiBlock<double> copy;
  if (dim == 2 && !(copy = in_space(pts, n))) return 1;
  const int start = longest_side(dim == 2 ? copy.get() : pts, n);
  const double* const from = pts + static_cast<std::ptrdiff_t>(start) * dim;
  const double* const to = pts + static_cast<std::ptrdiff_t>((start + 1) % n) * dim;
  double found[6] = {};
  for (int k = 0; k < dim; ++k) {
    found[k] = from[k];
    found[dim + k] = to[k];
  }
  for (int k = 0; k < 2 * dim; ++k) side[k] = found[k];
  return 0;
}

}  // namespace Corvane::Print
