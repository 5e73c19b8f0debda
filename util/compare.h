// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Case-insensitive comparison over cursors. 0 equal, -1 the first text sorts first, 1 otherwise; the order is
// that of the lower-case 16-bit units.
#ifndef CORVANE_PRINT_UTIL_COMPARE_H
#define CORVANE_PRINT_UTIL_COMPARE_H

#include "util/case_fold.h"

namespace Corvane::Print::util {

// A rank by which whole code points sort as their 16-bit units do: what is beyond 16 bits is two units, the
// first of which lies below U+E000. For a single unit the rank changes no order.
inline char32_t unit_order(char32_t c) {
  return c >= 0xE000 && c <= 0xFFFF ? c + 0x110000 : c;
}

inline int compare_characters(char32_t a, char32_t b) {
  const char32_t lower_a = lower(a);
  const char32_t lower_b = lower(b);
  if (lower_a == lower_b) return 0;
  return unit_order(lower_a) < unit_order(lower_b) ? -1 : 1;
}

template <class Cursor>
int compare_ignoring_case(Cursor a, Cursor b) {
  while (!a.at_end() && !b.at_end() && lower(a.current()) == lower(b.current())) {
    a.advance();
    b.advance();
  }
  return compare_characters(a.current(), b.current());
}

// The same over at most `count` characters; a count below 1 finds everything equal.
template <class Cursor>
int compare_ignoring_case(Cursor a, Cursor b, int count) {
  for (; count > 0; --count) {
    if (a.at_end() || b.at_end() || lower(a.current()) != lower(b.current()))
      return compare_characters(a.current(), b.current());
    a.advance();
    b.advance();
  }
  return 0;
}

}  // namespace Corvane::Print::util

#endif
