// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB exports that print: each adds its kind of message to the caller's arguments.
#include <algorithm>

#include "corvane/print/db.h"
#include "corvane/print/plain.h"
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

// The plain names. A function cannot hand on arguments of any number, so these are second names of the
// functions above.
namespace Corvane::Plain {

int DBMSG(const char* format, ...) __attribute__((alias("_ZN7Corvane5Print5DBMSGEPKcz")));
int DBERR(const char* format, ...) __attribute__((alias("_ZN7Corvane5Print5DBERREPKcz")));
int DBATT(const char* format, ...) __attribute__((alias("_ZN7Corvane5Print5DBATTEPKcz")));
int DBHMSG(const char* format, ...) __attribute__((alias("_ZN7Corvane5Print6DBHMSGEPKcz")));
int DBCMSG(unsigned long code, char* format, ...) __attribute__((alias("_ZN7Corvane5Print6DBCMSGEmPcz")));
int DBBMSG(unsigned long level, char* format, ...) __attribute__((alias("_ZN7Corvane5Print6DBBMSGEmPcz")));
int DBPAUSE(char* format, ...) __attribute__((alias("_ZN7Corvane5Print7DBPAUSEEPcz")));

}  // namespace Corvane::Plain
