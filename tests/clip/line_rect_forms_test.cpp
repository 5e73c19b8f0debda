// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The two forms of the rectangle line clipper write the same bytes, also into arrays that are too small, and
// leave the same bytes alone.
#include "clip/line_rect.h"

#include "tests/clip/bits.h"
#include "tests/support/guarded.h"
#include "tests/support/random.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cfenv>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <functional>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

using Numbers = std::vector<double>;
using Clipper = decltype(&clip::clip_line_rect_plain);
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct Case {
  ClipExtent box;
  int dim;
  Numbers line;
  int piece_room, point_room;

  int points() const { return static_cast<int>(line.size()) / dim; }
};

ClipExtent random_box(Random& random) {
  ClipExtent box = {0, 0, 0, 10, 10, 10};
  switch (random.below(12)) {
    case 5:
      return {-0.0, random.one_in(2) ? -0.0 : -5.0, 0, 0.0, 0.0, 10};
    case 0:
      return {-7.25, 3.5, 0, 1e6, 3.5, 10};
    case 1:
      return {-1e300, -1e300, 0, 1e300, 1e300, 10};
    case 2:
      (random.one_in(2) ? box.xmin : box.ymin) = -kInfinity;
      return box;
    case 3:
      (random.one_in(2) ? box.xmax : box.ymax) = random.one_in(2) ? kInfinity : CL_BREAK;
      return box;
    case 4:
      (random.one_in(2) ? box.xmax : box.ymax) = random.one_in(2) ? kNan : -1.0;
      return box;
    default:
      return box;
  }
}

double special(Random& random) {
  constexpr double kSpecial[] = {kNan,  kInfinity, -kInfinity, CL_BREAK, -CL_BREAK,
                                 1e300, -1e300,    5e-324,     -0.0};
  return kSpecial[random.below(9)];
}

double beside(Random& random, double bound) {
  constexpr double kBand[] = {0, 0.0005, 0.001, 0.0010000001, 0.0015, 2};
  return bound + (random.one_in(2) ? 1 : -1) * kBand[random.below(6)];
}

// What a stretch of a line is made of: 0 points inside, 1 to 4 points beyond a side, 5 small integers, 6
// places about the bounds, 7 anything; `odd` is how often a number is none.
double coordinate(Random& random, int kind, bool is_x, int odd) {
  if (random.one_in(odd)) return special(random);
  switch (kind) {
    case 0:
      return random.between(0.0, 10.0);
    case 5:
      return random.between(-3, 13);
    case 6:
      return beside(random, random.one_in(2) ? 0 : 10);
    case 7:
      return random.between(-10.0, 20.0);
    default:
      break;
  }
  if ((kind <= 2) != is_x) return random.between(-10.0, 20.0);
  return kind % 2 == 1 ? random.between(-10.0, -0.001) : random.between(10.001, 20.0);
}

Numbers random_line(Random& random, int dim) {
  Numbers line;
  const int odd = random.one_in(4) ? 15 : 1000000, breaks = random.one_in(3) ? 6 : 100;
  for (int stretches = random.between(1, 4); stretches > 0; --stretches) {
    const int kind = random.below(8);
    const int most = random.one_in(1000) ? 3000 : 24;
    for (int n = random.between(1, most); n > 0; --n) {
      const bool repeats = !line.empty() && random.one_in(12);
      const std::size_t last = line.size() - static_cast<std::size_t>(dim);
      for (int axis = 0; axis < dim; ++axis) {
        line.push_back(repeats ? line[last + static_cast<std::size_t>(axis)]
                               : coordinate(random, kind, axis == 0, odd));
      }
      if (random.one_in(breaks)) line[line.size() - static_cast<std::size_t>(dim)] = CL_BREAK;
    }
  }
  return line;
}

Case random_case(Random& random) {
  Case c = {random_box(random), random.one_in(8) ? 3 : 2, {}, 0, 0};
  c.line = random_line(random, c.dim);
  const int twice = 2 * c.points();
  c.piece_room = random.one_in(3) ? random.between(-1, 12) : twice + 2;
  c.point_room = random.one_in(3) ? random.between(-1, twice) : twice + 2;
  return c;
}

// Everything that a call leaves behind.
struct Outcome {
  int status, pieces, points;
  Guarded<int> counts;
  Guarded<double> out;
};

Outcome run(Clipper clipper, const Case& c) {
  FencePolygon fence = {};
  fence.extent = c.box;
  Outcome o = {0, c.piece_room, c.point_room, Guarded<int>(c.piece_room),
               Guarded<double>(c.point_room * c.dim)};
  o.status =
      clipper(&fence, c.dim, c.points(), c.line.data(), &o.pieces, o.counts.data(), o.out.data(), &o.points);
  return o;
}

