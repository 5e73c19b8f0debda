// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Numbers from 0 to 2^32 with a fixed, large number of bits behind the binary point, on 32-bit digits: slow,
// and plain enough to be trusted.
#ifndef CORVANE_PRINT_TESTS_GEOM_FIXED_POINT_H
#define CORVANE_PRINT_TESTS_GEOM_FIXED_POINT_H

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace Corvane::Print::tests {

// kFraction digits behind the point and one in front of it; the lowest first.
template <std::size_t kFraction>
struct Fixed {
  std::array<std::uint32_t, kFraction + 1> digit{};

  static Fixed whole(std::uint32_t number) {
    Fixed result;
    result.digit[kFraction] = number;
    return result;
  }

  // The highest digits of a longer number.
  template <std::size_t kLonger>
  static Fixed cut(const Fixed<kLonger>& longer) {
    Fixed result;
    for (std::size_t i = 0; i <= kFraction; ++i) result.digit[i] = longer.digit[i + kLonger - kFraction];
    return result;
  }

  bool is_zero() const { return *this == Fixed{}; }

  // `bit` 0 is worth 1, 1 is worth a half.
  void set_bit(std::size_t bit) {
    const std::size_t at = 32 * kFraction - bit;
    digit[at / 32] |= std::uint32_t{1} << (at % 32);
  }

  double approximation() const {
    double result = 0;
    for (std::size_t i = 0; i <= kFraction; ++i) {
      result += std::ldexp(digit[i], 32 * (static_cast<int>(i) - static_cast<int>(kFraction)));
    }
    return result;
  }

  friend bool operator==(const Fixed&, const Fixed&) = default;
  friend bool operator<(const Fixed& a, const Fixed& b) {
    for (std::size_t i = kFraction + 1; i-- > 0;) {
      if (a.digit[i] != b.digit[i]) return a.digit[i] < b.digit[i];
    }
    return false;
  }

  friend Fixed operator+(const Fixed& a, const Fixed& b) {
    Fixed sum;
    std::uint64_t carry = 0;
    for (std::size_t i = 0; i <= kFraction; ++i) {
      carry += std::uint64_t{a.digit[i]} + b.digit[i];
      sum.digit[i] = static_cast<std::uint32_t>(carry);
      carry >>= 32;
    }
    return sum;
  }

  // a >= b.
  friend Fixed operator-(const Fixed& a, const Fixed& b) {
    Fixed difference;
    std::uint64_t borrow = 0;
    for (std::size_t i = 0; i <= kFraction; ++i) {
      const std::uint64_t result = std::uint64_t{a.digit[i]} - b.digit[i] - borrow;
      difference.digit[i] = static_cast<std::uint32_t>(result);
      borrow = result >> 63;
    }
    return difference;
  }

  friend Fixed operator*(const Fixed& a, const Fixed& b) {
    std::array<std::uint32_t, 2 * kFraction + 2> product{};
    for (std::size_t i = 0; i <= kFraction; ++i) {
      std::uint64_t carry = 0;
      for (std::size_t k = 0; k <= kFraction; ++k) {
        carry += product[i + k] + std::uint64_t{a.digit[i]} * b.digit[k];
        product[i + k] = static_cast<std::uint32_t>(carry);
        carry >>= 32;
      }
      product[i + kFraction + 1] = static_cast<std::uint32_t>(carry);
    }
    Fixed result;
    for (std::size_t i = 0; i <= kFraction; ++i) result.digit[i] = product[i + kFraction];
    return result;
  }

  friend Fixed operator/(const Fixed& a, std::uint32_t b) {
    Fixed quotient;
    std::uint64_t rest = 0;
    for (std::size_t i = kFraction + 1; i-- > 0;) {
      rest = rest << 32 | a.digit[i];
      quotient.digit[i] = static_cast<std::uint32_t>(rest / b);
      rest %= b;
    }
    return quotient;
  }
};

template <std::size_t kFraction>
Fixed<kFraction> distance(const Fixed<kFraction>& a, const Fixed<kFraction>& b) {
  return a < b ? b - a : a - b;
}

// pi/2 by the arc tangents of 1/5 and 1/239; the last digit is not exact.
template <std::size_t kFraction>
Fixed<kFraction> half_pi() {
  const auto arc_tangent = [](std::uint32_t inverse) {
    Fixed<kFraction> power = Fixed<kFraction>::whole(1) / inverse, added, subtracted;
    for (std::uint32_t n = 1; !power.is_zero(); n += 2) {
      Fixed<kFraction>& sum = n % 4 == 1 ? added : subtracted;
      sum = sum + power / n;
      power = power / (inverse * inverse);
    }
    return added - subtracted;
  };
  const Fixed<kFraction> fifth = arc_tangent(5), far = arc_tangent(239);
  const Fixed<kFraction> two = fifth + fifth, four = two + two;
  return four + four - (far + far);
}

}  // namespace Corvane::Print::tests

#endif
