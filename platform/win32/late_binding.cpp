// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What happens when a function that is bound on its first call cannot be bound: the delay-load helper asks
// this hook for a substitute, a module or a function as the notification says. A support library of the host,
// when it is loaded already, is handed the notification, and its answer is ours. Null lets the helper raise
// its structured exception, 0xC06D007E for a module and 0xC06D007F for a function; the next call tries again.
//
// Shared state: __pfnDliFailureHook2, the helper's variable, set here once and for all.
#include <windows.h>

#include <delayimp.h>

namespace {

#if defined(__i386__)

// The support library's convention is that of the hook, which pops its arguments; some builds of it are plain
// C and do not. The stack pointer is put back either way.
[[gnu::noinline]] FARPROC ask(FARPROC recorder, unsigned notification, PDelayLoadInfo info) {
  FARPROC answer = recorder;
  asm volatile(R"(
    movl  %%esp, %%esi
    subl  $8, %%esp
    andl  $-16, %%esp
    subl  $8, %%esp
    pushl %%edx
    pushl %%ecx
    call  *%%eax
    movl  %%esi, %%esp
  )"
               : "+a"(answer), "+c"(notification), "+d"(info)
               :
               : "esi", "memory", "cc");
  return answer;
}

#else

FARPROC ask(FARPROC recorder, unsigned notification, PDelayLoadInfo info) {
  return reinterpret_cast<PfnDliHook>(reinterpret_cast<void*>(recorder))(notification, info);
}

#endif

FARPROC WINAPI late_binding_failed(unsigned notification, PDelayLoadInfo info) {
  const HMODULE support = GetModuleHandleA("vantrel.dll");
  if (support == nullptr) return nullptr;
  const FARPROC recorder = GetProcAddress(support, "vantrel32_recordDelayLoadHookFailure");
  return recorder != nullptr ? ask(recorder, notification, info) : nullptr;
}

}  // namespace

PfnDliHook __pfnDliFailureHook2 = late_binding_failed;
