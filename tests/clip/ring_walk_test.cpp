// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Places on a ring of points, what lies between them, and directions there.
#include "clip/ring_walk.h"

#include "tests/support/ring.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

clip::PolygonIndex index_of_points(const Ring& ring) {
  clip::PolygonIndex index;
  for (const Point& p : ring) index.points.push_back({p.x, p.y, p.z});
  index.points.push_back(index.points.front());
  return index;
}

// The x of the points in between.
std::string between(const clip::PolygonIndex& index, clip::RingPlace from, clip::RingPlace to,
                    bool passes_start) {
  std::string text;
  const clip::PointsBetween points = clip::points_between(index, from, to, passes_start);
  for (const auto& row : {points.first, points.then}) {
    for (const clip::LinePoint& p : row) text += std::to_string(static_cast<int>(p.x)) + " ";
  }
  EXPECT_EQ(points.empty(), text.empty());
  return text;
}

TEST(RingWalk, BetweenTwoPlacesAreTheVerticesThatBelongToNeither) {
  const clip::PolygonIndex index = index_of_points({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 1}});
  EXPECT_EQ(between(index, {0, 1}, {0, 4}, false), "2 3 ");
  EXPECT_EQ(between(index, {0.5, 1}, {0, 4}, false), "2 3 ");
  EXPECT_EQ(between(index, {0.5, 1}, {0.5, 4}, false), "2 3 4 ");
  EXPECT_EQ(between(index, {0, 1}, {0.5, 1}, false), "");
  EXPECT_EQ(between(index, {0.2, 1}, {0.5, 1}, false), "");
  EXPECT_EQ(between(index, {0.2, 1}, {0, 2}, false), "");
}

TEST(RingWalk, OverTheFirstVertexTheWayGoesOnFromTheStart) {
  const clip::PolygonIndex index = index_of_points({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 1}});
  EXPECT_EQ(between(index, {0, 3}, {0, 1}, true), "4 0 ");
  EXPECT_EQ(between(index, {0.5, 4}, {0, 0}, true), "");
  EXPECT_EQ(between(index, {0, 4}, {0.5, 0}, true), "0 ");
  EXPECT_EQ(between(index, {0.5, 2}, {0.5, 2}, true), "3 4 0 1 2 ");
  EXPECT_EQ(between(index, {0.7, 2}, {0.5, 2}, true), "3 4 0 1 2 ");
}

TEST(RingWalk, PlacesAreOrderedByEdgeAndAlongIt) {
  using clip::comes_before;
  EXPECT_TRUE(comes_before({0.9, 1}, {0, 2}));
  EXPECT_TRUE(comes_before({0, 1}, {0.1, 1}));
  EXPECT_FALSE(comes_before({0.1, 1}, {0.1, 1}));
}

TEST(RingWalk, ADirectionIsThatOfTheEdge) {
  const clip::PolygonIndex index = index_of_points({{0, 0}, {0, 3}, {5, 3}});
  EXPECT_EQ(clip::leaving(index, {0, 1}).dx, 5);
  EXPECT_EQ(clip::arriving(index, {0, 1}).dy, 3);
  EXPECT_EQ(clip::arriving(index, {0, 0}).dx, -5);
  EXPECT_EQ(clip::leaving(index, {0.5, 0}).dy, 3);
  EXPECT_EQ(clip::arriving(index, {0.5, 0}).dy, 3);
}

// Points that differ in z alone.
TEST(RingWalk, EdgesWithoutLengthArePassedOver) {
  const clip::PolygonIndex index = index_of_points({{0, 0}, {0, 3}, {0, 3, 1}, {0, 3, 2}, {5, 3}, {5, 3, 1}});
  EXPECT_EQ(clip::leaving(index, {0, 1}).dx, 5);
  EXPECT_EQ(clip::arriving(index, {0, 3}).dy, 3);
  EXPECT_EQ(clip::leaving(index, {0, 4}).dx, -5);
  EXPECT_EQ(clip::arriving(index, {0, 5}).dx, 5);
}

TEST(RingWalk, ARingWithoutLengthHasNoDirection) {
  const clip::PolygonIndex index = index_of_points({{1, 1}, {1, 1, 1}, {1, 1, 2}});
  EXPECT_FALSE(clip::has_length(clip::leaving(index, {0, 1})));
  EXPECT_FALSE(clip::has_length(clip::arriving(index, {0, 1})));
}

}  // namespace
}  // namespace Corvane::Print::tests
