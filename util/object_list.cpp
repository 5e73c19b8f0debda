// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list. A list owns its nodes, and each node the bytes of its item; count is the number of nodes
// that can be reached from head, and `end` the link of the last of them, kept by link_in and delete_at.
//
// What `end` buys: 10,000 items are appended in 0.6 ms instead of 250. Why it cannot change a result: it is
// where the walk along the links ends.
#include "corvane/print/ol.h"

#include "platform/capi_memory.h"
#include "util/object_list.h"

#include <cstdint>
#include <cstring>
#include <limits>

namespace Corvane::Print {
namespace {

using platform::capi_alloc;
using platform::capi_free;
using util::ListNode;
using util::ListRecord;

constexpr char kSignature[] = "__OLIST__STRUCTURE__";
constexpr char kGarbage[] = "GARBAGE";
static_assert(sizeof kSignature == util::kSignatureLength + 1);

// The signature and the first byte of the field behind it, its terminator. What is no list may be shorter: it
// is not read beyond its first difference.
bool is_signature(const char* text) {
  return std::strncmp(text, kSignature, sizeof kSignature) == 0;
}

// Null when the handle is no list's.
ListRecord* list_of(void* handle) {
  if (handle == nullptr || !is_signature(static_cast<const char*>(handle))) return nullptr;
  return static_cast<ListRecord*>(handle);
}

// OL_OK when there is an item at that position.
int check_index(const ListRecord& list, int index) {
  if (list.count < 1) return OL_EMPTY;
  return index >= 0 && index < list.count ? OL_OK : OL_BAD_INDEX;
}

// The pointer that leads to the node at a position: the list's head, or the `next` of the node before.
ListNode** link_at(ListRecord& list, int index) {
  ListNode** link = &list.head;
  for (int i = 0; i < index; ++i) link = &(*link)->next;
  return link;
}

#ifdef CORVANE_PRINT_PLAIN
constexpr bool kWalkAlways = true;
#else
constexpr bool kWalkAlways = false;
#endif

util::ListBlock& block_of(ListRecord& list) {
  return reinterpret_cast<util::ListBlock&>(list);
}

void link_in(ListRecord& list, ListNode& node, ListNode** link) {
  node.next = *link;
  *link = &node;
  if (node.next == nullptr) block_of(list).end = &node.next;
  ++list.count;
  ++block_of(list).changes;
}

void delete_at(ListRecord& list, int index) {
  ListNode** const link = link_at(list, index);
  ListNode* const node = *link;
  *link = node->next;
  if (*link == nullptr) block_of(list).end = link;
  capi_free(node->data);
  capi_free(node);
  --list.count;
  ++block_of(list).changes;
}

// The list's copy of an item; null when memory ran out. An empty item has an address of its own too.
void* copy_of(const void* item, int size) {
  if (size < 0) return nullptr;
  const auto bytes = static_cast<std::size_t>(size);
  void* const copy = capi_alloc(bytes);
  if (copy == nullptr || bytes == 0) return copy;
  return item != nullptr ? std::memcpy(copy, item, bytes) : std::memset(copy, 0, bytes);
}

// KEEP(ol-insert-leak): without memory for the node the copy of the item stays allocated.
// Looks wrong; hosts that hand out the list's memory count blocks by it. Pinned by
// ObjectList.TheCopyStaysWhenThereIsNoMemoryForItsNode.
ListNode* new_node(const void* item, int size) {
  void* const copy = copy_of(item, size);
  if (copy == nullptr) return nullptr;
  auto* const node = static_cast<ListNode*>(capi_alloc(sizeof(ListNode)));
  if (node == nullptr) return nullptr;
  *node = {static_cast<std::uint32_t>(size), copy, nullptr};
  return node;
}

// Where a new item goes: the link in front of the first item that it stands before, or the last one.
ListNode** link_for(ListRecord& list, void* item, OLCompare compare, void* context) {
  if (compare == nullptr && !kWalkAlways) return block_of(list).end;
  ListNode** link = &list.head;
  while (*link != nullptr && (compare == nullptr || compare(item, (*link)->data, context) >= 0)) {
    link = &(*link)->next;
  }
  return link;
}

void clear(ListRecord& list) {
  while (list.head != nullptr) delete_at(list, 0);
}

// The compiler must not leave this out because the record is released next: stale handles are known by it.
void stamp_as_garbage(ListRecord& list) {
  volatile char* const bytes = list.signature;
  for (std::size_t i = 0; i < sizeof kGarbage; ++i) bytes[i] = kGarbage[i];
}

}  // namespace

void* OLCreate() {
  auto* const block = static_cast<util::ListBlock*>(capi_alloc(sizeof(util::ListBlock)));
  if (block == nullptr) return nullptr;
  ListRecord& list = block->record;
  std::memcpy(list.signature, kSignature, sizeof list.signature);
  list.reserved = 0;
  list.count = 0;
  list.head = nullptr;
  block->end = &list.head;
  block->changes = 0;
  return block;
}

int OLDestroy(void* handle) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  clear(*list);
  stamp_as_garbage(*list);
  capi_free(list);
  return OL_OK;
}

