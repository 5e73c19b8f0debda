// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The depth cut of a ring, by examples and against a half-space clip that only knows areas.
#include "clip/depth_cut.h"

#include "clip/node_pool.h"
#include "clip/ring.h"
#include "platform/capi_memory.h"
#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/halfspace.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <limits>
#include <new>

namespace Corvane::Print::tests {
namespace {

Rings cut(const Ring& ring, double low, double high) {
  EXPECT_TRUE(clip::restart_overflow());
  const std::vector<double> flat = flatten(ring, 3);
  FenceVertex* first = clip::build_ring(flat.data(), static_cast<int>(ring.size()), 3);
  Rings parts;
  for (const FenceVertex* part : clip::cut_to_depth(first, low, high)) {
    parts.push_back(points_of(part));
    clip::for_each_vertex(part, [](const FenceVertex& v) {
      EXPECT_EQ(v.next->prev, &v);
      EXPECT_EQ(v.next2, v.next);
      EXPECT_EQ(v.partner, nullptr);
    });
  }
  return parts;
}

// Every part runs the way the ring ran and lies within the range; together they have the area that a clip
// against the two half spaces leaves.
void expect_exact(const Ring& ring, double low, double high) {
  const Rings parts = cut(ring, low, high);
  const double expected = signed_area(keep_between(ring, low, high));
  EXPECT_NEAR(signed_area(parts), expected, 1e-9 * area(ring)) << text_of(ring) << low << ' ' << high;
  const double sign = signed_area(ring) < 0 ? -1 : 1;
  for (const Ring& part : parts) {
    EXPECT_GE(sign * signed_area(part), -1e-9 * area(ring)) << text_of(part) << text_of(ring);
    for (const Point& p : part) EXPECT_TRUE(p.z >= low && p.z <= high) << text_of(part);
  }
}

// z equals y: the cut is easy to read.
Ring standing(Ring ring) {
  return lifted(ring, 0, 1, 0);
}

const Ring kSquare = standing({{0, 0}, {0, 10}, {10, 10}, {10, 0}});
const Ring kComb = standing(
    {{0, 0}, {0, 9}, {2, 9}, {2, 1}, {4, 1}, {4, 9}, {6, 9}, {6, 1}, {8, 1}, {8, 9}, {10, 9}, {10, 0}});

TEST(DepthCut, ARingWithinTheRangeStaysAsItIs) {
  EXPECT_EQ(cut(kSquare, 0, 10), Rings{kSquare});
  EXPECT_EQ(cut(kSquare, -5, 15), Rings{kSquare});
}

TEST(DepthCut, ARingWhollyAboveOrBelowIsGone) {
  EXPECT_TRUE(cut(kSquare, 11, 20).empty());
  EXPECT_TRUE(cut(kSquare, -9, -1).empty());
}

TEST(DepthCut, EdgesAreCutWhereTheyReachTheBound) {
  const Rings parts = cut(kSquare, 2, 7);
  EXPECT_EQ(normal_text(parts), normal_text({standing({{0, 2}, {0, 7}, {10, 7}, {10, 2}})}));
}

TEST(DepthCut, CutPointsAreInterpolatedAndLieInTheBoundExactly) {
  const Ring slanted = {{0, 0, 0}, {3, 7, 30}, {9, 1, 90}};
  for (const Ring& part : cut(slanted, 10, 1000)) {
    for (const Point& p : part) {
      if (p.z != 10) continue;
      const bool on_first = p.x == 0 + 10.0 / 30 * 3 && p.y == 0 + 10.0 / 30 * 7;
      const double t = (10.0 - 90) / (0.0 - 90);
      const bool on_last = p.x == 9 + t * (0.0 - 9) && p.y == 1 + t * (0.0 - 1);
      EXPECT_TRUE(on_first || on_last) << text_of(part);
    }
  }
}

TEST(DepthCut, ACombFallsIntoItsTeeth) {
  const Rings teeth = cut(kComb, 5, 100);
  EXPECT_EQ(normal_text(teeth), normal_text({standing({{0, 5}, {0, 9}, {2, 9}, {2, 5}}),
                                             standing({{4, 5}, {4, 9}, {6, 9}, {6, 5}}),
                                             standing({{8, 5}, {8, 9}, {10, 9}, {10, 5}})}));
  EXPECT_EQ(cut(kComb, -100, 5).size(), 1u);
  EXPECT_EQ(cut(kComb, 3, 5).size(), 3u);
  EXPECT_EQ(cut(reversed(kComb), 3, 5).size(), 3u);
}

TEST(DepthCut, AnEdgeInTheBoundBelongsToTheKeptSideOnlyWhereTheRingGoesOn) {
  // The notches' floors lie in the bound y = 1.
  const Rings above = cut(kComb, 1, 100);
  EXPECT_EQ(kept_area(above), 3 * 16);
  const Rings below = cut(kComb, -100, 1);
  EXPECT_EQ(kept_area(below), 10);
  const Rings with_tops = cut(kComb, -100, 9);
  EXPECT_EQ(with_tops, Rings{kComb});
}

TEST(DepthCut, ARingThatOnlyTouchesTheBoundIsNotCut) {
  const Ring roof = standing({{0, 0}, {5, 5}, {10, 0}, {15, 5}, {20, 0}, {10, -20}});
  EXPECT_EQ(cut(roof, -100, 5), Rings{roof});
  EXPECT_TRUE(cut(roof, 5, 100).empty() || signed_area(cut(roof, 5, 100)) == 0);
  const Ring teeth = standing({{0, 0}, {0, 10}, {20, 10}, {20, 0}, {15, 5}, {10, 0}, {5, 5}});
  EXPECT_EQ(cut(teeth, 0, 100), Rings{teeth});
}

TEST(DepthCut, AVertexInTheBoundIsACutWhereTheRingPassesThrough) {
  const Ring diamond = standing({{0, 5}, {5, 10}, {10, 5}, {5, 0}});
  EXPECT_EQ(normal_text(cut(diamond, 5, 100)), normal_text({standing({{0, 5}, {5, 10}, {10, 5}})}));
  EXPECT_EQ(normal_text(cut(diamond, -100, 5)), normal_text({standing({{0, 5}, {10, 5}, {5, 0}})}));
}

TEST(DepthCut, ARingFlatInABoundIsKept) {
  const Ring flat = lifted(kSquare, 0, 0, 4);
  EXPECT_EQ(cut(flat, 4, 9), Rings{flat});
  EXPECT_EQ(cut(flat, 0, 4), Rings{flat});
  EXPECT_EQ(cut(flat, 4, 4), Rings{flat});
  EXPECT_TRUE(cut(flat, 4.5, 9).empty());
}

// The cut line runs upwards in x and y: ordered by y where all its points share their x.
TEST(DepthCut, AnUprightCutLineIsOrderedByY) {
  const Ring lying = lifted({{0, 0}, {9, 0}, {9, 2}, {1, 2}, {1, 4}, {9, 4}, {9, 6}, {0, 6}}, 1, 0, 0);
  EXPECT_EQ(normal_text(cut(lying, 5, 100)),
            normal_text({lifted({{5, 0}, {9, 0}, {9, 2}, {5, 2}}, 1, 0, 0),
                         lifted({{5, 4}, {9, 4}, {9, 6}, {5, 6}}, 1, 0, 0)}));
  EXPECT_EQ(cut(lying, -100, 5).size(), 1u);
}

// Of the points on an all but upright line the last bit of x is rounding; it must not put them in another
// order.
TEST(DepthCut, AnAllButUprightCutLineIsOrderedByYToo) {
  constexpr int kTeeth = 40;
  Ring lying = {{0, 0}};
  for (int i = 0; i < kTeeth; ++i) {
    const double tip = 7 + (i * 7 % 11) * 0.37, root = 1 + (i * 5 % 13) * 0.23;
    lying.push_back({tip, 2.0 * i});
    lying.push_back({tip, 2.0 * i + 1});
    lying.push_back({root, 2.0 * i + 1});
    lying.push_back({root, 2.0 * i + 2});
  }
  lying.push_back({0, 2.0 * kTeeth});
  const Ring ring = lifted(lying, 0.1, 0, 0);
  EXPECT_EQ(cut(ring, 0.5, 100).size(), static_cast<std::size_t>(kTeeth));
  expect_exact(ring, 0.5, 100);
  expect_exact(ring, -100, 0.5);
}

TEST(DepthCut, TheLowBoundIsCutFirstAndEveryRingOfItAgainstTheHighOne) {
  // A U whose arms are combs of two again: below 3 and above 7 it comes apart differently.
  const Ring h = standing(
      {{0, 0}, {0, 10}, {2, 10}, {2, 6}, {4, 6}, {4, 10}, {6, 10}, {6, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 0}});
  EXPECT_EQ(cut(h, 1, 9).size(), 1u);
  EXPECT_EQ(cut(h, 7, 9).size(), 2u);
  EXPECT_EQ(cut(h, 1, 3).size(), 2u);
  EXPECT_EQ(kept_area(cut(h, 1, 9)), 6 * 8 - 2 * 3 - 2 * 3);
}

TEST(DepthCut, InfiniteBoundsCutNothing) {
  const double inf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(cut(kComb, -inf, inf), Rings{kComb});
  EXPECT_EQ(cut(kComb, 5, inf).size(), 3u);
}

TEST(DepthCut, LackOfMemoryIsThrown) {
  ASSERT_TRUE(clip::restart_overflow());
  const std::vector<double> flat = flatten(kComb, 3);
  FenceVertex* first = clip::build_ring(flat.data(), static_cast<int>(kComb.size()), 3);
  platform::capi_fail_after(0);
  EXPECT_THROW(clip::cut_to_depth(first, 5, 7), std::bad_alloc);
  platform::capi_fail_after(-1);
}

TEST(DepthCut, RandomShapesKeepExactlyThePartWithinTheRange) {
  constexpr std::uint64_t kSeed = 0xDE97;
  for (int i = 0; i < scaled(2000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    Ring ring = any_shape(random, 1000);
    if (random.one_in(2)) ring = reversed(ring);
    const double a = random.between(-1.0, 1.0);
    const double b = random.between(-1.0, 1.0);
    const double low = random.between(-600.0, 400.0);
    const double thickness = random.between(0.0, 800.0);
    expect_exact(lifted(ring, a, b, 3), low, low + thickness);
  }
}

// Bounds through the vertices and along the edges of grid polygons.
TEST(DepthCut, GridShapesWithBoundsThroughTheirVerticesAreCutExactly) {
  constexpr std::uint64_t kSeed = 0xDE98;
  constexpr double kTilts[][2] = {{0, 1}, {1, 0}, {1, 1}, {1, -1}, {1, 2}, {-2, 1}};
  for (int i = 0; i < scaled(5000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring flat = grid_polygon(random);
    const auto& tilt = kTilts[random.below(6)];
    const double low = random.between(-7, 14) * 100.0;
    const double thickness = random.between(0, 8) * 50.0;
    expect_exact(lifted(flat, tilt[0], tilt[1], 0), low, low + thickness);
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
