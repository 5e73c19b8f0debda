// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Libraries that the host may or may not have, by the loader's usual search. There are no string resources
// here: a library's text is an array of characters that it exports.
#include <dlfcn.h>

#include <cstdio>
#include <cstring>

#include "platform/platform.h"

namespace Corvane::Print::platform {

// Everything that the library needs is bound at once: one that lacks something counts as missing, instead of
// ending the process at some later call.
void* load_library(const char* name) {
  char file[kLibraryNameCapacity + 6];
  std::snprintf(file, sizeof file, "lib%.*s.so", kLibraryNameCapacity - 1, name);
  return dlopen(file, RTLD_NOW | RTLD_LOCAL);
}

LibraryFunction library_function(void* library, const char* name) {
  return reinterpret_cast<LibraryFunction>(dlsym(library, name));
}

int library_text(void* library, unsigned, const char* symbol, char* out, int capacity) {
  const void* const text = dlsym(library, symbol);
  if (text == nullptr) return 0;
  const std::size_t room = static_cast<std::size_t>(capacity) - 1;
  const std::size_t length = strnlen(static_cast<const char*>(text), room);
  std::memcpy(out, text, length);
  out[length] = '\0';
  return static_cast<int>(length);
}

}  // namespace Corvane::Print::platform
