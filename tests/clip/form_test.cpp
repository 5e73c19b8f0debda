// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The indexed and the plain form of the engine are the same to the last bit: status, counts, and every byte
// of the arrays, also of those that were too small.
#include "clip/form.h"

#include "corvane/print/cl.h"
#include "tests/clip/clip_state.h"
#include "tests/clip/random_input.h"
#include "tests/support/clip_call.h"
#include "tests/support/scale.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <vector>

namespace Corvane::Print::tests {
namespace {

#ifdef __SANITIZE_ADDRESS__
constexpr int kCases = 10000;  // of each kind; the sanitizers take ten times as long
#else
constexpr int kCases = 250000;
#endif

using Call = int(CORVANE_PRINT_CALL*)(CLFenceHandle, int, int, const double*, int*, int*, double*, int*);

struct Arrays {
  int status = 0, pieces = 0, points = 0;
  std::vector<int> counts;
  std::vector<double> out;

  bool operator==(const Arrays& other) const {
    return status == other.status && pieces == other.pieces && points == other.points &&
           counts == other.counts &&
           std::memcmp(out.data(), other.out.data(), out.size() * sizeof(double)) == 0;
  }
};

Arrays clip_in_form(clip::Form form, Call call, const Fence& fence, int dim, const std::vector<double>& input,
                    Room room) {
  const InForm in_form(form);
  Arrays result;
  result.pieces = room.pieces;
  result.points = room.points;
  result.counts.assign(static_cast<std::size_t>(room.pieces) + 1, 77);
  result.out.assign(static_cast<std::size_t>(room.points) * static_cast<std::size_t>(dim) + 1, 7.5);
  const int count = static_cast<int>(input.size()) / dim;
  result.status = call(fence.handle(), dim, count, input.data(), &result.pieces, result.counts.data(),
                       result.out.data(), &result.points);
  return result;
}

Fence edge_case_fence(Random& random, int dim) {
  Rings rings;
  const int polygons = random.one_in(3) ? random.between(2, 4) : 1;
  for (int i = 0; i < polygons; ++i) {
    rings.push_back(edge_case_ring(random, dim));
    for (Point& p : rings.back()) p.x += 40.0 * i;
  }
  const double low = dim == 3 ? random.between(-1, 2) : -1.0;
  const double high = low + random.between(0, 5);
  return Fence(rings, random.one_in(2) ? CL_KEEP_INSIDE : CL_KEEP_OUTSIDE, {dim, low, high});
}

std::vector<double> subject_of(Random& random, int dim) {
  Ring ring = edge_case_ring(random, dim);
  if (random.one_in(500)) spoil(random, ring);
  return flatten(ring, dim);
}

Ring in_single_points(const Ring& run) {
  Ring points;
  for (const Point& p : run) {
    if (!points.empty()) points.push_back(line_break());
    points.push_back(p);
  }
  return points;
}

std::vector<double> lines_of(Random& random, int dim) {
  Ring line;
  const int runs = random.between(1, 4);
  for (int i = 0; i < runs; ++i) {
    Ring run = edge_case_ring(random, dim);
    if (random.one_in(6)) run.resize(random.one_in(2) ? 1 : 2);
    if (random.one_in(500)) spoil(random, run);
    if (random.one_in(6)) run = in_single_points(run);
    line.insert(line.end(), run.begin(), run.end());
    if (i + 1 < runs || random.one_in(2)) line.push_back(line_break());
  }
  return flatten(line, dim);
}

Room some_room(Random& random) {
  Room room = {400, 4000};
  if (random.one_in(6)) room.pieces = random.between(1, 4);
  if (random.one_in(6)) room.points = random.between(1, 60);
  return room;
}

void compare_forms(std::uint64_t seed, int dim, Call call,
                   std::vector<double> (*input_of)(Random& random, int dim)) {
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(seed));
  Fence fence;
  for (int i = 0; i < scaled(kCases); ++i) {
    Random random(case_seed(seed, i));
    // A fence serves several clips, so that one may leave something behind for the next.
    if (i % 5 == 0) fence = edge_case_fence(random, dim);
    if (fence.status() != CL_OK) continue;
    const std::vector<double> input = input_of(random, dim);
    const Room room = some_room(random);
    const Arrays indexed = clip_in_form(clip::Form::kIndexed, call, fence, dim, input, room);
    const Arrays plain = clip_in_form(clip::Form::kPlain, call, fence, dim, input, room);
    ASSERT_TRUE(indexed == plain) << "case " << i << ": status " << indexed.status << " and " << plain.status
                                  << ", points " << indexed.points << " and " << plain.points;
  }
}

TEST(Form, FlatPolygonsAreClippedTheSame) {
  compare_forms(0xF0401, 2, CLclipPolygon, subject_of);
}

TEST(Form, PolygonsWithDepthAreClippedTheSame) {
  compare_forms(0xF0402, 3, CLclipPolygon, subject_of);
}

TEST(Form, FlatLinesAreClippedTheSame) {
  compare_forms(0xF0403, 2, CLclipLine, lines_of);
}

TEST(Form, LinesWithDepthAreClippedTheSame) {
  compare_forms(0xF0404, 3, CLclipLine, lines_of);
}

// Rings so large that their indexes have several levels, and edges mostly meet nothing.
TEST(Form, LargeRingsAreClippedTheSame) {
  constexpr std::uint64_t kSeed = 0xF0405;
  std::printf("seeds: case_seed(0x%llx, i)\n", static_cast<unsigned long long>(kSeed));
  for (int i = 0; i < scaled(200); ++i) {
    Random random(case_seed(kSeed, i));
    const int fence_points = random.between(3, 1500), subject_points = random.between(3, 1500);
    const double inner = random.one_in(2) ? 99.5 : 60.0;
    const Fence fence({star(random, fence_points, inner, 100)}, random.between(1, 2));
    Ring subject = star(random, subject_points, inner, 100);
    const double dx = random.between(-120.0, 120.0), dy = random.between(-120.0, 120.0);
    for (Point& p : subject) p.x += dx, p.y += dy;
    const std::vector<double> flat = flatten(subject, 2);
    for (const Call call : {CLclipPolygon, CLclipLine}) {
      const Room room = {4000, 40000};
      const Arrays indexed = clip_in_form(clip::Form::kIndexed, call, fence, 2, flat, room);
      const Arrays plain = clip_in_form(clip::Form::kPlain, call, fence, 2, flat, room);
      ASSERT_EQ(plain.status, CL_OK) << i;
      ASSERT_TRUE(indexed == plain) << i;
    }
  }
}

// A fence of two polygons, of which one may be left without an index.
Fence pair_of_stars(int mode) {
  Random random(0xF0406);
  return Fence({star(random, 300, 60, 100), moved(star(random, 200, 60, 100), 250, 0)}, mode);
}

void expect_clips_without_memory(int mode) {
  const FailurePlanEnds plan_ends;
  Random random(0xF0407);
  const Fence fence = pair_of_stars(mode);
  const std::vector<double> subject = flatten(moved(star(random, 300, 60, 120), 120, 0), 2);
  const Arrays expected = clip_in_form(clip::Form::kPlain, CLclipPolygon, fence, 2, subject, {400, 4000});
  int clipped_all_the_same = 0;
  for (long successes = 0;; ++successes) {
    const Fence same = pair_of_stars(mode);
    platform::capi_fail_once_after(successes);
    const Arrays result = clip_in_form(clip::Form::kIndexed, CLclipPolygon, same, 2, subject, {400, 4000});
    const bool failed = platform::capi_fail_after(-1) > successes;
    ASSERT_TRUE(result.status == CL_NO_MEMORY || result == expected) << successes;
    if (failed && result.status == CL_OK) ++clipped_all_the_same;
    if (!failed) break;
  }
  EXPECT_GE(clipped_all_the_same, 6);  // each polygon's index, its points and its boxes
}

TEST(Form, WithoutMemoryForItsIndexAFenceClipsAsEver) {
  expect_clips_without_memory(CL_KEEP_INSIDE);
  expect_clips_without_memory(CL_KEEP_OUTSIDE);
}

}  // namespace
}  // namespace Corvane::Print::tests
