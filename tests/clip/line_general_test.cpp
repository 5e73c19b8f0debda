// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The general line clipper, through the exported call with fences that have it.
#include "clip/line_general.h"

#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/area.h"
#include "tests/support/clip_call.h"
#include "tests/support/grid_shapes.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/runtime_variable.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <limits>

namespace Corvane::Print::tests {
namespace {

// A square that does not pass for a rectangle: it has a vertex more on its left side.
const Ring kSquare = {{0, 0}, {0, 4}, {0, 10}, {10, 10}, {10, 0}};
const Point kBreak = line_break();

Rings clip(const Rings& fence, int mode, const Ring& line, int dim = 2, FenceShape shape = {}) {
  const Fence f(fence, mode, shape);
  f.handle()->lineClipper = clip::clip_line_general;  // also for rectangles
  const Pieces pieces = clip_line(f, line, dim);
  EXPECT_EQ(pieces.status, CL_OK);
  EXPECT_TRUE(pieces.canaries && pieces.counted);
  return pieces.rings;
}

Rings inside(const Ring& line, const Rings& fence = {kSquare}) {
  return clip(fence, CL_KEEP_INSIDE, line);
}

Rings outside(const Ring& line, const Rings& fence = {kSquare}) {
  return clip(fence, CL_KEEP_OUTSIDE, line);
}

TEST(LineGeneral, AllFencesButRectanglesThatKeepTheirInsideHaveIt) {
  const Ring rectangular = rectangle(0, 0, 10, 10);
  EXPECT_EQ(Fence({kSquare}, CL_KEEP_INSIDE).handle()->lineClipper, clip::clip_line_general);
  EXPECT_EQ(Fence({rectangular}, CL_KEEP_OUTSIDE).handle()->lineClipper, clip::clip_line_general);
  EXPECT_EQ(Fence({rectangular, kSquare}, CL_KEEP_INSIDE).handle()->lineClipper, clip::clip_line_general);
  EXPECT_NE(Fence({rectangular}, CL_KEEP_INSIDE).handle()->lineClipper, clip::clip_line_general);
}

TEST(LineGeneral, ALineIsCutWhereItPassesTheFence) {
  const Ring line = {{-5, 5}, {5, 5}, {15, 5}};
  EXPECT_EQ(inside(line), (Rings{{{0, 5}, {5, 5}, {10, 5}}}));
  EXPECT_EQ(outside(line), (Rings{{{-5, 5}, {0, 5}}, {{10, 5}, {15, 5}}}));
}

TEST(LineGeneral, ALineFarFromTheFenceIsDroppedOrReturnedWhole) {
  const Ring line = {{50, 50}, {60, 50}, {60, 55}};
  EXPECT_TRUE(inside(line).empty());
  EXPECT_EQ(outside(line), Rings{line});
}

TEST(LineGeneral, ALineInsideIsReturnedWholeOrDropped) {
  const Ring line = {{2, 2}, {5, 8}, {8, 2}};
  EXPECT_EQ(inside(line), Rings{line});
  EXPECT_TRUE(outside(line).empty());
}

TEST(LineGeneral, ABreakSeparatesPiecesAndIsNeverWritten) {
  EXPECT_EQ(inside({{2, 2}, {3, 3}, kBreak, {5, 5}, {6, 5}}), (Rings{{{2, 2}, {3, 3}}, {{5, 5}, {6, 5}}}));
  EXPECT_EQ(inside({kBreak, {2, 2}, {3, 3}, kBreak, kBreak, {5, 5}, {6, 5}, kBreak}),
            (Rings{{{2, 2}, {3, 3}}, {{5, 5}, {6, 5}}}));
  EXPECT_TRUE(inside({kBreak, kBreak}).empty());
  EXPECT_TRUE(outside({kBreak}).empty());
}

TEST(LineGeneral, ARunOfOnePointIsAPieceOnTheKeptSide) {
  EXPECT_EQ(inside({{5, 5}}), (Rings{{{5, 5}}}));
  EXPECT_TRUE(inside({{15, 5}}).empty());
  EXPECT_TRUE(inside({{50, 50}}).empty());
  EXPECT_TRUE(outside({{5, 5}}).empty());
  EXPECT_EQ(outside({{15, 5}}), (Rings{{{15, 5}}}));
  EXPECT_EQ(inside({{15, 5}, kBreak, {5, 5}, kBreak, {25, 5}}), (Rings{{{5, 5}}}));
}

// The extent of all runs together is asked, and each run is then tested for itself.
TEST(LineGeneral, RunsFarApartAreJudgedEachForItself) {
  EXPECT_EQ(inside({{-50, 5}, {-40, 5}, kBreak, {40, 5}, {50, 5}}), Rings{});
  EXPECT_EQ(inside({{-50, 5}, {-40, 5}, kBreak, {2, 5}, {3, 5}}), (Rings{{{2, 5}, {3, 5}}}));
}

TEST(LineGeneral, ATouchCutsNothing) {
  EXPECT_EQ(inside({{5, 2}, {0, 5}, {5, 8}}), (Rings{{{5, 2}, {0, 5}, {5, 8}}}));
  EXPECT_EQ(outside({{-5, 2}, {0, 5}, {-5, 8}}), (Rings{{{-5, 2}, {0, 5}, {-5, 8}}}));
  EXPECT_TRUE(inside({{-5, 2}, {0, 5}, {-5, 8}}).empty());
  EXPECT_TRUE(outside({{5, 2}, {0, 5}, {5, 8}}).empty());
  EXPECT_EQ(outside({{-5, 5}, {5, 15}}, {kSquare}), (Rings{{{-5, 5}, {5, 15}}}));  // past the corner (0, 10)
}

TEST(LineGeneral, AlongTheFencesEdgeALineCountsAsInside) {
  EXPECT_EQ(inside({{0, 2}, {0, 8}}), (Rings{{{0, 2}, {0, 8}}}));
  EXPECT_TRUE(outside({{0, 2}, {0, 8}}).empty());
  EXPECT_EQ(inside({{10, -5}, {10, 15}}), (Rings{{{10, 0}, {10, 10}}}));
  EXPECT_EQ(outside({{10, -5}, {10, 15}}), (Rings{{{10, -5}, {10, 0}}, {{10, 10}, {10, 15}}}));
}

TEST(LineGeneral, ThroughACornerTheCutIsTheCorner) {
  EXPECT_EQ(inside({{-5, -5}, {15, 15}}), (Rings{{{0, 0}, {10, 10}}}));
  EXPECT_EQ(inside({{-5, -5}, {0, 0}, {5, 5}}), (Rings{{{0, 0}, {5, 5}}}));
}

TEST(LineGeneral, InsideAnyOfTheFencesPolygonsALineIsKept) {
  const Rings two = {rectangle(0, 0, 10, 10), rectangle(20, 0, 30, 10)};
  EXPECT_EQ(inside({{-5, 5}, {35, 5}}, two), (Rings{{{0, 5}, {10, 5}}, {{20, 5}, {30, 5}}}));
  EXPECT_EQ(inside({{35, 5}, {-5, 5}}, two), (Rings{{{30, 5}, {20, 5}}, {{10, 5}, {0, 5}}}));
  EXPECT_EQ(inside({{25, 5}, {28, 5}}, two), (Rings{{{25, 5}, {28, 5}}}));
}

TEST(LineGeneral, OutsideAllOfTheFencesPolygonsALineIsKeptOnce) {
  const Rings two = {rectangle(0, 0, 10, 10), rectangle(20, 0, 30, 10)};
  EXPECT_EQ(outside({{-5, 5}, {35, 5}}, two),
            (Rings{{{-5, 5}, {0, 5}}, {{10, 5}, {20, 5}}, {{30, 5}, {35, 5}}}));
  EXPECT_EQ(outside({{12, 5}, {18, 5}}, two), (Rings{{{12, 5}, {18, 5}}}));
  EXPECT_TRUE(outside({{22, 5}, {28, 5}}, two).empty());
}

TEST(LineGeneral, FromOnePolygonIntoItsNeighbourALineIsNotCut) {
  const Rings pair = {rectangle(0, 0, 10, 10), rectangle(10, 0, 20, 10)};
  EXPECT_EQ(inside({{-5, 5}, {25, 5}}, pair), (Rings{{{0, 5}, {20, 5}}}));
  EXPECT_EQ(inside({{25, 5}, {-5, 5}}, pair), (Rings{{{20, 5}, {0, 5}}}));
  EXPECT_EQ(outside({{-5, 5}, {25, 5}}, pair), (Rings{{{-5, 5}, {0, 5}}, {{20, 5}, {25, 5}}}));
}

// A gap narrower than the snapping distance is none.
TEST(LineGeneral, ANarrowGapBetweenNeighboursDoesNotCutALine) {
  const auto pieces = [](double gap) {
    const Rings pair = {rectangle(0, 0, 10, 10), rectangle(10 + gap, 0, 20, 10)};
    return inside({{-5, 5}, {25, 5}}, pair);
  };
  EXPECT_EQ(pieces(0.9e-5), (Rings{{{0, 5}, {20, 5}}}));
  EXPECT_EQ(pieces(1.1e-5).size(), 2u);
}

TEST(LineGeneral, ADeepLineIsCutToTheDepthRangeFirst) {
  const FenceShape deep = {3, 0, 10};
  const Ring line = {{2, 5, -5}, {8, 5, 5}, {20, 5, 5}};
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, line, 3, deep), (Rings{{{5, 5, 0}, {8, 5, 5}, {10, 5, 5}}}));
  EXPECT_EQ(clip({kSquare}, CL_KEEP_OUTSIDE, line, 3, deep), (Rings{{{10, 5, 5}, {20, 5, 5}}}));
}

