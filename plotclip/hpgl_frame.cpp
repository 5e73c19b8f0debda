// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Scaling and arcs; see hpgl_frame.h.
#include "plotclip/hpgl_frame.h"

#include <algorithm>
#include <cmath>

namespace Corvane::Print::plotclip {
namespace {

constexpr double kPi = 3.14159265358979323846;
// Factors outside these bounds come from broken files; they would only make infinities.
constexpr double kSmallestFactor = 1e-9;
constexpr double kLargestFactor = 1e9;

double tame(double factor) {
  return std::copysign(std::clamp(std::abs(factor), kSmallestFactor, kLargestFactor), factor);
}

}  // namespace

void HpglFrame::set_points(double x1, double y1, double x2, double y2) {
  has_points_ = true;
  p1x_ = x1;
  p1y_ = y1;
  // Scaling points on one vertical or horizontal leave no area; plotters move the second by one unit.
  p2x_ = x2 == x1 ? x1 + 1.0 : x2;
  p2y_ = y2 == y1 ? y1 + 1.0 : y2;
  update();
}

void HpglFrame::move_points(double x1, double y1) {
  if (!has_points_) return;
  set_points(x1, y1, p2x_ + (x1 - p1x_), p2y_ + (y1 - p1y_));
}

bool HpglFrame::scale_to(double xmin, double xmax, double ymin, double ymax, bool isotropic, double left,
                         double bottom) {
  if (xmin == xmax || ymin == ymax) return false;
  scale_ = isotropic ? Scale::kIsotropic : Scale::kRange;
  xmin_ = xmin;
  xmax_ = xmax;
  ymin_ = ymin;
  ymax_ = ymax;
  left_ = std::clamp(left, 0.0, 100.0);
  bottom_ = std::clamp(bottom, 0.0, 100.0);
  update();
  return true;
}

bool HpglFrame::scale_by(double xmin, double xfactor, double ymin, double yfactor) {
  if (xfactor == 0.0 || yfactor == 0.0) return false;
  scale_ = Scale::kFactor;
  xmin_ = xmin;
  xmax_ = xfactor;
  ymin_ = ymin;
  ymax_ = yfactor;
  update();
  return true;
}

void HpglFrame::clear_scale() {
  scale_ = Scale::kNone;
  update();
}

void HpglFrame::update() {
  fx_ = fy_ = 1.0;
  ox_ = oy_ = 0.0;
  if (scale_ == Scale::kNone) return;
  if (scale_ == Scale::kFactor) {
    fx_ = tame(xmax_);
    fy_ = tame(ymax_);
    ox_ = p1x_ - xmin_ * fx_;
    oy_ = p1y_ - ymin_ * fy_;
  } else if (has_points_) {
    update_range();
  }
}

void HpglFrame::update_range() {
  fx_ = tame((p2x_ - p1x_) / (xmax_ - xmin_));
  fy_ = tame((p2y_ - p1y_) / (ymax_ - ymin_));
  double spare_x = 0.0;
  double spare_y = 0.0;
  if (scale_ == Scale::kIsotropic) {
    const double factor = std::min(std::abs(fx_), std::abs(fy_));
    fx_ = std::copysign(factor, fx_);
    fy_ = std::copysign(factor, fy_);
    spare_x = (p2x_ - p1x_) - fx_ * (xmax_ - xmin_);
    spare_y = (p2y_ - p1y_) - fy_ * (ymax_ - ymin_);
  }
  ox_ = p1x_ - xmin_ * fx_ + spare_x * left_ / 100.0;
  oy_ = p1y_ - ymin_ * fy_ + spare_y * bottom_ / 100.0;
}

std::vector<Point> chords_of(const HpglFrame& frame, Arc arc, double chord) {
  const double sweep = std::clamp(arc.sweep, -360.0, 360.0);
  const double step = std::clamp(std::abs(chord), kSmallestChord, 120.0);
  // A little less than a whole chord too much does not make one more.
  const int count = std::max(1, static_cast<int>(std::ceil(std::abs(sweep) / step - 1e-9)));
  std::vector<Point> points;
  points.reserve(static_cast<std::size_t>(count));
  for (int i = 1; i <= count; ++i) {
    const double turn = sweep * i / count * kPi / 180.0;
    const double c = std::abs(sweep) == 360.0 && i == count ? 1.0 : std::cos(turn);
    const double s = std::abs(sweep) == 360.0 && i == count ? 0.0 : std::sin(turn);
    points.push_back(frame.to_plot(arc.cx + arc.rx * c - arc.ry * s, arc.cy + arc.rx * s + arc.ry * c));
  }
  return points;
}

bool arc_through(const HpglFrame& frame, const Point& from, const Point& mid, const Point& to, Arc& arc) {
  const double ax = frame.x_of(from);
  const double ay = frame.y_of(from);
  const double bx = frame.x_of(mid) - ax;
  const double by = frame.y_of(mid) - ay;
  const double cx = frame.x_of(to) - ax;
  const double cy = frame.y_of(to) - ay;
  const double d = 2.0 * (bx * cy - by * cx);
  const double b2 = bx * bx + by * by;
  const double c2 = cx * cx + cy * cy;
  if (!(std::abs(d) > 1e-9 * (b2 + c2))) return false;
  const double ux = (cy * b2 - by * c2) / d;
  const double uy = (bx * c2 - cx * b2) / d;
  const double start = std::atan2(-uy, -ux);
  double sweep = std::atan2(cy - uy, cx - ux) - start;
  // Counter-clockwise through the middle point when the three points turn left.
  if (d > 0.0 && sweep <= 0.0) sweep += 2.0 * kPi;
  if (d < 0.0 && sweep >= 0.0) sweep -= 2.0 * kPi;
  arc = {ax + ux, ay + uy, -ux, -uy, sweep * 180.0 / kPi};
  return true;
}

}  // namespace Corvane::Print::plotclip
