// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The walk over path lists that hosts see, and the question whether a list contains a component. The walk
// itself is in list_walk.h. No shared state: a caller's iterator is all there is.
#include <memory>
#include <new>

#include "config/twin.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"
#include "filespec/bounded.h"
#include "filespec/list_walk.h"
#include "platform/capi_memory.h"

struct FUPathIterator {
  Corvane::Print::filespec::ListWalk walk;
};

namespace {

using namespace Corvane::Print;
using namespace Corvane::Print::filespec;
namespace twin = config::twin;

// The end of a walk, or of the attempt to begin one.
int no_element(int status, FUPathIterator** iterator, CPWChar* out) {
  FUPathFree(*iterator);
  *iterator = nullptr;
  FUStrCopyW(out, nullptr, kWide);
  return status;
}

FUPathIterator* new_iterator() {
  void* const block = platform::capi_alloc(sizeof(FUPathIterator));
  return block != nullptr ? new (block) FUPathIterator : nullptr;
}

// Whether the element, without blanks around it, matches as a pattern.
bool element_matches(CPWChar* element, const CPWChar* comp) {
  STRDeleteCharLeadW(element, ' ', element);
  STRDeleteCharTrailW(element, ' ', element);
  return STRMatchPatternCIW(comp, element) == 1;
}

// A list that was given and could not be converted.
bool lost(const char* narrow, const CPWChar* wide) {
  return narrow != nullptr && wide == nullptr;
}

}  // namespace

int CORVANE_PRINT_CALL FUPathGetFirstW(const CPWChar* path, const CPWChar* delimiters, CPWChar* out,
                                       FUPathIterator** iterator) {
  *iterator = nullptr;
  if (is_empty(path)) return no_element(FU_FAILED, iterator, out);
  *iterator = new_iterator();
  if (*iterator == nullptr || !(*iterator)->walk.start(path, delimiters))
    return no_element(FU_NO_MEMORY, iterator, out);
  return FUPathGetNextW(iterator, out);
}

int CORVANE_PRINT_CALL FUPathGetFirst(const char* path, const char* delimiters, char* out,
                                      FUPathIterator** iterator) {
  const twin::SizedIn wide_path(path);
  *iterator = nullptr;
  if (lost(path, wide_path)) return no_element(FU_NO_MEMORY, iterator, twin::out(out));
  return FUPathGetFirstW(wide_path, twin::in_or_null(delimiters), twin::out(out), iterator);
}

int CORVANE_PRINT_CALL FUPathGetNextW(FUPathIterator** iterator, CPWChar* out) {
  const CPWChar* const element = *iterator != nullptr ? (*iterator)->walk.next() : nullptr;
  if (element == nullptr) return no_element(FU_FAILED, iterator, out);
  FUStrCopyW(out, element, kWide);
  return FU_OK;
}

int CORVANE_PRINT_CALL FUPathGetNext(FUPathIterator** iterator, char* out) {
  return FUPathGetNextW(iterator, twin::out(out));
}

void CORVANE_PRINT_CALL FUPathFree(FUPathIterator* iterator) {
  if (iterator == nullptr) return;
  std::destroy_at(iterator);
  platform::capi_free(iterator);
}

int CORVANE_PRINT_CALL FUPathContainsCompW(const CPWChar* path, const CPWChar* delimiters,
                                           const CPWChar* comp) {
  const WideBuffer wanted(comp);
  WideBuffer element;
  FUPathIterator* iterator;
  int status = FUPathGetFirstW(path, delimiters, element, &iterator);
  while (status == FU_OK && !element_matches(element, wanted)) status = FUPathGetNextW(&iterator, element);
  FUPathFree(iterator);
  return status == FU_OK ? 1 : 0;
}

int CORVANE_PRINT_CALL FUPathContainsComp(const char* path, const char* delimiters, const char* comp) {
  return FUPathContainsCompW(twin::sized_in(path), twin::in_or_null(delimiters), twin::in(comp));
}
