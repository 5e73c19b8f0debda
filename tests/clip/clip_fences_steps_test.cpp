// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The intersection of two fences against its own recipe: copy the subject's polygons out, clip one after the
// other, define a fence of what is left. And what happens when memory runs out on the way.
#include "clip/clip_memory.h"
#include "clip/polygon_index.h"
#include "clip/records.h"
#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/clip_call.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <vector>

namespace Corvane::Print::tests {
namespace {

constexpr FenceShape kSolid{3, -1e6, 1e6};

// A subject's polygons as the intersection reads them: the next one starts 2 doubles per point further on.
Rings read_with_stride_two(const Fence& subject, int dim) {
  std::vector<double> flat;
  const Rings polygons = extract_polygons(subject, dim).rings;
  for (const Ring& ring : polygons) {
    const std::vector<double> more = flatten(ring, dim);
    flat.insert(flat.end(), more.begin(), more.end());
  }
  Rings read;
  std::size_t at = 0;
  for (const Ring& ring : polygons) {
    Ring r;
    for (std::size_t i = 0; i < ring.size(); ++i) {
      const double* p = &flat[at + i * static_cast<std::size_t>(dim)];
      r.push_back({p[0], p[1], dim == 3 ? p[2] : 0.0});
    }
    at += 2 * ring.size();
    read.push_back(r);
  }
  return read;
}

struct Expected {
  int status = CL_OK;
  Rings pieces;
};

Expected by_hand(const Fence& clip, const Fence& subject, int dim) {
  Expected expected;
  for (const Ring& polygon : read_with_stride_two(subject, dim)) {
    const Pieces pieces = clip_polygon(clip, polygon, dim, Room{60, 300});
    expected.status = pieces.status;
    if (pieces.status != CL_OK) return expected;
    expected.pieces.insert(expected.pieces.end(), pieces.rings.begin(), pieces.rings.end());
  }
  if (expected.pieces.empty()) expected.status = CL_EMPTY;
  return expected;
}

bool same(const Rings& a, const Rings& b) {
  const auto same_point = [](const Point& p, const Point& q) {
    return same_bits(p.x, q.x) && same_bits(p.y, q.y) && same_bits(p.z, q.z);
  };
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [&](const Ring& r, const Ring& s) {
    return std::equal(r.begin(), r.end(), s.begin(), s.end(), same_point);
  });
}

// Empty when the intersection is what the recipe gives.
std::string fault(const Fence& clip, const Fence& subject, int dim) {
  const Expected expected = by_hand(clip, subject, dim);
  const FenceResult result = clip_fences(clip, subject);
  if (result.status != expected.status) {
    return "status " + std::to_string(result.status) + " instead of " + std::to_string(expected.status);
  }
  if (result.status != CL_OK) return result.fence.handle() == nullptr ? "" : "a handle";
  const FencePolygon& s = *subject.handle();
  const Fence defined(expected.pieces, s.mode, {dim, s.extent.zmin, s.extent.zmax});
  const Rings found = extract_polygons(result.fence, dim).rings;
  if (!same(found, extract_polygons(defined, dim).rings)) return "other polygons: " + text_of(found);
  int found_words[14], words[14];
  CLinqFenceInfo(result.fence.handle(), found_words);
  CLinqFenceInfo(defined.handle(), words);
  return std::memcmp(words, found_words, sizeof words) == 0 ? "" : "other information";
}

TEST(ClipFences, IsWhatClippingThePolygonsOneByOneGives) {
  for (int i = 0; i < scaled(1500); ++i) {
    Random random(case_seed(66, i));
    const int clip_mode = random.between(1, 2), subject_mode = random.between(1, 2);
    const Fence clip(disjoint_shapes(random, 4, 1000), clip_mode);
    const Fence subject(disjoint_shapes(random, 8, 1100), subject_mode);
    ASSERT_EQ(fault(clip, subject, 2), "") << "seed " << i;
  }
}

TEST(ClipFences, StrideStaysTwoIn3D) {
  // The second polygon starts with the z of the first one's third point, and so has its x where z was.
  const Ring triangle = {{0, 0, 0}, {20, 0, 0}, {0, 20, 0}};
  const Fence subject({triangle, moved(triangle, 30, 0)}, CL_KEEP_OUTSIDE, kSolid);
  const Rings read = read_with_stride_two(subject, 3);
  ASSERT_EQ(read[1], (Ring{{0, 0, 0}, {0, 30, 0}, {0, 50, 0}, {0, 30, 20}}));
  const Fence clip({{{-100, -100, 0}, {200, -100, 0}, {200, 200, 0}, {-100, 201, 0}}}, CL_KEEP_INSIDE,
                   kSolid);
  EXPECT_EQ(fault(clip, subject, 3), "");
  // As it was read it has no area: one polygon is left of two.
  const FenceResult result = clip_fences(clip, subject);
  ASSERT_EQ(result.status, CL_OK);
  EXPECT_EQ(result.fence.handle()->nextPoly, nullptr);
  EXPECT_EQ(result.fence.handle()->area, 200);
}

TEST(ClipFences, SolidSubjectsOfSeveralPolygonsFollowTheStrideToo) {
  for (int i = 0; i < scaled(1500); ++i) {
    Random random(case_seed(67, i));
    const int clip_mode = random.between(1, 2), subject_mode = random.between(1, 2);
    Rings polygons = disjoint_shapes(random, 5, 1000);
    for (Ring& ring : polygons) ring = lifted(ring, 0.25, -0.5, random.between(-100, 100));
    const Fence clip(disjoint_shapes(random, 4, 1000), clip_mode, kSolid);
    const Fence subject(polygons, subject_mode, kSolid);
    ASSERT_EQ(fault(clip, subject, 3), "") << "seed " << i;
  }
}

TEST(ClipFences, TheSharedMemoriesGrowUntilEverythingFits) {
  for (const int dim : {2, 3}) {
    release_clip_memory();
    Rings polygons;
    for (int i = 0; i < 40; ++i) {
      Ring teeth;  // each tooth reaches into the clipping fence
      for (int k = 0; k < 30; ++k) teeth.push_back({100.0 * i + 3 * k, k % 2 == 0 ? 0.0 : 50.0, 0});
      teeth.push_back({100.0 * i + 87, -10, 0});
      teeth.push_back({100.0 * i, -10, 0});
      polygons.push_back(teeth);
    }
    // In 3-D only the first polygon would be read as it is, so there is one of them.
    if (dim == 3) polygons.resize(1);
    const FenceShape shape{dim, -1, 1};
    const Fence clip({{{-50, 30, 0}, {5000, 30, 0}, {5000, 60, 0}, {-50, 61, 0}}}, CL_KEEP_INSIDE, shape);
    const Fence subject(polygons, CL_KEEP_INSIDE, shape);
    const FenceResult result = clip_fences(clip, subject);
    ASSERT_EQ(result.status, CL_OK);
    const Rings found = extract_polygons(result.fence, dim, Room{1000, 5000}).rings;
    EXPECT_EQ(found.size(), polygons.size() * 15);
    EXPECT_EQ(fault(clip, subject, dim), "");
    if (dim == 2) {
      EXPECT_EQ(clip::clipMem2.polyRequest, 600);
      EXPECT_EQ(clip::clipMem2.pointRequest, 1800);
      EXPECT_GE(clip::clipMem2.polyCapacity, 600);
      EXPECT_GT(clip::clipMem2.pointCapacity, 1800);
      EXPECT_GE(clip::clipMem1.pointCapacity, 40 * 33);
    }
  }
}

TEST(ClipFences, RoomIsAskedForAsManyPointsAndAThirdAsManyPolygonsFirst) {
  release_clip_memory();
  Random random(7);
  const Fence subject({star(random, 9, 50, 90)}, CL_KEEP_INSIDE);
  ASSERT_EQ(clip_fences(Fence({star(random, 8, 60, 80)}, CL_KEEP_INSIDE), subject).status, CL_OK);
  EXPECT_EQ(clip::clipMem1.polyCapacity, 3);
  EXPECT_EQ(clip::clipMem1.pointCapacity,
            11);  // the closing point was short: the need is 10, and one to spare
}

// Memory that ran out
// ---------------------------------------------------------------------------------------------

struct FailureCase {
  Fence clip, subject;
  int dim;
};

// Lets every request fail in turn, all later ones with it (or not), and looks at what is left each time.
void fail_at_every_request(const FailureCase& c, long (*plan)(long)) {
  const FailurePlanEnds plan_ends;
  // What the first clip would leave with the fence.
  ASSERT_EQ(clip::fence_index(*c.clip.handle()) != nullptr, clip::g_form == clip::Form::kIndexed);
  const Rings clip_before = extract_polygons(c.clip, c.dim).rings;
  const Rings subject_before = extract_polygons(c.subject, c.dim).rings;
  const long blocks = blocks_in_use();
  int no_memory = 0, not_built = 0;
  for (long successes = 0;; ++successes) {
    ASSERT_LT(successes, 1000);
    CLFenceHandle nowhere = c.clip.handle();
    CLFenceHandle result = nowhere;
    release_overflow_buffers();
    release_clip_memory();
    int status;
    long requests;
    {
      const NoFreeProbes no_free_probes;
      plan(successes);
      status = CLclipFences(c.clip.handle(), c.subject.handle(), &result);
      requests = platform::capi_fail_after(-1);
    }
    if (status == CL_OK) {
      CLdeleteFence(result);
    } else {
      ASSERT_EQ(result, nowhere) << successes;
      ASSERT_TRUE(status == CL_NO_MEMORY || status == CL_BAD_ARGUMENT) << status << " at " << successes;
      if (successes < 2) {  // the arrays for the subject's polygons
        ASSERT_EQ(status, CL_NO_MEMORY) << successes;
      }
      ++(status == CL_NO_MEMORY ? no_memory : not_built);
    }
    ASSERT_EQ(blocks_in_use(), blocks) << successes;
    ASSERT_EQ(extract_polygons(c.clip, c.dim).rings, clip_before) << successes;
    ASSERT_EQ(extract_polygons(c.subject, c.dim).rings, subject_before) << successes;
    ASSERT_EQ(fault(c.clip, c.subject, c.dim), "") << successes;
    if (requests <= successes) break;  // there was none that failed
  }
  EXPECT_GT(clip::clipMem2.polyCapacity, 25);
  EXPECT_GT(no_memory, 5);
  EXPECT_GE(not_built, 1);  // the new fence's block
}

// Each ring is cut into several pieces, so that the memories grow on the way.
FailureCase failure_case(int dim) {
  Rings subject;
  const int polygons = dim == 3 ? 1 : 2, points = dim == 3 ? 54 : 28;
  for (int i = 0; i < polygons; ++i) {
    Ring teeth;
    for (int k = 0; k < points; ++k) teeth.push_back({400.0 * i + 3 * k, k % 2 == 0 ? 0.0 : 50.0, 0.0});
    teeth.push_back({400.0 * i + 3 * points - 3, -10, 0});
    teeth.push_back({400.0 * i, -10, 0});
    subject.push_back(teeth);
  }
  const FenceShape shape{dim, -1, 1};
  return {Fence({{{-50, 30, 0}, {5000, 30, 0}, {5000, 60, 0}, {-50, 61, 0}}}, CL_KEEP_INSIDE, shape),
          Fence(subject, CL_KEEP_INSIDE, shape), dim};
}

TEST(ClipFences, NoMemoryAnywhereLeaksNothingAndLeavesBothFencesUsable) {
  for (const int dim : {2, 3}) {
    fail_at_every_request(failure_case(dim), [](long n) { return platform::capi_fail_after(n); });
  }
}

TEST(ClipFences, TheCallAfterAFailureGoesOnWithWhatTheSharedMemoriesHold) {
  const FailurePlanEnds plan_ends;
  for (const int dim : {2, 3}) {
    const FailureCase c = failure_case(dim);
    for (long successes = 0;; ++successes) {
      ASSERT_LT(successes, 1000);
      release_overflow_buffers();
      release_clip_memory();
      platform::capi_fail_after(successes);
      const int status = clip_fences(c.clip, c.subject).status;
      platform::capi_fail_after(-1);
      ASSERT_EQ(fault(c.clip, c.subject, dim), "") << successes;  // the memories as the failure left them
      if (status == CL_OK) break;
    }
  }
}

TEST(ClipFences, ASingleFailedRequestIsNotForgotten) {
  for (const int dim : {2, 3}) {
    fail_at_every_request(failure_case(dim), [](long n) { return platform::capi_fail_once_after(n); });
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
