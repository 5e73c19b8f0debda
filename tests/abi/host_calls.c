/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A host in C. It uses nothing but the public header, and the general heap to release the clip memory. */
#include "host_calls.h"

#include <stdlib.h>

#include "corvane/print/cl.h"

int host_clips_a_line(int mode, double ends[4]) {
  double corners[4] = {0, 0, 10, 10};
  const double line[4] = {-5, 5, 15, 5};
  int two = 2, pieces, points, status, i;
  CLFenceHandle fence = 0;
  CLclpMemType mem = {3, 25, 0, 0, 150, 0, 0};

  status = CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, mode);
  if (status != CL_OK) return status;
  do {
    status = CLreallocClpMem(&mem);
    if (status != CL_OK) break;
    pieces = mem.polyRequest;
    points = mem.pointRequest;
    status = CLclipLine(fence, 2, 2, line, &pieces, mem.counts, mem.points, &points);
    mem.polyRequest = pieces;
    mem.pointRequest = points;
  } while (status == CL_TOO_SMALL);
  if (status == CL_OK && pieces >= 1 && points >= 2) {
    for (i = 0; i < 4; ++i) ends[i] = mem.points[i];
  }
  free(mem.counts);
  free(mem.points);
  if (status != CL_OK) {
    CLdeleteFence(fence);
    return status;
  }
  return CLdeleteFence(fence);
}

int host_size_of_clip_memory(void) {
  return (int)sizeof(CLclpMemType);
}