TEST(LineGeneral, AFenceThatKeepsItsOutsideCutsNoDepth) {
  const Ring line = {{12, 5, -50}, {18, 5, 50}};
  EXPECT_EQ(clip({kSquare}, CL_KEEP_OUTSIDE, line, 3, {3, 0, 10}), Rings{line});
}

TEST(LineGeneral, AFlatLineKnowsNoDepth) {
  const Ring line = {{2, 5}, {8, 5}};
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, line, 2, {3, 5, 10}), Rings{line});
}

TEST(LineGeneral, ACutCarriesTheLinesInterpolatedZ) {
  EXPECT_EQ(clip({kSquare}, CL_KEEP_INSIDE, {{-5, 5, 1}, {15, 5, 5}}, 3, {3, 0, 10}),
            (Rings{{{0, 5, 2}, {10, 5, 4}}}));
}

// A polygon clip leaves the fence's rings leading through vertices of its own, whose nodes the next line
// takes over. The ray from the line's first point goes straight up through the diamond's top.
TEST(LineGeneral, APolygonClipBeforeItChangesNothing) {
  const RuntimeVariable upright("VX_CLIP_RAY_SLOPE", "0");
  Ring line = {{0, 0}};
  for (int i = 0; i < 30; ++i) line.push_back({-1 - i * 0.1, 0});
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    const Fence f({{{0, -10}, {-10, 0}, {0, 10}, {10, 0}}}, mode);
    const Rings before = clip_line(f, line).rings;
    EXPECT_EQ(before.size(), mode == CL_KEEP_INSIDE ? 1u : 0u);
    for (const Ring& subject : {Ring{{20, 20}, {2, 4}, {4, 2}}, Ring{{-20, 20}, {-2, 4}, {-4, 2}}}) {
      EXPECT_EQ(clip_polygon(f, subject).status, CL_OK);
      EXPECT_EQ(clip_line(f, line).rings, before);
    }
  }
}

