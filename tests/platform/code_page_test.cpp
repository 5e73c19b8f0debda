// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The calling shape that both systems share. What is told of malformed text differs and is tested per system.
#include <gtest/gtest.h>

#include <vector>

#include "platform/platform.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"

namespace Corvane::Print::tests {
namespace {

using platform::kToTerminator;
using platform::narrow_from_wide;
using platform::wide_from_narrow;

// Texts that the narrow code page of every target knows, and one that UTF-8 knows as well.
std::vector<std::u32string> samples() {
  std::vector<std::u32string> texts = {U"", U"a", U"plot 1", std::u32string(300, U'x')};
  if (narrow_has(U'\u00E9')) texts.push_back(U"\u00E9t\u00E9 \u00FF");
  if (narrow_has(U'\u5927')) texts.push_back(U"\u5927\u0416\uFFFD\uD7FF\uE000\uFFFF");
  if (narrow_has(U'\U0001F600')) texts.push_back(U"a\U0001F600\U00010000\U0010FFFFz");
  return texts;
}

TEST(CodePage, TextSurvivesBothWays) {
  for (const std::u32string& sample : samples()) {
    const std::string bytes = narrow(sample);
    const WideText units = wide(sample);
    const int unit_count = static_cast<int>(units.size()) + 1;
    const int byte_count = static_cast<int>(bytes.size()) + 1;

    Guarded<CPWChar> wide_out(unit_count);
    EXPECT_EQ(wide_from_narrow(bytes.c_str(), kToTerminator, wide_out.data(), unit_count), unit_count);
    EXPECT_EQ(WideText(wide_out.data()), units);
    EXPECT_TRUE(wide_out.intact());

    Guarded<char> narrow_out(byte_count);
    EXPECT_EQ(narrow_from_wide(units.c_str(), kToTerminator, narrow_out.data(), byte_count), byte_count);
    EXPECT_EQ(std::string(narrow_out.data()), bytes);
    EXPECT_TRUE(narrow_out.intact());
  }
}

TEST(CodePage, CapacityZeroMeasures) {
  for (const std::u32string& sample : samples()) {
    const int unit_count = static_cast<int>(wide(sample).size()) + 1;
    const int byte_count = static_cast<int>(narrow(sample).size()) + 1;
    EXPECT_EQ(wide_from_narrow(narrow(sample).c_str(), kToTerminator, nullptr, 0), unit_count);
    EXPECT_EQ(narrow_from_wide(wide(sample).c_str(), kToTerminator, nullptr, 0), byte_count);
  }
}

TEST(CodePage, EveryCapacityThatIsTooSmallGivesZeroAndIsNotOverrun) {
  for (const std::u32string& sample : samples()) {
    const std::string bytes = narrow(sample);
    const WideText units = wide(sample);
    for (int capacity = 1; capacity <= static_cast<int>(units.size()); ++capacity) {
      Guarded<CPWChar> out(capacity);
      EXPECT_EQ(wide_from_narrow(bytes.c_str(), kToTerminator, out.data(), capacity), 0);
      EXPECT_TRUE(out.intact());
    }
    for (int capacity = 1; capacity <= static_cast<int>(bytes.size()); ++capacity) {
      Guarded<char> out(capacity);
      EXPECT_EQ(narrow_from_wide(units.c_str(), kToTerminator, out.data(), capacity), 0);
      EXPECT_TRUE(out.intact());
    }
  }
}

TEST(CodePage, AGivenLengthWritesNoTerminator) {
  const WideText units = wide(U"plot");
  Guarded<CPWChar> wide_out(10);
  EXPECT_EQ(wide_from_narrow("plotter", 4, wide_out.data(), 10), 4);
  EXPECT_EQ(WideText(wide_out.data(), 4), units);
  EXPECT_TRUE(wide_out.untouched_from(4));
  EXPECT_EQ(wide_from_narrow("plotter", 4, nullptr, 0), 4);
  EXPECT_EQ(wide_from_narrow("plotter", 4, wide_out.data(), 3), 0);

  Guarded<char> narrow_out(10);
  EXPECT_EQ(narrow_from_wide(units.c_str(), 3, narrow_out.data(), 10), 3);
  EXPECT_EQ(std::string(narrow_out.data(), 3), "plo");
  EXPECT_TRUE(narrow_out.untouched_from(3));
  EXPECT_EQ(narrow_from_wide(units.c_str(), 3, nullptr, 0), 3);
  EXPECT_EQ(narrow_from_wide(units.c_str(), 3, narrow_out.data(), 2), 0);
}

TEST(CodePage, AGivenLengthMayHoldZeros) {
  const char bytes[] = {'a', '\0', 'b'};
  const CPWChar units[] = {'a', 0, 'b'};
  CPWChar wide_out[3];
  EXPECT_EQ(wide_from_narrow(bytes, 3, wide_out, 3), 3);
  EXPECT_EQ(WideText(wide_out, 3), WideText(units, 3));
  char narrow_out[3];
  EXPECT_EQ(narrow_from_wide(units, 3, narrow_out, 3), 3);
  EXPECT_EQ(std::string(narrow_out, 3), std::string(bytes, 3));
}

TEST(CodePage, ArgumentsThatAreNoneGiveZero) {
  CPWChar wide_out[4];
  char narrow_out[4];
  EXPECT_EQ(wide_from_narrow(nullptr, kToTerminator, wide_out, 4), 0);
  EXPECT_EQ(wide_from_narrow("a", 0, wide_out, 4), 0);
  EXPECT_EQ(wide_from_narrow("a", kToTerminator, wide_out, -1), 0);
  EXPECT_EQ(wide_from_narrow("a", kToTerminator, nullptr, 4), 0);
  const CPWChar a[] = {'a', 0};
  EXPECT_EQ(narrow_from_wide(nullptr, kToTerminator, narrow_out, 4), 0);
  EXPECT_EQ(narrow_from_wide(a, 0, narrow_out, 4), 0);
  EXPECT_EQ(narrow_from_wide(a, kToTerminator, narrow_out, -1), 0);
  EXPECT_EQ(narrow_from_wide(a, kToTerminator, nullptr, 4), 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
