// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the OL family.
#include "corvane/print/ol.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

void* OLCreate() {
  return print::OLCreate();
}

int OLDestroy(void* list) {
  return print::OLDestroy(list);
}

int OLClear(void* list) {
  return print::OLClear(list);
}

int OLGetNumItems(void* list, int* count) {
  return print::OLGetNumItems(list, count);
}

int OLItemInsert(void* list, void* item, int size, OLCompare compare, void* context) {
  return print::OLItemInsert(list, item, size, compare, context);
}

int OLItemDelete(void* list, int index) {
  return print::OLItemDelete(list, index);
}

int OLItemSet(void* list, int index, void* item, int size) {
  return print::OLItemSet(list, index, item, size);
}

int OLItemGetByIndex(void* list, int index, void** item) {
  return print::OLItemGetByIndex(list, index, item);
}

int OLItemGetByFilter(void* list, OLFilter filter, void* context, int* index, void** item) {
  return print::OLItemGetByFilter(list, filter, context, index, item);
}

}  // namespace Corvane::Plain
