/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * What the examples share to be drawn: shapes are written as plot files (HP-GL/2) and as fence files, which
 * plotclip reads. An example writes them into the folder that its first argument names; without one, every
 * file is null and nothing is written.
 */
#ifndef CORVANE_PRINT_EXAMPLES_PLOT_H
#define CORVANE_PRINT_EXAMPLES_PLOT_H

#include <stdio.h>

static FILE* plot_open(int argc, char** argv, const char* name) {
  char path[1024];
  FILE* file;
  if (argc < 2) return NULL;
  snprintf(path, sizeof path, "%s/%s", argv[1], name);
  file = fopen(path, "w");
  if (file == NULL) fprintf(stderr, "%s cannot be written\n", path);
  return file;
}

/* The points, x and y each, between what stands in front of them and behind each of them. */
static void plot_points(FILE* file, int count, const double* points, const char* between, const char* end) {
  int i;
  for (i = 0; i < count; ++i) {
    fprintf(file, "%g%s%g%s", points[2 * i], between, points[2 * i + 1], i + 1 < count ? between : end);
  }
}

/* A pen draws lines of 1.5 mm. */
static inline void plot_line(FILE* plot, int pen, int count, const double* points) {
  if (plot == NULL) return;
  fprintf(plot, "SP%d;PW1.5;PU;PA%g,%g;PD", pen, points[0], points[1]);
  plot_points(plot, count, points, ",", ";PU;\n");
}

/* An outline, shaded within. */
static inline void plot_polygon(FILE* plot, int pen, int count, const double* points) {
  if (plot == NULL) return;
  fprintf(plot, "SP%d;PW1.5;PU;PA%g,%g;PM0;PD", pen, points[0], points[1]);
  plot_points(plot, count, points, ",", ";PM2;FT10,20;FP;EP;\n");
}

static inline void plot_fence(FILE* fence, int count, const double* points) {
  int i;
  if (fence == NULL) return;
  fprintf(fence, "polygon\n");
  for (i = 0; i < count; ++i) fprintf(fence, "%g %g\n", points[2 * i], points[2 * i + 1]);
}

static void plot_close(FILE* file) {
  if (file != NULL) fclose(file);
}

#endif
