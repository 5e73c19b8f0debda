// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The stand-in debug library of a test program, which is named by DEBUG_STANDIN and lies in a folder of its
// own. What is loaded stays loaded until the end of a process, so each variant has a program.
#ifndef CORVANE_PRINT_TESTS_DEBUG_STANDIN_H
#define CORVANE_PRINT_TESTS_DEBUG_STANDIN_H

#include <gtest/gtest.h>

#include <string>

#include "tests/debug/standins/record.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

namespace Corvane::Print::tests {

#ifdef _WIN32

// The system looks into that folder behind the program's own.
inline void let_standin_be_found() {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  const std::string text(path);
  SetDllDirectoryA((text.substr(0, text.find_last_of("\\/")) + "\\standins\\" DEBUG_STANDIN).c_str());
}

inline bool standin_is_loaded() {
  return GetModuleHandleA("kvldebug.dll") != nullptr;
}

inline DebugRecord& standin_record() {
  void* const function =
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kvldebug.dll"), "debug_record"));
  return *reinterpret_cast<DebugRecordFunction*>(function)();
}

#else

// The program says where, see CMakeLists.txt.
inline void let_standin_be_found() {}

inline bool standin_is_loaded() {
  void* const module = dlopen("libkvldebug.so", RTLD_NOW | RTLD_NOLOAD);
  if (module != nullptr) dlclose(module);
  return module != nullptr;
}

inline DebugRecord& standin_record() {
  void* const module = dlopen("libkvldebug.so", RTLD_NOW | RTLD_NOLOAD);
  void* const function = dlsym(module, "debug_record");
  dlclose(module);
  return *reinterpret_cast<DebugRecordFunction*>(function)();
}

#endif

// For tests that call a debug library which can be loaded.
class WithStandin : public testing::Test {
protected:
  void SetUp() override { let_standin_be_found(); }

  // The record, once something has loaded the library, emptied but for the number of starts.
  static DebugRecord& cleared_record() {
    DebugRecord& record = standin_record();
    const int starts = record.starts;
    record = {};
    record.starts = starts;
    return record;
  }
};

}  // namespace Corvane::Print::tests

#endif
