// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Reads debug flags from two variables and asks which topics are on.
#include "corvane/print/dbgtools.h"

#include <cstdio>
#include <cstdlib>

using Corvane::Print::DbgTools;

static void show(const char* flag) {
  const DbgTools& tools = DbgTools::Instance();
  std::printf("%-10s on: %d, named: %d\n", flag, DbgTools_isDebugOn(flag),
              tools.enabled && tools.IsFlagDefined(flag) ? 1 : 0);
}

int main() {
  static char first[] = "EXAMPLE_DEBUG=clip, Fences";
  static char second[] = "EXAMPLE_MORE=all";
  putenv(first);
  putenv(second);

  std::printf("before any variable\n");
  show("clip");
  DbgTools::Instance().AddDebugVar("EXAMPLE_DEBUG");
  std::printf("clip, Fences\n");
  show("CLIP");
  show("fences");
  show("search");
  DbgTools::Instance().AddDebugVar("EXAMPLE_MORE");
  std::printf("and all\n");
  show("search");  // on, but not for developers, who ask by name
}
