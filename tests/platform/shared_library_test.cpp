// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Libraries that are not there; the tests of the debug library load one that is.
#include <gtest/gtest.h>

#include <string>

#include "platform/platform.h"

namespace Corvane::Print::tests {

TEST(SharedLibrary, AMissingLibraryIsNull) {
  EXPECT_EQ(platform::load_library("corvane_no_such_library"), nullptr);
  EXPECT_EQ(platform::load_library(std::string(platform::kLibraryNameCapacity - 1, 'x').c_str()), nullptr);
}

}  // namespace Corvane::Print::tests
