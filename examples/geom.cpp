// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Encloses points in rectangles, intersects the rectangles, and asks which outlines are rectangular plot
// areas.
#include "corvane/print/geom.h"

#include <cstdio>

#include "plot.h"

using namespace Corvane::Print;

static double trees[][2] = {{600, 1300}, {1400, 2500}, {2600, 3000}, {3200, 1700}, {1900, 700}};
static double lamps[][2] = {{2200, 1500}, {3600, 600}, {4900, 1100}, {4300, 2300}};

// Three outlines on a sheet: upright, not quite upright, turned.
static double upright[] = {400, 400, 2200, 400, 2200, 1800, 400, 1800};
static double nearly[] = {2800.2, 400.4, 4600.3, 399.6, 4599.8, 1800.1, 2799.7, 1799.9};
static double turned[] = {2400, 2000, 3300, 2500, 2800, 3400, 1900, 2900};
static double sheet[] = {0, 0, 5000, 3600};

static void plot_rectangle(FILE* plot, int pen, double* low, double* high) {
  double corners[10];
  GEOMComputeRectVerts(low, high, corners);
  corners[8] = corners[0];
  corners[9] = corners[1];
  plot_line(plot, pen, 5, corners);
}

static void boxes(FILE* plot, FILE* fence) {
  double low1[2], high1[2], low2[2], high2[2], common[4];
  GEOMComputeMinEnclRect(5, trees, low1, high1);
  GEOMComputeMinEnclRect(4, lamps, low2, high2);
  std::printf("trees: %g,%g to %g,%g\n", low1[0], low1[1], high1[0], high1[1]);
  std::printf("lamps: %g,%g to %g,%g\n", low2[0], low2[1], high2[0], high2[1]);
  if (GEOMComputeRectIntersection(low1, high1, low2, high2, common, common + 2) == 1)
    std::printf("both:  %g,%g to %g,%g\n", common[0], common[1], common[2], common[3]);

  plot_rectangle(plot, 3, low1, high1);
  plot_rectangle(plot, 2, low2, high2);
  plot_polygon(plot, 3, 5, trees[0]);
  plot_polygon(plot, 2, 4, lamps[0]);
  plot_fence(fence, 2, common);
}

static void area(FILE* plot, const char* name, double* outline) {
  const int plain = GEOMCheckRectangularPlotArea(2, 4, outline);
  double side[4];
  GEOMShapeFindLongestSide(2, 4, outline, side);
  std::printf("%s: %s, longest side from %g,%g to %g,%g\n", name, plain ? "rectangular" : "not rectangular",
              side[0], side[1], side[2], side[3]);
  plot_polygon(plot, plain ? 3 : 2, 4, outline);
}

int main(int argc, char** argv) {
  FILE* plot = plot_open(argc, argv, "geom-boxes.plt");
  FILE* fence = plot_open(argc, argv, "geom-boxes.fence");
  FILE* areas = plot_open(argc, argv, "geom-areas.plt");
  FILE* paper = plot_open(argc, argv, "geom-areas.fence");
  boxes(plot, fence);
  area(areas, "upright", upright);
  area(areas, "nearly", nearly);
  area(areas, "turned", turned);
  plot_fence(paper, 2, sheet);
  plot_close(plot);
  plot_close(fence);
  plot_close(areas);
  plot_close(paper);
}
