// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The output room: what is written, what is only counted, and both rules of telling the caller.
#include "clip/output_room.h"

#include "corvane/print/cl.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using clip::OutputRoom;
constexpr double kMost = std::numeric_limits<double>::max();

// Emits pieces of the given sizes; the points are (0, 100, 200), (1, 101, 201), ...
void emit(OutputRoom& room, const std::vector<int>& sizes) {
  int index = 0;
  for (const int size : sizes) {
    room.begin_piece();
    for (int i = 0; i < size; ++i, ++index) room.point(index, index + 100, index + 200);
    room.end_piece();
  }
}

struct Outcome {
  int status, pieces, points;
  friend bool operator==(const Outcome&, const Outcome&) = default;
};

std::ostream& operator<<(std::ostream& s, const Outcome& o) {
  return s << "{" << o.status << ", " << o.pieces << ", " << o.points << "}";
}

Outcome finished(const OutputRoom& room, bool lines, int pieces, int points) {
  Outcome o = {0, pieces, points};
  o.status = lines ? room.finish_lines(&o.pieces, &o.points) : room.finish_polygons(&o.pieces, &o.points);
  return o;
}

Outcome run(bool lines, int piece_capacity, int point_capacity, const std::vector<int>& sizes, int dim = 2) {
  Guarded<int> counts(piece_capacity);
  Guarded<double> points(point_capacity > 0 ? point_capacity * dim : 0);
  OutputRoom room(dim, piece_capacity, counts.data(), points.data(), point_capacity);
  emit(room, sizes);
  const Outcome o = finished(room, lines, piece_capacity, point_capacity);
  EXPECT_EQ(room.full(), o.status == CL_TOO_SMALL);
  EXPECT_TRUE(counts.intact());
  EXPECT_TRUE(points.intact());
  return o;
}

TEST(OutputRoom, OnePointOfRoomIsHeldBackForTheThirdDouble) {
  EXPECT_EQ(run(false, 1, 4, {3}), (Outcome{CL_OK, 1, 3}));
  EXPECT_EQ(run(false, 1, 3, {3}), (Outcome{CL_TOO_SMALL, 1, 4}));
  EXPECT_EQ(run(true, 1, 3, {3}), (Outcome{CL_TOO_SMALL, 2, 4}));
}

TEST(OutputRoom, TheThirdDoubleIsOverwrittenIn2DAndStaysIn3D) {
  double flat[8] = {-1, -1, -1, -1, -1, -1, -1, -1};
  int count = 7;
  OutputRoom room2(2, 1, &count, flat, 4);
  EXPECT_EQ(count, 0);
  emit(room2, {2});
  EXPECT_EQ(count, 2);
  EXPECT_EQ(std::vector<double>(flat, flat + 6), (std::vector<double>{0, 100, 1, 101, 201, -1}));
  OutputRoom room3(3, 1, &count, flat, 3);
  emit(room3, {2});
  EXPECT_EQ(std::vector<double>(flat, flat + 7), (std::vector<double>{0, 100, 200, 1, 101, 201, -1}));
}

TEST(OutputRoom, PolygonsRaiseOnlyTheKindThatRanOut) {
  EXPECT_EQ(run(false, 2, 100, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 3, 12}));
  EXPECT_EQ(run(false, 3, 12, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 3, 13}));
  EXPECT_EQ(run(false, 1, 5, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 3, 13}));
  EXPECT_EQ(run(false, 3, 13, {3, 4, 5}), (Outcome{CL_OK, 3, 12}));
}

TEST(OutputRoom, LinesRaiseThePiecesByOneMore) {
  EXPECT_EQ(run(true, 2, 100, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 4, 100}));
  EXPECT_EQ(run(true, 3, 12, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 4, 13}));
  EXPECT_EQ(run(true, 1, 5, {3, 4, 5}), (Outcome{CL_TOO_SMALL, 4, 13}));
  EXPECT_EQ(run(true, 3, 13, {3, 4, 5}), (Outcome{CL_OK, 3, 12}));
}

