// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Compares and matches names of plots, and edits them in place.
#include "corvane/print/str.h"

#include <cstdio>
#include <cstdlib>

using namespace Corvane::Print;

static void match(const char* name, const char* pattern) {
  std::printf("%-12s %-10s %d, without regard to case %d\n", name, pattern, STRMatchPattern(name, pattern),
              STRMatchPatternCI(name, pattern));
}

int main() {
  std::printf("plan and PLAN: %d, plan and PLAZA: %d\n", STRCompareCI("plan", "PLAN"),
              STRCompareCI("plan", "PLAZA"));

  match("A1-plan.PLT", "A?-*.PLT");
  match("A1-plan.PLT", "a?-*.plt");
  match("A1-plan.PLT", "A?.PLT");
  match("50*70", "50\\*70");
  match("sheets\\A1", "SHEETS\\A1");  // a backslash takes the meaning from what follows it ...
  match("sheets\\A1", "sheets\\\\A1");

  char name[64] = "  A1 plan.PLT";  // outputs may be the text itself, where it has the room
  STRDeleteCharLead(name, ' ', name);
  STRReplaceChar(name, ' ', '-', name);
  STRInsertSubstr(name, 2, "-north", name);
  std::printf("%s\n", STRLower(name, name));
  std::printf("%s\n", STRExtractSubstr(name, 3, 5, name));

  char* copy = STRDup("a copy");
  std::printf("%s, backwards: ", copy);
  std::printf("%s\n", STRReverse(copy));
  std::free(copy);  // the one result of the family that the caller owns
}
