// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What needs no mapped drive; late_mapping_test.cpp has the rest.
#include <gtest/gtest.h>

#include "corvane/print/fu.h"
#include "platform/capi_memory.h"
#include "tests/filespec/names_support.h"

namespace Corvane::Print::tests {
namespace {

constexpr char kFilled[] = "something";

// The status; the result must be empty.
int wide_status(std::u32string_view ufs) {
  WideOutput out;
  out.data()[0] = 'x';
  const int status = FUGetUniversalNameW(wide(ufs).c_str(), out.data());
  EXPECT_TRUE(out.intact());
  EXPECT_EQ(out.text(), WideText()) << narrow(ufs);
  return status;
}

int narrow_status(std::u32string_view ufs) {
  Guarded<char> out(FU_NARROW);
  std::copy(std::begin(kFilled), std::end(kFilled), out.data());
  const int status = FUGetUniversalName(narrow(ufs).c_str(), out.data());
  EXPECT_TRUE(out.intact());
  EXPECT_STREQ(out.data(), "") << narrow(ufs);
  return status;
}

}  // namespace

TEST(UniversalName, WhatHasNoDriveFails) {
  const std::u32string long_name(5000, U'x');
  for (const auto& ufs : {std::u32string(U""), std::u32string(U"\\\\srv\\share\\f"), std::u32string(U"f.plt"),
                          std::u32string(U"\\a\\f"), std::u32string(U"CD:\\f"), std::u32string(U"1:\\f"),
                          std::u32string(U":\\f"), long_name, long_name + U":f"}) {
    EXPECT_EQ(wide_status(ufs), FU_FAILED) << narrow(ufs);
    EXPECT_EQ(narrow_status(ufs), FU_FAILED) << narrow(ufs);
  }
}

TEST(UniversalName, ADriveThatIsMappedToNoShareFails) {
  EXPECT_EQ(wide_status(U"C:\\plots\\a.plt"), FU_FAILED);
  EXPECT_EQ(narrow_status(U"C:\\plots\\a.plt"), FU_FAILED);
}

TEST(UniversalName, NullFails) {
  WideOutput out;
  out.data()[0] = 'x';
  EXPECT_EQ(FUGetUniversalNameW(nullptr, out.data()), FU_FAILED);
  EXPECT_EQ(out.text(), WideText());
  EXPECT_EQ(FUGetUniversalNameW(wide(U"C:\\f").c_str(), nullptr), FU_FAILED);
  char narrow_out[FU_NARROW] = "x";
  EXPECT_EQ(FUGetUniversalName(nullptr, narrow_out), FU_FAILED);
  EXPECT_STREQ(narrow_out, "");
  EXPECT_EQ(FUGetUniversalName("C:\\f", nullptr), FU_FAILED);
}

TEST(UniversalName, NothingIsLeftOnTheHeap) {
  const long before = platform::capi_blocks_out();
  wide_status(U"Q:\\plots\\a.plt");
  narrow_status(U"Q:\\plots\\a.plt");
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

}  // namespace Corvane::Print::tests
