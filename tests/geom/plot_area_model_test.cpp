// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Random outlines and shapes against the second model.
#include <gtest/gtest.h>

#include "corvane/print/geom.h"
#include "tests/geom/longest_side.h"
#include "tests/geom/numbers.h"
#include "tests/geom/plot_area_model.h"
#include "tests/platform/system_seam.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 100000;

double jitter(Random& random) {
  constexpr double kJitter[] = {0.0, 0.4, -0.4, 0.49999999999999994, -0.5, 0.5, 0.6, -0.6};
  return random.one_in(12) ? kJitter[random.below(8)] : random.between(-0.3, 0.3);
}

// A rectangle from any corner, either way round, and whatever follows of it for n points; now and then
// spoilt.
Doubles outline(Random& random, int dim, int n) {
  const int x[] = {random.between(-3, 3), random.between(-3, 3)},
            y[] = {random.between(-3, 3), random.between(-3, 3)};
  const int start = random.below(4), way = random.one_in(2) ? 1 : 3;
  const bool closed_early = n == 10;
  Numbers numbers(random);
  Doubles pts;
  for (int i = 0; i < n; ++i) {
    const int step = closed_early && i > 4 ? i - 5 : i;
    const int corner = (start + way * step) % 4;
    pts.push_back(x[corner == 1 || corner == 2] + jitter(random));
    pts.push_back(y[corner >= 2] + jitter(random));
    if (dim == 3) pts.push_back(numbers.next());
  }
  if (random.one_in(4)) pts[static_cast<std::size_t>(random.below(n * dim))] = numbers.next();
  return pts;
}

TEST(PlotAreaModel, OutlinesAgree) {
  constexpr int kCounts[] = {4, 5, 8, 9, 10, 6};
  int rectangles = 0, areas = 0;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(320, i));
    const int dim = random.between(2, 3), n = kCounts[random.below(6)],
              first = n < 5 ? 4 : random.between(4, 5);
    Doubles pts = outline(random, dim, n);
    const int rect = model::check_rect(dim, first, pts), area = model::check_area(dim, n, pts);
    ASSERT_EQ(GEOMCheckRect(dim, first, pts.data()), rect) << "case " << i;
    ASSERT_EQ(GEOMCheckRectangularPlotArea(dim, n, pts.data()), area) << "case " << i;
    rectangles += rect;
    areas += area;
  }
  EXPECT_GT(rectangles, scaled(kCases) / 10);
  EXPECT_GT(areas, scaled(kCases) / 10);
}

struct Setting {
  const char32_t* text;
  double ratio;
};

// The rings of a grid have many sides of one length; others are off by about a tolerance.
Doubles shape(Random& random, int dim, int n) {
  Numbers numbers(random);
  const double off = random.one_in(2) ? 0.0 : random.between(0.0, 0.01);
  Doubles pts;
  for (int i = 0; i < dim * n; ++i) {
    const double number = random.one_in(4) ? numbers.next() : grid_number(random);
    pts.push_back(number * (random.one_in(2) ? 1.0 + off : 1.0));
  }
  return pts;
}

// A rectangle that is higher than wide by the tolerance, give or take a few units in the last place.
Doubles nearly_tied_rectangle(Random& random, int dim, double ratio) {
  const double width = random.between(1.0, 1000.0);
  double height = width + width * ratio;
  for (int steps = random.below(4); steps > 0; --steps) {
    height = std::nextafter(height, random.one_in(2) ? 0.0 : kInfinity);
  }
  if (dim == 3) return {0, 0, 0, width, 0, 0, width, height, 0, 0, height, 0};
  return {0, 0, width, 0, width, height, 0, height};
}

TEST(PlotAreaModel, LongestSidesAgree) {
  constexpr Setting kSettings[] = {
      {U"0.01", 0.01}, {U"1e-9", 1e-9}, {U"0.5", 0.5}, {U"no", 0.001}, {U"1e999", kInfinity}};
  int found = 0;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(321, i));
    const Setting& setting = kSettings[i / 1000 % 5];
    if (i % 1000 == 0) set_variable(kTolerance, setting.text);
    if (i % 1000 == 500) remove_variable(kTolerance);
    const double ratio = i % 1000 < 500 ? setting.ratio : 0.001;
    const bool tied = random.one_in(4) && std::isfinite(ratio);
    const int dim = random.between(2, 3), n = tied ? 4 : random.between(2, 7);
    const Doubles pts = tied ? nearly_tied_rectangle(random, dim, ratio) : shape(random, dim, n);
    const Doubles expected = model::longest_side(dim, n, pts, ratio);
    const Doubles side = longest_side(dim, n, pts);
    if (!same_bits(side, expected)) {
      ADD_FAILURE() << "case " << i;
      break;
    }
    found += expected.empty() ? 0 : 1;
  }
  remove_variable(kTolerance);
  EXPECT_GT(found, scaled(kCases) / 2);
}

}  // namespace
}  // namespace Corvane::Print::tests
