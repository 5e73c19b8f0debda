/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A debug library that records what it is called with. Built in variants:
 *   STANDIN_VERSION         its version text; none without it (on Windows the resource script has it)
 *   STANDIN_NO_DESTINATION  without dllSetDest
 *   STANDIN_NO_BOXES        without dllInitApp and dllListBox
 *   STANDIN_NO_PRINT        without dllPrintF, dllGetSA and dllGetSW */
#include <stdarg.h>
#include <stdio.h>
#include <string.h>

#include "record.h"

#ifdef _WIN32
#include <windows.h>
#define EXPORT __declspec(dllexport)
static SRWLOCK lock = SRWLOCK_INIT;
#define LOCK() AcquireSRWLockExclusive(&lock)
#define UNLOCK() ReleaseSRWLockExclusive(&lock)
#else
#include <pthread.h>
#include <time.h>
#define EXPORT __attribute__((visibility("default")))
static pthread_mutex_t lock = PTHREAD_MUTEX_INITIALIZER;
#define LOCK() pthread_mutex_lock(&lock)
#define UNLOCK() pthread_mutex_unlock(&lock)
#endif

/* Every entry point writes it under the lock. */
static struct DebugRecord record;

EXPORT struct DebugRecord* debug_record(void) {
  return &record;
}

#ifdef _WIN32
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
  (void)instance, (void)reserved;
  if (reason == DLL_PROCESS_ATTACH) {
    ++record.starts;
    Sleep(50); /* long enough for other threads to come meanwhile */
  }
  return TRUE;
}
#else
__attribute__((constructor)) static void start(void) {
  const struct timespec while_others_come = {0, 50000000};
  ++record.starts;
  nanosleep(&while_others_come, NULL);
}

#ifdef STANDIN_VERSION
EXPORT const char kvldebug_version[] = STANDIN_VERSION;
#endif
#endif

static void copy_text(char* out, const char* text) {
  snprintf(out, RECORD_TEXT, "%s", text != NULL ? text : "");
}

/* The end of every entry point. */
static int called(const char* entry) {
  int result = record.result;
  record.entry = entry;
  ++record.calls;
  UNLOCK();
  return result;
}

#ifndef STANDIN_NO_PRINT
EXPORT int dllPrintF(const char* format, unsigned code, int pause, va_list arguments) {
  LOCK();
  copy_text(record.text1, format);
  record.address1 = format;
  record.number = code;
  record.count = pause;
  record.printed[0] = 0;
  if (format != NULL) vsnprintf(record.printed, RECORD_TEXT, format, arguments);
  return called("dllPrintF");
}

EXPORT int dllGetSA(char* text, char* buffer) {
  LOCK();
  copy_text(record.text1, text);
  record.address1 = text;
  record.address2 = buffer;
  strcpy(buffer, "answer");
  return called("dllGetSA");
}

EXPORT int dllGetSW(unsigned short* text, unsigned short* buffer) {
  LOCK();
  record.address1 = text;
  record.address2 = buffer;
  record.number = text[0];
  buffer[0] = 'w';
  buffer[1] = 0;
  return called("dllGetSW");
}
#endif

EXPORT int dllMemDump(void* address, unsigned count) {
  LOCK();
  record.address1 = address;
  record.number = count;
  memset(record.bytes, 0xEE, sizeof record.bytes);
  memcpy(record.bytes, address != NULL ? address : "",
         count < sizeof record.bytes ? count : sizeof record.bytes);
  return called("dllMemDump");
}

/* Fills the ints that the arguments point to: as many as text2 has characters. */
EXPORT int dllScanF(char* text1, char* text2, va_list arguments) {
  size_t i;
  LOCK();
  copy_text(record.text1, text1);
  copy_text(record.text2, text2);
  for (i = 0; i < strlen(text2); ++i) *va_arg(arguments, int*) = 100 + (int)i;
  return called("dllScanF");
}

EXPORT int dllMessageBox(char* text1, char* text2, unsigned style) {
  LOCK();
  copy_text(record.text1, text1);
  copy_text(record.text2, text2);
  record.number = style;
  return called("dllMessageBox");
}

#ifndef STANDIN_NO_DESTINATION
EXPORT int dllSetDest(void) {
  LOCK();
  return called("dllSetDest");
}
#endif

#ifndef STANDIN_NO_BOXES
EXPORT int dllInitApp(char* name) {
  LOCK();
  copy_text(record.text1, name);
  record.address1 = name;
  return called("dllInitApp");
}

EXPORT int dllListBox(char* title, int count, char** items) {
  int i;
  LOCK();
  copy_text(record.text1, title);
  record.count = count;
  record.address2 = items;
  for (i = 0; i < count && i < RECORD_ITEMS; ++i)
    snprintf(record.items[i], sizeof record.items[i], "%s", items[i] != NULL ? items[i] : "(null)");
  return called("dllListBox");
}
#endif
