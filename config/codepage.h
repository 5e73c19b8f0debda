// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Conversions between narrow and wide text that always leave terminated text, on top of the system's own
// conversions, which leave nothing usable when the room is short. A text that does not fit is cut behind its
// last whole character that does.
//
// Blocks come from the heap door and are the caller's, who hands them to capi_free.
#ifndef CORVANE_PRINT_CONFIG_CODEPAGE_H
#define CORVANE_PRINT_CONFIG_CODEPAGE_H

#include <cstddef>

#include "corvane/print/types.h"

namespace Corvane::Print::config {

// The largest capacity of widen_cut, which works without the heap.
inline constexpr int kWidenCutLimit = 256;

// Characters (16-bit units) in front of the terminator.
std::size_t wide_length(const CPWChar* text) noexcept;

// The narrow text as wide text of at most capacity - 1 units and a terminator.
//   text      zero-terminated, not null
//   out       room for `capacity` units, 1 to kWidenCutLimit
void widen_cut(const char* text, CPWChar* out, int capacity) noexcept;

// `length` units of wide text (0 or more) as narrow text of at most capacity - 1 bytes and a terminator.
//   out       room for `capacity` bytes, at least 1
void narrow_cut(const CPWChar* text, int length, char* out, int capacity) noexcept;

// The whole text in a block of 2(L+1) bytes for L input bytes; no code page makes more of it. Null for null
// and when memory runs out.
CPWChar* widened_block(const char* text) noexcept;

// The whole text in a block of 2W+2 bytes for W characters, or of more where the code page needs it (UTF-8
// takes three bytes for most characters). Null for null and when memory runs out.
char* narrowed_block(const CPWChar* text) noexcept;

}  // namespace Corvane::Print::config

#endif
