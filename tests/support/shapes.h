// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Random simple polygons and polylines. All rings are counter-clockwise unless a shape is asked for
// otherwise.
//
// Everything but the benchmark stars uses only the four operations and square roots on integer random
// numbers, and so is the same to the last bit on every target. For the same reason no call draws two of its
// arguments: which of them is computed first differs between compilers.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_SHAPES_H
#define CORVANE_PRINT_TESTS_SUPPORT_SHAPES_H

#include "tests/support/random.h"
#include "tests/support/ring.h"

namespace Corvane::Print::tests {

// The benchmark stars: spiky, rough circle, wavy. They need sines, whose last bit depends on the C library.
enum class StarFamily { kSpiky, kRough, kWavy };
Ring benchmark_star(StarFamily family, int points, std::uint64_t seed, double phase, double cx, double cy,
                    double radius);

// The i-th of n directions around the circle, i may be fractional: (cos, sin) by a rational parametrisation,
// a little unevenly spread.
Point direction(double i, double n);

// A star with radii between inner and outer.
Ring star(Random& random, int points, double inner, double outer);

// Points on a circle of radius 1 to 1.0000001: convex.
Ring convex(Random& random, int points, double radius);

Ring rectangle(double x0, double y0, double x1, double y1);

// A comb of so many teeth in the square of +-size, with uneven tooth lengths; turned by a random direction.
Ring comb(Random& random, int teeth, double size);

// A thick spiral band within radius size.
Ring spiral(Random& random, int turns, double size);

// Any of the shapes above, within about +-size of the origin.
Ring any_shape(Random& random, double size);

// Disjoint polygons within +-size of the origin: one shape in each of some cells of a lattice.
Rings disjoint_shapes(Random& random, int most, double size);

// A polyline within +-size of the origin, with breaks between its runs; a run may be a single point.
Ring polyline(Random& random, int points, double size);

}  // namespace Corvane::Print::tests

#endif
