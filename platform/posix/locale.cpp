// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The thread's locale, which names its character set: UTF-8, and ASCII where nobody has set a locale.
#include <langinfo.h>

#include <cstring>

#include "platform/platform.h"

namespace Corvane::Print::platform {

bool locale_keeps_ascii() noexcept {
  const char* const set = nl_langinfo(CODESET);
  return std::strcmp(set, "UTF-8") == 0 || std::strcmp(set, "ANSI_X3.4-1968") == 0;
}

}  // namespace Corvane::Print::platform
