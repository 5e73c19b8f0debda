// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A walk over the elements of a list of texts: search paths, lists of directories.
#ifndef CORVANE_PRINT_FILESPEC_LIST_WALK_H
#define CORVANE_PRINT_FILESPEC_LIST_WALK_H

#include "corvane/print/types.h"
#include "filespec/bounded.h"
#include "platform/capi_memory.h"

namespace Corvane::Print::filespec {

// Owns a copy of the list, which it cuts into its elements as it goes along. `cursor_` stands on what has not
// been looked at yet, and is null at the end.
class ListWalk {
public:
  ListWalk() = default;
  ~ListWalk() { platform::capi_free(copy_); }
  ListWalk(const ListWalk&) = delete;
  ListWalk& operator=(const ListWalk&) = delete;

  // Begins a walk; once in an object's life. False when there is no memory for the copy.
  //   list        zero-terminated, of any length; null is an empty list
  //   delimiters  each character is one; null or empty means ";"
  bool start(const CPWChar* list, const CPWChar* delimiters) noexcept;

  // The same for a list of one element, whatever characters it has.
  bool start_single(const CPWChar* element) noexcept;

  // The next element, zero-terminated, of any length but not empty; it stays valid. Null at the end.
  const CPWChar* next() noexcept { return next_view().data(); }

  // The same with its length; without data at the end.
  WideView next_view() noexcept;

private:
  bool copy(const CPWChar* list) noexcept;
  bool is_delimiter(CPWChar c) const;
  CPWChar* end_of_element(CPWChar* from) const;

  CPWChar* copy_ = nullptr;
  CPWChar* cursor_ = nullptr;
  CPWChar* end_ = nullptr;  // of the copy
  WideBuffer delimiter_text_;
  WideView delimiters_;
};

}  // namespace Corvane::Print::filespec

#endif
