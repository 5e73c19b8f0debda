// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See painter.h.
#include "plotclip/painter.h"

#include <algorithm>
#include <cmath>

#include "plotclip/pens.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kLineWidth = 1.6;       // units of the page, for a pen of the default width
constexpr double kHatchWidth = 0.8;      // units
constexpr double kNarrowestHatch = 3.0;  // units: a closer hatch would run together
constexpr double kUsualHatch = 10.0;     // units, where the drawing names no spacing
constexpr double kFenceWidth = 2.4;
constexpr double kFenceDash = 12.0;
constexpr Colour kFenceColour = {0.75, 0.10, 0.35};

}  // namespace

void Painter::set_source(const Colour& colour) const {
  cairo_set_source_rgb(cr_, colour.r, colour.g, colour.b);
}

void Painter::trace(const PointRun& run, bool close) const {
  cairo_move_to(cr_, x(run[0]), y(run[0]));
  for (std::size_t i = 1; i < run.size(); ++i) cairo_line_to(cr_, x(run[i]), y(run[i]));
  // A dot becomes a line of no length, which round caps make visible.
  if (run.size() == 1) cairo_line_to(cr_, x(run[0]), y(run[0]));
  if (close) cairo_close_path(cr_);
}

void Painter::drawing(const Drawing& drawing, double strength) const {
  for (const Path& path : drawing.paths)
    if (path.kind == PathKind::kFilled) fill(path, pale(pen_colour(drawing, path.pen), strength));
  for (const Path& path : drawing.paths)
    if (path.kind != PathKind::kFilled) stroke(path, pale(pen_colour(drawing, path.pen), strength), strength);
}

void Painter::fill(const Path& path, const Colour& colour) const {
  cairo_save(cr_);
  cairo_set_fill_rule(cr_, CAIRO_FILL_RULE_EVEN_ODD);
  cairo_new_path(cr_);
  for (const PointRun& ring : path.runs) trace(ring, true);
  const Fill& fill = path.fill;
  if (fill.type == FillType::kSolid || fill.type == FillType::kShade) {
    set_source(pale(colour, fill.level / 100.0));
    cairo_fill(cr_);
  } else {
    set_source(colour);
    cairo_clip(cr_);
    hatch(fill.spacing, fill.angle);
    if (fill.type == FillType::kCrossHatch) hatch(fill.spacing, fill.angle + 90.0);
  }
  cairo_restore(cr_);
}

// Parallel lines through the current clip, all of them through multiples of the spacing from the drawing's
// origin, so that the hatches of neighbouring pieces meet.
void Painter::hatch(double spacing, double angle) const {
  const double asked = spacing > 0.0 ? spacing * frame_.scale : kUsualHatch * frame_.unit;
  const double step = std::max(asked, kNarrowestHatch * frame_.unit);
  const double dx = std::cos(angle * kPi / 180.0);
  const double dy = -std::sin(angle * kPi / 180.0);
  double x0 = 0.0, y0 = 0.0, x1 = 0.0, y1 = 0.0;
  cairo_clip_extents(cr_, &x0, &y0, &x1, &y1);
  const double cx = (x0 + x1) / 2.0;
  const double cy = (y0 + y1) / 2.0;
  const double reach = std::hypot(x1 - x0, y1 - y0) / 2.0;
  // The distance of the extent's middle from the hatch line through the origin, along the hatch's normal.
  const double middle = (cx - frame_.left) * -dy + (cy - frame_.top) * dx;
  cairo_set_line_width(cr_, kHatchWidth * frame_.unit);
  cairo_new_path(cr_);
  // Counted in whole numbers: far from the origin, adding one step need not change a double.
  const double first = std::ceil((middle - reach) / step) * step - middle;
  const int count = static_cast<int>(2.0 * reach / step) + 1;
  for (int k = 0; k < count; ++k) {
    const double off = first + k * step;
    cairo_move_to(cr_, cx - dy * off - dx * reach, cy + dx * off - dy * reach);
    cairo_line_to(cr_, cx - dy * off + dx * reach, cy + dx * off + dy * reach);
  }
  cairo_stroke(cr_);
}

void Painter::stroke(const Path& path, const Colour& colour, double strength) const {
  set_source(colour);
  const double thin = strength < 1.0 ? 0.7 : 1.0;
  cairo_set_line_width(cr_, kLineWidth * frame_.unit * thin * path.width / kDefaultWidth);
  cairo_set_line_cap(cr_, CAIRO_LINE_CAP_ROUND);
  cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
  cairo_new_path(cr_);
  for (const PointRun& run : path.runs) trace(run, path.kind == PathKind::kOutline);
  cairo_stroke(cr_);
}

void Painter::fence(const FencePolygons& polygons) const {
  const double dash = kFenceDash * frame_.unit;
  const double dashes[] = {dash, dash * 0.6};
  cairo_save(cr_);
  set_source(kFenceColour);
  cairo_set_line_width(cr_, kFenceWidth * frame_.unit);
  cairo_set_line_cap(cr_, CAIRO_LINE_CAP_BUTT);
  cairo_set_dash(cr_, dashes, 2, 0.0);
  for (const PointRun& polygon : polygons) {
    cairo_new_path(cr_);
    if (polygon.size() == 2) {
      const double width = x(polygon[1]) - x(polygon[0]);
      cairo_rectangle(cr_, x(polygon[0]), y(polygon[0]), width, y(polygon[1]) - y(polygon[0]));
    } else {
      trace(polygon, true);
    }
    cairo_stroke(cr_);
  }
  cairo_restore(cr_);
}

}  // namespace Corvane::Print::plotclip
