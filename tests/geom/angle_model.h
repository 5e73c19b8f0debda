// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Sine and cosine in fixed point: the angle is brought below pi/2 by doubling and subtracting, bit by bit,
// and the series are summed with 256 bits.
#ifndef CORVANE_PRINT_TESTS_GEOM_ANGLE_MODEL_H
#define CORVANE_PRINT_TESTS_GEOM_ANGLE_MODEL_H

#include "tests/geom/fixed_point.h"

namespace Corvane::Print::tests::model {

// The largest double has 971 bits behind its mantissa, each of which doubles the error of pi/2; the smallest
// has its last bit at 1074. What a rest near 0 loses is in the remaining bits.
using Long = Fixed<42>;
using Short = Fixed<8>;

struct Part {
  bool negative;
  Short size;
};

struct ExactTurn {
  Part sine, cosine;
};

// The rest below pi/2 of what was read of an angle so far, and the quarter turns that were taken out of it.
struct Rest {
  Long value{};
  unsigned quarter_turns = 0;

  void take_out() {
    static const Long quarter = half_pi<42>();
    while (!(value < quarter)) {
      value = value - quarter;
      ++quarter_turns;
    }
  }
  void double_it() {
    value = value + value;
    quarter_turns *= 2;
    take_out();
  }
};

// angle >= 0, finite.
inline Rest rest_of(double angle) {
  int exponent = 0;
  const double fraction = std::frexp(angle, &exponent);
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(fraction, 53));
  Rest rest;
  Long behind_point;
  for (int bit = 52; bit >= 0; --bit) {
    const bool set = (mantissa >> bit & 1) != 0;
    const int worth = bit + exponent - 53;  // the power of 2
    if (worth >= 0) {
      rest.double_it();
      if (set) rest.value = rest.value + Long::whole(1);
      rest.take_out();
    } else if (set) {
      behind_point.set_bit(static_cast<std::size_t>(-worth));
    }
  }
  rest.value = rest.value + behind_point;
  rest.take_out();
  for (int i = 0; i < exponent - 53; ++i) rest.double_it();
  return rest;
}

// first - first*x2/((n+1)(n+2)) + ... until nothing is left of the terms.
inline Short series(Short first, const Short& x2, std::uint32_t n) {
  Short added, subtracted, term = first;
  for (std::uint32_t i = 0; !term.is_zero(); ++i) {
    Short& sum = i % 2 == 0 ? added : subtracted;
    sum = sum + term;
    term = term * x2 / ((n + 2 * i + 1) * (n + 2 * i + 2));
  }
  return added < subtracted ? Short{} : added - subtracted;
}

inline ExactTurn exact_turn(double angle) {
  const bool backwards = std::signbit(angle);
  const Rest rest = rest_of(std::fabs(angle));
  const Short x = Short::cut(rest.value), x2 = x * x;
  const Short sine = series(x, x2, 1), cosine = series(Short::whole(1), x2, 0);
  const unsigned quarter = rest.quarter_turns % 4;
  const bool swapped = quarter % 2 == 1;
  return {{backwards != (quarter >= 2), swapped ? cosine : sine},
          {quarter == 1 || quarter == 2, swapped ? sine : cosine}};
}

// A positive double as a fixed-point number; what lies beyond the last bit is lost.
inline Short exactly(double number) {
  int exponent = 0;
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(number, &exponent), 53));
  Short result;
  for (int bit = 52; bit >= 0; --bit) {
    const int behind = 53 - exponent - bit;
    if ((mantissa >> bit & 1) != 0 && behind <= 256) result.set_bit(static_cast<std::size_t>(behind));
  }
  return result;
}

// By how many units in its last place a found number is off. Below a power of 2 the units are smaller.
inline double error_in_last_place(double found, const Part& exact) {
  if (std::signbit(found) != exact.negative) return HUGE_VAL;
  const double size = std::fabs(found);
  const Short found_size = exactly(size);
  const double unit =
      exact.size < found_size ? size - std::nextafter(size, 0.0) : std::nextafter(size, 2.0) - size;
  return distance(found_size, exact.size).approximation() / unit;
}

}  // namespace Corvane::Print::tests::model

#endif
