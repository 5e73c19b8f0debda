// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// This library as hosts use it: a fence that is defined once, and clip memory that is kept from call to call.
#ifndef CORVANE_PRINT_BENCH_OURS_H
#define CORVANE_PRINT_BENCH_OURS_H

#include "bench/generators.h"
#include "bench/job.h"

#include "corvane/print/cl.h"

namespace Corvane::Print::bench {

inline constexpr const char* kOurName = "Corvane";

// Ends the program with a message unless a call of the library succeeded.
[[noreturn]] void give_up(const char* call, int status);

inline void require_ok(const char* call, int status) {
  if (status != 0) give_up(call, status);
}

// Points as the library takes them.
inline const double* flat(const Points& points) {
  return &points.front().x;
}

class Fence {
public:
  Fence(const Points& ring, int mode);
  ~Fence() { CLdeleteFence(handle_); }
  Fence(const Fence&) = delete;
  Fence& operator=(const Fence&) = delete;
  CLFenceHandle handle() const { return handle_; }

private:
  CLFenceHandle handle_ = nullptr;
};

// The result of a clip, in memory that grows until it is enough.
class Clip {
public:
  Clip() = default;
  ~Clip();
  Clip(const Clip&) = delete;
  Clip& operator=(const Clip&) = delete;

  void polygon(const Fence& fence, const Points& subject);
  void line(const Fence& fence, const Points& line);

  double area() const;  // of what was kept: pieces run clockwise, holes the other way round
  double length() const;
  long pieces() const;  // those that have points
  long points() const { return points_; }

private:
  template <class Call>
  void repeat(const char* name, Call call);
  template <class Measure>
  double sum(Measure measure) const;

  CLclpMemType memory_ = {3, 25, 0, nullptr, 150, 0, nullptr};
  int pieces_ = 0, points_ = 0;
};

}  // namespace Corvane::Print::bench

#endif
