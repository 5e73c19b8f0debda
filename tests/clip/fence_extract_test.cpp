// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Copying the polygons of a fence into every possible room.
#include "tests/support/clip_call.h"
#include "tests/support/guarded.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

constexpr int kPolygons = 3;
constexpr int kCounts[kPolygons] = {4, 5, 7};  // closed
constexpr int kPoints = 16;

// A triangle, a quadrangle and a hexagon, clockwise, as a mode-2 fence keeps them.
const Rings kRings = {{{0, 0, 1}, {0, 9, 2}, {9, 9, 3}},
                      {{20, 0, 4}, {20, 9, 5}, {29, 8, 6}, {29, 0, 7}},
                      {{40, 0, 8}, {40, 9, 9}, {45, 12, 10}, {49, 9, 11}, {49, 0, 12}, {45, -2, 13}}};

Fence three_polygons(int dim) {
  return Fence(kRings, CL_KEEP_INSIDE, {dim, 0, 20});
}

// All points as they must come, each ring closed by its first point.
std::vector<double> closed_points(int dim) {
  std::vector<double> all;
  for (Ring ring : kRings) {
    ring.push_back(ring[0]);
    const std::vector<double> flat = flatten(ring, dim);
    all.insert(all.end(), flat.begin(), flat.end());
  }
  return all;
}

// The points of polygon k that lie within the first `room` points.
int points_within(int k, int room) {
  int before = 0;
  for (int i = 0; i < k; ++i) before += kCounts[i];
  return std::clamp(room - before, 0, kCounts[k]);
}

void extract_into(const Fence& fence, int dim, int polygon_room, int point_room) {
  SCOPED_TRACE(testing::Message() << dim << "-D, " << polygon_room << " polygons, " << point_room
                                  << " points");
  Guarded<int> counts(polygon_room);
  Guarded<double> points(point_room * dim);
  int polygons = polygon_room, used = point_room;
  const int status = CLextractPolygons(fence.handle(), &polygons, counts.data(), points.data(), &used);
  const bool enough = polygon_room >= kPolygons && point_room >= kPoints;
  EXPECT_EQ(status, enough ? CL_OK : CL_TOO_SMALL);
  EXPECT_EQ(polygons, polygon_room >= kPolygons ? kPolygons : kPolygons + 1);
  EXPECT_EQ(used, point_room >= kPoints ? kPoints : kPoints + 1);
  const int written_polygons = std::clamp(polygon_room, 0, kPolygons);
  const int written_points = std::clamp(point_room, 0, kPoints);
  for (int k = 0; k < written_polygons; ++k) {
    EXPECT_EQ(counts[static_cast<std::size_t>(k)], points_within(k, written_points));
  }
  const std::vector<double> all = closed_points(dim);
  for (std::size_t i = 0; i < static_cast<std::size_t>(written_points * dim); ++i) {
    EXPECT_EQ(points[i], all[i]);
  }
  EXPECT_TRUE(counts.untouched_from(static_cast<std::size_t>(written_polygons)));
  EXPECT_TRUE(points.untouched_from(static_cast<std::size_t>(written_points * dim)));
}

TEST(Fence, ExtractionFillsWhatRoomThereIsAndNothingBeyond) {
  for (const int dim : {2, 3}) {
    const Fence fence = three_polygons(dim);
    for (int polygon_room = -1; polygon_room <= kPolygons + 2; ++polygon_room) {
      for (int point_room = -1; point_room <= kPoints + 2; ++point_room) {
        extract_into(fence, dim, polygon_room, point_room);
      }
    }
    extract_into(fence, dim, kPolygons, kPoints);  // all of it, whatever went before
  }
}

