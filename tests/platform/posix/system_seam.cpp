// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// UTF-8 and setenv.
#include "tests/platform/system_seam.h"

#include <cstdlib>
#include <stdexcept>

namespace Corvane::Print::tests {
namespace {

void append_utf8(std::string& text, char32_t c) {
  const auto tail = [&](unsigned shift) { text += static_cast<char>(0x80 + (c >> shift) % 64); };
  if (c < 128) {
    text += static_cast<char>(c);
  } else if (c < 2048) {
    text += static_cast<char>(0xC0 + c / 64);
    tail(0);
  } else if (c < 65536) {
    text += static_cast<char>(0xE0 + c / 4096);
    tail(6);
    tail(0);
  } else {
    text += static_cast<char>(0xF0 + c / 262144);
    tail(12);
    tail(6);
    tail(0);
  }
}

}  // namespace

std::string narrow(std::u32string_view code_points) {
  std::string text;
  for (const char32_t c : code_points) append_utf8(text, c);
  return text;
}

bool narrow_has(char32_t c) {
  return c < 0xD800 || (c > 0xDFFF && c < 0x110000);
}

bool narrow_is_utf8() {
  return true;
}

const std::vector<ExceptionKind>& exception_kinds() {
  static const std::vector<ExceptionKind> kinds = {
      {"a standard exception", [] { throw std::runtime_error("on purpose"); }},
      {"an int", [] { throw 42; }},
  };
  return kinds;
}

void set_variable(std::u32string_view name, std::u32string_view value) {
  setenv(narrow(name).c_str(), narrow(value).c_str(), 1);
}

void remove_variable(std::u32string_view name) {
  unsetenv(narrow(name).c_str());
}

}  // namespace Corvane::Print::tests
