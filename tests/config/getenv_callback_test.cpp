// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The CF exports over a host's callback. The callback of the tests keeps the contract, in bytes, and records
// what it was asked; a test may let it do something else at its n-th call.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <limits>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/capi_memory.h"
#include "tests/config/lookups.h"
#include "tests/config/texts.h"
#include "tests/platform/system_seam.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr char32_t kName[] = U"HOST_VARIABLE";

int needed_bytes(const WideText& value) {
  return 2 * static_cast<int>(value.size()) + 2;
}

// What the host's side of the contract says.
int answer(const WideText& value, CPWChar* buffer, int capacity) {
  if (value.empty()) return 0;
  const int needed = needed_bytes(value);
  if (needed <= capacity) std::memcpy(buffer, value.c_str(), static_cast<std::size_t>(needed));
  return needed;
}

using Step = std::function<int(CPWChar* buffer, int capacity)>;

WideText g_value;
std::vector<Step> g_steps;  // what to do at the first, second, ... call; afterwards the contract
std::vector<int> g_capacities;
std::vector<WideText> g_names;

int host_callback(const CPWChar* name, CPWChar* buffer, int capacity) {
  const std::size_t call = g_capacities.size();
  g_capacities.push_back(capacity);
  g_names.emplace_back(name);
  if (call < g_steps.size()) return g_steps[call](buffer, capacity);
  return answer(g_value, buffer, capacity);
}

class GetenvCallback : public testing::Test {
protected:
  void SetUp() override {
    restart(U"value");
    CFSetGetEnvVarCallback(host_callback);
  }
  void TearDown() override {
    CFSetGetEnvVarCallback(nullptr);
    restart(U"");
  }

  static void restart(const std::u32string& value, std::vector<Step> steps = {}) {
    g_value = wide(value);
    g_steps = std::move(steps);
    g_capacities.clear();
    g_names.clear();
  }
};

TEST_F(GetenvCallback, AnswersInPlaceOfTheEnvironment) {
  const ScopedVariable variable(kName, U"environment");
  EXPECT_EQ(wide_lookup(kName), wide(U"value"));
  EXPECT_EQ(narrow_lookup(kName), "value");
  restart(U"");
  EXPECT_EQ(wide_lookup(kName), std::nullopt);
  EXPECT_EQ(narrow_lookup(kName), std::nullopt);
}

TEST_F(GetenvCallback, NullBringsTheEnvironmentBack) {
  const ScopedVariable variable(kName, U"environment");
  CFSetGetEnvVarCallback(nullptr);
  EXPECT_EQ(wide_lookup(kName), wide(U"environment"));
  EXPECT_EQ(narrow_lookup(kName), "environment");
  EXPECT_TRUE(g_capacities.empty());
}

int other_callback(const CPWChar*, CPWChar* buffer, int capacity) {
  return answer(wide(U"other"), buffer, capacity);
}

TEST_F(GetenvCallback, TheOneInstalledLastAnswers) {
  CFSetGetEnvVarCallback(other_callback);
  EXPECT_EQ(wide_lookup(kName), wide(U"other"));
}

TEST_F(GetenvCallback, ReceivesTheNameAsItIs) {
  const WideText name = wide(U"any name = \u5927\U0001F600");
  CFReleaseValue(CFGetenvW(name.c_str()));
  EXPECT_EQ(g_names, std::vector<WideText>{name});
}

TEST_F(GetenvCallback, ReceivesTheNarrowNameWidened) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : {0, 1, 255, 256, 257, 5000}) {
      restart(U"value");
      narrow_lookup(alphabet.text(length));
      EXPECT_EQ(g_names, std::vector<WideText>{wide(alphabet.text(length))})
          << alphabet.name << ' ' << length;
    }
  }
}

