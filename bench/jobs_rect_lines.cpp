// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A long polyline against a rectangle, and what copying the same bytes takes.
#include "bench/ours.h"
#include "bench/peer.h"

#include <benchmark/benchmark.h>

#include <cstring>

namespace Corvane::Print::bench {
namespace {

constexpr Rectangle kRectangle = {{-5e5, -5e5}, {5e5, 5e5}};

struct Inputs {
  Points line, copy;
  Fence fence{{kRectangle.low, kRectangle.high}, CL_KEEP_INSIDE};
  Clip result;
  double sum = 0;
  explicit Inputs(Points points) : line(std::move(points)), copy(line) {}
};

Entrant ours(Inputs& in) {
  return {kOurName, Kind::kOurs, [&in] { in.result.line(in.fence, in.line); },
          [&in] {
            return Answer{in.result.length(), in.result.pieces(), in.result.points()};
          }};
}

// All bytes of the line, whatever becomes of them.
Entrant copy_bytes(Inputs& in) {
  return {"memcpy",
          Kind::kBound,
          [&in] {
            std::memcpy(in.copy.data(), in.line.data(), in.line.size() * sizeof(Point));
            benchmark::ClobberMemory();
          },
          {}};
}

Entrant read_bytes(Inputs& in) {
  return {"read",
          Kind::kBound,
          [&in] {
            double x = 0, y = 0;
            for (const Point& p : in.line) {
              x += p.x;
              y += p.y;
            }
            in.sum = x + y;
            benchmark::DoNotOptimize(in.sum);
          },
          {}};
}

Prepared prepare(Points line) {
  const auto in = std::make_shared<Inputs>(std::move(line));
  Prepared prepared = {in, {ours(*in), copy_bytes(*in), read_bytes(*in)}};
  add_peers(prepared.entrants,
            [&](const Peer& peer) { return peer.line_in_rectangle(in->line, kRectangle); });
  return prepared;
}

}  // namespace

void add_rect_line_jobs(Jobs& jobs, bool quick) {
  const int n = quick ? 2000 : 1000000;
  // Counts are known for the full size.
  const Answer l1 = quick ? Answer{} : Answer{{}, 278, 564959};
  const Answer l2 = quick ? Answer{} : Answer{{}, 483369, 1217209};
  const Range full = {-1e6, 1e6}, inner = {-4e5, 4e5}, left = {-1e6, -6e5};
  jobs.push_back({"rect-lines", "L1-walk", n, 1, l1, [=] { return prepare(walk(n, 3, 2000)); }});
  jobs.push_back({"rect-lines", "L2-uniform", n, 1, l2, [=] { return prepare(uniform(n, 4, full, full)); }});
  jobs.push_back(
      {"rect-lines", "L3-inside", n, 1, {{}, 1, n}, [=] { return prepare(uniform(n, 5, inner, inner)); }});
  jobs.push_back(
      {"rect-lines", "L4-outside", n, 1, {0.0, 0, 0}, [=] { return prepare(uniform(n, 9, left, full)); }});
}

}  // namespace Corvane::Print::bench
