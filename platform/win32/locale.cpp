// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The thread's locale, which has a code page: none where nobody has set a locale, and otherwise mostly one of
// the system's ANSI code pages for alphabets, whose first half is ASCII.
#include <locale.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

constexpr unsigned kFirstAlphabet = 1250;
constexpr unsigned kLastAlphabet = 1257;

}  // namespace

bool locale_keeps_ascii() noexcept {
  const unsigned code_page = ___lc_codepage_func();
  return code_page == 0 || (code_page >= kFirstAlphabet && code_page <= kLastAlphabet);
}

}  // namespace Corvane::Print::platform
