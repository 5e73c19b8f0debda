// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The system runtime's own formatting. The standard library's function of the same job gives %s another
// meaning.
#include <cstdio>
#include <cwchar>

#include "platform/platform.h"

namespace Corvane::Print::platform {

int format_wide(CPWChar* out, int capacity, const CPWChar* format, va_list arguments) {
  return _vsnwprintf(out, static_cast<std::size_t>(capacity), format, arguments);
}

}  // namespace Corvane::Print::platform
