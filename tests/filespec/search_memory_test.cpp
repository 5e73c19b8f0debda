// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The search when memory runs out, and what it leaves allocated.
#include <gtest/gtest.h>

#include <string>

#include "platform/capi_memory.h"
#include "tests/filespec/host_dir.h"
#include "tests/filespec/searching.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

// Every request in turn fails once: what is found is right, and what is not found is told apart.
TEST(SearchMemory, AListThatWasNotLookedAtIsNoMemoryUnlessTheFileIsFound) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const HostVariables variables{{wide(U"DATA"), wide(dir.spec())}};
  const WideText everywhere = wide(dir.spec()), nowhere = wide(U"C:\\none");
  CPWChar out[FU_WIDE];
  FUSearchUFSW(wide(U"f").c_str(), nullptr, nullptr, nullptr, out);
  const long before = platform::capi_blocks_out();

  int no_memory = 0, not_found = 0;
  for (int request = 0; request < 40; ++request) {
    platform::capi_fail_once_after(request);
    const int status = FUSearchUFSW(wide(U"DATA:f.txt").c_str(), everywhere.c_str(), nullptr, nullptr, out);
    platform::capi_fail_after(-1);
    EXPECT_EQ(status, FU_OK) << request;
    EXPECT_EQ(WideText(out), wide(dir.spec(U"f.txt"))) << request;

    platform::capi_fail_once_after(request);
    const int other = FUSearchUFSW(wide(U"g.txt").c_str(), nowhere.c_str(), nullptr, nullptr, out);
    platform::capi_fail_after(-1);
    EXPECT_EQ(out[0], 0) << request;
    ++(other == FU_NO_MEMORY ? no_memory : not_found);
    EXPECT_TRUE(other == FU_NO_MEMORY || other == FU_NOT_FOUND) << request;
    EXPECT_EQ(platform::capi_blocks_out(), before) << request;
  }
  EXPECT_EQ(no_memory, 1);
  EXPECT_GT(not_found, 0);
}

TEST(SearchMemory, TheNarrowFormTellsALostSearchPathToo) {
  CPWChar wide_out[FU_WIDE];
  FUSearchUFSW(wide(U"f").c_str(), nullptr, nullptr, nullptr, wide_out);
  const long before = platform::capi_blocks_out();
  const HostVariables variables{};
  for (int request = 0; request < 20; ++request) {
    char out[FU_NARROW] = "x";
    platform::capi_fail_after(request);
    const int status = FUSearchUFS("g.txt", "C:\\none", "", "", out);
    platform::capi_fail_after(-1);
    EXPECT_TRUE(status == FU_NO_MEMORY || request >= 2) << request << ": " << status;
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(platform::capi_blocks_out(), before) << request;
  }
}

TEST(SearchMemory, AnInnerSearchThatRanOutOfMemoryIsReported) {
  const HostVariables variables{{wide(U"VX_PWP"), wide(U"C:\\none")}};
  int no_memory = 0;
  CPWChar out[FU_WIDE];
  for (int request = 0; request < 60; ++request) {
    platform::capi_fail_once_after(request);
    const int status = FUSearchUFSW(wide(U"lost\\f").c_str(), nullptr, nullptr, nullptr, out);
    platform::capi_fail_after(-1);
    if (status == FU_NO_MEMORY) ++no_memory;
  }
  EXPECT_EQ(no_memory, 1);
}

TEST(SearchMemory, NothingElseStaysAllocatedWhicheverStepFindsTheFile) {
  const HostDir dir;
  dir.make_file(U"sub\\f.txt");
  const HostVariables variables{{wide(U"DATA"), wide(dir.spec())},
                                {wide(U"FILE"), wide(dir.spec(U"sub\\f.txt"))},
                                {wide(U"VX_PWP"), wide(dir.spec(U"sub"))}};
  found(U"f.txt");
  const long before = platform::capi_blocks_out();
  for (const std::u32string& ufs : {dir.spec(U"sub\\f.txt"), std::u32string(U"DATA:sub\\f.txt"),
                                    std::u32string(U"C:\\x\\y\\f.txt"), std::u32string(U"x\\f.txt")}) {
    EXPECT_FALSE(found(ufs).empty());
  }
  EXPECT_TRUE(found(U"nothing").empty());
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(SearchMemory, AValueThatNamesTheFileStaysAllocated) {
  const HostDir dir;
  dir.make_file(U"f.txt");
  const HostVariables variables{{wide(U"FILE"), wide(dir.spec(U"f.txt"))},
                                {wide(U"LOST"), wide(dir.spec(U"g.txt"))}};
  CPWChar out[FU_WIDE];
  FUSearchUFSW(wide(U"f").c_str(), nullptr, nullptr, nullptr, out);
  const long before = platform::capi_blocks_out();
  EXPECT_EQ(FUSearchUFSW(wide(U"FILE").c_str(), nullptr, nullptr, nullptr, out), FU_OK);
  EXPECT_EQ(platform::capi_blocks_out(), before + 1);
  // One that does not help is released, also when a later step finds the file.
  EXPECT_EQ(FUSearchUFSW(wide(U"LOST").c_str(), nullptr, nullptr, nullptr, out), FU_NOT_FOUND);
  dir.make_file(U"LOST");
  EXPECT_EQ(FUSearchUFSW(wide(U"LOST").c_str(), wide(dir.spec()).c_str(), nullptr, nullptr, out), FU_OK);
  EXPECT_EQ(platform::capi_blocks_out(), before + 1);
}

}  // namespace
}  // namespace Corvane::Print::tests
