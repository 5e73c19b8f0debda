// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Random calls of the GEOM and MAT families for the digest.
#include <array>
#include <cmath>
#include <cstdlib>

#include "corvane/print/geom.h"
#include "corvane/print/mat.h"
#include "tests/digest/digest.h"

namespace Corvane::Print::tests {
namespace {

template <std::size_t N>
using Numbers = std::array<double, N>;

template <std::size_t N>
Numbers<N> plain(Random& random, double size) {
  Numbers<N> numbers{};
  for (double& number : numbers) number = random.between(-size, size);
  return numbers;
}

// Integers, some of them off by about the tolerance of points.
template <std::size_t N>
Numbers<N> on_grid(Random& random) {
  Numbers<N> numbers{};
  for (double& number : numbers) {
    number = random.between(-3, 3);
    if (random.one_in(6)) number += random.between(-2e-6, 2e-6);
    if (random.one_in(12)) number = -number;
  }
  return numbers;
}

template <std::size_t N>
Numbers<N> mixed(Random& random) {
  return random.one_in(2) ? plain<N>(random, 1000) : on_grid<N>(random);
}

template <std::size_t N>
void add_all(Digest& digest, const Numbers<N>& numbers) {
  for (const double number : numbers) digest.add(number);
}

void matrix_product(Random& random, Digest& digest) {
  Numbers<16> a = plain<16>(random, 1), b = plain<16>(random, 10000), c{};
  MATMulMatMat(4, a.data(), b.data(), c.data());
  add_all(digest, c);
}

using Matrix = Numbers<16>;

void add_inverses(Random& random, int dim, Matrix& m, Digest& digest) {
  Matrix inverse{};
  MATBuildInvTransHMat(dim, m.data(), inverse.data());
  add_all(digest, inverse);
  MATBuildInvScaleHMat(dim, m.data(), inverse.data());
  add_all(digest, inverse);
  MATBuildInvRotHMat(dim, m.data(), inverse.data());
  add_all(digest, inverse);
  MATInvRotMat(dim, m.data(), inverse.data());
  add_all(digest, inverse);
  MATTransposeMat(random.between(2, 4), m.data(), m.data());
  add_all(digest, m);
}

void matrices(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  const Numbers<3> by = mixed<3>(random);
  Matrix shift{}, scale{}, homogeneous{}, any = mixed<16>(random);
  MATBuildTransHMat(dim, by[0], by[1], by[2], shift.data());
  add_inverses(random, dim, shift, digest);
  MATBuildScaleHMat(dim, by[0], by[1], by[2], scale.data());
  add_inverses(random, dim, scale, digest);
  MATCvtMatToHomog(dim, any.data(), homogeneous.data());
  add_all(digest, homogeneous);
  add_inverses(random, dim, any, digest);
}

// Of any size that a double has: the bits of one, but for those of no number.
double random_angle(Random& random) {
  if (random.one_in(2)) return random.between(-10.0, 10.0);
  const auto angle = std::bit_cast<double>(random.next());
  return std::isfinite(angle) ? angle : 1.0;
}

void rotations(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  Matrix turn{}, back{}, both{};
  MATBuildRotAboutZHMat(dim, random_angle(random), turn.data());
  add_all(digest, turn);
  MATBuildRotAboutZHMat(dim, 1.5707963267948966 * random.between(-1000000, 1000000), back.data());
  add_all(digest, back);
  MATMulMatMat(dim + 1, turn.data(), back.data(), both.data());
  add_all(digest, both);
}

void vectors(Random& random, Digest& digest) {
  const int order = random.between(2, 4), count = random.between(1, 5);
  Numbers<20> vecs = mixed<20>(random), sum{};
  Matrix m = mixed<16>(random);
  GEOMAddVector(20, vecs.data(), vecs.data(), sum.data());
  add_all(digest, sum);
  MATMulVecMat(order, vecs.data(), count, m.data(), vecs.data());
  add_all(digest, vecs);
  Numbers<20> points{};
  MATConvertPtHomogToDim(3, 5, vecs.data(), points.data());
  add_all(digest, points);
  MATConvertPtDimToHomog(2, 5, points.data(), points.data());
  add_all(digest, points);
}

void put_in_order(Numbers<3>& low, Numbers<3>& high) {
  for (std::size_t k = 0; k < 3; ++k) {
    if (low[k] > high[k]) std::swap(low[k], high[k]);
  }
}

void boxes(Random& random, Digest& digest) {
  Numbers<3> a1 = mixed<3>(random), a2 = mixed<3>(random), b1 = mixed<3>(random), b2 = mixed<3>(random);
  put_in_order(a1, a2);
  put_in_order(b1, b2);
  Numbers<3> low{}, high{};
  digest.add(
      GEOMComputeRectIntersection(a1.data(), a2.data(), b1.data(), b2.data(), low.data(), high.data()));
  add_all(digest, low), add_all(digest, high);
  digest.add(
      GEOMComputeCubeIntersection(a1.data(), a2.data(), b1.data(), b2.data(), low.data(), high.data()));
  add_all(digest, low), add_all(digest, high);
  Numbers<24> verts{};
  GEOMComputeRectVerts(a1.data(), b1.data(), verts.data());
  add_all(digest, verts);
  GEOMComputeCubeVerts(a1.data(), b1.data(), verts.data());
  add_all(digest, verts);
  Numbers<24> points = mixed<24>(random);
  GEOMComputeMinEnclRect(random.between(1, 12), reinterpret_cast<double(*)[2]>(points.data()), low.data(),
                         high.data());
  add_all(digest, low), add_all(digest, high);
  GEOMComputeMinEnclCube(random.between(1, 8), reinterpret_cast<double(*)[3]>(points.data()), low.data(),
                         high.data());
  add_all(digest, low), add_all(digest, high);
  GEOMComputeCubeDiag(random.between(0, 8), points.data(), low.data(), high.data());
  add_all(digest, low), add_all(digest, high);
}

// Points on a line, up to the tolerance or a little more.
Numbers<18> about_a_line(Random& random, int dim) {
  const double slope = random.between(-20.0, 20.0), intercept = random.between(-20.0, 20.0);
  Numbers<18> points = mixed<18>(random);
  for (std::size_t i = 0; i + 1 < points.size(); i += static_cast<std::size_t>(dim)) {
    points[i + 1] = slope * points[i] + intercept;
    if (random.one_in(4)) points[i + 1] += random.between(-1.2e-6, 1.2e-6);
  }
  return points;
}

void verdicts(Random& random, Digest& digest) {
  const int dim = random.between(2, 3), n = random.between(1, 6);
  Numbers<18> points = random.one_in(2) ? about_a_line(random, dim) : on_grid<18>(random);
  digest.add(GEOMPointsColinear(dim, n, points.data()));
  digest.add(GEOMPointsEqual(dim, random.between(1, 3), points.data()));
  digest.add(GEOMPointsParallelToAxis(random.between(1, 2), dim, random.between(1, 4), points.data()));
  digest.add(GEOMPointsParallelToPlane(random.between(4, 6), 3, random.between(1, 4), points.data()));
  digest.add(GEOMValueInRange(points[0], points[1], points[2]));
}

// Rectangles, traced once or twice, with corners off by less than a unit.
void plot_areas(Random& random, Digest& digest) {
  const double width = random.between(0.0, 3.0), height = random.between(0.0, 3.0);
  const double x[] = {0.0, width, width, 0.0}, y[] = {0.0, 0.0, height, height};
  const int n = random.between(4, 10), round = n == 10 ? 5 : 4;
  Numbers<20> points{};
  for (int i = 0; i < n; ++i) {
    const int corner = i % round % 4;
    points[static_cast<std::size_t>(2 * i)] = x[corner] + random.between(-0.1, 0.1);
    points[static_cast<std::size_t>(2 * i + 1)] = y[corner] + random.between(-0.1, 0.1);
  }
  digest.add(GEOMCheckRect(2, 4, points.data()));
  digest.add(GEOMCheckRect(2, 5, points.data()));
  digest.add(GEOMCheckRectangularPlotArea(2, n, points.data()));
}

void longest_sides(Random& random, Digest& digest) {
  const int dim = random.between(2, 3);
  Numbers<18> points = mixed<18>(random);
  Numbers<6> side{};
  digest.add(GEOMShapeFindLongestSide(dim, random.between(3, 6), points.data(), side.data()));
  add_all(digest, side);
}

constexpr Family kFamilies[] = {
    {"matrix-products", 5000, matrix_product},
    {"matrices", 10000, matrices},
    {"rotations", 20000, rotations},
    {"vectors", 10000, vectors},
    {"boxes", 10000, boxes},
    {"verdicts", 20000, verdicts},
    {"plot-areas", 10000, plot_areas},
    {"longest-sides", 10000, longest_sides},
};

}  // namespace

std::span<const Family> geometry_families() {
  return kFamilies;
}

}  // namespace Corvane::Print::tests
