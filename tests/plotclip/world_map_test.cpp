// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A real drawing: gnuplot's plot of the world map that ships with it, clipped by the program and compared
// with lengths from GEOS. The plot is read here by a few lines of its own, not by the program's reader.
#include <geos_c.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <vector>

#include "plotclip_support.h"

namespace Corvane::Print::plotclip::test {
namespace {

constexpr double kPi = 3.14159265358979323846;

std::string world_data() {
  for (const char* folder : {"/usr/share/doc/gnuplot/examples/", "/usr/share/doc/gnuplot-doc/examples/",
                             "/usr/share/gnuplot/demo/", "/usr/share/doc/gnuplot/demo/"})
    for (const char* name : {"world.dat", "world.dat.gz"})
      if (std::ifstream(std::string(folder) + name).good()) return std::string(folder) + name;
  return "";
}

struct Segment {
  double x0, y0, x1, y1;
};

// The drawn segments of a plot that consists of PU, PD and PA with at most one pair of numbers.
std::vector<Segment> segments_of(const std::string& plot) {
  std::vector<Segment> segments;
  bool down = false;
  double x = 0.0;
  double y = 0.0;
  for (std::size_t i = 0; i + 1 < plot.size(); ++i) {
    const std::string code = plot.substr(i, 2);
    if (code != "PU" && code != "PD" && code != "PA") continue;
    if (code != "PA") down = code == "PD";
    double nx = 0.0;
    double ny = 0.0;
    if (std::sscanf(plot.c_str() + i + 2, "%lf,%lf", &nx, &ny) != 2) continue;
    if (down && (nx != x || ny != y)) segments.push_back({x, y, nx, ny});
    x = nx;
    y = ny;
  }
  return segments;
}

class WorldMap : public testing::Test {
protected:
  void SetUp() override {
    initGEOS(nullptr, nullptr);
    ASSERT_STRNE(PLOTCLIP_GNUPLOT, "") << "gnuplot was not found when this build was configured";
    const std::string data = world_data();
    ASSERT_NE(data, "") << "gnuplot's world map (world.dat) is not installed";
    const std::string source = data.ends_with(".gz") ? "< gzip -dc " + data : data;
    const std::string script = "set terminal hpgl; set output '" + plot_ +
                               "'; unset key; unset border; unset xtics; unset ytics; "
                               "set lmargin 0; set rmargin 0; set tmargin 0; set bmargin 0; "
                               "plot [-180:180][-90:90] '" +
                               source + "' with lines";
    const Outcome outcome = run_command("'" PLOTCLIP_GNUPLOT "' -e \"" + script + "\"");
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    segments_ = segments_of(content_of(plot_));
    ASSERT_GT(segments_.size(), 800U);
  }
  void TearDown() override { finishGEOS(); }

  // The length of the map within a ring of x, y pairs, by GEOS, segment by segment.
  double length_within(const std::vector<double>& ring) const {
    const unsigned n = static_cast<unsigned>(ring.size() / 2);
    GEOSCoordSequence* points = GEOSCoordSeq_create(n + 1, 2);
    for (unsigned i = 0; i <= n; ++i) GEOSCoordSeq_setXY(points, i, ring[2 * (i % n)], ring[2 * (i % n) + 1]);
    GEOSGeometry* region = GEOSGeom_createPolygon(GEOSGeom_createLinearRing(points), nullptr, 0);
    double sum = 0.0;
    for (const Segment& s : segments_) {
      GEOSCoordSequence* ends = GEOSCoordSeq_create(2, 2);
      GEOSCoordSeq_setXY(ends, 0, s.x0, s.y0);
      GEOSCoordSeq_setXY(ends, 1, s.x1, s.y1);
      GEOSGeometry* line = GEOSGeom_createLineString(ends);
      GEOSGeometry* part = GEOSIntersection(line, region);
      double length = 0.0;
      if (part == nullptr || GEOSLength(part, &length) != 1) ADD_FAILURE() << "GEOS failed";
      sum += length;
      GEOSGeom_destroy(part);
      GEOSGeom_destroy(line);
    }
    GEOSGeom_destroy(region);
    return sum;
  }

  // The length that plotclip keeps, out of the summary.
  double length_kept(const std::string& arguments) const {
    const Outcome outcome = run_plotclip(plot_ + " " + arguments + " -o " + folder_.file("o.plt"));
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return number_after(outcome.out, "length kept");
  }

  std::string fence_of(const std::vector<double>& ring) const {
    std::ofstream file(folder_.file("fence.txt"));
    file.precision(17);
    for (std::size_t i = 0; i < ring.size(); i += 2) file << ring[i] << ' ' << ring[i + 1] << '\n';
    return "--fence-file " + folder_.file("fence.txt");
  }

  double whole() const {
    double sum = 0.0;
    for (const Segment& s : segments_) sum += std::hypot(s.x1 - s.x0, s.y1 - s.y0);
    return sum;
  }

  // Degrees to the plot's units: the whole map lies between 0 and the plot's size.
  static std::vector<double> europe() {
    const double x0 = (180.0 - 12.0) / 360.0 * 10000.0;
    const double x1 = (180.0 + 42.0) / 360.0 * 10000.0;
    const double y0 = (90.0 + 35.0) / 180.0 * 7500.0;
    const double y1 = (90.0 + 71.0) / 180.0 * 7500.0;
    return {x0, y0, x1, y0, x1, y1, x0, y1};
  }

  const TempFolder folder_;
  const std::string plot_ = folder_.file("world.plt");
  std::vector<Segment> segments_;
};

TEST_F(WorldMap, EuropesRectangleKeepsTheLengthThatGeosFinds) {
  const std::vector<double> ring = europe();
  const double expected = length_within(ring);
  ASSERT_GT(expected, 3000.0);
  char fence[200];
  std::snprintf(fence, sizeof fence, "--fence %.17g,%.17g,%.17g,%.17g", ring[0], ring[1], ring[4], ring[5]);
  EXPECT_NEAR(length_kept(fence), expected, 1e-6 * expected);
  EXPECT_NEAR(length_kept(std::string(fence) + " --outside"), whole() - expected, 1e-6 * whole());
}

TEST_F(WorldMap, ACircleKeepsTheLengthThatGeosFinds) {
  std::vector<double> ring;
  for (int i = 0; i < 256; ++i) {
    const double a = 2.0 * kPi * i / 256.0;
    ring.push_back(5300.0 + 1500.0 * std::cos(a));
    ring.push_back(5600.0 + 1500.0 * std::sin(a));
  }
  const double expected = length_within(ring);
  ASSERT_GT(expected, 10000.0);
  const std::string fence = fence_of(ring);
  EXPECT_NEAR(length_kept(fence), expected, 1e-6 * expected);
  EXPECT_NEAR(length_kept(fence + " --outside"), whole() - expected, 1e-6 * whole());
}

}  // namespace
}  // namespace Corvane::Print::plotclip::test
