// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See fence.h.
#include "plotclip/fence.h"

#include <string>

#include "plotclip/fence_file.h"
#include "plotclip/files.h"
#include "plotclip/locate.h"
#include "plotclip/log.h"
#include "plotclip/outline.h"
#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

// The library reads two points as a rectangle only where they are a fence's single polygon.
void spell_out_rectangles(FencePolygons& polygons) {
  if (polygons.size() == 1) return;
  for (PointRun& polygon : polygons)
    if (polygon.size() == 2) polygon = corners_of(polygon);
}

FencePolygons read_polygons(const std::string& name) {
  const std::string content = read_file(name);
  log_line(Topic::kRead, "fence %s: %zu bytes", name.c_str(), content.size());
  FencePolygons polygons;
  if (const auto problem = parse_fence_file(content, polygons))
    throw Problem(name + ": byte " + std::to_string(problem->offset) + ": " + problem->what);
  for (const PointRun& polygon : polygons)
    if (polygon.size() == 2 && (polygon[0].x == polygon[1].x || polygon[0].y == polygon[1].y))
      throw Problem(name +
                    ": expected rectangles with an area, found two points on an upright or level line");
  spell_out_rectangles(polygons);
  return polygons;
}

// The polygons as the library takes them, x and y of each point after the other.
struct FlatPolygons {
  std::vector<int> counts;
  std::vector<double> points;
};

// Rings are closed by their first point on request: growing judges an open ring's direction without its
// closing edge, and so could move a valid ring inward.
FlatPolygons flatten(const FencePolygons& polygons, bool close_rings) {
  FlatPolygons flat;
  for (const PointRun& polygon : polygons) {
    const bool close = close_rings && polygon.size() > 2;
    flat.counts.push_back(static_cast<int>(polygon.size() + (close ? 1 : 0)));
    for (std::size_t i = 0; i < polygon.size() + (close ? 1 : 0); ++i) {
      flat.points.push_back(polygon[i % polygon.size()].x);
      flat.points.push_back(polygon[i % polygon.size()].y);
    }
  }
  return flat;
}

bool every_edge_keeps_its_direction(const PointRun& before, const PointRun& after) {
  for (std::size_t i = 0; i < before.size(); ++i) {
    const std::size_t j = (i + 1) % before.size();
    const double along = (before[j].x - before[i].x) * (after[j].x - after[i].x) +
                         (before[j].y - before[i].y) * (after[j].y - after[i].y);
    if (!(along > 0.0) && before[i] != before[j]) return false;
  }
  return true;
}

}  // namespace

FencePolygons fence_polygons(const Options& options) {
  if (!options.fence.empty())
    return {{{options.fence[0], options.fence[1]}, {options.fence[2], options.fence[3]}}};
  return read_polygons(find_fence_file(options.fence_file, options.explain));
}

FencePolygons grow_fence(const FencePolygons& polygons, double distance) {
  if (distance == 0.0) return polygons;
  log_line(Topic::kFence, "growing it by %g", distance);
  FencePolygons sources = polygons;
  // A rectangle of two points keeps its result only where it comes last, and here it is alone; its corners
  // are put in order first, so that both fences list them alike.
  for (PointRun& polygon : sources)
    if (polygon.size() == 2) polygon = {corners_of(polygon)[0], corners_of(polygon)[2]};
  FlatPolygons flat = flatten(sources, true);
  std::vector<double> grown(flat.points.size());
  if (CLGrowPolygons(2, static_cast<int>(flat.counts.size()), flat.counts.data(), flat.points.data(),
                     distance, grown.data()) != CL_OK)
    throw Problem("--grow: out of memory");
  FencePolygons result;
  const double* at = grown.data();
  for (std::size_t k = 0; k < sources.size(); ++k) {
    PointRun ring;
    for (std::size_t i = 0; i < sources[k].size(); ++i) ring.push_back({at[2 * i], at[2 * i + 1]});
    at += 2 * flat.counts[k];
    if (!every_edge_keeps_its_direction(sources[k], ring))
      throw Problem("--grow: an edge of the fence shrinks to nothing");
    result.push_back(std::move(ring));
  }
  return result;
}

Fence define_fence(const FencePolygons& polygons, const Options& options, double factor) {
  const int dim = options.depth ? 3 : 2;
  const double low = options.depth ? options.depth->low * factor : 0.0;
  const double high = options.depth ? options.depth->high * factor : 0.0;
  FlatPolygons flat = flatten(polygons, false);
  std::vector<double> points;
  for (std::size_t i = 0; i < flat.points.size(); ++i) {
    points.push_back(flat.points[i] * factor);
    if (dim == 3 && i % 2 == 1) points.push_back(low);
  }
  CLFenceHandle handle = nullptr;
  const int status = CLdefFence(&handle, dim, static_cast<int>(flat.counts.size()), flat.counts.data(),
                                points.data(), low, high, options.outside ? CL_KEEP_OUTSIDE : CL_KEEP_INSIDE);
  if (status != CL_OK) throw Problem("the fence cannot be defined (status " + std::to_string(status) + ")");
  return Fence(handle);
}

}  // namespace Corvane::Print::plotclip
