// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The lock by which all copies of the loader in a process exclude each other: a mutex of a fixed name.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <thread>

#include "debug/load.h"

namespace Corvane::Print::tests {
namespace {

using namespace Corvane::Print::debug;

std::string mutex_name() {
  char text[64];
  std::snprintf(text, sizeof text, "KVL Toolkit Mutex #%08lx", GetCurrentProcessId());
  return text;
}

// Every step is the system's but for the library, which is missing.
LoadSystem without_library() {
  LoadSystem system = kLoadSystem;
  system.load_library = [](const char*) -> void* { return nullptr; };
  return system;
}

}  // namespace

TEST(DebugLock, HasTheNameOfTheProcess) {
  char name[platform::kLockNameCapacity];
  platform::process_lock_name("KVL Toolkit Mutex", name);
  EXPECT_EQ(name, mutex_name());
}

TEST(DebugLock, TheLoadWaitsForWhoeverHoldsTheMutexOfThatName) {
  const HANDLE mutex = CreateMutexA(nullptr, TRUE, mutex_name().c_str());
  ASSERT_NE(mutex, nullptr);
  LoadState state;
  std::atomic<bool> done(false);
  std::thread loader([&] {
    EXPECT_EQ(initialize(state, without_library()), 0);
    done = true;
  });
  Sleep(200);
  EXPECT_FALSE(done);
  EXPECT_EQ(state.status, kNotTried);
  ReleaseMutex(mutex);
  loader.join();
  EXPECT_EQ(state.status, kUnavailable);
  CloseHandle(mutex);
}

TEST(DebugLock, AHolderThatEndedWithoutReleasingItDoesNotHoldUpTheLoad) {
  HANDLE mutex = nullptr;
  std::thread([&] { mutex = CreateMutexA(nullptr, TRUE, mutex_name().c_str()); }).join();
  ASSERT_NE(mutex, nullptr);
  LoadState state;
  EXPECT_EQ(initialize(state, without_library()), 0);
  EXPECT_EQ(state.status, kUnavailable);
  CloseHandle(mutex);
}

TEST(DebugLock, IsGivenBack) {
  LoadState state;
  initialize(state, without_library());
  EXPECT_EQ(OpenMutexA(SYNCHRONIZE, FALSE, mutex_name().c_str()), nullptr);
}

TEST(DebugLock, AnotherObjectOfThatNameIsNoLockAndTheNextCallTriesAgain) {
  const HANDLE event = CreateEventA(nullptr, TRUE, TRUE, mutex_name().c_str());
  ASSERT_NE(event, nullptr);
  LoadState state;
  EXPECT_EQ(initialize(state, without_library()), 0);
  EXPECT_EQ(state.status, kNotTried);
  CloseHandle(event);
  EXPECT_EQ(initialize(state, without_library()), 0);
  EXPECT_EQ(state.status, kUnavailable);
}

}  // namespace Corvane::Print::tests
