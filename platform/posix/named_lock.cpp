// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// One lock of the process stands for the named ones. It is recursive, as the locks of Windows are: what runs
// while it is held may come back for it on the same thread, and a release by somebody who does not hold it
// does nothing.
//
// Shared state: the lock.
#include <pthread.h>
#include <unistd.h>

#include <cstdio>

#include "platform/platform.h"

namespace Corvane::Print::platform {
namespace {

pthread_mutex_t g_lock = PTHREAD_RECURSIVE_MUTEX_INITIALIZER_NP;

}  // namespace

void process_lock_name(const char* text, char* out) {
  std::snprintf(out, kLockNameCapacity, "%s #%08x", text, static_cast<unsigned>(getpid()));
}

void* create_named_lock(const char*) noexcept {
  return &g_lock;
}

bool wait_for_named_lock(void* lock) noexcept {
  return pthread_mutex_lock(static_cast<pthread_mutex_t*>(lock)) == 0;
}

void release_named_lock(void* lock) noexcept {
  if (lock != nullptr) pthread_mutex_unlock(static_cast<pthread_mutex_t*>(lock));
}

}  // namespace Corvane::Print::platform
