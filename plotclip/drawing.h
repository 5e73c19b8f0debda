// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What plotclip reads, clips and draws: a flat list of paths in the drawing's own unit (plotter units of
// 0.025 mm for plot files), in the order in which they were drawn.
//
// Invariants: every coordinate is finite; a line has exactly one run of one point (a dot) or more; an outline
// or filled path has one or more rings, each listed without repeating its first point, and its area is what
// an odd number of the rings contains. That rule survives clipping ring by ring: a point inside the fence is
// in as many clipped rings as it was in rings before.
#ifndef CORVANE_PRINT_PLOTCLIP_DRAWING_H
#define CORVANE_PRINT_PLOTCLIP_DRAWING_H

#include <cstddef>
#include <map>
#include <vector>

namespace Corvane::Print::plotclip {

struct Point {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  friend bool operator==(const Point&, const Point&) = default;
};

using PointRun = std::vector<Point>;

enum class PathKind { kLine, kOutline, kFilled };

enum class FillType { kSolid, kHatch, kCrossHatch, kShade };

// How a filled path is filled. `spacing` (drawing units) and `angle` (degrees) belong to the hatches, `level`
// (per cent of the pen's colour) to the shade.
struct Fill {
  FillType type = FillType::kSolid;
  double spacing = 0.0;
  double angle = 0.0;
  double level = 100.0;
  friend bool operator==(const Fill&, const Fill&) = default;
};

inline constexpr double kDefaultWidth = 0.35;  // mm, a plotter's usual pen

struct Path {
  PathKind kind = PathKind::kLine;
  int pen = 1;
  double width = kDefaultWidth;  // mm
  Fill fill;
  std::vector<PointRun> runs;
};

// Red, green and blue from 0 to 1.
struct Colour {
  double r = 0.0;
  double g = 0.0;
  double b = 0.0;
  friend bool operator==(const Colour&, const Colour&) = default;
};

struct Drawing {
  std::vector<Path> paths;
  std::map<int, Colour> colours;  // pens whose colour the drawing itself sets
  std::size_t labels = 0;         // texts, counted and passed over
  std::size_t unknown = 0;        // instructions or geometries that are not drawn, counted and passed over
};

// Figures of the summary. Lengths count the lines, areas the outlines and filled paths.
struct Figures {
  std::size_t lines = 0;
  std::size_t polygons = 0;  // rings
  std::size_t points = 0;
  double length = 0.0;
  double area = 0.0;
};

Figures measure(const Drawing& drawing);

// Twice-signed-area halved: positive when the ring runs counter-clockwise.
double signed_area(const PointRun& ring);

}  // namespace Corvane::Print::plotclip

#endif
