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
#include "plotclip/log.h"
#include "plotclip/name.h"
#include "plotclip/options.h"
#include "plotclip/output.h"
#include "plotclip/problem.h"
#include "plotclip/summary.h"
#include "plotclip/transform.h"

namespace Corvane::Print::plotclip {
namespace {

ClipResult timed_clip(const Drawing& drawing, const FencePolygons& fence, const Options& options,
                      double& seconds) {
  const auto start = std::chrono::steady_clock::now();
  ClipResult result = clip(drawing, fence, options);
  seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  return result;
}

void run(const Options& options) {
  add_debug_variables(options.debug_variables);
  const FencePolygons listed = fence_polygons(options);
  const FencePolygons fence = grow_fence(listed, options.grow);
  Drawing drawing = read_drawing(options.drawing);
  transform(drawing, options);
  const Figures in = measure(drawing);
  tell_input(options, drawing, in);
  tell_fence(options, listed, fence);
  double seconds = 0.0;
  const ClipResult result = timed_clip(drawing, fence, options, seconds);
  tell_result(in, measure(result.kept), seconds);
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
  log_error(line);
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
