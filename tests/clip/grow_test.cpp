// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Growing: by examples, by a second implementation that knows no work ring, and with every odd argument.
#include "corvane/print/cl.h"

#include "platform/capi_memory.h"
#include "tests/clip/bits.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Numbers = std::vector<double>;
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kUntouched = -77.0;

// Grows into an array of exactly the input's size. What was not written is kUntouched.
Numbers grow(int dim, std::vector<int> counts, Numbers points, double distance) {
  Guarded<double> out(static_cast<int>(points.size()));
  for (std::size_t i = 0; i < points.size(); ++i) out.data()[i] = kUntouched;
  const Numbers before = points;
  EXPECT_EQ(CLGrowPolygons(dim, static_cast<int>(counts.size()), counts.data(), points.data(), distance,
                           out.data()),
            CL_OK);
  EXPECT_TRUE(out.intact());
  for (std::size_t i = 0; i < points.size(); ++i) EXPECT_TRUE(same_bits(points[i], before[i])) << i;
  return {out.data(), out.data() + points.size()};
}

// The second implementation: points by value, neighbours by index, one vertex at a time.
using Place = std::array<double, 2>;

Place place(const Numbers& p, std::size_t dim, std::size_t i) {
  return {p[i * dim], p[i * dim + 1]};
}

Place reference_vertex(const Place& a, const Place& q, const Place& b, double sign, double distance) {
  const Place d[2] = {{q[0] - a[0], q[1] - a[1]}, {b[0] - q[0], b[1] - q[1]}};
  Place u[2], moved[2];
  double c[2];
  for (int e = 0; e < 2; ++e) {
    if (d[e] == Place{0, 0}) return q;
  }
  for (int e = 0; e < 2; ++e) {
    const double length = std::sqrt(d[e][0] * d[e][0] + d[e][1] * d[e][1]);
    u[e] = {d[e][0] / length, d[e][1] / length};
    moved[e] = {q[0] + (sign * u[e][1]) * distance, q[1] + (-sign * u[e][0]) * distance};
    c[e] = moved[e][1] * u[e][0] - moved[e][0] * u[e][1];
  }
  const double det = u[0][0] * u[1][1] - u[1][0] * u[0][1];
  if (det == 0) return moved[0];
  return {(u[1][0] * c[0] - u[0][0] * c[1]) / det, (u[1][1] * c[0] - u[0][1] * c[1]) / det};
}

Numbers reference_ring(std::size_t dim, const Numbers& p, double distance) {
  const std::size_t n = p.size() / dim;
  double sum = 0;
  for (std::size_t i = 0; i + 1 < n; ++i) {
    const Place a = place(p, dim, i), b = place(p, dim, i + 1);
    sum = sum + (a[0] * b[1] - a[1] * b[0]);
  }
  const std::size_t skip = n > 1 && place(p, dim, 0) == place(p, dim, n - 1) ? 1 : 0;
  Numbers result;
  for (std::size_t i = 0; i < n; ++i) {
    const Place before = place(p, dim, i > 0 ? i - 1 : n - 1 - skip);
    const Place after = place(p, dim, i + 1 < n ? i + 1 : skip);
    const Place moved = reference_vertex(before, place(p, dim, i), after, sum > 0 ? 1 : -1, distance);
    result.insert(result.end(), moved.begin(), moved.end());
    if (dim == 3) result.push_back(p[i * dim + 2]);
  }
  return result;
}

Numbers reference_rectangle(std::size_t dim, const Numbers& p, double distance) {
  Numbers result = p;
  for (std::size_t k = 0; k < 2; ++k) {
    result[k] = (p[dim + k] < p[k] ? p[dim + k] : p[k]) - distance;
    result[dim + k] = (p[k] < p[dim + k] ? p[dim + k] : p[k]) + distance;
  }
  return result;
}

Numbers reference_grow(int dimension, const std::vector<int>& counts, const Numbers& points,
                       double distance) {
  const auto dim = static_cast<std::size_t>(dimension);
  Numbers out(points.size(), kUntouched);
  auto from = points.begin();
  auto to = out.begin();
  for (const int count : counts) {
    if (count < 1) continue;
    const Numbers entry(from, from + count * dimension);
    from += count * dimension;
    const Numbers grown =
        count == 2 ? reference_rectangle(dim, entry, distance) : reference_ring(dim, entry, distance);
    std::copy(grown.begin(), grown.end(), to);
    if (count != 2) to += count * dimension;
  }
  return out;
}

