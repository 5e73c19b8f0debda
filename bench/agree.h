// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The check before the timing: everybody does the job once, and the answers are compared.
#ifndef CORVANE_PRINT_BENCH_AGREE_H
#define CORVANE_PRINT_BENCH_AGREE_H

#include "bench/job.h"

namespace Corvane::Print::bench {

// CPU time of this process.
double cpu_seconds();

// Runs every entrant once and compares its answer with ours and with what is known of the job. Says on stderr
// what differs. `seconds` receives each entrant's CPU time.
bool all_agree(const Job& job, const Prepared& prepared, std::vector<double>& seconds);

}  // namespace Corvane::Print::bench

#endif
