// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The clip calls as a test wants them: fences that release themselves, rings in and pieces out, with the
// grow-and-repeat loop of a careful host inside. Arrays are exactly as large as their counts say, with
// canaries behind them.
#ifndef CORVANE_PRINT_TESTS_SUPPORT_CLIP_CALL_H
#define CORVANE_PRINT_TESTS_SUPPORT_CLIP_CALL_H

#include "corvane/print/cl.h"
#include "tests/support/ring.h"

namespace Corvane::Print::tests {

struct FenceShape {
  int dim = 2;
  double zLow = 0, zHigh = 0;
};

class Fence {
public:
  Fence() = default;
  Fence(const Rings& polygons, int mode, FenceShape shape = {});
  Fence(Fence&& other) noexcept;
  Fence& operator=(Fence&& other) noexcept;
  ~Fence();

  int status() const { return status_; }  // of CLdefFence
  CLFenceHandle handle() const { return handle_; }
  CLFenceHandle* slot() { return &handle_; }

private:
  CLFenceHandle handle_ = nullptr;
  int status_ = CL_OK;
};

struct Pieces {
  int status = CL_OK;
  Rings rings;           // also those of 0 points
  bool canaries = true;  // no call wrote past its arrays
  bool counted = true;   // the counts of the pieces add up to the number of points
  int calls = 0;         // how often the arrays had to grow, plus one
};

// Room for the first call; the loop enlarges it.
struct Room {
  int pieces = 25, points = 150;
};

// A status of CL_TOO_SMALL in the result says that the call never was content with what it asked for.
Pieces clip_polygon(const Fence& fence, const Ring& subject, int dim = 2, Room room = {});
Pieces clip_line(const Fence& fence, const Ring& line, int dim = 2, Room room = {});
Pieces extract_polygons(const Fence& fence, int dim = 2, Room room = {});

struct FenceResult {
  int status = CL_OK;
  Fence fence;
};
FenceResult clip_fences(const Fence& clip, const Fence& subject);

}  // namespace Corvane::Print::tests

#endif
