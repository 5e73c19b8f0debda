// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The ANSI code page, which the system knows itself. No flags and no default character of our own: the
// system's best fit is what hosts are used to.
#include <windows.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {

int wide_from_narrow(const char* text, int length, CPWChar* out, int capacity) noexcept {
  return MultiByteToWideChar(CP_ACP, 0, text, length, out, capacity);
}

int narrow_from_wide(const CPWChar* text, int length, char* out, int capacity) noexcept {
  return WideCharToMultiByte(CP_ACP, 0, text, length, out, capacity, nullptr, nullptr);
}

}  // namespace Corvane::Print::platform
