// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Reads a conversion: flags, width, precision, size, type.
#include "platform/posix/wide_conversion.h"

#include <algorithm>

namespace Corvane::Print::platform {
namespace {

const CPWChar* take_flags(const CPWChar* at, Conversion& conversion) {
  for (;; ++at) {
    switch (*at) {
      case '-':
        conversion.left = true;
        break;
      case '+':
        conversion.plus = true;
        break;
      case ' ':
        conversion.space = true;
        break;
      case '#':
        conversion.alternate = true;
        break;
      case '0':
        conversion.zero = true;
        break;
      default:
        return at;
    }
  }
}

// Digits or a star. No digits are 0.
const CPWChar* take_number(const CPWChar* at, Arguments& arguments, int& number) {
  if (*at == '*') {
    number = std::clamp(va_arg(arguments.list, int), -kLargest, kLargest);
    return at + 1;
  }
  for (number = 0; *at >= '0' && *at <= '9'; ++at) number = std::min(kLargest, number * 10 + (*at - '0'));
  return at;
}

const CPWChar* take_size(const CPWChar* at, Size& size) {
  const auto followed_by = [at](const char* digits) { return at[1] == digits[0] && at[2] == digits[1]; };
  switch (*at) {
    case 'h':
      size = Size::kShort;
      return at + (at[1] == 'h' ? 2 : 1);
    case 'l':
      size = at[1] == 'l' ? Size::kLongLong : Size::kLong;
      return at + (at[1] == 'l' ? 2 : 1);
    case 'I':
      size = followed_by("64") ? Size::kLongLong : followed_by("32") ? Size::kInt32 : Size::kPointer;
      return at + (size == Size::kPointer ? 1 : 3);
    case 'z':
    case 't':
      size = Size::kPointer;
      return at + 1;
    case 'j':
      size = Size::kMax;
      return at + 1;
    case 'L':
      size = Size::kLongDouble;
      return at + 1;
    case 'w':
      size = Size::kWide;
      return at + 1;
    default:
      return at;
  }
}

}  // namespace

const CPWChar* take_conversion(const CPWChar* at, Arguments& arguments, Conversion& conversion) {
  at = take_number(take_flags(at, conversion), arguments, conversion.width);
  if (conversion.width < 0) {
    conversion.left = true;
    conversion.width = -conversion.width;
  }
  if (*at == '.') at = take_number(at + 1, arguments, conversion.precision);
  at = take_size(at, conversion.size);
  conversion.type = *at;
  return *at != 0 ? at + 1 : at;
}

}  // namespace Corvane::Print::platform
