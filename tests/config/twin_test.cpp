// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The adaptors, each with every null rule, lengths at and around both capacities, and characters of every
// size.
#include "config/twin.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/config/texts.h"
#include "tests/platform/system_seam.h"
#include "tests/support/guarded.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

namespace twin = config::twin;

// Calls check(text, description) for every length of every alphabet.
template <class Check>
void for_all_texts(Check check) {
  for (const Alphabet& alphabet : alphabets()) {
    for (const int length : kLengths) {
      SCOPED_TRACE(testing::Message() << length << " characters, " << alphabet.name);
      check(alphabet.text(length));
    }
  }
}

// What 256 wide characters hold of a text, and what 512 bytes hold of that.
std::u32string kept_wide(const std::u32string& text) {
  return cut_to_units(text, 255);
}
std::u32string kept_narrow(const std::u32string& text) {
  return cut_to_bytes(kept_wide(text), 511);
}

WideText received(const CPWChar* text) {
  return WideText(text);
}

// As a wide function writes it: at most 255 characters and a terminator.
void write(CPWChar* out, const WideText& text) {
  const std::size_t count = std::min<std::size_t>(text.size(), 255);
  text.copy(out, count);
  out[count] = 0;
}

TEST(TwinCapacities, AreThoseOfTheConvention) {
  EXPECT_EQ(twin::kWideCapacity, 256);
  EXPECT_EQ(twin::kNarrowCapacity, 512);
}

TEST(TwinIn, ConvertsAndCutsAt255Characters) {
  for_all_texts([](const std::u32string& text) {
    EXPECT_EQ(received(twin::in(narrow(text).c_str())), wide(kept_wide(text)));
    EXPECT_EQ(received(twin::in_or_empty(narrow(text).c_str())), wide(kept_wide(text)));
    EXPECT_EQ(received(twin::in_or_null(narrow(text).c_str())), wide(kept_wide(text)));
  });
}

TEST(TwinIn, NullFollowsTheAdaptorsName) {
  // The second round finds on the stack what the first one left there.
  for (const char* const text : {"text", static_cast<const char*>(nullptr)}) {
    const WideText expected = text != nullptr ? wide(U"text") : WideText();
    EXPECT_EQ(received(twin::in(text)), expected);
    EXPECT_EQ(received(twin::in_or_empty(text)), expected);
  }
  EXPECT_EQ(static_cast<const CPWChar*>(twin::in_or_null(nullptr)), nullptr);
}

TEST(TwinIn, SeveralStandBesideEachOther) {
  const auto join = [](const CPWChar* a, const CPWChar* b, const CPWChar* c) {
    return WideText(a) + WideText(b) + (c == nullptr ? wide(U"-") : WideText(c));
  };
  EXPECT_EQ(join(twin::in("one"), twin::in_or_empty(nullptr), twin::in_or_null(nullptr)), wide(U"one-"));
  EXPECT_EQ(join(twin::in("one"), twin::in_or_empty("two"), twin::in_or_null("three")), wide(U"onetwothree"));
}

template <class Adaptor>
void check_writes_back(Adaptor adaptor) {
  for_all_texts([adaptor](const std::u32string& text) {
    Guarded<char> result(twin::kNarrowCapacity);
    result.data()[0] = '\0';
    write(adaptor(result.data()), wide(kept_wide(text)));
    EXPECT_EQ(std::string(result.data()), narrow(kept_narrow(text)));
    EXPECT_TRUE(result.intact());
  });
}

TEST(TwinOut, WritesBackAtMost511Bytes) {
  check_writes_back([](char* narrow) { return twin::out(narrow); });
  check_writes_back([](char* narrow) { return twin::out_opt(narrow); });
  check_writes_back([](char* narrow) { return twin::inout(narrow); });
}

TEST(TwinOut, WritesNoMoreThanTheTextAndItsTerminator) {
  Guarded<char> result(twin::kNarrowCapacity);
  write(twin::out(result.data()), wide(U"abc"));
  EXPECT_STREQ(result.data(), "abc");
  EXPECT_TRUE(result.untouched_from(4));
}

TEST(TwinOut, TheResultIsThereWhenTheExpressionEndsAndNotBefore) {
  char result[twin::kNarrowCapacity] = "before";
  const auto wide_function = [&result](CPWChar* out) {
    write(out, wide(U"after"));
    return result[0] == 'b' ? 7 : 0;
  };
  const auto narrow_twin = [&wide_function](char* out) { return wide_function(twin::out(out)); };
  EXPECT_EQ(narrow_twin(result), 7);
  EXPECT_STREQ(result, "after");
}

TEST(TwinOut, AnUntouchedBufferIsEmptyText) {
  // The second round finds on the stack what the first one left there.
  for (const bool touched : {true, false}) {
    char result[twin::kNarrowCapacity] = "before";
    const auto write_or_not = [touched](CPWChar* out) {
      if (touched) write(out, wide(U"written"));
    };
    write_or_not(twin::out(result));
    EXPECT_STREQ(result, touched ? "written" : "");
  }
}

TEST(TwinOut, AnUnterminatedBufferIsCutAt255Characters) {
  Guarded<char> result(twin::kNarrowCapacity);
  const auto fill = [](CPWChar* out) { std::fill_n(out, 256, CPWChar('x')); };
  fill(twin::out(result.data()));
  EXPECT_EQ(std::string(result.data()), std::string(255, 'x'));
  EXPECT_TRUE(result.intact());
}