TEST_F(GetenvCallback, IsNotAskedForANullName) {
  EXPECT_EQ(CFGetenvW(nullptr), nullptr);
  EXPECT_EQ(CFGetenv(nullptr), nullptr);
  EXPECT_FALSE(CFIsVariableDefinedW(nullptr));
  EXPECT_FALSE(CFIsVariableDefined(nullptr));
  EXPECT_TRUE(g_capacities.empty());
}

TEST_F(GetenvCallback, SixtyThreeCharactersNeedNoRegrowth) {
  for (const int length : {1, 2, 62, 63}) {
    restart(std::u32string(static_cast<std::size_t>(length), U'v'));
    EXPECT_EQ(wide_lookup(kName), g_value);
    EXPECT_EQ(g_capacities, (std::vector<int>{128})) << length;
  }
}

TEST_F(GetenvCallback, SixtyFourCharactersNeedOneRegrowthTo130Bytes) {
  restart(std::u32string(64, U'v'));
  EXPECT_EQ(wide_lookup(kName), g_value);
  EXPECT_EQ(g_capacities, (std::vector<int>{128, 130}));
}

TEST_F(GetenvCallback, LongerValuesAreAskedForOnceMoreWithTheirNumberOfBytes) {
  for (const int length : {65, 66, 127, 128, 1000, 32000, 100000}) {
    restart(std::u32string(static_cast<std::size_t>(length), U'v'));
    EXPECT_EQ(wide_lookup(kName), g_value);
    EXPECT_EQ(g_capacities, (std::vector<int>{128, 2 * length + 2}));
    g_capacities.clear();
    EXPECT_EQ(narrow_lookup(kName), std::string(static_cast<std::size_t>(length), 'v'));
    EXPECT_EQ(g_capacities, (std::vector<int>{128, 2 * length + 2}));
  }
}

TEST_F(GetenvCallback, AnEmptyAnswerIsUndefined) {
  restart(U"");
  EXPECT_EQ(wide_lookup(kName), std::nullopt);
  EXPECT_EQ(narrow_lookup(kName), std::nullopt);
  EXPECT_FALSE(CFIsVariableDefinedW(wide(kName).c_str()));
  EXPECT_FALSE(CFIsVariableDefined(narrow(kName).c_str()));
  EXPECT_EQ(g_capacities, (std::vector<int>{128, 128, 128, 128}));
}

TEST_F(GetenvCallback, IsVariableDefinedAsksForTheValue) {
  restart(std::u32string(64, U'v'));
  EXPECT_TRUE(CFIsVariableDefinedW(wide(kName).c_str()));
  EXPECT_TRUE(CFIsVariableDefined(narrow(kName).c_str()));
  EXPECT_EQ(g_capacities, (std::vector<int>{128, 130, 128, 130}));
}

