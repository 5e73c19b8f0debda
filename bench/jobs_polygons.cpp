// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Two rings of the same family and size: what they have in common, and what the first has alone.
#include "bench/ours.h"
#include "bench/peer.h"

namespace Corvane::Print::bench {
namespace {

struct Inputs {
  Points subject, clip;
  Fence fence;
  Clip result, variant_result;
  Inputs(Family family, int n, int mode)
      : subject(polygon_subject(family, n)), clip(polygon_clip(family, n)), fence(clip, mode) {}
};

Entrant clip_against_fence(Inputs& in) {
  return {kOurName, Kind::kOurs, [&in] { in.result.polygon(in.fence, in.subject); },
          [&in] {
            return Answer{in.result.area(), in.result.pieces(), {}};
          }};
}

// What it costs when the fence is used once only.
Entrant define_and_clip(Inputs& in, int mode) {
  return {"Corvane, fence defined anew", Kind::kVariant,
          [&in, mode] {
            const Fence fence(in.clip, mode);
            in.variant_result.polygon(fence, in.subject);
          },
          [&in] {
            return Answer{in.variant_result.area(), in.variant_result.pieces(), {}};
          }};
}

Prepared prepare(Family family, int n, int mode) {
  const auto in = std::make_shared<Inputs>(family, n, mode);
  Prepared prepared = {in, {clip_against_fence(*in), define_and_clip(*in, mode)}};
  add_peers(prepared.entrants, [&](const Peer& peer) {
    return mode == CL_KEEP_INSIDE ? peer.intersection(in->subject, in->clip)
                                  : peer.difference(in->subject, in->clip);
  });
  return prepared;
}

constexpr int kSizes[] = {100, 1000, 10000, 100000};

// One row per family, one entry per size.
constexpr double kCommonArea[][4] = {{1.44851e12, 1.41746e12, 1.43263e12, 1.44767e12},
                                     {1.68542e12, 1.75825e12, 1.7663e12, 1.76707e12},
                                     {1.18437e12, 1.18372e12, 1.18369e12, 1.18369e12}};
constexpr long kDifferencePieces[][4] = {{28, 260, 2752, 27832}, {28, 260, 2755, 27766}, {2, 2, 2, 2}};

void add(Jobs& jobs, Family family, int mode, bool quick) {
  const auto row = static_cast<int>(family);
  for (int i = 0; i < (quick ? 1 : 4); ++i) {
    const int n = kSizes[i];
    const bool inside = mode == CL_KEEP_INSIDE;
    const Answer known =
        inside ? Answer{kCommonArea[row][i], 1, {}} : Answer{{}, kDifferencePieces[row][i], {}};
    jobs.push_back({"polygons", std::string(letter(family)) + (inside ? "-int" : "-dif"), n, 1, known,
                    [=] { return prepare(family, n, mode); }});
  }
}

}  // namespace

void add_polygon_jobs(Jobs& jobs, bool quick) {
  for (const int mode : {CL_KEEP_INSIDE, CL_KEEP_OUTSIDE}) {
    for (const Family family : kFamilies) add(jobs, family, mode, quick);
  }
}

}  // namespace Corvane::Print::bench
