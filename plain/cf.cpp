// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The plain names of the CF family.
#include "corvane/print/cf.h"
#include "corvane/print/plain.h"

namespace Corvane::Plain {

namespace print = Corvane::Print;

void CFSetGetEnvVarCallback(CFGetEnvVarCallback callback) {
  print::CFSetGetEnvVarCallback(callback);
}

CPWChar* CFGetenvW(const CPWChar* name) {
  return print::CFGetenvW(name);
}

char* CFGetenv(const char* name) {
  return print::CFGetenv(name);
}

bool CFIsVariableDefinedW(const CPWChar* name) {
  return print::CFIsVariableDefinedW(name);
}

bool CFIsVariableDefined(const char* name) {
  return print::CFIsVariableDefined(name);
}

void CFReleaseValue(void* value) {
  print::CFReleaseValue(value);
}

}  // namespace Corvane::Plain
