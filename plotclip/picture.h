// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Draws what was kept as an SVG, PDF or PNG picture on white ground.
#ifndef CORVANE_PRINT_PLOTCLIP_PICTURE_H
#define CORVANE_PRINT_PLOTCLIP_PICTURE_H

#include <string>

#include "plotclip/drawing.h"
#include "plotclip/fence.h"

namespace Corvane::Print::plotclip {

struct Scene {
  const Drawing* ghost = nullptr;  // drawn pale behind; may be null
  const Drawing* kept = nullptr;
  const FencePolygons* fence = nullptr;
  int size = 0;  // longer side in pixels or points; 0 for the format's usual size
};

bool is_picture_format(const std::string& extension);

// Writes the picture that the name's extension asks for. Throws a Problem.
void write_picture(const std::string& name, const Scene& scene);

}  // namespace Corvane::Print::plotclip

#endif
