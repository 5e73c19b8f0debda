// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The program from outside: exit codes, lines on stdout and stderr, and files.
#include <gtest/gtest.h>

#include "corvane/print/version.h"
#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

const std::string kSample = "'" PLOTCLIP_SAMPLES "/site-plan.plt'";
const std::string kSampleFence = "'" PLOTCLIP_SAMPLES "/fence.txt'";

bool is_one_line(const std::string& text) {
  return text.size() > 1 && text.find('\n') == text.size() - 1;
}

TEST(PlotclipProgram, HelpAndVersionGoToStdout) {
  const Outcome help = run_plotclip("--help");
  EXPECT_EQ(help.code, 0);
  EXPECT_NE(help.out.find("--fence-file"), std::string::npos);
  EXPECT_EQ(help.err, "");
  const Outcome version = run_plotclip("--version");
  EXPECT_EQ(version.code, 0);
  EXPECT_EQ(version.out, "plotclip " CORVANE_PRINT_VERSION "\n");
}

TEST(PlotclipProgram, WrongUsageExitsWithTwoAndOneLine) {
  for (const char* arguments : {"", "a.plt", "a.plt --fence 1,2 -o a.png", "a.plt --fence 0,0,1,1 -o a.xyz",
                                "a.plt --fence 0,0,1,1 --nonsense -o a.png"}) {
    const Outcome outcome = run_plotclip(arguments);
    EXPECT_EQ(outcome.code, 2) << arguments;
    EXPECT_TRUE(is_one_line(outcome.err)) << outcome.err;
    EXPECT_EQ(outcome.err.substr(0, 10), "plotclip: ");
    EXPECT_EQ(outcome.out, "");
  }
}

TEST(PlotclipProgram, MissingFilesExitWithOneAndName) {
  const TempFolder folder;
  const Outcome drawing = run_plotclip(folder.file("no.plt") + " --fence 0,0,1,1 -o " + folder.file("a.png"));
  EXPECT_EQ(drawing.code, 1);
  EXPECT_TRUE(is_one_line(drawing.err));
  EXPECT_NE(drawing.err.find("no.plt: cannot be opened"), std::string::npos) << drawing.err;
  const Outcome fence =
      run_plotclip(kSample + " --fence-file " + folder.file("no.txt") + " -o " + folder.file("a.png"));
  EXPECT_EQ(fence.code, 1);
  EXPECT_NE(fence.err.find("no.txt: cannot be opened"), std::string::npos) << fence.err;
}

TEST(PlotclipProgram, UnwritableOutputsExitWithOne) {
  const TempFolder folder;
  for (const char* name : {"none/a.png", "none/a.svg", "none/a.pdf", "none/a.plt"}) {
    const Outcome outcome = run_plotclip(kSample + " --fence 0,0,5000,5000 -o " + folder.file(name));
    EXPECT_EQ(outcome.code, 1) << name;
    EXPECT_TRUE(is_one_line(outcome.err)) << outcome.err;
    EXPECT_NE(outcome.err.find(name), std::string::npos) << outcome.err;
  }
}

TEST(PlotclipProgram, AWrongPlotFileIsReportedWithItsByte) {
  const TempFolder folder;
  const std::string name = folder.write("bad.plt", "IN;SP1;PU1,2;PD3;");
  const Outcome outcome = run_plotclip(name + " --fence 0,0,1,1 -o " + folder.file("a.png"));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "plotclip: " + name + ": byte 13: expected a list of coordinate pairs, found 'P'\n");
  const std::string fence = folder.write("bad.txt", "0 0\n1 x\n");
  const Outcome other = run_plotclip(kSample + " --fence-file " + fence + " -o " + folder.file("a.png"));
  EXPECT_EQ(other.code, 1);
  EXPECT_EQ(other.err, "plotclip: " + fence + ": byte 6: expected a second number\n");
}

TEST(PlotclipProgram, ShrinkingTheFenceToNothingExitsWithOne) {
  const TempFolder folder;
  const Outcome outcome =
      run_plotclip(kSample + " --fence 0,0,100,100 --grow -60 -o " + folder.file("a.plt"));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "plotclip: --grow: an edge of the fence shrinks to nothing\n");
}

TEST(PlotclipProgram, WritesEveryFormatAtOnce) {
  const TempFolder folder;
  std::string arguments = kSample + " --fence-file " + kSampleFence + " --ghost";
  for (const char* name : {"a.svg", "a.pdf", "a.png", "a.plt", "b.HPGL"})
    arguments += " -o " + folder.file(name);
  const Outcome outcome = run_plotclip(arguments);
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_EQ(outcome.err, "");
  EXPECT_NE(content_of(folder.file("a.svg")).find("</svg>"), std::string::npos);
  EXPECT_EQ(content_of(folder.file("a.pdf")).substr(0, 5), "%PDF-");
  EXPECT_EQ(content_of(folder.file("a.png")).substr(1, 3), "PNG");
  EXPECT_EQ(content_of(folder.file("a.plt")), content_of(folder.file("b.HPGL")));
}

