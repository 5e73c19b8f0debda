// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The smallest upright rectangle around drawings and fences, by which pictures are framed.
#ifndef CORVANE_PRINT_PLOTCLIP_EXTENT_H
#define CORVANE_PRINT_PLOTCLIP_EXTENT_H

#include <algorithm>

#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

// The rectangle around everything that was added; without an area at the origin until then. Depths do not
// count.
class Extent {
public:
  void add(const PointRun& run);
  void add(const std::vector<PointRun>& runs);
  void add(const Drawing& drawing);

  double left() const { return low_[0]; }
  double bottom() const { return low_[1]; }
  double right() const { return high_[0]; }
  double top() const { return high_[1]; }
  double width() const { return right() - left(); }
  double height() const { return top() - bottom(); }
  double longer_side() const { return std::max(width(), height()); }

private:
  bool empty_ = true;
  double low_[2] = {0.0, 0.0};
  double high_[2] = {0.0, 0.0};
};

}  // namespace Corvane::Print::plotclip

#endif
