// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The command line, in the process: what is accepted, and what is answered to what is not.
#include "plotclip/options.h"

#include <gtest/gtest.h>

#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

std::optional<Options> parse(std::vector<const char*> arguments) {
  arguments.insert(arguments.begin(), "plotclip");
  return parse_options(static_cast<int>(arguments.size()), arguments.data());
}

std::string wrong(const std::vector<const char*>& arguments) {
  try {
    parse(arguments);
    return "accepted";
  } catch (const Problem& problem) {
    EXPECT_EQ(problem.code(), kExitUsage);
    EXPECT_EQ(std::string(problem.what()).find('\n'), std::string::npos);
    return problem.what();
  }
}

TEST(PlotclipOptions, TakesEverythingAtOnce) {
  const auto o =
      parse({"in.plt", "--fence", "-5,0,10.5,20", "--outside", "--depth",  "-1,2",     "--grow",  "-3",
             "--move", "1,-2",    "--scale",      "2,3",       "--rotate", "-45",      "--ghost", "--size",
             "500",    "-o",      "a.png",        "-o",        "b.plt",    "--output", "c.svg"});
  ASSERT_TRUE(o.has_value());
  EXPECT_EQ(o->drawing, "in.plt");
  EXPECT_EQ(o->fence, (std::vector<double>{-5, 0, 10.5, 20}));
  EXPECT_TRUE(o->outside);
  EXPECT_EQ(o->depth->low, -1.0);
  EXPECT_EQ(o->depth->high, 2.0);
  EXPECT_EQ(o->grow, -3.0);
  EXPECT_EQ(o->move_x, 1.0);
  EXPECT_EQ(o->move_y, -2.0);
  EXPECT_EQ(o->scale_x, 2.0);
  EXPECT_EQ(o->scale_y, 3.0);
  EXPECT_EQ(o->rotate, -45.0);
  EXPECT_TRUE(o->ghost);
  EXPECT_EQ(o->size, 500);
  EXPECT_EQ(o->outputs, (std::vector<std::string>{"a.png", "b.plt", "c.svg"}));
}

TEST(PlotclipOptions, OneScaleIsBothScales) {
  const auto o = parse({"in.plt", "--fence-file", "f.txt", "--scale", "0.5", "-o", "a.pdf"});
  EXPECT_EQ(o->scale_x, 0.5);
  EXPECT_EQ(o->scale_y, 0.5);
  EXPECT_EQ(o->fence_file, "f.txt");
  EXPECT_FALSE(o->explain);
}

TEST(PlotclipOptions, DebugVariablesAddUp) {
  const auto o =
      parse({"in.plt", "--debug-var", "A", "--fence", "0,0,1,1", "--debug-var", "B", "-o", "a.plt"});
  EXPECT_EQ(o->debug_variables, (std::vector<std::string>{"A", "B"}));
  EXPECT_EQ(o->drawing, "in.plt");
}

TEST(PlotclipOptions, WrongUsageSaysWhatWasExpected) {
  EXPECT_EQ(wrong({"in.plt", "-o", "a.png"}), "expected --fence x0,y0,x1,y1 or --fence-file FILE");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,3", "-o", "a.png"}),
            "--fence: expected four numbers x0,y0,x1,y1, found '1,2,3'");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,3,x", "-o", "a.png"}),
            "--fence: expected four numbers x0,y0,x1,y1, found '1,2,3,x'");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,1,5", "-o", "a.png"}),
            "--fence: expected a rectangle with an area, found '1,2,1,5'");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,3,4", "--depth", "5,4", "-o", "a.png"}),
            "--depth: expected lo not above hi, found '5,4'");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,3,4", "--scale", "0", "-o", "a.png"}),
            "--scale: expected factors between 0.000001 and 1000000, found '0'");
  EXPECT_EQ(wrong({"in.plt", "--fence", "1,2,3,4", "-o", "a.bmp"}),
            "a.bmp: expected an output name that ends in .svg, .pdf, .png, .plt or .hpgl");
}

TEST(PlotclipOptions, MissingAndUnknownArgumentsAreWrongUsage) {
  EXPECT_NE(wrong({}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4", "-o", "a.png", "--sideways"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4", "--fence-file", "f", "-o", "a.png"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4", "--explain", "-o", "a.png"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4", "-o", "a.png", "--debug-var"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "more.plt", "--fence", "1,2,3,4", "-o", "a.png"}), "accepted");
  EXPECT_NE(wrong({"in.plt", "--fence", "1,2,3,4", "-o", "a.png", "--size", "1"}), "accepted");
}

}  // namespace
}  // namespace Corvane::Print::plotclip
