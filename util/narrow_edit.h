// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the narrow editing functions have in common: the text is converted into a wide block, the wide
// function edits it there in place, and the result is converted back.
#ifndef CORVANE_PRINT_UTIL_NARROW_EDIT_H
#define CORVANE_PRINT_UTIL_NARROW_EDIT_H

#include <climits>
#include <cstddef>
#include <cstring>

#include "config/codepage.h"
#include "corvane/print/types.h"
#include "platform/capi_memory.h"
#include "platform/platform.h"

namespace Corvane::Print::util {

// A character that a narrow function is given as an int.
struct NarrowCharacter {
  int code;   // the character, or kNoCharacter
  int bytes;  // of its narrow form
};

// Where the int holds no character of the locale. It is not one 16-bit unit, so the wide functions find it
// nowhere and replace nothing by it.
inline constexpr int kNoCharacter = -1;

NarrowCharacter narrow_character(int ch);

// A narrow text as a wide one that may grow by `growth` units.
class WideBlock {
public:
  //   text      zero-terminated, not null
  WideBlock(const char* text, std::size_t growth) : bytes_(std::strlen(text)) {
    if (bytes_ >= INT_MAX || growth >= INT_MAX - bytes_) return;
    units_ = static_cast<CPWChar*>(platform::capi_alloc_array(bytes_ + growth + 1, sizeof(CPWChar)));
    if (units_ == nullptr) return;
    units_[0] = 0;
    platform::wide_from_narrow(text, platform::kToTerminator, units_, static_cast<int>(bytes_ + 1));
  }
  ~WideBlock() { platform::capi_free(units_); }
  WideBlock(const WideBlock&) = delete;
  WideBlock& operator=(const WideBlock&) = delete;

  CPWChar* units() { return units_; }  // null when memory ran out
  std::size_t narrow_bytes() const { return bytes_; }

private:
  std::size_t bytes_;
  CPWChar* units_ = nullptr;
};

// Runs edit(units) on the converted text and converts the result back into at most strlen(str) + growth + 1
// bytes of `out`. When memory runs out, or edit returns false because of that, `out` becomes an empty text if
// it is another buffer than `str`, and stays as it is otherwise. Returns `out`.
//
// KEEP(str-narrow-room): the result is cut behind its last whole character that fits into the input's bytes.
// Looks wrong where a changed character takes more bytes; no size is passed, and callers give
// `out` the room of the text. Pinned by
// StrNarrow.ResultsAreCutToTheRoomOfTheInput.
template <class Edit>
char* edit_wide(const char* str, char* out, std::size_t growth, Edit edit) {
  if (out == nullptr) return nullptr;
  WideBlock block(str != nullptr ? str : "", growth);
  if (block.units() == nullptr || !edit(block.units())) {
    if (out != str) *out = '\0';
    return out;
  }
  const int length = static_cast<int>(config::wide_length(block.units()));
  config::narrow_cut(block.units(), length, out, static_cast<int>(block.narrow_bytes() + growth + 1));
  return out;
}

// The same for functions that cannot fail and do not let the text grow.
template <class Edit>
char* edit_wide(const char* str, char* out, Edit edit) {
  return edit_wide(str, out, 0, [&edit](CPWChar* text) { return edit(text) != nullptr; });
}

}  // namespace Corvane::Print::util

#endif
