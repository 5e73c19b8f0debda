// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The current directory. This system's own paths are those of drive Z:.
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <iterator>

#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

// The longest path that the system accepts.
constexpr int kLongestPath = 4096;

}  // namespace

int host_directory(const CPWChar* directory, CPWChar* out, int capacity) noexcept {
  assert(capacity >= 1);
  static constexpr CPWChar kRootDrive[] = {'Z', ':'};
  const int room = capacity - 1;
  int length = 0;
  if (directory[0] == '/') {
    length = std::min(room, static_cast<int>(std::size(kRootDrive)));
    std::copy_n(kRootDrive, length, out);
  }
  while (length < room && *directory != 0) out[length++] = *directory++;
  out[length] = 0;
  return length;
}

int current_directory(CPWChar* out, int capacity) noexcept {
  assert(capacity >= 1);
  out[0] = 0;
  char path[kLongestPath];
  // A directory that lies outside of the process's root is told by a text that is no path.
  if (getcwd(path, sizeof path) == nullptr || path[0] != '/') return 0;
  CPWChar wide[kLongestPath];
  if (wide_from_narrow(path, kToTerminator, wide, kLongestPath) == 0) return 0;
  return host_directory(wide, out, capacity);
}

}  // namespace Corvane::Print::platform
