// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The one door to the heap for everything that crosses the C interface or must be able to report that memory
// ran out. Plain malloc, realloc and free stand behind it, because some callers release our blocks with the
// general heap. Tests install a failure plan to make the n-th request fail.
#ifndef CORVANE_PRINT_PLATFORM_CAPI_MEMORY_H
#define CORVANE_PRINT_PLATFORM_CAPI_MEMORY_H

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <utility>
#include <vector>

namespace Corvane::Print::platform {

// Set when a test looks at the heap for the first time, and what is done from then on. What follows is inline
// because a small block is taken or released in 5 ns.
extern std::atomic<bool> g_capi_observed;
void* observed_capi_alloc(std::size_t bytes) noexcept;
void observed_capi_free(void* block) noexcept;

// Null when memory ran out. `capi_realloc` leaves the old block alone when it fails.
inline void* capi_alloc(std::size_t bytes) noexcept {
  if (bytes == 0) bytes = 1;
  return g_capi_observed.load(std::memory_order_relaxed) ? observed_capi_alloc(bytes) : std::malloc(bytes);
}
void* capi_realloc(void* block, std::size_t bytes) noexcept;
inline void capi_free(void* block) noexcept {
  if (g_capi_observed.load(std::memory_order_relaxed)) return observed_capi_free(block);
  std::free(block);
}

// Room for `count` objects of `size` bytes; null also when the product does not fit the address space.
void* capi_alloc_array(std::size_t count, std::size_t size) noexcept;

// The functions from here on are for tests. The first call of any of them begins the counting.

// Let `successes` more requests succeed and all later ones fail; a negative number lets all succeed. Returns
// how many requests were made since the previous call.
long capi_fail_after(long successes) noexcept;

// The same, but a single request fails and all later ones succeed again.
long capi_fail_once_after(long successes) noexcept;

// How many blocks were given out and have not come back. Blocks that a caller released with the general heap
// still count.
long capi_blocks_out() noexcept;

// `watch` sees every block just before it is released; null ends that. It must not release any.
void capi_watch_free(void (*watch)(void* block)) noexcept;

// A standard allocator over the door above; throws std::bad_alloc, which the exported functions catch.
template <class T>
struct CapiAllocator {
  using value_type = T;
  CapiAllocator() = default;
  template <class U>
  CapiAllocator(const CapiAllocator<U>&) noexcept {}
  T* allocate(std::size_t n) {
    if (void* p = capi_alloc_array(n, sizeof(T))) return static_cast<T*>(p);
    throw std::bad_alloc();
  }
  void deallocate(T* p, std::size_t) noexcept { capi_free(p); }
  friend bool operator==(const CapiAllocator&, const CapiAllocator&) { return true; }
};

template <class T>
using CapiVector = std::vector<T, CapiAllocator<T>>;

// The same for plain data that is written in full as soon as there is room for it: what a vector makes of its
// own accord has no value.
template <class T>
struct CapiRawAllocator : CapiAllocator<T> {
  template <class U>
  struct rebind {
    using other = CapiRawAllocator<U>;
  };
  template <class U>
  void construct(U* p) noexcept {
    ::new (static_cast<void*>(p)) U;
  }
  template <class U, class V, class... Rest>
  void construct(U* p, V&& value, Rest&&... rest) {
    ::new (static_cast<void*>(p)) U(std::forward<V>(value), std::forward<Rest>(rest)...);
  }
};

template <class T>
using CapiRawVector = std::vector<T, CapiRawAllocator<T>>;

}  // namespace Corvane::Print::platform

#endif
