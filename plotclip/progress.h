// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A line on stderr that tells how far long work has come. Nothing is shown where stderr is no terminal, or
// while the work has taken less than a moment.
#ifndef CORVANE_PRINT_PLOTCLIP_PROGRESS_H
#define CORVANE_PRINT_PLOTCLIP_PROGRESS_H

#include <chrono>
#include <cstddef>

namespace Corvane::Print::plotclip {

class Progress {
public:
  explicit Progress(std::size_t total);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  void advance(std::size_t amount);

private:
  using Clock = std::chrono::steady_clock;
  const std::size_t total_;
  const bool shown_;
  std::size_t done_ = 0;
  Clock::time_point next_;
  bool wrote_ = false;
};

}  // namespace Corvane::Print::plotclip

#endif
