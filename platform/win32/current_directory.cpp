// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The current directory, which the system spells as a host specification already.
#include <windows.h>

#include <cassert>

#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

constexpr DWORD kLongestPath = 4096;

}  // namespace

int host_directory(const CPWChar* directory, CPWChar* out, int capacity) noexcept {
  assert(capacity >= 1);
  int length = 0;
  for (; length < capacity - 1 && directory[length] != 0; ++length) out[length] = directory[length];
  out[length] = 0;
  return length;
}

int current_directory(CPWChar* out, int capacity) noexcept {
  wchar_t path[kLongestPath];
  const DWORD length = GetCurrentDirectoryW(kLongestPath, path);
  if (length == 0 || length >= kLongestPath) path[0] = 0;
  return host_directory(path, out, capacity);
}

}  // namespace Corvane::Print::platform
