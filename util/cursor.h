// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Ways of stepping through a zero-terminated text, for algorithms that are written once for all. A cursor
// stands on one character, or on the terminator, which it shows as 0 and never leaves. Copies are cheap and
// independent. Wide characters are 16-bit units; multibyte characters are whole code points.
#ifndef CORVANE_PRINT_UTIL_CURSOR_H
#define CORVANE_PRINT_UTIL_CURSOR_H

#include <cstddef>
#include <cstring>
#include <type_traits>

#include "corvane/print/types.h"
#include "platform/platform.h"
#include "platform/text_vector.h"
#include "util/multibyte.h"

namespace Corvane::Print::util {

// Every unit is a character.
template <class Unit>
class UnitCursor {
public:
  //   text      zero-terminated; null is an empty text
  explicit UnitCursor(const Unit* text) : at_(text != nullptr ? text : &kTerminator) {}

  char32_t current() const { return static_cast<std::make_unsigned_t<Unit>>(*at_); }
  bool at_end() const { return *at_ == 0; }
  void advance() { ++at_; }  // not at the end

  // Characters in front of the terminator, and a step over so many of them at most.
  std::size_t length() const { return platform::length_of(at_); }
  void skip(std::size_t characters) { at_ += characters; }

private:
  static constexpr Unit kTerminator = 0;
  const Unit* at_;
};

using WideCursor = UnitCursor<CPWChar>;
using AsciiCursor = UnitCursor<char>;

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

  // Whether from here on every byte is a character of its own, with its own number. Only told of texts of a
  // usual length: a host may go through a long one asking at every place, and a first difference would have
  // ended most of those questions.
  bool stands_on_ascii() const {
    if (platform::kOneByOne || character_.code != static_cast<unsigned char>(*at_)) return false;
    const std::size_t length = strnlen(at_, kLongerThanUsual);
    return length < kLongerThanUsual && platform::is_ascii(at_, length) && platform::locale_keeps_ascii();
  }
  AsciiCursor as_ascii() const { return AsciiCursor(at_); }

private:
  // KEEP(str-undecodable-ends-text): bytes that are no character of the locale count as the terminator.
  // Looks wrong; what a character is, the runtime decides, and results must not change for hosts that never
  // set a locale. Pinned by StrCompare.BytesThatAreNoCharacterEndTheText.
  void decode() { character_ = decode_character(at_); }

  static constexpr std::size_t kLongerThanUsual = 512;

  const char* at_;
  MultibyteCharacter character_{};
};

// work(a, b) with cursors over two narrow texts.
//
// What cursors over ASCII buy: matching a name of 25 characters takes 60 ns instead of 370. Why they cannot
// change a result: a locale that keeps ASCII would say the same of every byte, unless the host has left half
// a character to the runtime. So the runtime decodes the first character of each text in any case, the second
// text's first, and with it what was left.
template <class Work>
auto with_narrow_cursors(const char* a, const char* b, const Work& work) {
  const MultibyteCursor second(b);
  const MultibyteCursor first(a);
  if (first.stands_on_ascii() && second.stands_on_ascii()) return work(first.as_ascii(), second.as_ascii());
  return work(first, second);
}

}  // namespace Corvane::Print::util

#endif
