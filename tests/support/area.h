// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Areas and lengths, x and y only. Areas are taken about the ring's first point, so that an outline far from
// the origin keeps its digits.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_AREA_H
#define CORVANE_PRINT_TESTS_SUPPORT_AREA_H

#include "tests/support/ring.h"

#include <cmath>

namespace Corvane::Print::tests {

// Positive for a counter-clockwise ring.
inline double signed_area(const Ring& ring) {
  double twice = 0;
  for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
    twice += (ring[i].x - ring[0].x) * (ring[i + 1].y - ring[0].y) -
             (ring[i + 1].x - ring[0].x) * (ring[i].y - ring[0].y);
  }
  return twice / 2;
}

inline double signed_area(const Rings& rings) {
  double sum = 0;
  for (const Ring& ring : rings) sum += signed_area(ring);
  return sum;
}

inline double area(const Ring& ring) {
  return std::fabs(signed_area(ring));
}

// The area of what a polygon clip kept: pieces run clockwise like the subject, holes the other way round.
inline double kept_area(const Rings& pieces) {
  return -signed_area(pieces);
}

inline double segment_length(const Point& a, const Point& b) {
  return std::hypot(b.x - a.x, b.y - a.y);
}

// Of a polyline; breaks join nothing.
inline double length(const Ring& line) {
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i - 1].x != CL_BREAK && line[i].x != CL_BREAK) sum += segment_length(line[i - 1], line[i]);
  }
  return sum;
}

inline double length(const Rings& lines) {
  double sum = 0;
  for (const Ring& line : lines) sum += length(line);
  return sum;
}

struct Box {
  double xmin, ymin, xmax, ymax;
};

inline Box box_of(const Ring& ring) {
  Box box = {ring[0].x, ring[0].y, ring[0].x, ring[0].y};
  for (const Point& p : ring) {
    box = {std::fmin(box.xmin, p.x), std::fmin(box.ymin, p.y), std::fmax(box.xmax, p.x),
           std::fmax(box.ymax, p.y)};
  }
  return box;
}

}  // namespace Corvane::Print::tests

#endif
