// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The exported calls that define, share, describe, copy and release fences: what they refuse, what they leave
// alone, and that copying never writes beyond the given room. How fences are built is fence_test.cpp's.
//
// Not tested: that the calls must not run beside one another, because there is nothing to observe; and that
// no export returns -1, which is the absence of a value.
#include "clip/line_rect.h"
#include "clip/records.h"
#include "tests/clip/clip_state.h"
#include "tests/support/clip_call.h"
#include "tests/support/guarded.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <limits>
#include <vector>

namespace Corvane::Print::tests {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A call of CLdefFence with one argument after the other wrong; `status` also checks that a refusal leaves
// the handle and the counts alone.
struct Definition {
  int dim = 2;
  int polys = 1;
  std::vector<int> counts = {4};
  std::vector<double> points = {0, 0, 9, 1, 9, 9, 0, 9, 5, 5, 5, 5};
  double low = 0, high = 0;
  int mode = CL_KEEP_INSIDE;

  int status() const {
    FencePolygon nowhere{};
    CLFenceHandle fence = &nowhere;
    std::vector<int> given = counts;
    const int result = CLdefFence(&fence, dim, polys, given.data(), points.data(), low, high, mode);
    if (result == CL_OK) {
      CLdeleteFence(fence);
    } else {
      EXPECT_EQ(fence, &nowhere);
      EXPECT_EQ(given, counts);
    }
    return result;
  }
};

TEST(Fence, NullArgumentsAreRefusedBeforeAnythingIsLookedAt) {
  CLFenceHandle fence = nullptr;
  int two = 2;
  const double corners[4] = {0, 0, 1, 1};
  EXPECT_EQ(CLdefFence(nullptr, 2, 1, &two, corners, 0, 0, 2), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLdefFence(&fence, 2, 1, nullptr, corners, 0, 0, 2), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLdefFence(&fence, 2, 1, &two, nullptr, 0, 0, 2), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLdefFence(nullptr, 2, 1, nullptr, nullptr, 0, 0, 2), CL_BAD_ARGUMENT);
  EXPECT_EQ(two, 2);
  EXPECT_EQ(fence, nullptr);
}

TEST(Fence, AFenceNeedsAPolygonAndEachPolygonAPoint) {
  EXPECT_EQ(Definition{}.status(), CL_OK);
  for (const int polys : {0, -1, INT_MIN}) {
    Definition d;
    d.polys = polys;
    EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
  }
  for (const int count : {0, -1, INT_MIN}) {
    Definition d;
    d.counts = {count};
    EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
    d.polys = 3;
    for (std::size_t k = 0; k < 3; ++k) {
      d.counts = {1, 1, 1};
      d.counts[k] = count;
      EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
    }
  }
  Definition d;
  d.counts = {1};
  EXPECT_EQ(d.status(), CL_OK);
}

TEST(Fence, TheDimensionIsTwoOrThree) {
  for (const int dim : {4, 1, 0, -2, INT_MAX, INT_MIN}) {
    for (const int count : {4, 2}) {
      Definition d;
      d.dim = dim;
      d.counts = {count};
      EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
    }
  }
  Definition d;
  d.dim = 3;
  EXPECT_EQ(d.status(), CL_OK);
}

TEST(Fence, TheDepthRangeMustNotBeReversed) {
  const struct {
    double low, high;
    int status;
  } cases[] = {{1, 0, CL_BAD_ARGUMENT},
               {0, -1e-300, CL_BAD_ARGUMENT},
               {kInfinity, -kInfinity, CL_BAD_ARGUMENT},
               {0, 0, CL_OK},
               {-0.0, 0.0, CL_OK},
               {0.0, -0.0, CL_OK},
               {-kInfinity, kInfinity, CL_OK}};
  for (const auto& c : cases) {
    Definition d;
    d.low = c.low;
    d.high = c.high;
    EXPECT_EQ(d.status(), c.status) << c.low << " to " << c.high;
  }
}

TEST(Fence, ADepthThatIsNotANumberIsRefused) {
  Definition d;
  d.low = kNaN;
  EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
  d.high = kNaN;
  EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
  d.low = 0;
  EXPECT_EQ(d.status(), CL_BAD_ARGUMENT);
}

TEST(Fence, CoordinatesThatAreNotFiniteAreRefused) {
  for (const double bad : {kNaN, kInfinity, -kInfinity}) {
    for (std::size_t i = 0; i < 12; ++i) {
      Definition d;
      d.dim = 3;
      d.polys = 2;
      d.counts = {1, 3};
      d.points[i] = bad;
      EXPECT_EQ(d.status(), CL_BAD_ARGUMENT) << "coordinate " << i;
      d.dim = 2;
      EXPECT_EQ(d.status(), i < 8 ? CL_BAD_ARGUMENT : CL_OK) << "coordinate " << i;
    }
    for (std::size_t i = 0; i < 6; ++i) {  // also the z of the second corner, which is not used
      Definition d;
      d.dim = 3;
      d.counts = {2};
      d.points[i] = bad;
      EXPECT_EQ(d.status(), CL_BAD_ARGUMENT) << "corner coordinate " << i;
    }
  }
}

TEST(Fence, HugeCoordinatesAreAFence) {
  Definition d;
  const double most = std::numeric_limits<double>::max();
  for (const double sign : {1.0, -1.0}) {
    d.points = {-most, -most, sign * most, -most, most, sign * most, -most, most};
    for (const int count : {4, 2, 1}) {
      d.counts = {count};
      EXPECT_EQ(d.status(), CL_OK);
    }
  }
}

// A sanitizer finds it when the points, of which there is none, or counts behind the first were read.
TEST(Fence, CountsThatCannotBeAddressedAreRefusedBeforeThePointsAreRead) {
  Definition d;
  d.points.clear();
  d.points.shrink_to_fit();
  const double none[1] = {0};
  for (const std::vector<int>& counts : {std::vector<int>{INT_MAX},
                                         {INT_MAX, 1},
                                         {INT_MAX - 1, INT_MAX - 1},
                                         {1 << 30, 1 << 30, 4},
                                         {INT_MAX, INT_MAX, 3}}) {
    std::vector<int> given = counts;
    CLFenceHandle fence = nullptr;
    EXPECT_EQ(CLdefFence(&fence, 2, static_cast<int>(given.size()), given.data(), none + 1, 0, 0, 2),
              CL_BAD_ARGUMENT);
  }
  int one = 1;
  CLFenceHandle fence = nullptr;
  EXPECT_EQ(CLdefFence(&fence, 2, INT_MAX, &one, none + 1, 0, 0, 2), CL_BAD_ARGUMENT);
  if (sizeof(void*) == 4) {
    int million = 40 * 1000 * 1000;  // fits an int, but the nodes do not fit the address space
    EXPECT_EQ(CLdefFence(&fence, 3, 1, &million, none + 1, 0, 0, 2), CL_BAD_ARGUMENT);
  }
  EXPECT_EQ(fence, nullptr);
}

TEST(Fence, TheCallersArraysAreNotNeededAfterwards) {
  std::vector<double> points = {0, 0, 0, 10, 20, 10, 20, 1};
  std::vector<int> counts = {4};
  Fence fence;
  ASSERT_EQ(CLdefFence(fence.slot(), 2, 1, counts.data(), points.data(), 0, 0, CL_KEEP_INSIDE), CL_OK);
  points.assign(8, kNaN);
  counts.assign(1, -1);
  EXPECT_EQ(extract_polygons(fence).rings,
            (Rings{{{0, 0, 0}, {0, 10, 0}, {20, 10, 0}, {20, 1, 0}, {0, 0, 0}}}));
}

TEST(Fence, TheLastReferenceReleasesTheBlock) {
  Fence holder({rectangle(0, 0, 10, 10), rectangle(20, 0, 30, 10)}, CL_KEEP_INSIDE);
  CLFenceHandle fence = std::exchange(*holder.slot(), nullptr);
  const long blocks = platform::capi_blocks_out();
  EXPECT_EQ(CLaddFenceRef(fence), CL_OK);
  EXPECT_EQ(fence->refCount, 2);
  EXPECT_EQ(CLdeleteFence(fence), CL_OK);
  EXPECT_EQ(platform::capi_blocks_out(), blocks);
  EXPECT_EQ(fence->refCount, 1);
  EXPECT_EQ(CLdeleteFence(fence), CL_OK);
  EXPECT_EQ(platform::capi_blocks_out(), blocks - 1);  // the probe records are not released
}

TEST(Fence, ReleasingNullIsFineAndSharingItIsNot) {
  EXPECT_EQ(CLdeleteFence(nullptr), CL_OK);
  EXPECT_EQ(CLaddFenceRef(nullptr), CL_BAD_ARGUMENT);
}

TEST(Fence, DefiningAndReleasingOverAndOverNeedsNoFurtherMemory) {
  const long before = blocks_in_use();
  for (int i = 0; i < 50; ++i) {
    const Fence fence({rectangle(0, 0, 10, 10), rectangle(20, 0, 30, 10)}, CL_KEEP_INSIDE);
    ASSERT_EQ(fence.status(), CL_OK);
  }
  EXPECT_EQ(blocks_in_use(), before);
}

// Inquiry
// ---------------------------------------------------------------------------------------------------------

struct Info {
  double extent[6];
  int mode, rectangular;
};

Info info_of(const Fence& fence) {
  Guarded<int> words(15);  // one more, so that the extent lies unaligned
  EXPECT_EQ(CLinqFenceInfo(fence.handle(), words.data() + 1), CL_OK);
  EXPECT_TRUE(words.intact());
  Info info;
  std::memcpy(info.extent, words.data() + 1, sizeof info.extent);
  info.mode = words[13];
  info.rectangular = words[14];
  return info;
}

TEST(Fence, InquiryTellsTheFirstPolygonsExtentWithTheDepthRange) {
  const Fence fence({lifted(rectangle(1, 2, 30, 40), 0, 0, 99), rectangle(-500, -500, -400, -400)},
                    CL_KEEP_OUTSIDE, {3, -7, 8});
  const Info info = info_of(fence);
  const double expected[6] = {1, 2, -7, 30, 40, 8};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(info.extent[i], expected[i]);
  EXPECT_EQ(info.mode, CL_KEEP_OUTSIDE);
  EXPECT_EQ(info.rectangular, 0);
}

TEST(Fence, InquiryTellsWhetherTheRectangleLineClipperIsUsed) {
  const Ring rounded = {{0.4, 0.4, 0}, {9.6, 0.4, 0}, {9.6, 9.6, 0}, {0.4, 9.6, 0}};
  EXPECT_EQ(info_of(Fence({rounded}, CL_KEEP_INSIDE)).rectangular, 1);
  EXPECT_EQ(info_of(Fence({rounded}, CL_KEEP_OUTSIDE)).rectangular, 0);
  EXPECT_EQ(info_of(Fence({{{0, 0, 0}, {9, 1, 0}, {9, 9, 0}}}, CL_KEEP_INSIDE)).rectangular, 0);
  EXPECT_EQ(info_of(Fence({{{0, 0, 0}, {9, 9, 0}}}, CL_KEEP_INSIDE)).mode, CL_KEEP_INSIDE);
}

TEST(Fence, InquiryOfNullIsABadArgument) {
  const Fence fence({rectangle(0, 0, 1, 1)}, CL_KEEP_INSIDE);
  Guarded<int> words(14);
  EXPECT_EQ(CLinqFenceInfo(nullptr, words.data()), CL_BAD_ARGUMENT);
  EXPECT_TRUE(words.untouched_from(0));
  EXPECT_EQ(CLinqFenceInfo(fence.handle(), nullptr), CL_BAD_ARGUMENT);
}

}  // namespace
}  // namespace Corvane::Print::tests