TEST(OutputRoom, WithoutNeedNothingIsShort) {
  for (const int capacity : {INT_MIN, -1, 0, 1}) {
    EXPECT_EQ(run(false, capacity, capacity, {}), (Outcome{CL_OK, 0, 0})) << capacity;
    EXPECT_EQ(run(true, capacity, capacity, {}), (Outcome{CL_OK, 0, 0})) << capacity;
  }
}

TEST(OutputRoom, CapacitiesBelowOneAreFilledUpToTheNeed) {
  for (const int capacity : {INT_MIN, INT_MIN + 1, -7, 0}) {
    EXPECT_EQ(run(false, capacity, capacity, {3, 2}), (Outcome{CL_TOO_SMALL, 2, 6})) << capacity;
    EXPECT_EQ(run(true, capacity, capacity, {3, 2}), (Outcome{CL_TOO_SMALL, 3, 6})) << capacity;
  }
  EXPECT_EQ(run(false, 2, 1, {3, 2}), (Outcome{CL_TOO_SMALL, 2, 6}));
}

TEST(OutputRoom, NullArraysAreFineWithoutCapacity) {
  OutputRoom room(2, 0, nullptr, nullptr, 0);
  emit(room, {1});
  EXPECT_EQ(finished(room, false, 0, 0), (Outcome{CL_TOO_SMALL, 1, 2}));
}

TEST(OutputRoom, RaisedCountsStopAtTheLargestInt) {
  OutputRoom room(2, 0, nullptr, nullptr, 0);
  emit(room, {1, 1});
  EXPECT_EQ(finished(room, false, INT_MAX - 1, INT_MAX), (Outcome{CL_TOO_SMALL, INT_MAX, INT_MAX}));
  EXPECT_EQ(finished(room, true, INT_MAX - 2, INT_MAX - 3), (Outcome{CL_TOO_SMALL, INT_MAX, INT_MAX}));
}

TEST(OutputRoom, ExtentGrowsWithEveryPointAlsoWithoutRoom) {
  OutputRoom room(2, 0, nullptr, nullptr, 0);
  EXPECT_TRUE(room.empty());
  EXPECT_EQ(room.xmin(), kMost);
  EXPECT_EQ(room.ymin(), kMost);
  EXPECT_EQ(room.xmax(), -kMost);
  EXPECT_EQ(room.ymax(), -kMost);
  room.begin_piece();
  room.point(3, -4, 9);
  room.point(-5, 6, 9);
  room.point(std::numeric_limits<double>::quiet_NaN(), 7, 0);
  room.end_piece();
  EXPECT_FALSE(room.empty());
  EXPECT_EQ(room.xmin(), -5);
  EXPECT_EQ(room.xmax(), 3);
  EXPECT_EQ(room.ymin(), -4);
  EXPECT_EQ(room.ymax(), 7);
}

TEST(OutputRoom, FullTellsAsSoonAsSomethingDidNotFit) {
  int counts[2];
  double points[8];
  OutputRoom room(2, 2, counts, points, 4);
  emit(room, {3});
  EXPECT_FALSE(room.full());
  room.begin_piece();
  room.point(0, 0, 0);
  EXPECT_TRUE(room.full());
}

