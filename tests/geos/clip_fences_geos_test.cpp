// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Fence intersections in two dimensions, as regions, against the independent library. A fence whose mode
// keeps the outside cuts holes; as polygons of the new fence they are told by lying inside another one.
#include "tests/geos/cases.h"
#include "tests/support/area.h"
#include "tests/support/scale.h"
#include "tests/support/shapes.h"

#include <cmath>

#include <gtest/gtest.h>

namespace Corvane::Print::tests {
namespace {

constexpr double kTolerance = 1e-9;

Rings without_last_points(Rings closed) {
  for (Ring& ring : closed) {
    if (!ring.empty()) ring.pop_back();
  }
  return closed;
}

std::string fences_fault(const Rings& clip_rings, const Rings& subject_rings, int mode, Rings& polygons) {
  const Fence clip(clip_rings, mode), subject(subject_rings, CL_KEEP_INSIDE);
  const Geometry all = Geometry::united(subject_rings);
  const Geometry expected = expected_kept(all, clip_rings, mode);
  const FenceResult result = clip_fences(clip, subject);
  if (result.status == CL_EMPTY) {
    if (result.fence.handle() != nullptr) return "empty, yet a handle";
    return expected.area() == 0 ? "" : "empty instead of an area of " + std::to_string(expected.area());
  }
  if (result.status != CL_OK) return "status " + std::to_string(result.status);
  polygons = without_last_points(extract_polygons(result.fence).rings);
  // Two rectangles come out as a rectangle even when they only touch; such a one has no area.
  const double whole = all.area();
  const double difference = relative_difference(polygons, expected, whole);
  return difference <= kTolerance ? ""
                                  : "region differs by " + std::to_string(difference) + " of the subject's";
}

TEST(ClipFencesAgainstGeos, RegionsOfTwoFences) {
  Offenders offenders("fence intersections");
  for (int i = 0; i < scaled(3000); ++i) {
    Random random(case_seed(41, i));
    Case c = polygon_case(random, random.one_in(2) ? 1 : 6);
    Rings clip = {c.subject}, subject = c.fence;
    if (random.one_in(2)) std::swap(clip, subject);
    for (const int mode : {CL_KEEP_OUTSIDE, CL_KEEP_INSIDE}) {
      Rings polygons;
      const std::string fault = fences_fault(clip, subject, mode, polygons);
      if (fault.empty()) {
        offenders.equal();
      } else {
        offenders.differs(i, fault, {}, clip, mode, polygons);
        std::fprintf(stderr, "  subject fence %s\n", text_of(subject).c_str());
      }
    }
  }
  EXPECT_EQ(offenders.differing(), 0);
}

// Two rectangles that keep the inside take a way of their own.
TEST(ClipFencesAgainstGeos, TwoRectangles) {
  int apart = 0;
  const int cases = scaled(500);
  for (int i = 0; i < cases; ++i) {
    Random random(case_seed(42, i));
    double at[8];
    for (double& v : at) v = random.between(10.0, 500.0);
    const Rings clip = {rectangle(at[0], at[1], at[0] + at[2], at[1] + at[3])};
    const Rings subject = {rectangle(at[4], at[5], at[4] + at[6], at[5] + at[7])};
    Rings polygons;
    EXPECT_EQ(fences_fault(clip, subject, CL_KEEP_INSIDE, polygons), "")
        << "case " << i << " clip " << text_of(clip) << " subject " << text_of(subject);
    apart += polygons.empty();
  }
  EXPECT_GE(apart * 20, cases - 20);
  EXPECT_LT(apart, cases);
}

}  // namespace
}  // namespace Corvane::Print::tests
