// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>
#include <windows.h>

#include "platform/platform.h"

namespace Corvane::Print::tests {
namespace {

TEST(CodePageWin32, TheTestsRunInCodePage1252) {
  EXPECT_EQ(GetACP(), 1252u);
}

TEST(CodePageWin32, EveryByteSurvives) {
  for (int byte = 1; byte < 256; ++byte) {
    const char text[] = {static_cast<char>(byte), '\0'};
    CPWChar units[2];
    char back[2];
    ASSERT_EQ(platform::wide_from_narrow(text, platform::kToTerminator, units, 2), 2) << byte;
    ASSERT_EQ(platform::narrow_from_wide(units, platform::kToTerminator, back, 2), 2) << byte;
    EXPECT_EQ(back[0], text[0]) << byte;
  }
}

TEST(CodePageWin32, TheEuroSignIsByte80) {
  CPWChar units[2];
  platform::wide_from_narrow("\x80", platform::kToTerminator, units, 2);
  EXPECT_EQ(units[0], 0x20AC);
}

TEST(CodePageWin32, WhatTheCodePageLacksBecomesAQuestionMark) {
  char back[2];
  EXPECT_EQ(platform::narrow_from_wide(L"\x5927", platform::kToTerminator, back, 2), 2);
  EXPECT_STREQ(back, "?");
}

}  // namespace
}  // namespace Corvane::Print::tests
