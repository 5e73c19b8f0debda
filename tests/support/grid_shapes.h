// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Simple polygons on an 8 x 8 grid of spacing 100, and pairs and sets of them in which shared vertices,
// shared and overlapping edges and identical rings are the rule. Straight vertices (in the middle of a
// straight side) occur often. All integer work: the same on every target.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_GRID_SHAPES_H
#define CORVANE_PRINT_TESTS_SUPPORT_GRID_SHAPES_H

#include "tests/support/random.h"
#include "tests/support/ring.h"

namespace Corvane::Print::tests {

constexpr int kGridSide = 8;
constexpr double kGridSpacing = 100;

// A simple polygon of 3 to 14 vertices: grown vertex by vertex, untangled from a random tour, or the outline
// of a patch of grid cells. Either direction.
Ring grid_polygon(Random& random);

struct GridPair {
  Ring subject, fence;
};

// How the two came about, for counting what was covered.
enum class GridKin { kIndependent, kIdentical, kSameOutline, kMoved, kNeighbour, kCount };
GridPair grid_pair(Random& random, GridKin* kin);

// Polygons that share no inner point; many touch at vertices or along edges.
Rings grid_disjoint(Random& random, int most);

// What two rings have in common, by their vertices and edges as listed.
bool share_vertex(const Ring& a, const Ring& b);
bool share_edge_part(const Ring& a, const Ring& b);

// The closest contact between any two of the rings.
enum class Contact { kApart, kPoints, kEdges };
Contact contact_between(const Rings& rings);

}  // namespace Corvane::Print::tests

#endif
