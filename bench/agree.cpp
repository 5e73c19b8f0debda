// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// No shared state.
#include "bench/agree.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

namespace Corvane::Print::bench {
namespace {

// What is known of a measure beforehand is written with six digits.
constexpr double kKnownTolerance = 1e-5;

struct Sides {
  const Job& job;
  std::string who, other;
};

bool same_measure(const Sides& sides, const Answer& a, const Answer& b, double tolerance) {
  if (!a.measure || !b.measure) return true;
  const double difference = std::fabs(*a.measure - *b.measure);
  if (difference <= tolerance * std::max(std::fabs(*a.measure), std::fabs(*b.measure))) return true;
  std::fprintf(stderr, "bench: %s: %s has %.17g, %s has %.17g\n", sides.job.name().c_str(), sides.who.c_str(),
               *a.measure, sides.other.c_str(), *b.measure);
  return false;
}

bool same_count(const Sides& sides, const char* what, std::optional<long> a, std::optional<long> b) {
  if (!a || !b || *a == *b) return true;
  std::fprintf(stderr, "bench: %s: %s has %ld %s, %s has %ld\n", sides.job.name().c_str(), sides.who.c_str(),
               *a, what, sides.other.c_str(), *b);
  return false;
}

bool same(const Sides& sides, const Answer& a, const Answer& b, double tolerance) {
  const bool measures = same_measure(sides, a, b, tolerance);
  const bool pieces = same_count(sides, "pieces", a.pieces, b.pieces);
  return same_count(sides, "points", a.points, b.points) && pieces && measures;
}

}  // namespace

double cpu_seconds() {
  return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

bool all_agree(const Job& job, const Prepared& prepared, std::vector<double>& seconds) {
  bool agree = true;
  Answer ours;
  for (const Entrant& entrant : prepared.entrants) {
    const double from = cpu_seconds();
    entrant.run();
    seconds.push_back(cpu_seconds() - from);
    if (!entrant.answer) continue;
    const Answer answer = entrant.answer();
    if (entrant.kind == Kind::kOurs) {
      ours = answer;
      agree = same({job, entrant.who, "the known result"}, answer, job.known, kKnownTolerance) && agree;
    } else {
      agree =
          same({job, entrant.who, prepared.entrants.front().who}, answer, ours, entrant.tolerance) && agree;
    }
  }
  return agree;
}

}  // namespace Corvane::Print::bench
