/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A C program against the installed library: clips one line and says so. */
#include <stdio.h>

#include "corvane/print/version.h"
#include "host_calls.h"

int main(void) {
  double ends[4] = {0, 0, 0, 0};
  const int status = host_clips_a_line(2, ends);
  if (status != 0 || ends[1] != 5.0 || ends[3] != 5.0) {
    printf("status %d\n", status);
    return 1;
  }
  printf("installed host, headers %s: kept %g to %g\n", CORVANE_PRINT_VERSION, ends[0], ends[2]);
  return 0;
}
