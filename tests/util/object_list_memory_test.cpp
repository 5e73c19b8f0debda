// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list's record, by which a handle is known, and what the list does where memory ends.
#include <array>
#include <cstring>
#include <memory>
#include <vector>

#include "tests/util/number_list.h"

namespace Corvane::Print::tests {
namespace {

using platform::capi_blocks_out;
using platform::capi_fail_after;
using util::ListNode;
using util::ListRecord;

using Ints = std::vector<int>;

// Bytes that are a list's, but for one, or for what the validation does not look at.
TEST_F(ObjectList, ASignatureCountsToItsTerminator) {
  for (std::size_t i = 0; i < 24; ++i) {
    ListRecord copy = record();
    reinterpret_cast<char*>(&copy)[i] ^= 1;
    int found = -1;
    EXPECT_EQ(OLGetNumItems(&copy, &found), i < 21 ? OL_NOT_A_LIST : OL_OK) << i;
  }
}

// Also where no list can begin.
TEST_F(ObjectList, ADifferenceIsFoundWhereverTheBytesBegin) {
  alignas(8) char bytes[sizeof(ListRecord) + 8];
  for (std::size_t offset = 1; offset < 8; ++offset) {
    for (std::size_t i = 0; i < 21; ++i) {
      std::memcpy(bytes + offset, &record(), sizeof(ListRecord));
      bytes[offset + i] ^= 1;
      int found = -1;
      EXPECT_EQ(OLGetNumItems(bytes + offset, &found), OL_NOT_A_LIST) << offset << ", " << i;
    }
  }
}

void expect_no_list(void* handle) {
  int number = 1, count = -1, index = 0;
  void* item = &number;
  EXPECT_EQ(OLDestroy(handle), OL_NOT_A_LIST);
  EXPECT_EQ(OLClear(handle), OL_NOT_A_LIST);
  EXPECT_EQ(OLGetNumItems(handle, &count), OL_NOT_A_LIST);
  EXPECT_EQ(OLItemInsert(handle, &number, sizeof number, nullptr, nullptr), OL_NOT_A_LIST);
  EXPECT_EQ(OLItemDelete(handle, 0), OL_NOT_A_LIST);
  EXPECT_EQ(OLItemSet(handle, 0, &number, sizeof number), OL_NOT_A_LIST);
  EXPECT_EQ(OLItemGetByIndex(handle, 0, &item), OL_NOT_A_LIST);
  EXPECT_EQ(OLItemGetByFilter(handle, accepts_nothing, nullptr, &index, &item), OL_NOT_A_LIST);
  EXPECT_EQ(count, -1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(item, &number);
}

TEST_F(ObjectList, OtherBytesAreNoList) {
  expect_no_list(nullptr);
  char text[] = "__OLIST__STRUCTURE_";
  expect_no_list(text);
  // Nothing is read beyond the first byte that differs.
  const auto one = std::make_unique<char>('x');
  expect_no_list(one.get());
  const auto four = std::make_unique<std::array<char, 4>>(std::array<char, 4>{'_', '_', 'O', '\0'});
  expect_no_list(four.get());
}

ListRecord g_last_freed;
void* g_watched = nullptr;

void keep_bytes(void* block) {
  if (block == g_watched) std::memcpy(&g_last_freed, block, sizeof g_last_freed);
}

// What a stale handle leads to, as long as its memory is not used anew.
TEST_F(ObjectList, ADestroyedListIsStampedAndNoListAnyMore) {
  append({1, 2});
  g_watched = list_;
  g_last_freed = {};
  platform::capi_watch_free(keep_bytes);
  release();
  platform::capi_watch_free(nullptr);
  EXPECT_EQ(std::memcmp(g_last_freed.signature, "GARBAGE\0_STRUCTURE__", 20), 0);
  EXPECT_EQ(g_last_freed.count, 0);
  EXPECT_EQ(g_last_freed.head, nullptr);
  expect_no_list(&g_last_freed);
}

std::vector<void*> g_freed;

TEST_F(ObjectList, ItemsAreReleasedFromTheFirstToTheLastEachBeforeItsNode) {
  append({1, 2});
  ListNode *const first = record().head, *const second = first->next;
  const std::vector<void*> expected = {first->data, first, second->data, second, list_};
  g_freed.clear();
  platform::capi_watch_free([](void* block) { g_freed.push_back(block); });
  release();
  platform::capi_watch_free(nullptr);
  EXPECT_EQ(g_freed, expected);
}

TEST_F(ObjectList, WithoutMemoryThereIsNoList) {
  capi_fail_after(0);
  void* const none = OLCreate();
  capi_fail_after(-1);
  EXPECT_EQ(none, nullptr);
  EXPECT_EQ(capi_blocks_out(), blocks_before_ + 1);
}

TEST_F(ObjectList, WithoutMemoryForACopyTheListStaysAsItWas) {
  append({1, 2});
  const long before = capi_blocks_out();
  int number = 9;
  capi_fail_after(0);
  EXPECT_EQ(OLItemInsert(list_, &number, sizeof number, nullptr, nullptr), OL_NO_MEMORY);
  EXPECT_EQ(OLItemInsert(list_, &number, sizeof number, ascending, nullptr), OL_NO_MEMORY);
  EXPECT_EQ(OLItemSet(list_, 1, &number, sizeof number), OL_NO_MEMORY);
  capi_fail_after(-1);
  EXPECT_EQ(capi_blocks_out(), before);
  EXPECT_EQ(numbers(), (Ints{1, 2}));
  EXPECT_EQ(OLItemSet(list_, 1, &number, sizeof number), OL_OK);
  EXPECT_EQ(numbers(), (Ints{1, 9}));
}

// The one way to leak. Leak checks know it by this function's name, so it must not be inlined.
[[gnu::noinline]] int insert_without_memory_for_its_node(void* list, OLCompare compare) {
  int number = 9;
  capi_fail_after(1);
  const int status = OLItemInsert(list, &number, sizeof number, compare, nullptr);
  capi_fail_after(-1);
  return status;
}

TEST_F(ObjectList, TheCopyStaysWhenThereIsNoMemoryForItsNode) {
  const OLCompare compares[] = {nullptr, ascending};
  long kept = 0;
  for (int items = 0; items < 4; ++items) {
    for (const OLCompare compare : compares) {
      const long before = capi_blocks_out();
      EXPECT_EQ(insert_without_memory_for_its_node(list_, compare), OL_NO_MEMORY);
      EXPECT_EQ(capi_blocks_out(), before + 1);
      EXPECT_EQ(count(), items);
      ++kept;
    }
    append({items});
  }
  EXPECT_EQ(numbers(), (Ints{0, 1, 2, 3}));
  blocks_before_ += kept;  // all else must come back
}

}  // namespace
}  // namespace Corvane::Print::tests
