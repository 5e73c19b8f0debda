// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The inputs of the jobs, which anyone can make again: a small random generator, coordinates rounded to
// thousandths, and rings and lines made of them. No shared state.
#ifndef CORVANE_PRINT_BENCH_GENERATORS_H
#define CORVANE_PRINT_BENCH_GENERATORS_H

#include <cstdint>
#include <vector>

namespace Corvane::Print::bench {

// Laid out as two doubles, so that an array of points is what the library takes.
struct Point {
  double x, y;
};
using Points = std::vector<Point>;

inline constexpr double kRadius = 1e6;

// splitmix64; draws are in [0, 1).
class Random {
public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  double draw();

private:
  std::uint64_t state_;
};

enum class Family {
  kSpiky,  // A: every vertex at another distance from the centre, so that two of them cross everywhere
  kRough,  // B: a circle with a rough edge
  kWavy    // C: five waves with a rough edge; two of them, shifted, cross in four places
};
inline constexpr Family kFamilies[] = {Family::kSpiky, Family::kRough, Family::kWavy};
const char* letter(Family family);

struct Star {
  Family family;
  int n;
  std::uint64_t seed;
  double phase = 0;  // in steps between two vertices
  Point centre = {0, 0};
  double radius = kRadius;
};
// Open, counter-clockwise.
Points ring(const Star& star);

// The two rings of a polygon job.
Points polygon_subject(Family family, int n);
Points polygon_clip(Family family, int n);
// The fence that lines, probes and small subjects are tried on.
Points fence_ring(Family family, int n);

// Steps of up to `step` in x and in y, thrown back at the edges of the square of 2e6.
Points walk(int n, std::uint64_t seed, double step);
struct Range {
  double low, high;
};
Points uniform(int n, std::uint64_t seed, Range x, Range y);
// To and fro over the whole width, climbing from the bottom to the top.
Points hatch(int n);
Points spiral(int n, int turns);

// 1000 spiky rings of 16 points, spread over the square of 2e6.
std::vector<Points> many_subjects();

double signed_area(const Points& ring);
double length(const Points& line);

// Whether the inputs are the agreed ones, on this machine too; says on stderr which are not.
bool inputs_are_as_agreed();

}  // namespace Corvane::Print::bench

#endif
