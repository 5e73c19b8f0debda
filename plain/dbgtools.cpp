// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The debug flags as plain functions.
#include "corvane/print/dbgtools.h"

#include <exception>

#include "config/codepage.h"
#include "corvane/print/plain.h"
#include "platform/capi_block.h"

namespace Corvane::Plain {

using Print::DbgTools;
using Narrow = Print::platform::CapiBlock<char>;

int DbgTools_addDebugVar(const char* variableName) {
  try {
    DbgTools::Instance().AddDebugVar(variableName);
    return 1;
  } catch (const std::exception&) {
    return 0;
  }
}

int DbgTools_isFlagDefined(const char* flag) {
  return DbgTools::Instance().IsFlagDefined(flag) ? 1 : 0;
}

int DbgTools_isDebugOnW(const CPWChar* flag) {
  return DbgTools_isDebugOn(Narrow(Print::config::narrowed_block(flag)).get());
}

int DbgTools_isDevDebugOnW(const CPWChar* flag) {
  return DbgTools::Instance().enabled
             ? DbgTools_isFlagDefined(Narrow(Print::config::narrowed_block(flag)).get())
             : 0;
}

}  // namespace Corvane::Plain
