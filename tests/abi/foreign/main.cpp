// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Runs the calls of calls.cpp. There is no runtime library for this compiler's target here, so the program
// brings what little it needs. Its last line is that of every test program, which the runners look for.
#include "calls.h"
#include "system.h"

// What this compiler expects of a runtime library wherever floating-point numbers are used.
extern "C" int _fltused = 1;

// And for arrays that are initialised.
extern "C" void* memset(void* block, int value, decltype(sizeof 0) count) {
  for (decltype(sizeof 0) i = 0; i < count; ++i) static_cast<char*>(block)[i] = static_cast<char>(value);
  return block;
}

extern "C" void* memcpy(void* to, const void* from, decltype(sizeof 0) count) {
  for (decltype(sizeof 0) i = 0; i < count; ++i) static_cast<char*>(to)[i] = static_cast<const char*>(from)[i];
  return to;
}

namespace {

void say(const char* text) {
  unsigned long length = 0, written = 0;
  while (text[length] != '\0') ++length;
  WriteFile(GetStdHandle(static_cast<unsigned long>(-11)), text, length, &written, nullptr);
}

void say(int number) {
  if (number > 9) say(number / 10);
  const char digit[2] = {static_cast<char>('0' + number % 10), '\0'};
  say(digit);
}

}  // namespace

extern "C" void start() {
  int passed = 0, failed = 0;
  for (const Call* call = kCalls; call->name != nullptr; ++call) {
    const bool right = call->run();
    ++(right ? passed : failed);
    say(right ? "[       OK ] ForeignHost." : "[  FAILED  ] ForeignHost.");
    say(call->name);
    say("\n");
  }
  say("corvane_foreign_host_tests: ");
  say(passed);
  say(" passed, ");
  say(failed);
  say(" failed\n");
  ExitProcess(failed == 0 && passed > 0 ? 0 : 1);
}
