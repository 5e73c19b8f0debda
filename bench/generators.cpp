// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The arithmetic is part of the definition: double, in this order, without contraction.
#include "bench/generators.h"

#include <cmath>
#include <cstddef>

namespace Corvane::Print::bench {
namespace {

constexpr double kPi = 3.14159265358979323846;

double rounded(double v) {
  return std::floor(v * 1000 + 0.5) / 1000;
}

Point rounded(double x, double y) {
  return {rounded(x), rounded(y)};
}

// The distance from the centre, in radii.
double reach(const Star& star, double angle, double u) {
  switch (star.family) {
    case Family::kSpiky:
      return 0.5 + 0.5 * u;
    case Family::kRough:
      return 0.75 + (4 * kPi / star.n) * (u - 0.5);
    case Family::kWavy:
      break;
  }
  return 0.75 + 0.15 * std::sin(5 * angle) + (kPi / star.n) * (u - 0.5);
}

double thrown_back(double v) {
  if (v > kRadius) return 2 * kRadius - v;
  return v < -kRadius ? -2 * kRadius - v : v;
}

}  // namespace

double Random::draw() {
  state_ += 0x9E3779B97F4A7C15u;
  std::uint64_t z = state_;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  z ^= z >> 31;
  return static_cast<double>(z >> 11) * 0x1p-53;
}

const char* letter(Family family) {
  static const char* const letters[] = {"A", "B", "C"};
  return letters[static_cast<int>(family)];
}

Points ring(const Star& star) {
  Random random(star.seed);
  Points points;
  points.reserve(static_cast<std::size_t>(star.n));
  for (int i = 0; i < star.n; ++i) {
    const double angle = 2 * kPi * (i + star.phase) / star.n;
    const double r = star.radius * reach(star, angle, random.draw());
    points.push_back(rounded(star.centre.x + r * std::cos(angle), star.centre.y + r * std::sin(angle)));
  }
  return points;
}

Points polygon_subject(Family family, int n) {
  const Point centre = family == Family::kWavy ? Point{-150000, -100000} : Point{0, 0};
  return ring({family, n, 1, 0, centre});
}

Points polygon_clip(Family family, int n) {
  const Point centre = family == Family::kWavy ? Point{150000, 100000} : Point{0, 0};
  return ring({family, n, 2, 0.5, centre});
}

Points fence_ring(Family family, int n) {
  return ring({family, n, 2, 0.5});
}

Points walk(int n, std::uint64_t seed, double step) {
  Random random(seed);
  Points points;
  double x = 0, y = 0;
  for (int i = 0; i < n; ++i) {
    points.push_back(rounded(x, y));
    const double a = (random.draw() - 0.5) * 2 * step;
    const double b = (random.draw() - 0.5) * 2 * step;
    x = thrown_back(x + a);
    y = thrown_back(y + b);
  }
  return points;
}

Points uniform(int n, std::uint64_t seed, Range x, Range y) {
  Random random(seed);
  Points points;
  for (int i = 0; i < n; ++i) {
    const double px = x.low + (x.high - x.low) * random.draw();
    const double py = y.low + (y.high - y.low) * random.draw();
    points.push_back(rounded(px, py));
  }
  return points;
}

Points hatch(int n) {
  Points points;
  for (int i = 0; i < n; ++i) {
    points.push_back({i % 2 != 0 ? kRadius : -kRadius, rounded(-kRadius + 2 * kRadius * i / (n - 1))});
  }
  return points;
}

Points spiral(int n, int turns) {
  Points points;
  for (int i = 0; i < n; ++i) {
    const double t = static_cast<double>(i) / (n - 1);
    const double angle = 2 * kPi * turns * t;
    points.push_back(rounded(kRadius * t * std::cos(angle), kRadius * t * std::sin(angle)));
  }
  return points;
}

std::vector<Points> many_subjects() {
  Random random(10);
  std::vector<Points> subjects;
  for (std::uint64_t i = 0; i < 1000; ++i) {
    const double cx = (2 * random.draw() - 1) * kRadius;
    const double cy = (2 * random.draw() - 1) * kRadius;
    subjects.push_back(ring({Family::kSpiky, 16, 1000 + i, 0, {cx, cy}, 20000}));
  }
  return subjects;
}

// About the first point, so that an outline far from the origin keeps its digits.
double signed_area(const Points& ring) {
  double twice = 0;
  for (std::size_t i = 1; i + 1 < ring.size(); ++i) {
    twice += (ring[i].x - ring[0].x) * (ring[i + 1].y - ring[0].y) -
             (ring[i + 1].x - ring[0].x) * (ring[i].y - ring[0].y);
  }
  return twice / 2;
}

double length(const Points& line) {
  double sum = 0;
  for (std::size_t i = 1; i < line.size(); ++i) {
    sum += std::hypot(line[i].x - line[i - 1].x, line[i].y - line[i - 1].y);
  }
  return sum;
}

}  // namespace Corvane::Print::bench
