// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plot file reader as a whole: what each instruction draws, and how wrong files are reported.
#include "plotclip/hpgl_reader.h"

#include <gtest/gtest.h>

#include <cmath>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

using test::read_problem;
using test::read_text;
using test::text_of;

std::string lines_of(std::string_view text) {
  std::string result;
  for (const Path& path : read_text(text).paths)
    result += (result.empty() ? "" : " | ") + text_of(path.runs[0]);
  return result;
}

TEST(HpglReader, PenDownDrawsAndPenUpMoves) {
  EXPECT_EQ(lines_of("IN;SP1;PU10,20;PD30,40,50,60;PU;PA0,0;PD;PA5,5;"), "10,20 30,40 50,60 | 0,0 5,5");
}

TEST(HpglReader, RelativeMovesStartAtThePen) {
  EXPECT_EQ(lines_of("PA100,100;PR;PD10,0,0,10;PU-20,-20;PD5,5"), "100,100 110,100 110,110 | 90,90 95,95");
}

TEST(HpglReader, InstructionsNeedNoSeparatorsAndMayBeSmall) {
  EXPECT_EQ(lines_of("puPA1,2pd3,4PR5 6\n7-8;"), "1,2 3,4 8,10 15,2");
}

TEST(HpglReader, RepeatedPointsAreDroppedAndAPenDownAloneIsADot) {
  EXPECT_EQ(lines_of("PU1,1;PD;PA1,1;PA2,2,2,2;PU7,7;PD;PU;"), "1,1 2,2 | 7,7");
}

TEST(HpglReader, PenZeroDrawsNothing) {
  EXPECT_EQ(lines_of("SP0;PD9,9;PU;SP2;PD5,5;"), "9,9 5,5");
}

TEST(HpglReader, SelectingAPenBeginsANewLine) {
  const Drawing drawing = read_text("SP3;PD10,0;SP4;PA20,0;");
  ASSERT_EQ(drawing.paths.size(), 2U);
  EXPECT_EQ(drawing.paths[0].pen, 3);
  EXPECT_EQ(drawing.paths[1].pen, 4);
  EXPECT_EQ(text_of(drawing.paths[1].runs[0]), "10,0 20,0");
}

TEST(HpglReader, ScalingMapsUserUnitsBetweenTheScalingPoints) {
  EXPECT_EQ(lines_of("IP100,200,1100,700;SC0,10,0,5;PA0,0;PD10,5;PR-1,-1"), "100,200 1100,700 1000,600");
}

TEST(HpglReader, IsotropicScalingCentresTheArea) {
  EXPECT_EQ(lines_of("IP0,0,2000,1000;SC0,10,0,10,1;PA0,0;PD10,10"), "500,0 1500,1000");
  EXPECT_EQ(lines_of("IP0,0,2000,1000;SC0,10,0,10,1,0,0;PA0,0;PD10,10"), "0,0 1000,1000");
}

TEST(HpglReader, FactorScalingNeedsNoScalingPoints) {
  EXPECT_EQ(lines_of("SC5,40,10,20,2;PA5,10;PD6,11"), "0,0 40,20");
}

TEST(HpglReader, ScalingWithoutScalingPointsKeepsPlotterUnits) {
  EXPECT_EQ(lines_of("SC0,10000,0,7500;PA10,20;PD30,40;PU;SC;PA5,5;PD6,6"), "10,20 30,40 | 5,5 6,6");
}

TEST(HpglReader, ArcsAreFlattenedToChordsOfTheGivenAngle) {
  EXPECT_EQ(lines_of("PA10,0;PD;AA0,0,90,45;"), "10,0 7.071,7.071 0,10");
  EXPECT_EQ(lines_of("PA10,0;PD;AR-10,0,-90,45;"), "10,0 7.071,-7.071 0,-10");
  EXPECT_EQ(read_text("PA10,0;PD;AA0,0,90;").paths[0].runs[0].size(), 19U);
}

TEST(HpglReader, ArcsThroughThreePointsEndExactlyAtTheLast) {
  const PointRun run = read_text("PA10,0;PD;AT0,10,-10,0,10;").paths[0].runs[0];
  ASSERT_EQ(run.size(), 19U);
  for (const Point& p : run) EXPECT_NEAR(std::hypot(p.x, p.y), 10.0, 1e-9);
  EXPECT_NEAR(run[9].y, 10.0, 1e-9);
  EXPECT_EQ(run.back(), (Point{-10, 0, 0}));
  const PointRun below = read_text("PA10,0;PD;AT0,-10,-10,0,10;").paths[0].runs[0];
  EXPECT_NEAR(below[9].y, -10.0, 1e-9);
  EXPECT_EQ(lines_of("PA0,0;PD;RT5,5,10,10;"), "0,0 5,5 10,10");
}

