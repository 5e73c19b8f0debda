// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See extent.h. Points go to the library in blocks, together with the corners of what was added before, so
// that large drawings need no second copy of all their points.
#include "plotclip/extent.h"

#include "corvane/print/geom.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr int kBlock = 512;  // points; more than the two corners

// Appends points of the run from `next` on until the block is full; returns how many points it then holds.
int fill(double (*block)[2], int count, const PointRun& run, std::size_t& next) {
  for (; count < kBlock && next < run.size(); ++count, ++next) {
    block[count][0] = run[next].x;
    block[count][1] = run[next].y;
  }
  return count;
}

}  // namespace

void Extent::add(const PointRun& run) {
  double block[kBlock][2];
  for (std::size_t next = 0; next < run.size();) {
    const int corners = empty_ ? 0 : 2;
    if (!empty_) {
      std::copy_n(low_, 2, block[0]);
      std::copy_n(high_, 2, block[1]);
    }
    GEOMComputeMinEnclRect(fill(block, corners, run, next), block, low_, high_);
    empty_ = false;
  }
}

void Extent::add(const std::vector<PointRun>& runs) {
  for (const PointRun& run : runs) add(run);
}

void Extent::add(const Drawing& drawing) {
  for (const Path& path : drawing.paths) add(path.runs);
}

}  // namespace Corvane::Print::plotclip
