// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Upper and lower case, as the runtime's locale has it, of single 16-bit units. Halves of surrogate pairs
// have no case and are left alone, and so is a character beyond 16 bits: the wide and the narrow functions
// agree on what is equal.
#ifndef CORVANE_PRINT_UTIL_CASE_FOLD_H
#define CORVANE_PRINT_UTIL_CASE_FOLD_H

#include <cwctype>

#include "corvane/print/types.h"

namespace Corvane::Print::util {

inline bool has_case(char32_t c) {
  return c <= 0xFFFF && (c & 0xF800) != 0xD800;
}

inline char32_t lower(char32_t c) {
  if (!has_case(c)) return c;
  const char32_t lowered = std::towlower(static_cast<std::wint_t>(c));
  return has_case(lowered) ? lowered : c;
}

inline char32_t upper(char32_t c) {
  if (!has_case(c)) return c;
  const char32_t raised = std::towupper(static_cast<std::wint_t>(c));
  return has_case(raised) ? raised : c;
}

}  // namespace Corvane::Print::util

#endif
