// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Points and rings as the tests hold them: always three coordinates, rings open (the first point is not
// repeated), and the way to and from the flat arrays of the interface.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_RING_H
#define CORVANE_PRINT_TESTS_SUPPORT_RING_H

#include "corvane/print/cl.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

namespace Corvane::Print::tests {

struct Point {
  double x = 0, y = 0, z = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

using Ring = std::vector<Point>;
using Rings = std::vector<Ring>;

inline Point line_break() {
  return {CL_BREAK, CL_BREAK, CL_BREAK};
}

inline std::vector<double> flatten(const Ring& ring, int dim) {
  std::vector<double> flat;
  flat.reserve(ring.size() * static_cast<std::size_t>(dim));
  for (const Point& p : ring) {
    flat.push_back(p.x);
    flat.push_back(p.y);
    if (dim == 3) flat.push_back(p.z);
  }
  return flat;
}

// For messages: every digit, so that a case can be typed in again.
inline std::string text_of(const Ring& ring) {
  std::string text = "(";
  char buffer[100];
  for (const Point& p : ring) {
    std::snprintf(buffer, sizeof buffer, p.z != 0 ? "%s%.17g %.17g %.17g" : "%s%.17g %.17g",
                  text.size() > 1 ? ", " : "", p.x, p.y, p.z);
    text += buffer;
  }
  text += ')';
  return text;
}

inline std::string text_of(const Rings& rings) {
  std::string text;
  for (const Ring& ring : rings) {
    if (!text.empty()) text += ' ';
    text += text_of(ring);
  }
  return text.empty() ? "(none)" : text;
}

inline Ring reversed(Ring ring) {
  std::reverse(ring.begin(), ring.end());
  return ring;
}

inline Ring rotated(Ring ring, std::size_t first) {
  std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(first), ring.end());
  return ring;
}

inline Ring moved(Ring ring, double dx, double dy) {
  for (Point& p : ring) p.x += dx, p.y += dy;
  return ring;
}

inline Ring enlarged(Ring ring, double factor) {
  for (Point& p : ring) p.x *= factor, p.y *= factor;
  return ring;
}

// Puts a flat ring onto the plane z = a x + b y + c.
inline Ring lifted(Ring ring, double a, double b, double c) {
  for (Point& p : ring) p.z = a * p.x + b * p.y + c;
  return ring;
}

}  // namespace Corvane::Print::tests

#endif
