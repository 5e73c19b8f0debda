// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The object list. A list owns its nodes, and each node the bytes of its item; count is the number of nodes
// that can be reached from head. `end` and `known` are kept by link_in, delete_at and link_at.
//
// What they buy: 10,000 items are appended in 0.27 ms instead of 250, and a filter finds a tenth of them, one
// call after the other, in 35 us instead of 14 ms. Why they cannot change a result: they are where a walk
// from the head would come by, because what could move them sets them anew.
#include "corvane/print/ol.h"

#include "platform/capi_memory.h"
#include "util/object_list.h"

#include <cstdint>
#include <cstring>
#include <limits>
#include <utility>

namespace Corvane::Print {
namespace {

using platform::capi_alloc;
using platform::capi_free;
using util::ListNode;
using util::ListRecord;

constexpr char kSignature[] = "__OLIST__STRUCTURE__";
constexpr char kGarbage[] = "GARBAGE";
static_assert(sizeof kSignature == util::kSignatureLength + 1);

#ifdef CORVANE_PRINT_PLAIN
constexpr bool kPlain = true;
#else
constexpr bool kPlain = false;
#endif

// The signature and the first byte of the field behind it, its terminator. What is no list may be shorter: it
// is not read beyond its first difference.
bool is_signature_plain(const char* text) {
  return std::strncmp(text, kSignature, sizeof kSignature) == 0;
}

// In eights of bytes where memory is divided into such, as it is for every list. Bytes behind the first
// difference may be read, but none behind the eight that it stands in, which are of one page and so all there
// or not at all. Appending an item takes 31 ns with it, 37 without.
__attribute__((no_sanitize("address"))) bool is_signature_by_eights(const char* text) {
  using Eight [[gnu::may_alias]] = std::uint64_t;
  const auto* const eights = reinterpret_cast<const Eight*>(text);
  constexpr auto eight_of_signature = [](std::size_t i) {
    std::uint64_t eight = 0;
    for (std::size_t k = 0; k < 8 && 8 * i + k < sizeof kSignature; ++k) {
      eight |= std::uint64_t{static_cast<unsigned char>(kSignature[8 * i + k])} << (8 * k);
    }
    return eight;
  };
  constexpr std::uint64_t kFirst = eight_of_signature(0), kSecond = eight_of_signature(1),
                          kThird = eight_of_signature(2), kFiveBytes = (std::uint64_t{1} << 40) - 1;
  return eights[0] == kFirst && eights[1] == kSecond && (eights[2] & kFiveBytes) == kThird;
}

bool is_signature(const char* text) {
  const bool in_eights = reinterpret_cast<std::uintptr_t>(text) % 8 == 0;
  return in_eights && !kPlain ? is_signature_by_eights(text) : is_signature_plain(text);
}

// Null when the handle is no list's. This and copy_of are inlined where they are used, which saves 1 of 24 ns
// for appending an item.
[[gnu::always_inline]] inline ListRecord* list_of(void* handle) {
  if (handle == nullptr || !is_signature(static_cast<const char*>(handle))) return nullptr;
  return static_cast<ListRecord*>(handle);
}

// OL_OK when there is an item at that position.
int check_index(const ListRecord& list, int index) {
  if (list.count < 1) return OL_EMPTY;
  return index >= 0 && index < list.count ? OL_OK : OL_BAD_INDEX;
}

util::ListBlock& block_of(ListRecord& list) {
  return reinterpret_cast<util::ListBlock&>(list);
}

void know(ListRecord& list, ListNode** link, int position) {
  block_of(list).known = link;
  block_of(list).known_position = position;
}

// The link that leads to the node at a position.
ListNode** link_at(ListRecord& list, int index) {
  if (kPlain || block_of(list).known_position > index) know(list, &list.head, 0);
  ListNode** link = block_of(list).known;
  for (int i = block_of(list).known_position; i < index; ++i) link = &(*link)->next;
  know(list, link, index);
  return link;
}

// Behind the known link every position changes, unless the node goes to the end.
void link_in(ListRecord& list, ListNode& node, ListNode** link) {
  node.next = *link;
  *link = &node;
  if (node.next == nullptr) {
    block_of(list).end = &node.next;
  } else {
    know(list, &list.head, 0);
  }
  ++list.count;
}

void release(ListNode* node) {
  capi_free(node->data);
  capi_free(node);
}

// The known link is that to the node, and to the next one afterwards.
void delete_at(ListRecord& list, int index) {
  ListNode** const link = link_at(list, index);
  ListNode* const node = *link;
  *link = node->next;
  if (*link == nullptr) block_of(list).end = link;
  release(node);
  --list.count;
}

// Copies to a block of its own. Many items are a number or two, or a pointer beside one: for those of 8 to 16
// bytes, in two halves that may overlap, no call is made. It saves 1 of 27 ns for appending an item.
void copy_bytes(char* to, const char* from, std::size_t bytes) {
  constexpr std::size_t kHalf = 8;
  if (bytes < kHalf || bytes > 2 * kHalf || kPlain) {
    std::memcpy(to, from, bytes);
  } else {
    std::memcpy(to, from, kHalf);
    std::memcpy(to + bytes - kHalf, from + bytes - kHalf, kHalf);
  }
}

// The list's copy of an item; null when memory ran out. An empty item has an address of its own too.
[[gnu::always_inline]] inline void* copy_of(const void* item, int size) {
  if (size < 0) return nullptr;
  const auto bytes = static_cast<std::size_t>(size);
  void* const copy = capi_alloc(bytes);
  if (copy == nullptr || bytes == 0) return copy;
  if (item == nullptr) return std::memset(copy, 0, bytes);
  copy_bytes(static_cast<char*>(copy), static_cast<const char*>(item), bytes);
  return copy;
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

// Takes a step until it fails, at most once for each number: one step of code behind the other. The processor
// foretells the end of a short walk from the jumps before it, of which there are fewer in this way: 100
// items, each put in at its place, take 6.5 us instead of 7.4. More than eight are slower again.
template <class Step, std::size_t... kNumber>
bool repeatedly(Step step, std::index_sequence<kNumber...>) {
  return ((static_cast<void>(kNumber), step()) && ...);
}

// Where a new item goes: the link in front of the first item that it stands before, or the last one.
ListNode** link_for(ListRecord& list, void* item, OLCompare compare, void* context) {
  if (compare == nullptr) return kPlain ? link_at(list, list.count) : block_of(list).end;
  ListNode** link = &list.head;
  const auto goes_behind = [&] {  // steps over one item
    ListNode* const node = *link;
    if (node == nullptr || compare(item, node->data, context) < 0) return false;
    link = &node->next;
    return true;
  };
  while (repeatedly(goes_behind, std::make_index_sequence<8>())) {
  }
  return link;
}

void clear(ListRecord& list) {
  for (ListNode* node = list.head; node != nullptr;) release(std::exchange(node, node->next));
  list.head = nullptr;
  list.count = 0;
  block_of(list).end = &list.head;
  know(list, &list.head, 0);
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
  know(list, &list.head, 0);
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
  // A filter may insert and delete. It may also destroy the list with the item that it accepts, so nothing is
  // looked at then.
  for (int position = start; position < list->count; ++position) {
    void* const data = (*link_at(*list, position))->data;
    if (filter(data, context) == 0) continue;
    *index = position;
    if (item != nullptr) *item = data;
    return OL_OK;
  }
  return OL_NOT_FOUND;
}

}  // namespace Corvane::Print
