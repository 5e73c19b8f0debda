// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Named mutexes. The name is put together by a function of the user library, which is bound by its first
// call; late_binding.cpp tells what happens when that fails. The structured exception then passes through
// these frames, so they own nothing.
//
// Without it the system's declaration imports the function, and the linker leaves out the stub of the first
// call.
#define _USER32_
#include <windows.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {

void process_lock_name(const char* text, char* out) {
  wsprintfA(out, "%s #%08x", text, static_cast<unsigned>(GetCurrentProcessId()));
}

void* create_named_lock(const char* name) noexcept {
  return CreateMutexA(nullptr, FALSE, name);
}

bool wait_for_named_lock(void* lock) noexcept {
  const DWORD outcome = WaitForSingleObject(lock, INFINITE);
  return outcome == WAIT_OBJECT_0 || outcome == WAIT_ABANDONED;
}

void release_named_lock(void* lock) noexcept {
  ReleaseMutex(lock);
  CloseHandle(lock);
}

}  // namespace Corvane::Print::platform
