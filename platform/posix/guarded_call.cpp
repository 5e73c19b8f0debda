// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Exceptions are C++ exceptions here. The end of a thread travels up the stack like one and must not be
// stopped: the runtime ends the process when a catch (...) swallows it.
#include <cxxabi.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {

// Not checked for references to null: the runtime hands the end of a thread over as one.
__attribute__((no_sanitize("undefined"))) int guarded_call(int (*body)(void* context), void* context) {
  try {
    return body(context);
  } catch (const abi::__forced_unwind&) {
    throw;
  } catch (...) {
    return 0;
  }
}

}  // namespace Corvane::Print::platform
