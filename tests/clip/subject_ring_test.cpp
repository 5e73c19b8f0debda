// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The ring of an indexed subject: records where a fence comes near, stretches elsewhere.
#include "clip/subject_ring.h"

#include "clip/node_pool.h"
#include "clip/ring.h"
#include "tests/clip/clip_state.h"
#include "tests/support/random.h"
#include "tests/support/ring.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <string>

namespace Corvane::Print::tests {
namespace {

// A subject of so many points at (i, i squared, i).
class Subject {
public:
  explicit Subject(int count) : Subject(points(count)) {}
  explicit Subject(clip::RingPoints points) {
    EXPECT_TRUE(clip::restart_overflow());
    polygon_ = clip::take_header();
    clip::start_subject_ring(*polygon_, std::move(points));
  }
  ~Subject() { clip::release_index(*polygon_); }
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  FencePolygon& polygon() { return *polygon_; }
  clip::PolygonIndex& index() { return *clip::index_of(*polygon_); }

  static clip::RingPoints points(int count) {
    clip::RingPoints ring;
    for (int i = 0; i <= count; ++i)
      ring.push_back({1.0 * (i % count), 1.0 * (i % count) * (i % count), 1.0 * (i % count)});
    return ring;
  }

  // The ring as a text: vertices by their number, stretches as [first-last].
  std::string text() {
    std::string all;
    const FenceVertex* v = polygon_->first;
    do {
      if (v->marker == clip::kStretch) {
        const clip::StretchPoints stretch = clip::points_of_stretch(*v, index());
        const std::span<const clip::LinePoint> last = stretch.then.empty() ? stretch.first : stretch.then;
        all += "[" + number(stretch.first.empty() ? stretch.then.front() : stretch.first.front()) + "-" +
               number(last.back()) + "] ";
      } else {
        all += std::to_string(clip::number_of(*v)) + " ";
      }
      EXPECT_EQ(v->next->prev, v);
      EXPECT_EQ(v->next2, v->next);
      v = v->next;
    } while (v != polygon_->first);
    return all;
  }

private:
  static std::string number(const clip::LinePoint& p) { return std::to_string(static_cast<int>(p.x)); }

  FencePolygon* polygon_;
};

TEST(SubjectRing, OnlyVerticesThatWereAskedForAndTheirNeighboursHaveRecords) {
  Subject s(100);
  clip::vertex_with_edge(s.index(), 40);
  clip::close_subject_ring(s.polygon());
  EXPECT_EQ(s.text(), "0 1 2 [3-38] 39 40 41 42 [43-98] 99 ");
}

TEST(SubjectRing, AStretchMayRunOverTheFirstPoint) {
  Subject s(100);
  clip::close_subject_ring(s.polygon());
  EXPECT_EQ(s.text(), "0 1 2 [3-98] 99 ");
  clip::restart_ring(s.polygon());
  EXPECT_EQ(s.index().made.size(), 2u);
}

TEST(SubjectRing, NeighboursHaveNoStretchBetweenThem) {
  Subject s(10);
  for (const int n : {2, 4, 7}) clip::vertex_with_edge(s.index(), n);
  clip::close_subject_ring(s.polygon());
  EXPECT_EQ(s.text(), "0 1 2 3 4 5 6 7 8 9 ");
}

TEST(SubjectRing, ARecordIsTheOneOfARingOfRecords) {
  Subject s(5);
  const FenceVertex& v = clip::vertex_with_edge(s.index(), 3);
  EXPECT_EQ(v.x, 3);
  EXPECT_EQ(v.y, 9);
  EXPECT_EQ(v.z, 3);
  EXPECT_EQ(v.w, 1);
  EXPECT_EQ(v.dx, 1);
  EXPECT_EQ(v.dy, 7);
  EXPECT_EQ(v.tolerance, clip::edge_tolerance(1, 7));
  EXPECT_EQ(v.extent.xmin, 3);
  EXPECT_EQ(v.extent.ymax, 16);
  EXPECT_EQ(v.marker, clip::kOriginal);
  EXPECT_EQ(clip::vertex_with_edge(s.index(), 4).next, s.polygon().first);
}

// Points that differ in z alone leave edges without length, and a direction is asked for beyond them.
TEST(SubjectRing, RecordsReachToTheNextEdgeWithALength) {
  clip::RingPoints points = Subject::points(20);
  for (const int n : {11, 12, 13}) {
    points[static_cast<std::size_t>(n)].x = points[10].x;
    points[static_cast<std::size_t>(n)].y = points[10].y;
  }
  Subject s(std::move(points));
  clip::vertex_with_edge(s.index(), 12);
  clip::close_subject_ring(s.polygon());
  EXPECT_EQ(s.text(), "0 1 2 [3-8] 9 10 11 12 13 14 [15-18] 19 ");
}

TEST(SubjectRing, ACompletedRingHasAllVertices) {
  Subject s(50);
  for (const int n : {20, 35}) clip::vertex_with_edge(s.index(), n);
  clip::close_subject_ring(s.polygon());
  const FenceVertex* before = &s.index().vertex(35);
  clip::complete_ring(s.polygon());
  std::string all;
  for (int i = 0; i < 50; ++i) all += std::to_string(i) + " ";
  EXPECT_EQ(s.text(), all);
  EXPECT_EQ(&s.index().vertex(35), before);
  clip::complete_ring(s.polygon());
  EXPECT_EQ(s.text(), all);
}

TEST(SubjectRing, TheSmallestRingsAreClosedToo) {
  for (const int count : {1, 2, 3}) {
    Subject s(count);
    clip::close_subject_ring(s.polygon());
    clip::complete_ring(s.polygon());
    std::string all;
    for (int i = 0; i < count; ++i) all += std::to_string(i) + " ";
    EXPECT_EQ(s.text(), all);
  }
}

TEST(SubjectRing, WhateverHasRecordsTheRingHasEveryPointOnce) {
  Random random(0x5B21);
  for (int i = 0; i < scaled(5000); ++i) {
    const int count = random.between(1, 60);
    Subject s(count);
    for (int k = random.below(6); k > 0; --k) clip::vertex_with_edge(s.index(), random.below(count));
    clip::close_subject_ring(s.polygon());
    int next = 0;
    const auto expect_next = [&](const clip::LinePoint& p) { EXPECT_EQ(p.x, next++ % count); };
    const FenceVertex* v = s.polygon().first;
    do {
      if (v->marker == clip::kStretch) {
        const clip::StretchPoints stretch = clip::points_of_stretch(*v, s.index());
        for (const clip::LinePoint& p : stretch.first) expect_next(p);
        for (const clip::LinePoint& p : stretch.then) expect_next(p);
      } else {
        expect_next({v->x, v->y, v->z});
      }
      v = v->next2;
    } while (v != s.polygon().first);
    ASSERT_EQ(next, count) << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
