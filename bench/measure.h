// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Timing of the entrants of a job, and the file of results.
#ifndef CORVANE_PRINT_BENCH_MEASURE_H
#define CORVANE_PRINT_BENCH_MEASURE_H

#include "bench/job.h"

#include <fstream>

namespace Corvane::Print::bench {

// CPU nanoseconds of one run, over the repetitions.
struct Timing {
  double median = 0, lowest = 0, highest = 0;
  int repetitions = 0;
};

// Times entrants of a job, in the order given. With --benchmark_enable_random_interleaving their repetitions
// take turns, so that what disturbs the machine for a while disturbs all of them alike.
std::vector<Timing> time_entrants(const std::vector<const Entrant*>& entrants);

class Results {
public:
  // An empty name: nothing is written.
  explicit Results(const std::string& file);
  void context();
  void add(const Job& job, const Entrant& entrant, const Timing& timing);

private:
  std::ofstream out_;
};

}  // namespace Corvane::Print::bench

#endif
