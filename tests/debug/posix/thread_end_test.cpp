// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A thread that ends while it loads, from within the debug library: its end travels up the stack.
#include <gtest/gtest.h>
#include <pthread.h>

#include <cstring>
#include <thread>

#include "debug/load.h"

namespace Corvane::Print::tests {
namespace {

using namespace Corvane::Print::debug;

int g_module;

LoadSystem system_with(void* (*load)(const char* name)) {
  LoadSystem system = kLoadSystem;
  system.load_library = load;
  system.library_text = [](void*, unsigned, const char*, char*, int) { return 0; };
  return system;
}

void* end_thread(void* address) {
  initialize(*static_cast<LoadState*>(address), system_with([](const char*) -> void* {
    pthread_exit(nullptr);
    return nullptr;
  }));
  return nullptr;
}

}  // namespace

TEST(DebugLoadHere, AThreadThatEndsWhileItLoadsReleasesTheLock) {
  LoadState state;
  pthread_t ending;
  ASSERT_EQ(pthread_create(&ending, nullptr, end_thread, &state), 0);
  pthread_join(ending, nullptr);
  EXPECT_EQ(state.status, kNotTried);
  int result = 0;
  std::thread([&] {
    result = initialize(state, system_with([](const char*) -> void* { return &g_module; }));
  }).join();
  EXPECT_EQ(result, 1);
  EXPECT_EQ(state.status, kAvailable);
}

}  // namespace Corvane::Print::tests
