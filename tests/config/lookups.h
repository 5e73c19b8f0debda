// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Lookups as texts, the values released.
#ifndef CORVANE_PRINT_TESTS_CONFIG_LOOKUPS_H
#define CORVANE_PRINT_TESTS_CONFIG_LOOKUPS_H

#include <optional>
#include <string>
#include <string_view>

#include "corvane/print/cf.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {

inline std::optional<WideText> wide_lookup(std::u32string_view name) {
  CPWChar* const value = CFGetenvW(wide(name).c_str());
  if (value == nullptr) return std::nullopt;
  const WideText text(value);
  CFReleaseValue(value);
  return text;
}

inline std::optional<std::string> narrow_lookup(std::u32string_view name) {
  char* const value = CFGetenv(narrow(name).c_str());
  if (value == nullptr) return std::nullopt;
  const std::string text(value);
  CFReleaseValue(value);
  return text;
}

}  // namespace Corvane::Print::tests

#endif
