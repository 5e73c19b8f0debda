// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Eigen. No shared state.
#include "bench/peer.h"

#include <Eigen/Core>

namespace Corvane::Print::bench {
namespace {

using Doubles = std::vector<double>;

template <int kColumns>
using Rows = Eigen::Matrix<double, Eigen::Dynamic, kColumns, Eigen::RowMajor>;
template <int kOrder>
using Square = Eigen::Matrix<double, kOrder, kOrder, Eigen::RowMajor>;

template <int kColumns>
Rows<kColumns> rows(const Doubles& values) {
  return Eigen::Map<const Rows<kColumns>>(values.data(), static_cast<Eigen::Index>(values.size()) / kColumns,
                                          kColumns);
}

// Sums are taken in another order.
constexpr double kTolerance = 1e-8;

template <int kOrder>
Entrant vectors_by_matrix(const Doubles& vectors, const Doubles& matrix) {
  struct In {
    Rows<kOrder> vectors;
    Square<kOrder> matrix;
    Rows<kOrder> out;
  };
  const auto in =
      std::make_shared<In>(In{rows<kOrder>(vectors), Square<kOrder>(matrix.data()), rows<kOrder>(vectors)});
  return {"Eigen", Kind::kPeer, [in] { in->out.noalias() = in->vectors * in->matrix; },
          [in] {
            return Answer{in->out.sum(), {}, {}};
          },
          kTolerance};
}

template <int kDim>
Entrant extents(const Doubles& points) {
  using Corner = Eigen::Matrix<double, 1, kDim>;
  struct In {
    Rows<kDim> points;
    Corner low, high;
  };
  const auto in = std::make_shared<In>(In{rows<kDim>(points), Corner::Zero(), Corner::Zero()});
  return {"Eigen", Kind::kPeer,
          [in] {
            in->low = in->points.colwise().minCoeff();
            in->high = in->points.colwise().maxCoeff();
          },
          [in] {
            double mix = 0;
            for (int k = 0; k < kDim; ++k) mix += (k + 1) * (in->high[k] + 0.5 * in->low[k]);
            return Answer{mix, {}, {}};
          },
          0.0};
}

template <int kOrder>
Entrant products(const Doubles& a, const Doubles& b) {
  struct In {
    std::vector<Square<kOrder>> a, b, out;
  };
  const auto in = std::make_shared<In>();
  for (std::size_t i = 0; i < a.size(); i += kOrder * kOrder) {
    in->a.emplace_back(&a[i]);
    in->b.emplace_back(&b[i]);
  }
  in->out.resize(in->a.size());
  return {"Eigen", Kind::kPeer,
          [in] {
            for (std::size_t i = 0; i < in->a.size(); ++i) in->out[i].noalias() = in->a[i] * in->b[i];
          },
          [in] {
            double sum = 0;
            for (const auto& product : in->out) sum += product.sum();
            return Answer{sum, {}, {}};
          },
          kTolerance};
}

class EigenPeer : public Peer {
public:
  std::string name() const override { return "Eigen"; }
  std::string version() const override {
    return std::to_string(EIGEN_WORLD_VERSION) + "." + std::to_string(EIGEN_MAJOR_VERSION) + "." +
           std::to_string(EIGEN_MINOR_VERSION);
  }
  Maybe vectors_by_matrix(int order, const Doubles& vectors, const Doubles& matrix) const override {
    return order == 3 ? bench::vectors_by_matrix<3>(vectors, matrix)
                      : bench::vectors_by_matrix<4>(vectors, matrix);
  }
  Maybe extents(int dim, const Doubles& points) const override {
    return dim == 2 ? bench::extents<2>(points) : bench::extents<3>(points);
  }
  Maybe products(int order, const Doubles& a, const Doubles& b) const override {
    return order == 3 ? bench::products<3>(a, b) : bench::products<4>(a, b);
  }
};

const EigenPeer g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
