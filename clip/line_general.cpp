// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Follows each run of the input from cut to cut, counting how many of the fence's polygons it is inside of. A
// stretch is kept when that number is 0 in mode 1, and when it is not in mode 2.
//
// State: the origins in the fence's probe records.
#include "clip/line_general.h"

#include "clip/form.h"
#include "clip/inside_count.h"
#include "clip/output_room.h"
#include "clip/polyline.h"
#include "clip/ring.h"
#include "clip/run_cuts.h"

#include <algorithm>
#include <new>
#include <span>
#include <stdexcept>
#include <utility>

namespace Corvane::Print::clip {
namespace {

struct RunInFence {
  Cuts cuts;             // with all polygons, in the order of the run
  int inside_count = 0;  // polygons that the run starts inside of
};

double tolerance_of(const Run& run, int edge) {
  const LinePoint &a = run[edge], &b = run[edge + 1];
  return edge_tolerance(b.x - a.x, b.y - a.y);
}

// Where the run passes from one polygon into its neighbour at one place, it enters before it leaves: there is
// no stretch outside between the two.
void put_entries_first(const Run& run, Cuts& cuts) {
  for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
    Cut& a = cuts[i];
    Cut& b = cuts[i + 1];
    const bool same_place = a.edge == b.edge && b.param - a.param <= tolerance_of(run, a.edge);
    if (same_place && !a.inside_after && b.inside_after) std::swap(a, b);
  }
}

// Touches are none of the output's business.
void drop_touches(Cuts& cuts, bool inside_before) {
  const auto is_touch = [&](const Cut& cut) {
    return std::exchange(inside_before, cut.inside_after) == cut.inside_after;
  };
  auto kept = cuts.begin();
  for (const Cut& cut : cuts) {
    if (!is_touch(cut)) *kept++ = cut;
  }
  cuts.erase(kept, cuts.end());
}

// Both lists are in the order of the run; of cuts at one place those of `more` come last.
void merge(Cuts& cuts, Cuts more) {
  if (cuts.empty()) return cuts.swap(more);
  const auto middle = static_cast<std::ptrdiff_t>(cuts.size());
  cuts.insert(cuts.end(), more.begin(), more.end());
  std::inplace_merge(cuts.begin(), cuts.begin() + middle, cuts.end(), [](const Cut& a, const Cut& b) {
    return a.edge != b.edge ? a.edge < b.edge : a.param < b.param;
  });
}

RunInFence cut_run(const Run& run, FencePolygon& fence, const ClipExtent& input) {
  RunInFence result;
  for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly) {
    if (!overlap_xy(f->extent, input)) continue;
    bool inside = false;
    Cuts cuts = cut_run_at(run, *f, inside);
    result.inside_count += inside ? 1 : 0;
    drop_touches(cuts, inside);
    merge(result.cuts, std::move(cuts));
  }
  put_entries_first(run, result.cuts);
  return result;
}

// Writes the kept stretches of one run.
class RunWriter {
public:
  RunWriter(const Run& run, bool keep_outside, int inside_count, OutputRoom& room)
      : run_(run), keep_outside_(keep_outside), inside_count_(inside_count), room_(room) {
    if (keeping()) room_.begin_piece();
  }
  void points(std::span<const LinePoint> row) {
    if (keeping()) room_.points(row);
  }
  // A cut at a vertex comes before the vertex itself, which is then written by the cut alone.
  void cut(const Cut& cut) {
    const bool before = keeping();
    inside_count_ += cut.inside_after ? 1 : -1;
    if (keeping() == before) return;
    if (before) {
      write(cut);
      room_.end_piece();
    } else {
      room_.begin_piece();
      if (cut.param != 0.0) write(cut);
    }
  }
  void end() {
    if (keeping()) room_.end_piece();
  }

private:
  void write(const Cut& cut) {
    const LinePoint p = point_of(cut, run_);
    room_.point(p.x, p.y, p.z);
  }
  bool keeping() const { return (inside_count_ == 0) == keep_outside_; }

