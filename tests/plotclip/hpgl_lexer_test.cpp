// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Numbers and steps of the lexer, below the level of drawings.
#include "plotclip/hpgl_lexer.h"

#include <gtest/gtest.h>

#include <string_view>

namespace Corvane::Print::plotclip {
namespace {

Bytes bytes_of(std::string_view text) {
  return {reinterpret_cast<const unsigned char*>(text.data()), text.size()};
}

std::vector<double> numbers_of(std::string_view text) {
  HpglLexer lexer(bytes_of(text));
  EXPECT_EQ(lexer.next(), mnemonic('X', 'Y'));
  return lexer.numbers();
}

TEST(HpglLexer, ReadsNumbersInEveryForm) {
  EXPECT_EQ(numbers_of("XY1,-2.5;"), (std::vector<double>{1, -2.5}));
  EXPECT_EQ(numbers_of("xy .5 +7. -.25\r\n3"), (std::vector<double>{0.5, 7, -0.25, 3}));
  EXPECT_EQ(numbers_of("XY10-5+3;"), (std::vector<double>{10, -5, 3}));
  EXPECT_EQ(numbers_of("XY1e3,2E-1"), (std::vector<double>{1000, 0.2}));
  EXPECT_TRUE(numbers_of("XY;").empty());
}

TEST(HpglLexer, AnInstructionAfterANumberIsNoExponent) {
  const std::string_view text = "XY5EA1,2;";
  HpglLexer lexer(bytes_of(text));
  lexer.next();
  EXPECT_EQ(lexer.numbers(), (std::vector<double>{5}));
  EXPECT_EQ(lexer.next(), mnemonic('E', 'A'));
  EXPECT_EQ(lexer.instruction_offset(), 3U);
}

TEST(HpglLexer, BoundsNumbersBeyondItsRange) {
  EXPECT_EQ(numbers_of("XY1e400,-1e30,0.5e-999"), (std::vector<double>{kLargestNumber, -kLargestNumber, 0}));
}

TEST(HpglLexer, EndsAtTheEndOfAnyEscapeSequence) {
  for (const std::string_view text :
       {"\x1b", "\x1b.", "\x1b.@1;2", "\x1b%", "\x1b%-1", "\x1b*b99999999999999999999W", "\x1b%-12345X@PJL",
        "\x1b%0Aabc", "\x1b&l0O"}) {
    HpglLexer lexer(bytes_of(text));
    EXPECT_EQ(lexer.next(), 0U) << text;
    EXPECT_TRUE(lexer.at_end());
  }
}

TEST(HpglLexer, TextsEndWithTheirTerminatorOnly) {
  const std::string_view text = "LBa;b\x03PU";
  HpglLexer lexer(bytes_of(text));
  lexer.next();
  lexer.skip_text(3);
  EXPECT_EQ(lexer.next(), mnemonic('P', 'U'));
}

}  // namespace
}  // namespace Corvane::Print::plotclip
