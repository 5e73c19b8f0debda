// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "bench/options.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

namespace Corvane::Print::bench {
namespace {

constexpr const char* kUsage =
    "corvane_bench [--quick] [--list] [--filter=REGEX] [--leave-out=FILE] [--out=FILE] [--benchmark_...]\n"
    "  --quick           the smallest size of every job\n"
    "  --list            names the jobs and stops\n"
    "  --filter=REGEX    jobs whose name, family/task/size, it is found in\n"
    "  --leave-out=FILE  lines \"job entrant\": not run\n"
    "  --out=FILE        writes the results, a JSON object a line\n";

// The rest of an argument that begins with the option; null for another argument.
const char* value_of(const char* argument, const std::string& option) {
  const std::string text = argument;
  return text.starts_with(option) ? argument + option.size() : nullptr;
}

std::set<std::string> lines_of(const char* file) {
  std::ifstream in(file);
  if (!in) {
    std::fprintf(stderr, "bench: cannot read %s\n", file);
    std::exit(2);
  }
  std::set<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.insert(line);
  return lines;
}

bool take(Options& options, const char* argument) {
  const std::string text = argument;
  if (text == "--quick") {
    options.quick = true;
  } else if (text == "--list") {
    options.list = true;
  } else if (text == "--help") {
    std::fputs(kUsage, stdout);
    std::exit(0);
  } else if (const char* filter = value_of(argument, "--filter=")) {
    options.filter = filter;
  } else if (const char* file = value_of(argument, "--leave-out=")) {
    options.left_out = lines_of(file);
  } else if (const char* out = value_of(argument, "--out=")) {
    options.out = out;
  } else {
    return false;
  }
  return true;
}

}  // namespace

Options read_options(int& argc, char** argv) {
  Options options;
  int kept = 1;
  for (int i = 1; i < argc; ++i) {
    if (!take(options, argv[i])) argv[kept++] = argv[i];
  }
  argc = kept;
  argv[argc] = nullptr;
  return options;
}

}  // namespace Corvane::Print::bench
