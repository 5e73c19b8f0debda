// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>
#include <pthread.h>

#include "corvane/print/cf.h"
#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

int end_thread(void*) {
  pthread_exit(nullptr);
}

int end_thread_callback(const CPWChar*, CPWChar*, int) {
  pthread_exit(nullptr);
}

TEST(GuardedCallPosix, TheEndOfAThreadPassesThrough) {
  pthread_t thread;
  const auto run = [](void* returned) -> void* {
    platform::guarded_call(end_thread, nullptr);
    *static_cast<bool*>(returned) = true;
    return nullptr;
  };
  bool returned = false;
  ASSERT_EQ(pthread_create(&thread, nullptr, run, &returned), 0);
  pthread_join(thread, nullptr);
  EXPECT_FALSE(returned);
}

TEST(GuardedCallPosix, ALookupWhoseThreadEndsLeaksNothing) {
  const long before = platform::capi_blocks_out();
  CFSetGetEnvVarCallback(end_thread_callback);
  pthread_t thread;
  const auto run = [](void*) -> void* {
    CFGetenv("NAME");
    return nullptr;
  };
  ASSERT_EQ(pthread_create(&thread, nullptr, run, nullptr), 0);
  pthread_join(thread, nullptr);
  CFSetGetEnvVarCallback(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

}  // namespace
}  // namespace Corvane::Print::tests
