// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "platform/platform.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"

namespace Corvane::Print::tests {
namespace {

using platform::current_directory;
using platform::host_directory;

WideText host_form(std::u32string_view directory) {
  CPWChar out[64];
  const int length = host_directory(wide(directory).c_str(), out, 64);
  EXPECT_EQ(WideText(out).size(), static_cast<std::size_t>(length));
  return out;
}

std::filesystem::path without_drive(const WideText& spec) {
  WideText path = spec;
  std::replace(path.begin(), path.end(), CPWChar{'\\'}, CPWChar{'/'});
  return std::filesystem::path(path.substr(2));
}

}  // namespace

TEST(CurrentDirectory, IsAHostSpecificationWithADrive) {
  CPWChar out[4096];
  const int length = current_directory(out, 4096);
  const WideText text(out);
  ASSERT_EQ(text.size(), static_cast<std::size_t>(length));
  ASSERT_GE(length, 3);
  EXPECT_EQ(text[1], ':');
  const std::filesystem::path here = std::filesystem::current_path();
  EXPECT_EQ(without_drive(text).generic_u16string(),
            (here.root_directory() / here.relative_path()).generic_u16string());
}

TEST(CurrentDirectory, IsCutToTheRoom) {
  CPWChar whole[4096];
  current_directory(whole, 4096);
  for (const int capacity : {1, 2, 3, 4}) {
    Guarded<CPWChar> out(capacity);
    EXPECT_EQ(current_directory(out.data(), capacity), capacity - 1);
    EXPECT_EQ(WideText(out.data()), WideText(whole).substr(0, static_cast<std::size_t>(capacity - 1)));
    EXPECT_TRUE(out.intact());
  }
}

TEST(HostDirectory, HostSpecificationsStayAsTheyAre) {
  for (const char32_t* text : {U"", U"C:\\a\\b", U"C:/a", U"\\\\srv\\share", U"a/b", U"DEV:", U"\\a"})
    EXPECT_EQ(host_form(text), wide(text));
}

TEST(HostDirectory, IsCutToTheRoom) {
  for (const int capacity : {1, 2, 3, 4}) {
    Guarded<CPWChar> out(capacity);
    EXPECT_EQ(host_directory(wide(U"C:\\a").c_str(), out.data(), capacity), capacity - 1);
    EXPECT_TRUE(out.intact());
    host_directory(wide(U"/abc").c_str(), out.data(), capacity);
    EXPECT_TRUE(out.intact());
  }
}

}  // namespace Corvane::Print::tests
