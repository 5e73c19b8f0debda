// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A list of numbers for the tests of the object list, which releases itself and expects all its memory back.
#ifndef CORVANE_PRINT_TESTS_UTIL_NUMBER_LIST_H
#define CORVANE_PRINT_TESTS_UTIL_NUMBER_LIST_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <vector>

#include "corvane/print/ol.h"
#include "platform/capi_memory.h"
#include "util/object_list.h"

namespace Corvane::Print::tests {

inline int CORVANE_PRINT_CALL ascending(void* new_item, void* list_item, void*) {
  const int a = *static_cast<int*>(new_item), b = *static_cast<int*>(list_item);
  return a < b ? -1 : a > b ? 1 : 0;
}

inline int CORVANE_PRINT_CALL accepts_nothing(void*, void*) {
  return 0;
}

class ObjectList : public testing::Test {
protected:
  ObjectList() : blocks_before_(platform::capi_blocks_out()), list_(OLCreate()) {}
  ~ObjectList() override { release(); }

  void release() {
    if (list_ == nullptr) return;
    EXPECT_EQ(OLDestroy(list_), OL_OK);
    list_ = nullptr;
    EXPECT_EQ(platform::capi_blocks_out(), blocks_before_);
  }

  void append(std::initializer_list<int> numbers) {
    for (int number : numbers)
      EXPECT_EQ(OLItemInsert(list_, &number, sizeof number, nullptr, nullptr), OL_OK);
  }
  void sort_in(int number) {
    EXPECT_EQ(OLItemInsert(list_, &number, sizeof number, ascending, nullptr), OL_OK);
  }

  int count() {
    int found = -1;
    EXPECT_EQ(OLGetNumItems(list_, &found), OL_OK);
    return found;
  }
  std::vector<int> numbers() {
    std::vector<int> found;
    for (int i = 0; i < count(); ++i) {
      void* item = nullptr;
      EXPECT_EQ(OLItemGetByIndex(list_, i, &item), OL_OK);
      found.push_back(*static_cast<int*>(item));
    }
    return found;
  }
  util::ListRecord& record() { return *static_cast<util::ListRecord*>(list_); }

  long blocks_before_;
  void* list_;
};

}  // namespace Corvane::Print::tests

#endif
