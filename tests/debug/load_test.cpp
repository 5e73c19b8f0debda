// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The first load, with a system that fails where a test wants it.
#include "debug/load.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>

#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

using namespace Corvane::Print::debug;

int g_module;  // its address is the module
int g_lock;

void found() {}

// What the fake system does and what was asked of it.
struct Script {
  bool has_lock = true;
  bool wait_succeeds = true;
  bool has_library = true;
  std::string version = "6";
  std::string missing;  // an entry point
  // Called on the way, when set.
  std::function<void()> naming, waiting, loading, reading, finding;
  std::vector<std::string> log;
};
Script g_script;

void log(const std::string& what) {
  g_script.log.push_back(what);
}

void run(const std::function<void()>& step) {
  if (step) step();
}

void fake_name(const char* text, char* out) {
  log(std::string("name ") + text);
  std::strcpy(out, "the name");
  run(g_script.naming);
}

void* fake_create(const char* name) {
  log(std::string("create ") + name);
  return g_script.has_lock ? &g_lock : nullptr;
}

bool fake_wait(void* lock) {
  EXPECT_EQ(lock, &g_lock);
  log("wait");
  run(g_script.waiting);
  return g_script.wait_succeeds;
}

void fake_release(void* lock) {
  log(lock != nullptr ? "release" : "release null");
}

void* fake_load(const char* name) {
  log(std::string("load ") + name);
  run(g_script.loading);
  return g_script.has_library ? &g_module : nullptr;
}

int fake_text(void* library, unsigned resource, const char* symbol, char* out, int capacity) {
  EXPECT_EQ(library, &g_module);
  log("text " + std::to_string(resource) + " " + symbol + " " + std::to_string(capacity));
  run(g_script.reading);
  std::strcpy(out, g_script.version.c_str());
  return static_cast<int>(g_script.version.size());
}

platform::LibraryFunction fake_function(void* library, const char* name) {
  EXPECT_EQ(library, &g_module);
  log(name);
  run(g_script.finding);
  return g_script.missing == name ? nullptr : found;
}

constexpr LoadSystem kFakeSystem = {fake_name, fake_create, fake_wait,    fake_release,
                                    fake_load, fake_text,   fake_function};

using Log = std::vector<std::string>;
const Log kLocking = {"name KVL Toolkit Mutex", "create the name", "wait"};

Log operator+(Log a, const Log& b) {
  a.insert(a.end(), b.begin(), b.end());
  return a;
}

class DebugLoad : public testing::Test {
protected:
  void SetUp() override { g_script = {}; }
  void TearDown() override { g_script = {}; }

  int initialize() { return debug::initialize(state_, kFakeSystem); }

  void expect_state(KVLStatus status, bool loaded, int entry_points) {
    EXPECT_EQ(state_.status, status);
    EXPECT_EQ(state_.module, loaded ? &g_module : nullptr);
    int there = 0;
    for (const auto& entry_point : state_.entry_points) there += entry_point != nullptr;
    EXPECT_EQ(there, entry_points);
  }

  LoadState state_;
};

}  // namespace

TEST_F(DebugLoad, TheLockIsTakenTheLibraryLoadedAndTheNineEntryPointsFoundInOrder) {
  EXPECT_EQ(initialize(), 1);
  expect_state(kAvailable, true, 9);
  const Log loading = {"load kvldebug", "text 10000 kvldebug_version 16",
                       "dllPrintF",     "dllMemDump",
                       "dllScanF",      "dllMessageBox",
                       "dllGetSA",      "dllGetSW",
                       "dllSetDest",    "dllInitApp",
                       "dllListBox",    "release"};
  EXPECT_EQ(g_script.log, kLocking + loading);
}

TEST_F(DebugLoad, HappensOnce) {
  initialize();
  g_script.log.clear();
  EXPECT_EQ(initialize(), 1);
  EXPECT_EQ(g_script.log, Log{});
}

TEST_F(DebugLoad, AMissingLibraryIsNeverLookedForAgain) {
  g_script.has_library = false;
  EXPECT_EQ(initialize(), 0);
  expect_state(kUnavailable, false, 0);
  EXPECT_EQ(g_script.log, (kLocking + Log{"load kvldebug", "release"}));
  g_script = {};
  EXPECT_EQ(initialize(), 0);
  EXPECT_EQ(g_script.log, Log{});
}

TEST_F(DebugLoad, ALibraryOfAnotherVersionStaysLoadedAndCountsAsAvailable) {
  for (const char* version : {"7", "60", "6.0", " 6", "06", ""}) {
    LoadState state;
    g_script = {};
    g_script.version = version;
    EXPECT_EQ(debug::initialize(state, kFakeSystem), 1) << version;
    EXPECT_EQ(state.status, kAvailable) << version;
    EXPECT_EQ(state.module, &g_module) << version;
    for (const auto& entry_point : state.entry_points) EXPECT_EQ(entry_point, nullptr) << version;
    EXPECT_EQ(g_script.log, (kLocking + Log{"load kvldebug", "text 10000 kvldebug_version 16", "release"}));
  }
}

TEST_F(DebugLoad, TheEntryPointsThatAreThereAreKeptWhenOneIsMissing) {
  for (const char* missing : {"dllPrintF", "dllSetDest", "dllListBox"}) {
    LoadState state;
    g_script = {};
    g_script.missing = missing;
    EXPECT_EQ(debug::initialize(state, kFakeSystem), 1);
    EXPECT_EQ(state.status, kAvailable);
    int there = 0;
    for (const auto& entry_point : state.entry_points) there += entry_point != nullptr;
    EXPECT_EQ(there, 8);
    EXPECT_EQ(g_script.log.size(), kLocking.size() + 2 + 9 + 1);
  }
}

