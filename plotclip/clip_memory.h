// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The arrays that a clip writes to, as the library's header describes them: requested, grown on demand, and
// read out piece by piece.
#ifndef CORVANE_PRINT_PLOTCLIP_CLIP_MEMORY_H
#define CORVANE_PRINT_PLOTCLIP_CLIP_MEMORY_H

#include <cstdlib>

#include "corvane/print/cl.h"
#include "plotclip/drawing.h"

namespace Corvane::Print::plotclip {

class ClipMemory {
public:
  ClipMemory() = default;
  ~ClipMemory() {
    std::free(record_.counts);
    std::free(record_.points);
  }
  ClipMemory(const ClipMemory&) = delete;
  ClipMemory& operator=(const ClipMemory&) = delete;

  // Calls `call(record)`, a clip into the record's arrays, until the arrays are large enough.
  template <class Call>
  int repeat(Call call) {
    int status = CL_OK;
    do {
      if ((status = CLreallocClpMem(&record_)) != CL_OK) break;
      status = call(record_);
    } while (status == CL_TOO_SMALL);
    return status;
  }

  // Hands every piece of the last clip to `take(PointRun)`; `dim` doubles a point, multiplied by `factor`.
  template <class Take>
  void pieces(int dim, double factor, Take take) const {
    const double* at = record_.points;
    for (int i = 0; i < record_.polyRequest; ++i) {
      PointRun run;
      for (int n = record_.counts[i]; n > 0; --n, at += dim)
        run.push_back({at[0] * factor, at[1] * factor, dim == 3 ? at[2] * factor : 0.0});
      // A rectangular fence may report a last piece without points.
      if (!run.empty()) take(std::move(run));
    }
  }

private:
  CLclpMemType record_ = {3, 25, 0, nullptr, 150, 0, nullptr};
};

}  // namespace Corvane::Print::plotclip

#endif