// KEEP(ol-clear-empty): clearing an empty list is an error, destroying one is not.
// Looks wrong; hosts stop at it. Pinned by ObjectList.ClearingAnEmptyListIsAnErrorAndDestroyingItIsNot.
int OLClear(void* handle) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (list->count < 1) return OL_EMPTY;
  clear(*list);
  return OL_OK;
}

int OLGetNumItems(void* handle, int* count) {
  const ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (count != nullptr) *count = list->count;
  return OL_OK;
}

int OLItemInsert(void* handle, void* item, int size, OLCompare compare, void* context) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (list->count == std::numeric_limits<std::int32_t>::max()) return OL_NO_MEMORY;
  ListNode* const node = new_node(item, size);
  if (node == nullptr) return OL_NO_MEMORY;
  link_in(*list, *node, link_for(*list, node->data, compare, context));
  return OL_OK;
}

int OLItemDelete(void* handle, int index) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (const int status = check_index(*list, index); status != OL_OK) return status;
  delete_at(*list, index);
  return OL_OK;
}

int OLItemSet(void* handle, int index, void* item, int size) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (const int status = check_index(*list, index); status != OL_OK) return status;
  ListNode& node = **link_at(*list, index);
  void* const copy = copy_of(item, size);
  if (copy == nullptr) return OL_NO_MEMORY;
  void* const old = node.data;
  node.data = copy;
  node.size = static_cast<std::uint32_t>(size);
  capi_free(old);
  return OL_OK;
}

int OLItemGetByIndex(void* handle, int index, void** item) {
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (const int status = check_index(*list, index); status != OL_OK) return status;
  if (item != nullptr) *item = (*link_at(*list, index))->data;
  return OL_OK;
}

// KEEP(ol-index-first): the start position is read before the handle is looked at.
// Looks wrong; the order of looking is the callers' contract. Pinned by
// ObjectList.TheFilterSearchReadsItsStartEvenForABadHandle.
int OLItemGetByFilter(void* handle, OLFilter filter, void* context, int* index, void** item) {
  const int start = index != nullptr ? *index : -1;
  ListRecord* const list = list_of(handle);
  if (list == nullptr) return OL_NOT_A_LIST;
  if (const int status = check_index(*list, start); status != OL_OK) return status;
  if (filter == nullptr) return OL_NO_FILTER;
  // A filter may insert and delete; then the next position is looked for from the head. It may also destroy
  // the list with the item that it accepts, so nothing is looked at then.
  //
  // What going from item to item buys: 1,000 items take 3 us instead of 730. Why it cannot change a result:
  // while no node came or went, the one behind this one is the one at the next position.
  ListNode* node = *link_at(*list, start);
  for (int position = start;;) {
    void* const data = node->data;
    const std::uint64_t before = block_of(*list).changes;
    if (filter(data, context) != 0) {
      *index = position;
      if (item != nullptr) *item = data;
      return OL_OK;
    }
    if (++position >= list->count) return OL_NOT_FOUND;
    const bool changed = block_of(*list).changes != before;
    node = changed || kWalkAlways ? *link_at(*list, position) : node->next;
  }
}

}  // namespace Corvane::Print
