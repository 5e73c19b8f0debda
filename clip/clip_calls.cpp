// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exported calls that clip lines and polygons. They do nothing but check what the clippers trust and call
// them.
#include "clip/point_count.h"
#include "clip/polygon_clip.h"
#include "clip/records.h"
#include "corvane/print/cl.h"

using namespace Corvane::Print::clip;

int CORVANE_PRINT_CALL CLclipLine(CLFenceHandle fence, int dim, int numPoints, const double* points,
                                  int* numPieces, int* counts, double* out, int* numOut) {
  const bool arrays = points != nullptr && counts != nullptr && out != nullptr;
  if (fence == nullptr || !arrays || numPieces == nullptr || numOut == nullptr) return CL_BAD_ARGUMENT;
  if ((dim != 2 && dim != 3) || numPoints < 1 || numPoints > kMostPoints) return CL_BAD_ARGUMENT;
  if (!is_addressable(numPoints, dim)) return CL_BAD_ARGUMENT;
  return fence->lineClipper(fence, dim, numPoints, points, numPieces, counts, out, numOut);
}

int CORVANE_PRINT_CALL CLclipPolygon(CLFenceHandle fence, int dim, int numPoints, const double* points,
                                     int* numPieces, int* counts, double* out, int* numOut) {
  if (numPoints > kMostPoints) return CL_BAD_ARGUMENT;
  return clip_polygon(fence, dim, numPoints, points, numPieces, counts, out, numOut);
}
