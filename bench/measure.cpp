// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The benchmark library decides how often a run is repeated until its time can be trusted; its flags on the
// command line apply.
#include "bench/measure.h"

#include "bench/peer.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace Corvane::Print::bench {
namespace {

// The times of each benchmark, which is named by its number.
class Collector : public benchmark::BenchmarkReporter {
public:
  explicit Collector(std::size_t benchmarks) : times(benchmarks) {}
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const Run& run : runs) {
      if (run.run_type != Run::RT_Iteration) continue;
      times.at(std::stoul(run.run_name.function_name)).push_back(run.GetAdjustedCPUTime());
    }
  }
  std::vector<std::vector<double>> times;  // nanoseconds, which is the library's default unit
};

Timing timing_of(std::vector<double>& times) {
  if (times.empty()) return {};
  std::sort(times.begin(), times.end());
  const std::size_t half = times.size() / 2;
  const double median = times.size() % 2 != 0 ? times[half] : (times[half - 1] + times[half]) / 2;
  return {median, times.front(), times.back(), static_cast<int>(times.size())};
}

std::string quoted(const std::string& text) {
  return '"' + text + '"';
}

const char* name_of(Kind kind) {
  static const char* const names[] = {"ours", "variant", "peer", "bound"};
  return names[static_cast<int>(kind)];
}

}  // namespace

std::vector<Timing> time_entrants(const std::vector<const Entrant*>& entrants) {
  if (entrants.empty()) return {};
  for (std::size_t i = 0; i < entrants.size(); ++i) {
    benchmark::RegisterBenchmark(std::to_string(i).c_str(), [entrant = entrants[i]](benchmark::State& state) {
      // Not timed: the others have left the caches with their data and the heap as they needed it.
      entrant->run();
      for (auto _ : state) entrant->run();
    });
  }
  Collector collector(entrants.size());
  benchmark::RunSpecifiedBenchmarks(&collector, ".*");
  benchmark::ClearRegisteredBenchmarks();
  std::vector<Timing> timings;
  for (std::vector<double>& times : collector.times) timings.push_back(timing_of(times));
  return timings;
}

Results::Results(const std::string& file) {
  if (file.empty()) return;
  out_.open(file);
  if (out_) return;
  std::fprintf(stderr, "bench: cannot write %s\n", file.c_str());
  std::exit(2);
}

void Results::context() {
  out_ << "{\"versions\": {\"g++\": " << quoted(__VERSION__);
  for (const Peer* peer : peers()) out_ << ", " << quoted(peer->name()) << ": " << quoted(peer->version());
  out_ << "}}" << std::endl;
}

void Results::add(const Job& job, const Entrant& entrant, const Timing& timing) {
  const auto items = static_cast<double>(job.items);
  out_ << "{\"job\": " << quoted(job.name()) << ", \"family\": " << quoted(job.family)
       << ", \"task\": " << quoted(job.task) << ", \"size\": " << job.size << ", \"items\": " << job.items
       << ", \"who\": " << quoted(entrant.who) << ", \"kind\": " << quoted(name_of(entrant.kind))
       << ", \"ns\": " << timing.median / items << ", \"lowest\": " << timing.lowest / items
       << ", \"highest\": " << timing.highest / items << ", \"repetitions\": " << timing.repetitions << "}"
       << std::endl;
}

}  // namespace Corvane::Print::bench