template <class T, class Same>
bool all_same(const Guarded<T>& a, const Guarded<T>& b, Same same) {
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (!same(a[i], b[i])) return false;
  }
  return true;
}

void expect_same(const Outcome& plain, const Outcome& fast) {
  EXPECT_EQ(fast.status, plain.status);
  EXPECT_EQ(fast.pieces, plain.pieces);
  EXPECT_EQ(fast.points, plain.points);
  EXPECT_TRUE(all_same(plain.counts, fast.counts, std::equal_to<>()));
  EXPECT_TRUE(all_same(plain.out, fast.out, same_bits));
  EXPECT_TRUE(fast.counts.intact());
  EXPECT_TRUE(fast.out.intact());
}

TEST(LineRectForms, WriteTheSameBytes) {
  constexpr std::uint64_t kFamily = 322;
  std::printf("seeds: case_seed(%d, i)\n", static_cast<int>(kFamily));
  int shortages = 0, several = 0;
  for (int i = 0; i < scaled(1000000); ++i) {
    Random random(case_seed(kFamily, i));
    const Case c = random_case(random);
    const Outcome plain = run(clip::clip_line_rect_plain, c), fast = run(clip::clip_line_rect_fast, c);
    expect_same(plain, fast);
    ASSERT_FALSE(HasFailure()) << "case " << i;
    shortages += plain.status == CL_TOO_SMALL;
    several += plain.status == CL_OK && plain.pieces > 2;
  }
  EXPECT_GT(shortages, scaled(1000000) / 10);
  EXPECT_GT(several, scaled(1000000) / 10);
}

// Every shortage of a line that runs, leaves and returns, point by point and piece by piece.
TEST(LineRectForms, RunOutOfRoomAtTheSamePlace) {
  Case c = {{0, 0, 0, 10, 10, 10}, 2, {}, 0, 0};
  Random random(323);
  for (const int kind : {0, 7, 1, 7, 0, 5, 3, 6}) {
    for (int n = 0; n < 41; ++n) {
      c.line.push_back(coordinate(random, kind, true, 1000000));
      c.line.push_back(coordinate(random, kind, false, 1000000));
    }
  }
  for (int room = 0; room < 500; ++room) {
    c.piece_room = 500, c.point_room = room;
    expect_same(run(clip::clip_line_rect_plain, c), run(clip::clip_line_rect_fast, c));
    c.piece_room = room, c.point_room = 1000;
    expect_same(run(clip::clip_line_rect_plain, c), run(clip::clip_line_rect_fast, c));
    ASSERT_FALSE(HasFailure()) << "room " << room;
  }
}

// Hosts run with floating-point exceptions switched on. Lanes that nobody asks for must not divide by zero.
TEST(LineRectForms, RaiseNoFloatingPointExceptionsForFiniteNumbers) {
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(325, i));
    Case c = {{0, 0, 0, 10, 10, 10}, 2, {}, 1000, 1000};
    const int kind = random.between(5, 7);
    for (int n = 0; n < 80; ++n)
      c.line.push_back(coordinate(random, kind, n % 2 == 0, std::numeric_limits<int>::max()));
    std::feclearexcept(FE_ALL_EXCEPT);
    run(clip::clip_line_rect_fast, c);
    ASSERT_EQ(std::fetestexcept(FE_DIVBYZERO | FE_INVALID | FE_OVERFLOW), 0) << "case " << i;
  }
}

// Nobody is promised a result for them, but a host that has one keeps it.
TEST(LineRectForms, TreatOverlappingArraysAlike) {
  for (int i = 0; i < scaled(20000); ++i) {
    Random random(case_seed(324, i));
    const Numbers line = random_line(random, 2);
    const int points = static_cast<int>(line.size()) / 2;
    Numbers plain(4 * line.size() + 8);
    const int from = random.below(static_cast<int>(line.size())),
              to = random.below(static_cast<int>(line.size()));
    std::copy(line.begin(), line.end(), plain.begin() + from);
    Numbers fast = plain;
    FencePolygon fence = {};
    fence.extent = {0, 0, 0, 10, 10, 10};
    const auto call = [&](Clipper clipper, Numbers& both) {
      std::vector<int> counts(2 * line.size() + 2);
      int pieces = 2 * points, out = points + points / 2;
      clipper(&fence, 2, points, both.data() + from, &pieces, counts.data(), both.data() + to, &out);
    };
    call(clip::clip_line_rect_plain, plain);
    call(clip::clip_line_rect_fast, fast);
    ASSERT_TRUE(std::equal(plain.begin(), plain.end(), fast.begin(), same_bits)) << "case " << i;
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
