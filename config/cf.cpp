// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The CF exports: which source a lookup asks, and the narrow twins. The lookups themselves are in value.cpp.
//
// Shared state: g_config_callback, which CFSetGetEnvVarCallback alone writes and every lookup reads once,
// without a lock; hosts install it while no lookup is running.
#include "corvane/print/cf.h"

#include "config/twin.h"
#include "config/value.h"
#include "platform/capi_memory.h"
#include "platform/platform.h"

namespace Corvane::Print {
namespace {

namespace twin = config::twin;

CFGetEnvVarCallback g_config_callback = nullptr;

// KEEP(cfgetenv-wide-stays): the wide value of a successful narrow lookup is never released.
// Looks wrong; CFGetenv has always behaved so, and a host's callback may have kept the address of the buffer
// it filled. Pinned by GetenvNarrow.EachSuccessLeavesItsWideValueAllocated.
//
// A function of its own, never inlined, so that the leak suppressions of the tests can name its frame and
// cover nothing else. The name's block is released behind the call, which keeps the frame on the stack.
[[gnu::noinline]] CPWChar* cfgetenv_wide_value(const char* name) {
  return CFGetenvW(twin::sized_in(name));
}

}  // namespace

bool config::host_is_asked() noexcept {
  return g_config_callback != nullptr;
}

void CFSetGetEnvVarCallback(CFGetEnvVarCallback callback) {
  g_config_callback = callback;
}

CPWChar* CFGetenvW(const CPWChar* name) {
  if (name == nullptr) return nullptr;
  if (const CFGetEnvVarCallback callback = g_config_callback)
    return config::value_from_callback(callback, name);
  return config::value_from_environment(platform::environment_text, name);
}

char* CFGetenv(const char* name) {
  CPWChar* const wide = cfgetenv_wide_value(name);
  if (wide == nullptr) return nullptr;
  char* const value = twin::sized_out(wide);
  if (value == nullptr) CFReleaseValue(wide);  // no success: then nothing stays behind
  return value;
}

bool CFIsVariableDefinedW(const CPWChar* name) {
  CPWChar* const value = CFGetenvW(name);
  CFReleaseValue(value);
  return value != nullptr;
}

bool CFIsVariableDefined(const char* name) {
  char* const value = CFGetenv(name);
  CFReleaseValue(value);
  return value != nullptr;
}

void CFReleaseValue(void* value) {
  platform::capi_free(value);
}

}  // namespace Corvane::Print
