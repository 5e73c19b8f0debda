// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Taking rings apart where they touch themselves.
#include "clip/simple_loops.h"

#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <limits>

namespace Corvane::Print::tests {
namespace {

Rings loops(const Ring& ring) {
  platform::CapiVector<clip::LinePoint> points;
  for (const Point& p : ring) points.push_back({p.x, p.y, p.z});
  const clip::Polylines result = clip::simple_loops(points);
  Rings rings;
  std::size_t at = 0;
  for (const std::size_t end : result.ends) {
    rings.emplace_back();
    for (; at < end; ++at) {
      const clip::LinePoint& p = result.points[at];
      rings.back().push_back({p.x, p.y, p.z});
    }
  }
  EXPECT_EQ(at, result.points.size());
  return rings;
}

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};  // clockwise

TEST(SimpleLoops, ASimpleRingStaysAsItIs) {
  EXPECT_EQ(loops(kSquare), Rings{kSquare});
}

TEST(SimpleLoops, ClockwiseLoopsThatMeetAtAPointComeApart) {
  const Ring eight = {{0, 0}, {0, 10}, {10, 10}, {20, 20}, {20, 10}, {10, 10}, {10, 0}};
  const Rings expected = {kSquare, {{10, 10}, {20, 20}, {20, 10}}};
  for (std::size_t first = 0; first < eight.size(); ++first) {
    EXPECT_EQ(normal_text(loops(rotated(eight, first))), normal_text(expected)) << first;
  }
}

TEST(SimpleLoops, AHoleThatTouchesTheOutlineStaysPartOfIt) {
  // Counter-clockwise loop (10, 10) (4, 5) (5, 4) inside the square.
  const Ring with_hole = {{0, 0}, {0, 10}, {10, 10}, {4, 5}, {5, 4}, {10, 10}, {10, 0}};
  for (std::size_t first = 0; first < with_hole.size(); ++first) {
    const Rings result = loops(rotated(with_hole, first));
    EXPECT_EQ(kept_area(result), 100 - area(Ring{{10, 10}, {4, 5}, {5, 4}})) << first;
    for (const Ring& ring : result) EXPECT_LT(signed_area(ring), 0) << first;
  }
}

TEST(SimpleLoops, LoopsWithoutAreaAreDropped) {
  const Ring with_spike = {{0, 0}, {0, 10}, {5, 15}, {0, 10}, {10, 10}, {10, 0}};
  EXPECT_EQ(normal_text(loops(with_spike)), normal_text({kSquare}));
  EXPECT_TRUE(loops({{0, 0}, {5, 5}, {9, 9}, {5, 5}}).empty());
  EXPECT_TRUE(loops({}).empty());
  EXPECT_TRUE(loops({{1, 1}}).empty());
  EXPECT_TRUE(loops({{1, 1}, {1, 1}, {1, 1}}).empty());
}

// The hole leaves the outline at its least point, where both pass.
TEST(SimpleLoops, AHoleAtTheOutlinesLeastPointStaysPartOfIt) {
  const Ring with_hole = {{0, 0}, {5, 2}, {2, 5}, {0, 0}, {0, 10}, {10, 10}, {10, 0}};
  const Ring hole_last = {{0, 0}, {5, 4}, {4, 5}, {0, 0}, {-1, 10}, {10, 10}, {10, 0}};
  for (std::size_t first = 0; first < with_hole.size(); ++first) {
    EXPECT_EQ(kept_area(loops(rotated(with_hole, first))), -signed_area(with_hole)) << first;
    EXPECT_EQ(kept_area(loops(rotated(hole_last, first))), -signed_area(hole_last)) << first;
  }
}

TEST(SimpleLoops, NumbersThatAreNotFiniteComeToAnEnd) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (std::uint64_t seed = 1; seed <= 50; ++seed) {
    Random random(seed);
    Ring ring;
    for (int i = 0; i < 100; ++i) {
      const double values[] = {nan, inf, -inf, 0, 1, 2, 3};
      const double x = values[random.below(7)];
      const double y = values[random.below(7)];
      ring.push_back({x, y, 0});
    }
    for (const Ring& part : loops(ring)) EXPECT_LE(part.size(), ring.size());
  }
  loops(Ring(200, Point{nan, nan, 0}));
}

TEST(SimpleLoops, PlacesAreComparedByXAndYAlone) {
  const Ring eight = {{0, 0, 1}, {0, 10, 1}, {10, 10, 1}, {20, 20, 2}, {20, 10, 3}, {10, 10, 9}, {10, 0, 1}};
  EXPECT_EQ(loops(eight).size(), 2u);
}

TEST(SimpleLoops, ALoopWithinALoopComesApartToo) {
  const Ring chain = {{0, 0},   {0, 10},  {10, 10}, {20, 20}, {30, 30},
                      {30, 20}, {20, 20}, {20, 10}, {10, 10}, {10, 0}};
  const Rings result = loops(chain);
  EXPECT_EQ(result.size(), 3u);
  EXPECT_EQ(kept_area(result), area(chain));
}

TEST(SimpleLoops, RandomSimpleRingsStayWhole) {
  constexpr std::uint64_t kSeed = 0x100B;
  for (int i = 0; i < scaled(200); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring ring = reversed(any_shape(random, 1000));
    EXPECT_EQ(loops(ring), Rings{ring});
    EXPECT_TRUE(loops(reversed(ring)).empty());
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