TEST(PlotclipProgram, TheSummaryTellsWhatWasKept) {
  const TempFolder folder;
  const std::string drawing = folder.write("d.plt", "IN;SP1;PU-50,50;PD150,50;PU0,0;RA40,300;LBtext\x03");
  const Outcome outcome = run_plotclip(drawing + " --fence 0,0,100,100 -o " + folder.file("o.plt"));
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  const std::string text = outcome.out.substr(0, outcome.out.find("time"));
  EXPECT_EQ(text, "drawing      " + drawing + ": 1 lines, 1 polygons, 6 points\n" +
                      "passed over  1 labels, 0 unknown\n"
                      "fence        1 polygon, 4 points, keeping the inside\n"
                      "pieces       2 in, 2 out\n"
                      "points       6 in, 6 out\n"
                      "length kept  100.000000 of 200.000000\n"
                      "area kept    4000.000000 of 12000.000000\n");
}

// The summary's line about plot areas for a fence file of these lines.
std::string plot_areas(const std::string& lines, const std::string& options = "") {
  const TempFolder folder;
  const Outcome outcome = run_plotclip(kSample + " --fence-file " + folder.write("f.txt", lines) + " -o " +
                                       folder.file("o.plt") + options);
  EXPECT_EQ(outcome.code, 0) << outcome.err;
  const std::size_t at = outcome.out.find("plot areas");
  return at == std::string::npos ? "" : outcome.out.substr(at, outcome.out.find('\n', at) - at);
}

TEST(PlotclipProgram, TheSummaryTellsWhichPolygonsOfAFenceFileArePlotAreas) {
  const std::string rectangle = "0 0\n90 0\n90 90\n0 90\n", triangle = "200 0\n300 0\n250 90\n",
                    corners = "400 0\n500 90\n";
  EXPECT_EQ(plot_areas(rectangle), "plot areas   1 of 1 rectangular");
  EXPECT_EQ(plot_areas(corners), "plot areas   1 of 1 rectangular");
  EXPECT_EQ(plot_areas(triangle), "plot areas   0 of 1 rectangular");
  EXPECT_EQ(plot_areas(rectangle + "\n" + triangle + "\n" + corners), "plot areas   2 of 3 rectangular: 1 3");
  EXPECT_EQ(plot_areas(rectangle + "\n" + corners), "plot areas   2 of 2 rectangular");
}

TEST(PlotclipProgram, PlotAreasAreJudgedBeforeTheFenceIsGrown) {
  // Rounded to whole units nothing is left of it; grown, it would be a square.
  EXPECT_EQ(plot_areas("0 0\n0.4 0\n0.4 0.4\n0 0.4\n", " --grow 2"), "plot areas   0 of 1 rectangular");
}

TEST(PlotclipProgram, ManyPlotAreasAreNotAllListed) {
  std::string lines;
  for (int i = 0; i < 13; ++i)
    lines += std::to_string(20 * i) + " 0\n" + std::to_string(20 * i + 10) + " 9\n\n";
  EXPECT_EQ(plot_areas(lines + "0 50\n9 50\n5 59\n"),
            "plot areas   13 of 14 rectangular: 1 2 3 4 5 6 7 8 9 10 11 12 ...");
}

TEST(PlotclipProgram, GrowingOutsideAndTransformsWorkTogether) {
  const TempFolder folder;
  const std::string drawing = folder.write("d.plt", "PU0,0;PD100,0;");
  // Doubled and turned, the line runs from (5,-50) to (5,150); the fence grown by 10 covers -10 to 110.
  const Outcome outcome =
      run_plotclip(drawing + " --scale 2 --rotate 90 --move 5,-50 --fence 0,0,100,100 --grow 10 " +
                   "--outside -o " + folder.file("o.plt"));
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_DOUBLE_EQ(number_after(outcome.out, "length kept"), 80.0);
  EXPECT_NE(content_of(folder.file("o.plt")).find("PU5,-50;\nPD5,-10;"), std::string::npos);
}

TEST(PlotclipProgram, ADepthRangeWithoutTheDrawingKeepsNothing) {
  const TempFolder folder;
  const std::string arguments = kSample + " --fence 0,0,16000,11000 -o " + folder.file("o.plt") + " --depth ";
  const Outcome flat = run_plotclip(arguments + "-1,1");
  ASSERT_EQ(flat.code, 0) << flat.err;
  EXPECT_GT(number_after(flat.out, "length kept"), 400000.0);
  const Outcome above = run_plotclip(arguments + "1,2");
  ASSERT_EQ(above.code, 0) << above.err;
  EXPECT_EQ(number_after(above.out, "length kept"), 0.0);
  EXPECT_EQ(number_after(above.out, "area kept"), 0.0);
}

