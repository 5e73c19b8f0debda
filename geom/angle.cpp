// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The angle is reduced to a rest of at most pi/4 and a number of quarter turns, by integer arithmetic over as
// many bits of 2/pi as an angle of its size needs. The rest's series are summed with twice the bits of a
// double. Only exact integers and the four operations on doubles take part, in a fixed order.
#include "geom/angle.h"

#include <cmath>
#include <cstdint>
#include <limits>

namespace Corvane::Print::geom {
namespace {

// Pairs of doubles
// ------------------------------------------------------------------------------------------------

// A number as the sum of two doubles, the second at most half a unit in the last place of the first.
struct Pair {
  double high, low;
};

// a + b exactly, for |a| >= |b|.
Pair ordered_sum(double a, double b) {
  const double high = a + b;
  return {high, b - (high - a)};
}

// a + b exactly.
Pair exact_sum(double a, double b) {
  const double high = a + b, part = high - a;
  return {high, (a - (high - part)) + (b - part)};
}

// The upper and the lower half of a double's bits.
Pair halves(double a) {
  const double scaled = a * 134217729.0;  // 2^27 + 1
  const double upper = scaled - (scaled - a);
  return {upper, a - upper};
}

// a * b exactly, barring underflow.
Pair exact_product(double a, double b) {
  const double high = a * b;
  const Pair x = halves(a), y = halves(b);
  return {high, ((x.high * y.high - high) + x.high * y.low + x.low * y.high) + x.low * y.low};
}

Pair operator+(Pair a, Pair b) {
  const Pair sum = exact_sum(a.high, b.high), rest = exact_sum(a.low, b.low);
  const Pair once = ordered_sum(sum.high, sum.low + rest.high);
  return ordered_sum(once.high, once.low + rest.low);
}

Pair operator*(Pair a, Pair b) {
  const Pair product = exact_product(a.high, b.high);
  return ordered_sum(product.high, product.low + (a.high * b.low + a.low * b.high));
}

Pair operator/(Pair a, double b) {
  const double quotient = a.high / b;
  const Pair back = exact_product(quotient, b);
  return ordered_sum(quotient, ((a.high - back.high) - back.low + a.low) / b);
}

Pair operator-(Pair a) {
  return {-a.high, -a.low};
}

// Reduction
// ----------------------------------------------------------------------------------------------------

// The bits of 2/pi behind the binary point, in groups of 32: as many as the largest double needs.
constexpr std::uint32_t kTwoOverPi[] = {
    0xa2f9836eu, 0x4e441529u, 0xfc2757d1u, 0xf534ddc0u, 0xdb629599u, 0x3c439041u, 0xfe5163abu, 0xdebbc561u,
    0xb7246e3au, 0x424dd2e0u, 0x06492eeau, 0x09d1921cu, 0xfe1deb1cu, 0xb129a73eu, 0xe88235f5u, 0x2ebb4484u,
    0xe99c7026u, 0xb45f7e41u, 0x3991d639u, 0x835339f4u, 0x9c845f8bu, 0xbdf9283bu, 0x1ff897ffu, 0xde05980fu,
    0xef2f118bu, 0x5a0a6d1fu, 0x6d367ecfu, 0x27cb09b7u, 0x4f463f66u, 0x9e5fea2du, 0x7527bac7u, 0xebe5f17bu,
    0x3d0739f7u, 0x8a5292eau, 0x6bfb5fb1u, 0x1f8d5d08u, 0x56033046u, 0xfc7b6babu, 0xf0cfbc20u, 0x9af4361du};

constexpr Pair kHalfPi = {0x1.921fb54442d18p+0, 0x1.1a62633145c07p-54};

constexpr int kDigits = 7;  // groups of 2/pi that take part
constexpr int kProductDigits = kDigits + 2;

// A number of kProductDigits groups of 32 bits, the lowest first.
struct Digits {
  std::uint32_t digit[kProductDigits];

  // `count` bits from bit `first` on, at most 32; bits beyond either end are 0.
  std::uint32_t bits(int first, int count) const {
    std::uint32_t found = 0;
    for (int i = count - 1; i >= 0; --i) {
      const int bit = first + i;
      const bool there = bit >= 0 && bit < 32 * kProductDigits;
      found = found << 1 | (there ? digit[bit / 32] >> (bit % 32) & 1u : 0u);
    }
    return found;
  }

