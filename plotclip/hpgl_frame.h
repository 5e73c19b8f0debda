// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a plot file's numbers lie on the sheet: the scaling of IP, IR and SC, and circular arcs as chords.
//
// Without scaling a number is a plotter unit. With SC but no IP the sheet's own scaling points would count,
// and no sheet is known here; then a user unit is taken for a plotter unit, so the drawing keeps its shape.
#ifndef CORVANE_PRINT_PLOTCLIP_HPGL_FRAME_H
#define CORVANE_PRINT_PLOTCLIP_HPGL_FRAME_H

#include <vector>

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

class HpglFrame {
public:
  // The two scaling points, in plotter units.
  void set_points(double x1, double y1, double x2, double y2);
  // Moves the first scaling point and keeps the distance to the second.
  void move_points(double x1, double y1);
  void clear_points() {
    has_points_ = false;
    update();
  }
  // User-unit ranges between the scaling points; `isotropic` makes both axes equal and centres the area, or
  // puts the spare room `left` and `bottom` per cent before it. False when a range is empty.
  bool scale_to(double xmin, double xmax, double ymin, double ymax, bool isotropic, double left,
                double bottom);
  // Plotter units per user unit, the origin lying at the first scaling point. False when a factor is zero.
  bool scale_by(double xmin, double xfactor, double ymin, double yfactor);
  void clear_scale();

  Point to_plot(double x, double y) const { return {x * fx_ + ox_, y * fy_ + oy_, 0.0}; }
  // A distance along each axis, without the origin.
  Point step(double dx, double dy) const { return {dx * fx_, dy * fy_, 0.0}; }
  double x_of(const Point& p) const { return (p.x - ox_) / fx_; }
  double y_of(const Point& p) const { return (p.y - oy_) / fy_; }
  double x_factor() const { return fx_; }

private:
  enum class Scale { kNone, kRange, kIsotropic, kFactor };
  void update();
  void update_range();

  bool has_points_ = false;
  double p1x_ = 0.0, p1y_ = 0.0, p2x_ = 0.0, p2y_ = 0.0;
  Scale scale_ = Scale::kNone;
  double xmin_ = 0.0, xmax_ = 1.0, ymin_ = 0.0, ymax_ = 1.0, left_ = 50.0, bottom_ = 50.0;
  double fx_ = 1.0, fy_ = 1.0, ox_ = 0.0, oy_ = 0.0;
};

// An arc in user units, as its centre, the vector to its start and the angle it turns through in degrees.
struct Arc {
  double cx = 0.0, cy = 0.0;
  double rx = 0.0, ry = 0.0;
  double sweep = 0.0;
};

inline constexpr double kDefaultChord = 5.0;    // degrees
inline constexpr double kSmallestChord = 0.36;  // degrees: at most 1000 chords a circle

// The points of the arc after its start, on the sheet. An arc turns at most once around.
std::vector<Point> chords_of(const HpglFrame& frame, Arc arc, double chord);

// The arc from `from` through `mid` to `to`, all on the sheet: false when the points lie on a line.
bool arc_through(const HpglFrame& frame, const Point& from, const Point& mid, const Point& to, Arc& arc);

}  // namespace Corvane::Print::plotclip

#endif
