// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Several threads make the first call of the process at once.
#include <atomic>
#include <thread>
#include <vector>

#include "corvane/print/db.h"
#include "tests/debug/standin.h"

namespace Corvane::Print::tests {
namespace {

using DebugThreads = WithStandin;

constexpr int kThreads = 4;
constexpr int kCalls = 50;

// One thread, which starts when all are there.
void call_many_times(std::atomic<int>& ready, int thread) {
  char text[] = "text";
  unsigned char byte = 1;
  --ready;
  while (ready > 0) std::this_thread::yield();
  for (int i = 0; i < kCalls; ++i) {
    switch ((i + thread) % 4) {
      case 0:
        DBMSG("%d", i);
        break;
      case 1:
        DBMEMDUMP(&byte, 1);
        break;
      case 2:
        DBInitApp(text);
        break;
      default:
        DBLB(text, 1, text);
    }
  }
}

}  // namespace

TEST_F(DebugThreads, TheFirstCallsOfSeveralLoadTheLibraryOnceAndAllArrive) {
  EXPECT_FALSE(standin_is_loaded());
  std::atomic<int> ready(kThreads);
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) threads.emplace_back(call_many_times, std::ref(ready), i);
  for (std::thread& thread : threads) thread.join();
  ASSERT_TRUE(standin_is_loaded());
  EXPECT_EQ(standin_record().starts, 1);
  EXPECT_EQ(standin_record().calls, kThreads * kCalls);
}

}  // namespace Corvane::Print::tests
