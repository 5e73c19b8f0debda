// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Scaling, turning and moving.
#include "plotclip/transform.h"

#include <gtest/gtest.h>

#include <cmath>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

std::string moved(const Options& options) {
  Drawing drawing = test::read_text("PU10,0;PD20,10;");
  transform(drawing, options);
  return test::text_of(drawing.paths[0].runs[0]);
}

TEST(PlotclipTransform, NothingAskedChangesNothing) {
  EXPECT_EQ(moved({}), "10,0 20,10");
}

TEST(PlotclipTransform, ScalesThenTurnsThenMoves) {
  Options options;
  options.scale_x = 2.0;
  options.scale_y = 3.0;
  options.rotate = 90.0;
  options.move_x = 100.0;
  EXPECT_EQ(moved(options), "100,20 70,40");
}

TEST(PlotclipTransform, QuarterTurnsAreExact) {
  for (const double angle : {90.0, 180.0, 270.0, -90.0, 450.0}) {
    Options options;
    options.rotate = angle;
    Drawing drawing = test::read_text("PU10,0;PD12345,1;");
    transform(drawing, options);
    for (const Point& p : drawing.paths[0].runs[0]) {
      EXPECT_EQ(p.x, std::round(p.x)) << angle;
      EXPECT_EQ(p.y, std::round(p.y)) << angle;
    }
  }
}

TEST(PlotclipTransform, OtherAnglesTurnCounterClockwise) {
  Options options;
  options.rotate = 30.0;
  EXPECT_EQ(moved(options), "8.66,5 12.321,18.66");
}

TEST(PlotclipTransform, WholeTurnsChangeNothing) {
  Options options, more;
  options.rotate = 30.0;
  more.rotate = 30.0 + 360.0 * 1e6;
  Drawing once = test::read_text("PU10,0;PD12345,1;"), often = once;
  transform(once, options);
  transform(often, more);
  EXPECT_EQ(once.paths[0].runs, often.paths[0].runs);
}

TEST(PlotclipTransform, MirroringAndUnequalScalesComeBeforeTheTurn) {
  Options options;
  options.scale_x = -2.0;
  options.scale_y = 0.5;
  options.rotate = -90.0;
  EXPECT_EQ(moved(options), "0,20 5,40");
}

TEST(PlotclipTransform, DepthsStayAndHatchesFollow) {
  Drawing drawing;
  drawing.paths.push_back({PathKind::kFilled,
                           1,
                           kDefaultWidth,
                           {FillType::kHatch, 10.0, 20.0},
                           {{{0, 0, 7}, {1, 0, 8}, {1, 1, 9}}}});
  Options options;
  options.scale_x = 2.0;
  options.scale_y = 8.0;
  options.rotate = 30.0;
  transform(drawing, options);
  const Path& path = drawing.paths[0];
  EXPECT_EQ(path.runs[0][0].z, 7.0);
  EXPECT_EQ(path.runs[0][2].z, 9.0);
  EXPECT_EQ(path.fill.spacing, 40.0);
  EXPECT_EQ(path.fill.angle, 50.0);
}

}  // namespace
}  // namespace Corvane::Print::plotclip
