// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The CF exports over the process environment.
#include "corvane/print/cf.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/capi_memory.h"
#include "tests/config/lookups.h"
#include "tests/config/texts.h"
#include "tests/platform/system_seam.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr char32_t kName[] = U"CORVANE_TEST_VARIABLE";

// Looked up before any test has installed a callback. Every system defines it.
const bool g_path_was_found_at_start = CFIsVariableDefinedW(wide(U"PATH").c_str());

TEST(Getenv, ValuesOfAnyLengthComeWhole) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : {1, 2, 31, 32, 33, 62, 63, 64, 65, 66, 127, 128, 129, 130, 1000, 15000}) {
      const std::u32string value = alphabet.text(length);
      const ScopedVariable variable(kName, value);
      SCOPED_TRACE(testing::Message() << length << " characters, " << alphabet.name);
      EXPECT_EQ(wide_lookup(kName), wide(value));
      EXPECT_EQ(narrow_lookup(kName), narrow(value));
      EXPECT_TRUE(CFIsVariableDefinedW(wide(kName).c_str()));
      EXPECT_TRUE(CFIsVariableDefined(narrow(kName).c_str()));
    }
  }
}

TEST(Getenv, AValueOf32000CharactersComesWhole) {
  const std::u32string value(32000, U'v');
  const ScopedVariable variable(kName, value);
  EXPECT_EQ(wide_lookup(kName), wide(value));
  EXPECT_EQ(narrow_lookup(kName), narrow(value));
}

TEST(Getenv, AProcessStartsWithoutACallback) {
  EXPECT_TRUE(g_path_was_found_at_start);
}

TEST(Getenv, AnUndefinedVariableGivesNull) {
  EXPECT_EQ(wide_lookup(U"CORVANE_TEST_NOT_DEFINED"), std::nullopt);
  EXPECT_EQ(narrow_lookup(U"CORVANE_TEST_NOT_DEFINED"), std::nullopt);
  EXPECT_FALSE(CFIsVariableDefinedW(wide(U"CORVANE_TEST_NOT_DEFINED").c_str()));
  EXPECT_FALSE(CFIsVariableDefined("CORVANE_TEST_NOT_DEFINED"));
}

TEST(Getenv, AnEmptyVariableCountsAsUndefined) {
  const ScopedVariable variable(kName, U"");
  EXPECT_EQ(wide_lookup(kName), std::nullopt);
  EXPECT_EQ(narrow_lookup(kName), std::nullopt);
  EXPECT_FALSE(CFIsVariableDefinedW(wide(kName).c_str()));
  EXPECT_FALSE(CFIsVariableDefined(narrow(kName).c_str()));
}

TEST(Getenv, ANullNameGivesNull) {
  EXPECT_EQ(CFGetenvW(nullptr), nullptr);
  EXPECT_EQ(CFGetenv(nullptr), nullptr);
  EXPECT_FALSE(CFIsVariableDefinedW(nullptr));
  EXPECT_FALSE(CFIsVariableDefined(nullptr));
}

TEST(Getenv, AnEmptyNameGivesNull) {
  EXPECT_EQ(wide_lookup(U""), std::nullopt);
  EXPECT_EQ(narrow_lookup(U""), std::nullopt);
}

TEST(Getenv, NamesMayHaveAnyCharacters) {
  for (const Alphabet& alphabet : alphabets()) {
    const std::u32string name = std::u32string(kName) + U"_" + alphabet.text(20);
    if (name.find_first_of(U"=\0") != name.npos) continue;
    const ScopedVariable variable(name, U"found");
    EXPECT_EQ(wide_lookup(name), wide(U"found")) << alphabet.name;
    EXPECT_EQ(narrow_lookup(name), "found") << alphabet.name;
  }
}

TEST(Getenv, NamesMayBeLong) {
  for (const int length : {62, 63, 64, 65, 127, 128, 255, 256, 257, 511, 512, 513, 5000}) {
    const std::u32string name(static_cast<std::size_t>(length), U'N');
    const ScopedVariable variable(name, U"found");
    EXPECT_EQ(wide_lookup(name), wide(U"found")) << length;
    EXPECT_EQ(narrow_lookup(name), "found") << length;
    EXPECT_EQ(narrow_lookup(name + U"N"), std::nullopt) << length;
  }
}

