/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * What the stand-in debug library was called with. Texts are copied as far as they fit; addresses are what
 * was handed over. */
#ifndef CORVANE_PRINT_TESTS_DEBUG_STANDINS_RECORD_H
#define CORVANE_PRINT_TESTS_DEBUG_STANDINS_RECORD_H

#define RECORD_TEXT 16384
#define RECORD_ITEMS 64

struct DebugRecord {
  int starts;              /* how often the library was started */
  int calls;               /* of any entry point, by any thread */
  const char* entry;       /* the entry point that was called last */
  char text1[RECORD_TEXT]; /* format, title, name, question */
  char text2[RECORD_TEXT];
  char printed[RECORD_TEXT]; /* format and argument list put together */
  const void* address1;      /* of text1, of the memory */
  const void* address2;      /* of text2, of the items */
  unsigned number;           /* code, byte count, style */
  int count;                 /* pause flag, item count */
  char items[RECORD_ITEMS][64];
  unsigned char bytes[256]; /* the beginning of the memory */
  int result;               /* the test's: what the entry points return */
};

/* The library's own, exported as "debug_record". */
typedef struct DebugRecord* DebugRecordFunction(void);

#endif
