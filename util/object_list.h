// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The records of an object list, in their fixed layout:
//
//   handle -> ListRecord --head--> ListNode --next--> ListNode --next--> null
//                                     |data               |data
//                                   bytes               bytes
#ifndef CORVANE_PRINT_UTIL_OBJECT_LIST_H
#define CORVANE_PRINT_UTIL_OBJECT_LIST_H

#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace Corvane::Print::util {

inline constexpr std::size_t kSignatureLength = 20;

struct ListNode {
  std::uint32_t size;  // of data, in bytes
  void* data;
  ListNode* next;
};

struct ListRecord {
  char signature[kSignatureLength];  // without a terminator of its own
  std::int32_t reserved;             // 0; its first byte terminates the signature
  std::int32_t count;
  ListNode* head;
};

// What a handle leads to: the record, and behind it what the host knows nothing about. A link is a pointer in
// the chain: the head, or the `next` of a node. That at position i leads to the item at i.
struct ListBlock {
  ListRecord record;
  ListNode** end;    // the null link at the end of the chain
  ListNode** known;  // the link that was walked to last
  std::int32_t known_position;
};

static_assert(std::is_trivial_v<ListBlock> && std::is_standard_layout_v<ListBlock>);
static_assert(std::is_trivial_v<ListRecord> && std::is_standard_layout_v<ListRecord>);
static_assert(std::is_trivial_v<ListNode> && std::is_standard_layout_v<ListNode>);
static_assert(offsetof(ListRecord, reserved) == 20 && offsetof(ListRecord, count) == 24);
static_assert(offsetof(ListRecord, head) == (sizeof(void*) == 4 ? 28 : 32));
static_assert(offsetof(ListNode, data) == sizeof(void*) && offsetof(ListNode, next) == 2 * sizeof(void*));
static_assert(sizeof(void*) != 4 || (sizeof(ListRecord) == 32 && sizeof(ListNode) == 12));

}  // namespace Corvane::Print::util

#endif
