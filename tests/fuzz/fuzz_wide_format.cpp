// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Any flags, width, precision, size and type of one conversion, with an argument of the right type. The
// result in little room must be the beginning of the one in much room, and nothing may be written behind
// either.
//
// The input: a byte for the room, the argument's bytes (8), the length of the conversion and its bytes, and
// the rest is the text that %s or %S reads.
#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>

#include "platform/platform.h"

namespace {

using namespace Corvane::Print;

using WideText = std::basic_string<CPWChar>;

constexpr int kMuch = 20000;

void require(bool good) {
  if (!good) std::abort();
}

int format_into(CPWChar* out, int capacity, const CPWChar* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = platform::format_wide(out, capacity, format, arguments);
  va_end(arguments);
  return result;
}

struct Argument {
  std::uint64_t bits;
  const char* narrow;
  const CPWChar* wide;
};

// The conversion has no star, and its sizes are those in front of its type.
int format_with(CPWChar* out, int capacity, const WideText& format, const std::string& size, char type,
                const Argument& argument) {
  const CPWChar* const text = format.c_str();
  const bool wide_size = size == "l" || size == "w";
  const bool large =
      size == "l" || size == "ll" || size == "I64" || size == "I" || size == "j" || size == "z";
  double real;
  std::memcpy(&real, &argument.bits, sizeof real);
  switch (type) {
    case 's':
      if (size == "h") return format_into(out, capacity, text, argument.narrow);
      return format_into(out, capacity, text, argument.wide);
    case 'S':
      if (wide_size) return format_into(out, capacity, text, argument.wide);
      return format_into(out, capacity, text, argument.narrow);
    case 'e':
    case 'f':
    case 'g':
    case 'a':
      if (size == "L") return format_into(out, capacity, text, static_cast<long double>(real));
      return format_into(out, capacity, text, real);
    case 'p':
      return format_into(out, capacity, text, reinterpret_cast<void*>(argument.bits));
    case 'c':
    case 'C':
      return format_into(out, capacity, text, static_cast<int>(argument.bits));
    default:
      if (large) return format_into(out, capacity, text, argument.bits);
      return format_into(out, capacity, text, static_cast<int>(argument.bits));
  }
}

// Flags, digits and a point from the bytes, then a size and a type that the last two choose.
struct Conversion {
  std::string text;
  std::string size;
  char type;

  explicit Conversion(const std::string& bytes) {
    static constexpr const char* kSizes[] = {"", "h", "l", "ll", "I64", "I32", "I", "j", "z", "L", "w"};
    for (std::size_t i = 2; i < bytes.size(); ++i)
      text += "-+ 0#.123456789"[static_cast<unsigned char>(bytes[i]) % 15];
    size = kSizes[bytes.empty() ? 0 : static_cast<unsigned char>(bytes[0]) % 11];
    type = "sScCdiuxXofegap%"[bytes.size() < 2 ? 0 : static_cast<unsigned char>(bytes[1]) % 16];
  }
};

class Input {
public:
  Input(const std::uint8_t* data, std::size_t size) : data_(data), left_(size) {}

  std::uint8_t byte() {
    if (left_ == 0) return 0;
    --left_;
    return *data_++;
  }

  std::string bytes(std::size_t most) {
    std::string result;
    while (left_ > 0 && result.size() < most) result += static_cast<char>(byte());
    return result;
  }

private:
  const std::uint8_t* data_;
  std::size_t left_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Input input(data, size);
  const int little = 1 + input.byte();
  Argument argument = {0, nullptr, nullptr};
  for (int i = 0; i < 8; ++i) argument.bits = argument.bits << 8 | input.byte();
  const std::size_t length = input.byte() % 24;
  const Conversion conversion(input.bytes(length));

  // The texts end exactly where their blocks do.
  const std::string rest = input.bytes(4000);
  const auto narrow = std::make_unique<char[]>(rest.size() + 1);
  std::memcpy(narrow.get(), rest.c_str(), rest.size() + 1);
  const auto wide = std::make_unique<CPWChar[]>(rest.size() / 2 + 1);
  std::memcpy(wide.get(), rest.data(), rest.size() / 2 * 2);
  argument.narrow = narrow.get();
  argument.wide = wide.get();

  const std::string format = "<%" + conversion.text + conversion.size + conversion.type + ">";
  const WideText wide_format(format.begin(), format.end());
  const auto much_room = std::make_unique<CPWChar[]>(kMuch);
  const int all =
      format_with(much_room.get(), kMuch, wide_format, conversion.size, conversion.type, argument);
  require(all >= 1 && all < kMuch && much_room[0] == '<' && much_room[static_cast<std::size_t>(all)] == 0);

  const auto room = std::make_unique<CPWChar[]>(static_cast<std::size_t>(little));
  const int part = format_with(room.get(), little, wide_format, conversion.size, conversion.type, argument);
  require(part == (all <= little ? all : -1));
  const std::size_t written = static_cast<std::size_t>(all <= little ? all : little);
  require(std::memcmp(room.get(), much_room.get(), written * sizeof(CPWChar)) == 0);
  return 0;
}
