// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Rectangles, wedges and the polygon buffer; see hpgl_interpreter.h. Each of them leaves its rings in the
// buffer, so that a fill can be followed by an outline of the same shape.
#include <cmath>

#include "plotclip/hpgl_interpreter.h"

namespace Corvane::Print::plotclip {

// PM0 starts a polygon at the pen's place, PM1 closes a ring, PM2 closes the last and leaves the mode. The
// pen's movements inside belong to the rings, up or down.
void HpglInterpreter::polygon_mode(const Numbers& n) {
  const double kind = n.empty() ? 0.0 : n[0];
  want(n.size() <= 1 && (kind == 0.0 || kind == 1.0 || kind == 2.0), "PM with 0, 1 or 2");
  if (kind == 0.0) {
    end_run();
    polygon_.clear();
    ring_.assign(1, at_);
    polygon_start_ = at_;
    in_polygon_ = true;
  } else if (in_polygon_) {
    close_ring();
    in_polygon_ = kind == 1.0;
    if (!in_polygon_) at_ = polygon_start_;
  }
}

void HpglInterpreter::polygon_move(const Point& p) {
  if (ring_.size() >= limits_.points) lexer_.fail_at_instruction("fewer points");
  if (ring_.empty() || p != ring_.back()) ring_.push_back(p);
}

// Rings of fewer than three points enclose nothing and are dropped.
void HpglInterpreter::close_ring() {
  while (ring_.size() > 1 && ring_.front() == ring_.back()) ring_.pop_back();
  if (ring_.size() >= 3) polygon_.push_back(std::move(ring_));
  ring_.clear();
}

void HpglInterpreter::draw_polygon(PathKind kind) {
  if (in_polygon_) return;
  end_run();
  add_path(kind, polygon_);
}

void HpglInterpreter::rectangle(PathKind kind, bool relative, const Numbers& n) {
  want(n.size() == 2, "a rectangle's opposite corner");
  if (in_polygon_) return;
  const Point to = place(n[0], n[1], relative);
  ring_ = {at_, {to.x, at_.y, 0.0}, to, {at_.x, to.y, 0.0}};
  polygon_.clear();
  if (to.x != at_.x && to.y != at_.y) close_ring();
  ring_.clear();
  draw_polygon(kind);
}

void HpglInterpreter::wedge(PathKind kind, const Numbers& n) {
  want(n.size() == 3 || n.size() == 4, "a wedge's radius, start angle, angle and at most a chord");
  if (in_polygon_) return;
  const double start = n[1] * 3.14159265358979323846 / 180.0;
  const Arc arc = {frame_.x_of(at_), frame_.y_of(at_), n[0] * std::cos(start), n[0] * std::sin(start), n[2]};
  ring_.clear();
  if (std::abs(n[2]) < 360.0) {
    ring_.push_back(at_);
    ring_.push_back(bounded(frame_.to_plot(arc.cx + arc.rx, arc.cy + arc.ry)));
  }
  for (const Point& p : chords_of(frame_, arc, chord(n, 3))) ring_.push_back(bounded(p));
  polygon_.clear();
  close_ring();
  draw_polygon(kind);
}

}  // namespace Corvane::Print::plotclip
