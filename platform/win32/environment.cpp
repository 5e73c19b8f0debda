// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The process environment, in the system's own wide text.
#include <windows.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {

int environment_text(const CPWChar* name, CPWChar* buffer, int capacity) noexcept {
  // The system counts the terminator only when the room was too small.
  const DWORD room = static_cast<DWORD>(capacity);
  const DWORD count = GetEnvironmentVariableW(name, buffer, room);
  if (count == 0) return 0;
  return static_cast<int>(count < room ? count + 1 : count);
}

}  // namespace Corvane::Print::platform
