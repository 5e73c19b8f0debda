// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// See progress.h. This is the one file of plotclip that asks the operating system something: whether stderr
// is a terminal.
#include "plotclip/progress.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace Corvane::Print::plotclip {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(700);
constexpr auto kInterval = std::chrono::milliseconds(100);

}  // namespace

Progress::Progress(std::size_t total)
    : total_(std::max<std::size_t>(total, 1)),
      shown_(isatty(STDERR_FILENO) != 0),
      next_(Clock::now() + kPatience) {}

Progress::~Progress() {
  if (wrote_) std::fputs("\r\033[K", stderr);
}

void Progress::advance(std::size_t amount) {
  done_ += amount;
  if (!shown_ || Clock::now() < next_) return;
  next_ = Clock::now() + kInterval;
  std::fprintf(stderr, "\rclipping: %3.0f %%",
               100.0 * static_cast<double>(done_) / static_cast<double>(total_));
  std::fflush(stderr);
  wrote_ = true;
}

}  // namespace Corvane::Print::plotclip
