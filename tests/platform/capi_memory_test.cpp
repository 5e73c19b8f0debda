// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "platform/capi_memory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <new>
#include <vector>

namespace Corvane::Print::platform {
namespace {

TEST(CapiMemory, BlocksCanBeWrittenFromEndToEnd) {
  void* block = capi_alloc(1000);
  ASSERT_NE(block, nullptr);
  std::memset(block, 1, 1000);
  block = capi_realloc(block, 5000);
  ASSERT_NE(block, nullptr);
  EXPECT_EQ(static_cast<char*>(block)[999], 1);
  std::memset(block, 2, 5000);
  capi_free(block);
}

TEST(CapiMemory, EmptyBlocksAreBlocks) {
  void* block = capi_alloc(0);
  EXPECT_NE(block, nullptr);
  block = capi_realloc(block, 0);
  EXPECT_NE(block, nullptr);
  capi_free(block);
  capi_free(nullptr);
}

TEST(CapiMemory, AnArrayBeyondTheAddressSpaceIsRefused) {
  EXPECT_EQ(capi_alloc_array(std::numeric_limits<std::size_t>::max() / 2, 3), nullptr);
  void* block = capi_alloc_array(10, 8);
  EXPECT_NE(block, nullptr);
  capi_free(block);
}

TEST(CapiMemory, RequestsFailFromThePlannedOneOn) {
  capi_fail_after(1);
  void* first = capi_alloc(10);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(capi_alloc(10), nullptr);
  EXPECT_EQ(capi_realloc(first, 20), nullptr);  // the old block is still there
  EXPECT_EQ(capi_fail_after(-1), 3);
  first = capi_realloc(first, 20);
  EXPECT_NE(first, nullptr);
  capi_free(first);
}

TEST(CapiMemory, ASingleRequestMayFail) {
  capi_fail_once_after(1);
  void* first = capi_alloc(10);
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(capi_alloc(10), nullptr);
  void* third = capi_alloc(10);
  EXPECT_NE(third, nullptr);
  EXPECT_EQ(capi_fail_after(-1), 3);
  capi_free(first);
  capi_free(third);
}

TEST(CapiMemory, BlocksOutAreCounted) {
  const long before = capi_blocks_out();
  void* first = capi_alloc(10);
  void* second = capi_realloc(nullptr, 10);
  EXPECT_EQ(capi_blocks_out(), before + 2);
  first = capi_realloc(first, 1000);
  EXPECT_EQ(capi_blocks_out(), before + 2);
  capi_free(first);
  capi_free(second);
  capi_free(nullptr);
  EXPECT_EQ(capi_blocks_out(), before);
  capi_fail_after(0);
  EXPECT_EQ(capi_alloc(10), nullptr);
  capi_fail_after(-1);
  EXPECT_EQ(capi_blocks_out(), before);
}

std::vector<char> g_first_bytes;

void keep_first_byte(void* block) {
  g_first_bytes.push_back(*static_cast<char*>(block));
}

TEST(CapiMemory, BlocksCanBeLookedAtJustBeforeTheyAreReleased) {
  g_first_bytes.clear();
  capi_watch_free(keep_first_byte);
  for (const char byte : {'a', 'b'}) {
    void* const block = capi_alloc(1);
    ASSERT_NE(block, nullptr);
    *static_cast<char*>(block) = byte;
    capi_free(block);
  }
  capi_free(nullptr);
  capi_watch_free(nullptr);
  void* const unseen = capi_alloc(1);
  ASSERT_NE(unseen, nullptr);
  *static_cast<char*>(unseen) = 'c';
  capi_free(unseen);
  EXPECT_EQ(g_first_bytes, (std::vector<char>{'a', 'b'}));
}

TEST(CapiMemory, AVectorReportsThatMemoryRanOut) {
  CapiVector<int> numbers;
  capi_fail_after(0);
  EXPECT_THROW(numbers.push_back(1), std::bad_alloc);
  capi_fail_after(-1);
  numbers.push_back(1);
  EXPECT_EQ(numbers.back(), 1);
}

TEST(CapiMemory, ARawVectorKeepsWhatIsPutIntoIt) {
  CapiRawVector<int> numbers(3);
  for (int i = 0; i < 3; ++i) numbers[static_cast<std::size_t>(i)] = i;
  numbers.push_back(3);
  numbers.resize(2);
  const CapiRawVector<int> copy = numbers;
  EXPECT_EQ(copy, (CapiRawVector<int>{0, 1}));
  capi_fail_after(0);
  EXPECT_THROW(numbers.resize(1000), std::bad_alloc);
  capi_fail_after(-1);
  EXPECT_EQ(numbers, copy);
}

}  // namespace
}  // namespace Corvane::Print::platform
