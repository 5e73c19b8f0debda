// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the foreign host needs of the system. There are no headers of it for this compiler; the names are
// bound by system-32.def and system-64.def.
#ifndef CORVANE_PRINT_TESTS_ABI_FOREIGN_SYSTEM_H
#define CORVANE_PRINT_TESTS_ABI_FOREIGN_SYSTEM_H

extern "C" {
__declspec(dllimport) void* __stdcall GetStdHandle(unsigned long which);
__declspec(dllimport) int __stdcall WriteFile(void* file, const void* text, unsigned long length,
                                              unsigned long* written, void* overlapped);
__declspec(dllimport) int __stdcall SetEnvironmentVariableA(const char* name, const char* value);
__declspec(dllimport) void __stdcall RaiseException(unsigned long code, unsigned long flags,
                                                    unsigned long count, const void* arguments);
__declspec(dllimport) __declspec(noreturn) void __stdcall ExitProcess(unsigned status);
}

#endif
