// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Counts heap requests, for tests that demand that there are none: those through the library's heap door, and
// those of operator new, which heap_watch.cpp replaces for the whole test program.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_HEAP_WATCH_H
#define CORVANE_PRINT_TESTS_SUPPORT_HEAP_WATCH_H

#include "platform/capi_memory.h"

namespace Corvane::Print::tests {

// How often operator new was called since the program's start, by any thread.
long operator_new_calls();

// Lets `successes` more calls of operator new succeed and all later ones fail; a negative number lets all
// succeed. For one thread. False, and nothing fails, where a checker has put its own operator new in the
// place of ours.
bool operator_new_fail_after(long successes);

// Counts from its construction on. Only one at a time.
class HeapWatch {
public:
  HeapWatch() : new_calls_(operator_new_calls()) { platform::capi_fail_after(-1); }

  // Asked once.
  long requests() { return operator_new_calls() - new_calls_ + platform::capi_fail_after(-1); }

private:
  long new_calls_;
};

}  // namespace Corvane::Print::tests

#endif
