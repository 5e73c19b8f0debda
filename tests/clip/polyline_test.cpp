// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Polylines: breaks and the depth cut of lines.
#include "clip/polyline.h"

#include "tests/support/area.h"
#include "tests/support/random.h"
#include "tests/support/ring.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Corvane::Print::tests {
namespace {

Rings runs_of(const clip::Polylines& lines) {
  Rings runs;
  std::size_t at = 0;
  for (const std::size_t end : lines.ends) {
    runs.emplace_back();
    EXPECT_LT(at, end);
    for (; at < end; ++at)
      runs.back().push_back({lines.points[at].x, lines.points[at].y, lines.points[at].z});
  }
  EXPECT_EQ(at, lines.points.size());
  return runs;
}

clip::Polylines split(const Ring& line, int dim = 3) {
  const std::vector<double> flat = flatten(line, dim);
  return clip::split_at_breaks(dim, static_cast<int>(line.size()), flat.data());
}

Rings cut(const Ring& line, double low, double high) {
  return runs_of(clip::cut_to_depth(split(line), low, high));
}

// A line along x whose depth is given.
Ring depths(const std::vector<double>& z) {
  Ring line;
  for (const double depth : z) line.push_back({static_cast<double>(line.size()), 0, depth});
  return line;
}

const Point kBreak = line_break();

TEST(Polyline, BreaksSeparateRunsAndAreNoPartOfThem) {
  const Ring a = {{1, 1, 1}, {2, 2, 2}}, b = {{3, 3, 3}}, c = {{4, 4, 4}, {5, 5, 5}, {6, 6, 6}};
  EXPECT_EQ(runs_of(split({a[0], a[1], kBreak, b[0], kBreak, c[0], c[1], c[2]})), (Rings{a, b, c}));
}

TEST(Polyline, BreaksAtTheEndsAndInARowLeaveNoEmptyRun) {
  const Ring a = {{1, 1, 1}, {2, 2, 2}}, b = {{3, 3, 3}};
  EXPECT_EQ(runs_of(split({kBreak, kBreak, a[0], a[1], kBreak, kBreak, b[0], kBreak})), (Rings{a, b}));
  EXPECT_TRUE(runs_of(split({kBreak})).empty());
  EXPECT_TRUE(runs_of(split({kBreak, kBreak})).empty());
}

TEST(Polyline, ABreakIsKnownByItsXAlone) {
  EXPECT_EQ(runs_of(split({{1, 1, 1}, {CL_BREAK, 5, 5}, {2, 2, 2}})).size(), 2u);
  EXPECT_EQ(runs_of(split({{1, 1, 1}, {5, CL_BREAK, CL_BREAK}, {2, 2, 2}})).size(), 1u);
  EXPECT_EQ(runs_of(split({{1, 1, 1}, {-CL_BREAK, 5, 5}, {2, 2, 2}})).size(), 1u);
}

TEST(Polyline, FlatPointsLieAtDepthZero) {
  EXPECT_EQ(runs_of(split({{1, 2, 9}, {3, 4, 9}}, 2)), (Rings{{{1, 2, 0}, {3, 4, 0}}}));
}

TEST(Polyline, ALineWithinTheRangeStaysAsItIs) {
  const Ring line = depths({0, 5, 10, 0});
  EXPECT_EQ(cut(line, 0, 10), Rings{line});
}

TEST(Polyline, WhereALineCrossesTheLowBoundAPointIsInserted) {
  EXPECT_EQ(cut(depths({4, -4, 4}), 0, 10), (Rings{{{0, 0, 4}, {0.5, 0, 0}}, {{1.5, 0, 0}, {2, 0, 4}}}));
}

TEST(Polyline, WhereALineCrossesTheHighBoundAPointIsInserted) {
  EXPECT_EQ(cut(depths({6, 14, 6}), 0, 10), (Rings{{{0, 0, 6}, {0.5, 0, 10}}, {{1.5, 0, 10}, {2, 0, 6}}}));
}

TEST(Polyline, ALineThroughBothBoundsIsCutAtBoth) {
  EXPECT_EQ(cut({{0, 0, -10}, {30, 60, 20}}, 0, 10), (Rings{{{10, 20, 0}, {20, 40, 10}}}));
}

TEST(Polyline, APointInABoundIsKeptAndALineThatGoesBeyondEndsThere) {
  EXPECT_EQ(cut(depths({4, 0, -4, -8}), 0, 10), (Rings{{{0, 0, 4}, {1, 0, 0}}}));
  EXPECT_EQ(cut(depths({4, 0, -4, 0, 4}), 0, 10), (Rings{{{0, 0, 4}, {1, 0, 0}}, {{3, 0, 0}, {4, 0, 4}}}));
  EXPECT_EQ(cut(depths({6, 10, 14, 10, 6}), 0, 10),
            (Rings{{{0, 0, 6}, {1, 0, 10}}, {{3, 0, 10}, {4, 0, 6}}}));
}

TEST(Polyline, ALineThatTouchesABoundIsNotCut) {
  EXPECT_EQ(cut(depths({4, 0, 4, 10, 4}), 0, 10), Rings{depths({4, 0, 4, 10, 4})});
  EXPECT_EQ(cut(depths({0, 0, 0}), 0, 10), Rings{depths({0, 0, 0})});
  EXPECT_EQ(cut(depths({10, 10}), 0, 10), Rings{depths({10, 10})});
}

// The dot where a line from beyond only touches the range.
TEST(Polyline, AVertexInTheBoundBetweenPointsBeyondIsARunOfItsOwn) {
  EXPECT_EQ(cut(depths({-4, 0, -4}), 0, 10), (Rings{{{1, 0, 0}}}));
}

TEST(Polyline, ARunThatEndsBeyondEndsAtItsLastPointInTheBound) {
  EXPECT_EQ(cut(depths({4, -4}), 0, 10), (Rings{{{0, 0, 4}, {0.5, 0, 0}}}));
  EXPECT_EQ(cut(depths({4, -4, -5, -6}), 0, 10), (Rings{{{0, 0, 4}, {0.5, 0, 0}}}));
}

TEST(Polyline, AnEntirelyDiscardedRunLeavesNoTrace) {
  const Ring kept = depths({1, 2, 3});
  Ring line = depths({-1, -2});
  line.push_back(kBreak);
  line.insert(line.end(), kept.begin(), kept.end());
  line.push_back(kBreak);
  line.push_back({7, 7, 17});
  EXPECT_EQ(cut(line, 0, 10), Rings{kept});
  EXPECT_TRUE(cut(depths({-1, -5}), 0, 10).empty());
  EXPECT_TRUE(cut(depths({11, 15}), 0, 10).empty());
}

TEST(Polyline, ASinglePointIsKeptWithinTheRangeOnly) {
  EXPECT_EQ(cut({{1, 1, 0}}, 0, 10).size(), 1u);
  EXPECT_EQ(cut({{1, 1, 10}}, 0, 10).size(), 1u);
  EXPECT_TRUE(cut({{1, 1, -0.0001}}, 0, 10).empty());
  EXPECT_TRUE(cut({{1, 1, 10.0001}}, 0, 10).empty());
}

TEST(Polyline, ComparisonsAreExact) {
  const double below = std::nextafter(0.0, -1.0);
  EXPECT_TRUE(cut({{1, 1, below}, {2, 2, below}}, 0, 10).empty());
  EXPECT_EQ(cut({{1, 1, 0}, {2, 2, 0}}, 0, 10).size(), 1u);
}

TEST(Polyline, DepthsThatAreNotFiniteComeToAnEnd) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  for (const double bad : {nan, inf, -inf}) {
    for (std::size_t place = 0; place < 4; ++place) {
      Ring line = depths({4, -4, 4, 14});
      line[place].z = bad;
      EXPECT_LE(cut(line, 0, 10).size(), 6u);
    }
  }
}

