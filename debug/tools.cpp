// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The DB exports that do not print: questions, dumps, boxes.
#include <cstddef>
#include <cstring>

#include "corvane/print/db.h"
#include "corvane/print/plain.h"
#include "debug/router.h"
#include "platform/capi_block.h"

namespace Corvane::Print {
namespace {

using Items = platform::CapiBlock<char*>;

// The arguments as an array, which no target but 32-bit Windows has them in. A count without items still has
// an address. Null when memory ran out.
Items items_of(int count, va_list arguments) {
  const std::size_t room = count > 0 ? static_cast<std::size_t>(count) : 1;
  Items items(static_cast<char**>(platform::capi_alloc_array(room, sizeof(char*))));
  if (!items) return items;
  *items = nullptr;
  for (int i = 0; i < count; ++i) items.get()[i] = va_arg(arguments, char*);
  return items;
}

}  // namespace

int DBINP(char* text1, char* text2, ...) {
  va_list arguments;
  va_start(arguments, text2);
  const int result = debug::scan(text1, text2, arguments);
  va_end(arguments);
  return result;
}

int DBGETSA(char* text, char* buffer) {
  return debug::get_text(text, buffer);
}

int DBGETSW(unsigned short* text, unsigned short* buffer) {
  return debug::get_text(text, buffer);
}

int DBMEMDUMP(void* address, unsigned int count) {
  return debug::dump_memory(address, count);
}

int DBSTRDUMP(char* text) {
  return debug::dump_memory(text, text != nullptr ? static_cast<unsigned>(std::strlen(text) + 1) : 0);
}

int DBMB(char* text1, char* text2, unsigned int style) {
  return debug::message_box(text1, text2, style);
}

int DBInitApp(char* name) {
  return debug::init_app(name);
}

int DBLBV(char* title, int count, char** items) {
  return debug::list_box(title, count, items);
}

int DBLB(char* title, int count, ...) {
  if (!debug::offers_destination()) return 0;
  va_list arguments;
  va_start(arguments, count);
  const Items items = items_of(count, arguments);
  va_end(arguments);
  return items ? debug::list_box(title, count, items.get()) : 0;
}

}  // namespace Corvane::Print

// The plain names of functions with arguments of any number; see message.cpp.
namespace Corvane::Plain {

int DBINP(char* text1, char* text2, ...) __attribute__((alias("_ZN7Corvane5Print5DBINPEPcS1_z")));
int DBLB(char* title, int count, ...) __attribute__((alias("_ZN7Corvane5Print4DBLBEPciz")));

}  // namespace Corvane::Plain
