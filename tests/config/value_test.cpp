// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// An environment that changes at the worst moment: a fake lookup answers from a script, one value a call.
#include "config/value.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/capi_memory.h"
#include "tests/platform/system_seam.h"

namespace Corvane::Print::tests {
namespace {

std::vector<WideText> g_script;
std::vector<int> g_capacities;

// Keeps the contract of platform::environment_text; where the value does not fit it leaves 'x' in the whole
// room.
int scripted_text(const CPWChar*, CPWChar* buffer, int capacity) {
  const WideText& value = g_script[g_capacities.size()];
  g_capacities.push_back(capacity);
  const int needed = static_cast<int>(value.size()) + 1;
  if (value.empty()) return 0;
  if (needed > capacity) {
    std::fill_n(buffer, capacity, CPWChar('x'));
  } else {
    std::copy_n(value.c_str(), needed, buffer);
  }
  return needed;
}

// The value that a lookup yields over the script, and the capacities in characters that it offered.
struct Outcome {
  bool is_null;
  WideText value;
  std::vector<int> capacities;
};

Outcome look_up(std::vector<WideText> script) {
  g_script = std::move(script);
  g_capacities.clear();
  const long before = platform::capi_blocks_out();
  CPWChar* const value = config::value_from_environment(scripted_text, wide(U"NAME").c_str());
  const Outcome outcome{value == nullptr, value == nullptr ? WideText() : WideText(value), g_capacities};
  CFReleaseValue(value);
  EXPECT_EQ(platform::capi_blocks_out(), before);
  return outcome;
}

WideText of_length(int length) {
  return WideText(static_cast<std::size_t>(length), CPWChar('v'));
}

TEST(ValueFromEnvironment, SixtyThreeCharactersFitTheFirstRoom) {
  const Outcome outcome = look_up({of_length(63)});
  EXPECT_EQ(outcome.value, of_length(63));
  EXPECT_EQ(outcome.capacities, (std::vector<int>{64}));
}

TEST(ValueFromEnvironment, LongerValuesAreAskedForOnceMore) {
  for (const int length : {64, 65, 127, 128, 129, 32000}) {
    const Outcome outcome = look_up({of_length(length), of_length(length)});
    EXPECT_EQ(outcome.value, of_length(length));
    EXPECT_EQ(outcome.capacities, (std::vector<int>{64, length + 1}));
  }
}

TEST(ValueFromEnvironment, AValueThatGrowsMeanwhileIsAskedForUntilItFits) {
  const Outcome outcome = look_up({of_length(64), of_length(100), of_length(101), of_length(40)});
  EXPECT_EQ(outcome.value, of_length(40));
  EXPECT_EQ(outcome.capacities, (std::vector<int>{64, 65, 101, 102}));
}

TEST(ValueFromEnvironment, AValueThatShrinksMeanwhileIsTheNewOne) {
  EXPECT_EQ(look_up({of_length(5000), of_length(1)}).value, of_length(1));
}

TEST(ValueFromEnvironment, AValueThatVanishesMeanwhileIsUndefined) {
  EXPECT_TRUE(look_up({WideText()}).is_null);
  EXPECT_TRUE(look_up({of_length(64), WideText()}).is_null);
  EXPECT_TRUE(look_up({of_length(64), of_length(65), WideText()}).is_null);
}

TEST(ValueFromEnvironment, WithoutMemoryTheVariableIsUndefined) {
  for (int successes = 0; successes < 3; ++successes) {
    platform::capi_fail_after(successes);
    const Outcome outcome = look_up({of_length(64), of_length(100), of_length(100)});
    platform::capi_fail_after(-1);
    EXPECT_TRUE(outcome.is_null) << successes;
  }
  EXPECT_FALSE(look_up({of_length(64), of_length(100), of_length(100)}).is_null);
}

}  // namespace
}  // namespace Corvane::Print::tests
