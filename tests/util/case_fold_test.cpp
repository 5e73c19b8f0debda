// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include <clocale>

#include "tests/util/str_support.h"
#include "util/case_fold.h"

namespace Corvane::Print::tests {
namespace {

// What is told about each character, with and without asking the locale about it.
void expect_the_locales_small_letters(const char* locale) {
  const util::Lowering lowered;
  for (char32_t c = 0; c <= 0x10100; ++c)
    ASSERT_EQ(lowered(c), util::lower(c)) << locale << ": " << static_cast<unsigned>(c);
  for (char32_t c = 0; lowered.is_plain(c); ++c) {
    for (char32_t other = 0; lowered.is_plain(other); ++other) {
      ASSERT_EQ(other == c || other == lowered.partner(c), lowered(other) == lowered(c))
          << locale << ": " << static_cast<unsigned>(c) << " and " << static_cast<unsigned>(other);
    }
  }
}

TEST(Lowering, IsThatOfTheLocale) {
  const ScopedLocale restored("C");
  expect_the_locales_small_letters("C");
  // Those of the languages that know two letters I, and others, as far as they are there.
  for (const char* const name :
       {text_locale(), "tr_TR.UTF-8", "az_AZ.UTF-8", "tr_TR.ISO-8859-9", "de_DE.UTF-8", "lt_LT.UTF-8",
        "Turkish_Turkey.1254", "German_Germany.1252"}) {
    if (std::setlocale(LC_CTYPE, name) != nullptr) expect_the_locales_small_letters(name);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