TEST_F(GetenvCallback, EveryKindOfExceptionGivesNullOnTheFirstCall) {
  const long before = platform::capi_blocks_out();
  for (const ExceptionKind& kind : exception_kinds()) {
    const Step raise = [&kind](CPWChar*, int) {
      kind.raise();
      return 4;
    };
    restart(U"value", {raise, raise, raise, raise});
    EXPECT_EQ(wide_lookup(kName), std::nullopt) << kind.what;
    EXPECT_EQ(narrow_lookup(kName), std::nullopt) << kind.what;
    EXPECT_FALSE(CFIsVariableDefinedW(wide(kName).c_str())) << kind.what;
    EXPECT_FALSE(CFIsVariableDefined(narrow(kName).c_str())) << kind.what;
    EXPECT_EQ(g_capacities.size(), 4u) << kind.what;
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST_F(GetenvCallback, EveryKindOfExceptionGivesNullOnTheSecondCall) {
  const long before = platform::capi_blocks_out();
  for (const ExceptionKind& kind : exception_kinds()) {
    const Step measure = [](CPWChar*, int) { return 130; };
    const Step raise = [&kind](CPWChar* buffer, int) {
      buffer[0] = 'x';
      kind.raise();
      return 130;
    };
    restart(U"value", {measure, raise, measure, raise, measure, raise, measure, raise});
    EXPECT_EQ(wide_lookup(kName), std::nullopt) << kind.what;
    EXPECT_EQ(narrow_lookup(kName), std::nullopt) << kind.what;
    EXPECT_FALSE(CFIsVariableDefinedW(wide(kName).c_str())) << kind.what;
    EXPECT_FALSE(CFIsVariableDefined(narrow(kName).c_str())) << kind.what;
    EXPECT_EQ(g_capacities, (std::vector<int>{128, 130, 128, 130, 128, 130, 128, 130})) << kind.what;
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST_F(GetenvCallback, LookupsWorkAfterManyExceptions) {
  const int rounds = scaled(10000);
  for (const ExceptionKind& kind : exception_kinds()) {
    const Step raise = [&kind](CPWChar*, int) {
      kind.raise();
      return 4;
    };
    for (int i = 0; i < rounds; ++i) {
      restart(U"value", {raise});
      ASSERT_EQ(wide_lookup(kName), std::nullopt) << kind.what << ' ' << i;
      ASSERT_EQ(wide_lookup(kName), wide(U"value")) << kind.what << ' ' << i;
    }
  }
}

TEST_F(GetenvCallback, MayLookUpVariablesItself) {
  const Step look_up = [](CPWChar* buffer, int capacity) {
    return answer(wide_lookup(kName).value_or(WideText()) + wide(U" twice"), buffer, capacity);
  };
  restart(U"value", {look_up});
  EXPECT_EQ(wide_lookup(kName), wide(U"value twice"));
}

TEST_F(GetenvCallback, NegativeCountYieldsTheBuffer) {
  for (const int count : {-1, -130, std::numeric_limits<int>::min()}) {
    const Step fill = [count](CPWChar* buffer, int capacity) {
      answer(wide(U"filled"), buffer, capacity);
      return count;
    };
    restart(U"value", {fill});
    EXPECT_EQ(wide_lookup(kName), wide(U"filled")) << count;
    EXPECT_EQ(g_capacities.size(), 1u);
    restart(U"value", {[count](CPWChar*, int) { return count; }});
    EXPECT_EQ(wide_lookup(kName), WideText()) << count;
    restart(U"value", {[count](CPWChar*, int) { return count; }});
    EXPECT_TRUE(CFIsVariableDefinedW(wide(kName).c_str())) << count;
  }
}

TEST_F(GetenvCallback, SecondCountIsNotLookedAt) {
  for (const int count : {0, -1, 1, 128, 131, 100000, std::numeric_limits<int>::max()}) {
    const WideText value(64, CPWChar('v'));
    const Step measure = [](CPWChar*, int) { return 130; };
    const Step fill = [&value, count](CPWChar* buffer, int capacity) {
      answer(value, buffer, capacity);
      return count;
    };
    restart(U"value", {measure, fill});
    EXPECT_EQ(wide_lookup(kName), value) << count;
    EXPECT_EQ(g_capacities, (std::vector<int>{128, 130})) << count;
  }
}

TEST_F(GetenvCallback, WhatTheFirstCallWroteIsStillThereInTheSecond) {
  const Step write_early = [](CPWChar* buffer, int) {
    buffer[0] = 'x';
    return 130;
  };
  const Step write_nothing = [](CPWChar*, int) { return 130; };
  restart(U"value", {write_early, write_nothing});
  EXPECT_EQ(wide_lookup(kName), wide(U"x"));
}

TEST_F(GetenvCallback, UnterminatedAnswersAreTerminated) {
  const Step fill_all = [](CPWChar* buffer, int capacity) {
    std::fill_n(buffer, capacity / 2, CPWChar('x'));
    return capacity;
  };
  restart(U"value", {fill_all});
  EXPECT_EQ(wide_lookup(kName), WideText(63, CPWChar('x')));

  for (const int bytes : {129, 130, 131, 132, 1001}) {
    restart(U"value", {[bytes](CPWChar*, int) { return bytes; }, fill_all});
    EXPECT_EQ(wide_lookup(kName), WideText(static_cast<std::size_t>(bytes / 2 - 1), CPWChar('x'))) << bytes;
    EXPECT_EQ(g_capacities, (std::vector<int>{128, bytes}));
  }
}

TEST_F(GetenvCallback, AnAnswerThatWritesNothingIsEmptyText) {
  restart(U"value", {[](CPWChar*, int) { return 4; }});
  EXPECT_EQ(wide_lookup(kName), WideText());
  restart(U"value", {[](CPWChar*, int) { return 4; }});
  EXPECT_EQ(narrow_lookup(kName), "");
}

TEST_F(GetenvCallback, AValueThatGrowsBetweenTheCallsIsNotOverrun) {
  const Step measure = [](CPWChar*, int) { return 130; };
  restart(std::u32string(1000, U'v'), {measure});
  EXPECT_EQ(wide_lookup(kName), WideText());
  EXPECT_EQ(g_capacities, (std::vector<int>{128, 130}));
}

TEST_F(GetenvCallback, ExhaustedMemoryGivesNullAndLeaksNothing) {
  const long before = platform::capi_blocks_out();
  const WideText wide_name = wide(kName);
  for (int successes = 0; successes < 2; ++successes) {
    restart(std::u32string(64, U'v'));
    platform::capi_fail_after(successes);
    EXPECT_EQ(CFGetenvW(wide_name.c_str()), nullptr);
    platform::capi_fail_after(-1);
  }
  for (int successes = 0; successes < 4; ++successes) {
    restart(std::u32string(64, U'v'));
    platform::capi_fail_after(successes);
    EXPECT_EQ(CFGetenv("HOST_VARIABLE"), nullptr);
    platform::capi_fail_after(-1);
  }
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST_F(GetenvCallback, AHugeCountWithoutMemoryForItGivesNull) {
  const long before = platform::capi_blocks_out();
  restart(U"value", {[](CPWChar*, int) {
            platform::capi_fail_after(0);
            return std::numeric_limits<int>::max();
          }});
  EXPECT_EQ(CFGetenvW(wide(kName).c_str()), nullptr);
  platform::capi_fail_after(-1);
  EXPECT_EQ(g_capacities.size(), 1u);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST_F(GetenvCallback, RandomValuesComeWholeInBothForms) {
  for (int i = 0; i < scaled(5000); ++i) {
    const std::uint64_t seed = case_seed(0xCFCB, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string value = random_text(random, random.between(1, 300));
    restart(value);
    ASSERT_EQ(wide_lookup(kName), wide(value));
    ASSERT_EQ(narrow_lookup(kName), narrow(value));
    ASSERT_EQ(g_capacities.size(), needed_bytes(g_value) > 128 ? 4u : 2u);
  }
}

TEST_F(GetenvCallback, HalfASurrogatePairDoesNotEndTheNarrowValue) {
  g_value = WideText(1, CPWChar(0xD83D)) + wide(U"z");
  const std::optional<std::string> value = narrow_lookup(kName);
  ASSERT_TRUE(value);
  EXPECT_EQ(value->back(), 'z');
}

int stateless_callback(const CPWChar* name, CPWChar* buffer, int capacity) {
  return answer(WideText(name) + WideText(100, CPWChar('v')), buffer, capacity);
}

TEST_F(GetenvCallback, FourThreadsMayLookUpAtOnce) {
  CFSetGetEnvVarCallback(stateless_callback);
  std::vector<int> right(4, 0);
  std::vector<std::thread> threads;
  for (std::size_t t = 0; t < right.size(); ++t) {
    threads.emplace_back([&count = right[t], t] {
      const std::u32string name(t + 1, U'N');
      const std::u32string expected = name + std::u32string(100, U'v');
      for (int i = 0; i < 500; ++i)
        count += wide_lookup(name) == wide(expected) && narrow_lookup(name) == narrow(expected);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, std::vector<int>(4, 500));
}

}  // namespace
}  // namespace Corvane::Print::tests
