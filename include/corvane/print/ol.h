/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * OL: an ordered list of byte blocks behind an opaque handle. Every item is the list's own copy of what the
 * caller handed in.
 *
 *     using namespace Corvane::Print;
 *     void* pens = OLCreate();
 *     int red = 3;
 *     OLItemInsert(pens, &red, sizeof red, nullptr, nullptr);
 *     void* item = nullptr;
 *     if (OLItemGetByIndex(pens, 0, &item) == OL_OK) use(*static_cast<int*>(item));
 *     OLDestroy(pens);
 *
 * Handles: every function looks for a signature at the head of the record and answers OL_NOT_A_LIST for null,
 * for a handle of something else and for a list that was destroyed, as long as its memory was not used anew.
 * The pointer must be readable.
 *
 * Ownership: the list owns the items. A pointer that a get function hands out leads to the list's own bytes;
 * it is valid until that item is replaced or deleted or the list is cleared or destroyed. Sizes are in bytes,
 * positions count from 0. Time: a position is reached step by step, forwards from the one reached last, or
 * from the head when it lies before that one or an item was put in between others since. Threads: no lock.
 * One list must not be used by two threads at once, not even to look at it; lists are independent of each
 * other. Failure: the codes below, in the order in which each function names them. A list stays as it was
 * whenever an answer is not OL_OK.
 */
#ifndef CORVANE_PRINT_OL_H
#define CORVANE_PRINT_OL_H

#include "corvane/print/export.h"

namespace Corvane {
namespace Print {

/** Results of the family. */
enum OLResult {
  OL_OK = 0,          /**< done */
  OL_BAD_INDEX = -2,  /**< below 0, or not below the number of items */
  OL_NOT_A_LIST = -3, /**< null, or no list, or one that was destroyed */
  OL_NO_MEMORY = -4,  /**< there is no memory for the item */
  OL_NOT_FOUND = -5,  /**< the filter accepted no item */
  OL_EMPTY = -6,      /**< the list has no items */
  OL_NO_FILTER = -7   /**< the filter is null */
};

/** Where a new item goes: below 0 when it stands before the list's item, else 0 or above.
 *   \param newItem   the list's copy of the new item
 *   \param listItem  an item of the list
 *   \param context   as it was passed */
typedef int(CORVANE_PRINT_CALL* OLCompare)(void* newItem, void* listItem, void* context);

/** Whether an item is wanted: anything but 0 when it is. */
typedef int(CORVANE_PRINT_CALL* OLFilter)(void* listItem, void* context);

/** A new, empty list, which the caller hands to OLDestroy; null when memory ran out. */
CORVANE_PRINT_API void* OLCreate();

/** Releases a list and its items, if any. OL_NOT_A_LIST. */
CORVANE_PRINT_API int OLDestroy(void* list);

/** Deletes all items. OL_NOT_A_LIST, OL_EMPTY.
 * Oddity, kept: clearing an empty list is an error, destroying one is not. */
CORVANE_PRINT_API int OLClear(void* list);

/** The number of items. OL_NOT_A_LIST. A null `count` is ignored. */
CORVANE_PRINT_API int OLGetNumItems(void* list, int* count);

/** Inserts a copy of an item. OL_NOT_A_LIST, OL_NO_MEMORY.
 *   \param list     the list
 *   \param item     `size` bytes; null stands for that many bytes of 0
 *   \param size     a negative one is more than there can be memory for
 *   \param compare  null puts the item at the end. Otherwise it goes before the first item for which
 *                   compare answers below 0, or at the end: the list stays in ascending order, and a new
 *                   item comes after its equals. It must not change the list
 *   \param context  goes to compare as it is
 *
 * Oddity, kept: when there is memory for the copy but not for its place in the list, the copy is not
 * released. */
CORVANE_PRINT_API int OLItemInsert(void* list, void* item, int size, OLCompare compare, void* context);

/** Deletes an item. OL_NOT_A_LIST, OL_EMPTY, OL_BAD_INDEX. */
CORVANE_PRINT_API int OLItemDelete(void* list, int index);

/** Replaces an item by a copy of `size` bytes; it may be the item itself or a part of it.
 * OL_NOT_A_LIST, OL_EMPTY, OL_BAD_INDEX, OL_NO_MEMORY. Item and size as for OLItemInsert. */
CORVANE_PRINT_API int OLItemSet(void* list, int index, void* item, int size);

/** The bytes of an item; a null `item` only asks whether there is one. OL_NOT_A_LIST, OL_EMPTY, OL_BAD_INDEX.
 */
CORVANE_PRINT_API int OLItemGetByIndex(void* list, int index, void** item);

/** The first item from position *index on that the filter accepts. OL_NOT_A_LIST, OL_EMPTY, OL_BAD_INDEX,
 * OL_NO_FILTER, OL_NOT_FOUND.
 *   \param list     the list
 *   \param filter   may change the list: positions are counted from the head anew for every item
 *   \param context  goes to filter as it is
 *   \param index    where to begin, and where it was found; it stays as it is otherwise. Null is no
 *                   position. Add one and call again for the next.
 *   \param item     receives its bytes; may be null
 *
 * Oddity, kept: *index is read before anything else, so it must be readable even when the handle is not one.
 */
CORVANE_PRINT_API int OLItemGetByFilter(void* list, OLFilter filter, void* context, int* index, void** item);

}  // namespace Print
}  // namespace Corvane

#endif
