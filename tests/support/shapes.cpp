// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "tests/support/shapes.h"

#include <cmath>
#include <utility>

namespace Corvane::Print::tests {
namespace {

constexpr double kPi = 3.14159265358979323846;

double thousandths(double v) {
  return std::floor(v * 1000 + 0.5) / 1000;
}

double star_radius(StarFamily family, double u, double th, int points) {
  switch (family) {
    case StarFamily::kSpiky:
      return 0.5 + 0.5 * u;
    case StarFamily::kRough:
      return 0.75 + (4 * kPi / points) * (u - 0.5);
    case StarFamily::kWavy:
      break;
  }
  return 0.75 + 0.15 * std::sin(5 * th) + (kPi / points) * (u - 0.5);
}

// Turned by the direction, not scaled.
Ring turned(Ring ring, const Point& by) {
  for (Point& p : ring) p = {p.x * by.x - p.y * by.y, p.x * by.y + p.y * by.x, p.z};
  return ring;
}

Point random_direction(Random& random) {
  return direction(random.between(0.0, 1.0), 1.0);
}

// Back into +-size, where it left it.
double reflected(double v, double size) {
  if (v > size) return 2 * size - v;
  return v < -size ? -2 * size - v : v;
}

}  // namespace

Ring benchmark_star(StarFamily family, int points, std::uint64_t seed, double phase, double cx, double cy,
                    double radius) {
  Random random(seed);
  Ring ring;
  for (int i = 0; i < points; ++i) {
    const double th = 2 * kPi * (i + phase) / points;
    const double r = radius * star_radius(family, random.unit(), th, points);
    ring.push_back({thousandths(cx + r * std::cos(th)), thousandths(cy + r * std::sin(th)), 0});
  }
  return ring;
}

Point direction(double i, double n) {
  const double quarters = 4 * (i / n);
  const int quarter = static_cast<int>(quarters) % 4;
  const double t = quarters - std::floor(quarters);
  const double c = (1 - t * t) / (1 + t * t), s = 2 * t / (1 + t * t);
  switch (quarter) {
    case 0:
      return {c, s, 0};
    case 1:
      return {-s, c, 0};
    case 2:
      return {-c, -s, 0};
    default:
      return {s, -c, 0};
  }
}

Ring star(Random& random, int points, double inner, double outer) {
  Ring ring;
  const double phase = random.unit();
  for (int i = 0; i < points; ++i) {
    const Point d = direction(i + phase, points);
    const double r = random.between(inner, outer);
    ring.push_back({r * d.x, r * d.y, 0});
  }
  return ring;
}

Ring convex(Random& random, int points, double radius) {
  Ring ring;
  for (int i = 0; i < points; ++i) {
    const Point d = direction(i + random.between(0.0, 0.9), points);
    ring.push_back({radius * d.x, radius * d.y, 0});
  }
  return ring;
}

Ring rectangle(double x0, double y0, double x1, double y1) {
  return {{x0, y0, 0}, {x1, y0, 0}, {x1, y1, 0}, {x0, y1, 0}};
}

Ring comb(Random& random, int teeth, double size) {
  // The back lies along the bottom; the teeth stand on it, each a little narrower than its place.
  Ring ring = {{-size, -size, 0}, {size, -size, 0}};
  const double pitch = 2 * size / teeth;
  for (int k = teeth - 1; k >= 0; --k) {
    const double left = -size + k * pitch, valley = random.between(-0.9, -0.6) * size;
    const double top = random.between(-0.2, 1.0) * size;
    if (k < teeth - 1) ring.push_back({left + random.between(0.8, 0.9) * pitch, valley, 0});
    ring.push_back({left + (k < teeth - 1 ? random.between(0.55, 0.75) : 1.0) * pitch, top, 0});
    ring.push_back({left + random.between(0.1, 0.3) * pitch, top + random.between(-0.1, 0.1) * size, 0});
    if (k > 0) ring.push_back({left + random.between(0.01, 0.05) * pitch, valley, 0});
  }
  ring.back().x = -size;
  return turned(std::move(ring), random_direction(random));
}

Ring spiral(Random& random, int turns, double size) {
  const int steps = 12 * turns;
  const double thickness = random.between(0.3, 0.7) * size / (turns + 1);
  Ring outer, inner;
  for (int i = 0; i <= steps; ++i) {
    const Point d = direction(i % 12 + 0.2, 12);
    const double r = size * (i + 6) / (steps + 12) + random.between(0.0, 0.1) * thickness;
    outer.push_back({(r + thickness / 2) * d.x, (r + thickness / 2) * d.y, 0});
    inner.push_back({(r - thickness / 2) * d.x, (r - thickness / 2) * d.y, 0});
  }
  outer.insert(outer.end(), inner.rbegin(), inner.rend());
  return turned(std::move(outer), random_direction(random));
}

Ring any_shape(Random& random, double size) {
  switch (random.below(8)) {
    case 0:
      return comb(random, random.between(2, 8), 0.7 * size);
    case 1:
      return spiral(random, random.between(1, 4), 0.8 * size);
    case 2:
      return convex(random, random.between(3, 20), size);
    case 3: {
      const double x = random.between(0.1, 1.0) * size, y = random.between(0.1, 1.0) * size;
      return rectangle(-x, -y, x, y);
    }
    case 4: {
      const Ring bar = rectangle(-size, -0.1 * size, size, random.between(0.1, 0.6) * size);
      return turned(bar, random_direction(random));
    }
    case 5:
      return star(random, random.between(20, 100), 0.6 * size, 0.8 * size);
    default: {
      const double inner = random.between(0.1, 0.6) * size;
      return star(random, random.between(3, 40), inner, size);
    }
  }
}

Rings disjoint_shapes(Random& random, int most, double size) {
  const int across = random.between(2, 4);
  const double cell = 2 * size / across;
  Rings rings;
  for (int k = 0; k < across * across && static_cast<int>(rings.size()) < most; ++k) {
    if (random.one_in(3)) continue;
    // Within 0.35 of the cell's width from its middle, moved by at most a tenth of it.
    Ring ring = any_shape(random, random.between(0.15, 0.35) * cell);
    const double x = -size + (k % across + random.between(0.45, 0.55)) * cell;
    const double y = -size + (k / across + random.between(0.45, 0.55)) * cell;
    rings.push_back(moved(std::move(ring), x, y));
  }
  if (rings.empty()) rings.push_back(any_shape(random, size));
  return rings;
}

Ring polyline(Random& random, int points, double size) {
  Ring line;
  const double step = random.between(0.05, 1.5) * size;
  double x = random.between(-1.0, 1.0) * size, y = random.between(-1.0, 1.0) * size;
  for (int run = 0; static_cast<int>(line.size()) < points; run = 0) {
    if (!line.empty()) line.push_back(line_break());
    for (const int length = random.between(1, points); run < length; ++run) {
      line.push_back({x, y, 0});
      x = reflected(x + random.between(-step, step), size);
      y = reflected(y + random.between(-step, step), size);
    }
  }
  return line;
}

}  // namespace Corvane::Print::tests
