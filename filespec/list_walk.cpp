// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Cutting a copy of a list into elements. No shared state.
#include "filespec/list_walk.h"

#include <cstring>

#include "config/codepage.h"
#include "platform/text_vector.h"

namespace Corvane::Print::filespec {

bool ListWalk::start(const CPWChar* list, const CPWChar* delimiters) noexcept {
  delimiter_text_.set(is_empty(delimiters) ? W_(";") : delimiters);
  delimiters_ = delimiter_text_.view();
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
  end_ = copy_ + length;
  *end_ = 0;
  cursor_ = copy_;
  return true;
}

WideView ListWalk::next_view() noexcept {
  if (cursor_ == nullptr) return {};
  while (is_delimiter(*cursor_)) ++cursor_;
  CPWChar* const element = cursor_;
  CPWChar* const element_end = end_of_element(element);
  cursor_ = element_end != end_ ? element_end + 1 : nullptr;
  *element_end = 0;
  if (element == element_end) return {};
  return {element, static_cast<std::size_t>(element_end - element)};
}

bool ListWalk::is_delimiter(CPWChar c) const {
  if (delimiters_.size() == 1) return c == delimiters_.front();
  return c != 0 && delimiters_.find(c) != WideView::npos;
}

// The first delimiter, or the end of the list.
CPWChar* ListWalk::end_of_element(CPWChar* from) const {
  const auto length = static_cast<std::size_t>(end_ - from);
  if (delimiters_.size() == 1) return from + platform::find_unit(from, length, delimiters_.front());
  const std::size_t at = WideView(from, length).find_first_of(delimiters_);
  return at == WideView::npos ? end_ : from + at;
}

}  // namespace Corvane::Print::filespec
