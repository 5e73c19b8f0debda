// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "platform/capi_memory.h"
#include "platform/platform.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

constexpr char32_t kName[] = U"CORVANE_TEST_ENVIRONMENT";
const WideText kWideName = wide(kName);

// A buffer of exactly `capacity` characters, so that a checked heap sees any overrun, filled with 'x'.
struct Room {
  explicit Room(int capacity) : units(static_cast<std::size_t>(capacity), CPWChar('x')) {}
  int ask(const WideText& name = kWideName) {
    return platform::environment_text(name.c_str(), units.data(), static_cast<int>(units.size()));
  }
  std::vector<CPWChar> units;
};

TEST(EnvironmentText, CountsCharactersWithTheTerminator) {
  const ScopedVariable variable(kName, U"abc");
  Room room(10);
  EXPECT_EQ(room.ask(), 4);
  EXPECT_EQ(WideText(room.units.data()), wide(U"abc"));
}

TEST(EnvironmentText, AValueThatJustFitsIsWritten) {
  const ScopedVariable variable(kName, U"abc");
  Room exact(4);
  EXPECT_EQ(exact.ask(), 4);
  EXPECT_EQ(WideText(exact.units.data()), wide(U"abc"));
  for (const int short_room : {1, 2, 3}) EXPECT_EQ(Room(short_room).ask(), 4) << short_room;
}

TEST(EnvironmentText, UndefinedAndEmptyVariablesCountNothing) {
  Room room(10);
  EXPECT_EQ(room.ask(wide(U"CORVANE_TEST_NOT_DEFINED")), 0);
  EXPECT_EQ(room.ask(wide(U"")), 0);
  const ScopedVariable variable(kName, U"");
  EXPECT_EQ(room.ask(), 0);
}

TEST(EnvironmentText, ANameIsNotPartOfADefinition) {
  const ScopedVariable variable(kName, U"first=second");
  Room room(20);
  EXPECT_EQ(room.ask(kWideName + wide(U"=first")), 0);
  EXPECT_EQ(room.ask(kWideName + wide(U"=")), 0);
}

TEST(EnvironmentText, ASurrogatePairInTheValueIsTwoCharacters) {
  const ScopedVariable variable(kName, U"a\U0001F600");
  Room room(10);
  EXPECT_EQ(room.ask(), 4);
  EXPECT_EQ(WideText(room.units.data()), wide(U"a\U0001F600"));
}

TEST(EnvironmentText, NamesNeedNotBeAscii) {
  const ScopedVariable variable(U"CORVANE_TEST_GR\u00D6SSE_\u5927", U"7");
  Room room(10);
  EXPECT_EQ(room.ask(wide(U"CORVANE_TEST_GR\u00D6SSE_\u5927")), 2);
  EXPECT_EQ(WideText(room.units.data()), wide(U"7"));
}

TEST(EnvironmentText, WithoutMemoryForTheNameTheVariableIsUndefined) {
  const ScopedVariable variable(kName, U"abc");
  Room room(10);
  platform::capi_fail_after(0);
  const int count = room.ask();
  const long requests = platform::capi_fail_after(-1);
  EXPECT_EQ(count, requests == 0 ? 4 : 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
