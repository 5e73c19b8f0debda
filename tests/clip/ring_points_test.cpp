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

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace Corvane::Print::tests {
namespace {

TEST(RingPoints, ARingEndsWithItsFirstPoint) {
  const double flat[] = {1, 2, 3, 4, 5, 6};
  const clip::RingPoints ring = clip::read_ring(flat, 3, 2).points;
  ASSERT_EQ(ring.size(), 4u);
  EXPECT_EQ(ring[2].x, 5);
  EXPECT_EQ(ring[2].z, 0);
  EXPECT_EQ(ring[3].y, 2);
  EXPECT_EQ(clip::read_ring(flat, 2, 3).points[1].z, 6);
  EXPECT_EQ(clip::read_ring(flat, 1, 3).points.size(), 2u);
}

TEST(RingPoints, BackwardsTheFirstPointStaysTheFirst) {
  const double flat[] = {1, 2, 3, 4, 5, 6};
  const clip::RingPoints ring = clip::read_ring_backwards(flat, 3, 2).points;
  ASSERT_EQ(ring.size(), 4u);
  EXPECT_EQ(ring[0].x, 1);
  EXPECT_EQ(ring[1].x, 5);
  EXPECT_EQ(ring[2].x, 3);
  EXPECT_EQ(ring[3].x, 1);
  EXPECT_EQ(clip::read_ring_backwards(flat, 1, 3).points.size(), 2u);
}

TEST(RingPoints, DepthIsTheLeastAndTheGreatestZ) {
  double flat[] = {1, 2, 3, 4, 5, -6, 0, 0, 2};
  EXPECT_EQ(clip::depth_of(flat, 3).low, -6);
  EXPECT_EQ(clip::depth_of(flat, 3).high, 3);
  EXPECT_TRUE(clip::has_depth(flat, 3));
  flat[5] = std::nan("");
  EXPECT_FALSE(clip::has_depth(flat, 3));
}

TEST(RingPoints, EveryStepIsThatOfTheRecords) {
  constexpr std::uint64_t kSeed = 0x4196;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  int dropped = 0;
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(kSeed, i));
    const int dim = random.between(2, 3);
    Ring input = edge_case_ring(random, dim);
    if (random.one_in(3)) jitter(random, input, 0.002);
    const std::vector<double> flat = flatten(input, dim);
    const int count = static_cast<int>(input.size());

    ASSERT_TRUE(clip::restart_overflow());
    FencePolygon records{};
    records.first = clip::build_ring(flat.data(), count, dim);
    ASSERT_EQ(clip::shoelace_sum(flat.data(), count, dim), clip::shoelace_sum(records.first)) << i;
    const bool backwards = random.one_in(2);
    const clip::RingPoints points = backwards ? clip::read_ring_backwards(flat.data(), count, dim).points
                                              : clip::read_ring(flat.data(), count, dim).points;
    if (backwards) clip::reverse_ring(records.first);
    clip::prepare_ring(records);
    dropped += count - records.vertexCount;
    ASSERT_EQ(static_cast<int>(points.size()), records.vertexCount + 1) << i;
    const FenceVertex* v = records.first;
    for (const clip::LinePoint& p : points) {
      ASSERT_TRUE(p.x == v->x && p.y == v->y && p.z == v->z) << i;
      v = v->next;
    }
  }
  EXPECT_GT(dropped, scaled(1000));
}

// Read in portions, with repeated points anywhere, also at the seams of the portions and of the ring.
TEST(RingPoints, ALongRingHasItsPointsAndTheBoxesOverTheirEdges) {
  std::printf("seeds: case_seed(0x4197, i)\n");
  int dropped = 0;
  for (int i = 0; i < scaled(500); ++i) {
    Random random(case_seed(0x4197, i));
    const int dim = random.between(2, 3), count = random.between(1, 2000), often = random.between(2, 40);
    std::vector<double> flat;
    for (int j = 0; j < count; ++j) {
      const bool repeats = j > 0 && random.one_in(often);
      const std::size_t before = flat.size() - static_cast<std::size_t>(repeats ? dim : 0);
      for (int k = 0; k < dim; ++k) {
        const double fresh = random.between(-50.0, 50.0);
        flat.push_back(repeats ? flat[before + static_cast<std::size_t>(k)] : fresh);
      }
    }
    if (count > 1 && random.one_in(2)) {
      std::copy_n(flat.begin(), dim, flat.end() - dim);
      *(flat.end() - dim) += random.between(-0.9, 0.9) * clip::kSamePlace;
    }

    const clip::IndexedRing ring = clip::read_ring(flat.data(), count, dim);
    clip::RingPoints expected;
    for (int j = 0; j < count; ++j) {
      const double* p = flat.data() + static_cast<std::ptrdiff_t>(j) * dim;
      const clip::LinePoint point = {p[0], p[1], dim == 3 ? p[2] : 0.0};
      if (expected.empty() || !clip::same_place(expected.back(), point)) expected.push_back(point);
    }
    if (expected.size() > 1 && clip::same_place(expected.back(), expected.front())) expected.pop_back();
    expected.push_back(expected.front());
    ASSERT_EQ(ring.points.size(), expected.size()) << i;
    ASSERT_EQ(std::memcmp(ring.points.data(), expected.data(), expected.size() * sizeof(clip::LinePoint)), 0)
        << i;
    dropped += count + 1 - static_cast<int>(expected.size());

    clip::EdgeIndex boxes;
    boxes.build(expected.data(), static_cast<int>(expected.size()) - 1);
    ASSERT_EQ(ring.edges.points(), ring.points.data());
    ASSERT_EQ(ring.edges.edges(), boxes.edges());
    ASSERT_EQ(ring.edges.levels(), boxes.levels());
    for (int level = 0; level < boxes.levels(); ++level) {
      for (int b = 0; b < boxes.blocks(level); ++b) {
        ASSERT_EQ(std::memcmp(&ring.edges.box(level, b), &boxes.box(level, b), sizeof(clip::Box)), 0) << i;
      }
    }
  }
  EXPECT_GT(dropped, scaled(10000));
}

TEST(RingPoints, ARingOfRecordsIsReadAsItStands) {
  const double flat[] = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  ASSERT_TRUE(clip::restart_overflow());
  const clip::RingPoints points = clip::points_of_ring(clip::build_ring(flat, 3, 3)).points;
  ASSERT_EQ(points.size(), 4u);
  EXPECT_EQ(std::memcmp(points.data(), flat, sizeof flat), 0);
  EXPECT_EQ(points[3].z, 3);
}

}  // namespace
}  // namespace Corvane::Print::tests
