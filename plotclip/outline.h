// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A fence's outline by itself: the rectangle that two points stand for, and whether it bounds a plot area.
#ifndef CORVANE_PRINT_PLOTCLIP_OUTLINE_H
#define CORVANE_PRINT_PLOTCLIP_OUTLINE_H

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

// The four corners of the upright rectangle with two opposite corners, counter-clockwise from its smallest
// coordinates.
PointRun corners_of(const PointRun& rectangle);

// Whether the library takes the outline for a rectangular plot area: upright, with width and height on
// coordinates rounded to whole units, traced once or twice. Two points are a rectangle's corners. The outline
// may repeat its first point or not.
bool is_rectangular_plot_area(const PointRun& outline);

}  // namespace Corvane::Print::plotclip

#endif
