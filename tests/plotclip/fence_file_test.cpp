// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The text format of fences.
#include "plotclip/fence_file.h"

#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

std::string parsed(std::string_view text) {
  std::vector<PointRun> polygons;
  if (const auto problem = parse_fence_file(text, polygons))
    return std::to_string(problem->offset) + ": " + problem->what;
  std::string result;
  for (const PointRun& polygon : polygons) result.append("[").append(test::text_of(polygon)).append("]");
  return result;
}

TEST(FenceFile, APolygonIsAPointALine) {
  EXPECT_EQ(parsed("0 0\n10 0\r\n\t10,10\n0 , 10"), "[0,0 10,0 10,10 0,10]");
}

TEST(FenceFile, BlankLinesAndTheWordSeparatePolygons) {
  EXPECT_EQ(parsed("polygon\n0 0\n1 0\n1 1\n\n\n2 2\n3 2\n3 3\npolygon # third\n5 5\n6 6\n"),
            "[0,0 1,0 1,1][2,2 3,2 3,3][5,5 6,6]");
}

TEST(FenceFile, CommentsSeparateNothing) {
  EXPECT_EQ(parsed("# a fence\n0 0 # first\n# between\n1 0\n+1 1e0\n"), "[0,0 1,0 1,1]");
}

TEST(FenceFile, ARepeatedFirstPointIsDropped) {
  EXPECT_EQ(parsed("0 0\n1 0\n1 1\n0 0\n"), "[0,0 1,0 1,1]");
}

TEST(FenceFile, ProblemsNameTheByte) {
  EXPECT_EQ(parsed("0 0\n1\n"), "5: expected a second number");
  EXPECT_EQ(parsed("0 0\nx 1\n"), "4: expected a number or the word polygon");
  EXPECT_EQ(parsed("0 0 7\n"), "4: expected the end of the line");
  EXPECT_EQ(parsed("0 0\n1 0\n\n8 8\n\n"), "13: expected a second point of the polygon at byte 9");
  EXPECT_EQ(parsed("# nothing\n"), "10: expected a polygon of at least two points");
  EXPECT_EQ(parsed("nan 0\n"), "0: expected a number or the word polygon");
  EXPECT_EQ(parsed("0 1e300\n"), "2: expected a second number");
}

}  // namespace
}  // namespace Corvane::Print::plotclip
