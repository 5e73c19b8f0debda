// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The debug library's load state and the first load. A state only moves forward: not tried, then available or
// unavailable, and stays so; the library is never freed.
//
// Shared between threads without a lock once the status has left kNotTried. The entry points are stored
// before the status, so whoever sees the status sees them. A status that was set while another thread is
// still loading (see initialize) may be seen earlier: the entry points are null then, which every caller must
// be ready for anyway.
#ifndef CORVANE_PRINT_DEBUG_LOAD_H
#define CORVANE_PRINT_DEBUG_LOAD_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "platform/platform.h"

namespace Corvane::Print::debug {

enum KVLStatus : std::int32_t { kNotTried = 0, kAvailable = 1, kUnavailable = 2 };

// In the order in which they are looked up.
enum class EntryPoint : std::size_t {
  kPrintF,
  kMemDump,
  kScanF,
  kMessageBox,
  kGetSA,
  kGetSW,
  kSetDest,
  kInitApp,
  kListBox,
};
inline constexpr std::size_t kEntryPoints = 9;

struct LoadState {
  std::atomic<KVLStatus> status{kNotTried};
  std::atomic<void*> module{nullptr};
  std::array<std::atomic<platform::LibraryFunction>, kEntryPoints> entry_points{};

  platform::LibraryFunction entry_point(EntryPoint which) const {
    return entry_points[static_cast<std::size_t>(which)].load(std::memory_order_acquire);
  }
};

// What loading needs of the system, with the contracts of platform.h; a parameter, so that tests can make
// each step fail.
struct LoadSystem {
  void (*process_lock_name)(const char* text, char* out);
  void* (*create_named_lock)(const char* name);
  bool (*wait_for_named_lock)(void* lock);
  void (*release_named_lock)(void* lock);
  void* (*load_library)(const char* name);
  int (*library_text)(void* library, unsigned resource, const char* symbol, char* out, int capacity);
  platform::LibraryFunction (*library_function)(void* library, const char* name);
};
extern const LoadSystem kLoadSystem;

// Loads the debug library, once in the life of a state, and finds its entry points. Threads that come at once
// wait for the first. Where the lock of the process cannot be had, nothing is tried, and the next call tries
// again. No exception leaves it, whatever its kind, but the end of a thread.
// Returns 1 when the library is usable, 0 otherwise.
int initialize(LoadState& state, const LoadSystem& system);

}  // namespace Corvane::Print::debug

#endif
