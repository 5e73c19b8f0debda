// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The comparing exports. STRCompareCI steps through multibyte characters, while STRCompareCICount converts by
// code page and calls its wide twin; the two may differ where locale and code page do. No state.
#include "config/twin.h"
#include "corvane/print/str.h"
#include "util/compare.h"
#include "util/cursor.h"

namespace Corvane::Print {
namespace {

// Two texts that could not be compared are not known to be equal.
constexpr int kNotCompared = 1;

const char* text_or_empty(const char* text) {
  return text != nullptr ? text : "";
}

int compare_converted(const CPWChar* s1, const CPWChar* s2, int count) {
  return s1 != nullptr && s2 != nullptr ? STRCompareCICountW(s1, s2, count) : kNotCompared;
}

}  // namespace

int STRCompareCIW(const CPWChar* s1, const CPWChar* s2) {
  return util::compare_ignoring_case(util::WideCursor(s1), util::WideCursor(s2));
}

int STRCompareCI(const char* s1, const char* s2) {
  return util::with_narrow_cursors(s1, s2, [](auto a, auto b) { return util::compare_ignoring_case(a, b); });
}

int STRCompareCICountW(const CPWChar* s1, const CPWChar* s2, int count) {
  return util::compare_ignoring_case(util::WideCursor(s1), util::WideCursor(s2), count);
}

int STRCompareCICount(const char* s1, const char* s2, int count) {
  namespace twin = config::twin;
  return compare_converted(twin::sized_in(text_or_empty(s1)), twin::sized_in(text_or_empty(s2)), count);
}

}  // namespace Corvane::Print
