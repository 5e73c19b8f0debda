// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// UTF-8 and wide text: there and back, and what is valid in neither.
#include "plotclip/wide_text.h"

#include <gtest/gtest.h>

namespace Corvane::Print::plotclip {
namespace {

// The ends of each length of UTF-8, with U+D7FF and U+E000 around the surrogates.
const std::string kEnds =
    "\x01\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF"
    "\xBF";
const WideText kWideEnds = u"\x01\x7F\x80\x7FF\x800\xD7FF\xE000\xFFFF\xD800\xDC00\xDBFF\xDFFF";

TEST(PlotclipWideText, EveryLengthGoesThereAndBack) {
  EXPECT_EQ(widen(kEnds), kWideEnds);
  EXPECT_EQ(narrow(kWideEnds), kEnds);
  EXPECT_EQ(widen(""), u"");
  EXPECT_EQ(narrow(u""), "");
}

TEST(PlotclipWideText, WhatIsNotUtf8BecomesTheReplacement) {
  EXPECT_EQ(widen("a\xFFz"), u"a\xFFFDz");
  EXPECT_EQ(widen("a\xC3"), u"a\xFFFD");
  EXPECT_EQ(widen("\xC3z"), u"\xFFFDz");
  EXPECT_EQ(widen("\xC0\xAF"), u"\xFFFD\xFFFD");
  EXPECT_EQ(widen("\xED\xA0\x80"), u"\xFFFD\xFFFD\xFFFD");
  EXPECT_EQ(widen("\xF4\x90\x80\x80"), u"\xFFFD\xFFFD\xFFFD\xFFFD");
}

TEST(PlotclipWideText, LoneSurrogatesBecomeTheReplacement) {
  EXPECT_EQ(narrow(WideText{0xD800, u'a'}),
            "\xEF\xBF\xBD"
            "a");
  EXPECT_EQ(narrow(WideText{0xDC00, 0xDC00}), "\xEF\xBF\xBD\xEF\xBF\xBD");
  EXPECT_EQ(narrow(WideText{u'a', 0xD800}), "a\xEF\xBF\xBD");
}

}  // namespace
}  // namespace Corvane::Print::plotclip
