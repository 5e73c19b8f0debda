// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Any bytes as a plot file, and the same bytes as a fence file. Besides what the sanitizers see, the
// invariants of a drawing are checked, and that what the writer makes of it is read back without a problem.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "plotclip/fence_file.h"
#include "plotclip/hpgl_reader.h"
#include "plotclip/hpgl_writer.h"

namespace {

using namespace Corvane::Print::plotclip;

void require(bool good) {
  if (!good) std::abort();
}

void check_path(const Path& path) {
  require(path.pen >= 1 && !path.runs.empty());
  require(path.kind != PathKind::kLine || path.runs.size() == 1);
  require(path.width > 0.0 && std::isfinite(path.fill.spacing) && std::isfinite(path.fill.angle));
  for (const PointRun& run : path.runs) {
    require(run.size() >= (path.kind == PathKind::kLine ? 1U : 3U));
    for (const Point& p : run) require(std::isfinite(p.x) && std::isfinite(p.y) && p.z == 0.0);
  }
}

void read_plot_file(Bytes bytes) {
  constexpr ReadLimits kLimits = {.points = 20000};
  Drawing drawing;
  const auto problem = read_hpgl(bytes, drawing, kLimits);
  require(!problem || (problem->offset <= bytes.size() && problem->what.find('\n') == std::string::npos));
  for (const Path& path : drawing.paths) check_path(path);
  const Figures figures = measure(drawing);
  require(figures.points <= kLimits.points && std::isfinite(figures.length) && std::isfinite(figures.area));

  const std::string text = write_hpgl(drawing);
  Drawing back;
  require(!read_hpgl({reinterpret_cast<const unsigned char*>(text.data()), text.size()}, back));
  require(back.paths.size() <= drawing.paths.size() && back.unknown == 0 && back.labels == 0);
}

void read_fence_file(Bytes bytes) {
  std::vector<PointRun> polygons;
  const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
  const auto problem = parse_fence_file(text, polygons);
  require(!problem || problem->offset <= bytes.size());
  for (const PointRun& polygon : polygons) {
    require(polygon.size() >= 2);
    for (const Point& p : polygon) require(std::isfinite(p.x) && std::isfinite(p.y));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  read_plot_file({data, size});
  read_fence_file({data, size});
  return 0;
}
