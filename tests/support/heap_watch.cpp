// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Operator new and delete of the test program, over malloc and free. Every form is here, although the
// standard ones would come through the plain form: a sanitizer brings its own for whatever a program leaves
// out, and blocks of the one must not be released by the other.
#include "tests/support/heap_watch.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> g_calls = 0;
std::atomic<long> g_successes = -1;  // negative: no end to them

}  // namespace

namespace Corvane::Print::tests {

long operator_new_calls() {
  return g_calls;
}

bool operator_new_fail_after(long successes) {
  g_successes = -1;
  const long before = g_calls;
  // As others call them: through their addresses, which a checker replaces, and not by copies in this place.
  void* (*volatile const request)(std::size_t) = ::operator new;
  void (*volatile const release)(void*) = ::operator delete;
  release(request(1));
  g_successes = successes;
  return g_calls != before;
}

}  // namespace Corvane::Print::tests

namespace {

void* counted(std::size_t bytes) noexcept {
  ++g_calls;
  if (g_successes == 0) return nullptr;
  if (g_successes > 0) --g_successes;
  return std::malloc(bytes != 0 ? bytes : 1);
}

void* counted_or_throw(std::size_t bytes) {
  if (void* const block = counted(bytes)) return block;
  throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t bytes) {
  return counted_or_throw(bytes);
}
void* operator new[](std::size_t bytes) {
  return counted_or_throw(bytes);
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  return counted(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
  return counted(bytes);
}

void operator delete(void* block) noexcept {
  std::free(block);
}
void operator delete[](void* block) noexcept {
  std::free(block);
}
void operator delete(void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  std::free(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  std::free(block);
}
