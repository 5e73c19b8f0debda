// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The polygon clip at its limits: room, memory, numbers that are not finite, very many points.
#include "clip/polygon_clip.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/engine.h"
#include "tests/support/area.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

struct LimitCase {
  Rings fence;
  int mode, dim;
  Ring subject;
};

// Clips with several pieces, holes and depth cuts.
std::vector<LimitCase> limit_cases() {
  Random random(0xCA5E);
  const Ring comb_ring = lifted(comb(random, 4, 100), 0.5, 0.25, 3);
  const Rings strips = {rectangle(-90, -20, -30, 20), rectangle(-10, -5, 10, 5),
                        rectangle(30, -120, 60, 120)};
  const Rings touching = {rectangle(-50, -50, 0, 0), rectangle(0, -50, 50, 0), rectangle(0, 0, 50, 50)};
  std::vector<LimitCase> cases;
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const int dim : {2, 3}) {
      cases.push_back({strips, mode, dim, comb_ring});
      cases.push_back({touching, mode, dim, comb_ring});
      cases.push_back({strips, mode, dim, lifted(rectangle(-200, -200, 200, 200), 0.5, 0.25, 3)});
    }
  }
  return cases;
}

Fence fence_of(const LimitCase& c) {
  return Fence(c.fence, c.mode, {c.dim, -20, 20});
}

TEST(PolygonClipLimits, AShortageIsReportedAndTheRepeatedCallGivesWhatRoomFromTheStartGives) {
  for (const LimitCase& c : limit_cases()) {
    const Fence fence = fence_of(c);
    const Pieces enough = clip_polygon(fence, c.subject, c.dim, {200, 2000});
    ASSERT_EQ(enough.calls, 1);
    const int most_pieces = static_cast<int>(enough.rings.size()) + 2;
    for (int pieces = -1; pieces <= most_pieces; ++pieces) {
      for (int points = -1; points < 60; points += 1 + points / 8) {
        const Pieces grown = clip_polygon(fence, c.subject, c.dim, {pieces, points});
        EXPECT_EQ(grown.status, CL_OK);
        EXPECT_TRUE(grown.canaries && grown.counted) << pieces << ' ' << points;
        EXPECT_EQ(grown.rings, enough.rings) << pieces << ' ' << points;
        EXPECT_LE(grown.calls, 3);
      }
    }
  }
}

// Two pieces of four points each; one point of the room is held back.
TEST(PolygonClipLimits, EachKindOfRoomIsRaisedByItsOwnShortage) {
  const Fence fence({kSquare}, CL_KEEP_OUTSIDE);
  const std::vector<double> flat = flatten({{-5, 3}, {15, 3}, {15, 5}, {-5, 5}}, 2);
  const auto ask = [&](int pieces, int points, int status, int expected_pieces, int expected_points) {
    Guarded<int> counts(pieces);
    Guarded<double> out(points * 2);
    EXPECT_EQ(CLclipPolygon(fence.handle(), 2, 4, flat.data(), &pieces, counts.data(), out.data(), &points),
              status);
    EXPECT_EQ(pieces, expected_pieces);
    EXPECT_EQ(points, expected_points);
    EXPECT_TRUE(counts.intact() && out.intact());
  };
  ask(2, 9, CL_OK, 2, 8);
  ask(2, 8, CL_TOO_SMALL, 2, 9);
  ask(2, 1, CL_TOO_SMALL, 2, 9);
  ask(1, 9, CL_TOO_SMALL, 2, 8);
  ask(1, 5, CL_TOO_SMALL, 2, 9);
}

TEST(PolygonClipLimits, LackOfMemoryIsReportedLeaksNothingAndLeavesTheFenceUsable) {
  const FailurePlanEnds ends;
  for (const LimitCase& c : limit_cases()) {
    const Fence fence = fence_of(c);
    const Pieces before = clip_polygon(fence, c.subject, c.dim, {200, 2000});
    ASSERT_EQ(before.status, CL_OK);
    const long blocks = blocks_in_use();
    int failures = 0;
    for (long n = 0;; ++n, ++failures) {
      ASSERT_LT(n, 2000);
      release_overflow_buffers();
      Pieces pieces;
      {
        const NoFreeProbes every_probe_from_the_heap;
        platform::capi_fail_after(n);
        pieces = clip_polygon(fence, c.subject, c.dim, {200, 2000});
        platform::capi_fail_after(-1);
      }
      EXPECT_EQ(blocks_in_use(), blocks);
      if (pieces.status == CL_OK) break;
      EXPECT_EQ(pieces.status, CL_NO_MEMORY);
      EXPECT_TRUE(pieces.canaries);
      EXPECT_EQ(clip_polygon(fence, c.subject, c.dim, {200, 2000}).rings, before.rings);
    }
    EXPECT_GT(failures, 2);
  }
}

