// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "bench/ours.h"

#include <cstdio>
#include <cstdlib>

namespace Corvane::Print::bench {

void give_up(const char* call, int status) {
  std::fprintf(stderr, "bench: %s returned %d\n", call, status);
  std::exit(1);
}

Fence::Fence(const Points& ring, int mode) {
  int count = static_cast<int>(ring.size());
  require_ok("CLdefFence", CLdefFence(&handle_, 2, 1, &count, flat(ring), 0.0, 0.0, mode));
}

Clip::~Clip() {
  std::free(memory_.counts);
  std::free(memory_.points);
}

// Once the memory is large enough this is one call of the library.
template <class Call>
void Clip::repeat(const char* name, Call call) {
  int status = CL_TOO_SMALL;
  if (memory_.counts == nullptr) require_ok("CLreallocClpMem", CLreallocClpMem(&memory_));
  while (true) {
    pieces_ = memory_.polyCapacity;
    points_ = memory_.pointCapacity;
    status = call(&pieces_, memory_.counts, memory_.points, &points_);
    if (status != CL_TOO_SMALL) break;
    memory_.polyRequest = pieces_;
    memory_.pointRequest = points_;
    require_ok("CLreallocClpMem", CLreallocClpMem(&memory_));
  }
  require_ok(name, status);
}

void Clip::polygon(const Fence& fence, const Points& subject) {
  const int n = static_cast<int>(subject.size());
  repeat("CLclipPolygon", [&](int* pieces, int* counts, double* out, int* points) {
    return CLclipPolygon(fence.handle(), 2, n, flat(subject), pieces, counts, out, points);
  });
}

void Clip::line(const Fence& fence, const Points& line) {
  const int n = static_cast<int>(line.size());
  repeat("CLclipLine", [&](int* pieces, int* counts, double* out, int* points) {
    return CLclipLine(fence.handle(), 2, n, flat(line), pieces, counts, out, points);
  });
}

template <class Measure>
double Clip::sum(Measure measure) const {
  double total = 0;
  const Point* at = reinterpret_cast<const Point*>(memory_.points);
  for (int i = 0; i < pieces_; ++i) {
    total += measure(Points(at, at + memory_.counts[i]));
    at += memory_.counts[i];
  }
  return total;
}

double Clip::area() const {
  return -sum(signed_area);
}

double Clip::length() const {
  return sum(bench::length);
}

long Clip::pieces() const {
  long count = 0;
  for (int i = 0; i < pieces_; ++i) count += memory_.counts[i] > 0 ? 1 : 0;
  return count;
}

}  // namespace Corvane::Print::bench