const Numbers kSquare = {0, 0, 10, 0, 10, 10, 0, 10};

TEST(Grow, SquareMovesEveryCornerOutward) {
  EXPECT_EQ(grow(2, {4}, kSquare, 1), (Numbers{-1, -1, 11, -1, 11, 11, -1, 11}));
}

TEST(Grow, ClockwiseSquareGrowsToTheSamePointsInItsOwnOrder) {
  EXPECT_EQ(grow(2, {4}, {0, 0, 0, 10, 10, 10, 10, 0}, 1), (Numbers{-1, -1, -1, 11, 11, 11, 11, -1}));
}

TEST(Grow, ClosedSquareStaysClosed) {
  EXPECT_EQ(grow(2, {5}, {0, 0, 10, 0, 10, 10, 0, 10, 0, 0}, 1),
            (Numbers{-1, -1, 11, -1, 11, 11, -1, 11, -1, -1}));
}

TEST(Grow, NegativeDistanceShrinks) {
  EXPECT_EQ(grow(2, {4}, kSquare, -1), (Numbers{1, 1, 9, 1, 9, 9, 1, 9}));
}

TEST(Grow, RectangleIsSortedAndWidened) {
  EXPECT_EQ(grow(2, {2}, {10, 10, 0, 0}, 2), (Numbers{-2, -2, 12, 12}));
  EXPECT_EQ(grow(3, {2}, {10, 0, 7, 0, 10, 8}, 2), (Numbers{-2, -2, 7, 12, 12, 8}));
}

TEST(Grow, TheNextEntryIsWrittenOverARectangle) {
  const Numbers grown = grow(2, {2, 4}, {10, 10, 0, 0, 0, 0, 10, 0, 10, 10, 0, 10}, 1);
  EXPECT_EQ(grown, (Numbers{-1, -1, 11, -1, 11, 11, -1, 11, kUntouched, kUntouched, kUntouched, kUntouched}));
  EXPECT_EQ(grow(2, {2, 2}, {10, 10, 0, 0, 5, 5, 6, 6}, 1),
            (Numbers{4, 4, 7, 7, kUntouched, kUntouched, kUntouched, kUntouched}));
}

TEST(Grow, OnlyALastRectangleKeepsItsPlace) {
  const Numbers grown = grow(2, {4, 2}, {0, 0, 10, 0, 10, 10, 0, 10, 10, 10, 0, 0}, 1);
  EXPECT_EQ(grown, (Numbers{-1, -1, 11, -1, 11, 11, -1, 11, -1, -1, 11, 11}));
}

TEST(Grow, PointsOnAZeroLengthEdgeStay) {
  const Numbers grown = grow(2, {5}, {0, 0, 10, 0, 10, 0, 10, 10, 0, 10}, 1);
  EXPECT_EQ(grown, (Numbers{-1, -1, 10, 0, 10, 0, 11, 11, -1, 11}));
}

TEST(Grow, MiddleOfThreePointsInALineMovesByTheIncomingEdge) {
  const Numbers grown = grow(2, {5}, {0, 0, 5, 0, 10, 0, 10, 10, 0, 10}, 1);
  EXPECT_EQ(grown, (Numbers{-1, -1, 5, -1, 11, -1, 11, 11, -1, 11}));
}

TEST(Grow, FullReversalMovesByTheIncomingEdge) {
  // A closed ring there and back: the sum is 0, so it runs clockwise and its left-hand normals are outward.
  EXPECT_EQ(grow(2, {3}, {0, 0, 10, 0, 0, 0}, 1), (Numbers{0, -1, 10, 1, 0, -1}));
}

