// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Lines and arcs; see hpgl_interpreter.h.
#include <algorithm>
#include <cmath>

#include "plotclip/hpgl_interpreter.h"

namespace Corvane::Print::plotclip {
namespace {

// Four times the range of the language's numbers: scaling may carry a place beyond that range.
constexpr double kLargestPlace = 4294967296.0;

}  // namespace

Point HpglInterpreter::bounded(Point p) const {
  // The comparisons also settle a NaN, which becomes 0.
  const auto bound = [](double v) {
    return v >= -kLargestPlace ? std::min(v, kLargestPlace) : v < -kLargestPlace ? -kLargestPlace : 0.0;
  };
  return {bound(p.x), bound(p.y), 0.0};
}

Point HpglInterpreter::place(double x, double y, bool relative) const {
  if (!relative) return bounded(frame_.to_plot(x, y));
  const Point step = frame_.step(x, y);
  return bounded({at_.x + step.x, at_.y + step.y, 0.0});
}

void HpglInterpreter::move_pen(const Numbers& n) {
  want(n.size() % 2 == 0, "a list of coordinate pairs");
  for (std::size_t i = 0; i + 1 < n.size(); i += 2) go_to(place(n[i], n[i + 1], relative_));
}

void HpglInterpreter::lower(bool down) {
  if (!down) end_run();
  if (down && !in_polygon_ && run_.empty()) run_.push_back(at_);  // a dot, unless a movement follows
  down_ = down;
}

void HpglInterpreter::go_to(Point p) {
  if (in_polygon_) {
    polygon_move(p);
  } else if (down_) {
    if (run_.empty()) run_.push_back(at_);
    if (run_.size() >= limits_.points) lexer_.fail_at_instruction("fewer points");
    if (p != run_.back()) run_.push_back(p);
  }
  at_ = p;
}

void HpglInterpreter::end_run() {
  if (run_.empty()) return;
  std::vector<PointRun> runs(1);
  runs[0].swap(run_);
  add_path(PathKind::kLine, std::move(runs));
}

void HpglInterpreter::add_path(PathKind kind, std::vector<PointRun> runs) {
  if (pen_ == 0 || runs.empty()) return;  // without a pen nothing is drawn
  for (const PointRun& run : runs) points_ += run.size();
  if (points_ > limits_.points)
    lexer_.fail_at_instruction("at most " + std::to_string(limits_.points) + " points in all");
  const auto width = widths_.find(pen_);
  drawing_.paths.push_back({kind, pen_, width == widths_.end() ? kDefaultWidth : width->second,
                            kind == PathKind::kFilled ? fill_ : Fill{}, std::move(runs)});
}

void HpglInterpreter::follow(const std::vector<Point>& points) {
  for (const Point& p : points) go_to(bounded(p));
}

double HpglInterpreter::chord(const Numbers& n, std::size_t index) const {
  // A tolerance given as a length is not translated into an angle.
  return n.size() > index && chord_is_angle_ && n[index] != 0.0 ? n[index] : kDefaultChord;
}

void HpglInterpreter::arc(bool relative, const Numbers& n) {
  want(n.size() == 3 || n.size() == 4, "an arc's centre, angle and at most a chord");
  const Point centre = place(n[0], n[1], relative);
  const double x = frame_.x_of(centre);
  const double y = frame_.y_of(centre);
  follow(chords_of(frame_, {x, y, frame_.x_of(at_) - x, frame_.y_of(at_) - y, n[2]}, chord(n, 3)));
}

void HpglInterpreter::arc_by_points(bool relative, const Numbers& n) {
  want(n.size() == 4 || n.size() == 5, "an arc's second and third point and at most a chord");
  const Point mid = place(n[0], n[1], relative);
  const Point to = place(n[2], n[3], relative);
  Arc arc;
  if (arc_through(frame_, at_, mid, to, arc)) {
    std::vector<Point> points = chords_of(frame_, arc, chord(n, 4));
    points.back() = to;
    follow(points);
  } else {
    follow({mid, to});
  }
}

// Drawn whether the pen is up or down, around the place where the pen stays.
void HpglInterpreter::circle(const Numbers& n) {
  want(n.size() == 1 || n.size() == 2, "a circle's radius and at most a chord");
  const Point centre = at_;
  const Arc arc = {frame_.x_of(centre), frame_.y_of(centre), n[0], 0.0, 360.0};
  std::vector<Point> points = chords_of(frame_, arc, chord(n, 1));
  for (Point& p : points) p = bounded(p);
  if (in_polygon_) {
    if (ring_.size() > 1) close_ring();
    ring_ = std::move(points);
    close_ring();
    return;
  }
  end_run();
  points.insert(points.begin(), points.back());
  add_path(PathKind::kLine, {std::move(points)});
}

}  // namespace Corvane::Print::plotclip
