// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Names that the code page does not have.
#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"
#include "tests/filespec/host_dir.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

TEST(HostFileNarrow, ARegularFileIsLookedForByItsNarrowName) {
  const HostDir dir;
  dir.make_file(U"\u5927.txt");
  dir.make_file(U"A.txt");
  EXPECT_TRUE(platform::host_file_exists(wide(dir.spec(U"\u5927.txt")).c_str()));
  EXPECT_FALSE(platform::host_file_is_regular(wide(dir.spec(U"\u5927.txt")).c_str()));
  // The narrow name of A with a bar over it, in code page 1252 and its relatives, is A.
  EXPECT_FALSE(platform::host_file_exists(wide(dir.spec(U"\u0100.txt")).c_str()));
  EXPECT_TRUE(platform::host_file_is_regular(wide(dir.spec(U"\u0100.txt")).c_str()));
}

}  // namespace
}  // namespace Corvane::Print::tests
