/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A small debug library: writes what it is told to the standard output, and asks nothing. On Windows the
 * version is string resource 10000 of kvldebug.rc, elsewhere the text below. */
#include <stdarg.h>
#include <stdio.h>

#ifdef _WIN32
#define EXPORT __declspec(dllexport)
#else
#define EXPORT __attribute__((visibility("default")))
EXPORT const char kvldebug_version[] = "6";
#endif

static const char* kind_of(unsigned code) {
  switch (code) {
    case 0x01000000:
      return "message";
    case 0x02000000:
      return "error";
    case 0x03000000:
      return "highlighted";
    case 0x05000000:
      return "waits for the user";
    case 0x06000000:
      return "attention";
    default:
      return "coloured";
  }
}

EXPORT int dllPrintF(const char* format, unsigned code, int pause, va_list arguments) {
  (void)pause;
  printf("[%s] ", kind_of(code));
  return vprintf(format, arguments);
}

EXPORT int dllMemDump(void* address, unsigned count) {
  const unsigned char* byte = (const unsigned char*)address;
  unsigned i;
  printf("[dump]");
  for (i = 0; i < count; ++i) printf(" %02X", (unsigned)byte[i]);
  return printf("\n");
}

EXPORT int dllScanF(char* text1, char* text2, va_list arguments) {
  (void)text1, (void)text2, (void)arguments;
  return 0;
}

EXPORT int dllMessageBox(char* text1, char* text2, unsigned style) {
  (void)style;
  return printf("[box] %s: %s\n", text1, text2);
}

EXPORT int dllGetSA(char* text, char* buffer) {
  (void)text;
  buffer[0] = '\0';
  return 0;
}

EXPORT int dllGetSW(unsigned short* text, unsigned short* buffer) {
  (void)text;
  buffer[0] = 0;
  return 0;
}

/* Never called; without it the application and lists would not be told of. */
EXPORT int dllSetDest(void) {
  return 0;
}

EXPORT int dllInitApp(char* name) {
  return printf("[application] %s\n", name);
}

EXPORT int dllListBox(char* title, int count, char** items) {
  int i;
  printf("[list] %s:", title);
  for (i = 0; i < count; ++i) printf(" %s", items[i]);
  return printf("\n");
}
