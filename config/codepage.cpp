// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a character ends is known to the system's conversions only, so the cuts are made on the wide side,
// whose rule is simple: do not part a surrogate pair. No state.
#include "config/codepage.h"

#include <algorithm>
#include <cassert>
#include <climits>
#include <cstring>
#include <string>

#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "platform/text_vector.h"

namespace Corvane::Print::config {
namespace {

using platform::kToTerminator;

// No code page spends more bytes on a wide unit.
constexpr int kBytesPerUnit = 4;

bool parts_pair(const CPWChar* text, int at) {
  return at > 0 && (text[at - 1] & 0xFC00) == 0xD800 && (text[at] & 0xFC00) == 0xDC00;
}

// The most units of the text, below `length`, that take at most `bytes` bytes; a search by halves, because
// more units never take fewer bytes.
int units_that_fit(const CPWChar* text, int length, int bytes) {
  int fits = 0;
  int too_many = length;
  while (too_many - fits > 1) {
    const int middle = fits + (too_many - fits) / 2;
    (platform::narrow_from_wide(text, middle, nullptr, 0) <= bytes ? fits : too_many) = middle;
  }
  return parts_pair(text, fits) ? fits - 1 : fits;
}

}  // namespace

std::size_t wide_length(const CPWChar* text) noexcept {
  return platform::length_of(text);
}

void widen_cut(const char* text, CPWChar* out, int capacity) noexcept {
  assert(capacity >= 1 && capacity <= kWidenCutLimit);
  if (platform::wide_from_narrow(text, kToTerminator, out, capacity) != 0) return;

  // It is too long. So many bytes make at least `capacity` units; if their end is within a character, what
  // comes of the character's beginning lies behind the cut.
  constexpr int kScratch = kWidenCutLimit * kBytesPerUnit;
  CPWChar scratch[kScratch];
  const void* const terminator = std::memchr(text, 0, kScratch);
  const auto bytes = terminator != nullptr ? static_cast<const char*>(terminator) - text : kScratch;
  const int units = platform::wide_from_narrow(text, static_cast<int>(bytes), scratch, kScratch);
  int kept = std::min(units, capacity - 1);
  if (kept < units && parts_pair(scratch, kept)) --kept;
  std::copy_n(scratch, kept, out);
  out[kept] = 0;
}

void narrow_cut(const CPWChar* text, int length, char* out, int capacity) noexcept {
  assert(length >= 0 && capacity >= 1);
  // An empty source is an error to the system's conversion, and so is an empty room.
  int written = 0;
  if (length > 0 && capacity > 1) written = platform::narrow_from_wide(text, length, out, capacity - 1);
  if (written == 0 && length > 0) {
    const int kept = units_that_fit(text, length, capacity - 1);
    if (kept > 0) written = platform::narrow_from_wide(text, kept, out, capacity - 1);
  }
  out[written] = '\0';
}

CPWChar* widened_block(const char* text) noexcept {
  if (text == nullptr) return nullptr;
  const std::size_t units = std::strlen(text) + 1;
  if (units > INT_MAX) return nullptr;
  auto* const block = static_cast<CPWChar*>(platform::capi_alloc_array(units, sizeof(CPWChar)));
  if (block != nullptr) platform::wide_from_narrow(text, kToTerminator, block, static_cast<int>(units));
  return block;
}

char* narrowed_block(const CPWChar* text) noexcept {
  if (text == nullptr) return nullptr;
  const int needed = platform::narrow_from_wide(text, kToTerminator, nullptr, 0);
  if (needed == 0) return nullptr;
  const std::size_t bytes = std::max(2 * wide_length(text) + 2, static_cast<std::size_t>(needed));
  auto* const block = static_cast<char*>(platform::capi_alloc(bytes));
  if (block != nullptr) platform::narrow_from_wide(text, kToTerminator, block, needed);
  return block;
}

}  // namespace Corvane::Print::config