// Along a line in space the kept length is that of the parameter ranges within the bounds.
TEST(Polyline, RandomLinesKeepTheLengthWithinTheRange) {
  constexpr std::uint64_t kSeed = 0xD1E5;
  for (int i = 0; i < scaled(2000); ++i) {
    SCOPED_TRACE(testing::Message() << "seed " << case_seed(kSeed, i));
    Random random(case_seed(kSeed, i));
    Ring line;
    for (int k = random.between(1, 12); k > 0; --k) {
      const double x = random.between(-9.0, 9.0);
      const double y = random.between(-9.0, 9.0);
      const int z = random.between(-3, 3);
      line.push_back(random.one_in(8) ? kBreak : Point{x, y, static_cast<double>(z)});
    }
    const double low = random.between(-2, 0);
    const double high = random.between(0, 2);
    double expected = 0;
    for (std::size_t k = 1; k < line.size(); ++k) {
      const Point &a = line[k - 1], &b = line[k];
      if (a.x == CL_BREAK || b.x == CL_BREAK) continue;
      double share = a.z >= low && a.z <= high ? 1 : 0;
      if (a.z != b.z) {
        const double t0 = (low - a.z) / (b.z - a.z), t1 = (high - a.z) / (b.z - a.z);
        share = std::max(0.0, std::min(1.0, std::max(t0, t1)) - std::max(0.0, std::min(t0, t1)));
      }
      expected += share * segment_length(a, b);
    }
    const Rings kept = cut(line, low, high);
    EXPECT_NEAR(length(kept), expected, 1e-9);
    for (const Ring& run : kept) {
      for (const Point& p : run) EXPECT_TRUE(p.z >= low && p.z <= high);
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
