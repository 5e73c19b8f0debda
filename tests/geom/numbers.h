// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Random numbers that are hard to compare: on a grid, so that ties are common; off the grid by the points'
// tolerance, give or take a few units in the last place; of any size; and now and then none at all.
#ifndef CORVANE_PRINT_TESTS_GEOM_NUMBERS_H
#define CORVANE_PRINT_TESTS_GEOM_NUMBERS_H

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "tests/clip/bits.h"
#include "tests/support/random.h"

namespace Corvane::Print::tests {

using Doubles = std::vector<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

inline bool same_bits(const Doubles& a, const Doubles& b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!same_bits(a[i], b[i])) return false;
  }
  return true;
}

inline double any_finite(Random& random) {
  for (;;) {
    const auto number = std::bit_cast<double>(random.next());
    if (std::isfinite(number)) return number;
  }
}

inline double special_number(Random& random) {
  constexpr double kSpecial[] = {kNaN,       0.0,          -0.0,          kInfinity,
                                 -kInfinity, 0x1p-1074,    -0x1p-1022,    1e-6,
                                 -1e-6,      2147483647.5, -2147483648.5, 1.7976931348623157e308};
  return kSpecial[random.below(static_cast<int>(std::size(kSpecial)))];
}

// 1e-6 and its neighbours, of either sign.
inline double near_tolerance(Random& random) {
  const auto bits = std::bit_cast<std::uint64_t>(1e-6);
  const auto off = static_cast<std::uint64_t>(random.below(9)) - 4;
  const auto size = std::bit_cast<double>(bits + off);
  return random.one_in(2) ? size : -size;
}

inline double grid_number(Random& random) {
  const int number = random.between(-3, 3);
  return number == 0 && random.one_in(3) ? -0.0 : number;
}

// The numbers of one case are of one kind, or a few hard ones would settle every case.
class Numbers {
public:
  explicit Numbers(Random& random) : random_(random), kind_(random.below(6)) {}

  double next() {
    switch (kind_) {
      case 0:
        return grid_number(random_);
      case 1:
        return random_.one_in(3) ? grid_number(random_) : near_tolerance(random_);
      case 2:
        return grid_number(random_) + (random_.one_in(3) ? near_tolerance(random_) : 0.0);
      case 3:
        return random_.between(-1000.0, 1000.0);
      case 4:
        return random_.one_in(8) ? special_number(random_) : grid_number(random_);
      default:
        return random_.one_in(4) ? special_number(random_) : any_finite(random_);
    }
  }

  Doubles next(int count) {
    Doubles numbers;
    for (int i = 0; i < count; ++i) numbers.push_back(next());
    return numbers;
  }

private:
  Random& random_;
  int kind_;
};

}  // namespace Corvane::Print::tests

#endif
