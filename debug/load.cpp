// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The first load of the debug library: lock, load, check the version, find the entry points. Structured
// exceptions may end any step of it on Windows, where two of the system's functions are bound by their first
// call; so the steps own nothing, and what must happen in the end happens in a destructor outside the guard.
#include "debug/load.h"

namespace Corvane::Print::debug {
namespace {

constexpr char kLibrary[] = "kvldebug";
constexpr char kLockText[] = "KVL Toolkit Mutex";

// The interface version of the debug library is a text of it.
constexpr unsigned kVersionResource = 10000;
constexpr char kVersionSymbol[] = "kvldebug_version";
constexpr char kVersion = '6';
constexpr int kVersionRoom = 16;

constexpr const char* kEntryPointNames[kEntryPoints] = {"dllPrintF",     "dllMemDump", "dllScanF",
                                                        "dllMessageBox", "dllGetSA",   "dllGetSW",
                                                        "dllSetDest",    "dllInitApp", "dllListBox"};

KVLStatus status_of(const LoadState& state) {
  return state.status.load(std::memory_order_acquire);
}

void set_status(LoadState& state, KVLStatus status) {
  state.status.store(status, std::memory_order_release);
}

bool has_our_version(void* module, const LoadSystem& system) {
  char text[kVersionRoom];
  if (system.library_text(module, kVersionResource, kVersionSymbol, text, kVersionRoom) == 0) return false;
  return text[0] == kVersion && text[1] == '\0';
}

bool find_entry_points(LoadState& state, void* module, const LoadSystem& system) {
  bool all = true;
  for (std::size_t i = 0; i < kEntryPoints; ++i) {
    const platform::LibraryFunction found = system.library_function(module, kEntryPointNames[i]);
    state.entry_points[i].store(found, std::memory_order_release);
    all = all && found != nullptr;
  }
  return all;
}

// Stops where another thread has given the state a status meanwhile, see Ending.
void load(LoadState& state, const LoadSystem& system) {
  void* const module = system.load_library(kLibrary);
  state.module.store(module, std::memory_order_release);
  if (module == nullptr) set_status(state, kUnavailable);
  if (status_of(state) != kNotTried) return;
  if (!has_our_version(module, system)) return set_status(state, kUnavailable);
  set_status(state, find_entry_points(state, module, system) ? kAvailable : kUnavailable);
}

// One run of the initializer.
struct Run {
  LoadState& state;
  const LoadSystem& system;
  void* lock = nullptr;
  int result = 1;  // stays, when an exception ends the run
};

int lock_and_load(void* address) {
  Run& run = *static_cast<Run*>(address);
  char name[platform::kLockNameCapacity];
  run.system.process_lock_name(kLockText, name);
  run.lock = run.system.create_named_lock(name);
  if (run.lock == nullptr || !run.system.wait_for_named_lock(run.lock)) return run.result = 0;
  if (status_of(run.state) == kNotTried) load(run.state, run.system);
  if (run.state.module.load(std::memory_order_acquire) == nullptr) run.result = 0;
  return run.result;
}

// What happens in every case, whatever ended the run.
class Ending {
public:
  explicit Ending(Run& run) : run_(run) {}
  ~Ending() {
    // KEEP(db-loaded-is-available): a library of another version, or without some entry points, is available.
    // Looks wrong; it has been loaded and stays so, and the entry points that are missing decide for
    // themselves. Pinned by DebugLoad.ALibraryOfAnotherVersionStaysLoadedAndCountsAsAvailable.
    if (run_.state.module.load(std::memory_order_acquire) != nullptr) set_status(run_.state, kAvailable);
    run_.system.release_named_lock(run_.lock);
  }
  Ending(const Ending&) = delete;
  Ending& operator=(const Ending&) = delete;

private:
  Run& run_;
};

}  // namespace

const LoadSystem kLoadSystem = {platform::process_lock_name,   platform::create_named_lock,
                                platform::wait_for_named_lock, platform::release_named_lock,
                                platform::load_library,        platform::library_text,
                                platform::library_function};

int initialize(LoadState& state, const LoadSystem& system) {
  const KVLStatus status = status_of(state);
  if (status != kNotTried) return status == kAvailable ? 1 : 0;
  Run run{state, system};
  {
    const Ending ending(run);
    platform::guarded_call(lock_and_load, &run);
  }
  return run.result;
}

}  // namespace Corvane::Print::debug
