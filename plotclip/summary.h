// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The summary on stdout, and the same figures for the log.
#ifndef CORVANE_PRINT_PLOTCLIP_SUMMARY_H
#define CORVANE_PRINT_PLOTCLIP_SUMMARY_H

#include "plotclip/drawing.h"
#include "plotclip/fence.h"
#include "plotclip/options.h"

namespace Corvane::Print::plotclip {

void tell_input(const Options& options, const Drawing& drawing, const Figures& in);

// `listed` are the fence's polygons as its file lists them, before they are grown to `fence`.
void tell_fence(const Options& options, const FencePolygons& listed, const FencePolygons& fence);

void tell_result(const Figures& in, const Figures& out, double seconds);

}  // namespace Corvane::Print::plotclip

#endif
