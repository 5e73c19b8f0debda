// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Reading a drawing of whatever format.
#ifndef CORVANE_PRINT_PLOTCLIP_INPUT_H
#define CORVANE_PRINT_PLOTCLIP_INPUT_H

#include <optional>
#include <string>

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

// Plot files are known by their name's extension; everything else goes to GDAL where plotclip was built with
// it, and is read as a plot file where not. Throws a Problem.
Drawing read_drawing(const std::string& name);

// Reads by GDAL; nothing where plotclip was built without it, in which case input_no_gdal.cpp stands in for
// input_gdal.cpp. Layers (of DXF files: the values of the field Layer) become pens in the order of their
// appearance. Throws a Problem.
std::optional<Drawing> read_with_gdal(const std::string& name);

}  // namespace Corvane::Print::plotclip

#endif