TEST(Getenv, AChangeIsSeenByTheNextLookup) {
  const ScopedVariable variable(kName, U"one");
  EXPECT_EQ(wide_lookup(kName), wide(U"one"));
  set_variable(kName, U"two");
  EXPECT_EQ(wide_lookup(kName), wide(U"two"));
  remove_variable(kName);
  EXPECT_EQ(wide_lookup(kName), std::nullopt);
}

TEST(Getenv, EachValueIsABlockOfItsOwn) {
  const ScopedVariable variable(kName, U"value");
  CPWChar* const first = CFGetenvW(wide(kName).c_str());
  CPWChar* const second = CFGetenvW(wide(kName).c_str());
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  EXPECT_NE(first, second);
  first[0] = 'x';
  EXPECT_EQ(WideText(second), wide(U"value"));
  CFReleaseValue(first);
  CFReleaseValue(second);
}

TEST(ReleaseValue, IgnoresNull) {
  CFReleaseValue(nullptr);
}

TEST(GetenvWide, LeavesNothingAllocated) {
  const long before = platform::capi_blocks_out();
  const ScopedVariable variable(kName, std::u32string(100, U'v'));
  wide_lookup(kName);
  wide_lookup(U"CORVANE_TEST_NOT_DEFINED");
  CFIsVariableDefinedW(wide(kName).c_str());
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(GetenvNarrow, EachSuccessLeavesItsWideValueAllocated) {
  const long before = platform::capi_blocks_out();
  const ScopedVariable variable(kName, U"value");
  narrow_lookup(kName);
  EXPECT_EQ(platform::capi_blocks_out(), before + 1);
  CFIsVariableDefined(narrow(kName).c_str());
  EXPECT_EQ(platform::capi_blocks_out(), before + 2);
}

TEST(GetenvNarrow, ALookupWithoutSuccessLeavesNothingAllocated) {
  const long before = platform::capi_blocks_out();
  narrow_lookup(U"CORVANE_TEST_NOT_DEFINED");
  CFIsVariableDefined("CORVANE_TEST_NOT_DEFINED");
  CFGetenv(nullptr);
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

// Lets the first, the second, ... allocation fail until none does; what was null leaves nothing behind.
template <class Lookup>
int failures_until_success(Lookup lookup) {
  for (int successes = 0;; ++successes) {
    const long before = platform::capi_blocks_out();
    platform::capi_fail_after(successes);
    void* const value = lookup();
    platform::capi_fail_after(-1);
    if (value != nullptr) {
      CFReleaseValue(value);
      return successes;
    }
    EXPECT_EQ(platform::capi_blocks_out(), before) << successes;
  }
}

TEST(Getenv, ExhaustedMemoryGivesNullAndLeaksNothing) {
  const ScopedVariable variable(kName, std::u32string(100, U'v'));
  const WideText wide_name = wide(kName);
  const std::string narrow_name = narrow(kName);
  const int wide_requests = failures_until_success([&] { return CFGetenvW(wide_name.c_str()); });
  EXPECT_GE(wide_requests, 2);  // the first room and the grown one
  const int narrow_requests = failures_until_success([&] { return CFGetenv(narrow_name.c_str()); });
  EXPECT_EQ(narrow_requests, wide_requests + 2);  // the name and the result
}

TEST(Getenv, RandomValuesComeWholeInBothForms) {
  for (int i = 0; i < scaled(2000); ++i) {
    const std::uint64_t seed = case_seed(0xCF, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string name = std::u32string(kName) + random_text(random, random.below(80));
    const std::u32string value = random_text(random, random.between(1, 300));
    const ScopedVariable variable(name, value);
    ASSERT_EQ(wide_lookup(name), wide(value));
    ASSERT_EQ(narrow_lookup(name), narrow(value));
  }
}

TEST(Getenv, FourThreadsMayLookUpAtOnce) {
  const std::u32string value(200, U'v');
  const ScopedVariable variable(kName, value);
  std::vector<int> right(4, 0);
  std::vector<std::thread> threads;
  for (int& count : right) {
    threads.emplace_back([&count, &value] {
      for (int i = 0; i < 500; ++i)
        count += wide_lookup(kName) == wide(value) && narrow_lookup(kName) == narrow(value);
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(right, std::vector<int>(4, 500));
}

}  // namespace
}  // namespace Corvane::Print::tests