TEST(OutputRoom, AnyCapacitiesGiveTheNeedAndWhatFits) {
  constexpr std::uint64_t kFamily = 343;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(kFamily, i));
    std::vector<int> sizes(static_cast<std::size_t>(random.below(6)));
    int need = 0;
    for (int& size : sizes) need += size = random.below(5);
    const int pieces = static_cast<int>(sizes.size());
    const int dim = random.between(2, 3), piece_room = random.between(-2, 7),
              point_room = random.between(-2, 24);
    Guarded<int> counts(piece_room);
    Guarded<double> points(point_room > 0 ? point_room * dim : 0);
    OutputRoom room(dim, piece_room, counts.data(), points.data(), point_room);
    emit(room, sizes);
    ASSERT_TRUE(counts.intact() && points.intact()) << "case " << i;
    const bool pieces_fit = pieces <= piece_room || pieces == 0, points_fit = need < point_room || need == 0;
    const int status = pieces_fit && points_fit ? CL_OK : CL_TOO_SMALL;
    ASSERT_EQ(finished(room, false, piece_room, point_room),
              (Outcome{status, pieces, points_fit ? need : need + 1}));
    const Outcome raised = {CL_TOO_SMALL, (pieces_fit ? piece_room : pieces) + 1,
                            points_fit ? point_room : need + 1};
    ASSERT_EQ(finished(room, true, piece_room, point_room),
              status == CL_OK ? (Outcome{CL_OK, pieces, need}) : raised);
    int written = 0;
    for (int k = 0, index = 0; k < pieces && k < piece_room; ++k) {
      ASSERT_EQ(counts[static_cast<std::size_t>(k)], sizes[static_cast<std::size_t>(k)]);
      for (int j = 0; j < sizes[static_cast<std::size_t>(k)] && index < point_room - 1; ++j, ++index) {
        written = index + 1;
        ASSERT_EQ(points[static_cast<std::size_t>(index * dim)], index);
        ASSERT_EQ(points[static_cast<std::size_t>(index * dim + 1)], index + 100);
        if (dim == 3) {
          ASSERT_EQ(points[static_cast<std::size_t>(index * dim + 2)], index + 200);
        }
      }
    }
    const int end = written > 0 ? (written - 1) * dim + 3 : 0;
    ASSERT_TRUE(points.untouched_from(static_cast<std::size_t>(end))) << "case " << i;
  }
}

TEST(OutputRoom, PointPiecesAreWrittenAsOneByOne) {
  constexpr std::uint64_t kFamily = 344;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(kFamily, i));
    const int dim = random.between(2, 3), piece_room = random.between(-2, 12),
              point_room = random.between(-2, 12);
    Guarded<int> counts(piece_room), expected_counts(piece_room);
    Guarded<double> points(point_room > 0 ? point_room * dim : 0),
        expected_points(point_room > 0 ? point_room * dim : 0);
    OutputRoom room(dim, piece_room, counts.data(), points.data(), point_room);
    OutputRoom expected(dim, piece_room, expected_counts.data(), expected_points.data(), point_room);
    for (int rows = random.below(5); rows > 0; --rows) {
      std::vector<clip::LinePoint> row(static_cast<std::size_t>(random.below(5)));
      for (clip::LinePoint& p : row) {
        p.x = random.between(-9, 9), p.y = random.between(-9, 9), p.z = random.between(-9, 9);
      }
      if (random.one_in(2)) {
        room.point_pieces(row);
        for (const clip::LinePoint& p : row) {
          expected.begin_piece();
          expected.point(p.x, p.y, p.z);
          expected.end_piece();
        }
      } else {
        for (OutputRoom* r : {&room, &expected}) {
          r->begin_piece();
          r->points(row);
          r->end_piece();
        }
      }
    }
    ASSERT_EQ(finished(room, true, piece_room, point_room), finished(expected, true, piece_room, point_room));
    for (int k = 0; k < piece_room; ++k) {
      ASSERT_EQ(counts[static_cast<std::size_t>(k)], expected_counts[static_cast<std::size_t>(k)])
          << "case " << i;
    }
    for (int k = 0; k < point_room * dim; ++k) {
      ASSERT_EQ(points[static_cast<std::size_t>(k)], expected_points[static_cast<std::size_t>(k)])
          << "case " << i;
    }
    ASSERT_TRUE(counts.intact() && points.intact()) << "case " << i;
    ASSERT_EQ(room.xmin(), expected.xmin());
    ASSERT_EQ(room.ymin(), expected.ymin());
    ASSERT_EQ(room.xmax(), expected.xmax());
    ASSERT_EQ(room.ymax(), expected.ymax());
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
