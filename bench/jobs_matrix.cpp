// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Matrices and points, and the extents of points.
#include "bench/ours.h"
#include "bench/peer.h"

#include "corvane/print/geom.h"
#include "corvane/print/mat.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <numeric>

namespace Corvane::Print::bench {
namespace {

using Doubles = std::vector<double>;

// Numbers between -1 and 1, so that long products stay in range.
Doubles doubles(std::size_t n, std::uint64_t seed) {
  Random random(seed);
  Doubles result(n);
  for (double& v : result) v = 2 * random.draw() - 1;
  return result;
}

double sum(const Doubles& values) {
  return std::accumulate(values.begin(), values.end(), 0.0);
}

Entrant copy_bytes(const Doubles& from) {
  const auto copy = std::make_shared<Doubles>(from);
  return {"memcpy",
          Kind::kBound,
          [&from, copy] {
            std::memcpy(copy->data(), from.data(), from.size() * sizeof(double));
            benchmark::ClobberMemory();
          },
          {}};
}

Entrant read_bytes(const Doubles& from) {
  return {"read",
          Kind::kBound,
          [&from] {
            double lanes[4] = {};
            for (std::size_t i = 0; i + 4 <= from.size(); i += 4) {
              for (std::size_t k = 0; k < 4; ++k) lanes[k] += from[i + k];
            }
            benchmark::DoNotOptimize(lanes);
          },
          {}};
}

struct Transform {
  Doubles vectors, matrix, out;
  int order, count;
  Transform(int n, int points)
      : vectors(doubles(static_cast<std::size_t>(n * points), 11)),
        matrix(doubles(static_cast<std::size_t>(n * n), 12)),
        out(vectors.size()),
        order(n),
        count(points) {}
};

Prepared transform(int order, int count) {
  const auto in = std::make_shared<Transform>(order, count);
  Transform* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs,
                         [p] {
                           Corvane::Print::MATMulVecMat(p->order, p->vectors.data(), p->count,
                                                        p->matrix.data(), p->out.data());
                         },
                         [p] {
                           return Answer{sum(p->out), {}, {}};
                         }},
                        copy_bytes(in->vectors)}};
  add_peers(prepared.entrants,
            [&](const Peer& peer) { return peer.vectors_by_matrix(order, in->vectors, in->matrix); });
  return prepared;
}

struct Extents {
  Doubles points;
  double low[3] = {}, high[3] = {};
  int dim, count;
  Extents(int d, int n) : points(doubles(static_cast<std::size_t>(d * n), 13)), dim(d), count(n) {}
  void run() {
    if (dim == 2) {
      GEOMComputeMinEnclRect(count, reinterpret_cast<double(*)[2]>(points.data()), low, high);
    } else {
      GEOMComputeMinEnclCube(count, reinterpret_cast<double(*)[3]>(points.data()), low, high);
    }
  }
  // Each corner in a place of its own of the sum.
  Answer answer() const {
    double mix = 0;
    for (int k = 0; k < dim; ++k) mix += (k + 1) * (high[k] + 0.5 * low[k]);
    return {mix, {}, {}};
  }
};

Prepared extents(int dim, int count) {
  const auto in = std::make_shared<Extents>(dim, count);
  Extents* const p = in.get();
  Prepared prepared = {
      in, {{kOurName, Kind::kOurs, [p] { p->run(); }, [p] { return p->answer(); }}, read_bytes(in->points)}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.extents(dim, in->points); });
  return prepared;
}

struct Products {
  Doubles a, b, out;
  std::size_t order, count;
  Products(std::size_t n, std::size_t products)
      : a(doubles(n * n * products, 14)),
        b(doubles(a.size(), 15)),
        out(a.size()),
        order(n),
        count(products) {}
  void run() {
    const std::size_t step = order * order;
    for (std::size_t i = 0; i < count; ++i) {
      MATMulMatMat(static_cast<int>(order), &a[i * step], &b[i * step], &out[i * step]);
    }
  }
};

Prepared products(int order, int count) {
  const auto in =
      std::make_shared<Products>(static_cast<std::size_t>(order), static_cast<std::size_t>(count));
  Products* const p = in.get();
  Prepared prepared = {in,
                       {{kOurName, Kind::kOurs, [p] { p->run(); },
                         [p] {
                           return Answer{sum(p->out), {}, {}};
                         }}}};
  add_peers(prepared.entrants, [&](const Peer& peer) { return peer.products(order, in->a, in->b); });
  return prepared;
}

}  // namespace

void add_matrix_jobs(Jobs& jobs, bool quick) {
  const int n = quick ? 1000 : 1000000, pairs = 100;
  for (const int order : {3, 4}) {
    const std::string dim = std::to_string(order - 1) + "d";
    jobs.push_back({"matrices", "points-" + dim, n, 1, {}, [=] { return transform(order, n); }});
    jobs.push_back({"matrices", "extents-" + dim, n, 1, {}, [=] { return extents(order - 1, n); }});
    jobs.push_back({"matrices", "product-" + dim, 1, pairs, {}, [=] { return products(order, pairs); }});
  }
}

}  // namespace Corvane::Print::bench
