// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Operator new and delete of the test program, over malloc and free. The forms for arrays and without
// exceptions come through these.
#include "tests/support/heap_watch.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> g_calls = 0;

}  // namespace

namespace Corvane::Print::tests {

long operator_new_calls() {
  return g_calls;
}

}  // namespace Corvane::Print::tests

void* operator new(std::size_t bytes) {
  ++g_calls;
  if (void* const block = std::malloc(bytes != 0 ? bytes : 1)) return block;
  throw std::bad_alloc();
}

void operator delete(void* block) noexcept {
  std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
