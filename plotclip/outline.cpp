// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See outline.h.
#include "plotclip/outline.h"

#include "corvane/print/geom.h"

namespace Corvane::Print::plotclip {

PointRun corners_of(const PointRun& rectangle) {
  double ends[2][2] = {{rectangle[0].x, rectangle[0].y}, {rectangle[1].x, rectangle[1].y}};
  double low[2], high[2], verts[8];
  GEOMComputeMinEnclRect(2, ends, low, high);
  GEOMComputeRectVerts(low, high, verts);
  PointRun corners;
  for (int i = 0; i < 4; ++i) corners.push_back({verts[2 * i], verts[2 * i + 1]});
  return corners;
}

bool is_rectangular_plot_area(const PointRun& outline) {
  if (outline.size() < 2) return false;
  if (outline.size() == 2) return is_rectangular_plot_area(corners_of(outline));
  std::vector<double> points;
  for (const Point& p : outline) points.insert(points.end(), {p.x, p.y});
  points.insert(points.end(), {outline[0].x, outline[0].y});
  // An outline of ten points, closed and traced twice, has lost its last one where it was read. So both are
  // tried: the outline as it is, and closed by its first point.
  const int open = static_cast<int>(outline.size());
  return GEOMCheckRectangularPlotArea(2, open, points.data()) == 1 ||
         GEOMCheckRectangularPlotArea(2, open + 1, points.data()) == 1;
}

}  // namespace Corvane::Print::plotclip
