// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export of the DB family and of the debug flags once through the shared library, as
// host_test.cpp does with the other families. There is no debug library.
#include <gtest/gtest.h>

#include <cstdarg>
#include <cstring>

#include "corvane/print/cf.h"
#include "corvane/print/db.h"
#include "corvane/print/dbgtools.h"

namespace {

using namespace Corvane::Print;

int by_list(int (*function)(const char*, va_list), const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  const int result = function(format, arguments);
  va_end(arguments);
  return result;
}

// Every variable has the value "clip, Fences". The count is in bytes.
int CORVANE_PRINT_CALL flags_lookup(const CPWChar*, CPWChar* buffer, int capacity) {
  const char value[] = "clip, Fences";
  const int needed = static_cast<int>(sizeof value * sizeof(CPWChar));
  if (needed > capacity) return needed;
  for (std::size_t i = 0; i < sizeof value; ++i) buffer[i] = static_cast<CPWChar>(value[i]);
  return needed;
}

}  // namespace

TEST(HostDebug, MessagesGoNowhereWithoutADebugLibrary) {
  char text[] = "%d";
  const CPWChar wide[] = {'%', 'd', 0};
  EXPECT_EQ(DBMSG(text, 1), 0);
  EXPECT_EQ(DBERR(text, 1), 0);
  EXPECT_EQ(DBATT(text, 1), 0);
  EXPECT_EQ(DBHMSG(text, 1), 0);
  EXPECT_EQ(DBCMSG(0, text, 1), 0);
  EXPECT_EQ(DBBMSG(0, text, 1), 0);
  EXPECT_EQ(DBPAUSE(text, 1), 0);
  EXPECT_EQ(by_list(DBMSGVA, text, 1), 0);
  EXPECT_EQ(by_list(DBERRVA, text, 1), 0);
  EXPECT_EQ(DBMSGW(wide, 1), 0);
  EXPECT_EQ(DBERRW(wide, 1), 0);
  EXPECT_EQ(DBATTW(wide, 1), 0);
  EXPECT_EQ(DBHMSGW(wide, 1), 0);
}

TEST(HostDebug, QuestionsDumpsAndBoxesDoNothingWithoutADebugLibrary) {
  char text[] = "text", buffer[] = "before";
  unsigned short wide_text[] = {'t', 0}, wide_buffer[] = {'b', 0};
  char* items[] = {text};
  int number = 7;
  EXPECT_EQ(DBINP(text, text, &number), 0);
  EXPECT_EQ(DBGETSA(text, buffer), 0);
  EXPECT_STREQ(buffer, "");
  EXPECT_EQ(DBGETSW(wide_text, wide_buffer), 0);
  EXPECT_EQ(wide_buffer[0], 0);
  EXPECT_EQ(DBMEMDUMP(text, 4), 0);
  EXPECT_EQ(DBSTRDUMP(text), 0);
  EXPECT_EQ(DBMB(text, text, 0), 0);
  EXPECT_EQ(DBInitApp(text), 0);
  EXPECT_EQ(DBLBV(text, 1, items), 0);
  EXPECT_EQ(DBLB(text, 1, text), 0);
}

// As in the header's example.
TEST(HostDebug, FlagsAreReadFromTheHostsVariables) {
  EXPECT_EQ(DbgTools_isDebugOn("fences"), 0);
  CFSetGetEnvVarCallback(flags_lookup);
  DbgTools& tools = DbgTools::Instance();
  tools.AddDebugVar("PLOT_DEBUG");
  CFSetGetEnvVarCallback(nullptr);
  EXPECT_EQ(&tools, &DbgTools::Instance());
  EXPECT_TRUE(tools.enabled);
  EXPECT_FALSE(tools.all);
  EXPECT_TRUE(tools.IsFlagDefined("Clip"));
  EXPECT_FALSE(tools.IsFlagDefined("plot"));
  EXPECT_EQ(DbgTools_isDebugOn("fences"), 1);
  if (DbgTools_isDebugOn("fences")) DBMSG("%d fences\n", 3);
  EXPECT_EQ(DbgTools_isDebugOn("plot"), 0);
}
