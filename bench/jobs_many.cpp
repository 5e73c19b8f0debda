// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// 1000 small subjects against one fence: what they have in common with it, one subject after the other.
#include "bench/ours.h"
#include "bench/peer.h"

namespace Corvane::Print::bench {
namespace {

struct Inputs {
  std::vector<Points> subjects = many_subjects();
  Points ring;
  Fence fence;
  Clip result;
  explicit Inputs(int n) : ring(fence_ring(Family::kRough, n)), fence(ring, CL_KEEP_INSIDE) {}

  void clip_all() {
    for (const Points& subject : subjects) result.polygon(fence, subject);
  }
  Answer clip_and_sum() {
    Answer sum = {0.0, 0, {}};
    for (const Points& subject : subjects) {
      result.polygon(fence, subject);
      *sum.measure += result.area();
      *sum.pieces += result.pieces();
    }
    return sum;
  }
};

Prepared prepare(int n, std::size_t n_subjects) {
  const auto in = std::make_shared<Inputs>(n);
  Inputs* const p = in.get();
  p->subjects.resize(n_subjects);
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->clip_all(); }, [p] { return p->clip_and_sum(); }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.many(in->subjects, in->ring); });
  return prepared;
}

}  // namespace

void add_many_jobs(Jobs& jobs, bool quick) {
  const int subjects = quick ? 50 : 1000;
  for (const int n : {1000, 10000, 100000}) {
    if (quick && n > 1000) break;
    jobs.push_back({"many", "subjects", n, subjects, {}, [=] {
                      return prepare(n, static_cast<std::size_t>(subjects));
                    }});
  }
}

}  // namespace Corvane::Print::bench
