// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Libraries that the host may or may not have, by the system's own search. A library's texts are its string
// resources. They are read by a function of the user library, which is bound by its first call;
// late_binding.cpp tells what happens when that fails. The structured exception then passes through these
// frames, so they own nothing.
//
// Without it the system's declaration imports the function, and the linker leaves out the stub of the first
// call.
#define _USER32_
#include <windows.h>

#include "platform/platform.h"

namespace Corvane::Print::platform {

void* load_library(const char* name) {
  char file[kLibraryNameCapacity + 4];
  lstrcpynA(file, name, kLibraryNameCapacity);
  lstrcatA(file, ".dll");
  return LoadLibraryA(file);
}

LibraryFunction library_function(void* library, const char* name) {
  return reinterpret_cast<LibraryFunction>(
      reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name)));
}

int library_text(void* library, unsigned resource, const char*, char* out, int capacity) {
  return LoadStringA(static_cast<HMODULE>(library), resource, out, capacity);
}

}  // namespace Corvane::Print::platform
