// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Puts paths on a cairo page.
#ifndef CORVANE_PRINT_PLOTCLIP_PAINTER_H
#define CORVANE_PRINT_PLOTCLIP_PAINTER_H

#include <cairo.h>

#include "plotclip/drawing.h"
#include "plotclip/fence.h"

namespace Corvane::Print::plotclip {

// The page and where a drawing's point lies on it: (left + x * scale, top - y * scale).
struct PageFrame {
  double width = 0.0;
  double height = 0.0;
  double left = 0.0;
  double top = 0.0;
  double scale = 1.0;
  double unit = 1.0;  // lengths that do not belong to the drawing, such as line widths, are multiples of this
};

class Painter {
public:
  Painter(cairo_t* cr, const PageFrame& frame) : cr_(cr), frame_(frame) {}
  // Fills first, then outlines and lines. `strength` below 1 makes everything paler and the lines thinner.
  void drawing(const Drawing& drawing, double strength) const;
  void fence(const FencePolygons& polygons) const;

private:
  double x(const Point& p) const { return frame_.left + p.x * frame_.scale; }
  double y(const Point& p) const { return frame_.top - p.y * frame_.scale; }
  void trace(const PointRun& run, bool close) const;
  void set_source(const Colour& colour) const;
  void fill(const Path& path, const Colour& colour) const;
  void hatch(double spacing, double angle) const;
  void stroke(const Path& path, const Colour& colour, double strength) const;

  cairo_t* cr_;
  PageFrame frame_;
};

}  // namespace Corvane::Print::plotclip

#endif
