// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list against a vector of byte strings: random sequences of calls, with bad positions, missing
// filters, foreign handles and failing allocations among them. After each call the lists must hold the same.
#include <gtest/gtest.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "corvane/print/ol.h"
#include "platform/capi_memory.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "util/object_list.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCalls = 100000;  // of each function, at least
constexpr int kFunctions = 8, kChoices = 14;
constexpr int kCallsPerList = 40;

// Items are ordered by their first byte alone, so that some are equal that are not the same.
int first_byte(const void* item) {
  return *static_cast<const unsigned char*>(item);
}

int CORVANE_PRINT_CALL by_first_byte(void* new_item, void* list_item, void*) {
  return first_byte(new_item) - first_byte(list_item);
}

int CORVANE_PRINT_CALL has_first_byte(void* item, void* context) {
  return first_byte(item) == *static_cast<int*>(context) ? -3 : 0;
}

// What a call answered, and what it wrote.
struct Answer {
  int status = OL_OK;
  int number = -77;
  std::string bytes = "untouched";
  friend bool operator==(const Answer&, const Answer&) = default;
};

void PrintTo(const Answer& answer, std::ostream* out) {
  *out << answer.status << ", " << answer.number << ", " << answer.bytes;
}

// One call: which function, and what of its arguments is wrong.
struct Call {
  int function, index;
  bool no_list, no_memory, missing, sorted;
  std::string item;
};

class Model {
public:
  Answer run(const Call& call) {
    if (call.no_list) return {OL_NOT_A_LIST};
    switch (call.function) {
      case 0:
        return clear();
      case 1:
        return {OL_OK, call.missing ? -77 : count()};
      case 2:
        return insert(call);
      case 3:
        return change(call, [this](auto at) { items_.erase(at); });
      case 4:
        return change(call, [&call](auto at) { *at = call.item; });
      case 5:
        return get(call);
      default:
        return find(call);
    }
  }
  const std::vector<std::string>& items() const { return items_; }

private:
  int count() const { return static_cast<int>(items_.size()); }
  int check(int index) const {
    if (items_.empty()) return OL_EMPTY;
    return index < 0 || index >= count() ? OL_BAD_INDEX : OL_OK;
  }
  Answer clear() {
    const int status = items_.empty() ? OL_EMPTY : OL_OK;
    items_.clear();
    return {status};
  }
  Answer insert(const Call& call) {
    if (call.no_memory) return {OL_NO_MEMORY};
    const auto before = [&call](const std::string& old) {
      return call.sorted && first_byte(call.item.data()) < first_byte(old.data());
    };
    items_.insert(std::find_if(items_.begin(), items_.end(), before), call.item);
    return {};
  }
  template <class Change>
  Answer change(const Call& call, Change make) {
    if (const int status = check(call.index); status != OL_OK) return {status};
    if (call.no_memory && call.function == 4) return {OL_NO_MEMORY};
    make(items_.begin() + call.index);
    return {};
  }
  Answer get(const Call& call) const {
    if (const int status = check(call.index); status != OL_OK) return {status};
    return {OL_OK, -77, call.missing ? "untouched" : items_[static_cast<std::size_t>(call.index)]};
  }
  Answer find(const Call& call) const {
    if (const int status = check(call.index); status != OL_OK) return {status, call.index};
    if (call.function == 7) return {OL_NO_FILTER, call.index};
    const auto wanted = [&call](const std::string& item) { return item[0] == call.item[0]; };
    const auto found = std::find_if(items_.begin() + call.index, items_.end(), wanted);
    if (found == items_.end()) return {OL_NOT_FOUND, call.index};
    return {OL_OK, static_cast<int>(found - items_.begin()), call.missing ? "untouched" : *found};
  }

  std::vector<std::string> items_;
};

// The bytes of an item by its node, which alone knows their number.
std::string bytes_of(const util::ListRecord& list, const void* item) {
  for (const util::ListNode* node = list.head; node != nullptr; node = node->next) {
    if (node->data == item) return std::string(static_cast<const char*>(node->data), node->size);
  }
  return "no item of the list";
}

