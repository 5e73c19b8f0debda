// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Copies with an end. Every loop here is bounded by the room of a buffer, whatever the texts say. No state.
#include "filespec/bounded.h"

#include <algorithm>

namespace Corvane::Print::filespec {

CPWChar* FUStrCopyW(CPWChar* dst, const CPWChar* src, std::size_t n) {
  if (dst == nullptr || n == 0) return dst;
  const int length = length_within(src, static_cast<int>(n - 1));
  // The two may overlap: a caller may hand the same buffer in and out.
  if (length > 0) std::char_traits<CPWChar>::move(dst, src, static_cast<std::size_t>(length));
  dst[length] = 0;
  return dst;
}

CPWChar* FUStrCatW(CPWChar* dst, const CPWChar* src, std::size_t n) {
  if (dst == nullptr || src == nullptr) return nullptr;
  const auto length = static_cast<std::size_t>(length_within(dst, static_cast<int>(n)));
  if (n - length <= 1) return dst;
  const int added = length_within(src, static_cast<int>(n - length - 1));
  CPWChar* const end = std::copy_n(src, added, dst + length);
  std::fill(end, dst + n, CPWChar{0});
  return dst;
}

void copy_view(CPWChar* dst, WideView src) {
  if (dst == nullptr) return;
  const std::size_t length = std::min(src.size(), kWide - 1);
  if (length > 0) std::char_traits<CPWChar>::move(dst, src.data(), length);
  dst[length] = 0;
}

// KEEP(append-char-empty): an empty text does not receive the character. Looks wrong; components that are
// missing get no separator by it. Pinned by AppendChar.AnEmptyTextNeverReceivesTheCharacter.
void FUAppendCharW(CPWChar* s, CPWChar c) {
  const int length = length_within(s, FU_WIDE);
  if (length == 0 || length >= kLongest || s[length - 1] == c) return;
  s[length] = c;
  s[length + 1] = 0;
}

int FUIsDriveLetterW(const CPWChar* s) {
  if (length_within(s, 2) != 1 || !is_letter(s[0])) return 0;
  return CFIsVariableDefinedW(s) ? 0 : 1;
}

}  // namespace Corvane::Print::filespec
