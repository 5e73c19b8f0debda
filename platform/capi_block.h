// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A block from the heap door that goes back when it leaves its scope.
#ifndef CORVANE_PRINT_PLATFORM_CAPI_BLOCK_H
#define CORVANE_PRINT_PLATFORM_CAPI_BLOCK_H

#include <memory>

#include "platform/capi_memory.h"

namespace Corvane::Print::platform {

struct CapiFree {
  void operator()(void* block) const noexcept { capi_free(block); }
};

// Of objects without a destructor; null when memory ran out.
template <class T>
using CapiBlock = std::unique_ptr<T, CapiFree>;

}  // namespace Corvane::Print::platform

#endif
