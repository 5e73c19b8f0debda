// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The cuts of a run come out in order, each place once, whatever the order in which an edge's were found.
#include "clip/cut_list.h"

#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>
#include <vector>

namespace Corvane::Print::tests {
namespace {

FenceVertex g_fence[12];

clip::Cut at_vertex(int edge, double param, int vertex, int fence_edge) {
  return {param, &g_fence[vertex], edge, fence_edge, false, false};
}
clip::Cut inside(int edge, double param, int fence_edge) {
  return {param, &g_fence[fence_edge], edge, fence_edge, true, false};
}

using Row = std::tuple<int, double, int, bool>;  // edge, place, fence vertex, inside its edge

std::vector<Row> rows(const clip::Cuts& cuts) {
  std::vector<Row> all;
  for (const clip::Cut& c : cuts) {
    all.emplace_back(c.edge, c.param, static_cast<int>(c.fence - g_fence), c.inside_edge);
  }
  return all;
}

TEST(CutList, CutsOfAnEdgeAreOrderedAlongIt) {
  clip::CutList list;
  list.start_edge(3);
  list.add(inside(3, 0.75, 0));
  list.add(inside(3, 0.25, 1));
  list.start_edge(5);
  list.add(inside(5, 0.5, 0));
  const std::vector<Row> expected = {{3, 0.25, 1, true}, {3, 0.75, 0, true}, {5, 0.5, 0, true}};
  EXPECT_EQ(rows(list.take()), expected);
  EXPECT_TRUE(list.take().empty());
}

TEST(CutList, ACutAtAnEdgesEndIsOneAtTheStartOfTheNext) {
  clip::CutList list;
  list.start_edge(0);
  list.add(inside(1, 0, 2));
  list.add(inside(0, 0.5, 3));
  list.start_edge(1);
  list.add(inside(1, 0, 2));
  list.add(inside(1, 0.5, 4));
  const std::vector<Row> expected = {{0, 0.5, 3, true}, {1, 0, 2, true}, {1, 0.5, 4, true}};
  EXPECT_EQ(rows(list.take()), expected);
}

TEST(CutList, ACutAtTheRunsLastPointStays) {
  clip::CutList list;
  list.start_edge(6);
  list.add(at_vertex(7, 0, 1, 1));
  EXPECT_EQ(rows(list.take()), (std::vector<Row>{{7, 0, 1, false}}));
}

TEST(CutList, BothEdgesAtAFenceVertexReportItAndTheFirstReportStays) {
  clip::CutList list;
  list.start_edge(0);
  list.add(at_vertex(0, 0.5000001, 3, 3));
  list.add(inside(0, 0.25, 6));
  list.add(at_vertex(0, 0.5, 3, 2));
  const std::vector<Row> expected = {{0, 0.25, 6, true}, {0, 0.5, 3, false}};
  EXPECT_EQ(rows(list.take()), expected);
}

TEST(CutList, AtOnePlaceVerticesComeBeforeEdgesAndThoseInTheFencesOrder) {
  clip::CutList list;
  list.start_edge(0);
  list.add(inside(0, 0.5, 5));
  list.add(inside(0, 0.5, 4));
  list.add(at_vertex(0, 0.5, 7, 6));
  list.add(at_vertex(0, 0.5, 2, 7));
  const std::vector<Row> expected = {
      {0, 0.5, 2, false}, {0, 0.5, 7, false}, {0, 0.5, 4, true}, {0, 0.5, 5, true}};
  EXPECT_EQ(rows(list.take()), expected);
}

TEST(CutList, APointOfTheRunIsCutOnce) {
  clip::CutList list;
  list.start_edge(2);
  list.add(inside(2, 0, 1));
  list.add(at_vertex(2, 0, 6, 5));
  list.add(inside(2, 0.5, 3));
  EXPECT_EQ(rows(list.take()), (std::vector<Row>{{2, 0, 6, false}, {2, 0.5, 3, true}}));
}

TEST(CutList, TheOrderInWhichAnEdgesCutsAreFoundDoesNotMatter) {
  Random random(0xC071);
  for (int i = 0; i < scaled(20000); ++i) {
    clip::Cuts cuts;
    // A fence edge reports an edge of the run once.
    for (int number = 0; number < 12; ++number) {
      if (random.one_in(2)) continue;
      const double param = random.below(4) * 0.25;
      cuts.push_back(random.one_in(2) ? inside(0, param, number)
                                      : at_vertex(0, param, random.below(8), number));
    }
    const auto list_of = [](const clip::Cuts& found) {
      clip::CutList list;
      list.start_edge(0);
      for (const clip::Cut& c : found) list.add(c);
      return rows(list.take());
    };
    const std::vector<Row> expected = list_of(cuts);
    for (std::size_t k = cuts.size(); k > 1; --k) {
      std::swap(cuts[k - 1], cuts[static_cast<std::size_t>(random.below(static_cast<int>(k)))]);
    }
    ASSERT_EQ(list_of(cuts), expected) << i;
    ASSERT_TRUE(std::is_sorted(expected.begin(), expected.end(),
                               [](const Row& a, const Row& b) { return std::get<1>(a) < std::get<1>(b); }));
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
