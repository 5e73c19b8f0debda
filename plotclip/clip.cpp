// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See clip.h. A call clips many polylines of one pen at once, separated by break points; batches keep the
// calls short enough to report progress between them.
#include "plotclip/clip.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include "plotclip/clip_memory.h"
#include "plotclip/extent.h"
#include "plotclip/log.h"
#include "plotclip/problem.h"
#include "plotclip/progress.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr std::size_t kBatchPoints = 8192;
constexpr double kWorkingExtent = 16384.0;
constexpr double kLargestFactor = 1125899906842624.0;  // 2 to the 50th

// Points as the library takes them.
class FlatPoints {
public:
  FlatPoints(int dim, double factor) : dim_(dim), factor_(factor) {}

  void add(const PointRun& run) {
    for (const Point& p : run) put(p.x * factor_, p.y * factor_, p.z * factor_);
  }
  void add_break() { put(CL_BREAK, CL_BREAK, CL_BREAK); }
  void clear() { values_.clear(); }
  int count() const { return static_cast<int>(values_.size()) / dim_; }
  const double* data() const { return values_.data(); }

private:
  void put(double x, double y, double z) {
    values_.push_back(x);
    values_.push_back(y);
    if (dim_ == 3) values_.push_back(z);
  }

  int dim_;
  double factor_;
  std::vector<double> values_;
};

class Clipper {
public:
  Clipper(const Drawing& drawing, const FencePolygons& fence, const Options& options)
      : drawing_(drawing),
        dim_(options.depth ? 3 : 2),
        factor_(working_factor(drawing, fence)),
        fence_(define_fence(fence, options, factor_)),
        points_(dim_, factor_),
        progress_(drawing.paths.size()) {}

  ClipResult run() {
    result_.kept.colours = drawing_.colours;
    log_line(Topic::kClip, "coordinates are multiplied by %g", factor_);
    clip_polygons();
    for (const auto& [pen, lines] : lines_by_pen()) clip_lines(lines);
    return std::move(result_);
  }

private:
  using Lines = std::vector<const Path*>;

  // Pens with several widths count as several pens.
  std::map<std::pair<int, double>, Lines> lines_by_pen() const {
    std::map<std::pair<int, double>, Lines> lines;
    for (const Path& path : drawing_.paths)
      if (path.kind == PathKind::kLine) lines[{path.pen, path.width}].push_back(&path);
    return lines;
  }

  void check(int status, const char* call) const {
    if (status != CL_OK) throw Problem(std::string(call) + " failed with status " + std::to_string(status));
  }

  void clip_polygons() {
    std::size_t count = 0;
    for (const Path& path : drawing_.paths) {
      if (path.kind == PathKind::kLine) continue;
      ++count;
      clip_polygon(path);
    }
    log_line(Topic::kClip, "polygons: %zu paths, %zu kept", count, result_.kept.paths.size());
  }

  void clip_polygon(const Path& path) {
    Path kept = path;
    kept.runs.clear();
    for (const PointRun& ring : path.runs) {
      if (ring.size() < 3) continue;
      points_.clear();
      points_.add(ring);
      const int status = memory_.repeat([this](CLclpMemType& m) {
        return CLclipPolygon(fence_.get(), dim_, points_.count(), points_.data(), &m.polyRequest, m.counts,
                             m.points, &m.pointRequest);
      });
      if (status == CL_INCONSISTENT) {
        ++result_.failed;
        log_line(Topic::kClip, "a polygon of pen %d, %zu points, is inconsistent and left out", path.pen,
                 ring.size());
        continue;
      }
      check(status, "CLclipPolygon");
      memory_.pieces(dim_, 1.0 / factor_, [&kept](PointRun piece) { kept.runs.push_back(std::move(piece)); });
    }
    if (!kept.runs.empty()) result_.kept.paths.push_back(std::move(kept));
    progress_.advance(1);
  }

  void clip_lines(const Lines& lines) {
    const std::size_t before = result_.kept.paths.size();
    for (std::size_t next = 0; next < lines.size();) {
      const std::size_t first = next;
      points_.clear();
      while (next < lines.size() && (next == first || points_.count() < static_cast<int>(kBatchPoints))) {
        if (next != first) points_.add_break();
        points_.add(lines[next++]->runs[0]);
      }
      clip_batch(*lines[first]);
      progress_.advance(next - first);
    }
    log_line(Topic::kClip, "pen %d, %g mm: %zu lines, %zu pieces kept", lines[0]->pen, lines[0]->width,
             lines.size(), result_.kept.paths.size() - before);
  }

  void clip_batch(const Path& like) {
    const int status = memory_.repeat([this](CLclpMemType& m) {
      return CLclipLine(fence_.get(), dim_, points_.count(), points_.data(), &m.polyRequest, m.counts,
                        m.points, &m.pointRequest);
    });
    check(status, "CLclipLine");
    memory_.pieces(dim_, 1.0 / factor_, [this, &like](PointRun piece) {
      result_.kept.paths.push_back({PathKind::kLine, like.pen, like.width, {}, {std::move(piece)}});
    });
  }

  const Drawing& drawing_;
  const int dim_;
  const double factor_;
  const Fence fence_;
  FlatPoints points_;
  ClipMemory memory_;
  Progress progress_;
  ClipResult result_;
};

}  // namespace

double working_factor(const Drawing& drawing, const FencePolygons& fence) {
  Extent extent;
  extent.add(drawing);
  extent.add(fence);
  const double side = extent.longer_side();
  if (!(side > 0.0) || side >= kWorkingExtent) return 1.0;
  return std::min(std::exp2(std::ceil(std::log2(kWorkingExtent / side))), kLargestFactor);
}

ClipResult clip(const Drawing& drawing, const FencePolygons& fence, const Options& options) {
  return Clipper(drawing, fence, options).run();
}

}  // namespace Corvane::Print::plotclip
