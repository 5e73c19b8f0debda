// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What an edge answers to the ray of the inside test at exactly its tolerances, and a hair to either side.
#include "clip/contain.h"

#include "clip/ring.h"
#include "clip/tolerances.h"

#include <gtest/gtest.h>

#include <cmath>

namespace Corvane::Print::tests {
namespace {

using clip::kCross;
using clip::kMiss;
using clip::kOnEdge;

struct Answer {
  clip::RayAnswer answer = kMiss;
  bool skip_next = false, at_start = false;
};

// The probe is the ray's origin; it is its own neighbour, which so never decides.
Answer ask(const FenceVertex& edge, const ProbeRecord& ray) {
  Answer a;
  FenceVertex probe = {};
  probe.x = ray.x, probe.y = ray.y;
  probe.next = probe.next2 = probe.prev = &probe;
  a.answer = clip::edge_meets_ray(edge, ray, probe, a.skip_next, a.at_start);
  return a;
}

// A level ray.
ProbeRecord ray_from(double x, double y, double length, double tolerance = 1e-5) {
  ProbeRecord ray = {};
  ray.x = x, ray.y = y, ray.dx = length;
  ray.tolerance = tolerance;
  return ray;
}

// An upright edge of length 1 from (5, 0), and level rays of length 1 or 2: parameters are exact.
struct ExactEdge {
  ExactEdge() {
    before.x = 9, before.y = -1, start.x = end.x = 5, end.y = 1, after.x = 9, after.y = 2;
    before.next = before.next2 = &start, start.next = start.next2 = &end, end.next = end.next2 = &after;
    after.next = after.next2 = &before;
    start.prev = &before, end.prev = &start, after.prev = &end, before.prev = &after;
    for (FenceVertex* v : {&before, &start, &end, &after}) clip::set_edge(*v);
    start.tolerance = clip::kSnap;
  }
  ExactEdge(const ExactEdge&) = delete;
  ExactEdge& operator=(const ExactEdge&) = delete;
  Answer from(double x, double y) const { return ask(start, ray_from(x, y, 2)); }

  FenceVertex before = {}, start = {}, end = {}, after = {};
};

TEST(ContainLimits, AtExactlyTheEdgesToleranceTheRayCrossesTheEdgeOrMissesIt) {
  const ExactEdge e;
  for (const double y : {clip::kSnap, 1 - clip::kSnap}) {
    EXPECT_EQ(e.from(4, y).answer, kCross) << y;
    EXPECT_FALSE(e.from(4, y).skip_next) << y;  // no vertex is asked
  }
  for (const double y : {-clip::kSnap, 1 + clip::kSnap}) {
    EXPECT_EQ(e.from(4, y).answer, kMiss) << y;
    const double inner = std::nextafter(y, 0.5);
    EXPECT_EQ(e.from(4, inner).answer, kCross) << y;  // its neighbours lie on different sides of the vertex
    EXPECT_TRUE(e.from(4, inner).skip_next) << y;
  }
}

TEST(ContainLimits, AtExactlyTheRaysToleranceTheProbeIsNotOnTheEdge) {
  const ExactEdge e;
  EXPECT_EQ(ask(e.start, ray_from(4.75, 0.5, 1, 0.25)).answer, kCross);
  EXPECT_EQ(ask(e.start, ray_from(5.25, 0.5, 1, 0.25)).answer, kMiss);
  const double wider = std::nextafter(0.25, 1.0);
  EXPECT_EQ(ask(e.start, ray_from(4.75, 0.5, 1, wider)).answer, kOnEdge);
  EXPECT_EQ(ask(e.start, ray_from(5.25, 0.5, 1, wider)).answer, kOnEdge);
}

// The line from (5, 0) to the far end of a ray from (4, 0) of length 2 has length 1: the cross product is the
// neighbour's height.
TEST(ContainLimits, ANeighbourAtExactlyTheParallelLimitLiesBesideTheLine) {
  for (const double sign : {1.0, -1.0}) {
    ExactEdge e;
    e.end.y = sign;
    clip::set_edge(e.start);
    e.before.y = sign * clip::kParallel;
    EXPECT_EQ(ask(e.start, ray_from(4, 0, 2)).answer, kMiss);  // on the side where the edge goes
    e.before.y = sign * std::nextafter(clip::kParallel, 0.0);
    EXPECT_EQ(ask(e.start, ray_from(4, 0, 2)).answer, kCross);
  }
}

TEST(ContainLimits, TheVertexRuleLooksAtTheWorkingSuccessor) {
  ExactEdge e;
  EXPECT_EQ(e.from(4, 0).answer, kCross);  // from below to above
  FenceVertex inserted = {};
  inserted.x = 6, inserted.y = -0.5;
  e.start.next2 = &inserted;
  EXPECT_EQ(e.from(4, 0).answer, kMiss);
}

}  // namespace
}  // namespace Corvane::Print::tests
