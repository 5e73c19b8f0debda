// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list: its chain of items, what its functions do with them, and their codes in order.
#include <array>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <string>
#include <vector>

#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/util/number_list.h"

namespace Corvane::Print::tests {
namespace {

using platform::capi_blocks_out;
using util::ListNode;

using Ints = std::vector<int>;

int CORVANE_PRINT_CALL equals_context(void* item, void* context) {
  return *static_cast<int*>(item) == *static_cast<int*>(context) ? 7 : 0;
}

TEST_F(ObjectList, ANewListIsEmptyAndSigned) {
  ASSERT_NE(list_, nullptr);
  EXPECT_EQ(count(), 0);
  EXPECT_EQ(std::memcmp(list_, "__OLIST__STRUCTURE__\0\0\0\0", 24), 0);
  EXPECT_EQ(record().reserved, 0);
  EXPECT_EQ(record().count, 0);
  EXPECT_EQ(record().head, nullptr);
}

TEST_F(ObjectList, ItemsAreChainedAndCopied) {
  char bytes[] = "abc";
  ASSERT_EQ(OLItemInsert(list_, bytes, 3, nullptr, nullptr), OL_OK);
  ASSERT_EQ(OLItemInsert(list_, bytes + 1, 2, nullptr, nullptr), OL_OK);
  bytes[1] = 'x';
  const ListNode* const first = record().head;
  EXPECT_EQ(record().count, 2);
  EXPECT_EQ(first->size, 3u);
  EXPECT_EQ(std::memcmp(first->data, "abc", 3), 0);
  EXPECT_EQ(first->next->size, 2u);
  EXPECT_EQ(std::memcmp(first->next->data, "bc", 2), 0);
  EXPECT_EQ(first->next->next, nullptr);
}

TEST_F(ObjectList, WithoutACompareFunctionItemsKeepTheirOrder) {
  append({3, 1, 2, 1});
  EXPECT_EQ(numbers(), (Ints{3, 1, 2, 1}));
}

TEST_F(ObjectList, ACompareFunctionSortsItems) {
  for (const int number : {3, 1, 2}) sort_in(number);
  EXPECT_EQ(numbers(), (Ints{1, 2, 3}));
}

TEST_F(ObjectList, ANewItemComesAfterItsEquals) {
  for (const int number : {3, 1, 2}) sort_in(number);
  void* before = nullptr;
  ASSERT_EQ(OLItemGetByIndex(list_, 1, &before), OL_OK);
  sort_in(2);
  EXPECT_EQ(numbers(), (Ints{1, 2, 2, 3}));
  void* first = nullptr;
  ASSERT_EQ(OLItemGetByIndex(list_, 1, &first), OL_OK);
  EXPECT_EQ(first, before);
}

struct Compared {
  std::vector<std::array<int, 2>> pairs;
  std::vector<void*> new_items;
};

int CORVANE_PRINT_CALL record_and_compare(void* new_item, void* list_item, void* context) {
  auto& compared = *static_cast<Compared*>(context);
  compared.pairs.push_back({*static_cast<int*>(new_item), *static_cast<int*>(list_item)});
  compared.new_items.push_back(new_item);
  return ascending(new_item, list_item, nullptr);
}

TEST_F(ObjectList, TheNewCopyIsComparedFromTheHeadToTheFirstThatItStandsBefore) {
  append({1, 3, 5, 7});
  Compared compared;
  int number = 4;
  ASSERT_EQ(OLItemInsert(list_, &number, sizeof number, record_and_compare, &compared), OL_OK);
  EXPECT_EQ(compared.pairs, (std::vector<std::array<int, 2>>{{4, 1}, {4, 3}, {4, 5}}));
  void* copy = nullptr;
  ASSERT_EQ(OLItemGetByIndex(list_, 2, &copy), OL_OK);
  EXPECT_EQ(compared.new_items, (std::vector<void*>(3, copy)));
  EXPECT_NE(copy, &number);
}

TEST_F(ObjectList, InAnEmptyListThereIsNothingToCompareWith) {
  Compared compared;
  int number = 4;
  ASSERT_EQ(OLItemInsert(list_, &number, sizeof number, record_and_compare, &compared), OL_OK);
  EXPECT_TRUE(compared.pairs.empty());
}

TEST_F(ObjectList, ClearingAnEmptyListIsAnErrorAndDestroyingItIsNot) {
  EXPECT_EQ(OLClear(list_), OL_EMPTY);
  append({1, 2, 3});
  EXPECT_EQ(OLClear(list_), OL_OK);
  EXPECT_EQ(count(), 0);
  EXPECT_EQ(record().head, nullptr);
  EXPECT_EQ(capi_blocks_out(), blocks_before_ + 1);
  EXPECT_EQ(OLClear(list_), OL_EMPTY);
  append({4});
  EXPECT_EQ(numbers(), (Ints{4}));
  EXPECT_EQ(OLClear(list_), OL_OK);
  release();
}

TEST_F(ObjectList, DeletingTakesOutOneItem) {
  append({0, 1, 2, 3});
  EXPECT_EQ(OLItemDelete(list_, 1), OL_OK);
  EXPECT_EQ(numbers(), (Ints{0, 2, 3}));
  EXPECT_EQ(OLItemDelete(list_, 2), OL_OK);
  EXPECT_EQ(numbers(), (Ints{0, 2}));
  EXPECT_EQ(OLItemDelete(list_, 0), OL_OK);
  EXPECT_EQ(numbers(), (Ints{2}));
  EXPECT_EQ(OLItemDelete(list_, 0), OL_OK);
  EXPECT_EQ(numbers(), Ints{});
  append({5});
  EXPECT_EQ(numbers(), (Ints{5}));
}

TEST_F(ObjectList, AnEmptyListIsReportedBeforeABadPosition) {
  int number = 1, index = 5;
  void* item = &number;
  for (const int position : {0, -1, 5}) {
    EXPECT_EQ(OLItemDelete(list_, position), OL_EMPTY);
    EXPECT_EQ(OLItemSet(list_, position, &number, sizeof number), OL_EMPTY);
    EXPECT_EQ(OLItemGetByIndex(list_, position, &item), OL_EMPTY);
  }
  EXPECT_EQ(OLItemGetByFilter(list_, nullptr, nullptr, &index, &item), OL_EMPTY);
  EXPECT_EQ(OLItemGetByFilter(list_, accepts_nothing, nullptr, nullptr, &item), OL_EMPTY);
  EXPECT_EQ(item, &number);
}

TEST_F(ObjectList, PositionsOutsideTheListAreRefused) {
  append({1, 2});
  int number = 9;
  for (const int position : {2, 3, -1, INT_MAX, INT_MIN}) {
    void* item = &number;
    EXPECT_EQ(OLItemDelete(list_, position), OL_BAD_INDEX);
    EXPECT_EQ(OLItemSet(list_, position, &number, sizeof number), OL_BAD_INDEX);
    EXPECT_EQ(OLItemGetByIndex(list_, position, &item), OL_BAD_INDEX);
    EXPECT_EQ(OLItemGetByIndex(list_, position, nullptr), OL_BAD_INDEX);
    int index = position;
    // A bad position is reported before a missing filter.
    EXPECT_EQ(OLItemGetByFilter(list_, nullptr, nullptr, &index, &item), OL_BAD_INDEX);
    EXPECT_EQ(index, position);
    EXPECT_EQ(item, &number);
  }
  EXPECT_EQ(numbers(), (Ints{1, 2}));
}

TEST_F(ObjectList, AnItemIsThereAlsoForThoseWhoDoNotWantIt) {
  append({1, 2});
  EXPECT_EQ(OLItemGetByIndex(list_, 1, nullptr), OL_OK);
  EXPECT_EQ(OLGetNumItems(list_, nullptr), OL_OK);
}

TEST_F(ObjectList, AnItemIsReplacedByAnotherSize) {
  append({1, 2, 3});
  char longer[] = "a longer item";
  ASSERT_EQ(OLItemSet(list_, 1, longer, sizeof longer), OL_OK);
  longer[0] = 'x';
  void* item = nullptr;
  ASSERT_EQ(OLItemGetByIndex(list_, 1, &item), OL_OK);
  EXPECT_STREQ(static_cast<char*>(item), "a longer item");
  EXPECT_EQ(record().head->next->size, sizeof longer);
  EXPECT_EQ(count(), 3);
  int shorter = 8;
  ASSERT_EQ(OLItemSet(list_, 1, &shorter, sizeof shorter), OL_OK);
  EXPECT_EQ(numbers(), (Ints{1, 8, 3}));
}

TEST_F(ObjectList, AnItemMayBeReplacedByAPartOfItself) {
  char text[] = "abcdef";
  ASSERT_EQ(OLItemInsert(list_, text, sizeof text, nullptr, nullptr), OL_OK);
  void* item = nullptr;
  ASSERT_EQ(OLItemGetByIndex(list_, 0, &item), OL_OK);
  ASSERT_EQ(OLItemSet(list_, 0, static_cast<char*>(item) + 3, 4), OL_OK);
  ASSERT_EQ(OLItemGetByIndex(list_, 0, &item), OL_OK);
  EXPECT_STREQ(static_cast<char*>(item), "def");
}

TEST_F(ObjectList, AnItemMayBeEmptyAndBytesMayBeZeros) {
  int number = 5;
  ASSERT_EQ(OLItemInsert(list_, &number, 0, nullptr, nullptr), OL_OK);
  ASSERT_EQ(OLItemInsert(list_, nullptr, 4, nullptr, nullptr), OL_OK);
  ASSERT_EQ(OLItemInsert(list_, nullptr, 0, nullptr, nullptr), OL_OK);
  void* items[3] = {};
  for (int i = 0; i < 3; ++i) ASSERT_EQ(OLItemGetByIndex(list_, i, &items[i]), OL_OK);
  EXPECT_EQ(*static_cast<int*>(items[1]), 0);
  for (void* item : items) EXPECT_NE(item, nullptr);
  EXPECT_EQ(record().head->size, 0u);
}

TEST_F(ObjectList, ItemsOfEverySizeAreCopiedWhole) {
  std::string bytes(40, ' ');
  std::iota(bytes.begin(), bytes.end(), 'A');
  for (std::size_t size = 0; size <= bytes.size(); ++size) {
    const std::string given = bytes.substr(bytes.size() - size);
    ASSERT_EQ(OLItemInsert(list_, const_cast<char*>(given.data()), static_cast<int>(size), nullptr, nullptr),
              OL_OK);
    void* item = nullptr;
    ASSERT_EQ(OLItemGetByIndex(list_, static_cast<int>(size), &item), OL_OK);
    EXPECT_EQ(std::string(static_cast<char*>(item), size), given);
  }
}

TEST_F(ObjectList, ThereIsNoMemoryForANegativeSize) {
  append({1});
  int number = 5;
  for (const int size : {-1, INT_MIN}) {
    EXPECT_EQ(OLItemInsert(list_, &number, size, nullptr, nullptr), OL_NO_MEMORY);
    EXPECT_EQ(OLItemSet(list_, 0, &number, size), OL_NO_MEMORY);
  }
  EXPECT_EQ(numbers(), (Ints{1}));
}

TEST_F(ObjectList, TheFirstAcceptedItemFromTheStartOnIsFound) {
  append({5, 6, 5, 7});
  int wanted = 5, index = 0;
  void *item = nullptr, *expected = nullptr;
  EXPECT_EQ(OLItemGetByFilter(list_, equals_context, &wanted, &index, &item), OL_OK);
  EXPECT_EQ(index, 0);
  ++index;
  EXPECT_EQ(OLItemGetByFilter(list_, equals_context, &wanted, &index, &item), OL_OK);
  EXPECT_EQ(index, 2);
  OLItemGetByIndex(list_, 2, &expected);
  EXPECT_EQ(item, expected);
  ++index;
  item = nullptr;
  EXPECT_EQ(OLItemGetByFilter(list_, equals_context, &wanted, &index, &item), OL_NOT_FOUND);
  EXPECT_EQ(index, 3);
  EXPECT_EQ(item, nullptr);
  index = 1;
  EXPECT_EQ(OLItemGetByFilter(list_, equals_context, &wanted, &index, nullptr), OL_OK);
  EXPECT_EQ(index, 2);
}

TEST_F(ObjectList, AFilterSearchNamesWhatItLacks) {
  append({5, 6});
  int index = 2;
  void* item = nullptr;
  EXPECT_EQ(OLItemGetByFilter(list_, accepts_nothing, nullptr, &index, &item), OL_BAD_INDEX);
  index = 1;
  EXPECT_EQ(OLItemGetByFilter(list_, accepts_nothing, nullptr, &index, &item), OL_NOT_FOUND);
  EXPECT_EQ(OLItemGetByFilter(list_, nullptr, nullptr, &index, &item), OL_NO_FILTER);
  EXPECT_EQ(OLItemGetByFilter(list_, accepts_nothing, nullptr, nullptr, &item), OL_BAD_INDEX);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(item, nullptr);
}

TEST_F(ObjectList, TheFilterSearchReadsItsStartEvenForABadHandle) {
  append({5, 6, 7});
  // The start is the one from before the filter ran, though the filter writes to it.
  int index = 1;
  const auto meddle = [](void* item, void* context) {
    *static_cast<int*>(context) = 0;
    return *static_cast<int*>(item) == 7 ? 1 : 0;
  };
  EXPECT_EQ(OLItemGetByFilter(list_, meddle, &index, &index, nullptr), OL_OK);
  EXPECT_EQ(index, 2);
  index = 41;
  EXPECT_EQ(OLItemGetByFilter(nullptr, meddle, &index, &index, nullptr), OL_NOT_A_LIST);
  EXPECT_EQ(index, 41);
}

// The filter of the first item deletes it, so what was the third item is now at the second position.
int CORVANE_PRINT_CALL delete_ones(void* item, void* context) {
  if (*static_cast<int*>(item) != 1) return *static_cast<int*>(item) == 3 ? 1 : 0;
  EXPECT_EQ(OLItemDelete(context, 0), OL_OK);
  return 0;
}

TEST_F(ObjectList, AFilterMayChangeTheList) {
  append({1, 2, 3});
  int index = 0;
  EXPECT_EQ(OLItemGetByFilter(list_, delete_ones, list_, &index, nullptr), OL_OK);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(numbers(), (Ints{2, 3}));
}

// A filter that changes its list as it likes, always the same way for the same seed.
struct Meddler {
  explicit Meddler(std::uint64_t seed, void* its_list) : random(seed), list(its_list) {}

