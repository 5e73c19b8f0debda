// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The wide editing exports, and the two copies on the heap. Every function reads a text before it writes over
// it, so `out` may be the text itself. A null text is an empty text, a null `out` stays null. No state.
#include <algorithm>
#include <cstring>

#include "config/codepage.h"
#include "corvane/print/str.h"
#include "platform/capi_memory.h"
#include "util/case_fold.h"

namespace Corvane::Print {
namespace {

constexpr CPWChar kEmpty[1] = {0};

const CPWChar* text_or_empty(const CPWChar* text) {
  return text != nullptr ? text : kEmpty;
}

int length_of(const CPWChar* text) {
  return static_cast<int>(config::wide_length(text));
}

// Writes change(c) for every character c.
template <class Change>
CPWChar* copy_changed(const CPWChar* str, CPWChar* out, Change change) {
  if (out == nullptr) return nullptr;
  const CPWChar* from = text_or_empty(str);
  CPWChar* to = out;
  for (; *from != 0; ++from, ++to) *to = static_cast<CPWChar>(change(*from));
  *to = 0;
  return out;
}

CPWChar* copy_text(const CPWChar* str, CPWChar* out) {
  return copy_changed(str, out, [](CPWChar c) { return c; });
}

bool is_one_unit(int ch) {
  return ch >= 0 && ch <= 0xFFFF;
}

}  // namespace

CPWChar* STRDeleteCharW(const CPWChar* str, int ch, CPWChar* out) {
  if (out == nullptr) return nullptr;
  CPWChar* to = out;
  for (const CPWChar* from = text_or_empty(str); *from != 0; ++from) {
    if (*from != ch) *to++ = *from;
  }
  *to = 0;
  return out;
}

CPWChar* STRDeleteCharLeadW(const CPWChar* str, int ch, CPWChar* out) {
  const CPWChar* first = text_or_empty(str);
  while (*first != 0 && *first == ch) ++first;
  return first == out ? out : copy_text(first, out);
}

CPWChar* STRDeleteCharTrailW(const CPWChar* str, int ch, CPWChar* out) {
  if (out == nullptr) return nullptr;
  if (out != str) copy_text(str, out);
  for (int i = length_of(out) - 1; i >= 0 && out[i] == ch; --i) out[i] = 0;
  return out;
}

// KEEP(str-extract-whole-length): the count is bounded by the whole text's length, not by what remains behind
// `start`, so zeros are written behind a shorter result. Looks wrong; the zeros are part of what callers
// receive. Pinned by StrExtract.TheCountIsBoundedByTheWholeLength.
CPWChar* STRExtractSubstrW(const CPWChar* str, int start, int count, CPWChar* out) {
  if (out == nullptr) return nullptr;
  const CPWChar* const text = text_or_empty(str);
  const int length = length_of(text);
  const int room = std::max(0, std::min(length, count));
  const int taken = start >= 0 && start < length ? std::min(length - start, room) : 0;
  for (int i = 0; i < taken; ++i) out[i] = text[start + i];
  std::fill(out + taken, out + room + 1, CPWChar{0});
  return out;
}

CPWChar* STRInsertSubstrW(const CPWChar* str, int pos, const CPWChar* sub, CPWChar* out) {
  if (out == nullptr) return nullptr;
  const CPWChar* const text = text_or_empty(str);
  const CPWChar* const inserted = text_or_empty(sub);
  const std::size_t length = config::wide_length(text);
  const std::size_t inserted_length = config::wide_length(inserted);
  const std::size_t at = pos > 0 ? std::min(static_cast<std::size_t>(pos), length) : 0;
  if (out != text) std::copy_n(text, at, out);
  // The tail, with its terminator, may overlap its new place.
  std::memmove(out + at + inserted_length, text + at, (length - at + 1) * sizeof(CPWChar));
  std::memmove(out + at, inserted, inserted_length * sizeof(CPWChar));
  return out;
}

CPWChar* STRLowerW(const CPWChar* str, CPWChar* out) {
  return copy_changed(str, out, [](CPWChar c) { return util::lower(c); });
}

CPWChar* STRUpperW(const CPWChar* str, CPWChar* out) {
  return copy_changed(str, out, [](CPWChar c) { return util::upper(c); });
}

CPWChar* STRReplaceCharW(const CPWChar* str, int from, int to, CPWChar* out) {
  if (!is_one_unit(to)) return copy_text(str, out);
  return copy_changed(str, out, [from, to](CPWChar c) { return c == from ? static_cast<CPWChar>(to) : c; });
}

// KEEP(str-reverse-units): single 16-bit units are swapped, so the halves of a surrogate pair change places.
// Looks wrong; a position is a unit throughout the family, and reversing twice gives the text again. Pinned
// by StrReverse.TheHalvesOfAPairChangePlaces.
CPWChar* STRReverseW(CPWChar* str) {
  if (str != nullptr) std::reverse(str, str + config::wide_length(str));
  return str;
}

CPWChar* STRDupW(const CPWChar* str) {
  if (str == nullptr) return nullptr;
  const std::size_t units = config::wide_length(str) + 1;
  auto* const copy = static_cast<CPWChar*>(platform::capi_alloc_array(units, sizeof(CPWChar)));
  if (copy != nullptr) std::copy_n(str, units, copy);
  return copy;
}

char* STRDup(const char* str) {
  if (str == nullptr) return nullptr;
  const std::size_t bytes = std::strlen(str) + 1;
  auto* const copy = static_cast<char*>(platform::capi_alloc(bytes));
  if (copy != nullptr) std::memcpy(copy, str, bytes);
  return copy;
}

}  // namespace Corvane::Print
