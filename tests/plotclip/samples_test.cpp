// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The samples are what their generator writes.
#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

TEST(PlotclipSamples, TheSitePlanHasWhatASitePlanNeeds) {
  const Drawing drawing = read_text(content_of(PLOTCLIP_SAMPLES "/site-plan.plt"));
  const Figures figures = measure(drawing);
  EXPECT_GT(figures.points, 5000U);
  EXPECT_LT(figures.points, 10000U);
  EXPECT_GT(figures.polygons, 50U);
  EXPECT_GT(drawing.labels, 20U);
  EXPECT_EQ(drawing.unknown, 0U);
  EXPECT_EQ(drawing.colours.size(), 9U);
}

#ifdef PLOTCLIP_PYTHON
TEST(PlotclipSamples, TheGeneratorWritesTheSameBytes) {
  const TempFolder folder;
  const Outcome outcome =
      run_command("'" PLOTCLIP_PYTHON "' '" PLOTCLIP_SAMPLES "/make_site_plan.py' '" + folder.file("") + "'");
  ASSERT_EQ(outcome.code, 0) << outcome.err;
  EXPECT_TRUE(content_of(folder.file("site-plan.plt")) == content_of(PLOTCLIP_SAMPLES "/site-plan.plt"));
  EXPECT_TRUE(content_of(folder.file("fence.txt")) == content_of(PLOTCLIP_SAMPLES "/fence.txt"));
}
#endif

}  // namespace
}  // namespace Corvane::Print::plotclip::test
