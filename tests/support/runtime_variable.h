// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// An environment variable as the C runtime's getenv sees it. On Windows the runtime keeps an environment of
// its own beside the system's, so a variable that the library reads by getenv must be set through the
// runtime.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_RUNTIME_VARIABLE_H
#define CORVANE_PRINT_TESTS_SUPPORT_RUNTIME_VARIABLE_H

#include <cstdlib>

namespace Corvane::Print::tests {

// Sets a variable, or removes it, for the life of the object; afterwards it is unset. The value is not empty:
// Windows has no empty variables.
class RuntimeVariable {
public:
  RuntimeVariable(const char* name, const char* value) : name_(name) { set(value); }
  ~RuntimeVariable() { set(nullptr); }
  RuntimeVariable(const RuntimeVariable&) = delete;
  RuntimeVariable& operator=(const RuntimeVariable&) = delete;

  // Null removes the variable.
  void set(const char* value) {
#ifdef _WIN32
    _putenv_s(name_, value != nullptr ? value : "");
#else
    if (value != nullptr) {
      setenv(name_, value, 1);
    } else {
      unsetenv(name_);
    }
#endif
  }

private:
  const char* name_;
};

}  // namespace Corvane::Print::tests

#endif
