// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the failure plan and the watch, written by tests only, and the counts of requests and of
// blocks. They are atomic because lookups may run on several threads.
#include "platform/capi_memory.h"

#include <atomic>
#include <cstdlib>

namespace Corvane::Print::platform {
namespace {

std::atomic<long> g_requests{0};
std::atomic<long> g_successes_left{-1};
std::atomic<bool> g_fail_only_once{false};
std::atomic<long> g_blocks_out{0};
std::atomic<void (*)(void*)> g_watch_free{nullptr};

// A load and a store, not one step: an addition that locks the bus costs as much as a small block does.
// Threads that count at once may lose some; tests look at the counts when there is one thread.
void add(std::atomic<long>& count, long change) noexcept {
  count.store(count.load(std::memory_order_relaxed) + change, std::memory_order_relaxed);
}

bool request_may_succeed() noexcept {
  add(g_requests, 1);
  if (g_successes_left.load(std::memory_order_relaxed) < 0) return true;
  if (g_successes_left.load(std::memory_order_relaxed) == 0) {
    if (g_fail_only_once.load(std::memory_order_relaxed))
      g_successes_left.store(-1, std::memory_order_relaxed);
    return false;
  }
  g_successes_left.fetch_sub(1, std::memory_order_relaxed);
  return true;
}

void* counted(void* new_block) noexcept {
  if (new_block != nullptr) add(g_blocks_out, 1);
  return new_block;
}

}  // namespace

void* capi_alloc(std::size_t bytes) noexcept {
  return request_may_succeed() ? counted(std::malloc(bytes != 0 ? bytes : 1)) : nullptr;
}

void* capi_realloc(void* block, std::size_t bytes) noexcept {
  if (block == nullptr) return capi_alloc(bytes);
  return request_may_succeed() ? std::realloc(block, bytes != 0 ? bytes : 1) : nullptr;
}

void capi_free(void* block) noexcept {
  if (block == nullptr) return;
  add(g_blocks_out, -1);
  if (void (*const watch)(void*) = g_watch_free.load(std::memory_order_relaxed)) watch(block);
  std::free(block);
}

void* capi_alloc_array(std::size_t count, std::size_t size) noexcept {
  if (size != 0 && count > std::numeric_limits<std::size_t>::max() / size) return nullptr;
  return capi_alloc(count * size);
}

long capi_fail_after(long successes) noexcept {
  g_fail_only_once.store(false, std::memory_order_relaxed);
  g_successes_left.store(successes, std::memory_order_relaxed);
  return g_requests.exchange(0, std::memory_order_relaxed);
}

long capi_fail_once_after(long successes) noexcept {
  const long requests = capi_fail_after(successes);
  g_fail_only_once.store(true, std::memory_order_relaxed);
  return requests;
}

long capi_blocks_out() noexcept {
  return g_blocks_out.load(std::memory_order_relaxed);
}

void capi_watch_free(void (*watch)(void* block)) noexcept {
  g_watch_free.store(watch, std::memory_order_relaxed);
}

}  // namespace Corvane::Print::platform