class Subject {
public:
  Subject() : list_(OLCreate()) {}
  ~Subject() { EXPECT_EQ(OLDestroy(list_), OL_OK); }
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  Answer run(const Call& call) {
    if (call.no_memory) platform::capi_fail_once_after(0);
    Answer answer;
    void* item = nullptr;
    answer.status = status_of(call, answer.number, item);
    platform::capi_fail_after(-1);
    if (item != nullptr) answer.bytes = bytes_of(record(), item);
    // Searches have a position from the start.
    if (call.function >= 6 && call.no_list) answer.number = answer.number == call.index ? -77 : answer.number;
    return answer;
  }

  std::vector<std::string> items() const {
    std::vector<std::string> found;
    const util::ListNode* node = record().head;
    for (; node != nullptr; node = node->next) {
      found.emplace_back(static_cast<const char*>(node->data), node->size);
    }
    EXPECT_EQ(record().count, static_cast<int>(found.size()));
    return found;
  }

private:
  const util::ListRecord& record() const { return *static_cast<const util::ListRecord*>(list_); }

  int status_of(const Call& call, int& number, void*& item) {
    char foreign[] = "__OLIST__STRUCTURE_!";
    void* const list = call.no_list ? (call.missing ? nullptr : foreign) : list_;
    std::string own = call.item;  // the caller's bytes, which are gone after the call
    const int size = static_cast<int>(own.size());
    void** const wanted = call.missing ? nullptr : &item;
    int byte = first_byte(own.data());
    switch (call.function) {
      case 0:
        return OLClear(list);
      case 1:
        return OLGetNumItems(list, call.missing ? nullptr : &number);
      case 2:
        return OLItemInsert(list, own.data(), size, call.sorted ? by_first_byte : nullptr, nullptr);
      case 3:
        return OLItemDelete(list, call.index);
      case 4:
        return OLItemSet(list, call.index, own.data(), size);
      case 5:
        return OLItemGetByIndex(list, call.index, wanted);
      default:
        break;
    }
    number = call.index;
    return OLItemGetByFilter(list, call.function == 6 ? has_first_byte : nullptr, &byte, &number, wanted);
  }

  void* list_;
};

std::string random_item(Random& random) {
  std::string item(static_cast<std::size_t>(random.between(1, 12)), '\0');
  for (char& c : item) c = static_cast<char>('a' + random.below(26));
  item[0] = static_cast<char>('A' + random.below(5));
  return item;
}

Call random_call(Random& random, int items) {
  Call call{};
  // Insertions are as frequent as all the rest, or no list would ever grow.
  const int choice = random.below(kChoices);
  call.function = choice < kFunctions ? choice : 2;
  call.index = random.one_in(4) ? random.between(-2, items + 2) : items > 0 ? random.below(items) : 0;
  call.no_list = random.one_in(20);
  call.no_memory = random.one_in(10);
  call.missing = random.one_in(6);
  call.sorted = random.one_in(2);
  call.item = random_item(random);
  return call;
}

TEST(ObjectListModel, RandomSequencesOfCallsAgree) {
  const long before = platform::capi_blocks_out();
  std::vector<int> calls(kFunctions);
  const int lists = scaled(kCalls / kCallsPerList * kChoices * 21 / 20);
  for (int i = 0; i < lists; ++i) {
    Random random(case_seed(360, i));
    Model model;
    Subject subject;
    for (int k = 0; k < kCallsPerList; ++k) {
      const Call call = random_call(random, static_cast<int>(model.items().size()));
      const Answer expected = model.run(call);
      ASSERT_EQ(subject.run(call), expected)
          << "list " << i << ", call " << k << " of function " << call.function;
      ASSERT_EQ(subject.items(), model.items()) << "list " << i << ", call " << k;
      ++calls[static_cast<std::size_t>(call.function)];
    }
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
  EXPECT_GE(*std::min_element(calls.begin(), calls.end()), scaled(kCalls));
}

TEST(ObjectListModel, SortedItemsStandAsAStableSortWouldPutThem) {
  for (int i = 0; i < scaled(kCalls / 10); ++i) {
    Random random(case_seed(361, i));
    Subject subject;
    std::vector<std::string> expected;
    for (int k = random.between(1, 20); k > 0; --k) {
      Call call{};
      call.function = 2;
      call.sorted = true;
      call.item = random_item(random);
      expected.push_back(call.item);
      ASSERT_EQ(subject.run(call).status, OL_OK);
    }
    std::stable_sort(expected.begin(), expected.end(),
                     [](const std::string& a, const std::string& b) { return a[0] < b[0]; });
    ASSERT_EQ(subject.items(), expected) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
