// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The program with a debug library that keeps every line, see debug_library.c, and without one.
#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

constexpr const char* kMessage = "01000000 ";
constexpr const char* kError = "02000000 ";

const char* const kSquareFence = "0 0\n100 0\n100 100\n0 100\n\n200 0\n300 0\n250 100\n";

// A drawing of three lines by two pens and a filled rectangle, and a fence of a square and a triangle.
class PlotclipLog : public testing::Test {
protected:
  PlotclipLog()
      : drawing_(folder_.write("d.plt", "SP1;PU-50,50;PD50,50;PU90,90;PD95,95;SP2;PU0,0;PD10,10;RA40,60;")),
        fence_(folder_.write("f.txt", kSquareFence)),
        output_(folder_.file("o.plt")) {}

  // Runs the program with the flags as the value of PLOT_DEBUG, and returns what the debug library was told.
  std::string told(const std::string& flags, const std::string& arguments) {
    outcome_ = run_command("LD_LIBRARY_PATH='" PLOTCLIP_DEBUG_LIBRARY "' PLOTCLIP_TOLD='" + log() +
                           "' PLOT_DEBUG='" + flags + "' '" PLOTCLIP_PROGRAM "' " + arguments);
    return std::filesystem::exists(log()) ? content_of(log()) : "";
  }
  std::string log() const { return folder_.file("told"); }
  std::string usual_arguments() const {
    return "'" + drawing_ + "' --fence-file '" + fence_ + "' -o '" + output_ + "'";
  }

  TempFolder folder_;
  std::string drawing_, fence_, output_;
  Outcome outcome_;
};

TEST_F(PlotclipLog, TellsWhatIsRead) {
  const std::string text = told("read", usual_arguments() + " --debug-var PLOT_DEBUG");
  EXPECT_EQ(outcome_.code, 0) << outcome_.err;
  EXPECT_EQ(text, std::string(kMessage) + "plotclip read: fence " + fence_ + ": 45 bytes\n" + kMessage +
                      "plotclip read: drawing " + drawing_ + ": a plot file of 63 bytes\n" + kMessage +
                      "plotclip read: 3 lines, 1 polygons, 10 points; passed over 0 labels, 0 unknown\n");
}

TEST_F(PlotclipLog, TellsOfTheFenceAndOfTheTransformation) {
  const std::string text =
      told("transform,fence", usual_arguments() + " --grow 2 --scale 2 --move 5,6 --debug-var PLOT_DEBUG");
  EXPECT_EQ(outcome_.code, 0) << outcome_.err;
  EXPECT_EQ(text, std::string(kMessage) + "plotclip fence: found, path: " + fence_ + "\n" + kMessage +
                      "plotclip fence: growing it by 2\n" + kMessage +
                      "plotclip transform: x' = 2 x + 0 y + 5, y' = 0 x + 2 y + 6\n" + kMessage +
                      "plotclip fence: polygons: 2, points: 7, keeping the inside\n" + kMessage +
                      "plotclip fence: polygon 1: 4 points, a rectangular plot area\n" + kMessage +
                      "plotclip fence: polygon 2: 3 points, no rectangular plot area\n");
}

TEST_F(PlotclipLog, TellsOfClippingAndDrawing) {
  const std::string text = told("Clip DRAW", usual_arguments() + " --debug-var PLOT_DEBUG");
  EXPECT_EQ(outcome_.code, 0) << outcome_.err;
  const std::string clipped = std::string(kMessage) + "plotclip clip: coordinates are multiplied by 64\n" +
                              kMessage + "plotclip clip: polygons: 1 paths, 1 kept\n" + kMessage +
                              "plotclip clip: pen 1, 0.35 mm: 2 lines, 2 pieces kept\n" + kMessage +
                              "plotclip clip: pen 2, 0.35 mm: 1 lines, 1 pieces kept\n" + kMessage +
                              "plotclip clip: pieces: 4 in, 4 out; points: 10 in, 10 out; ";
  EXPECT_EQ(text.substr(0, clipped.size()), clipped);
  const std::string written = std::string(kMessage) + "plotclip draw: " + output_ + ": a plot file of " +
                              std::to_string(content_of(output_).size()) + " bytes\n" + kMessage +
                              "plotclip draw: " + output_ + ": written\n";
  EXPECT_EQ(text.substr(text.size() - std::min(text.size(), written.size())), written);
}

