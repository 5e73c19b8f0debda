// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Moving every edge of a ring outward or inward. Others also remove what crosses itself afterwards; the
// inputs have no such places, so the areas agree, but the time is not for the same work.
#include "bench/ours.h"
#include "bench/peer.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstring>

namespace Corvane::Print::bench {
namespace {

struct Inputs {
  Points ring, grown;
  int count;
  double distance;
  Inputs(Family family, int n, double d)
      : ring(bench::ring({family, n, 7})), grown(ring), count(n), distance(d) {}
};

Entrant ours(Inputs& in) {
  return {kOurName, Kind::kOurs,
          [&in] {
            // Neither is written; the interface is older than const.
            double* const points = const_cast<double*>(flat(in.ring));
            require_ok("CLGrowPolygons",
                       CLGrowPolygons(2, 1, &in.count, points, in.distance, &in.grown.front().x));
          },
          [&in] {
            return Answer{signed_area(in.grown), {}, {}};
          }};
}

Entrant copy_bytes(Inputs& in) {
  const auto copy = std::make_shared<Points>(in.ring);
  return {"memcpy",
          Kind::kBound,
          [&in, copy] {
            std::memcpy(copy->data(), in.ring.data(), in.ring.size() * sizeof(Point));
            benchmark::ClobberMemory();
          },
          {}};
}

Prepared prepare(Family family, int n, double distance) {
  const auto in = std::make_shared<Inputs>(family, n, distance);
  Prepared prepared = {in, {ours(*in), copy_bytes(*in)}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.grown(in->ring, distance); });
  return prepared;
}

}  // namespace

void add_grow_jobs(Jobs& jobs, bool quick) {
  for (const Family family : {Family::kRough, Family::kWavy}) {
    for (const double distance : {20.0, -20.0}) {
      const std::string task = std::string(letter(family)) + (distance > 0 ? "-outward" : "-inward");
      const int n = quick ? 1000 : 10000;
      jobs.push_back({"growing", task, n, 1, {}, [=] { return prepare(family, n, distance); }});
    }
  }
}

}  // namespace Corvane::Print::bench