TEST(HpglReader, CirclesAreClosedLinesAroundTheUnmovedPen) {
  const Drawing drawing = read_text("PA100,100;CI50,90;PD200,100;");
  ASSERT_EQ(drawing.paths.size(), 2U);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "150,100 100,150 50,100 100,50 150,100");
  EXPECT_EQ(text_of(drawing.paths[1].runs[0]), "100,100 200,100");
}

TEST(HpglReader, RectanglesAreOutlinesOrFilled) {
  const Drawing drawing = read_text("PA1,2;EA11,12;ER4,5;RA11,12;RR4,5;");
  ASSERT_EQ(drawing.paths.size(), 4U);
  EXPECT_EQ(drawing.paths[0].kind, PathKind::kOutline);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "1,2 11,2 11,12 1,12");
  EXPECT_EQ(text_of(drawing.paths[1].runs[0]), "1,2 5,2 5,7 1,7");
  EXPECT_EQ(drawing.paths[3].kind, PathKind::kFilled);
  EXPECT_EQ(text_of(drawing.paths[3].runs[0]), "1,2 5,2 5,7 1,7");
}

TEST(HpglReader, WedgesStartAtTheirCentreAndFullOnesAreCircles) {
  const Drawing drawing = read_text("PA0,0;EW10,0,90,45;WG10,0,360,90;");
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "0,0 10,0 7.071,7.071 0,10");
  EXPECT_EQ(text_of(drawing.paths[1].runs[0]), "0,10 -10,0 0,-10 10,0");
}

TEST(HpglReader, PolygonModeCollectsRingsForFillAndEdge) {
  const Drawing drawing = read_text("PU0,0;PM0;PD9,0,9,9,0,9,0,0;PM1;PU2,2;PD4,2,4,4;PM2;FP;EP;PD1,1;");
  ASSERT_EQ(drawing.paths.size(), 3U);
  EXPECT_EQ(drawing.paths[0].kind, PathKind::kFilled);
  EXPECT_EQ(drawing.paths[1].kind, PathKind::kOutline);
  ASSERT_EQ(drawing.paths[0].runs.size(), 2U);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "0,0 9,0 9,9 0,9");
  EXPECT_EQ(text_of(drawing.paths[0].runs[1]), "2,2 4,2 4,4");
  EXPECT_EQ(text_of(drawing.paths[2].runs[0]), "0,0 1,1");
}

TEST(HpglReader, ACircleInPolygonModeIsARingOfItsOwn) {
  const Drawing drawing = read_text("PA5,5;PM0;CI2,90;PM2;EP;");
  ASSERT_EQ(drawing.paths.size(), 1U);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "5,7 3,5 5,3 7,5");
}

TEST(HpglReader, AFillKeepsItsPattern) {
  const Drawing drawing = read_text("FT3,50,45;RA9,9;FT10,30;RA9,9;FT;RA9,9;");
  EXPECT_EQ(drawing.paths[0].fill, (Fill{FillType::kHatch, 50, 45, 100}));
  EXPECT_EQ(drawing.paths[1].fill, (Fill{FillType::kShade, 0, 0, 30}));
  EXPECT_EQ(drawing.paths[2].fill, Fill{});
}

TEST(HpglReader, WidthsAndColoursBelongToPens) {
  const Drawing drawing = read_text("PW0.7,2;PC2,255,0,51;SP1;PD1,1;PU;SP2;PD2,2;");
  EXPECT_EQ(drawing.paths[0].width, kDefaultWidth);
  EXPECT_EQ(drawing.paths[1].width, 0.7);
  EXPECT_EQ(drawing.colours.at(2), (Colour{1.0, 0.0, 0.2}));
}

TEST(HpglReader, LabelsAreCountedAndPassedOver) {
  const Drawing drawing = read_text("LBPD1,1;\x03PU;DT#,1;LBanother; one#DT;LBx\x03PD3,3;");
  EXPECT_EQ(drawing.labels, 3U);
  ASSERT_EQ(drawing.paths.size(), 1U);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "0,0 3,3");
}

TEST(HpglReader, UnknownInstructionsAreCountedAndPassedOver) {
  const Drawing drawing = read_text("XX1,2;YY\"a;b\",3;ZZPD1,1;LT2,4;SI0.2,0.3;");
  EXPECT_EQ(drawing.unknown, 3U);
  EXPECT_EQ(drawing.paths.size(), 1U);
}

TEST(HpglReader, ProloguesAndDeviceControlAreSteppedOver) {
  const std::string_view text =
      "\x1b%-12345X@PJL SET A=B\r\n@PJL ENTER LANGUAGE=HPGL2\n\x1b"
      "E\x1b*b5Wabcde\x1b%0Aprinter text\x1b%0BBP5,1,\"Title; PD5,5\";IN"
      "\x1b.I81;;17:\x1b.N;19:\x1b.Y;PD4,4;\x1b.Z";
  const Drawing drawing = read_text(text);
  ASSERT_EQ(drawing.paths.size(), 1U);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "0,0 4,4");
  EXPECT_EQ(drawing.unknown, 0U);
}

