// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Outputs by the extension of their name: pictures (.svg .pdf .png) and plot files (.plt .hpgl).
#ifndef CORVANE_PRINT_PLOTCLIP_OUTPUT_H
#define CORVANE_PRINT_PLOTCLIP_OUTPUT_H

#include <string>

#include "plotclip/drawing.h"
#include "plotclip/fence.h"
#include "plotclip/options.h"

namespace Corvane::Print::plotclip {

// `extension` in small letters, without the dot.
bool is_output_format(const std::string& extension);

// Writes what is kept; pictures also show the fence and, when the options ask for it, the whole drawing pale
// behind. Throws a Problem.
void write_output(const std::string& name, const Drawing& original, const Drawing& kept,
                  const FencePolygons& fence, const Options& options);

}  // namespace Corvane::Print::plotclip

#endif
