// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The calls of the foreign host; the last one has no name.
#ifndef CORVANE_PRINT_TESTS_ABI_FOREIGN_CALLS_H
#define CORVANE_PRINT_TESTS_ABI_FOREIGN_CALLS_H

struct Call {
  const char* name;
  bool (*run)();
};

extern const Call kCalls[];

#endif