TEST(TwinOut, HalfAPairAtTheEndDoesNotOverrunTheRoom) {
  Guarded<char> result(twin::kNarrowCapacity);
  const auto fill = [](CPWChar* out) { std::fill_n(out, 256, CPWChar(0xD83D)); };
  fill(twin::out(result.data()));
  EXPECT_TRUE(result.intact());
  EXPECT_LT(std::string(result.data()).size(), 512u);
}

TEST(TwinOut, NullGivesASpareBufferOfFullSize) {
  bool called = false;
  const auto fill = [&called](CPWChar* out) {
    ASSERT_NE(out, nullptr);
    std::fill_n(out, 256, CPWChar('x'));
    called = true;
  };
  fill(twin::out(nullptr));
  EXPECT_TRUE(called);
}

TEST(TwinOut, NullReachesTheWideFunctionWhereItIsAllowed) {
  EXPECT_EQ(static_cast<CPWChar*>(twin::out_opt(nullptr)), nullptr);
  EXPECT_EQ(static_cast<CPWChar*>(twin::inout(nullptr)), nullptr);
}

TEST(TwinInOut, ShowsTheTextAndWritesItBack) {
  for_all_texts([](const std::u32string& text) {
    const std::string before = narrow(text);
    Guarded<char> buffer(std::max(twin::kNarrowCapacity, static_cast<int>(before.size()) + 1));
    std::copy_n(before.c_str(), before.size() + 1, buffer.data());
    const auto look = [&text](CPWChar* both) { EXPECT_EQ(WideText(both), wide(kept_wide(text))); };
    look(twin::inout(buffer.data()));
    EXPECT_EQ(std::string(buffer.data()), narrow(kept_narrow(text)));
    EXPECT_TRUE(buffer.intact());
  });
}

TEST(TwinInOut, ShowsWhatTheWideFunctionChanged) {
  char buffer[twin::kNarrowCapacity] = "abc";
  const auto append = [](CPWChar* both) { write(both, WideText(both) + wide(U"\\")); };
  append(twin::inout(buffer));
  append(twin::inout(buffer));
  EXPECT_STREQ(buffer, "abc\\\\");
}

TEST(Twin, OneBufferMayBeInputAndOutput) {
  char buffer[twin::kNarrowCapacity] = "abc";
  const auto twice = [](const CPWChar* text, CPWChar* out) {
    const WideText once(text);
    write(out, once + once);
    EXPECT_EQ(WideText(text), once);
  };
  twice(twin::in(buffer), twin::out(buffer));
  EXPECT_STREQ(buffer, "abcabc");
}

TEST(Twin, FixedAdaptorsDoNotUseTheHeap) {
  char buffer[twin::kNarrowCapacity] = "abc";
  const std::string long_text(5000, 'x');
  const auto copy = [](const CPWChar* text, CPWChar* out, CPWChar*) { write(out, text); };
  platform::capi_fail_after(0);
  copy(twin::in(long_text.c_str()), twin::out(buffer), twin::out_opt(nullptr));
  EXPECT_EQ(platform::capi_fail_after(-1), 0);
  EXPECT_EQ(std::string(buffer), std::string(255, 'x'));
}

TEST(TwinSizedIn, ConvertsTextsOfAnyLength) {
  const long before = platform::capi_blocks_out();
  for_all_texts([](const std::u32string& text) {
    EXPECT_EQ(received(twin::sized_in(narrow(text).c_str())), wide(text));
  });
  EXPECT_EQ(platform::capi_blocks_out(), before);
}

TEST(TwinSizedIn, NullAndExhaustedMemoryGiveNull) {
  EXPECT_EQ(static_cast<const CPWChar*>(twin::sized_in(nullptr)), nullptr);
  platform::capi_fail_after(0);
  EXPECT_EQ(static_cast<const CPWChar*>(twin::sized_in("abc")), nullptr);
  EXPECT_EQ(platform::capi_fail_after(-1), 1);
}

TEST(TwinSizedOut, ConvertsTextsOfAnyLength) {
  for_all_texts([](const std::u32string& text) {
    char* const block = twin::sized_out(wide(text).c_str());
    ASSERT_NE(block, nullptr);
    EXPECT_EQ(std::string(block), narrow(text));
    platform::capi_free(block);
  });
}

TEST(TwinSizedOut, NullAndExhaustedMemoryGiveNull) {
  EXPECT_EQ(twin::sized_out(nullptr), nullptr);
  platform::capi_fail_after(0);
  EXPECT_EQ(twin::sized_out(wide(U"abc").c_str()), nullptr);
  platform::capi_fail_after(-1);
}

TEST(Twin, RandomTextsPassThroughInAndOut) {
  for (int i = 0; i < scaled(5000); ++i) {
    const std::uint64_t seed = case_seed(0x7319, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    const std::u32string text = random_text(random, random.below(600));
    Guarded<char> result(twin::kNarrowCapacity);
    const auto copy = [](const CPWChar* in, CPWChar* out) { write(out, in); };
    copy(twin::in(narrow(text).c_str()), twin::out(result.data()));
    ASSERT_EQ(std::string(result.data()), narrow(kept_narrow(text)));
    ASSERT_TRUE(result.intact());
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