// On the grid the rays pass through many vertices.
TEST(LineGeneral, AFenceThatWasClippedAgainstGivesWhatAFreshOneGives) {
  constexpr std::uint64_t kSeed = 0x11E1;
  const RuntimeVariable diagonal("VX_CLIP_RAY_SLOPE", "1");
  for (int i = 0; i < scaled(500); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Ring fence_ring = grid_polygon(random);
    const int mode = random.between(1, 2);
    const Fence used({fence_ring}, mode), fresh({fence_ring}, mode);
    EXPECT_EQ(clip_polygon(used, grid_polygon(random)).status, CL_OK);
    Ring line;
    for (int run = 0; run < 5; ++run) {
      const double x = random.between(0, 7) * kGridSpacing, y = random.between(0, 7) * kGridSpacing;
      line.push_back({x, y});
      for (int k = 0; k < 30; ++k) line.push_back({x + random.between(1, 40), y + random.between(1, 40)});
      line.push_back(kBreak);
    }
    EXPECT_EQ(text_of(clip_line(used, line).rings), text_of(clip_line(fresh, line).rings));
  }
}

TEST(LineGeneral, ArgumentsThatAreNullOrOutOfRangeAreRefused) {
  const Fence f({kSquare}, CL_KEEP_INSIDE);
  const double line[] = {1, 1, 2, 2};
  int pieces = 5, counts[5], points = 5;
  double out[15];
  EXPECT_EQ(CLclipLine(nullptr, 2, 2, line, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, nullptr, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, nullptr, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, &pieces, nullptr, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, &pieces, counts, nullptr, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, &pieces, counts, out, nullptr), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 4, 2, line, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 1, 2, line, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, 0, line, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLclipLine(f.handle(), 2, -1, line, &pieces, counts, out, &points), CL_BAD_ARGUMENT);
  EXPECT_EQ(pieces, 5);
  EXPECT_EQ(points, 5);
}

