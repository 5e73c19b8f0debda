// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export of the CF and CL families once through the shared library. What the functions do in
// detail is tested elsewhere, against the library's objects; here it is shown that a host finds each of them
// under its name, with its calling convention, and that values survive the way through the library's border.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "corvane/print/cf.h"
#include "corvane/print/cl.h"
#include "corvane/print/version.h"
#include "host_calls.h"

namespace {

using namespace Corvane::Print;

// "PLOT_FENCES" -> "fences", every other name is undefined. The count is in bytes.
int CORVANE_PRINT_CALL host_lookup(const CPWChar* name, CPWChar* buffer, int capacity) {
  const char known[] = "PLOT_FENCES";
  for (std::size_t i = 0; i < sizeof known; ++i) {
    if (name[i] != static_cast<CPWChar>(known[i])) return 0;
  }
  const char value[] = "fences";
  const int needed = static_cast<int>(sizeof value * sizeof(CPWChar));
  if (needed > capacity) return needed;
  for (std::size_t i = 0; i < sizeof value; ++i) buffer[i] = static_cast<CPWChar>(value[i]);
  return needed;
}

class HostConfig : public testing::Test {
protected:
  void SetUp() override { CFSetGetEnvVarCallback(host_lookup); }
  void TearDown() override { CFSetGetEnvVarCallback(nullptr); }

  static std::vector<CPWChar> wide(const char* text) {
    return std::vector<CPWChar>(text, text + std::strlen(text) + 1);
  }
};

class HostClip : public testing::Test {
protected:
  // A square with its lower left corner at (at, at).
  static CLFenceHandle square(double at, double side, int mode = CL_KEEP_INSIDE) {
    int two = 2;
    const double corners[4] = {at, at, at + side, at + side};
    CLFenceHandle fence = nullptr;
    EXPECT_EQ(CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, mode), CL_OK);
    return fence;
  }

  // Twice the area of one ring of `count` points.
  static double doubled_area(const double* points, int count) {
    double sum = 0;
    for (int i = 0; i < count; ++i) {
      const int j = (i + 1) % count;
      sum += points[2 * i] * points[2 * j + 1] - points[2 * j] * points[2 * i + 1];
    }
    return std::fabs(sum);
  }
};

}  // namespace

TEST_F(HostConfig, WideLookupAsksTheInstalledCallback) {
  CPWChar* value = CFGetenvW(wide("PLOT_FENCES").data());
  ASSERT_NE(value, nullptr);
  EXPECT_EQ(value[0], static_cast<CPWChar>('f'));
  EXPECT_EQ(value[6], 0);
  CFReleaseValue(value);
  EXPECT_EQ(CFGetenvW(wide("PLOT_OTHER").data()), nullptr);
}

TEST_F(HostConfig, NarrowLookupAsksTheInstalledCallback) {
  char* value = CFGetenv("PLOT_FENCES");
  ASSERT_NE(value, nullptr);
  EXPECT_STREQ(value, "fences");
  CFReleaseValue(value);
  EXPECT_EQ(CFGetenv("PLOT_OTHER"), nullptr);
}

TEST_F(HostConfig, DefinedVariablesAreToldFromUndefinedOnes) {
  EXPECT_TRUE(CFIsVariableDefinedW(wide("PLOT_FENCES").data()));
  EXPECT_FALSE(CFIsVariableDefinedW(wide("PLOT_OTHER").data()));
  EXPECT_TRUE(CFIsVariableDefined("PLOT_FENCES"));
  EXPECT_FALSE(CFIsVariableDefined("PLOT_OTHER"));
}

TEST_F(HostConfig, WithoutACallbackTheEnvironmentIsAsked) {
  CFSetGetEnvVarCallback(nullptr);
  EXPECT_FALSE(CFIsVariableDefined("PLOT_FENCES"));
  EXPECT_TRUE(CFIsVariableDefined("PATH"));
}

TEST_F(HostConfig, ReleasingNullDoesNothing) {
  CFReleaseValue(nullptr);
}

