// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The fence file: plain text, one point a line as two numbers, x and y, apart by blanks or a comma. A blank
// line or the word `polygon` alone on a line separates polygons; `#` starts a comment. A polygon is listed
// without repeating its first point (a repeated one is dropped); two points are opposite corners of an
// upright rectangle.
#ifndef CORVANE_PRINT_PLOTCLIP_FENCE_FILE_H
#define CORVANE_PRINT_PLOTCLIP_FENCE_FILE_H

#include <optional>
#include <string_view>
#include <vector>

#include "plotclip/drawing.h"
#include "plotclip/hpgl_lexer.h"

namespace Corvane::Print::plotclip {

std::optional<ReadProblem> parse_fence_file(std::string_view text, std::vector<PointRun>& polygons);

}  // namespace Corvane::Print::plotclip

#endif
