// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The way to the entry points.
//
// Shared state: g_debug_library, which the first call of the process fills, see load.h.
#include "debug/router.h"

#include "corvane/print/export.h"
#include "debug/load.h"

#include <atomic>

namespace Corvane::Print::debug {
namespace {

constinit LoadState g_debug_library;
constinit std::atomic<KVLStatus>& g_Status = g_debug_library.status;

using PrintF = int(CORVANE_PRINT_CALL*)(const char* format, std::uint32_t code, int pause, va_list arguments);
using MemDump = int(CORVANE_PRINT_CALL*)(void* address, unsigned count);
using ScanF = int(CORVANE_PRINT_CALL*)(char* text1, char* text2, va_list arguments);
using MessageBox = int(CORVANE_PRINT_CALL*)(char* text1, char* text2, unsigned style);
using GetSA = int(CORVANE_PRINT_CALL*)(char* text, char* buffer);
using GetSW = int(CORVANE_PRINT_CALL*)(unsigned short* text, unsigned short* buffer);
using InitApp = int(CORVANE_PRINT_CALL*)(char* name);
using ListBox = int(CORVANE_PRINT_CALL*)(char* title, int count, char** items);

// Null where it is not there.
template <class Function>
Function entry_point(EntryPoint which) {
  if (g_Status.load(std::memory_order_acquire) == kNotTried) initialize(g_debug_library, kLoadSystem);
  return reinterpret_cast<Function>(g_debug_library.entry_point(which));
}

}  // namespace

int print(const char* format, std::uint32_t code, int pause, va_list arguments) {
  const auto call = entry_point<PrintF>(EntryPoint::kPrintF);
  return call != nullptr ? call(format, code, pause, arguments) : 0;
}

int dump_memory(void* address, unsigned count) {
  const auto call = entry_point<MemDump>(EntryPoint::kMemDump);
  return call != nullptr ? call(address, count) : 0;
}

int scan(char* text1, char* text2, va_list arguments) {
  const auto call = entry_point<ScanF>(EntryPoint::kScanF);
  return call != nullptr ? call(text1, text2, arguments) : 0;
}

int message_box(char* text1, char* text2, unsigned style) {
  const auto call = entry_point<MessageBox>(EntryPoint::kMessageBox);
  return call != nullptr ? call(text1, text2, style) : 0;
}

int get_text(char* text, char* buffer) {
  const auto call = entry_point<GetSA>(EntryPoint::kGetSA);
  if (call != nullptr) return call(text, buffer);
  if (buffer != nullptr) *buffer = '\0';
  return 0;
}

int get_text(unsigned short* text, unsigned short* buffer) {
  const auto call = entry_point<GetSW>(EntryPoint::kGetSW);
  if (call != nullptr) return call(text, buffer);
  if (buffer != nullptr) *buffer = 0;
  return 0;
}

// KEEP(db-destination-guards): these two go by the presence of an entry point that they do not call.
// Looks wrong; a debug library that offers no destination has no window, whatever else it exports. Pinned by
// DebugWithoutDestination.ListBoxAndApplicationAreNotCalled.
int init_app(char* name) {
  if (!offers_destination()) return 0;
  const auto call = entry_point<InitApp>(EntryPoint::kInitApp);
  return call != nullptr ? call(name) : 0;
}

int list_box(char* title, int count, char** items) {
  if (!offers_destination()) return 0;
  const auto call = entry_point<ListBox>(EntryPoint::kListBox);
  return call != nullptr ? call(title, count, items) : 0;
}

bool offers_destination() {
  return entry_point<platform::LibraryFunction>(EntryPoint::kSetDest) != nullptr;
}

}  // namespace Corvane::Print::debug
