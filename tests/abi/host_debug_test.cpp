// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export of the DB family and of the debug flags once through the shared library, as
// host_test.cpp does with the other families. There is no debug library.
#include <gtest/gtest.h>

#include "../debug/every_call.h"
#include "corvane/print/cf.h"
#include "corvane/print/db.h"
#include "corvane/print/dbgtools.h"

namespace {

using namespace Corvane::Print;

// Every variable has the value "clip, Fences". The count is in bytes.
int CORVANE_PRINT_CALL flags_lookup(const CPWChar*, CPWChar* buffer, int capacity) {
  const char value[] = "clip, Fences";
  const int needed = static_cast<int>(sizeof value * sizeof(CPWChar));
  if (needed > capacity) return needed;
  for (std::size_t i = 0; i < sizeof value; ++i) buffer[i] = static_cast<CPWChar>(value[i]);
  return needed;
}

}  // namespace

TEST(HostDebug, NothingHappensWithoutADebugLibrary) {
  tests::expect_all_return_0();
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
