// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No state. Everything here is decided by signs of cross products of the edges as they were given, so that
// coordinates on a grid are decided exactly.
#include "clip/sides.h"

#include "clip/ring.h"
#include "clip/tolerances.h"

#include <algorithm>
#include <cmath>

namespace Corvane::Print::clip {
namespace {

double cross(Direction a, Direction b) {
  return a.dx * b.dy - a.dy * b.dx;
}
double dot(Direction a, Direction b) {
  return a.dx * b.dx + a.dy * b.dy;
}

// The square of the distance from a point to an edge.
template <class Point>
double distance_squared(const Point& start, const Point& end, double x, double y) {
  const double ex = end.x - start.x, ey = end.y - start.y;
  const double squared = ex * ex + ey * ey;
  double t = squared > 0.0 ? ((x - start.x) * ex + (y - start.y) * ey) / squared : 0.0;
  t = std::clamp(t, 0.0, 1.0);
  const double dx = start.x + t * ex - x, dy = start.y + t * ey - y;
  return dx * dx + dy * dy;
}

double reach(Direction d) {
  return std::max(std::fabs(d.dx), std::fabs(d.dy));
}

// Same direction, by the rule that keeps parallel edges from meeting. That rule alone would take any two
// short edges for parallel; so the shorter one must also end close to the longer one's line.
bool runs_along(Direction a, Direction b) {
  if (dot(a, b) <= 0.0) return false;
  const double product = std::fabs(cross(a, b));
  return product <= kParallel && product <= kSamePlace * std::max(reach(a), reach(b));
}

// Whether d lies strictly within the turn from `from` counter-clockwise to `to`.
Side within_turn(Direction d, Direction from, Direction to) {
  const double turn = cross(from, to);
  if (turn > 0.0) return cross(from, d) > 0.0 && cross(d, to) > 0.0 ? Side::kInside : Side::kOutside;
  if (turn < 0.0) return cross(to, d) > 0.0 && cross(d, from) > 0.0 ? Side::kOutside : Side::kInside;
  // A straight line has a half-plane on either side; a spike has no side to speak of.
  if (dot(from, to) >= 0.0) return Side::kUnknown;
  return cross(from, d) > 0.0 ? Side::kInside : Side::kOutside;
}

}  // namespace

Direction leaving(const FenceVertex& at) {
  if (at.marker == kInserted) return {at.dx, at.dy};
  // Points that differ in z alone leave edges of no length.
  const FenceVertex* v = &at;
  while (!has_length({v->dx, v->dy}) && v->next != &at) v = v->next;
  return {v->dx, v->dy};
}

Direction arriving(const FenceVertex& at) {
  if (at.marker == kInserted) return {at.dx, at.dy};
  const FenceVertex* v = at.prev;
  while (!has_length({v->dx, v->dy}) && v != &at) v = v->prev;
  return {v->dx, v->dy};
}

Side side_of(Direction d, const FenceVertex& at, bool clockwise) {
  return side_of(d, leaving(at), arriving(at).reversed(), clockwise);
}

Side side_of(Direction d, Direction ahead, Direction back, bool clockwise) {
  if (!has_length(d)) return Side::kUnknown;
  if (runs_along(d, ahead) || runs_along(d, back)) return Side::kAlong;
  // The inside is to the right of a clockwise ring and to the left of the other.
  return clockwise ? within_turn(d, back, ahead) : within_turn(d, ahead, back);
}

Side agreed_side(Side at_start, Side at_end) {
  const auto tells_nothing = [](Side s) { return s == Side::kUnknown || s == Side::kAlong; };
  if (at_start == at_end || at_end == Side::kUnknown) return at_start;
  if (at_start == Side::kUnknown) return at_end;
  if (tells_nothing(at_start)) return at_end;
  if (tells_nothing(at_end)) return at_start;
  return Side::kUnknown;
}

bool encloses(const RingEdges& ring, double x, double y) {
  bool inside = false;
  ring.for_each([&](const auto& v, const auto& end) {
    if ((v.y > y) == (end.y > y)) return;
    const double side = (end.x - v.x) * (y - v.y) - (x - v.x) * (end.y - v.y);
    if (end.y > v.y ? side > 0.0 : side < 0.0) inside = !inside;
  });
  return inside;
}

void Witness::add_stretch(double x0, double y0, double x1, double y1) {
  if (started_) consider(x0, y0);
  started_ = true;
  consider(x0 + (x1 - x0) / 2.0, y0 + (y1 - y0) / 2.0);
}

void Witness::consider(double x, double y) {
  double clearance = kLargest;
  ring_.for_each([&](const auto& start, const auto& end) {
    const double squared = distance_squared(start, end, x, y);
    if (squared < clearance) clearance = squared;
  });
  if (!(clearance > clearance_)) return;
  clearance_ = clearance;
  x_ = x;
  y_ = y;
}

Side Witness::side() const {
  if (clearance_ <= kSamePlace * kSamePlace) return Side::kAlong;
  return encloses(ring_, x_, y_) ? Side::kInside : Side::kOutside;
}

}  // namespace Corvane::Print::clip
