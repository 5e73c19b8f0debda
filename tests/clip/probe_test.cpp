// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The probe records: the ray and its tolerance, the variable that turns the ray, and the life of a record.
//
// Not tested: an empty variable, because Windows has none; and that the height decides when width and height
// are equal, because the length is the same either way.
#include "clip/probe.h"

#include "corvane/print/cf.h"
#include "tests/clip/bits.h"
#include "tests/clip/clip_state.h"
#include "tests/support/area.h"
#include "tests/support/clip_call.h"
#include "tests/support/runtime_variable.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Corvane::Print::tests {
namespace {

constexpr const char* kVariable = "VX_CLIP_RAY_SLOPE";
constexpr double kInfinity = std::numeric_limits<double>::infinity();

// A copy of the record for an extent; the record itself goes back.
ProbeRecord probe_for(double width, double height) {
  ProbeRecord* probe = clip::take_probe(ClipExtent{-3, 5, 7, width - 3, height + 5, 9});
  const ProbeRecord copy = *probe;
  clip::give_probe(probe);
  return copy;
}

void expect_ray(const ProbeRecord& probe, double dx, double dy) {
  EXPECT_TRUE(same_bits(probe.dx, dx)) << probe.dx << " is not " << dx;
  EXPECT_TRUE(same_bits(probe.dy, dy)) << probe.dy << " is not " << dy;
}

TEST(Probe, TheRayReachesTwiceTheLargerSideInItsFixedDirection) {
  const RuntimeVariable unset(kVariable, nullptr);
  expect_ray(probe_for(32, 16), 64 * 0.811031147527, 64 * 0.585002972425);
  expect_ray(probe_for(16, 32), 64 * 0.811031147527, 64 * 0.585002972425);
  expect_ray(probe_for(32, 32), 64 * 0.811031147527, 64 * 0.585002972425);
}

TEST(Probe, TheToleranceIsAThousandthOfAUnitOfTheReach) {
  EXPECT_TRUE(same_bits(probe_for(32, 16).tolerance, 1.0 / (64.0 * 1000.0)));
  EXPECT_TRUE(same_bits(probe_for(0.125, 0.25).tolerance, 1.0 / (0.5 * 1000.0)));
}

TEST(Probe, TheVariableIsTheRaysSlopeAgainstTheVertical) {
  const struct {
    const char* text;
    double slope;
  } cases[] = {{"2", 2},        {"-0.5", -0.5}, {"0", 0},          {"1e3", 1000},
               {"0.375", .375}, {" 3", 3},      {"+4.5e-2", .045}, {"2.5 to the right", 2.5}};
  for (const auto& c : cases) {
    const RuntimeVariable variable(kVariable, c.text);
    const double root = std::sqrt(c.slope * c.slope + 1.0);
    SCOPED_TRACE(c.text);
    expect_ray(probe_for(32, 16), 64 * c.slope / root, 64 / root);
    EXPECT_TRUE(same_bits(probe_for(32, 16).tolerance, 1.0 / (64.0 * 1000.0)));
  }
}

TEST(Probe, TextThatIsNoNumberIsASlopeOfZero) {
  for (const char* text : {"steep", " ", "-", "."}) {
    const RuntimeVariable variable(kVariable, text);
    SCOPED_TRACE(text);
    expect_ray(probe_for(32, 16), 0.0, 64.0);
  }
}

TEST(Probe, ASlopeWithoutADirectionLeavesTheFixedRay) {
  for (const char* text : {"nan", "inf", "-inf", "1e300", "-1e200", "1e999"}) {
    const RuntimeVariable variable(kVariable, text);
    SCOPED_TRACE(text);
    expect_ray(probe_for(32, 16), 64 * 0.811031147527, 64 * 0.585002972425);
  }
}

TEST(Probe, TheLargestUsableSlopeIsAnAllButLevelRay) {
  const RuntimeVariable variable(kVariable, "1e154");
  const ProbeRecord probe = probe_for(32, 16);
  EXPECT_NEAR(probe.dx, 64, 1e-12);
  EXPECT_GT(probe.dy, 0.0);
  EXPECT_LT(probe.dy, 1e-150);
}

TEST(Probe, TheVariableIsReadAnewForEachPolygon) {
  RuntimeVariable variable(kVariable, "1");
  const Fence first({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  variable.set("0");
  const Fence second({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  variable.set(nullptr);
  const Fence third({rectangle(0, 0, 10, 10)}, CL_KEEP_INSIDE);
  expect_ray(*first.handle()->probe, 20 / std::sqrt(2.0), 20 / std::sqrt(2.0));
  expect_ray(*second.handle()->probe, 0, 20);
  expect_ray(*third.handle()->probe, 20 * 0.811031147527, 20 * 0.585002972425);
}

int g_questions_to_the_host;

int host_callback(const CPWChar*, CPWChar*, int) {
  ++g_questions_to_the_host;
  return 0;
}

// A host whose callback knows nothing: the clipper reads the process environment all the same.
TEST(Probe, TheVariableIsTheProcessEnvironmentsAlsoWithAHostsCallback) {
  const RuntimeVariable variable(kVariable, "2");
  g_questions_to_the_host = 0;
  CFSetGetEnvVarCallback(host_callback);
  const ProbeRecord probe = probe_for(32, 16);
  CFSetGetEnvVarCallback(nullptr);
  expect_ray(probe, 64 * 2 / std::sqrt(5.0), 64 / std::sqrt(5.0));
  EXPECT_EQ(g_questions_to_the_host, 0);
}

TEST(Probe, EverythingElseOfARecordIsZero) {
  ProbeRecord* used = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  used->x = used->y = used->z = used->w = 5;
  used->marker = 7;
  clip::give_probe(used);
  const ProbeRecord probe = probe_for(32, 16);
  EXPECT_TRUE(probe.x == 0 && probe.y == 0 && probe.z == 0 && probe.w == 0 && probe.marker == 0);
  EXPECT_TRUE(probe.next == nullptr && probe.next2 == nullptr && probe.prev == nullptr);
}

TEST(Probe, APointHasARayWithoutLengthAndNoBoundOnTheTolerance) {
  const RuntimeVariable unset(kVariable, nullptr);
  const ProbeRecord probe = probe_for(0, 0);
  expect_ray(probe, 0, 0);
  EXPECT_EQ(probe.tolerance, kInfinity);
}

TEST(Probe, ARecordGivenBackIsTheNextOneTaken) {
  ProbeRecord* first = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  const long blocks = platform::capi_blocks_out();
  clip::give_probe(first);
  EXPECT_EQ(platform::capi_blocks_out(), blocks);  // it is not returned to the heap
  platform::capi_fail_after(-1);
  ProbeRecord* again = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  EXPECT_EQ(platform::capi_fail_after(-1), 0);
  EXPECT_EQ(again, first);
  clip::give_probe(again);
}

TEST(Probe, RecordsAreDistinctWhileTheyAreTaken) {
  ProbeRecord* a = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  ProbeRecord* b = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  EXPECT_NE(a, b);
  clip::give_probe(a);
  clip::give_probe(b);
}

TEST(Probe, GivingNullBackDoesNothing) {
  clip::give_probe(nullptr);
  ProbeRecord* probe = clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0});
  EXPECT_NE(probe, nullptr);
  clip::give_probe(probe);
}

TEST(Probe, NoMemoryIsNull) {
  const FailurePlanEnds plan_ends;
  const NoFreeProbes no_free_probes;
  platform::capi_fail_after(0);
  EXPECT_EQ(clip::take_probe(ClipExtent{0, 0, 0, 1, 1, 0}), nullptr);
}

// The ray decides nothing but how the inside is asked for.
TEST(Probe, AnyDirectionGivesTheSameVerdicts) {
  RuntimeVariable variable(kVariable, nullptr);
  for (int i = 0; i < scaled(500); ++i) {
    Random random(case_seed(61, i));
    const Ring fence_ring = star(random, random.between(3, 30), 300, 1000);
    const double x = random.between(-1000.0, 1000.0), y = random.between(-1000.0, 1000.0);
    const Ring subject = moved(star(random, 5, 3, 8), x, y);
    Pieces expected[2];
    for (const char* slope : {static_cast<const char*>(nullptr), "0", "0.31", "-2.7", "1e6"}) {
      variable.set(slope);
      for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
        const Pieces found = clip_polygon(Fence({fence_ring}, mode), subject);
        ASSERT_EQ(found.status, CL_OK) << "seed " << i;
        Pieces& first = expected[mode - 1];
        if (slope == nullptr) first = found;
        ASSERT_NEAR(kept_area(found.rings), kept_area(first.rings), 1e-7)
            << "seed " << i << ", slope " << (slope ? slope : "unset");
      }
    }
  }
}

}  // namespace
}  // namespace Corvane::Print::tests
