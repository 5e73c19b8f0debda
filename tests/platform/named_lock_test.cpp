// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>

#include "platform/platform.h"

namespace Corvane::Print::tests {
namespace {

constexpr char kName[] = "a lock of the tests";

}  // namespace

TEST(NamedLock, TheNameEndsInTheProcessNumber) {
  char name[platform::kLockNameCapacity];
  platform::process_lock_name("text", name);
  EXPECT_EQ(std::strlen(name), 4u + 2u + 8u);
  EXPECT_EQ(std::string(name, 6), "text #");
  EXPECT_EQ(std::strspn(name + 6, "0123456789abcdef"), 8u);
}

TEST(NamedLock, ExcludesOtherThreads) {
  void* const lock = platform::create_named_lock(kName);
  ASSERT_NE(lock, nullptr);
  ASSERT_TRUE(platform::wait_for_named_lock(lock));
  std::atomic<bool> taken(false);
  std::thread other([&] {
    void* const same = platform::create_named_lock(kName);
    EXPECT_TRUE(platform::wait_for_named_lock(same));
    taken = true;
    platform::release_named_lock(same);
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(100));
  EXPECT_FALSE(taken);
  platform::release_named_lock(lock);
  other.join();
  EXPECT_TRUE(taken);
}

TEST(NamedLock, AThreadMayTakeItAgain) {
  void* const lock = platform::create_named_lock(kName);
  void* const again = platform::create_named_lock(kName);
  EXPECT_TRUE(platform::wait_for_named_lock(lock));
  EXPECT_TRUE(platform::wait_for_named_lock(again));
  platform::release_named_lock(again);
  platform::release_named_lock(lock);
}

TEST(NamedLock, ReleasingNullOrALockThatOthersHoldDoesNothing) {
  platform::release_named_lock(nullptr);
  void* const lock = platform::create_named_lock(kName);
  ASSERT_TRUE(platform::wait_for_named_lock(lock));
  std::thread([] { platform::release_named_lock(platform::create_named_lock(kName)); }).join();
  std::atomic<bool> taken(false);
  std::thread other([&] {
    void* const same = platform::create_named_lock(kName);
    platform::wait_for_named_lock(same);
    taken = true;
    platform::release_named_lock(same);
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  EXPECT_FALSE(taken);
  platform::release_named_lock(lock);
  other.join();
}

}  // namespace Corvane::Print::tests