TEST(PlotclipProgram, InsideAndOutsideAreTheWholeSample) {
  const TempFolder folder;
  const std::string arguments = kSample + " --fence-file " + kSampleFence + " -o " + folder.file("o.plt");
  const Outcome inside = run_plotclip(arguments);
  const Outcome outside = run_plotclip(arguments + " --outside");
  ASSERT_EQ(inside.code, 0) << inside.err;
  ASSERT_EQ(outside.code, 0) << outside.err;
  for (const char* key : {"length kept", "area kept"}) {
    const double kept = number_after(inside.out, key);
    const double whole = number_after(inside.out.substr(inside.out.find(key)), " of ");
    EXPECT_GT(kept, 0.2 * whole);
    EXPECT_NEAR(kept + number_after(outside.out, key), whole, 1e-6 * whole) << key;
  }
}

TEST(PlotclipProgram, ItsPlotFilesCanBeClippedAgain) {
  const TempFolder folder;
  const Outcome first = run_plotclip(kSample + " --fence 2000,1000,12600,8200 -o " + folder.file("o.plt"));
  const Outcome again =
      run_plotclip(folder.file("o.plt") + " --fence -10000,-10000,30000,30000 -o " + folder.file("p.plt"));
  ASSERT_EQ(again.code, 0) << again.err;
  const double length = number_after(first.out, "length kept");
  EXPECT_NEAR(number_after(again.out, "length kept"), length, 1e-6 * length);
  const double area = number_after(first.out, "area kept");
  EXPECT_NEAR(number_after(again.out, "area kept"), area, 1e-6 * area);
}

#ifdef PLOTCLIP_READS_GDAL
constexpr const char* kGeoJson = R"({"type": "FeatureCollection", "features": [
  {"type": "Feature", "properties": {}, "geometry":
   {"type": "LineString", "coordinates": [[-1, 0.5], [2, 0.5]]}},
  {"type": "Feature", "properties": {}, "geometry": {"type": "Polygon", "coordinates":
   [[[0.2, 0.2], [0.8, 0.2], [0.8, 1.8], [0.2, 1.8], [0.2, 0.2]], [[0.4, 0.4], [0.4, 1.6], [0.6, 1.6], [0.6, 0.4], [0.4, 0.4]]]}},
  {"type": "Feature", "properties": {}, "geometry": {"type": "Point", "coordinates": [0.5, 0.5]}}]})";

TEST(PlotclipProgram, ReadsGeoJsonInDegrees) {
  const TempFolder folder;
  const std::string name = folder.write("map.geojson", kGeoJson);
  const Outcome outcome = run_plotclip(name + " --fence 0,0,1,1 -o " + folder.file("o.svg"));
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_NEAR(number_after(outcome.out, "length kept"), 1.0, 1e-6);
  EXPECT_NEAR(number_after(outcome.out, "area kept"), 0.6 * 0.8 - 0.2 * 0.6, 1e-6);
  EXPECT_EQ(number_after(outcome.out, "labels,"), 1.0);
}

TEST(PlotclipProgram, ReadsDxfLayersAsPens) {
  const TempFolder folder;
  const auto line = [](const char* layer, const char* y) {
    return std::string("0\nLINE\n8\n") + layer + "\n10\n-50\n20\n" + y + "\n11\n150\n21\n" + y + "\n";
  };
  const std::string name =
      folder.write("d.dxf", "0\nSECTION\n2\nENTITIES\n" + line("WALLS", "10") + line("DOORS", "20") +
                                line("WALLS", "30") + "0\nENDSEC\n0\nEOF\n");
  const Outcome outcome = run_plotclip(name + " --fence 0,0,100,100 -o " + folder.file("o.plt"));
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_DOUBLE_EQ(number_after(outcome.out, "length kept"), 300.0);
  const std::string plot = content_of(folder.file("o.plt"));
  EXPECT_NE(plot.find("SP1;\nPU0,10;\nPD100,10;\nPU0,30;\nPD100,30;\nSP2;\nPU0,20;\nPD100,20;\n"),
            std::string::npos)
      << plot;
}

TEST(PlotclipProgram, UnknownFormatsExitWithOneAndName) {
  const TempFolder folder;
  const std::string name = folder.write("text.xyz", "no drawing\n");
  const Outcome outcome = run_plotclip(name + " --fence 0,0,1,1 -o " + folder.file("o.svg"));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_TRUE(is_one_line(outcome.err)) << outcome.err;
  EXPECT_NE(outcome.err.find("text.xyz"), std::string::npos) << outcome.err;
}
#else
TEST(PlotclipProgram, OtherFormatsAreReadAsPlotFilesWithoutGdal) {
  const TempFolder folder;
  const std::string name = folder.write("map.geojson", "{}");
  const Outcome outcome = run_plotclip(name + " --fence 0,0,1,1 -o " + folder.file("o.svg"));
  EXPECT_EQ(outcome.code, 1);
  EXPECT_EQ(outcome.err, "plotclip: " + name + ": byte 0: expected an instruction, found '{'\n");
}
#endif

}  // namespace
}  // namespace Corvane::Print::plotclip::test