TEST(Grow, OpenRingsDirectionIsJudgedWithoutItsClosingEdge) {
  // Counter-clockwise with a sum of 200, of which the closing edge alone is 1100: without it, growing
  // shrinks.
  EXPECT_EQ(grow(2, {4}, {110, 110, 100, 110, 100, 100, 110, 100}, 1),
            (Numbers{109, 109, 101, 109, 101, 101, 109, 101}));
  EXPECT_EQ(grow(2, {5}, {110, 110, 100, 110, 100, 100, 110, 100, 110, 110}, 1),
            (Numbers{111, 111, 99, 111, 99, 99, 111, 99, 111, 111}));
}

TEST(Grow, ThreeDimensionsCarryEachPointsZ) {
  EXPECT_EQ(grow(3, {4}, {0, 0, 1, 10, 0, 2, 10, 10, 3, 0, 10, 4}, 1),
            (Numbers{-1, -1, 1, 11, -1, 2, 11, 11, 3, -1, 11, 4}));
}

TEST(Grow, ASharpVertexHasNoMiterLimit) {
  const Numbers grown = grow(2, {3}, {0, 0, 1000, 0, 0, 1}, 1);
  EXPECT_GT(grown[2], 2000);
}

TEST(Grow, NothingIsDoneWithoutEntries) {
  double out = 5;
  for (const int entries : {0, -1, INT_MIN}) {
    EXPECT_EQ(CLGrowPolygons(2, entries, nullptr, nullptr, 1, &out), CL_OK);
  }
  EXPECT_EQ(CLGrowPolygons(9, 0, nullptr, nullptr, 1, nullptr), CL_OK);
  EXPECT_EQ(out, 5);
}

TEST(Grow, EntriesWithoutPointsArePassedOver) {
  EXPECT_EQ(grow(2, {0, -3, 4, INT_MIN}, kSquare, 1), (Numbers{-1, -1, 11, -1, 11, 11, -1, 11}));
  int none[2] = {0, -1};
  EXPECT_EQ(CLGrowPolygons(2, 2, none, nullptr, 1, nullptr), CL_OK);
}

TEST(Grow, ASinglePointStays) {
  EXPECT_EQ(grow(2, {1}, {3, 4}, 1), (Numbers{3, 4}));
  EXPECT_EQ(grow(3, {1}, {3, 4, 5}, 1), (Numbers{3, 4, 5}));
  EXPECT_EQ(grow(2, {1, 4}, {3, 4, 0, 0, 10, 0, 10, 10, 0, 10}, 1),
            (Numbers{3, 4, -1, -1, 11, -1, 11, 11, -1, 11}));
}

TEST(Grow, BadArgumentsAreRefused) {
  int counts[2] = {0, 4};
  double points[12] = {}, out[12] = {};
  for (const int dim : {-1, 0, 1, 4, INT_MAX, INT_MIN}) {
    EXPECT_EQ(CLGrowPolygons(dim, 1, counts, points, 1, out), CL_BAD_ARGUMENT) << dim;
  }
  EXPECT_EQ(CLGrowPolygons(2, 1, nullptr, points, 1, out), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLGrowPolygons(2, 2, counts, nullptr, 1, out), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLGrowPolygons(2, 2, counts, points, 1, nullptr), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLGrowPolygons(2, 2, counts, points, 1, out), CL_OK);
}

TEST(Grow, CountsBeyondTheAddressSpaceAreRefused) {
  int counts[3] = {INT_MAX, INT_MAX, INT_MAX};
  double point[3] = {};
  platform::capi_fail_after(0);
  const int status = CLGrowPolygons(3, 3, counts, point, 1, point);
  platform::capi_fail_after(-1);
  EXPECT_EQ(status, sizeof(void*) == 4 ? CL_BAD_ARGUMENT : CL_NO_MEMORY);
}

TEST(Grow, ALargeRingNeedsMemoryAndReportsItsLack) {
  std::vector<int> counts = {1000};
  Numbers points(2000), out(2000, kUntouched);
  for (std::size_t i = 0; i < 1000; ++i) {
    points[2 * i] = std::cos(static_cast<double>(i) * 0.006);
    points[2 * i + 1] = std::sin(static_cast<double>(i) * 0.006);
  }
  platform::capi_fail_after(0);
  const int status = CLGrowPolygons(2, 1, counts.data(), points.data(), 1, out.data());
  const long requests = platform::capi_fail_after(-1);
  EXPECT_EQ(status, CL_NO_MEMORY);
  EXPECT_EQ(requests, 1);
  EXPECT_EQ(out, Numbers(2000, kUntouched));
  EXPECT_EQ(grow(2, counts, points, 0.5), reference_grow(2, counts, points, 0.5));
}

