// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The bounded buffers of file specifications and the functions that write them: the only place that knows how
// a text is cut, copied behind another, or given a separator. The functions look at no more of a destination
// than its stated size, so that an unterminated one does no harm.
#ifndef CORVANE_PRINT_FILESPEC_BOUNDED_H
#define CORVANE_PRINT_FILESPEC_BOUNDED_H

#include <algorithm>
#include <cstddef>

#include "corvane/print/fu.h"
#include "filespec/text.h"
#include "platform/text_vector.h"

namespace Corvane::Print::filespec {

inline constexpr std::size_t kWide = FU_WIDE;  // room of every wide buffer, terminator included

// Copies a text into room for n characters and cuts it behind the (n-1)-th. The two may overlap. Returns dst,
// null for a null dst. A null src is an empty text.
CPWChar* FUStrCopyW(CPWChar* dst, const CPWChar* src, std::size_t n);

// Puts src behind the text in dst, which has room for n characters, cuts it behind the (n-1)-th, and fills
// the rest of the room with zeros. Nothing changes when dst is full. Returns dst, or null for a null dst or
// src.
CPWChar* FUStrCatW(CPWChar* dst, const CPWChar* src, std::size_t n);

// Writes a text of at most 255 characters into room for 256; a longer one is cut. A null dst is skipped. The
// two may overlap.
void copy_view(CPWChar* dst, WideView src);

// Puts c behind the text in s, which has room for 256 characters, unless it ends in c already.
// An empty text stays empty, and one of 255 characters or more is left alone.
void FUAppendCharW(CPWChar* s, CPWChar c);

// 1 when s is one letter (in the runtime's locale) and no configuration variable has that name; else 0.
int FUIsDriveLetterW(const CPWChar* s);

// A text that grows in room for 256 characters as it does under FUStrCatW and FUAppendCharW, and knows its
// length. It is no text until finish() has terminated it.
class GrowingText {
public:
  //   room      for 256 characters
  explicit GrowingText(CPWChar* room) : text_(room) {}

  void append(WideView text) {
    const std::size_t added = std::min(text.size(), kWide - 1 - length_);
    platform::copy_units(text.data(), added, text_ + length_);
    length_ += added;
  }
  void append_char(char16_t c) {
    if (length_ == 0 || length_ >= kWide - 1 || text_[length_ - 1] == c) return;
    text_[length_++] = static_cast<CPWChar>(c);
  }
  WideView finish() {
    text_[length_] = 0;
    return {text_, length_};
  }

private:
  CPWChar* text_;
  std::size_t length_ = 0;
};

// A buffer of 256 characters on the stack, for a text of at most 255. Starts empty; always terminated unless
// somebody writes index 255 through the pointer.
class WideBuffer {
public:
  WideBuffer() { text_[0] = 0; }
  explicit WideBuffer(const CPWChar* text) { set(text); }

  operator CPWChar*() { return text_; }
  operator const CPWChar*() const { return text_; }

  bool empty() const { return text_[0] == 0; }
  int length() const { return length_within(text_, kLongest); }
  WideView view() const { return view_of(text_); }

  void set(const CPWChar* text) {
    if (text == nullptr) {
      text_[0] = 0;
    } else {
      FUStrCopyW(text_, text, kWide);
    }
  }
  void set(WideView text) { copy_view(text_, text); }
  void append(const CPWChar* text) { FUStrCatW(text_, text, kWide); }
  void append_char(char16_t c) { FUAppendCharW(text_, static_cast<CPWChar>(c)); }

private:
  CPWChar text_[kWide];
};

}  // namespace Corvane::Print::filespec

#endif
