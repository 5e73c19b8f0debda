// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state. Works on unit coordinates 0 to 7; the spacing is applied last.
#include "tests/support/grid_shapes.h"

#include "tests/support/predicates.h"

#include <array>
#include <utility>

namespace Corvane::Print::tests {
namespace {

Point random_point(Random& random) {
  return {static_cast<double>(random.below(kGridSide)), static_cast<double>(random.below(kGridSide)), 0};
}

// Puts `p` into some edge of the ring so that it stays simple; false when no edge takes it.
bool insert_somewhere(Random& random, const Point& p, Ring& ring) {
  const std::size_t n = ring.size();
  const auto first = static_cast<std::size_t>(random.below(static_cast<int>(n)));
  for (std::size_t k = 0; k < n; ++k) {
    Ring longer = ring;
    longer.insert(longer.begin() + static_cast<std::ptrdiff_t>((first + k) % n + 1), p);
    if (!is_simple(longer)) continue;
    ring = std::move(longer);
    return true;
  }
  return false;
}

Ring triangle(Random& random) {
  for (;;) {
    const Ring ring = {random_point(random), random_point(random), random_point(random)};
    if (is_simple(ring)) return ring;
  }
}

Ring grown(Random& random) {
  Ring ring = triangle(random);
  const int want = random.between(3, 14);
  for (int tries = 0; static_cast<int>(ring.size()) < want && tries < 40; ++tries) {
    insert_somewhere(random, random_point(random), ring);
  }
  return ring;
}

// Reverses stretches of a random tour until no two edges meet; gives up on tours that stay tangled.
bool untangle(Ring& ring) {
  const std::size_t n = ring.size();
  for (int round = 0; round < 60; ++round) {
    if (is_simple(ring)) return true;
    for (std::size_t i = 0; i + 2 < n; ++i) {
      for (std::size_t k = i + 2; k < n; ++k) {
        if (i == 0 && k == n - 1) continue;
        if (segments_touch(ring[i], ring[i + 1], ring[k], ring[(k + 1) % n])) {
          std::reverse(ring.begin() + static_cast<std::ptrdiff_t>(i + 1),
                       ring.begin() + static_cast<std::ptrdiff_t>(k + 1));
        }
      }
    }
  }
  return false;
}

Ring untangled(Random& random) {
  for (;;) {
    Ring ring;
    for (const int want = random.between(4, 12); static_cast<int>(ring.size()) < want;) {
      const Point p = random_point(random);
      if (std::find(ring.begin(), ring.end(), p) == ring.end()) ring.push_back(p);
    }
    if (untangle(ring)) return ring;
  }
}

constexpr int kCells = kGridSide - 1;
using Patch = std::array<std::array<int, kCells>, kCells>;  // a patch number per cell, 0 for none

int cell_at(const Patch& patch, int x, int y) {
  return x < 0 || y < 0 || x >= kCells || y >= kCells
             ? 0
             : patch[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)];
}

// Walks around patch number k with the patch on the left, one grid step after the other. The outline is not
// simple when the patch has holes or corners that only touch; the caller throws those away.
Ring outline(const Patch& patch, int k) {
  static constexpr int kDx[4] = {1, 0, -1, 0}, kDy[4] = {0, 1, 0, -1};
  int x = 0, y = 0;
  while (cell_at(patch, x, y) != k) {
    if (++x == kCells) x = 0, ++y;
  }
  // The lowest row's leftmost cell: start along its lower side.
  const int x0 = x, y0 = y;
  Ring ring;
  int heading = 0;
  do {
    ring.push_back({static_cast<double>(x), static_cast<double>(y), 0});
    x += kDx[heading], y += kDy[heading];
    // The cells ahead on the left and on the right of the new point.
    static constexpr int kLeftX[4] = {0, -1, -1, 0}, kLeftY[4] = {0, 0, -1, -1};
    static constexpr int kRightX[4] = {0, 0, -1, -1}, kRightY[4] = {-1, 0, 0, -1};
    if (cell_at(patch, x + kRightX[heading], y + kRightY[heading]) == k) {
      heading = (heading + 3) % 4;
    } else if (cell_at(patch, x + kLeftX[heading], y + kLeftY[heading]) != k) {
      heading = (heading + 1) % 4;
    }
  } while (x != x0 || y != y0);
  return ring;
}

int cells_of(const Patch& patch, int k) {
  int cells = 0;
  for (const auto& row : patch) cells += static_cast<int>(std::count(row.begin(), row.end(), k));
  return cells;
}

double twice_area(const Ring& ring) {
  double sum = 0;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& q = ring[(i + 1) % ring.size()];
    sum += ring[i].x * q.y - q.x * ring[i].y;
  }
  return sum;
}

void grow_patch(Random& random, int k, int cells, Patch& patch) {
  int x = random.below(kCells), y = random.below(kCells);
  for (int i = 0; i < 4 * cells && cells_of(patch, k) < cells; ++i) {
    if (cell_at(patch, x, y) != 0 && cell_at(patch, x, y) != k) return;
    patch[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)] = k;
    const int step = random.below(4);
    x = std::clamp(x + (step == 0) - (step == 1), 0, kCells - 1);
    y = std::clamp(y + (step == 2) - (step == 3), 0, kCells - 1);
  }
}

