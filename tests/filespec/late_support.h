// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// For the programs that test late binding from where a host stands: stand-in libraries, structured
// exceptions, and the heap. On Windows only. What has been bound stays bound until the end of a process, so
// each state of the network provider library has a program of its own, and the tests in it depend on their
// order.
#ifndef CORVANE_PRINT_TESTS_FILESPEC_LATE_SUPPORT_H
#define CORVANE_PRINT_TESTS_FILESPEC_LATE_SUPPORT_H

#include <gtest/gtest.h>
#include <malloc.h>
#include <windows.h>

#include <string>

#include "corvane/print/fu.h"
#include "platform/platform.h"
#include "tests/filespec/standins/recorder.h"

namespace Corvane::Print::tests {

// The folder of a stand-in, below the folder of the program.
inline std::string standin_folder(const char* name) {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  std::string text(path);
  return text.substr(0, text.find_last_of("\\/")) + "\\standins\\" + name;
}

// Where the system looks for libraries that are not loaded yet, behind the program's own folder.
inline void look_for_libraries_in(const char* name) {
  SetDllDirectoryA(standin_folder(name).c_str());
}

template <class Function>
Function* function_of(HMODULE module, const char* name) {
  return reinterpret_cast<Function*>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

// A support library, vantrel.dll, that is loaded for the life of the object.
class LoadedSupport {
public:
  explicit LoadedSupport(const char* standin)
      : module_(LoadLibraryA((standin_folder(standin) + "\\vantrel.dll").c_str())) {
    EXPECT_NE(module_, nullptr);
  }
  ~LoadedSupport() { FreeLibrary(module_); }
  LoadedSupport(const LoadedSupport&) = delete;
  LoadedSupport& operator=(const LoadedSupport&) = delete;

  Record& record() const { return *function_of<Record*()>(module_, "standin_record")(); }

private:
  HMODULE module_;
};

inline DWORD g_code = 0;  // of the last structured exception, 0 when there was none

inline LONG CALLBACK note_code(EXCEPTION_POINTERS* pointers) {
  g_code = pointers->ExceptionRecord->ExceptionCode;
  return EXCEPTION_CONTINUE_SEARCH;
}

struct Outcome {
  bool returned = false;
  int status = -1;  // when it returned
  DWORD code = 0;   // of the exception that left it
};

// Calls as a host does that handles structured exceptions.
inline Outcome outcome_of(int (*call)()) {
  g_code = 0;
  struct Context {
    int (*call)();
    Outcome outcome;
  } context{call, {}};
  void* const handler = AddVectoredExceptionHandler(1, note_code);
  platform::guarded_call(
      [](void* address) {
        Context& inner = *static_cast<Context*>(address);
        inner.outcome.status = inner.call();
        inner.outcome.returned = true;
        return 1;
      },
      &context);
  RemoveVectoredExceptionHandler(handler);
  context.outcome.code = g_code;
  return context.outcome;
}

inline CPWChar g_wide[FU_WIDE];
inline char g_narrow[FU_NARROW];

// A drive that the stand-ins have mapped.
inline int ask_wide() {
  return FUGetUniversalNameW(L"H:\\plots\\a.plt", g_wide);
}
inline int ask_narrow() {
  return FUGetUniversalName("H:\\plots\\a.plt", g_narrow);
}

// Blocks of the heap that the library shares with this program.
inline long blocks_in_use() {
  long count = 0;
  _HEAPINFO entry = {};
  while (_heapwalk(&entry) == _HEAPOK) count += entry._useflag == _USEDENTRY;
  return count;
}

}  // namespace Corvane::Print::tests

#endif
