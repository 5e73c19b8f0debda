// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Growing the fence through the library.
#include "plotclip/fence.h"

#include <gtest/gtest.h>

#include <cstring>

#include "plotclip/problem.h"
#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

using test::text_of;

TEST(PlotclipFence, RectanglesGrowFromTheirOrderedCorners) {
  const FencePolygons grown = grow_fence({{{10, 0}, {0, 20}}}, 2.0);
  ASSERT_EQ(grown.size(), 1U);
  EXPECT_EQ(text_of(grown[0]), "-2,-2 12,22");
}

TEST(PlotclipFence, PolygonsGrowInEitherDirection) {
  const PointRun left = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
  const PointRun right(left.rbegin(), left.rend());
  EXPECT_EQ(text_of(grow_fence({left}, 1.0)[0]), "-1,-1 11,-1 11,11 -1,11");
  EXPECT_EQ(text_of(grow_fence({right}, 1.0)[0]), "-1,11 11,11 11,-1 -1,-1");
}

TEST(PlotclipFence, RingsWhoseClosingEdgeDecidesTheirDirectionGrowOutward) {
  // Without its closing edge this ring's shoelace sum has the other sign.
  const PointRun ring = {{100, 100}, {110, 100}, {110, 110}, {100, 110}};
  EXPECT_EQ(text_of(grow_fence({ring}, 1.0)[0]), "99,99 111,99 111,111 99,111");
  const PointRun shifted = {{100, 110}, {100, 100}, {110, 100}, {110, 110}};
  EXPECT_EQ(text_of(grow_fence({shifted}, 1.0)[0]), "99,111 99,99 111,99 111,111");
}

TEST(PlotclipFence, SeveralPolygonsGrowEach) {
  const FencePolygons grown =
      grow_fence({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{50, 0}, {60, 0}, {60, 10}, {50, 10}}}, -1.0);
  EXPECT_EQ(text_of(grown[0]), "1,1 9,1 9,9 1,9");
  EXPECT_EQ(text_of(grown[1]), "51,1 59,1 59,9 51,9");
}

TEST(PlotclipFence, ShrinkingToNothingIsRefused) {
  EXPECT_THROW(grow_fence({{{0, 0}, {10, 10}}}, -6.0), Problem);
  EXPECT_THROW(grow_fence({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}}, -6.0), Problem);
}

TEST(PlotclipFence, TwoPointsAmongSeveralPolygonsAreARectangle) {
  const test::TempFolder folder;
  Options options;
  options.fence_file = folder.write("fence.txt", "9 9\n0 0\n\n20 0\n30 0\n30 10\n");
  const FencePolygons polygons = fence_polygons(options);
  ASSERT_EQ(polygons.size(), 2U);
  EXPECT_EQ(text_of(polygons[0]), "0,0 9,0 9,9 0,9");
}

TEST(PlotclipFence, ARectangleWithoutAnAreaIsRefused) {
  const test::TempFolder folder;
  Options options;
  options.fence_file = folder.write("fence.txt", "0 0\n0 5\n");
  EXPECT_THROW(fence_polygons(options), Problem);
}

TEST(PlotclipFence, TheLibraryGetsItInThreeDimensionsWithADepthRange) {
  Options options;
  options.depth = DepthRange{-1.0, 4.0};
  const Fence fence = define_fence({{{0, 0}, {10, 5}}}, options, 2.0);
  int words[14];
  ASSERT_EQ(CLinqFenceInfo(fence.get(), words), CL_OK);
  double extent[6];
  std::memcpy(extent, words, sizeof extent);
  EXPECT_EQ(extent[2], -2.0);
  EXPECT_EQ(extent[3], 20.0);
  EXPECT_EQ(extent[5], 8.0);
  EXPECT_EQ(words[12], CL_KEEP_INSIDE);
}

}  // namespace
}  // namespace Corvane::Print::plotclip
