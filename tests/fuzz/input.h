// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Turns the fuzzer's bytes into arguments. Each input chooses one kind of number for all of its coordinates,
// so that the fuzzer can dwell on raw bit patterns (NaN, infinities, denormals, huge values) as well as on
// values that make shapes. When the bytes run out, everything is 0.
#ifndef CORVANE_PRINT_TESTS_FUZZ_INPUT_H
#define CORVANE_PRINT_TESTS_FUZZ_INPUT_H

#include "corvane/print/cl.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

namespace Corvane::Print::tests {

class FuzzInput {
public:
  FuzzInput(const std::uint8_t* data, std::size_t size) : data_(data), left_(size), numbers_(byte() % 5) {}

  int byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  // low .. high, both within a byte's reach of each other.
  int between(int low, int high) { return low + byte() % (high - low + 1); }

  double number() {
    switch (numbers_) {
      case 0:
        return raw();
      case 1:
        return static_cast<std::int8_t>(byte());
      case 2:
        return 100.0 * (byte() % 8);
      case 3:
        return fine();
      default:
        return mixed();
    }
  }

  std::vector<double> numbers(int count) {
    std::vector<double> all;
    for (int i = 0; i < count; ++i) all.push_back(number());
    return all;
  }

private:
  double raw() {
    std::uint64_t bits = 0;
    for (int i = 0; i < 8; ++i) bits = bits << 8 | static_cast<std::uint64_t>(byte());
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
  }

  // Near the engine's tolerances: hundredths and a few hundred-thousandths beside them.
  double fine() {
    const int first = byte(), second = byte();
    return (first - 128) * 0.25 + static_cast<std::int8_t>(second) * 1e-5;
  }

  // Mostly small integers, with every sort of troublemaker among them.
  double mixed() {
    static constexpr double kOdd[] = {CL_BREAK, -CL_BREAK, 1e300, -1e300, 1e155, 5e-324, -0.0, 1e-12};
    const int first = byte();
    if (first < 224) return first % 64 * 10;
    return first < 240 ? kOdd[first % 8] : raw();
  }

  const std::uint8_t* data_;
  std::size_t left_;
  int numbers_;
};

}  // namespace Corvane::Print::tests

#endif
