// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The rectangle around drawings and fences.
#include "plotclip/extent.h"

#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

void expect_extent(const Extent& extent, double left, double bottom, double right, double top) {
  EXPECT_EQ(extent.left(), left);
  EXPECT_EQ(extent.bottom(), bottom);
  EXPECT_EQ(extent.right(), right);
  EXPECT_EQ(extent.top(), top);
}

TEST(PlotclipExtent, NothingHasNoSides) {
  Extent extent;
  extent.add(PointRun{});
  extent.add(Drawing{});
  expect_extent(extent, 0.0, 0.0, 0.0, 0.0);
  EXPECT_EQ(extent.longer_side(), 0.0);
}

TEST(PlotclipExtent, TheFirstPointIsNotMeasuredFromTheOrigin) {
  Extent extent;
  extent.add(PointRun{{5, 7}});
  expect_extent(extent, 5.0, 7.0, 5.0, 7.0);
  extent.add(PointRun{{9, 4}});
  expect_extent(extent, 5.0, 4.0, 9.0, 7.0);
  EXPECT_EQ(extent.width(), 4.0);
  EXPECT_EQ(extent.height(), 3.0);
  EXPECT_EQ(extent.longer_side(), 4.0);
}

TEST(PlotclipExtent, LinesAndEveryRingOfAreasCount) {
  Extent extent;
  extent.add(test::read_text("PU-5,1;PD2,3;PU10,10;PM0;PD20,10,20,20;PM1;PU30,30;PD40,30,40,50;PM2;FP;"));
  expect_extent(extent, -5.0, 1.0, 40.0, 50.0);
}

TEST(PlotclipExtent, SeveralRunsGrowIt) {
  Extent extent;
  extent.add(std::vector<PointRun>{{{1, 1}, {2, 2}}, {}, {{-3, 8}}});
  expect_extent(extent, -3.0, 1.0, 2.0, 8.0);
}

TEST(PlotclipExtent, EveryPointOfLongRunsCounts) {
  // Longer than a block, and one more, with the outermost points in turn everywhere.
  for (const std::size_t count : {511U, 512U, 513U, 1023U}) {
    for (std::size_t at = 0; at < count; ++at) {
      PointRun run(count, Point{1, 1});
      run[at] = {-100, 400};
      run[(at + count / 3) % count] = {300, -200};
      Extent extent;
      extent.add(run);
      expect_extent(extent, -100.0, -200.0, 300.0, 400.0);
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::plotclip
