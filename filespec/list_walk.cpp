// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Cutting a copy of a list into elements. No shared state.
#include "filespec/list_walk.h"

#include <cstring>

#include "config/codepage.h"

namespace Corvane::Print::filespec {

bool ListWalk::start(const CPWChar* list, const CPWChar* delimiters) noexcept {
  delimiters_.set(is_empty(delimiters) ? W_(";") : delimiters);
  return copy(list);
}

bool ListWalk::start_single(const CPWChar* element) noexcept {
  return copy(element);  // no character is a delimiter
}

bool ListWalk::copy(const CPWChar* list) noexcept {
  const std::size_t length = list != nullptr ? config::wide_length(list) : 0;
  copy_ = static_cast<CPWChar*>(platform::capi_alloc_array(length + 1, sizeof(CPWChar)));
  if (copy_ == nullptr) return false;
  if (length != 0) std::memcpy(copy_, list, length * sizeof(CPWChar));
  copy_[length] = 0;
  cursor_ = copy_;
  return true;
}

const CPWChar* ListWalk::next() noexcept {
  if (cursor_ == nullptr) return nullptr;
  while (is_delimiter(*cursor_)) ++cursor_;
  CPWChar* const element = cursor_;
  while (*cursor_ != 0 && !is_delimiter(*cursor_)) ++cursor_;
  if (*cursor_ != 0) {
    *cursor_++ = 0;
  } else {
    cursor_ = nullptr;
  }
  return *element != 0 ? element : nullptr;
}

bool ListWalk::is_delimiter(CPWChar c) const {
  return c != 0 && delimiters_.view().find(c) != WideView::npos;
}

}  // namespace Corvane::Print::filespec
