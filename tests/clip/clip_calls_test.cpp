// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exported calls that clip lines and polygons pass everything on as it is; what the clippers make of it
// is tested with them. A clipper of the test's own is put into a fence to see what arrives.
#include "clip/line_general.h"
#include "clip/line_rect.h"
#include "clip/polygon_clip.h"
#include "tests/clip/bits.h"
#include "tests/support/clip_call.h"
#include "tests/support/guarded.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <climits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

struct Arguments {
  FencePolygon* fence;
  int dim, num_points;
  const double* points;
  int* num_pieces;
  int* counts;
  double* out;
  int* num_out;
  friend bool operator==(const Arguments&, const Arguments&) = default;
};

// What the clipper below was called with, how often, and what it answers.
Arguments g_seen;
int g_calls;
int g_answer;

int CORVANE_PRINT_CALL recording_clipper(FencePolygon* fence, int dim, int num_points, const double* points,
                                         int* num_pieces, int* counts, double* out, int* num_out) {
  g_seen = {fence, dim, num_points, points, num_pieces, counts, out, num_out};
  ++g_calls;
  return g_answer;
}

class ClipCalls : public testing::Test {
protected:
  void SetUp() override {
    ASSERT_EQ(fence_.status(), CL_OK);
    fence_.handle()->lineClipper = recording_clipper;
    g_calls = 0;
    g_answer = CL_OK;
    given_ = {fence_.handle(), 2, 2, points_, &pieces_, counts_, out_, &used_};
  }
  static int line(const Arguments& a) {
    return CLclipLine(a.fence, a.dim, a.num_points, a.points, a.num_pieces, a.counts, a.out, a.num_out);
  }
  static int polygon(const Arguments& a) {
    return CLclipPolygon(a.fence, a.dim, a.num_points, a.points, a.num_pieces, a.counts, a.out, a.num_out);
  }

