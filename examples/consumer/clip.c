/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * Clips a polyline in C: the library's clip memory takes the output, whatever its size turns out to be. */
#include <stdio.h>
#include <stdlib.h>

#include "corvane/print/cl.h"

/* Clips; enlarges the memory and repeats for as long as it was too small. */
static int clip(CLFenceHandle fence, int num_points, const double* points, CLclpMemType* memory) {
  int status;
  do {
    status = CLreallocClpMem(memory);
    if (status != CL_OK) break;
    status = CLclipLine(fence, 2, num_points, points, &memory->polyRequest, memory->counts, memory->points,
                        &memory->pointRequest);
  } while (status == CL_TOO_SMALL);
  return status;
}

static void print_pieces(const CLclpMemType* memory) {
  const double* point = memory->points;
  int piece, i;
  for (piece = 0; piece < memory->polyRequest; ++piece) {
    printf("C: piece %d:", piece + 1);
    for (i = 0; i < memory->counts[piece]; ++i, point += 2) printf(" (%g,%g)", point[0], point[1]);
    printf("\n");
  }
}

int main(void) {
  double corners[4] = {0, 0, 10, 10}; /* two points: an upright rectangle */
  const double line[12] = {-5, 5, 5, 5, 8, 9, 8, 15, 2, 15, 2, 5};
  int two = 2, status;
  CLFenceHandle fence = 0;
  CLclpMemType memory = {3, 25, 0, 0, 150, 0, 0};

  status = CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, CL_KEEP_INSIDE);
  if (status == CL_OK) {
    status = clip(fence, 6, line, &memory);
    CLdeleteFence(fence);
  }
  if (status == CL_OK) {
    print_pieces(&memory);
  } else {
    printf("C: status %d\n", status);
  }
  free(memory.counts);
  free(memory.points);
  return status == CL_OK ? EXIT_SUCCESS : EXIT_FAILURE;
}
