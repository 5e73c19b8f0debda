// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Writing plot files, and reading them back.
#include "plotclip/hpgl_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip {
namespace {

using test::read_text;
using test::text_of;

TEST(HpglWriter, WritesInstructionsOnLinesOfTheirOwn) {
  Drawing drawing;
  drawing.paths.push_back({PathKind::kLine, 2, kDefaultWidth, {}, {{{1, 2}, {3.25, -0.00001}}}});
  EXPECT_EQ(write_hpgl(drawing), "IN;\nSP2;\nPU1,2;\nPD3.25,0;\nPU;\nSP0;\n");
}

TEST(HpglWriter, DotsSurvive) {
  EXPECT_EQ(write_hpgl(read_text("PU4,5;PD;PU;")), "IN;\nSP1;\nPU4,5;\nPD;\nPU;\nSP0;\n");
}

void expect_same(const Drawing& a, const Drawing& b) {
  EXPECT_EQ(a.colours, b.colours);
  ASSERT_EQ(a.paths.size(), b.paths.size());
  for (std::size_t i = 0; i < a.paths.size(); ++i) {
    EXPECT_EQ(a.paths[i].kind, b.paths[i].kind);
    EXPECT_EQ(a.paths[i].pen, b.paths[i].pen);
    EXPECT_EQ(a.paths[i].width, b.paths[i].width);
    EXPECT_EQ(a.paths[i].fill, b.paths[i].fill);
    ASSERT_EQ(a.paths[i].runs.size(), b.paths[i].runs.size());
    for (std::size_t k = 0; k < a.paths[i].runs.size(); ++k)
      EXPECT_EQ(text_of(a.paths[i].runs[k]), text_of(b.paths[i].runs[k]));
  }
}

TEST(HpglWriter, TheReaderReadsBackWhatWasWritten) {
  const Drawing drawing = read_text(
      "PC3,10,20,30;PW0.7,3;SP3;PU1,1;PD2,2,3,1;PU9,9;PD;PU;SP1;PA0,0;PM0;PD9,0,9,9;PM1;PU1,1;PD3,1,3,2;PM2;"
      "FT3,12,30;FP;EP;FT10,40;FP;SP3;CI5.5;FT4,3,2;RR20,30;PU;");
  expect_same(drawing, read_text(write_hpgl(drawing)));
}

TEST(HpglWriter, TheSampleDrawingSurvivesToATenThousandth) {
  const Drawing drawing = read_text(test::content_of(PLOTCLIP_SAMPLES "/site-plan.plt"));
  ASSERT_GT(drawing.paths.size(), 400U);
  const Drawing back = read_text(write_hpgl(drawing));
  ASSERT_EQ(back.paths.size(), drawing.paths.size());
  double worst = 0.0;
  for (std::size_t i = 0; i < drawing.paths.size(); ++i) {
    ASSERT_EQ(back.paths[i].runs.size(), drawing.paths[i].runs.size());
    for (std::size_t k = 0; k < drawing.paths[i].runs.size(); ++k) {
      const PointRun& a = drawing.paths[i].runs[k];
      const PointRun& b = back.paths[i].runs[k];
      ASSERT_EQ(a.size(), b.size());
      for (std::size_t n = 0; n < a.size(); ++n)
        worst = std::max({worst, std::abs(a[n].x - b[n].x), std::abs(a[n].y - b[n].y)});
    }
  }
  EXPECT_LE(worst, 0.0000501);
}

}  // namespace
}  // namespace Corvane::Print::plotclip
