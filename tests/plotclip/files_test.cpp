// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Host specifications as paths.
#include "plotclip/files.h"

#include <gtest/gtest.h>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

TEST(PlotclipFiles, SeparatorsAreTurned) {
  EXPECT_EQ(path_of_host("a.fence"), "a.fence");
  EXPECT_EQ(path_of_host("sub\\a\\b.fence"), "sub/a/b.fence");
  EXPECT_EQ(path_of_host("/home\\user/x"), "/home/user/x");
  EXPECT_EQ(path_of_host(""), "");
}

TEST(PlotclipFiles, DriveZIsTheRoot) {
  EXPECT_EQ(path_of_host("Z:\\home\\user"), "/home/user");
  EXPECT_EQ(path_of_host("z:home"), "/home");
  EXPECT_EQ(path_of_host("Z:"), "/");
  EXPECT_EQ(path_of_host("Z:\\\\"), "/");
}

TEST(PlotclipFiles, AnotherDriveIsTheDirectoryOfItsVariable) {
  const ScopedEnvironment drive("CORVANE_DRIVE_Q", "/plots");
  EXPECT_EQ(path_of_host("Q:\\a\\b.plt"), "/plots/a/b.plt");
  EXPECT_EQ(path_of_host("q:a.plt"), "/plots/a.plt");
  EXPECT_EQ(path_of_host("Q:"), "/plots");
  const ScopedEnvironment separator("CORVANE_DRIVE_R", "/plots/");
  EXPECT_EQ(path_of_host("R:\\a.plt"), "/plots/a.plt");
}

TEST(PlotclipFiles, ADriveWithoutItsVariableNamesNothing) {
  EXPECT_EQ(path_of_host("Q:\\a.plt"), std::nullopt);
  const ScopedEnvironment empty("CORVANE_DRIVE_Q", "");
  EXPECT_EQ(path_of_host("Q:\\a.plt"), std::nullopt);
}

TEST(PlotclipFiles, OnlyALetterIsADrive) {
  EXPECT_EQ(path_of_host("1:\\a"), "1:/a");
  EXPECT_EQ(path_of_host("@:a"), "@:a");
  EXPECT_EQ(path_of_host("[:a"), "[:a");
  EXPECT_EQ(path_of_host("ab:c"), "ab:c");
}

}  // namespace
}  // namespace Corvane::Print::plotclip::test
