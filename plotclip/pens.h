// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The colours of the pens.
#ifndef CORVANE_PRINT_PLOTCLIP_PENS_H
#define CORVANE_PRINT_PLOTCLIP_PENS_H

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

// What the drawing says, else the usual eight of a pen carousel: black, red, green, yellow, blue, magenta,
// cyan and, for pen 8, orange; further pens begin anew.
Colour pen_colour(const Drawing& drawing, int pen);

// The colour mixed with white: `strength` 1 leaves it, 0 gives white.
Colour pale(const Colour& colour, double strength);

}  // namespace Corvane::Print::plotclip

#endif
