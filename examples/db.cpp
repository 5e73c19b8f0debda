// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Sends messages to the debug library. Run where the system finds the one that kvldebug.c makes; without it
// every call returns 0 and nothing is shown.
#include "corvane/print/db.h"

#include <cstdio>

using namespace Corvane::Print;

int main() {
  const int shown = DBMSG("%d of %d pieces written\n", 3, 4);
  DBERR("%s is no plot file\n", "a1.txt");
  DBATT("nearly out of paper\n");
  DBCMSG(0x02000000, const_cast<char*>("an error, by its code\n"));
  DBBMSG(128, const_cast<char*>("grey\n"));
  unsigned char bytes[] = {0x1B, 0x25, 0x31, 0x42};
  DBMEMDUMP(bytes, sizeof bytes);
  std::printf("the first call returned %d\n", shown);
}
