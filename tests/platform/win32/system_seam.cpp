// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Code page 1252 where it is the ANSI code page, else ASCII, and SetEnvironmentVariableW.
#include "tests/platform/system_seam.h"

#include <windows.h>

#include <stdexcept>

namespace Corvane::Print::tests {
namespace {

// The address is hidden, or the compiler would replace the access by something of its own.
[[gnu::noinline]] void write_to(volatile int* address) {
  *address = 1;
}

void cause_access_violation() {
  int* volatile nowhere = nullptr;
  write_to(nowhere);
}

}  // namespace

// From A0 to FF the code page agrees with Unicode.
std::string narrow(std::u32string_view code_points) {
  std::string text;
  for (const char32_t c : code_points) text += static_cast<char>(c);
  return text;
}

bool narrow_has(char32_t c) {
  return c < 0x80 || (c >= 0xA0 && c <= 0xFF && GetACP() == 1252);
}

bool narrow_is_utf8() {
  return false;
}

void set_variable(std::u32string_view name, std::u32string_view value) {
  SetEnvironmentVariableW(wide(name).c_str(), wide(value).c_str());
}

void remove_variable(std::u32string_view name) {
  SetEnvironmentVariableW(wide(name).c_str(), nullptr);
}

const std::vector<ExceptionKind>& exception_kinds() {
  static const std::vector<ExceptionKind> kinds = {
      {"a standard exception", [] { throw std::runtime_error("on purpose"); }},
      {"an int", [] { throw 42; }},
      {"another compiler's exception",
       [] { RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 0, nullptr); }},
      {"a late binding without its module", [] { RaiseException(0xC06D007E, 0, 0, nullptr); }},
      {"a late binding without its procedure", [] { RaiseException(0xC06D007F, 0, 0, nullptr); }},
      {"an access violation", cause_access_violation},
  };
  return kinds;
}

}  // namespace Corvane::Print::tests
