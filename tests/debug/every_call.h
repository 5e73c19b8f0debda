// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// One call of each DB function, for tests in which none of them has anything to do.
#ifndef CORVANE_PRINT_TESTS_DEBUG_EVERY_CALL_H
#define CORVANE_PRINT_TESTS_DEBUG_EVERY_CALL_H

#include <gtest/gtest.h>

#include <cstdarg>

#include "corvane/print/db.h"

namespace Corvane::Print::tests {

inline int call_by_list(int (*function)(const char*, va_list), const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = function(format, arguments);
  va_end(arguments);
  return result;
}

inline void expect_printing_returns_0() {
  char text[] = "%d";
  const CPWChar wide[] = {'%', 'd', 0};
  EXPECT_EQ(DBMSG(text, 1), 0);
  EXPECT_EQ(DBERR(text, 1), 0);
  EXPECT_EQ(DBATT(text, 1), 0);
  EXPECT_EQ(DBHMSG(text, 1), 0);
  EXPECT_EQ(DBCMSG(0x00FF00, text, 1), 0);
  EXPECT_EQ(DBBMSG(128, text, 1), 0);
  EXPECT_EQ(DBPAUSE(text, 1), 0);
  EXPECT_EQ(call_by_list(DBMSGVA, text, 1), 0);
  EXPECT_EQ(call_by_list(DBERRVA, text, 1), 0);
  EXPECT_EQ(DBMSGW(wide, 1), 0);
  EXPECT_EQ(DBERRW(wide, 1), 0);
  EXPECT_EQ(DBATTW(wide, 1), 0);
  EXPECT_EQ(DBHMSGW(wide, 1), 0);
  EXPECT_EQ(DBMSG(nullptr), 0);
  EXPECT_EQ(DBMSGW(nullptr), 0);
}

inline void expect_texts_become_empty() {
  char text[] = "name?", buffer[] = "before";
  unsigned short wide_text[] = {'?', 0}, wide_buffer[] = {'b', 'e', 0};
  EXPECT_EQ(DBGETSA(text, buffer), 0);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(buffer[1], 'e');
  EXPECT_EQ(DBGETSW(wide_text, wide_buffer), 0);
  EXPECT_EQ(wide_buffer[0], 0);
  EXPECT_EQ(wide_buffer[1], 'e');
  EXPECT_EQ(DBGETSA(nullptr, nullptr), 0);
  EXPECT_EQ(DBGETSW(nullptr, nullptr), 0);
}

inline void expect_boxes_return_0() {
  char text[] = "text";
  char* items[] = {text};
  EXPECT_EQ(DBInitApp(text), 0);
  EXPECT_EQ(DBLBV(text, 1, items), 0);
  EXPECT_EQ(DBLB(text, 1, text), 0);
  EXPECT_EQ(DBLB(text, -1), 0);
}

inline void expect_all_return_0() {
  char text[] = "text";
  int number = 7;
  expect_printing_returns_0();
  expect_texts_become_empty();
  expect_boxes_return_0();
  EXPECT_EQ(DBINP(text, text, &number), 0);
  EXPECT_EQ(number, 7);
  EXPECT_EQ(DBMEMDUMP(text, 4), 0);
  EXPECT_EQ(DBSTRDUMP(text), 0);
  EXPECT_EQ(DBSTRDUMP(nullptr), 0);
  EXPECT_EQ(DBMB(text, text, 0), 0);
}

}  // namespace Corvane::Print::tests

#endif
