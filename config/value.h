// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two places a configuration variable's value comes from. Both answer with a new block from the heap
// door, or with null: variable undefined or empty, memory ran out, and for the callback, an exception. The
// block always holds terminated text, whatever the source wrote.
#ifndef CORVANE_PRINT_CONFIG_VALUE_H
#define CORVANE_PRINT_CONFIG_VALUE_H

#include "corvane/print/cf.h"
#include "corvane/print/types.h"

namespace Corvane::Print::config {

// The form of platform::environment_text: counts CHARACTERS. A parameter of the lookup, so that tests can let
// a variable change at the worst moment.
using EnvironmentText = int (*)(const CPWChar* name, CPWChar* buffer, int capacity);

//   name      zero-terminated, not null
CPWChar* value_from_environment(EnvironmentText lookup, const CPWChar* name);

// As above; `callback` is not null and counts BYTES.
CPWChar* value_from_callback(CFGetEnvVarCallback callback, const CPWChar* name);

// Whether lookups go to the host's callback at this moment; in cf.cpp.
bool host_is_asked() noexcept;

}  // namespace Corvane::Print::config

#endif
