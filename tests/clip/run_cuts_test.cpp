// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where a run of a polyline meets one fence polygon, and on which side it runs in between.
#include "clip/run_cuts.h"

#include "clip/ring.h"
#include "tests/clip/engine.h"

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

const Ring kSquare = {{0, 0}, {0, 10}, {10, 10}, {10, 0}};

struct Result {
  clip::Cuts cuts;
  std::vector<clip::LinePoint> places;
  bool inside_at_start = false;

  // The places, and whether the run is inside behind each of them.
  std::string text() const {
    std::string all = inside_at_start ? "in" : "out";
    for (std::size_t i = 0; i < cuts.size(); ++i) {
      const clip::LinePoint& p = places[i];
      all += text_of(Ring{{p.x, p.y, p.z}}) + (cuts[i].inside_after ? "in" : "out");
    }
    return all;
  }
};

Result cuts_of(const Ring& line, const Ring& fence_ring = kSquare) {
  Result result;
  for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
    const Fence fence({fence_ring}, mode);
    platform::CapiVector<clip::LinePoint> points;
    ClipExtent extent = clip::empty_extent();
    for (const Point& p : line) {
      points.push_back({p.x, p.y, p.z});
      clip::include_point(extent, p.x, p.y);
    }
    clip::EdgeIndex edges;
    edges.build(points.data(), static_cast<int>(points.size()) - 1);
    const std::string other_mode = result.text();
    result.places.clear();
    result.cuts = clip::cut_run_at({points, extent, &edges}, *fence.handle(), result.inside_at_start);
    bool inside_without_index = false;
    const clip::Run plain = {points, extent, nullptr};
    EXPECT_EQ(clip::cut_run_at(plain, *fence.handle(), inside_without_index).size(), result.cuts.size());
    EXPECT_EQ(inside_without_index, result.inside_at_start);
    for (const clip::Cut& c : result.cuts) result.places.push_back(clip::point_of(c, plain));
    if (mode == CL_KEEP_INSIDE) {
      EXPECT_EQ(result.text(), other_mode);
    }
  }
  return result;
}

TEST(RunCuts, CutsComeInTheOrderOfTheRun) {
  EXPECT_EQ(cuts_of({{-5, 5}, {5, 5}, {15, 5}}).text(), "out(0 5)in(10 5)out");
  EXPECT_EQ(cuts_of({{15, 5}, {-5, 5}}).text(), "out(10 5)in(0 5)out");
  EXPECT_EQ(cuts_of({{5, 5}, {5, 15}, {7, 15}, {7, 5}}).text(), "in(5 10)out(7 10)in");
}

TEST(RunCuts, WithoutCutsTheInsideTestDecides) {
  EXPECT_EQ(cuts_of({{2, 2}, {5, 8}, {8, 2}}).text(), "in");
  EXPECT_EQ(cuts_of({{12, 2}, {15, 8}}).text(), "out");
  EXPECT_EQ(cuts_of({{5, 5}}).text(), "in");
  EXPECT_EQ(cuts_of({{15, 5}}).text(), "out");
  EXPECT_EQ(cuts_of({{10, 5}}).text(), "in");
  EXPECT_EQ(cuts_of({{8, 1}, {9, 3}}, {{0, 0}, {0, 10}, {10, 10}}).text(), "out");
}

TEST(RunCuts, TheClosingEdgeIsNoPartOfTheRun) {
  EXPECT_EQ(cuts_of({{-5, 5}, {-5, 15}, {15, 15}, {15, 5}}).text(), "out");
}

TEST(RunCuts, AVertexThatTouchesChangesNothing) {
  EXPECT_EQ(cuts_of({{-5, 2}, {0, 5}, {-5, 8}}).text(), "out(0 5)out");
  EXPECT_EQ(cuts_of({{5, 2}, {0, 5}, {5, 8}}).text(), "in(0 5)in");
  EXPECT_EQ(cuts_of({{5, 20}, {20, 5}}, {{0, 0}, {0, 10}, {12.5, 12.5}, {10, 0}}).text(),
            "out(12.5 12.5)out");
}

TEST(RunCuts, PassingAVertexIsOneCut) {
  EXPECT_EQ(cuts_of({{-5, -5}, {15, 15}}).text(), "out(0 0)in(10 10)out");
  EXPECT_EQ(cuts_of({{-5, -5}, {0, 0}, {5, 5}}).text(), "out(0 0)in");
  EXPECT_EQ(cuts_of({{-5, 5}, {0, 5}, {5, 5}}).text(), "out(0 5)in");
}

TEST(RunCuts, AlongAnEdgeTheRunCountsAsInside) {
  EXPECT_EQ(cuts_of({{0, 2}, {0, 8}}).text(), "in");
  EXPECT_EQ(cuts_of({{0, -5}, {0, 15}}).text(), "out(0 0)in(0 10)out");
  EXPECT_EQ(cuts_of({{-5, 0}, {0, 0}, {0, 10}, {-5, 10}}).text(), "out(0 0)in(0 10)out");
}

TEST(RunCuts, ARunMayStartAndEndOnTheEdge) {
  EXPECT_EQ(cuts_of({{0, 5}, {5, 5}}).text(), "in(0 5)in");
  EXPECT_EQ(cuts_of({{0, 5}, {-5, 5}}).text(), "out(0 5)out");
  EXPECT_EQ(cuts_of({{-5, 5}, {0, 5}}).text(), "out(0 5)out");
  EXPECT_EQ(cuts_of({{5, 5}, {0, 5}}).text(), "in(0 5)in");
}

TEST(RunCuts, ACutCarriesTheRunsInterpolatedZ) {
  EXPECT_EQ(cuts_of({{-5, 5, 1}, {5, 5, 3}, {15, 5, 7}}).text(), "out(0 5 2)in(10 5 5)out");
}

// Unlike a ring, a run may pass the same fence vertex any number of times.
TEST(RunCuts, TheSamePlaceMayBePassedTwice) {
  EXPECT_EQ(cuts_of({{-5, -5}, {5, 5}, {5, 0}, {5, 5}, {-5, -5}}).text(), "out(0 0)in(5 0)in(0 0)out");
}

TEST(RunCuts, ARepeatedPointOfTheRunIsNoTurn) {
  EXPECT_EQ(cuts_of({{-5, 5}, {-5, 5}, {5, 5}, {5, 5}, {15, 5}}).text(), "out(0 5)in(10 5)out");
}

}  // namespace
}  // namespace Corvane::Print::tests