TEST(Grow, TheWorkRingIsObtainedOnceForAllEntries) {
  Numbers points;
  for (int i = 0; i < 300 + 500 + 400; ++i) {
    points.push_back(std::cos(i * 0.01));
    points.push_back(std::sin(i * 0.01));
  }
  const std::vector<int> counts = {300, 500, 400};
  platform::capi_fail_after(-1);
  const Numbers grown = grow(2, counts, points, 0.5);
  EXPECT_EQ(platform::capi_fail_after(-1), 1);
  EXPECT_EQ(grown, reference_grow(2, counts, points, 0.5));
}

TEST(Grow, ASmallRingNeedsNoHeap) {
  platform::capi_fail_after(0);
  const Numbers grown = grow(2, {4}, kSquare, 1);
  EXPECT_EQ(platform::capi_fail_after(-1), 0);
  EXPECT_EQ(grown, (Numbers{-1, -1, 11, -1, 11, 11, -1, 11}));
}

struct Case {
  int dim;
  std::vector<int> counts;
  Numbers points;
  double distance;
};

double random_number(Random& random) {
  switch (random.below(40)) {
    case 0:
      return kNan;
    case 1:
      return random.one_in(2) ? kInfinity : -kInfinity;
    case 2:
      return random.between(-1.0, 1.0) * 1e300;
    case 3:
      return random.between(-1.0, 1.0) * 1e-300;
    default:
      return random.one_in(3) ? random.between(-50.0, 50.0) : random.between(-3, 3);
  }
}

Case random_case(Random& random) {
  Case c = {
      random.between(2, 3), {}, {}, random.one_in(4) ? random.between(-2, 2) : random.between(-9.0, 9.0)};
  const bool plain = random.one_in(2);
  for (int k = random.between(1, 5); k > 0; --k) {
    const int n = random.one_in(200) ? random.between(250, 300) : random.between(-1, 9);
    c.counts.push_back(n);
    const std::size_t start = c.points.size();
    for (int i = 0; i < n * c.dim; ++i) {
      c.points.push_back(plain ? random.between(-20.0, 20.0) : random_number(random));
    }
    if (n < 2 || random.one_in(2)) continue;
    for (std::size_t i = 0; i < 2; ++i) {
      c.points[c.points.size() - static_cast<std::size_t>(c.dim) + i] = c.points[start + i];
    }
  }
  return c;
}

TEST(Grow, AgreesWithTheSecondImplementationBitForBit) {
  constexpr std::uint64_t kFamily = 341;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(kFamily, i));
    const Case c = random_case(random);
    const Numbers expected = reference_grow(c.dim, c.counts, c.points, c.distance);
    const Numbers grown = grow(c.dim, c.counts, c.points, c.distance);
    for (std::size_t k = 0; k < expected.size(); ++k) {
      ASSERT_TRUE(same_bits(grown[k], expected[k])) << "case " << i << " double " << k;
    }
  }
}

TEST(Grow, TheOutputMayBeTheInput) {
  for (int i = 0; i < scaled(10000); ++i) {
    Random random(case_seed(342, i));
    Case c = random_case(random);
    Numbers expected = c.points;
    const Numbers grown = reference_grow(c.dim, c.counts, c.points, c.distance);
    std::size_t written = 0, end = 0;
    for (const int count : c.counts) {
      const std::size_t size = count > 0 ? static_cast<std::size_t>(count * c.dim) : 0;
      end = std::max(end, written + size);
      if (count != 2) written += size;
    }
    std::copy(grown.begin(), grown.begin() + static_cast<std::ptrdiff_t>(end), expected.begin());
    double* both = c.points.data();
    ASSERT_EQ(
        CLGrowPolygons(c.dim, static_cast<int>(c.counts.size()), c.counts.data(), both, c.distance, both),
        CL_OK);
    for (std::size_t k = 0; k < expected.size(); ++k) {
      ASSERT_TRUE(same_bits(c.points[k], expected[k])) << "case " << i << " double " << k;
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
