// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See summary.h.
#include "plotclip/summary.h"

#include <cstdio>
#include <string>

#include "plotclip/log.h"
#include "plotclip/outline.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr std::size_t kMostNumbers = 12;  // more of them would make the line a long one

// Which of the polygons, counted from 1, are rectangular plot areas.
std::vector<std::size_t> rectangular_among(const FencePolygons& polygons) {
  std::vector<std::size_t> numbers;
  for (std::size_t i = 0; i < polygons.size(); ++i) {
    const bool rectangular = is_rectangular_plot_area(polygons[i]);
    if (rectangular) numbers.push_back(i + 1);
    log_line(Topic::kFence, "polygon %zu: %zu points, %s rectangular plot area", i + 1, polygons[i].size(),
             rectangular ? "a" : "no");
  }
  return numbers;
}

// Nothing where all are meant or none is.
std::string list_of(const std::vector<std::size_t>& numbers, std::size_t all) {
  if (numbers.empty() || numbers.size() == all) return "";
  std::string text = ":";
  for (std::size_t i = 0; i < numbers.size() && i < kMostNumbers; ++i)
    text += " " + std::to_string(numbers[i]);
  return numbers.size() > kMostNumbers ? text + " ..." : text;
}

void tell_plot_areas(const FencePolygons& listed) {
  const std::vector<std::size_t> numbers = rectangular_among(listed);
  std::printf("plot areas   %zu of %zu rectangular%s\n", numbers.size(), listed.size(),
              list_of(numbers, listed.size()).c_str());
}

}  // namespace

void tell_input(const Options& options, const Drawing& drawing, const Figures& in) {
  std::printf("drawing      %s: %zu lines, %zu polygons, %zu points\n", options.drawing.c_str(), in.lines,
              in.polygons, in.points);
  std::printf("passed over  %zu labels, %zu unknown\n", drawing.labels, drawing.unknown);
  log_line(Topic::kRead, "%zu lines, %zu polygons, %zu points; passed over %zu labels, %zu unknown", in.lines,
           in.polygons, in.points, drawing.labels, drawing.unknown);
}

void tell_fence(const Options& options, const FencePolygons& listed, const FencePolygons& fence) {
  std::size_t points = 0;
  for (const PointRun& polygon : fence) points += polygon.size() == 2 ? 4 : polygon.size();
  const char* const kept = options.outside ? "outside" : "inside";
  std::printf("fence        %zu %s, %zu points, keeping the %s\n", fence.size(),
              fence.size() == 1 ? "polygon" : "polygons", points, kept);
  log_line(Topic::kFence, "polygons: %zu, points: %zu, keeping the %s", fence.size(), points, kept);
  if (!options.fence_file.empty()) tell_plot_areas(listed);
}

void tell_result(const Figures& in, const Figures& out, double seconds) {
  std::printf("pieces       %zu in, %zu out\n", in.lines + in.polygons, out.lines + out.polygons);
  std::printf("points       %zu in, %zu out\n", in.points, out.points);
  std::printf("length kept  %.6f of %.6f\n", out.length, in.length);
  std::printf("area kept    %.6f of %.6f\n", out.area, in.area);
  std::printf("time         %.3f s\n", seconds);
  log_line(Topic::kClip, "pieces: %zu in, %zu out; points: %zu in, %zu out; %.3f s", in.lines + in.polygons,
           out.lines + out.polygons, in.points, out.points, seconds);
}

}  // namespace Corvane::Print::plotclip