TEST_F(DebugLoad, WithoutALockNothingIsTriedAndTheNextCallTriesAgain) {
  g_script.has_lock = false;
  EXPECT_EQ(initialize(), 0);
  expect_state(kNotTried, false, 0);
  EXPECT_EQ(g_script.log, (Log{"name KVL Toolkit Mutex", "create the name", "release null"}));
  g_script = {};
  EXPECT_EQ(initialize(), 1);
  expect_state(kAvailable, true, 9);
}

TEST_F(DebugLoad, WithoutOwningTheLockNothingIsTriedAndTheNextCallTriesAgain) {
  g_script.wait_succeeds = false;
  EXPECT_EQ(initialize(), 0);
  expect_state(kNotTried, false, 0);
  EXPECT_EQ(g_script.log, (kLocking + Log{"release"}));
  g_script = {};
  EXPECT_EQ(initialize(), 1);
}

TEST_F(DebugLoad, WhatAnotherThreadLoadedMeanwhileIsNotLoadedAgain) {
  g_script.waiting = [this] {
    state_.module = &g_module;
    state_.status = kAvailable;
  };
  EXPECT_EQ(initialize(), 1);
  EXPECT_EQ(g_script.log, (kLocking + Log{"release"}));
}

TEST_F(DebugLoad, WhatAnotherThreadDidNotFindMeanwhileIsNotLookedForAgain) {
  g_script.waiting = [this] { state_.status = kUnavailable; };
  EXPECT_EQ(initialize(), 0);
  expect_state(kUnavailable, false, 0);
  EXPECT_EQ(g_script.log, (kLocking + Log{"release"}));
}

TEST_F(DebugLoad, AThreadWithoutALockMakesALoadedLibraryAvailable) {
  g_script.has_lock = false;
  state_.module = &g_module;
  EXPECT_EQ(initialize(), 0);
  expect_state(kAvailable, true, 0);
}

TEST_F(DebugLoad, AnyExceptionBeforeTheLibraryIsLoadedLeavesTheLoadToTheNextCall) {
  for (const ExceptionKind& kind : exception_kinds()) {
    for (const auto step : {&Script::naming, &Script::waiting, &Script::loading}) {
      LoadState state;
      g_script = {};
      g_script.*step = kind.raise;
      EXPECT_EQ(debug::initialize(state, kFakeSystem), 1) << kind.what;
      EXPECT_EQ(state.status, kNotTried) << kind.what;
      EXPECT_EQ(state.module, nullptr) << kind.what;
      EXPECT_EQ(g_script.log.back(), step == &Script::naming ? "release null" : "release") << kind.what;
      g_script = {};
      EXPECT_EQ(debug::initialize(state, kFakeSystem), 1) << kind.what;
      EXPECT_EQ(state.status, kAvailable) << kind.what;
    }
  }
}

TEST_F(DebugLoad, AnyExceptionAfterTheLibraryIsLoadedLeavesItAvailable) {
  for (const ExceptionKind& kind : exception_kinds()) {
    for (const auto step : {&Script::reading, &Script::finding}) {
      LoadState state;
      g_script = {};
      g_script.*step = kind.raise;
      EXPECT_EQ(debug::initialize(state, kFakeSystem), 1) << kind.what;
      EXPECT_EQ(state.status, kAvailable) << kind.what;
      EXPECT_EQ(state.module, &g_module) << kind.what;
      EXPECT_EQ(state.entry_points[0], nullptr) << kind.what;
      EXPECT_EQ(g_script.log.back(), "release") << kind.what;
    }
  }
}

namespace {

std::atomic<int> g_loads;
LoadState* g_nested = nullptr;

LoadSystem system_with(void* (*load)(const char* name)) {
  LoadSystem system = kLoadSystem;
  system.load_library = load;
  system.library_text = [](void*, unsigned, const char*, char* out, int) {
    std::strcpy(out, "6");
    return 1;
  };
  system.library_function = [](void*, const char*) -> platform::LibraryFunction { return found; };
  return system;
}

void* load_slowly(const char*) {
  ++g_loads;
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  return &g_module;
}

// A debug library that writes debug output while it is being loaded.
void* load_and_come_back(const char*) {
  if (++g_loads == 1) debug::initialize(*g_nested, system_with(load_and_come_back));
  return &g_module;
}

}  // namespace

TEST_F(DebugLoad, ThreadsThatComeAtOnceWaitForTheFirst) {
  const LoadSystem system = system_with(load_slowly);
  g_loads = 0;
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([&] {
      EXPECT_EQ(debug::initialize(state_, system), 1);
      EXPECT_EQ(state_.status, kAvailable);
      EXPECT_EQ(state_.entry_point(EntryPoint::kListBox), found);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(g_loads, 1);
}

TEST_F(DebugLoad, AThreadThatComesBackWhileItLoadsDoesNotWaitForItself) {
  g_loads = 0;
  g_nested = &state_;
  EXPECT_EQ(debug::initialize(state_, system_with(load_and_come_back)), 1);
  EXPECT_EQ(g_loads, 2);
  expect_state(kAvailable, true, 9);
}

}  // namespace Corvane::Print::tests
