// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Rings that bring the engine to its limits, for comparing its forms: on a grid, with edges whose cross
// product is about the limit for parallel edges, with points within the tolerances of one another, crossing
// themselves, repeated points, and now and then a coordinate that is no finite number.
#ifndef CORVANE_PRINT_TESTS_CLIP_RANDOM_INPUT_H
#define CORVANE_PRINT_TESTS_CLIP_RANDOM_INPUT_H

#include "tests/support/grid_shapes.h"
#include "tests/support/random.h"
#include "tests/support/shapes.h"

#include <cmath>
#include <limits>

namespace Corvane::Print::tests {

inline Ring self_crossing(Random& random, int points, double size) {
  Ring ring;
  for (int i = 0; i < points; ++i) {
    const double x = random.between(-size, size), y = random.between(-size, size);
    ring.push_back({x, y, 0});
  }
  return ring;
}

inline Ring small_integers(Random& random, int points) {
  Ring ring;
  for (int i = 0; i < points; ++i) {
    const int x = random.between(-5, 5), y = random.between(-5, 5);
    ring.push_back({1.0 * x, 1.0 * y, 0});
  }
  return ring;
}

// Every coordinate may be off by a little: about the snapping tolerance, or what makes points one.
inline void jitter(Random& random, Ring& ring, double most) {
  for (Point& p : ring) {
    if (random.one_in(2)) p.x += random.between(-most, most);
    if (random.one_in(2)) p.y += random.between(-most, most);
  }
}

inline Ring edge_case_shape(Random& random) {
  switch (random.below(8)) {
    case 0:
      return any_shape(random, 100);
    case 1:
      return small_integers(random, random.between(3, 12));
    case 2: {
      Ring ring = grid_polygon(random);
      jitter(random, ring, random.one_in(2) ? 2e-5 : 2e-3);
      return ring;
    }
    case 3:
      return grid_polygon(random);
    case 4:
      return self_crossing(random, random.between(3, 20), 100);
    case 5:
      // Edges whose cross products are about 0.05.
      return star(random, random.between(3, 40), 0.3, 1.5);
    case 6: {
      Ring ring = small_integers(random, random.between(3, 12));
      jitter(random, ring, random.one_in(2) ? 2e-5 : 2e-3);
      return ring;
    }
    default:
      return star(random, random.between(8, 200), 60, 100);
  }
}

inline Ring edge_case_ring(Random& random, int dim) {
  Ring ring = edge_case_shape(random);
  if (random.one_in(3)) std::reverse(ring.begin(), ring.end());
  if (random.one_in(5)) ring.push_back(ring.front());
  if (random.one_in(8)) ring.insert(ring.begin() + 1, 1 + random.below(3), ring.front());
  if (dim == 3) {
    for (Point& p : ring) p.z = random.one_in(2) ? random.between(0, 4) : random.between(0.0, 4.0);
  }
  return ring;
}

inline void spoil(Random& random, Ring& ring) {
  Point& p = ring[static_cast<std::size_t>(random.below(static_cast<int>(ring.size())))];
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  const double values[] = {kInfinity, -kInfinity, std::nan(""), 1e300, -1e300};
  (random.one_in(3) ? p.z : random.one_in(2) ? p.x : p.y) = values[random.below(5)];
}

}  // namespace Corvane::Print::tests

#endif
