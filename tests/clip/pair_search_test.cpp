// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The indexed search delivers every pair that meets, in the order of the double loop.
#include "clip/pair_search.h"

#include "clip/meeting.h"
#include "tests/clip/engine.h"
#include "tests/clip/random_input.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <utility>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Points = std::vector<clip::LinePoint>;
using Pairs = std::vector<std::pair<int, int>>;

Points closed(const Ring& ring) {
  Points points;
  for (const Point& p : ring) points.push_back({p.x, p.y, p.z});
  points.push_back(points.front());
  return points;
}

bool meet(const Points& a, int e, const Points& b, int f) {
  const clip::LinePoint &e0 = a[static_cast<std::size_t>(e)], &e1 = a[static_cast<std::size_t>(e) + 1];
  const clip::LinePoint &f0 = b[static_cast<std::size_t>(f)], &f1 = b[static_cast<std::size_t>(f) + 1];
  Edge edge_e(e0.x, e0.y, e1.x, e1.y), edge_f(f0.x, f0.y, f1.x, f1.y);
  return clip::overlap_xy(edge_e.start.extent, edge_f.start.extent) &&
         clip::meet(edge_e.start, edge_f.start).found();
}

// The double loop.
Pairs meetings(const Points& a, const Points& b) {
  Pairs pairs;
  for (int e = 0; e + 1 < static_cast<int>(a.size()); ++e) {
    for (int f = 0; f + 1 < static_cast<int>(b.size()); ++f) {
      if (meet(a, e, b, f)) pairs.emplace_back(e, f);
    }
  }
  return pairs;
}

struct Found {
  Pairs meetings;
  long visited = 0;
};

Found search(const Points& a, const Points& b) {
  clip::EdgeIndex outer, inner;
  outer.build(a.data(), static_cast<int>(a.size()) - 1);
  inner.build(b.data(), static_cast<int>(b.size()) - 1);
  Found found;
  clip::for_each_near_pair(outer, inner, [&](int e, int f) {
    ++found.visited;
    if (meet(a, e, b, f)) found.meetings.emplace_back(e, f);
  });
  return found;
}

TEST(PairSearch, ItFindsAllMeetingsInTheOrderOfTheDoubleLoop) {
  constexpr std::uint64_t kSeed = 0x9A15;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  std::size_t meetings_seen = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kSeed, i));
    Ring a = edge_case_ring(random, 2), b = edge_case_ring(random, 2);
    if (random.one_in(50)) spoil(random, b);
    const Points e = closed(a), f = closed(b);
    const Pairs expected = meetings(e, f);
    ASSERT_EQ(search(e, f).meetings, expected) << i;
    ASSERT_EQ(search(f, e).meetings, meetings(f, e)) << i;
    meetings_seen += expected.size();
  }
  EXPECT_GT(meetings_seen, 1000u * static_cast<std::size_t>(scaled(20)));
}

// Far from the origin rounding is larger than any tolerance, and what counts as a meeting is a matter of
// bits.
TEST(PairSearch, RoundingFarFromTheOriginLosesNothing) {
  constexpr std::uint64_t kSeed = 0x9A16;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  for (int i = 0; i < scaled(5000); ++i) {
    Random random(case_seed(kSeed, i));
    const double scale = std::ldexp(1.0, random.between(0, 60)), away = scale * random.between(0, 1 << 20);
    Ring a = edge_case_ring(random, 2), b = edge_case_ring(random, 2);
    for (Ring* ring : {&a, &b}) {
      for (Point& p : *ring) p = {p.x * scale + away, p.y * scale - away, 0};
    }
    const Points e = closed(a), f = closed(b);
    ASSERT_EQ(search(e, f).meetings, meetings(e, f)) << i;
  }
}

TEST(PairSearch, OutlinesThatSeldomMeetAreSeldomCompared) {
  Random random(0x9A17);
  const Points a = closed(star(random, 5000, 99.9, 100)), b = closed(star(random, 5000, 99.9, 100));
  const Found found = search(a, b);
  EXPECT_EQ(found.meetings, meetings(a, b));
  EXPECT_LT(found.visited, 60000);  // of 25,000,000
}

TEST(PairSearch, RingsApartAreNotComparedAtAll) {
  const Points a = closed({{0, 0}, {0, 10}, {10, 10}}), b = closed({{11, 0}, {11, 10}, {20, 10}});
  EXPECT_EQ(search(a, b).visited, 0);
}

TEST(PairSearch, WithoutEdgesThereAreNoPairs) {
  const Points a = closed({{0, 0}, {0, 10}, {10, 10}}), point = {{5, 5, 0}};
  EXPECT_EQ(search(a, point).visited, 0);
  EXPECT_EQ(search(point, a).visited, 0);
}

}  // namespace
}  // namespace Corvane::Print::tests
