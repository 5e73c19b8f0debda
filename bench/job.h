// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What a job is: one task on one input, done by this library and by others, whose answers must agree before
// anything is timed.
#ifndef CORVANE_PRINT_BENCH_JOB_H
#define CORVANE_PRINT_BENCH_JOB_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Corvane::Print::bench {

// What can be compared about a result. Only what both sides know is compared.
struct Answer {
  std::optional<double> measure = {};  // area, length, sum: whatever the job compares
  std::optional<long> pieces = {};
  std::optional<long> points = {};
};

enum class Kind {
  kOurs,     // this library, in the way that hosts use it
  kVariant,  // this library in another way
  kPeer,     // another library with the same task
  kBound     // what the machine needs at least, such as a copy of the same bytes
};

struct Entrant {
  std::string who;
  Kind kind;
  std::function<void()> run;       // what is timed; may be repeated
  std::function<Answer()> answer;  // about what `run` left behind; empty for a bound
  double tolerance = 1e-9;         // of the measure, relative
};

// Inputs and entrants of a job; exists only while the job is at work.
struct Prepared {
  std::shared_ptr<void> inputs;
  std::vector<Entrant> entrants;  // ours first
};

struct Job {
  std::string family;  // of jobs that are shown together
  std::string task;    // without the size
  long size;           // what the growth exponent is about
  long items = 1;      // times are reported per item
  Answer known = {};   // what the result is known to be; the measure to six digits
  std::function<Prepared()> prepare;

  std::string name() const { return family + "/" + task + "/" + std::to_string(size); }
};
using Jobs = std::vector<Job>;

// The jobs of a family. A quick run has the smallest sizes only, to see whether everything works.
void add_polygon_jobs(Jobs& jobs, bool quick);
void add_rect_line_jobs(Jobs& jobs, bool quick);
void add_polyline_jobs(Jobs& jobs, bool quick);
void add_inside_jobs(Jobs& jobs, bool quick);
void add_many_jobs(Jobs& jobs, bool quick);
void add_fence_jobs(Jobs& jobs, bool quick);
void add_grow_jobs(Jobs& jobs, bool quick);
void add_matrix_jobs(Jobs& jobs, bool quick);
void add_name_jobs(Jobs& jobs, bool quick);
void add_search_jobs(Jobs& jobs, bool quick);
void add_list_jobs(Jobs& jobs, bool quick);

}  // namespace Corvane::Print::bench

#endif