  const Run& run_;
  bool keep_outside_;
  int inside_count_;
  OutputRoom& room_;
};

void emit_run(const Run& run, const RunInFence& in_fence, bool keep_outside, OutputRoom& room) {
  RunWriter writer(run, keep_outside, in_fence.inside_count, room);
  std::size_t written = 0;
  for (const Cut& cut : in_fence.cuts) {
    // A cut at a point comes before it, all others on its edge behind it.
    const auto end = static_cast<std::size_t>(cut.edge) + (cut.param == 0.0 ? 0 : 1);
    writer.points(run.points.subspan(written, end - written));
    written = end;
    writer.cut(cut);
  }
  writer.points(run.points.subspan(written));
  writer.end();
}

// Runs of a single point each. They are judged many at a time, and those that are kept are written so.
void emit_points(std::span<const LinePoint> points, FencePolygon& fence, const ClipExtent& input,
                 bool keep_outside, OutputRoom& room) {
  while (!points.empty()) {
    const auto portion = points.first(std::min(points.size(), kMostProbes));
    int inside_counts[kMostProbes];
    std::fill_n(inside_counts, portion.size(), 0);
    for (FencePolygon* f = &fence; f != nullptr; f = f->nextPoly) {
      if (overlap_xy(f->extent, input)) count_inside(portion, *f, inside_counts);
    }
    LinePoint kept[kMostProbes];
    std::size_t keeps = 0;
    for (std::size_t i = 0; i < portion.size(); ++i) {
      kept[keeps] = portion[i];
      keeps += (inside_counts[i] == 0) == keep_outside ? 1 : 0;
    }
    room.point_pieces({kept, keeps});
    points = points.subspan(portion.size());
  }
}

// How many of the runs from `run` on, which starts at point `begin`, are a single point.
std::size_t single_points(const Polylines& lines, std::size_t run, std::size_t begin) {
  std::size_t count = 0;
  while (run + count < lines.ends.size() && lines.ends[run + count] == begin + count + 1) ++count;
  return count;
}

ClipExtent extent_of(std::span<const LinePoint> points) {
  ClipExtent extent = empty_extent();
  for (const LinePoint& p : points) include_point(extent, p.x, p.y);
  return extent;
}

}  // namespace

int CORVANE_PRINT_CALL clip_line_general(FencePolygon* fence, int dim, int num_points, const double* points,
                                         int* num_pieces, int* counts, double* out, int* num_out) try {
  const bool keep_outside = fence->mode == CL_KEEP_OUTSIDE;
  OutputRoom room(dim, *num_pieces, counts, out, *num_out);
  Polylines lines = split_at_breaks(dim, num_points, points);
  if (dim == 3 && !keep_outside) lines = cut_to_depth(lines, fence->extent.zmin, fence->extent.zmax);
  const ClipExtent input = extent_of(lines.points);
  EdgeIndex edges;
  std::size_t begin = 0;
  for (std::size_t r = 0; r < lines.ends.size();) {
    const std::size_t singles = g_form == Form::kIndexed ? single_points(lines, r, begin) : 0;
    if (singles > 0) {
      emit_points({lines.points.data() + begin, singles}, *fence, input, keep_outside, room);
      begin += singles;
      r += singles;
      continue;
    }
    const std::size_t end = lines.ends[r];
    const std::span<const LinePoint> points(lines.points.data() + begin, end - begin);
    Run run = {points, lines.ends.size() == 1 ? input : extent_of(points), nullptr};
    if (g_form == Form::kIndexed) {
      edges.build(points.data(), run.edge_count());
      run.edges = &edges;
    }
    emit_run(run, cut_run(run, *fence, input), keep_outside, room);
    begin = end;
    ++r;
  }
  return room.finish_lines(num_pieces, num_out);
} catch (const std::bad_alloc&) {
  return CL_NO_MEMORY;
} catch (const std::length_error&) {  // on 32 bits: more points than a vector can count
  return CL_NO_MEMORY;
}

}  // namespace Corvane::Print::clip
