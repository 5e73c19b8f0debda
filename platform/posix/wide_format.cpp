// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Formatting of 16-bit text as the runtime of Windows does it. Numbers are turned into digits by the narrow
// runtime, without a width; padding and texts are laid out here. Nothing is allocated.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "platform/platform.h"
#include "platform/posix/wide_conversion.h"

namespace Corvane::Print::platform {
namespace {

// Digits of the largest number, a precision of kLargest, signs and prefix.
constexpr std::size_t kBodyRoom = 4944 + kLargest + 16;

// ---- Texts ----

// A field of `length` characters, which `write` puts into the output.
template <class Write>
void put_field(Output& output, const Conversion& conversion, int length, Write write) {
  const int padding = conversion.width - length;
  if (!conversion.left) output.fill(conversion.zero ? '0' : ' ', padding);
  write();
  if (conversion.left) output.fill(' ', padding);
}

void put_wide(Output& output, const Conversion& conversion, const CPWChar* text, int length) {
  put_field(output, conversion, length, [&] {
    for (int i = 0; i < length; ++i) output.put(text[i]);
  });
}

bool continues(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Hands the units of narrow text to `take`, converted character by character, so that a text of any length
// needs no room.
template <class Take>
void each_unit(const char* text, std::size_t length, Take take) {
  for (std::size_t at = 0; at < length;) {
    int bytes = 1;
    while (bytes < 4 && at + static_cast<std::size_t>(bytes) < length &&
           continues(text[at + static_cast<std::size_t>(bytes)]))
      ++bytes;
    CPWChar units[8];
    const int count = wide_from_narrow(text + at, bytes, units, 8);
    for (int i = 0; i < count; ++i) take(units[i]);
    at += static_cast<std::size_t>(bytes);
  }
}

// The length without a character that the end cuts.
std::size_t whole_characters(const char* text, std::size_t length) {
  std::size_t first = length;
  while (first > 0 && length - first < 3 && continues(text[first - 1])) --first;
  if (first == 0) return length;
  const auto lead = static_cast<unsigned char>(text[first - 1]);
  const std::size_t bytes = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
  return length - (first - 1) < bytes ? first - 1 : length;
}

void put_narrow(Output& output, const Conversion& conversion, const char* text, std::size_t length) {
  int units = 0;
  each_unit(text, length, [&](CPWChar) { units += units <= kLargest ? 1 : 0; });
  put_field(output, conversion, units,
            [&] { each_unit(text, length, [&](CPWChar unit) { output.put(unit); }); });
}

void put_wide_text(Output& output, const Conversion& conversion, const CPWChar* text) {
  if (text == nullptr) text = u"(null)";
  int length = 0;
  const int limit = conversion.precision >= 0 ? conversion.precision : kLargest;
  while (length < limit && text[length] != 0) ++length;
  put_wide(output, conversion, text, length);
}

// A precision counts bytes, so that a text which is not terminated is not read beyond it.
void put_narrow_text(Output& output, const Conversion& conversion, const char* text) {
  if (text == nullptr) text = "(null)";
  std::size_t length;
  if (conversion.precision >= 0) {
    const auto limit = static_cast<std::size_t>(conversion.precision);
    length = strnlen(text, limit);
    if (length == limit) length = whole_characters(text, length);
  } else {
    length = std::strlen(text);
  }
  put_narrow(output, conversion, text, length);
}

// ---- Numbers ----

std::intmax_t take_signed(Size size, Arguments& arguments) {
  switch (size) {
    case Size::kShort:
      return static_cast<short>(va_arg(arguments.list, int));
    case Size::kLong:
      return va_arg(arguments.list, long);
    case Size::kLongLong:
      return va_arg(arguments.list, long long);
    case Size::kPointer:
      return va_arg(arguments.list, std::ptrdiff_t);
    case Size::kMax:
      return va_arg(arguments.list, std::intmax_t);
    default:
      return va_arg(arguments.list, int);
  }
}

std::uintmax_t take_unsigned(Size size, Arguments& arguments) {
  switch (size) {
    case Size::kShort:
      return static_cast<unsigned short>(va_arg(arguments.list, unsigned));
    case Size::kLong:
      return va_arg(arguments.list, unsigned long);
    case Size::kLongLong:
      return va_arg(arguments.list, unsigned long long);
    case Size::kPointer:
      return va_arg(arguments.list, std::size_t);
    case Size::kMax:
      return va_arg(arguments.list, std::uintmax_t);
    default:
      return va_arg(arguments.list, unsigned);
  }
}

// A format of the narrow runtime: %, the flags that make characters, then ".*" with a precision, the size and
// the type.
struct NarrowFormat {
  char text[16];

  NarrowFormat(const Conversion& conversion, const char* size) {
    std::snprintf(text, sizeof text, "%%%s%s%s%s%s%c", conversion.plus ? "+" : "",
                  conversion.space ? " " : "", conversion.alternate ? "#" : "",
                  conversion.precision >= 0 ? ".*" : "", size, static_cast<char>(conversion.type));
  }
};

template <class Number>
void print(char (&body)[kBodyRoom], const Conversion& conversion, const char* size, Number number) {
  const NarrowFormat format(conversion, size);
  if (conversion.precision >= 0) {
    std::snprintf(body, kBodyRoom, format.text, conversion.precision, number);
  } else {
    std::snprintf(body, kBodyRoom, format.text, number);
  }
}

// The sign and the 0x of a number: what stays in front of zeros that fill it up.
std::size_t prefix_length(const char* body) {
  std::size_t length = 0;
  if (body[0] == '-' || body[0] == '+' || body[0] == ' ') ++length;
  if (body[length] == '0' && (body[length + 1] == 'x' || body[length + 1] == 'X')) length += 2;
  return length;
}

void put_number(Output& output, const Conversion& conversion, const char* body, bool zeros) {
  const std::size_t length = std::strlen(body);
  Conversion field = conversion;
  field.zero = false;
  if (!zeros || !conversion.zero || conversion.left) return put_narrow(output, field, body, length);
  const std::size_t prefix = prefix_length(body);
  field.width = static_cast<int>(prefix);
  put_narrow(output, field, body, prefix);
  field.width = conversion.width - static_cast<int>(prefix);
  field.zero = true;
  put_narrow(output, field, body + prefix, length - prefix);
}

void put_integer(Output& output, const Conversion& conversion, Arguments& arguments) {
  char body[kBodyRoom];
  if (conversion.type == 'd' || conversion.type == 'i') {
    print(body, conversion, "j", take_signed(conversion.size, arguments));
  } else {
    // Signs are for signed numbers.
    Conversion plain = conversion;
    plain.plus = plain.space = false;
    print(body, plain, "j", take_unsigned(conversion.size, arguments));
  }
  put_number(output, conversion, body, conversion.precision < 0);
}

void put_pointer(Output& output, const Conversion& conversion, Arguments& arguments) {
  Conversion digits = conversion;
  digits.plus = digits.space = false;
  digits.type = 'X';
  digits.precision = 2 * sizeof(void*);
  char body[kBodyRoom];
  print(body, digits, "j",
        static_cast<std::uintmax_t>(reinterpret_cast<std::uintptr_t>(va_arg(arguments.list, void*))));
  put_number(output, digits, body, false);
}

// 1e+05 -> 1e+005.
void widen_exponent(char (&body)[kBodyRoom]) {
  char* const exponent = std::strpbrk(body, "eE");
  if (exponent == nullptr) return;
  const std::size_t digits = std::strspn(exponent + 2, "0123456789");
  if (digits != 2) return;
  std::memmove(exponent + 3, exponent + 2, std::strlen(exponent + 2) + 1);
  exponent[2] = '0';
}

void put_real(Output& output, const Conversion& conversion, Arguments& arguments) {
  char body[kBodyRoom];
  if (conversion.size == Size::kLongDouble) {
    print(body, conversion, "L", va_arg(arguments.list, long double));
  } else {
    print(body, conversion, "", va_arg(arguments.list, double));
  }
  const char first = body[std::strspn(body, "-+ ")];
  const bool finite = first >= '0' && first <= '9';
  if (finite && conversion.type != 'a' && conversion.type != 'A') widen_exponent(body);
  put_number(output, conversion, body, finite);
}

// ---- One conversion ----

void put_character(Output& output, const Conversion& conversion, bool narrow, Arguments& arguments) {
  const int character = va_arg(arguments.list, int);
  if (narrow) {
    const char byte = static_cast<char>(character);
    put_narrow(output, conversion, &byte, 1);
  } else {
    const CPWChar unit = static_cast<CPWChar>(character);
    put_wide(output, conversion, &unit, 1);
  }
}

void put_text(Output& output, const Conversion& conversion, bool narrow, Arguments& arguments) {
  if (narrow) {
    put_narrow_text(output, conversion, va_arg(arguments.list, const char*));
  } else {
    put_wide_text(output, conversion, va_arg(arguments.list, const CPWChar*));
  }
}

void put_conversion(Output& output, const Conversion& conversion, Arguments& arguments) {
  const bool said_narrow = conversion.size == Size::kShort;
  const bool said_wide = conversion.size == Size::kLong || conversion.size == Size::kWide;
  switch (conversion.type) {
    case 0:
      return;
    case 's':
      return put_text(output, conversion, said_narrow, arguments);
    case 'S':
      return put_text(output, conversion, !said_wide, arguments);
    case 'c':
      return put_character(output, conversion, said_narrow, arguments);
    case 'C':
      return put_character(output, conversion, !said_wide, arguments);
    case 'd':
    case 'i':
    case 'u':
    case 'o':
    case 'x':
    case 'X':
      return put_integer(output, conversion, arguments);
    case 'p':
      return put_pointer(output, conversion, arguments);
    case 'e':
    case 'E':
    case 'f':
    case 'F':
    case 'g':
    case 'G':
    case 'a':
    case 'A':
      return put_real(output, conversion, arguments);
    default:
      output.put(conversion.type);
  }
}

}  // namespace

int format_wide(CPWChar* out, int capacity, const CPWChar* format, va_list arguments) {
  Output output(out, capacity);
  Arguments all;
  va_copy(all.list, arguments);
  while (*format != 0 && !output.is_over()) {
    if (*format != '%') {
      output.put(*format++);
      continue;
    }
    Conversion conversion;
    format = take_conversion(format + 1, all, conversion);
    put_conversion(output, conversion, all);
  }
  va_end(all.list);
  return output.end();
}

}  // namespace Corvane::Print::platform
