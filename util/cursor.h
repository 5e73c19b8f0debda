// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Two ways of stepping through a zero-terminated text, for algorithms that are written once for both. A
// cursor stands on one character, or on the terminator, which it shows as 0 and never leaves. Copies are
// cheap and independent. Wide characters are 16-bit units; multibyte characters are whole code points.
#ifndef CORVANE_PRINT_UTIL_CURSOR_H
#define CORVANE_PRINT_UTIL_CURSOR_H

#include "corvane/print/types.h"
#include "util/multibyte.h"

namespace Corvane::Print::util {

class WideCursor {
public:
  //   text      zero-terminated; null is an empty text
  explicit WideCursor(const CPWChar* text) : at_(text != nullptr ? text : &kTerminator) {}

  char32_t current() const { return *at_; }
  bool at_end() const { return *at_ == 0; }
  void advance() { ++at_; }  // not at the end

private:
  static constexpr CPWChar kTerminator = 0;
  const CPWChar* at_;
};

// Characters of the runtime's current locale.
class MultibyteCursor {
public:
  //   text      zero-terminated; null is an empty text
  explicit MultibyteCursor(const char* text) : at_(text != nullptr ? text : "") { decode(); }

  char32_t current() const { return character_.code; }
  bool at_end() const { return character_.code == 0; }
  void advance() {  // not at the end
    at_ += character_.bytes;
    decode();
  }

private:
  // KEEP(str-undecodable-ends-text): bytes that are no character of the locale count as the terminator.
  // Looks wrong; what a character is, the runtime decides, and results must not change for hosts that never
  // set a locale. Pinned by StrCompare.BytesThatAreNoCharacterEndTheText.
  void decode() { character_ = decode_character(at_); }

  const char* at_;
  MultibyteCharacter character_{};
};

}  // namespace Corvane::Print::util

#endif
