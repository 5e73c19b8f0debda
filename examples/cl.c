/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * Clips a road and a house against fences: a rectangle, and a site of two polygons, of which first what lies
 * inside is kept and then what lies outside. */
#include "corvane/print/cl.h"

#include <stdio.h>
#include <stdlib.h>

#include "plot.h"

static double road[] = {100, 1500, 1500, 900, 2500, 2600, 4600, 2300, 5600, 300};
static double house[] = {1300, 1600, 3300, 1600, 3300, 2400, 2200, 2400, 2200, 3200, 1300, 3200};
static double corners[] = {700, 700, 2800, 2800};
static double site[] = {700,  600,  2900, 600, 2900, 2800, 700, 2000, /* four points */
                        3600, 1200, 5200, 700, 4800, 3000};           /* and three */

/* CLclipLine or CLclipPolygon: they take the same arguments. */
typedef int(CORVANE_PRINT_CALL* Clip)(CLFenceHandle, int, int, const double*, int*, int*, double*, int*);

static void clip(const char* what, Clip call, CLFenceHandle fence, int count, const double* points) {
  CLclpMemType mem = {3, 25, 0, 0, 150, 0, 0};
  const double* point;
  int status, piece, i;
  do {
    status = CLreallocClpMem(&mem);
    if (status != CL_OK) break;
    status = call(fence, 2, count, points, &mem.polyRequest, mem.counts, mem.points, &mem.pointRequest);
  } while (status == CL_TOO_SMALL);
  if (status != CL_OK) {
    printf("%s: status %d\n", what, status);
  } else {
    printf("%s: %d pieces, %d points\n", what, mem.polyRequest, mem.pointRequest);
    for (point = mem.points, piece = 0; piece < mem.polyRequest; ++piece) {
      for (i = 0; i < mem.counts[piece]; ++i, point += 2) printf(" (%.0f,%.0f)", point[0], point[1]);
      printf(mem.counts[piece] == 0 ? " (none)\n" : "\n");
    }
  }
  free(mem.counts);
  free(mem.points);
}

static void clip_both(const char* what, int polygons, int* counts, const double* points, int mode) {
  CLFenceHandle fence = NULL;
  if (CLdefFence(&fence, 2, polygons, counts, points, 0.0, 0.0, mode) != CL_OK) return;
  printf("%s\n", what);
  clip("road", CLclipLine, fence, 5, road);
  clip("house", CLclipPolygon, fence, 6, house);
  CLdeleteFence(fence);
}

int main(int argc, char** argv) {
  int two = 2, site_counts[] = {4, 3};
  FILE* plot = plot_open(argc, argv, "cl.plt");
  FILE* fence = plot_open(argc, argv, "cl-site.fence");
  FILE* rectangle = plot_open(argc, argv, "cl-rectangle.fence");

  clip_both("inside the rectangle", 1, &two, corners, CL_KEEP_INSIDE);
  clip_both("inside the site", 2, site_counts, site, CL_KEEP_INSIDE);
  clip_both("outside the site", 2, site_counts, site, CL_KEEP_OUTSIDE);

  plot_line(plot, 2, 5, road);
  plot_polygon(plot, 6, 6, house);
  plot_fence(rectangle, 2, corners);
  plot_fence(fence, 4, site);
  plot_fence(fence, 3, site + 8);
  plot_close(plot);
  plot_close(fence);
  plot_close(rectangle);
  return 0;
}
