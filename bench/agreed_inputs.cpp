// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What some of the inputs are known to be. A ratio is worth nothing when the input is another one.
#include "bench/generators.h"

#include <cmath>
#include <cstdio>

namespace Corvane::Print::bench {
namespace {

bool check_area(const char* what, const Points& ring, double agreed) {
  const double found = signed_area(ring);
  if (std::fabs(found - agreed) <= 1e-13 * agreed) return true;
  std::fprintf(stderr, "bench: the area of %s is %.3f, but should be %.3f\n", what, found, agreed);
  return false;
}

bool check_point(const char* what, const Point& found, const Point& agreed) {
  if (std::fabs(found.x - agreed.x) < 1e-4 && std::fabs(found.y - agreed.y) < 1e-4) return true;
  std::fprintf(stderr, "bench: %s is (%.3f,%.3f), but should be (%.3f,%.3f)\n", what, found.x, found.y,
               agreed.x, agreed.y);
  return false;
}

bool rings_are_as_agreed() {
  struct Agreed {
    const char* what;
    Points ring;
    double area;
  };
  const Agreed all[] = {{"subject A of 10000", polygon_subject(Family::kSpiky, 10000), 1742847226925.479},
                        {"clip A of 10000", polygon_clip(Family::kSpiky, 10000), 1765852536997.007},
                        {"subject B of 10000", polygon_subject(Family::kRough, 10000), 1767083836056.281},
                        {"clip B of 10000", polygon_clip(Family::kRough, 10000), 1767145010084.829},
                        {"subject C of 10000", polygon_subject(Family::kWavy, 10000), 1802473547473.566},
                        {"clip C of 10000", polygon_clip(Family::kWavy, 10000), 1802488978240.008},
                        {"subject B of 100000", polygon_subject(Family::kRough, 100000), 1767146171792.501},
                        {"clip B of 100000", polygon_clip(Family::kRough, 100000), 1767145872429.099},
                        {"grown ring B", ring({Family::kRough, 10000, 7}), 1767138009338.695},
                        {"grown ring C", ring({Family::kWavy, 10000, 7}), 1802486455197.590}};
  bool ok = true;
  for (const Agreed& one : all) ok = check_area(one.what, one.ring, one.area) && ok;
  return ok;
}

}  // namespace

bool inputs_are_as_agreed() {
  const Points slow = walk(2, 6, 6000);
  bool ok = rings_are_as_agreed();
  ok = check_point("point 0 of the walk of seed 6", slow[0], {0, 0}) && ok;
  ok = check_point("point 1 of the walk of seed 6", slow[1], {2877.804, -644.235}) && ok;
  ok = check_point("point 1 of the walk of seed 3", walk(2, 3, 2000)[1], {-1546.199, 801.174}) && ok;
  ok = check_point("uniform point 0 of seed 4", uniform(1, 4, {-1e6, 1e6}, {-1e6, 1e6})[0],
                   {-137088.365, 784813.692}) &&
       ok;
  ok = check_point("probe 0", uniform(1, 8, {-1e6, 1e6}, {-1e6, 1e6})[0], {237009.250, 223896.193}) && ok;
  ok = check_point("point 0 of small subject 0", many_subjects()[0][0], {-921029.454, 468734.306}) && ok;
  return ok;
}

}  // namespace Corvane::Print::bench
