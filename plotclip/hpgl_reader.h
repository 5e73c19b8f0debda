// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Reads plot files in the plotter's own language into a Drawing.
//
// What is drawn: lines (PU PD PA PR PE), arcs (AA AR AT RT CI, as chords), rectangles, wedges and polygons
// (EA ER EW EP as outlines, RA RR WG FP filled), under the scaling of IP and SC. What is not drawn is stepped
// over: texts are counted as labels, instructions that this reader does not know are counted as unknown.
#ifndef CORVANE_PRINT_PLOTCLIP_HPGL_READER_H
#define CORVANE_PRINT_PLOTCLIP_HPGL_READER_H

#include <cstddef>
#include <optional>

#include "plotclip/drawing.h"
#include "plotclip/hpgl_lexer.h"

namespace Corvane::Print::plotclip {

// A file of a few bytes can ask for very many points (filling one polygon again and again, fine chords);
// reading ends with a problem where a drawing would need more.
struct ReadLimits {
  std::size_t points = 20'000'000;
};

// Reads any bytes in time proportional to their number and the limit. On a problem, `drawing` holds what came
// before it.
std::optional<ReadProblem> read_hpgl(Bytes bytes, Drawing& drawing, const ReadLimits& limits = {});

}  // namespace Corvane::Print::plotclip

#endif
