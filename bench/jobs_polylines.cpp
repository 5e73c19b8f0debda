// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A polyline against a polygon of 1000 vertices: a walk that hardly ever crosses it, a hatch that does
// nothing else, and a spiral in between.
#include "bench/ours.h"
#include "bench/peer.h"

namespace Corvane::Print::bench {
namespace {

constexpr int kFenceSize = 1000;

struct Inputs {
  Points line, ring;
  Fence fence;
  Clip result;
  Inputs(Points points, Family family)
      : line(std::move(points)), ring(fence_ring(family, kFenceSize)), fence(ring, CL_KEEP_INSIDE) {}
};

Prepared prepare(Points line, Family family) {
  const auto in = std::make_shared<Inputs>(std::move(line), family);
  Inputs* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->result.line(p->fence, p->line); },
                         [p] {
                           return Answer{p->result.length(), p->result.pieces(), p->result.points()};
                         }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.line_in_polygon(in->line, in->ring); });
  return prepared;
}

struct Shape {
  const char* name;
  Points (*make)(int n);
};
constexpr Shape kShapes[] = {{"walk", [](int n) { return walk(n, 6, 6000); }},
                             {"hatch", hatch},
                             {"spiral", [](int n) { return spiral(n, 50); }}};

// Pieces and points at 100000 points, for the fences B and A.
constexpr long kKnown[][3][2] = {{{86, 52351}, {107783, 215566}, {111, 75239}},
                                 {{3908, 60009}, {2724968, 5449936}, {4273, 83086}}};

void add(Jobs& jobs, int fence_index, int shape_index, int n) {
  const Family family = fence_index == 0 ? Family::kRough : Family::kSpiky;
  const Shape shape = kShapes[shape_index];
  const long* const known = kKnown[fence_index][shape_index];
  jobs.push_back({"polylines", std::string(letter(family)) + "-" + shape.name, n, 1,
                  n == 100000 ? Answer{{}, known[0], known[1]} : Answer{},
                  [=] { return prepare(shape.make(n), family); }});
}

}  // namespace

void add_polyline_jobs(Jobs& jobs, bool quick) {
  for (int fence = 0; fence < 2; ++fence) {
    for (int shape = 0; shape < 3; ++shape) {
      for (const int n : {1000, 10000, 100000}) {
        if (!quick || n == 1000) add(jobs, fence, shape, n);
      }
    }
  }
}

}  // namespace Corvane::Print::bench