// Two pieces of two points. The point room must hold one more than is written.
TEST(LineGeneral, AShortageRaisesThePointsByItAndThePiecesByOneMore) {
  const Fence f({kSquare}, CL_KEEP_OUTSIDE);
  const double line[] = {-5, 5, 15, 5};
  const auto ask = [&](int pieces, int points, int expected_pieces, int expected_points, int status) {
    Guarded<int> counts(pieces);
    Guarded<double> out(points * 2);
    EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, &pieces, counts.data(), out.data(), &points), status);
    EXPECT_EQ(pieces, expected_pieces);
    EXPECT_EQ(points, expected_points);
    EXPECT_TRUE(counts.intact() && out.intact());
  };
  ask(2, 5, 2, 4, CL_OK);
  ask(9, 99, 2, 4, CL_OK);
  ask(2, 4, 3, 5, CL_TOO_SMALL);
  ask(2, 1, 3, 5, CL_TOO_SMALL);
  ask(1, 5, 3, 5, CL_TOO_SMALL);
  ask(1, 2, 3, 5, CL_TOO_SMALL);
  ask(0, 5, 3, 5, CL_TOO_SMALL);
}

TEST(LineGeneral, TheFirstCountIsZeroedBeforeAnythingIsWritten) {
  const Fence f({kSquare}, CL_KEEP_INSIDE);
  const double line[] = {50, 50, 60, 60};
  int pieces = 1, counts[1] = {77}, points = 3;
  double out[9];
  EXPECT_EQ(CLclipLine(f.handle(), 2, 2, line, &pieces, counts, out, &points), CL_OK);
  EXPECT_EQ(counts[0], 0);
  EXPECT_EQ(pieces, 0);
  EXPECT_EQ(points, 0);
}

TEST(LineGeneral, ARepeatedCallGivesWhatAFirstCallWithRoomGives) {
  Random random(0x11E9);
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const int dim : {2, 3}) {
      const Fence f({star(random, 40, 40, 100)}, mode, {dim, -50, 50});
      Ring line = polyline(random, 60, 120);
      if (dim == 3) {
        for (Point& p : line) p.z = p.x == CL_BREAK ? CL_BREAK : p.x + 3;
      }
      const Pieces enough = clip_line(f, line, dim, {1000, 3000});
      ASSERT_EQ(enough.calls, 1);
      for (int pieces = 0; pieces < 8; ++pieces) {
        for (int points = 0; points < 40; points += 3) {
          const Pieces grown = clip_line(f, line, dim, {pieces, points});
          EXPECT_EQ(grown.status, CL_OK);
          EXPECT_TRUE(grown.canaries && grown.counted);
          EXPECT_EQ(grown.rings, enough.rings);
          EXPECT_LE(grown.calls, 2);
        }
      }
    }
  }
}