TEST(HpglReader, InitialisingForgetsModesButKeepsThePen) {
  EXPECT_EQ(lines_of("PR;SC0,1,0,1;IP0,0,9,9;SP2;PA5,5;IN;PD1,1;"), "0,0 1,1");
}

// The character for a digit of an encoded number: `last` marks the digit that ends it.
char digit(unsigned value, bool last) {
  return static_cast<char>((last ? 191U : 63U) + value);
}

TEST(HpglReader, EncodedPolylinesAreDecoded) {
  // 10 is coded as 20: one digit. -40 is coded as 81: digits 17 and 1.
  std::string text = "PE<=";
  text += {digit(20, true), digit(20, true), digit(17, false), digit(1, true), digit(20, true), ';'};
  EXPECT_EQ(lines_of(text + "PU"), "10,10 -30,20");
}

TEST(HpglReader, EncodedPolylinesKnowFractionsPensAndSevenBits) {
  // In base 32: 3 is coded as 6 (pen), 1 as 2 (fraction bits), 5 halves as 10.
  const auto d = [](unsigned value) { return static_cast<char>(95U + value); };
  std::string text = "PE7:";
  text += {d(6), '>', d(2), d(10), d(10), ';'};
  const Drawing drawing = read_text(text);
  ASSERT_EQ(drawing.paths.size(), 1U);
  EXPECT_EQ(drawing.paths[0].pen, 3);
  EXPECT_EQ(text_of(drawing.paths[0].runs[0]), "0,0 2.5,2.5");
}

TEST(HpglReader, ProblemsNameTheByteAndWhatWasExpected) {
  const auto problem = [](std::string_view text) {
    Drawing drawing;
    return read_problem(text, drawing);
  };
  EXPECT_EQ(problem("PA1,2;!"), "6: expected an instruction, found '!'");
  EXPECT_EQ(problem("PA1,2;P"), "7: expected the second letter of an instruction, found the end of the file");
  EXPECT_EQ(problem("PU;PD1,2,3;"), "3: expected a list of coordinate pairs, found 'P'");
  EXPECT_EQ(problem("PD1,-,3;"), "5: expected a digit, found ','");
  EXPECT_EQ(problem("PD1,2\x80"), "5: expected a number or the end of the instruction, found byte 0x80");
  EXPECT_EQ(problem("AA1,2;"), "0: expected an arc's centre, angle and at most a chord, found 'A'");
  EXPECT_EQ(problem("PM7;"), "0: expected PM with 0, 1 or 2, found 'P'");
  EXPECT_EQ(problem("SC0,0,1,2;"), "0: expected SC with ranges that are not empty, found 'S'");
  EXPECT_EQ(problem("IN;LBabc"),
            "8: expected the terminator of the label at byte 3, found the end of the file");
  EXPECT_EQ(problem("PE!;"), "2: expected a digit of an encoded number, found '!'");
  EXPECT_EQ(problem("XX\"abc"), "6: expected the closing quotation mark, found the end of the file");
}

TEST(HpglReader, WhatCameBeforeAProblemIsKept) {
  Drawing drawing;
  EXPECT_NE(read_problem("PD5,5;PU;!", drawing), "");
  EXPECT_EQ(drawing.paths.size(), 1U);
}

TEST(HpglReader, HugeNumbersAreBounded) {
  const PointRun run =
      read_text("PD1e999,-99999999999999999999;PR1e9,1e9,1e9,1e9,1e9,1e9,1e9,1e9,1e9,1e9;").paths[0].runs[0];
  for (const Point& p : run) {
    EXPECT_LE(std::abs(p.x), 4294967296.0);
    EXPECT_LE(std::abs(p.y), 4294967296.0);
  }
  EXPECT_EQ(run[1].x, kLargestNumber);
  EXPECT_EQ(run[1].y, -kLargestNumber);
}

TEST(HpglReader, DrawingsBeyondTheLimitAreRefused) {
  Drawing drawing;
  EXPECT_EQ(read_problem("PM0;PD9,0,9,9;PM2;FP;FP;FP;FP;", drawing, {.points = 10}),
            "27: expected at most 10 points in all, found 'F'");
  EXPECT_EQ(read_problem("PD1,1,2,2,3,3,4,4;", drawing, {.points = 3}),
            "0: expected fewer points, found 'P'");
}

TEST(HpglReader, AnEmptyFileIsAnEmptyDrawing) {
  EXPECT_TRUE(read_text("").paths.empty());
  EXPECT_TRUE(read_text(" ;\r\n;").paths.empty());
}

}  // namespace
}  // namespace Corvane::Print::plotclip
