// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See pens.h. The tones are darker than the pure colours, which are hard to see as thin lines on white.
#include "plotclip/pens.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr Colour kCarousel[] = {
    {0.10, 0.10, 0.12},  // black
    {0.80, 0.13, 0.13},  // red
    {0.10, 0.52, 0.20},  // green
    {0.78, 0.62, 0.05},  // yellow
    {0.12, 0.30, 0.75},  // blue
    {0.66, 0.15, 0.60},  // magenta
    {0.05, 0.55, 0.62},  // cyan
    {0.88, 0.45, 0.08},  // orange
};
constexpr int kCarouselSize = static_cast<int>(sizeof kCarousel / sizeof kCarousel[0]);

}  // namespace

Colour pen_colour(const Drawing& drawing, int pen) {
  const auto set = drawing.colours.find(pen);
  if (set != drawing.colours.end()) return set->second;
  return kCarousel[pen < 1 ? 0 : (pen - 1) % kCarouselSize];
}

Colour pale(const Colour& colour, double strength) {
  const auto mix = [strength](double v) { return 1.0 - (1.0 - v) * strength; };
  return {mix(colour.r), mix(colour.g), mix(colour.b)};
}

}  // namespace Corvane::Print::plotclip
