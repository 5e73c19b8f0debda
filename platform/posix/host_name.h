// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Host specifications as names of this system: separators turned, drives replaced by directories, UTF-8.
#ifndef CORVANE_PRINT_PLATFORM_POSIX_HOST_NAME_H
#define CORVANE_PRINT_PLATFORM_POSIX_HOST_NAME_H

#include <limits.h>

#include "corvane/print/types.h"

namespace Corvane::Print::platform {

// A name that the system accepts fits in here; a longer one names nothing.
inline constexpr int kHostNameCapacity = PATH_MAX;

//   spec      zero-terminated, not null
//   length    its characters, or kToTerminator
//   out       room for kHostNameCapacity bytes
// False, and nothing usable in `out`, when the drive names nothing or the name is too long.
bool host_name(const CPWChar* spec, int length, char* out) noexcept;

// The same for two zero-terminated pieces of a specification, where they need no more than to be copied.
// False also where they do: then the specification as a whole says what its name is.
//   rest_length  at least 1
bool host_name_in_folder(const CPWChar* folder, int folder_length, const CPWChar* rest, int rest_length,
                         char* out) noexcept;

}  // namespace Corvane::Print::platform

#endif
