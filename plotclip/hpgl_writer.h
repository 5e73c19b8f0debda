// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Writes a drawing as a plot file that read_hpgl reads back: the same paths, pens, widths, colours and fills,
// coordinates to 0.0001 of a unit.
#ifndef CORVANE_PRINT_PLOTCLIP_HPGL_WRITER_H
#define CORVANE_PRINT_PLOTCLIP_HPGL_WRITER_H

#include <string>

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

std::string write_hpgl(const Drawing& drawing);

}  // namespace Corvane::Print::plotclip

#endif