TEST_F(PlotclipLog, TellsTheFrameOfAPicture) {
  const std::string picture = folder_.file("o.png");
  const std::string text = told("draw", "'" + drawing_ + "' --fence 0,0,1000,500 --size 1000 -o '" + picture +
                                            "' --debug-var PLOT_DEBUG");
  EXPECT_EQ(text, std::string(kMessage) + "plotclip draw: " + picture +
                      ": a page of 1000 by 530 for 0,0 to 1000,500\n" + kMessage +
                      "plotclip draw: " + picture + ": written\n");
}

TEST_F(PlotclipLog, TheFlagsOfSeveralVariablesAddUp) {
  const ScopedEnvironment other("PLOTCLIP_TEST_FLAGS", "draw");
  const std::string text =
      told("read", usual_arguments() + " --debug-var PLOT_DEBUG --debug-var PLOTCLIP_TEST_FLAGS");
  EXPECT_NE(text.find("plotclip read: "), std::string::npos);
  EXPECT_NE(text.find("plotclip draw: "), std::string::npos);
  EXPECT_EQ(text.find("plotclip clip: "), std::string::npos);
  EXPECT_EQ(text.find("plotclip fence: "), std::string::npos);
}

TEST_F(PlotclipLog, AllIsEveryTopic) {
  const std::string text = told("all", usual_arguments() + " --rotate 90 --debug-var PLOT_DEBUG");
  for (const char* topic : {"read", "fence", "transform", "clip", "draw"})
    EXPECT_NE(text.find(std::string("plotclip ") + topic + ": "), std::string::npos) << topic;
}

TEST_F(PlotclipLog, NothingIsToldOfTopicsThatNobodyAskedFor) {
  EXPECT_EQ(told("all", usual_arguments()), "");
  EXPECT_EQ(outcome_.code, 0) << outcome_.err;
  EXPECT_EQ(told("all", usual_arguments() + " --debug-var PLOTCLIP_TEST_UNSET"), "");
  EXPECT_EQ(told("", usual_arguments() + " --debug-var PLOT_DEBUG"), "");
  EXPECT_EQ(told("sewing", usual_arguments() + " --debug-var PLOT_DEBUG"), "");
  EXPECT_EQ(outcome_.code, 0) << outcome_.err;
}

TEST_F(PlotclipLog, ErrorsAreToldWhateverTheFlagsAre) {
  const std::string missing = folder_.file("100%d%s.plt");
  const std::string text = told("", "'" + missing + "' --fence 0,0,1,1 -o '" + output_ + "'");
  EXPECT_EQ(outcome_.code, 1);
  EXPECT_EQ(outcome_.err.substr(0, 10 + missing.size()), "plotclip: " + missing);
  EXPECT_EQ(text, kError + outcome_.err);
}

TEST_F(PlotclipLog, WrongUsageIsToldToo) {
  const std::string text = told("", "--fence 1,2");
  EXPECT_EQ(outcome_.code, 2);
  EXPECT_EQ(text, kError + outcome_.err);
}

TEST_F(PlotclipLog, WithoutADebugLibraryNothingChanges) {
  const ScopedEnvironment flags("PLOTCLIP_TEST_FLAGS", "all");
  const Outcome plain = run_plotclip(usual_arguments());
  const Outcome asked = run_plotclip(usual_arguments() + " --debug-var PLOTCLIP_TEST_FLAGS");
  EXPECT_EQ(asked.code, 0);
  EXPECT_EQ(asked.err, "");
  EXPECT_EQ(asked.out.substr(0, asked.out.find("time")), plain.out.substr(0, plain.out.find("time")));
}

}  // namespace
}  // namespace Corvane::Print::plotclip::test
