// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the program is asked to do.
#ifndef CORVANE_PRINT_BENCH_OPTIONS_H
#define CORVANE_PRINT_BENCH_OPTIONS_H

#include <set>
#include <string>

namespace Corvane::Print::bench {

struct Options {
  bool quick = false;              // smallest sizes
  bool list = false;               // name the jobs and stop
  std::string filter = ".*";       // jobs whose name the regular expression is found in
  std::string out;                 // results, a JSON object a line
  std::set<std::string> left_out;  // "job entrant", which would take too long
};

// Takes its own options out of the arguments; leaves the others to the benchmark library. Ends the program
// with a message when they are wrong.
Options read_options(int& argc, char** argv);

}  // namespace Corvane::Print::bench

#endif