  Fence fence_{{rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE};
  const double points_[12] = {-5, 5, 5, 5, 15, 5, 5, 20};
  double out_[64];
  int counts_[8];
  int pieces_ = 8, used_ = 20;
  Arguments given_{};
};

TEST_F(ClipCalls, ALineGoesToTheClipperOfItsFenceWithAllArguments) {
  for (const int answer : std::vector<int>{CL_OK, CL_TOO_SMALL, CL_NO_MEMORY, 12345}) {
    for (const int dim : {2, 3}) {
      given_.dim = dim;
      g_answer = answer;
      EXPECT_EQ(line(given_), answer);
      EXPECT_EQ(g_seen, given_);
    }
  }
  EXPECT_EQ(g_calls, 8);
  EXPECT_EQ(pieces_, 8);
  EXPECT_EQ(used_, 20);
}

TEST_F(ClipCalls, ALineWithABadArgumentReachesNoClipper) {
  std::vector<Arguments> bad(8, given_);
  bad[0].fence = nullptr;
  bad[1].points = nullptr;
  bad[2].num_pieces = nullptr;
  bad[3].counts = nullptr;
  bad[4].out = nullptr;
  bad[5].num_out = nullptr;
  bad[6].dim = 4;
  bad[7].num_points = 0;
  for (const int dim : {1, 0, -2, INT_MAX}) {
    bad.push_back(given_);
    bad.back().dim = dim;
  }
  for (const int count : {-1, INT_MIN, INT_MAX, INT_MAX / 2 + 1}) {
    bad.push_back(given_);
    bad.back().num_points = count;
  }
  bad.push_back(Arguments{});
  for (std::size_t i = 0; i < bad.size(); ++i) EXPECT_EQ(line(bad[i]), CL_BAD_ARGUMENT) << "case " << i;
  EXPECT_EQ(g_calls, 0);
}

TEST_F(ClipCalls, ALineOfTheMostPointsReachesItsClipper) {
  given_.num_points = sizeof(void*) == 4 ? (1 << 28) - 1 : INT_MAX / 2;
  EXPECT_EQ(line(given_), CL_OK);
  EXPECT_EQ(g_calls, 1);
}

// What cannot be there is not read.
TEST_F(ClipCalls, PointsThatTheAddressSpaceCannotHoldAreRefused) {
  if (sizeof(void*) != 4) return;  // where it can hold as many as can be counted
  for (const int dim : {2, 3}) {
    given_.dim = dim;
    given_.num_points = dim == 2 ? 1 << 28 : (1 << 29) / 3 + 1;
    EXPECT_EQ(line(given_), CL_BAD_ARGUMENT);
    EXPECT_EQ(polygon(given_), CL_BAD_ARGUMENT);
  }
  EXPECT_EQ(g_calls, 0);
}

TEST_F(ClipCalls, APolygonDoesNotUseTheLineClipper) {
  given_.num_points = 4;
  EXPECT_EQ(polygon(given_), CL_OK);
  EXPECT_EQ(g_calls, 0);
  EXPECT_EQ(pieces_, 1);
}

TEST_F(ClipCalls, APolygonWithABadArgumentIsRefused) {
  std::vector<Arguments> bad(6, given_);
  bad[0].fence = nullptr;
  bad[1].num_pieces = nullptr;
  bad[2].num_out = nullptr;
  bad[3].dim = 4;
  bad[4].dim = 1;
  bad[5].num_points = 0;
  for (std::size_t i = 0; i < bad.size(); ++i) EXPECT_EQ(polygon(bad[i]), CL_BAD_ARGUMENT) << "case " << i;
  EXPECT_EQ(pieces_, 8);
  EXPECT_EQ(used_, 20);
}

TEST_F(ClipCalls, APolygonWithoutRoomIsToldAFirstSize) {
  given_.num_points = 4;
  pieces_ = used_ = 0;
  EXPECT_EQ(polygon(given_), CL_TOO_SMALL);
  EXPECT_EQ(pieces_, 4);
  EXPECT_EQ(used_, 8);
  given_.counts = nullptr;  // with capacities that are there, nothing is changed
  EXPECT_EQ(polygon(given_), CL_TOO_SMALL);
  EXPECT_EQ(pieces_, 4);
  EXPECT_EQ(used_, 8);
}

TEST_F(ClipCalls, AFirstSizeIsSuggestedForAsManyPointsAsCanBeDoubled) {
  pieces_ = used_ = 0;
  given_.num_points = INT_MAX / 2;
  EXPECT_EQ(polygon(given_), CL_TOO_SMALL);
  EXPECT_EQ(pieces_, INT_MAX / 2);
  EXPECT_EQ(used_, INT_MAX - 1);
  pieces_ = used_ = 0;
  for (const int count : {INT_MAX / 2 + 1, INT_MAX, -1, INT_MIN}) {
    given_.num_points = count;
    EXPECT_EQ(polygon(given_), CL_BAD_ARGUMENT) << count;
    EXPECT_TRUE(pieces_ == 0 && used_ == 0) << count;
  }
  given_.num_points = 0;
  EXPECT_EQ(polygon(given_), CL_TOO_SMALL);
  EXPECT_TRUE(pieces_ == 0 && used_ == 0);
}

TEST_F(ClipCalls, APolygonGetsWhatTheEngineAnswers) {
  for (int i = 0; i < scaled(200); ++i) {
    Random random(case_seed(65, i));
    const int dim = random.between(2, 3);
    const Ring subject = lifted(any_shape(random, 1000), 0, 0, 5);
    const Fence fence({any_shape(random, 900)}, random.between(1, 2), {dim, 0, 9});
    const std::vector<double> flat = flatten(subject, dim);
    const int count = static_cast<int>(subject.size());
    const int room = random.between(0, 60);
    Guarded<int> counts_a(room), counts_b(room);
    Guarded<double> points_a(room * dim), points_b(room * dim);
    int pieces_a = room, pieces_b = room, used_a = room, used_b = room;
    const int a = CLclipPolygon(fence.handle(), dim, count, flat.data(), &pieces_a, counts_a.data(),
                                points_a.data(), &used_a);
    const int b = clip::clip_polygon(fence.handle(), dim, count, flat.data(), &pieces_b, counts_b.data(),
                                     points_b.data(), &used_b);
    ASSERT_EQ(a, b) << "seed " << i;
    ASSERT_TRUE(pieces_a == pieces_b && used_a == used_b) << "seed " << i;
    ASSERT_TRUE(counts_a.intact() && points_a.intact()) << "seed " << i;
    for (std::size_t k = 0; k < counts_a.size(); ++k) ASSERT_EQ(counts_a[k], counts_b[k]) << "seed " << i;
    for (std::size_t k = 0; k < points_a.size(); ++k) {
      ASSERT_TRUE(same_bits(points_a[k], points_b[k])) << "seed " << i;
    }
  }
}

TEST(ClipCallsOfFences, TheLineClipperIsChosenWhenTheFenceIsDefined) {
  const Ring triangle = {{0, 0, 0}, {10, 0, 0}, {5, 10, 0}};
  EXPECT_EQ(Fence({rectangle(0, 0, 9, 9)}, CL_KEEP_INSIDE).handle()->lineClipper, clip::clip_line_rect);
  EXPECT_EQ(Fence({rectangle(0, 0, 9, 9)}, CL_KEEP_OUTSIDE).handle()->lineClipper, clip::clip_line_general);
  EXPECT_EQ(Fence({triangle}, CL_KEEP_INSIDE).handle()->lineClipper, clip::clip_line_general);
}

TEST(ClipCallsOfFences, Mode2KeepsTheInsideAndMode1TheOutside) {
  const Ring line = {{-5, 5, 0}, {15, 5, 0}};
  EXPECT_EQ(clip_line(Fence({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE), line).rings,
            (Rings{{{0, 5, 0}, {10, 5, 0}}}));
  EXPECT_EQ(clip_line(Fence({rectangle(0, 0, 10, 10)}, CL_KEEP_OUTSIDE), line).rings,
            (Rings{{{-5, 5, 0}, {0, 5, 0}}, {{10, 5, 0}, {15, 5, 0}}}));
}

}  // namespace
}  // namespace Corvane::Print::tests
