// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the failure plan, written by tests only. It is atomic because lookups may run on several
// threads; the counting costs one relaxed addition a request.
#include "platform/capi_memory.h"

#include <atomic>
#include <cstdlib>

namespace Corvane::Print::platform {
namespace {

std::atomic<long> g_requests{0};
std::atomic<long> g_successes_left{-1};

bool request_may_succeed() noexcept {
  g_requests.fetch_add(1, std::memory_order_relaxed);
  if (g_successes_left.load(std::memory_order_relaxed) < 0) return true;
  if (g_successes_left.load(std::memory_order_relaxed) == 0) return false;
  g_successes_left.fetch_sub(1, std::memory_order_relaxed);
  return true;
}

}  // namespace

void* capi_alloc(std::size_t bytes) noexcept {
  return request_may_succeed() ? std::malloc(bytes != 0 ? bytes : 1) : nullptr;
}

void* capi_realloc(void* block, std::size_t bytes) noexcept {
  return request_may_succeed() ? std::realloc(block, bytes != 0 ? bytes : 1) : nullptr;
}

void capi_free(void* block) noexcept { std::free(block); }

void* capi_alloc_array(std::size_t count, std::size_t size) noexcept {
  if (size != 0 && count > std::numeric_limits<std::size_t>::max() / size) return nullptr;
  return capi_alloc(count * size);
}

long capi_fail_after(long successes) noexcept {
  g_successes_left.store(successes, std::memory_order_relaxed);
  return g_requests.exchange(0, std::memory_order_relaxed);
}

}  // namespace Corvane::Print::platform
