// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Defining a fence and releasing it. Others that prepare a polygon for many questions are asked one, because
// they put the work off until then.
#include "bench/ours.h"
#include "bench/peer.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace Corvane::Print::bench {
namespace {

struct Inputs {
  Points ring, copy;
  int words[14] = {};
  explicit Inputs(int n) : ring(fence_ring(Family::kRough, n)), copy(ring) {}
};

Entrant ours(Inputs& in) {
  return {kOurName, Kind::kOurs,
          [&in] {
            const Fence fence(in.ring, CL_KEEP_INSIDE);
            require_ok("CLinqFenceInfo", CLinqFenceInfo(fence.handle(), in.words));
          },
          [&in] {
            double extent[4];
            std::memcpy(extent, in.words, sizeof extent);  // xmin, ymin, zmin, xmax
            return Answer{extent[3] - extent[0], {}, {}};
          }};
}

Entrant copy_bytes(Inputs& in) {
  return {"memcpy",
          Kind::kBound,
          [&in] {
            std::memcpy(in.copy.data(), in.ring.data(), in.ring.size() * sizeof(Point));
            benchmark::ClobberMemory();
          },
          {}};
}

Prepared prepare(int n) {
  const auto in = std::make_shared<Inputs>(n);
  Prepared prepared = {in, {ours(*in), copy_bytes(*in)}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.prepare_polygon(in->ring); });
  return prepared;
}

}  // namespace

void add_fence_jobs(Jobs& jobs, bool quick) {
  for (const int n : {100, 1000, 10000, 100000}) {
    if (quick && n > 100) break;
    jobs.push_back({"fences", "define", n, 1, {}, [n] { return prepare(n); }});
  }
}

}  // namespace Corvane::Print::bench
