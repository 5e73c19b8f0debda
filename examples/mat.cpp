// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Scales, turns and moves the outline of a house onto a sheet, and takes it back.
#include "corvane/print/mat.h"

#include <cstdio>

#include "plot.h"

using namespace Corvane::Print;

static const double house[] = {200, 200, 1400, 200, 1400, 1000, 800, 1500, 200, 1000};
static const double sheet[] = {0, 0, 4600, 3200};

static void show(const char* what, const double* points) {
  std::printf("%s:", what);
  for (int i = 0; i < 5; ++i) std::printf(" (%.1f,%.1f)", points[2 * i], points[2 * i + 1]);
  std::printf("\n");
}

int main(int argc, char** argv) {
  double scale[9], turn[9], shift[9], all[9];
  MATBuildScaleHMat(2, 1.5, 1.5, 0, scale);
  MATBuildRotAboutZHMat(2, 0.5235987755982988, turn);  // 30 degrees, counter-clockwise
  MATBuildTransHMat(2, 2600, 200, 0, shift);
  MATMulMatMat(3, scale, turn, all);  // points are rows: the first factor acts first
  MATMulMatMat(3, all, shift, all);

  double points[15], placed[10];
  MATConvertPtDimToHomog(2, 5, house, points);
  MATMulVecMat(3, points, 5, all, points);
  MATConvertPtHomogToDim(2, 5, points, placed);
  show("on the sheet", placed);

  // The way back: each inverse, in the opposite order.
  double back[9], inverse[9], again[10];
  MATBuildInvTransHMat(2, shift, back);
  MATBuildInvRotHMat(2, turn, inverse);
  MATMulMatMat(3, back, inverse, back);
  MATBuildInvScaleHMat(2, scale, inverse);
  MATMulMatMat(3, back, inverse, back);
  MATMulVecMat(3, points, 5, back, points);
  MATConvertPtHomogToDim(2, 5, points, again);
  show("back again", again);

  FILE* plot = plot_open(argc, argv, "mat.plt");
  FILE* fence = plot_open(argc, argv, "mat.fence");
  plot_polygon(plot, 5, 5, house);
  plot_polygon(plot, 2, 5, placed);
  plot_fence(fence, 2, sheet);
  plot_close(plot);
  plot_close(fence);
}
