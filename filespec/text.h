// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Small helpers on wide text. The C library has none for 16-bit characters outside Windows. Everywhere a null
// text is an empty text, and a text counts up to its 255th character at most: nothing here reads further.
// The buffers and the functions that write them are in bounded.h.
#ifndef CORVANE_PRINT_FILESPEC_TEXT_H
#define CORVANE_PRINT_FILESPEC_TEXT_H

#include <cwctype>
#include <string_view>
#include <type_traits>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "corvane/print/types.h"

namespace Corvane::Print::filespec {

using WideView = std::basic_string_view<CPWChar>;

inline constexpr int kLongest = FU_WIDE - 1;  // characters of a text, without its terminator

// Chooses the literal of this target's wide text; used by W_.
template <class Char>
constexpr const Char* wide_literal(const wchar_t* system_text, const char16_t* text) {
  if constexpr (std::is_same_v<Char, wchar_t>) {
    return static_cast<void>(text), system_text;
  } else {
    return static_cast<void>(system_text), text;
  }
}

// A literal: W_("VX_PWP") is a const CPWChar*. W_('x') is not provided: plain 'x' compares well.
#define W_(text) (::Corvane::Print::filespec::wide_literal<CPWChar>(L"" text, u"" text))

// Characters in front of the terminator, at most `limit`.
inline int length_within(const CPWChar* text, int limit) {
  int length = 0;
  while (text != nullptr && length < limit && text[length] != 0) ++length;
  return length;
}

// The text as every function uses it: cut behind its 255th character.
inline WideView view_of(const CPWChar* text) {
  return {text, static_cast<std::size_t>(length_within(text, kLongest))};
}

inline bool is_empty(const CPWChar* text) {
  return text == nullptr || *text == 0;
}

// Exactly the same characters.
inline bool same_text(const CPWChar* a, const CPWChar* b) {
  return view_of(a) == view_of(b);
}

// The first or last place of a character, for cutting the text there; null when there is none.
inline CPWChar* find_first(CPWChar* text, char16_t c) {
  const std::size_t at = view_of(text).find(static_cast<CPWChar>(c));
  return at == WideView::npos ? nullptr : text + at;
}
inline CPWChar* find_last(CPWChar* text, char16_t c) {
  const std::size_t at = view_of(text).rfind(static_cast<CPWChar>(c));
  return at == WideView::npos ? nullptr : text + at;
}

// As the runtime's locale has it. Halves of surrogate pairs are no letters.
inline bool is_letter(CPWChar c) {
  return (c & 0xF800) != 0xD800 && std::iswalpha(static_cast<std::wint_t>(c)) != 0;
}

// The value of a configuration variable for the life of the object; nothing when it is undefined or empty.
// Longer names than any text here are cut like all texts by their users, not here.
class VariableValue {
public:
  explicit VariableValue(const CPWChar* name) : value_(CFGetenvW(name)) {}
  ~VariableValue() { CFReleaseValue(value_); }
  VariableValue(const VariableValue&) = delete;
  VariableValue& operator=(const VariableValue&) = delete;

  explicit operator bool() const { return value_ != nullptr; }
  const CPWChar* text() const { return value_; }  // zero-terminated, any length; null when undefined

  // Nobody releases the value any more.
  void leave_allocated() { value_ = nullptr; }

private:
  CPWChar* value_;
};

}  // namespace Corvane::Print::filespec

#endif