// Leaves out straight vertices: none, some or all of them.
Ring thinned(Random& random, const Ring& ring) {
  const int keep = random.below(3);
  Ring kept;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const Point& before = ring[(i + ring.size() - 1) % ring.size()];
    const bool straight = turn(before, ring[i], ring[(i + 1) % ring.size()]) == 0;
    if (!straight || keep == 2 || (keep == 1 && random.one_in(2))) kept.push_back(ring[i]);
  }
  return kept;
}

// Empty when the outline is not that of a patch without holes.
Ring patch_outline(Random& random, const Patch& patch, int k) {
  const int cells = cells_of(patch, k);
  if (cells == 0) return {};
  const Ring ring = outline(patch, k);
  if (!is_simple(ring) || twice_area(ring) != 2.0 * cells) return {};
  return thinned(random, ring);
}

Ring patch_polygon(Random& random) {
  for (;;) {
    Patch patch{};
    grow_patch(random, 1, random.between(1, 12), patch);
    Ring ring = patch_outline(random, patch, 1);
    if (!ring.empty() && ring.size() <= 14) return ring;
  }
}

// Puts straight vertices into the middle of some edges, up to 14 vertices in all.
Ring with_straight_vertices(Random& random, Ring ring) {
  for (int tries = 0; tries < 6 && ring.size() < 14; ++tries) {
    const auto i = static_cast<std::size_t>(random.below(static_cast<int>(ring.size())));
    const Point& a = ring[i];
    const Point& b = ring[(i + 1) % ring.size()];
    const Point middle = {(a.x + b.x) / 2, (a.y + b.y) / 2, 0};
    if (middle.x == static_cast<int>(middle.x) && middle.y == static_cast<int>(middle.y)) {
      ring.insert(ring.begin() + static_cast<std::ptrdiff_t>(i + 1), middle);
    }
  }
  return ring;
}

Ring unit_polygon(Random& random) {
  const int kind = random.below(4);
  Ring ring = kind == 0 ? patch_polygon(random) : kind == 1 ? untangled(random) : grown(random);
  if (random.one_in(2)) ring = with_straight_vertices(random, std::move(ring));
  return random.one_in(2) ? reversed(std::move(ring)) : ring;
}

// The same outline with another start and direction and other straight vertices.
Ring same_outline(Random& random, const Ring& original) {
  Ring ring = with_straight_vertices(random, thinned(random, original));
  if (random.one_in(2)) ring = reversed(std::move(ring));
  const auto first = static_cast<std::size_t>(random.below(static_cast<int>(ring.size())));
  return rotated(std::move(ring), first);
}

// A polygon that differs from the ring in a vertex or two: most edges stay shared.
Ring neighbour(Random& random, const Ring& ring) {
  Ring changed = ring;
  for (int tries = 0, done = 0; tries < 20 && done < 2; ++tries) {
    Ring next = changed;
    const auto i = static_cast<std::size_t>(random.below(static_cast<int>(next.size())));
    if (random.one_in(2)) {
      next[i] = random_point(random);
    } else {
      next.erase(next.begin() + static_cast<std::ptrdiff_t>(i));
    }
    if (!is_simple(next)) continue;
    changed = std::move(next);
    ++done;
  }
  return changed;
}

Ring on_grid(Ring ring) {
  return enlarged(std::move(ring), kGridSpacing);
}

}  // namespace

Ring grid_polygon(Random& random) {
  return on_grid(unit_polygon(random));
}

GridPair grid_pair(Random& random, GridKin* kin) {
  const Ring subject = unit_polygon(random);
  Ring fence;
  const int kind = random.below(20);
  if (kind == 0) {
    *kin = GridKin::kIdentical;
    fence = subject;
  } else if (kind == 1) {
    *kin = GridKin::kSameOutline;
    fence = same_outline(random, subject);
  } else if (kind <= 4) {
    *kin = GridKin::kMoved;
    const int dx = random.between(-3, 3), dy = random.between(-3, 3);
    fence = moved(subject, dx, dy);
  } else if (kind <= 9) {
    *kin = GridKin::kNeighbour;
    fence = neighbour(random, subject);
  } else {
    *kin = GridKin::kIndependent;
    fence = unit_polygon(random);
  }
  return {on_grid(subject), on_grid(std::move(fence))};
}

Rings grid_disjoint(Random& random, int most) {
  for (;;) {
    Patch patch{};
    Rings rings;
    for (int k = 1; k <= most; ++k) {
      grow_patch(random, k, random.between(1, 10), patch);
    }
    for (int k = 1; k <= most; ++k) {
      Ring ring = patch_outline(random, patch, k);
      if (!ring.empty()) rings.push_back(on_grid(std::move(ring)));
    }
    if (!rings.empty()) return rings;
  }
}

bool share_vertex(const Ring& a, const Ring& b) {
  return std::any_of(a.begin(), a.end(),
                     [&](const Point& p) { return std::find(b.begin(), b.end(), p) != b.end(); });
}

bool share_edge_part(const Ring& a, const Ring& b) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    for (std::size_t k = 0; k < b.size(); ++k) {
      if (segments_overlap(a[i], a[(i + 1) % a.size()], b[k], b[(k + 1) % b.size()])) return true;
    }
  }
  return false;
}

Contact contact_between(const Rings& rings) {
  Contact closest = Contact::kApart;
  for (std::size_t i = 0; i < rings.size(); ++i) {
    for (std::size_t k = i + 1; k < rings.size(); ++k) {
      if (share_edge_part(rings[i], rings[k])) return Contact::kEdges;
      if (outlines_touch(rings[i], rings[k])) closest = Contact::kPoints;
    }
  }
  return closest;
}

}  // namespace Corvane::Print::tests
