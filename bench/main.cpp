// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Runs the jobs one after the other: prepare, let everybody do it once and compare the answers, then time.
// Ends with status 1 when an answer differed; that job is not timed.
#include "bench/agree.h"
#include "bench/generators.h"
#include "bench/measure.h"
#include "bench/options.h"
#include "bench/peer.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <regex>

namespace Corvane::Print::bench {
namespace {

// A run that took longer is its own measurement.
constexpr double kLongRun = 2.0;

Jobs all_jobs(bool quick) {
  Jobs jobs;
  add_polygon_jobs(jobs, quick);
  add_rect_line_jobs(jobs, quick);
  add_polyline_jobs(jobs, quick);
  add_inside_jobs(jobs, quick);
  add_many_jobs(jobs, quick);
  add_fence_jobs(jobs, quick);
  add_grow_jobs(jobs, quick);
  add_matrix_jobs(jobs, quick);
  add_name_jobs(jobs, quick);
  add_search_jobs(jobs, quick);
  add_list_jobs(jobs, quick);
  return jobs;
}

void leave_out(const Options& options, const Job& job, Prepared& prepared) {
  std::erase_if(prepared.entrants, [&](const Entrant& entrant) {
    return options.left_out.count(job.name() + " " + entrant.who) != 0;
  });
}

void show(const Job& job, const Entrant& entrant, const Timing& timing) {
  std::printf("%-28s %-28s %14.1f ns", job.name().c_str(), entrant.who.c_str(),
              timing.median / static_cast<double>(job.items));
  std::printf("   +- %.0f %%\n", 50 * (timing.highest - timing.lowest) / timing.median);
  std::fflush(stdout);
}

bool run_job(const Options& options, const Job& job, Results& results) {
  Prepared prepared = job.prepare();
  leave_out(options, job, prepared);
  std::vector<double> seconds;
  if (!all_agree(job, prepared, seconds)) return false;

  std::vector<const Entrant*> short_runs;
  for (std::size_t i = 0; i < prepared.entrants.size(); ++i) {
    if (seconds[i] <= kLongRun) short_runs.push_back(&prepared.entrants[i]);
  }
  const std::vector<Timing> timings = time_entrants(short_runs);
  std::size_t next = 0;
  for (std::size_t i = 0; i < prepared.entrants.size(); ++i) {
    const double once = 1e9 * seconds[i];
    const Timing timing = seconds[i] > kLongRun ? Timing{once, once, once, 1} : timings[next++];
    show(job, prepared.entrants[i], timing);
    results.add(job, prepared.entrants[i], timing);
  }
  return true;
}

int run(const Options& options) {
  const std::regex wanted(options.filter);
  Results results(options.out);
  results.context();
  int done = 0, disagreed = 0;
  for (const Job& job : all_jobs(options.quick)) {
    if (!std::regex_search(job.name(), wanted)) continue;
    if (options.list) {
      std::printf("%s\n", job.name().c_str());
    } else {
      disagreed += run_job(options, job, results) ? 0 : 1;
    }
    ++done;
  }
  if (done == 0) std::fprintf(stderr, "bench: no job is named like that\n");
  if (!options.list) std::printf("%d jobs, %d with answers that differ\n", done, disagreed);
  return done != 0 && disagreed == 0 ? 0 : 1;
}

}  // namespace
}  // namespace Corvane::Print::bench

int main(int argc, char** argv) {
  using namespace Corvane::Print::bench;
  const Options options = read_options(argc, argv);
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  if (!inputs_are_as_agreed()) return 1;
  try {
    return run(options);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "bench: %s\n", error.what());
    return 1;
  }
}
