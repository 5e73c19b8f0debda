// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The matching exports: which cursor, which comparison. The narrow ones step through multibyte characters and
// convert nothing. No state.
#include "corvane/print/str.h"
#include "util/cursor.h"
#include "util/match.h"

namespace Corvane::Print {

using util::WideCursor;

int STRMatchPatternW(const CPWChar* string, const CPWChar* pattern) {
  return util::matches(WideCursor(string), WideCursor(pattern), util::SameCharacter()) ? 1 : 0;
}

int STRMatchPattern(const char* string, const char* pattern) {
  return util::with_narrow_cursors(string, pattern, [](auto text, auto items) {
    return util::matches(text, items, util::SameCharacter()) ? 1 : 0;
  });
}

int STRMatchPatternCIW(const CPWChar* string, const CPWChar* pattern) {
  return util::matches_ignoring_case(WideCursor(string), WideCursor(pattern)) ? 1 : 0;
}

int STRMatchPatternCI(const char* string, const char* pattern) {
  return util::with_narrow_cursors(string, pattern, [](auto text, auto items) {
    return util::matches_ignoring_case(text, items) ? 1 : 0;
  });
}

}  // namespace Corvane::Print
