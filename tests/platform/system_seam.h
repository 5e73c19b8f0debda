// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the tests need of the operating system, and texts. Expected narrow texts are encoded here, in the
// tests, and not by the conversions that are tested.
#ifndef CORVANE_PRINT_TESTS_PLATFORM_SYSTEM_SEAM_H
#define CORVANE_PRINT_TESTS_PLATFORM_SYSTEM_SEAM_H

#include <string>
#include <string_view>
#include <vector>

#include "corvane/print/types.h"

namespace Corvane::Print::tests {

using WideText = std::basic_string<CPWChar>;

// Code points as wide text. Half a surrogate pair stays what it is.
inline WideText wide(std::u32string_view code_points) {
  WideText text;
  for (const char32_t c : code_points) {
    if (c >= 65536) text += static_cast<CPWChar>(0xD800 + (c - 65536) / 1024);
    text += static_cast<CPWChar>(c < 65536 ? c : 0xDC00 + (c - 65536) % 1024);
  }
  return text;
}

// Code points as narrow text. Only those that narrow_has() knows.
std::string narrow(std::u32string_view code_points);
bool narrow_has(char32_t code_point);

// False where characters take one byte each.
bool narrow_is_utf8();

// The process environment. Changes reach the library's lookups.
void set_variable(std::u32string_view name, std::u32string_view value);
void remove_variable(std::u32string_view name);

// Sets a variable for the life of the object.
class ScopedVariable {
public:
  ScopedVariable(std::u32string_view name, std::u32string_view value) : name_(name) {
    set_variable(name_, value);
  }
  ~ScopedVariable() { remove_variable(name_); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

private:
  std::u32string name_;
};

// What may leave a host's callback: C++ exceptions of this compiler and, on Windows, structured exceptions,
// among them what another compiler throws.
struct ExceptionKind {
  const char* what;
  void (*raise)();  // does not return
};
const std::vector<ExceptionKind>& exception_kinds();

}  // namespace Corvane::Print::tests

#endif
