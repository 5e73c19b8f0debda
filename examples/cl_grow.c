/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * Moves the edges of an outline outward and inward, and those of a rectangle given by two corners. */
#include "corvane/print/cl.h"

#include <stdio.h>

#include "plot.h"

static void show(const char* what, int count, const double* points) {
  int i;
  printf("%s:", what);
  for (i = 0; i < count; ++i) printf(" (%g,%g)", points[2 * i], points[2 * i + 1]);
  printf("\n");
}

int main(int argc, char** argv) {
  /* The first point again at the end: a closed ring, whose direction is judged with all its edges. */
  double outline[] = {1000, 800,  4200, 800,  4200, 1900, 2600, 1900,
                      2600, 3000, 1800, 3600, 1000, 3000, 1000, 800};
  double corners[] = {1400, 1100, 2200, 1500};
  double wider[16], narrower[16], larger[4];
  int eight = 8, two = 2;
  FILE* plot = plot_open(argc, argv, "cl_grow.plt");
  FILE* fence = plot_open(argc, argv, "cl_grow.fence");

  if (CLGrowPolygons(2, 1, &eight, outline, 300, wider) != CL_OK) return 1;
  if (CLGrowPolygons(2, 1, &eight, outline, -300, narrower) != CL_OK) return 1;
  if (CLGrowPolygons(2, 1, &two, corners, 100, larger) != CL_OK) return 1;
  show("outward", 8, wider);
  show("inward", 8, narrower);
  show("rectangle", 2, larger);

  plot_polygon(plot, 1, 7, outline);
  plot_polygon(plot, 5, 7, narrower);
  plot_fence(fence, 7, wider);
  plot_close(plot);
  plot_close(fence);
  return 0;
}
