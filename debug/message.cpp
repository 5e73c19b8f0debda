// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB exports that print: each adds its kind of message to the caller's arguments.
#include <algorithm>

#include "corvane/print/db.h"
#include "debug/router.h"

namespace Corvane::Print {

int DBMSG(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, debug::kMessage, 0, arguments);
  va_end(arguments);
  return result;
}

int DBMSGVA(const char* format, va_list args) {
  return debug::print(format, debug::kMessage, 0, args);
}

int DBERR(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, debug::kError, 0, arguments);
  va_end(arguments);
  return result;
}

int DBERRVA(const char* format, va_list args) {
  return debug::print(format, debug::kError, 0, args);
}

int DBATT(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, debug::kAttention, 0, arguments);
  va_end(arguments);
  return result;
}

int DBHMSG(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, debug::kHighlighted, 0, arguments);
  va_end(arguments);
  return result;
}

int DBCMSG(unsigned long code, char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, static_cast<std::uint32_t>(code), 0, arguments);
  va_end(arguments);
  return result;
}

int DBBMSG(unsigned long level, char* format, ...) {
  const auto grey = static_cast<std::uint32_t>(std::min(level, 255ul));
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, grey * 0x010101, 0, arguments);
  va_end(arguments);
  return result;
}

int DBPAUSE(char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = debug::print(format, debug::kPaused, 1, arguments);
  va_end(arguments);
  return result;
}

}  // namespace Corvane::Print
