/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * The last notification that the recorder was handed. */
#ifndef CORVANE_PRINT_TESTS_FILESPEC_STANDINS_RECORDER_H
#define CORVANE_PRINT_TESTS_FILESPEC_STANDINS_RECORDER_H

struct Record {
  int calls;
  unsigned notification;
  unsigned long error;
  char library[64];
  char function[64];
  void* answer; /* the test's: a module or a function, or null */
};

#endif
