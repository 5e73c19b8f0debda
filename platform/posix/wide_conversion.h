// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The conversions in a format of 16-bit text, as the runtime of Windows writes them, and the output that they
// go to. For wide_format.cpp alone.
#ifndef CORVANE_PRINT_PLATFORM_POSIX_WIDE_CONVERSION_H
#define CORVANE_PRINT_PLATFORM_POSIX_WIDE_CONVERSION_H

#include <cstdarg>

#include "corvane/print/types.h"

namespace Corvane::Print::platform {

// Widths and precisions beyond it, which no room of this library reaches, count as that.
inline constexpr int kLargest = 8191;

// Counts characters, and writes those for which there is room.
class Output {
public:
  Output(CPWChar* out, int capacity) : out_(out), capacity_(capacity) {}

  void put(CPWChar unit) {
    if (count_ < capacity_) out_[count_] = unit;
    if (count_ <= capacity_) ++count_;
  }

  void fill(CPWChar unit, int times) {
    for (; times > 0 && !is_over(); --times) put(unit);
  }

  bool is_over() const { return count_ > capacity_; }

  int end() {
    if (count_ < capacity_) out_[count_] = 0;
    return is_over() ? -1 : count_;
  }

private:
  CPWChar* out_;
  int capacity_;
  int count_ = 0;  // stops at one beyond the capacity
};

// The caller's list, which helpers advance together.
struct Arguments {
  va_list list;
};

enum class Size { kNone, kShort, kLong, kLongLong, kInt32, kPointer, kMax, kLongDouble, kWide };

struct Conversion {
  bool left = false;
  bool plus = false;
  bool space = false;
  bool alternate = false;
  bool zero = false;
  int width = 0;
  int precision = -1;  // none given
  Size size = Size::kNone;
  CPWChar type = 0;
};

// What follows a % at `at`, with the stars that it takes from the arguments. Returns where the format goes
// on; the type is 0, and that is the terminator, when the format ends before it.
const CPWChar* take_conversion(const CPWChar* at, Arguments& arguments, Conversion& conversion);

}  // namespace Corvane::Print::platform

#endif
