/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A debug library that appends every message to the file which the variable PLOTCLIP_TOLD names: the display
 * code as eight hexadecimal digits, a blank, the text. Of the nine entry points it has the one that plotclip
 * uses. */
#include <stdarg.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>

/* The version of the interface, by which the library recognises a debug library. */
__attribute__((visibility("default"))) const char kvldebug_version[] = "6";

__attribute__((visibility("default"))) int dllPrintF(const char* format, uint32_t code, int pause,
                                                     va_list arguments);

int dllPrintF(const char* format, uint32_t code, int pause, va_list arguments) {
  const char* const name = getenv("PLOTCLIP_TOLD");
  FILE* const file = name != NULL ? fopen(name, "a") : NULL;
  int written;
  (void)pause;
  if (file == NULL) return 0;
  fprintf(file, "%08x ", (unsigned)code);
  written = vfprintf(file, format, arguments);
  fclose(file);
  return written;
}
