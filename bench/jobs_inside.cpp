// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Which of 10,000 probes lie inside a ring. The library has no call for one probe alone: the probes are one
// polyline whose runs are single points, of which the clip keeps those inside.
#include "bench/ours.h"
#include "bench/peer.h"

namespace Corvane::Print::bench {
namespace {

struct Inputs {
  Points probes, runs, ring;
  Fence fence;
  Clip result;
  Inputs(int n_probes, int n_ring)
      : probes(uniform(n_probes, 8, {-1e6, 1e6}, {-1e6, 1e6})),
        ring(fence_ring(Family::kRough, n_ring)),
        fence(ring, CL_KEEP_INSIDE) {
    for (const Point& probe : probes) {
      if (!runs.empty()) runs.push_back({CL_BREAK, 0});
      runs.push_back(probe);
    }
  }
};

Prepared prepare(int n_probes, int n_ring) {
  const auto in = std::make_shared<Inputs>(n_probes, n_ring);
  Inputs* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->result.line(p->fence, p->runs); },
                         [p] {
                           return Answer{{}, {}, p->result.points()};
                         }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.inside(in->probes, in->ring); });
  return prepared;
}

}  // namespace

void add_inside_jobs(Jobs& jobs, bool quick) {
  const int probes = quick ? 100 : 10000;
  for (const int n : {1000, 10000, 100000}) {
    if (quick && n > 1000) break;
    jobs.push_back({"inside", "probes", n, probes, {}, [=] { return prepare(probes, n); }});
  }
}

}  // namespace Corvane::Print::bench
