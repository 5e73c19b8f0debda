// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The random cases of the comparisons and the bookkeeping that the tests share.
#ifndef CORVANE_PRINT_TESTS_GEOS_CASES_H
#define CORVANE_PRINT_TESTS_GEOS_CASES_H

#include "tests/geos/geometry.h"
#include "tests/support/clip_call.h"
#include "tests/support/random.h"

#include <string>

namespace Corvane::Print::tests {

// A subject and fence polygons, in general position towards one another, at a random scale between 1e2 and
// 1e6 and at a random distance from the origin.
struct Case {
  Ring subject;
  Rings fence;
  double scale = 1;
};
Case polygon_case(Random& random, int most_fence_polygons);

// The same with polylines, breaks included, as the subject.
Case line_case(Random& random, int most_fence_polygons);

// What the independent library says about the kept part.
Geometry expected_kept(const Geometry& subject, const Rings& fence, int mode);

// All that can be said about a clip without knowing the right answer; empty when nothing is wrong.
std::string formal_faults(const Pieces& pieces, int mode);

// Also empty when every piece is a simple ring, as it must be in general position.
std::string shape_faults(const Rings& pieces);

// The area in which the pieces differ from what was expected, as a share of the subject's area.
double relative_difference(const Rings& pieces, const Geometry& expected, double subject_area);

std::string text_of(const Case& c, int mode);

// Counts cases that came out differently and tells the first few of them on stderr, where whoever looks for
// the cause can pick them up.
class Offenders {
public:
  explicit Offenders(std::string family) : family_(std::move(family)) {}
  ~Offenders();

  void equal() { ++cases_; }
  void differs(int index, const std::string& what, const Ring& subject, const Rings& fence, int mode,
               const Rings& pieces);

  int cases() const { return cases_; }
  int differing() const { return differing_; }

private:
  std::string family_;
  int cases_ = 0, differing_ = 0;
};

}  // namespace Corvane::Print::tests

#endif