TEST(LineGeneral, LackOfMemoryIsReportedLeaksNothingAndLeavesTheFenceUsable) {
  const FailurePlanEnds ends;
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const int dim : {2, 3}) {
      const Fence f({kSquare, rectangle(20, 0, 30, 10)}, mode, {dim, -1, 1});
      const Ring line = {{-5, 5, -3}, {15, 6, 3}, {40, 4, -2}, kBreak, {3, 3, 0}, {25, 25, 0}};
      const Pieces before = clip_line(f, line, dim);
      ASSERT_EQ(before.status, CL_OK);
      const long blocks = blocks_in_use();
      int failures = 0;
      for (long n = 0;; ++n, ++failures) {
        ASSERT_LT(n, 500);
        release_overflow_buffers();
        platform::capi_fail_after(n);
        const Pieces pieces = clip_line(f, line, dim);
        platform::capi_fail_after(-1);
        EXPECT_EQ(blocks_in_use(), blocks);
        if (pieces.status == CL_OK) break;
        EXPECT_EQ(pieces.status, CL_NO_MEMORY);
        EXPECT_EQ(clip_line(f, line, dim).rings, before.rings);
      }
      EXPECT_GT(failures, 3);
    }
  }
}

// On 32 bits no vector counts so many points; elsewhere there is no memory. Nothing is read.
TEST(LineGeneral, MorePointsThanCanBeHeldAreALackOfMemory) {
  const FailurePlanEnds ends;
  const Fence f({kSquare}, CL_KEEP_INSIDE);
  const double none[1] = {};
  for (const int count : {100 * 1000 * 1000, (1 << 29) / 3}) {
    int pieces = 1, counts[1], points = 1;
    double out[3];
    platform::capi_fail_after(0);
    const int status = CLclipLine(f.handle(), 3, count, none + 1, &pieces, counts, out, &points);
    platform::capi_fail_after(-1);
    EXPECT_EQ(status, CL_NO_MEMORY);
    EXPECT_TRUE(pieces == 1 && points == 1);
  }
}

TEST(LineGeneral, NumbersThatAreNotFiniteEndInBoundsWithTheSameAnswerTwice) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  const Ring line = {{-5, 5, 0}, {5, 5, 1}, {15, 6, 2}, {5, -5, 0}};
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const int dim : {2, 3}) {
      const Fence f({kSquare}, mode, {dim, -1, 1});
      for (const double bad : {nan, inf, -inf, 1e300, -1e300, 1e-300}) {
        for (std::size_t place = 0; place < line.size() * static_cast<std::size_t>(dim); ++place) {
          Ring changed = line;
          Point& p = changed[place / static_cast<std::size_t>(dim)];
          double* coordinates[] = {&p.x, &p.y, &p.z};
          *coordinates[place % static_cast<std::size_t>(dim)] = bad;
          const Pieces once = clip_line(f, changed, dim), twice = clip_line(f, changed, dim);
          EXPECT_EQ(once.status, CL_OK);
          EXPECT_TRUE(once.canaries && once.counted);
          EXPECT_EQ(text_of(once.rings), text_of(twice.rings));
        }
      }
    }
  }
}

TEST(LineGeneral, InsideAndOutsideTogetherAreTheLine) {
  constexpr std::uint64_t kSeed = 0x11E0;
  for (int i = 0; i < scaled(500); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    const Rings fence = disjoint_shapes(random, 4, 100);
    const Ring line = polyline(random, 40, 110);
    const double kept = length(inside(line, fence)), rest = length(outside(line, fence));
    EXPECT_NEAR(kept + rest, length(line), 1e-9 * (length(line) + 1));
  }
}

TEST(LineGeneral, AMillionPointsAreClippedCorrectly) {
  const int n = scaled(1000000);
  const Fence f({kSquare}, CL_KEEP_INSIDE);
  Ring line;
  for (int i = 0; i < n; ++i) line.push_back({i % 2 == 0 ? -5.0 : 5.0, 1 + 8.0 * i / n});
  const Pieces zigzag = clip_line(f, line);
  ASSERT_EQ(zigzag.status, CL_OK);
  // Every segment goes from x = -5 to 5, and half of it is inside.
  EXPECT_NEAR(length(zigzag.rings), length(line) / 2, 1e-9 * length(line));
  EXPECT_EQ(zigzag.rings.size(), static_cast<std::size_t>(n / 2));
}

}  // namespace
}  // namespace Corvane::Print::tests
