// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Scaling, turning and moving a drawing, in this order, before it is clipped. Depths stay as they are.
#ifndef CORVANE_PRINT_PLOTCLIP_TRANSFORM_H
#define CORVANE_PRINT_PLOTCLIP_TRANSFORM_H

#include "plotclip/drawing.h"
#include "plotclip/options.h"

namespace Corvane::Print::plotclip {

void transform(Drawing& drawing, const Options& options);

// Multiplies every coordinate, depths and hatch spacings included.
void multiply(Drawing& drawing, double factor);

}  // namespace Corvane::Print::plotclip

#endif
