// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What is done to a ring of points is what is done to a ring of records, bit by bit.
#include "clip/ring_points.h"

#include "clip/node_pool.h"
#include "clip/ring.h"
#include "tests/clip/random_input.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>

namespace Corvane::Print::tests {
namespace {

TEST(RingPoints, ARingEndsWithItsFirstPoint) {
  const double flat[] = {1, 2, 3, 4, 5, 6};
  const clip::RingPoints ring = clip::read_ring(flat, 3, 2);
  ASSERT_EQ(ring.size(), 4u);
  EXPECT_EQ(ring[2].x, 5);
  EXPECT_EQ(ring[2].z, 0);
  EXPECT_EQ(ring[3].y, 2);
  EXPECT_EQ(clip::read_ring(flat, 2, 3)[1].z, 6);
  EXPECT_EQ(clip::read_ring(flat, 1, 3).size(), 2u);
}

TEST(RingPoints, DepthIsTheLeastAndTheGreatestZ) {
  const double flat[] = {1, 2, 3, 4, 5, -6, 0, 0, 2};
  clip::RingPoints ring = clip::read_ring(flat, 3, 3);
  EXPECT_EQ(clip::depth_of(ring).low, -6);
  EXPECT_EQ(clip::depth_of(ring).high, 3);
  EXPECT_TRUE(clip::has_depth(ring));
  ring[1].z = std::nan("");
  EXPECT_FALSE(clip::has_depth(ring));
}

TEST(RingPoints, EveryStepIsThatOfTheRecords) {
  constexpr std::uint64_t kSeed = 0x4196;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  int dropped = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kSeed, i));
    Ring input = edge_case_ring(random, random.between(2, 3));
    if (random.one_in(3)) jitter(random, input, 0.002);
    const std::vector<double> flat = flatten(input, 3);
    const int count = static_cast<int>(input.size());

    ASSERT_TRUE(clip::restart_overflow());
    FencePolygon records{};
    records.first = clip::build_ring(flat.data(), count, 3);
    clip::RingPoints points = clip::read_ring(flat.data(), count, 3);
    ASSERT_EQ(clip::shoelace_sum(points), clip::shoelace_sum(records.first)) << i;
    if (random.one_in(2)) {
      clip::reverse_ring(records.first);
      clip::reverse_ring(points);
    }
    clip::prepare_ring(records);
    clip::drop_repeated_points(points);
    dropped += count - records.vertexCount;
    ASSERT_EQ(static_cast<int>(points.size()), records.vertexCount + 1) << i;
    const clip::RingPoints expected = clip::points_of_ring(records.first);
    ASSERT_EQ(std::memcmp(points.data(), expected.data(), points.size() * sizeof(clip::LinePoint)), 0) << i;
    const ClipExtent extent = clip::extent_of(points);
    ASSERT_EQ(extent.xmin, records.extent.xmin);
    ASSERT_EQ(extent.ymin, records.extent.ymin);
    ASSERT_EQ(extent.xmax, records.extent.xmax);
    ASSERT_EQ(extent.ymax, records.extent.ymax);
  }
  EXPECT_GT(dropped, scaled(1000));
}

}  // namespace
}  // namespace Corvane::Print::tests
