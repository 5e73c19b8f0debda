// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// PE, the encoded polyline: numbers in base 64 (or base 32, for lines that carry 7 bits), least digit first,
// the last digit of each taken from a second alphabet, the lowest bit being the sign. Between them, single
// characters lift the pen, select it, make the next pair absolute, or set the number of fractional bits.
#include <cmath>

#include "plotclip/hpgl_interpreter.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr unsigned char kFirstDigit = 63;
constexpr unsigned char kFirstLastDigit64 = 191;
constexpr unsigned char kFirstLastDigit32 = 95;
constexpr int kLargestFraction = 30;  // bits

bool is_blank(unsigned char c) {
  return c <= ' ';
}

}  // namespace

void HpglInterpreter::encoded() {
  unsigned base = 64;
  bool absolute = false;
  bool up = false;
  double unit = 1.0;
  while (!lexer_.at_end() && lexer_.peek() != ';') {
    const unsigned char c = lexer_.peek();
    if (is_blank(c) || c == '<' || c == '=' || c == '7' || c == ':' || c == '>') lexer_.take("");
    if (is_blank(c)) continue;
    if (c == '<') {
      up = true;
    } else if (c == '=') {
      absolute = true;
    } else if (c == '7') {
      base = 32;
    } else if (c == ':') {
      set_pen({encoded_number(base)});
    } else if (c == '>') {
      const double bits = encoded_number(base);
      want(std::abs(bits) <= kLargestFraction, "PE with at most 30 fractional bits");
      unit = std::ldexp(1.0, -static_cast<int>(bits));
    } else {
      const double x = encoded_number(base);
      const double y = encoded_number(base);
      encoded_point(x * unit, y * unit, absolute, up);
      absolute = up = false;
    }
  }
}

double HpglInterpreter::encoded_number(unsigned base) {
  const unsigned char last = base == 64 ? kFirstLastDigit64 : kFirstLastDigit32;
  double sum = 0.0;
  double weight = 1.0;
  bool negative = false;
  for (bool first = true;; first = false) {
    const std::size_t offset = lexer_.offset();
    const unsigned char c = lexer_.take("a digit of an encoded number");
    if (is_blank(c) && !first) continue;
    const bool ends = c >= last && c < last + base;
    if (!ends && (c < kFirstDigit || c >= kFirstDigit + base))
      lexer_.fail(offset, "a digit of an encoded number");
    const unsigned digit = static_cast<unsigned>(c - (ends ? last : kFirstDigit));
    if (first) negative = (digit & 1U) != 0;
    // The sign's bit is dropped by halving; digits beyond the largest number no longer count.
    sum += (first ? digit >> 1 : digit) * weight;
    weight *= first ? base / 2.0 : base;
    if (sum > kLargestNumber) sum = kLargestNumber;
    if (weight > kLargestNumber) weight = kLargestNumber;
    if (ends) break;
  }
  return negative ? -sum : sum;
}

void HpglInterpreter::encoded_point(double x, double y, bool absolute, bool up) {
  lower(!up);
  go_to(place(x, y, !absolute));
}

}  // namespace Corvane::Print::plotclip