TEST(PolygonClipLimits, NumbersThatAreNotFiniteOrHugeEndInBoundsWithTheSameAnswerTwice) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const double most = std::numeric_limits<double>::max();
  const Ring subject = {{-5, 5, 0}, {5, 25, 1}, {25, 6, 2}, {15, 5, -1}, {5, -5, 0}};
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const int dim : {2, 3}) {
      const Fence fence({kSquare, rectangle(10, 0, 20, 10)}, mode, {dim, -1, 1});
      const Pieces sound = clip_polygon(fence, subject, dim);
      for (const double bad : {nan, inf, -inf, most, -most, 1e200, -1e18, 1e-300}) {
        for (std::size_t place = 0; place < subject.size() * static_cast<std::size_t>(dim); ++place) {
          Ring changed = subject;
          Point& p = changed[place / static_cast<std::size_t>(dim)];
          double* coordinates[] = {&p.x, &p.y, &p.z};
          *coordinates[place % static_cast<std::size_t>(dim)] = bad;
          const Pieces once = clip_polygon(fence, changed, dim), twice = clip_polygon(fence, changed, dim);
          EXPECT_TRUE(once.status == CL_OK || once.status == CL_INCONSISTENT) << once.status;
          EXPECT_TRUE(once.canaries && once.counted);
          EXPECT_EQ(once.status, twice.status);
          EXPECT_EQ(text_of(once.rings), text_of(twice.rings));
          EXPECT_EQ(clip_polygon(fence, subject, dim).rings, sound.rings);
        }
      }
    }
  }
}

// Self-crossing tours of any kind, bad numbers among them.
TEST(PolygonClipLimits, AnySubjectEndsInBounds) {
  constexpr std::uint64_t kSeed = 0xA97;
  const double special[] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
                            -std::numeric_limits<double>::infinity(), std::numeric_limits<double>::max(),
                            0.0005};
  for (int i = 0; i < scaled(3000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    Ring subject;
    for (int k = random.between(1, 30); k > 0; --k) {
      Point p;
      p.x = random.one_in(60) ? special[random.below(5)] : random.between(0, 7) * 10.0;
      p.y = random.one_in(60) ? special[random.below(5)] : random.between(0, 7) * 10.0;
      p.z = random.one_in(60) ? special[random.below(5)] : random.between(-2, 2);
      subject.push_back(p);
    }
    const int dim = random.between(2, 3);
    const Fence fence({rectangle(10, 10, 40, 40), rectangle(40, 20, 60, 60)}, random.between(1, 2),
                      {dim, -1, 1});
    const Pieces pieces = clip_polygon(fence, subject, dim, {random.between(1, 5), random.between(1, 20)});
    EXPECT_TRUE(pieces.status == CL_OK || pieces.status == CL_INCONSISTENT) << pieces.status;
    EXPECT_TRUE(pieces.canaries && pieces.counted);
  }
}

// One spike up and down for every two points: a comb with half as many teeth as points.
Ring many_teeth(int points, double low, double high) {
  Ring ring;
  const int teeth = points / 2;
  for (int i = 0; i < teeth; ++i) {
    ring.push_back({static_cast<double>(i), low});
    ring.push_back({i + 0.5, high});
  }
  ring.push_back({static_cast<double>(teeth), low});
  ring.push_back({static_cast<double>(teeth), low - 1});
  ring.push_back({0, low - 1});
  return ring;
}

TEST(PolygonClipLimits, AMillionPointsWithAMillionCrossingsOfOneEdgeAreClippedCorrectly) {
  const int n = scaled(1000000);
  const Ring subject = many_teeth(n, -8, 8);  // half of each tooth's height is above 0
  const double teeth = n / 2;
  const Ring above = rectangle(-10, 0, teeth + 10, 20);
  const double tooth_area = 0.5 * 1 * 16, tip_area = tooth_area / 4;
  const Pieces inside = clip_polygon(Fence({above}, CL_KEEP_INSIDE), subject);
  ASSERT_EQ(inside.status, CL_OK);
  EXPECT_EQ(inside.rings.size(), static_cast<std::size_t>(n / 2));
  EXPECT_NEAR(kept_area(inside.rings), teeth * tip_area, 1e-9 * teeth);
  const Pieces outside = clip_polygon(Fence({above}, CL_KEEP_OUTSIDE), subject);
  ASSERT_EQ(outside.status, CL_OK);
  EXPECT_EQ(outside.rings.size(), 1u);
  EXPECT_NEAR(kept_area(outside.rings), area(subject) - teeth * tip_area, 1e-9 * teeth);
}

TEST(PolygonClipLimits, AMillionPointsAgainstASmallFenceAreClippedCorrectly) {
  const int n = scaled(1000000);
  const Ring subject = many_teeth(n, 0, 4);
  const double teeth = n / 2;
  // Five whole teeth, cut at half their height on the way.
  const double x = std::floor(teeth / 2);
  const Ring fence = {{x, -0.5}, {x, 2}, {x + 5, 2}, {x + 5, -0.5}, {x + 2, -0.5}};
  const Pieces pieces = clip_polygon(Fence({fence}, CL_KEEP_INSIDE), subject);
  ASSERT_EQ(pieces.status, CL_OK);
  const double tooth = 0.5 * 1 * 4;
  EXPECT_NEAR(kept_area(pieces.rings), 5 * (tooth - tooth / 4) + 5 * 0.5, 1e-6);
}

TEST(PolygonClipLimits, AMillionPointsInsideTheFenceComeBackUnchanged) {
  const int n = scaled(1000000);
  const Ring subject = many_teeth(n, 0, 4);
  const Fence fence({rectangle(-10, -10, n, 10)}, CL_KEEP_INSIDE);
  const Pieces pieces = clip_polygon(fence, reversed(subject));
  ASSERT_EQ(pieces.status, CL_OK);
  ASSERT_EQ(pieces.rings.size(), 1u);
  EXPECT_EQ(pieces.rings[0].size(), subject.size());
  EXPECT_EQ(kept_area(pieces.rings), area(subject));
}

}  // namespace
}  // namespace Corvane::Print::tests
