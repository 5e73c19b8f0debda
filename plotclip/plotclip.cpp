// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See plotclip.h.
#include "plotclip/plotclip.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>

#include "plotclip/clip.h"
#include "plotclip/input.h"
#include "plotclip/locate.h"
#include "plotclip/name.h"
#include "plotclip/options.h"
#include "plotclip/output.h"
#include "plotclip/problem.h"
#include "plotclip/transform.h"

namespace Corvane::Print::plotclip {
namespace {

void print_input(const Options& options, const Drawing& drawing, const Figures& in) {
  std::printf("drawing      %s: %zu lines, %zu polygons, %zu points\n", options.drawing.c_str(), in.lines,
              in.polygons, in.points);
  std::printf("passed over  %zu labels, %zu unknown\n", drawing.labels, drawing.unknown);
}

void print_fence(const Options& options, const FencePolygons& fence) {
  std::size_t points = 0;
  for (const PointRun& polygon : fence) points += polygon.size() == 2 ? 4 : polygon.size();
  std::printf("fence        %zu %s, %zu points, keeping the %s\n", fence.size(),
              fence.size() == 1 ? "polygon" : "polygons", points, options.outside ? "outside" : "inside");
}

void print_result(const Figures& in, const Figures& out, double seconds) {
  std::printf("pieces       %zu in, %zu out\n", in.lines + in.polygons, out.lines + out.polygons);
  std::printf("points       %zu in, %zu out\n", in.points, out.points);
  std::printf("length kept  %.6f of %.6f\n", out.length, in.length);
  std::printf("area kept    %.6f of %.6f\n", out.area, in.area);
  std::printf("time         %.3f s\n", seconds);
}

ClipResult timed_clip(const Drawing& drawing, const FencePolygons& fence, const Options& options,
                      double& seconds) {
  const auto start = std::chrono::steady_clock::now();
  ClipResult result = clip(drawing, fence, options);
  seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return result;
}

void run(const Options& options) {
  const FencePolygons fence = fence_polygons(options);
  Drawing drawing = read_drawing(options.drawing);
  transform(drawing, options);
  const Figures in = measure(drawing);
  print_input(options, drawing, in);
  print_fence(options, fence);
  double seconds = 0.0;
  const ClipResult result = timed_clip(drawing, fence, options, seconds);
  print_result(in, measure(result.kept), seconds);
  for (const std::string& output : options.outputs) {
    const std::string name = resolve_output_name(output);
    write_output(name, drawing, result.kept, fence, options);
    std::printf("written      %s\n", name.c_str());
  }
  if (result.failed != 0)
    throw Problem(options.drawing + ": " + std::to_string(result.failed) +
                  " polygons could not be clipped and are missing from the output");
}

int tell(const char* line, int code) {
  std::fflush(stdout);
  std::fprintf(stderr, "plotclip: %s\n", line);
  return code;
}

}  // namespace

int run(int argc, const char* const* argv) {
  try {
    if (argc > 1 && std::strcmp(argv[1], "name") == 0) {
      tell_names({argv + 2, argv + argc});
      return kExitOk;
    }
    if (const auto options = parse_options(argc, argv)) run(*options);
    return kExitOk;
  } catch (const Problem& problem) {
    return tell(problem.what(), problem.code());
  } catch (const std::bad_alloc&) {
    return tell("out of memory", kExitCannot);
  } catch (const std::exception& error) {
    return tell(error.what(), kExitCannot);
  }
}

}  // namespace Corvane::Print::plotclip