  static int CORVANE_PRINT_CALL filter(void* item, void* context) {
    return static_cast<Meddler*>(context)->meddle(*static_cast<int*>(item));
  }

  int meddle(int number) {
    seen.push_back(number);
    int count = 0, start = 0, index = random.between(0, 9), other = random.between(0, 99);
    OLGetNumItems(list, &count);
    if (count < 40 && random.one_in(5)) OLItemInsert(list, &other, sizeof other, nullptr, nullptr);
    if (count < 40 && random.one_in(9)) OLItemInsert(list, &other, sizeof other, descending, nullptr);
    if (count > 1 && random.one_in(5)) OLItemDelete(list, index);
    if (random.one_in(5)) OLItemSet(list, index, &other, sizeof other);
    if (random.one_in(9)) OLItemGetByFilter(list, accepts_nothing, nullptr, &start, nullptr);
    return random.one_in(30) ? 1 : 0;
  }

  static int CORVANE_PRINT_CALL descending(void* new_item, void* list_item, void*) {
    return *static_cast<int*>(list_item) - *static_cast<int*>(new_item);
  }

  Random random;
  void* list;
  Ints seen;
};

// The rule of a filter search: each position is walked to from the head.
int search_from_the_head(void* list, Meddler& meddler, int* index) {
  for (int position = *index, count = 0; OLGetNumItems(list, &count) == OL_OK && position < count;
       ++position) {
    void* item = nullptr;
    OLItemGetByIndex(list, position, &item);
    if (Meddler::filter(item, &meddler) == 0) continue;
    *index = position;
    return OL_OK;
  }
  return OL_NOT_FOUND;
}

TEST_F(ObjectList, AFilterMayChangeTheListInAnyWay) {
  constexpr std::uint64_t kFamily = 513;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kFamily, i));
    void* const other = OLCreate();
    OLClear(list_);
    for (int n = random.between(1, 20); n > 0; --n) {
      int number = random.between(0, 99);
      OLItemInsert(list_, &number, sizeof number, nullptr, nullptr);
      OLItemInsert(other, &number, sizeof number, nullptr, nullptr);
    }
    Meddler one(random.next(), list_), two = one;
    two.list = other;
    int found = 0, expected = 0;
    const int status = OLItemGetByFilter(list_, Meddler::filter, &one, &found, nullptr);
    ASSERT_EQ(status, search_from_the_head(other, two, &expected)) << "case " << i;
    ASSERT_EQ(found, expected) << "case " << i;
    ASSERT_EQ(one.seen, two.seen) << "case " << i;
    OLDestroy(other);
  }
}

TEST_F(ObjectList, AFilterMayDestroyTheListWithTheItemItAccepts) {
  void* const other = OLCreate();
  int number = 1, index = 0;
  OLItemInsert(other, &number, sizeof number, nullptr, nullptr);
  const auto destroy = [](void*, void* context) { return OLDestroy(context) == OL_OK ? 1 : 0; };
  EXPECT_EQ(OLItemGetByFilter(other, destroy, other, &index, nullptr), OL_OK);
}

TEST_F(ObjectList, ListsAreIndependent) {
  void* const other = OLCreate();
  ASSERT_NE(other, nullptr);
  append({1, 2});
  EXPECT_EQ(OLClear(other), OL_EMPTY);
  EXPECT_EQ(OLDestroy(other), OL_OK);
  EXPECT_EQ(numbers(), (Ints{1, 2}));
}

}  // namespace
}  // namespace Corvane::Print::tests
