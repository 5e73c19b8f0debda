// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Outlines of fences: the corners of rectangles, and which outlines are rectangular plot areas.
#include "plotclip/outline.h"

#include <gtest/gtest.h>

#include "plotclip/fence_file.h"
#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

// Of a fence file with these lines as its only polygon.
bool is_plot_area(std::string_view lines) {
  std::vector<PointRun> polygons;
  EXPECT_FALSE(parse_fence_file(lines, polygons).has_value());
  EXPECT_EQ(polygons.size(), 1U);
  return !polygons.empty() && is_rectangular_plot_area(polygons[0]);
}

TEST(PlotclipOutline, CornersGoRoundFromTheSmallestCoordinates) {
  EXPECT_EQ(test::text_of(corners_of({{10, 20}, {-1, -2}})), "-1,-2 10,-2 10,20 -1,20");
  EXPECT_EQ(test::text_of(corners_of({{-1, 20}, {10, -2}})), "-1,-2 10,-2 10,20 -1,20");
}

TEST(PlotclipOutline, RectanglesAreRectangularHoweverTheyAreListed) {
  EXPECT_TRUE(is_plot_area("9 0\n0 5\n")) << "two opposite corners";
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n"));
  EXPECT_TRUE(is_plot_area("0 0\n0 5\n9 5\n9 0\n")) << "clockwise";
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0 0\n")) << "closed";
}

TEST(PlotclipOutline, RectanglesTracedTwiceAreRectangular) {
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0 0\n9 0\n9 5\n0 5\n"));
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0 0\n9 0\n9 5\n0 5\n0 0\n")) << "then closed";
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0 0\n0 0\n9 0\n9 5\n0 5\n0 0\n")) << "closed twice";
}

TEST(PlotclipOutline, CoordinatesAreRoundedToWholeUnits) {
  EXPECT_TRUE(is_plot_area("0 0\n9.4 0\n9 5.2\n0 5\n"));
  EXPECT_TRUE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0.3 0.4\n")) << "closed within the rounding";
  EXPECT_FALSE(is_plot_area("0 0\n9.6 0\n9 5\n0 5\n"));
  EXPECT_FALSE(is_plot_area("0 0\n0.4 0.4\n")) << "nothing is left of it";
}

TEST(PlotclipOutline, OtherShapesAreNotRectangular) {
  EXPECT_FALSE(is_plot_area("0 0\n9 0\n9 5\n"));
  EXPECT_FALSE(is_plot_area("0 0\n9 1\n9 6\n0 5\n")) << "slanted";
  EXPECT_FALSE(is_plot_area("0 0\n4 0\n9 0\n9 5\n0 5\n")) << "a point amid an edge";
  EXPECT_FALSE(is_plot_area("0 0\n9 0\n9 5\n0 5\n0 0\n8 0\n8 5\n0 5\n")) << "another way the second time";
  EXPECT_FALSE(is_plot_area("0 0\n9 0\n9 5\n4 5\n4 2\n0 2\n"));
  EXPECT_FALSE(is_rectangular_plot_area({{0, 0}}));
  EXPECT_FALSE(is_rectangular_plot_area({}));
}

}  // namespace
}  // namespace Corvane::Print::plotclip
