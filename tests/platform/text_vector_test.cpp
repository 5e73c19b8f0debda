// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Each step over groups against its plain loop, on random texts that fill their blocks to the last unit.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/text_vector.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

constexpr int kCases = 200000;
constexpr int kLongest = 70;

template <class Unit>
using Units = std::vector<Unit>;

// Mostly ASCII with some backslashes; now and then something beyond, or a zero.
template <class Unit>
Units<Unit> random_units(Random& random) {
  Units<Unit> units(static_cast<std::size_t>(random.below(kLongest)));
  const int rarity = random.between(1, 80);
  for (Unit& unit : units) {
    unit = static_cast<Unit>(random.one_in(6) ? '\\' : random.below(0x80));
    if (random.one_in(rarity)) unit = static_cast<Unit>(random.below(0x10000));
  }
  return units;
}

TEST(TextVector, ALengthIsThatOfThePlainLoopWhereverTheTextLies) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(0x7E06, i));
    auto text = random_units<CPWChar>(random);
    text.push_back(0);
    const CPWChar* const from = text.data() + random.below(static_cast<int>(text.size()));
    ASSERT_EQ(platform::length_of(from), platform::length_of_plain(from)) << "case " << i;
  }
  if (platform::kWatched) return;
  // Hosts have texts at odd addresses too.
  alignas(CPWChar) char bytes[64] = {};
  for (int i = 1; i < 41; ++i) bytes[i] = 'x';
  const auto* const odd = reinterpret_cast<const CPWChar*>(bytes + 1);
  EXPECT_EQ(platform::length_of(odd), 20u);
}

TEST(TextVector, AUnitIsFoundWhereThePlainLoopFindsIt) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(0x7E01, i));
    const auto text = random_units<CPWChar>(random);
    const auto wanted = static_cast<CPWChar>(random.one_in(2) ? '\\' : random.below(0x10000));
    ASSERT_EQ(platform::find_unit(text.data(), text.size(), wanted),
              platform::find_unit_plain(text.data(), text.size(), wanted))
        << "case " << i;
  }
}

TEST(TextVector, UnitsAreCopied) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(0x7E05, i));
    const auto text = random_units<CPWChar>(random);
    Units<CPWChar> copy(text.size());
    platform::copy_units(text.data(), text.size(), copy.data());
    ASSERT_EQ(copy, text) << "case " << i;
  }
}

template <class From, class To>
void expect_same_copies(int seed) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(seed, i));
    const auto text = random_units<From>(random);
    Units<To> fast(text.size()), plain(text.size());
    const std::size_t copied = platform::copy_ascii(text.data(), text.size(), fast.data());
    ASSERT_EQ(copied, platform::copy_ascii_plain(text.data(), text.size(), plain.data())) << "case " << i;
    fast.resize(copied);
    plain.resize(copied);
    ASSERT_EQ(fast, plain) << "case " << i;
  }
}

TEST(TextVector, UnitsBecomeTheBytesOfThePlainLoop) {
  expect_same_copies<CPWChar, char>(0x7E02);
}

TEST(TextVector, BytesBecomeTheUnitsOfThePlainLoop) {
  expect_same_copies<char, CPWChar>(0x7E03);
}

TEST(TextVector, TextIsAsciiWhereThePlainLoopSaysSo) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(0x7E07, i));
    const auto text = random_units<char>(random);
    ASSERT_EQ(platform::is_ascii(text.data(), text.size()),
              platform::is_ascii_plain(text.data(), text.size()))
        << "case " << i;
  }
}

TEST(TextVector, BytesAreReplacedOnTheWayAsByThePlainLoop) {
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(0x7E04, i));
    const auto text = random_units<CPWChar>(random);
    Units<char> fast(text.size()), plain(text.size());
    const std::size_t copied = platform::copy_ascii(text.data(), text.size(), fast.data(), '\\', '/');
    ASSERT_EQ(copied, platform::copy_ascii_plain(text.data(), text.size(), plain.data(), '\\', '/'));
    ASSERT_EQ(Units<char>(fast.begin(), fast.begin() + static_cast<std::ptrdiff_t>(copied)),
              Units<char>(plain.begin(), plain.begin() + static_cast<std::ptrdiff_t>(copied)))
        << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
