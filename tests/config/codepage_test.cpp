// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include "config/codepage.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/capi_memory.h"
#include "tests/config/texts.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

WideText widen_cut_at(const std::string& text, int capacity) {
  Guarded<CPWChar> out(capacity);
  config::widen_cut(text.c_str(), out.data(), capacity);
  EXPECT_TRUE(out.intact());
  return WideText(out.data());
}

std::string narrow_cut_at(const WideText& text, int capacity) {
  Guarded<char> out(capacity);
  config::narrow_cut(text.data(), static_cast<int>(text.size()), out.data(), capacity);
  EXPECT_TRUE(out.intact());
  return std::string(out.data());
}

TEST(WidenCut, EveryCapacityKeepsTheWholeCharactersThatFit) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : {0, 1, 2, 7, 300}) {
      const std::u32string text = alphabet.text(length);
      for (const int capacity : {1, 2, 3, 4, 5, 6, 7, 8, 9, 100, 254, 255, 256}) {
        EXPECT_EQ(widen_cut_at(narrow(text), capacity), wide(cut_to_units(text, capacity - 1)))
            << alphabet.name << ' ' << length << ' ' << capacity;
      }
    }
  }
}

TEST(NarrowCut, EveryCapacityKeepsTheWholeCharactersThatFit) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : {0, 1, 2, 7, 300}) {
      const std::u32string text = alphabet.text(length);
      for (const int capacity : {1, 2, 3, 4, 5, 6, 7, 8, 9, 100, 510, 511, 512, 513, 1200}) {
        EXPECT_EQ(narrow_cut_at(wide(text), capacity), narrow(cut_to_bytes(text, capacity - 1)))
            << alphabet.name << ' ' << length << ' ' << capacity;
      }
    }
  }
}

TEST(Cuts, RandomTextsAreCutBehindTheLastCharacterThatFits) {
  for (int i = 0; i < scaled(20000); ++i) {
    const std::uint64_t seed = case_seed(0xC0DE, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string text = random_text(random, random.below(400));
    const int wide_capacity = random.between(1, config::kWidenCutLimit);
    const int narrow_capacity = random.between(1, 600);
    ASSERT_EQ(widen_cut_at(narrow(text), wide_capacity), wide(cut_to_units(text, wide_capacity - 1)));
    ASSERT_EQ(narrow_cut_at(wide(text), narrow_capacity), narrow(cut_to_bytes(text, narrow_capacity - 1)));
  }
}

TEST(WidenCut, ArbitraryBytesEndTerminatedAndWithinTheRoom) {
  for (int i = 0; i < scaled(20000); ++i) {
    const std::uint64_t seed = case_seed(0xBAD, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    std::string bytes(static_cast<std::size_t>(random.below(1500)), ' ');
    for (char& byte : bytes) byte = static_cast<char>(random.between(1, 255));
    const int capacity = random.between(1, config::kWidenCutLimit);
    // The cut text begins the whole one.
    CPWChar* const whole = config::widened_block(bytes.c_str());
    ASSERT_NE(whole, nullptr);
    const WideText cut = widen_cut_at(bytes, capacity);
    ASSERT_EQ(WideText(whole).substr(0, cut.size()), cut);
    ASSERT_GE(static_cast<int>(cut.size()), std::min(capacity - 2, static_cast<int>(WideText(whole).size())));
    platform::capi_free(whole);
  }
}

TEST(Blocks, HoldTextsOfAnyLength) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : kLengths) {
      const std::u32string text = alphabet.text(length);
      CPWChar* const units = config::widened_block(narrow(text).c_str());
      ASSERT_NE(units, nullptr);
      EXPECT_EQ(WideText(units), wide(text)) << alphabet.name << ' ' << length;
      EXPECT_EQ(config::wide_length(units), wide(text).size());
      char* const bytes = config::narrowed_block(units);
      ASSERT_NE(bytes, nullptr);
      EXPECT_EQ(std::string(bytes), narrow(text)) << alphabet.name << ' ' << length;
      platform::capi_free(units);
      platform::capi_free(bytes);
    }
  }
}

TEST(Blocks, HaveTheAgreedSizes) {
  // The sizes are written to from end to end; a checked heap sees a block that is smaller.
  char* const bytes = config::narrowed_block(wide(U"abc").c_str());
  ASSERT_NE(bytes, nullptr);
  for (int i = 0; i < 8; ++i) bytes[i] = 'x';
  platform::capi_free(bytes);
  CPWChar* const units = config::widened_block("abc");
  ASSERT_NE(units, nullptr);
  for (int i = 0; i < 4; ++i) units[i] = 'x';
  platform::capi_free(units);
}

TEST(Blocks, NullAndExhaustedMemoryGiveNull) {
  EXPECT_EQ(config::widened_block(nullptr), nullptr);
  EXPECT_EQ(config::narrowed_block(nullptr), nullptr);
  platform::capi_fail_after(0);
  EXPECT_EQ(config::widened_block("a"), nullptr);
  EXPECT_EQ(config::narrowed_block(wide(U"a").c_str()), nullptr);
  platform::capi_fail_after(-1);
}

}  // namespace
}  // namespace Corvane::Print::tests
