// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Drawings through the library: what is kept, piece by piece.
#include "plotclip/clip.h"

#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

using test::read_text;
using test::text_of;

const FencePolygons kSquare = {{{0, 0}, {100, 100}}};

Options outside() {
  Options options;
  options.outside = true;
  return options;
}

TEST(PlotclipClip, LinesAreCutAtARectangle) {
  const ClipResult result = clip(read_text("PU-50,50;PD50,50,150,50;PU-5,-5;PD-9,-9;"), kSquare, {});
  ASSERT_EQ(result.kept.paths.size(), 1U);
  EXPECT_EQ(text_of(result.kept.paths[0].runs[0]), "0,50 50,50 100,50");
  EXPECT_EQ(result.failed, 0U);
}

TEST(PlotclipClip, LinesOfOnePenAreNotJoined) {
  const ClipResult result = clip(read_text("PU10,10;PD20,20;PU20,20;PD30,10;SP2;PD40,10;"), kSquare, {});
  ASSERT_EQ(result.kept.paths.size(), 3U);
  EXPECT_EQ(text_of(result.kept.paths[0].runs[0]), "10,10 20,20");
  EXPECT_EQ(text_of(result.kept.paths[1].runs[0]), "20,20 30,10");
  EXPECT_EQ(result.kept.paths[2].pen, 2);
}

TEST(PlotclipClip, OutsideKeepsTheRest) {
  const ClipResult result = clip(read_text("PU-50,50;PD50,50,150,50;"), kSquare, outside());
  ASSERT_EQ(result.kept.paths.size(), 2U);
  EXPECT_EQ(text_of(result.kept.paths[0].runs[0]), "-50,50 0,50");
  EXPECT_EQ(text_of(result.kept.paths[1].runs[0]), "100,50 150,50");
}

TEST(PlotclipClip, PolygonsKeepTheirAreaAndFill) {
  const ClipResult result = clip(read_text("FT10,30;PU-50,20;RA50,40;EA50,40;"), kSquare, {});
  ASSERT_EQ(result.kept.paths.size(), 2U);
  EXPECT_EQ(result.kept.paths[0].kind, PathKind::kFilled);
  EXPECT_EQ(result.kept.paths[0].fill.level, 30.0);
  EXPECT_EQ(result.kept.paths[1].kind, PathKind::kOutline);
  EXPECT_DOUBLE_EQ(measure(result.kept).area, 2.0 * 50.0 * 20.0);
}

TEST(PlotclipClip, HolesStayHoles) {
  const Drawing drawing =
      read_text("PU10,10;PM0;PD90,10,90,190,10,190;PM1;PU30,30;PD70,30,70,150,30,150;PM2;FP;");
  EXPECT_DOUBLE_EQ(measure(drawing).area, 80.0 * 180.0 - 40.0 * 120.0);
  const ClipResult inside = clip(drawing, kSquare, {});
  EXPECT_DOUBLE_EQ(measure(inside.kept).area, 80.0 * 90.0 - 40.0 * 70.0);
  const ClipResult rest = clip(drawing, kSquare, outside());
  EXPECT_DOUBLE_EQ(measure(rest.kept).area, 80.0 * 90.0 - 40.0 * 50.0);
}

TEST(PlotclipClip, AFenceInsideAPolygonCutsAHole) {
  const ClipResult result = clip(read_text("PU-50,-50;RA150,150;"), kSquare, outside());
  ASSERT_EQ(result.kept.paths.size(), 1U);
  EXPECT_EQ(result.kept.paths[0].runs.size(), 2U);
  EXPECT_DOUBLE_EQ(measure(result.kept).area, 200.0 * 200.0 - 100.0 * 100.0);
}

TEST(PlotclipClip, SeveralFencePolygonsEachKeepTheirPart) {
  const FencePolygons fence = {{{0, 0}, {100, 0}, {50, 100}}, {{200, 0}, {300, 0}, {250, 100}}};
  const Drawing line = read_text("PU-50,50;PD350,50;");
  EXPECT_DOUBLE_EQ(measure(clip(line, fence, {}).kept).length, 100.0);
  EXPECT_DOUBLE_EQ(measure(clip(line, fence, outside()).kept).length, 300.0);
}

TEST(PlotclipClip, ManyLinesNeedManyGrowingsAndAreAllKept) {
  std::string text;
  for (int i = 0; i < 5000; ++i)
    text += "PU" + std::to_string(i % 90 + 1) + ",1;PD" + std::to_string(i % 90 + 1) + ",99,200,200;";
  const ClipResult result = clip(read_text(text), kSquare, {});
  EXPECT_EQ(result.kept.paths.size(), 5000U);
}

TEST(PlotclipClip, DotsInsideAreKept) {
  const Drawing dots = read_text("PU5,5;PD;PU500,5;PD;PU;");
  const ClipResult result = clip(dots, {{{0, 0}, {100, 0}, {50, 100}}}, {});
  ASSERT_EQ(result.kept.paths.size(), 1U);
  EXPECT_EQ(text_of(result.kept.paths[0].runs[0]), "5,5");
}

TEST(PlotclipClip, DepthsCutLinesAndPolygons) {
  Drawing drawing;
  drawing.paths.push_back({PathKind::kLine, 1, kDefaultWidth, {}, {{{10, 10, 0}, {10, 90, 80}}}});
  drawing.paths.push_back(
      {PathKind::kOutline, 1, kDefaultWidth, {}, {{{10, 10, 0}, {90, 10, 0}, {90, 90, 80}, {10, 90, 80}}}});
  Options options;
  options.depth = DepthRange{20.0, 40.0};
  const ClipResult result = clip(drawing, kSquare, options);
  EXPECT_NEAR(measure(result.kept).length, 20.0, 1e-9);
  EXPECT_NEAR(measure(result.kept).area, 80.0 * 20.0, 1e-6);
}

TEST(PlotclipClip, DrawingsOfSmallNumbersAreScaledUpWithoutRounding) {
  Drawing degrees = read_text("PU-0.5,0.5;PD0.5,0.5,1.5,0.5;");
  const FencePolygons fence = {{{0.1, 0.2}, {0.9, 0.3}, {0.8, 0.7}, {0.2, 0.8}}};
  const double factor = working_factor(degrees, fence);
  EXPECT_EQ(factor, 8192.0);
  // Rounded to whole numbers this fence would be a rectangle, which it is not.
  const ClipResult result = clip(degrees, fence, {});
  EXPECT_NEAR(measure(result.kept).length, 0.85 - 0.15, 1e-9);
  EXPECT_EQ(working_factor(read_text("PD20000,1;"), {}), 1.0);
}

TEST(PlotclipClip, AnEmptyDrawingStaysEmpty) {
  EXPECT_TRUE(clip(Drawing{}, kSquare, {}).kept.paths.empty());
}

}  // namespace
}  // namespace Corvane::Print::plotclip