TEST_F(HostClip, LineIsClippedByAHostWrittenInC) {
  double ends[4] = {};
  ASSERT_EQ(host_clips_a_line(CL_KEEP_INSIDE, ends), CL_OK);
  EXPECT_EQ(std::fmin(ends[0], ends[2]), 0.0);
  EXPECT_EQ(std::fmax(ends[0], ends[2]), 10.0);
  EXPECT_EQ(ends[1], 5.0);
  EXPECT_EQ(ends[3], 5.0);

  ASSERT_EQ(host_clips_a_line(CL_KEEP_OUTSIDE, ends), CL_OK);
  EXPECT_EQ(std::fmin(ends[0], ends[2]), -5.0);
  EXPECT_EQ(std::fmax(ends[0], ends[2]), 0.0);
}

TEST_F(HostClip, ClipMemoryHasTheSameSizeInCAndCxx) {
  EXPECT_EQ(host_size_of_clip_memory(), static_cast<int>(sizeof(CLclpMemType)));
}

TEST_F(HostClip, ReferencesKeepAFenceAlive) {
  CLFenceHandle fence = square(0, 10);
  ASSERT_EQ(CLaddFenceRef(fence), CL_OK);
  ASSERT_EQ(CLdeleteFence(fence), CL_OK);
  int words[14] = {};
  ASSERT_EQ(CLinqFenceInfo(fence, words), CL_OK);
  double extent[6];
  std::memcpy(extent, words, sizeof extent);
  EXPECT_EQ(extent[0], 0.0);
  EXPECT_EQ(extent[3], 10.0);
  EXPECT_EQ(extent[4], 10.0);
  EXPECT_EQ(words[12], CL_KEEP_INSIDE);
  EXPECT_EQ(words[13], 1);
  EXPECT_EQ(CLdeleteFence(fence), CL_OK);
}

TEST_F(HostClip, PolygonIsCutToTheFence) {
  CLFenceHandle fence = square(0, 10);
  const double subject[8] = {5, 5, 15, 5, 15, 15, 5, 15};
  int pieces = 4, points = 16, counts[4];
  double out[48];
  ASSERT_EQ(CLclipPolygon(fence, 2, 4, subject, &pieces, counts, out, &points), CL_OK);
  ASSERT_EQ(pieces, 1);
  EXPECT_EQ(counts[0], points);
  EXPECT_EQ(doubled_area(out, counts[0]), 50.0);
  CLdeleteFence(fence);
}

TEST_F(HostClip, FencesIntersectIntoAThirdOne) {
  CLFenceHandle clip = square(0, 10), subject = square(4, 10), both = nullptr;
  ASSERT_EQ(CLclipFences(clip, subject, &both), CL_OK);
  ASSERT_NE(both, nullptr);

  int polygons = 4, counts[4], points = 16;
  double ring[32];
  ASSERT_EQ(CLextractPolygons(both, &polygons, counts, ring, &points), CL_OK);
  ASSERT_EQ(polygons, 1);
  ASSERT_EQ(counts[0], points);
  EXPECT_EQ(doubled_area(ring, points - 1), 72.0);
  CLdeleteFence(both);
  CLdeleteFence(subject);
  CLdeleteFence(clip);
}

TEST_F(HostClip, PolygonsGrowByADistance) {
  int count = 5;
  double ring[10] = {0, 0, 10, 0, 10, 10, 0, 10, 0, 0}, grown[10] = {};
  ASSERT_EQ(CLGrowPolygons(2, 1, &count, ring, 1.0, grown), CL_OK);
  EXPECT_EQ(doubled_area(grown, 4), 288.0);
}

TEST_F(HostClip, NullArgumentsAreRefusedAcrossTheBorder) {
  EXPECT_EQ(CLdefFence(nullptr, 2, 1, nullptr, nullptr, 0.0, 0.0, CL_KEEP_INSIDE), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLreallocClpMem(nullptr), CL_BAD_ARGUMENT);
  EXPECT_EQ(CLdeleteFence(nullptr), CL_OK);
}