TEST(Fence, ExtractionReportsTheNeedPlusOne) {
  const Fence fence = three_polygons(2);
  Guarded<int> counts(kPolygons);
  Guarded<double> points(2 * kPoints);
  int polygons = kPolygons, used = kPoints - 1;
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, counts.data(), points.data(), &used), CL_TOO_SMALL);
  EXPECT_EQ(polygons, kPolygons);
  EXPECT_EQ(used, kPoints + 1);
  polygons = kPolygons - 1, used = kPoints;
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, counts.data(), points.data(), &used), CL_TOO_SMALL);
  EXPECT_EQ(polygons, kPolygons + 1);
  EXPECT_EQ(used, kPoints);
  polygons = kPolygons, used = kPoints;
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, counts.data(), points.data(), &used), CL_OK);
}

TEST(Fence, ExtractionWithWhatItAskedForSucceeds) {
  const Pieces pieces = extract_polygons(three_polygons(2), 2, Room{0, 0});
  EXPECT_EQ(pieces.status, CL_OK);
  EXPECT_EQ(pieces.calls, 2);
  EXPECT_EQ(pieces.rings.size(), 3u);
}

TEST(Fence, ExtractionAcceptsAnyNumberAsRoomThatIsNotThere) {
  const Fence fence = three_polygons(2);
  int polygons = INT_MIN, used = INT_MIN;
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, nullptr, nullptr, &used), CL_TOO_SMALL);
  EXPECT_EQ(polygons, kPolygons + 1);
  EXPECT_EQ(used, kPoints + 1);
}

TEST(Fence, ExtractionRefusesNullHandlesAndNullCounts) {
  const Fence fence = three_polygons(2);
  int counts[kPolygons];
  double points[2 * kPoints];
  int polygons = kPolygons, used = kPoints;
  EXPECT_EQ(CLextractPolygons(nullptr, &polygons, counts, points, &used), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLextractPolygons(fence.handle(), nullptr, counts, points, &used), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, counts, points, nullptr), CL_BAD_ARGUMENT);
  EXPECT_EQ(polygons, kPolygons);
  EXPECT_EQ(used, kPoints);
}

TEST(Fence, ExtractionRefusesANullArrayThatIsSaidToHaveRoom) {
  const Fence fence = three_polygons(2);
  int counts[kPolygons];
  double points[2 * kPoints];
  int polygons = kPolygons, used = kPoints;
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, nullptr, points, &used), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLextractPolygons(fence.handle(), &polygons, counts, nullptr, &used), CL_BAD_ARGUMENT);
  EXPECT_EQ(polygons, kPolygons);
  EXPECT_EQ(used, kPoints);
}

TEST(Fence, ExtractionGivesTheRingAsItIsKept) {
  const Ring doubled = {{0, 0, 0}, {10, 0, 0}, {10, 0.0005, 0}, {10, 10, 0}, {5, 12, 0}, {0, 0, 0}};
  const Ring kept = {{0, 0, 0}, {10, 0, 0}, {10, 10, 0}, {5, 12, 0}, {0, 0, 0}};
  EXPECT_EQ(extract_polygons(Fence({doubled}, CL_KEEP_OUTSIDE)).rings, Rings{kept});
  // Turned round, the point that was given later comes first and stays.
  const Ring turned = {{0, 0, 0}, {5, 12, 0}, {10, 10, 0}, {10, 0.0005, 0}, {0, 0, 0}};
  EXPECT_EQ(extract_polygons(Fence({doubled}, CL_KEEP_INSIDE)).rings, Rings{turned});
  EXPECT_EQ(extract_polygons(Fence({{{3, 4, 0}}}, CL_KEEP_INSIDE)).rings, (Rings{{{3, 4, 0}, {3, 4, 0}}}));
}

TEST(Fence, ExtractionGivesTheOriginalRingAfterClips) {
  const Fence fence = three_polygons(2);
  const Rings before = extract_polygons(fence).rings;
  const Pieces cut = clip_polygon(fence, rectangle(-5, 3, 60, 5));
  EXPECT_EQ(cut.rings.size(), 3u);
  EXPECT_EQ(clip_line(fence, {{-5, 3, 0}, {60, 3, 0}}).rings.size(), 3u);
  EXPECT_EQ(extract_polygons(fence).rings, before);
}

}  // namespace
}  // namespace Corvane::Print::tests