  void negate() {
    std::uint64_t carry = 1;
    for (std::uint32_t& d : digit) {
      carry += static_cast<std::uint32_t>(~d);
      d = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
  }

  // The highest bit below `limit` that is set; -1 for none.
  int highest_bit(int limit) const {
    int bit = limit - 1;
    while (bit >= 0 && bits(bit, 1) == 0) --bit;
    return bit;
  }
};

// 32 bits of 2/pi behind the first `skipped` ones.
std::uint32_t bits_of_two_over_pi(int skipped) {
  const int group = skipped / 32, shift = skipped % 32;
  if (shift == 0) return kTwoOverPi[group];
  return kTwoOverPi[group] << shift | kTwoOverPi[group + 1] >> (32 - shift);
}

// mantissa times the 32 * kDigits bits of 2/pi behind the first `skipped` ones, as an integer.
Digits times_two_over_pi(std::uint64_t mantissa, int skipped) {
  Digits product = {};
  for (int part = 0; part < 2; ++part) {
    const std::uint64_t factor = static_cast<std::uint32_t>(mantissa >> (32 * part));
    std::uint64_t carry = 0;
    for (int i = 0; i < kDigits; ++i) {
      const std::uint64_t digit = bits_of_two_over_pi(skipped + 32 * (kDigits - 1 - i));
      carry += product.digit[i + part] + factor * digit;
      product.digit[i + part] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    product.digit[kDigits + part] = static_cast<std::uint32_t>(carry);
  }
  return product;
}

// The 53 bits below bit `end`, as the number that they are behind a binary point at bit `point`.
double fraction_bits(const Digits& digits, int end, int point) {
  const double upper = std::ldexp(digits.bits(end - 26, 26), end - 26 - point);
  const double lower = std::ldexp(digits.bits(end - 53, 27), end - 53 - point);
  return upper + lower;
}

struct Reduced {
  int quarter_turns;  // 0 to 3
  Pair rest;          // at most pi/4
};

// angle > 0, finite. The product's bits that stand for whole turns are left out of it from the start.
Reduced reduce(double angle) {
  int exponent = 0;
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(angle, &exponent), 53));
  exponent -= 53;
  const int skipped = exponent > 2 ? exponent - 2 : 0;
  Digits product = times_two_over_pi(mantissa, skipped);
  const int point = 32 * kDigits - exponent + skipped;
  int turns = static_cast<int>(product.bits(point, 2));
  const bool past_middle = product.bits(point - 1, 1) == 1;
  if (past_middle) {
    ++turns;
    product.negate();
  }
  const int end = product.highest_bit(point) + 1;
  const Pair fraction = {fraction_bits(product, end, point), fraction_bits(product, end - 53, point)};
  const Pair rest = fraction * kHalfPi;
  return {turns % 4, past_middle ? -rest : rest};
}

// Series
// -------------------------------------------------------------------------------------------------------

// first - first*x2/((n+1)(n+2)) + ..., up to terms that no longer count: the sine's with first = x and n = 1,
// the cosine's with first = 1 and n = 0.
Pair alternating_series(Pair first, Pair x2, int n) {
  constexpr int kTerms = 16;
  Pair terms[kTerms] = {first};
  for (int i = 1; i < kTerms; ++i) {
    terms[i] = -(terms[i - 1] * x2 / ((n + 2.0 * i - 1.0) * (n + 2.0 * i)));
  }
  Pair sum = terms[kTerms - 1];
  for (int i = kTerms - 2; i >= 0; --i) sum = terms[i] + sum;
  return sum;
}

SinCos of_positive(double angle) {
  // The next term of either series is beyond the last bit.
  if (angle < 0x1p-27) return {angle, 1.0};
  const Reduced reduced = reduce(angle);
  const Pair x2 = reduced.rest * reduced.rest;
  const double sine = alternating_series(reduced.rest, x2, 1).high;
  const double cosine = alternating_series({1.0, 0.0}, x2, 0).high;
  switch (reduced.quarter_turns) {
    case 0:
      return {sine, cosine};
    case 1:
      return {cosine, -sine};
    case 2:
      return {-sine, -cosine};
    default:
      return {-cosine, sine};
  }
}

}  // namespace

SinCos sin_cos(double angle) {
  if (!std::isfinite(angle)) {
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    return {kNone, kNone};
  }
  const SinCos found = of_positive(std::fabs(angle));
  return {std::signbit(angle) ? -found.sin : found.sin, found.cos};
}

}  // namespace Corvane::Print::geom
