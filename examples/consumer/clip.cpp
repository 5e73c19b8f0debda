// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Clips a polyline in C++ and converts what is left from millimetres to plotter units, by the library's
// matrices.
#include <cstddef>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

#include "corvane/print/cl.h"
#include "corvane/print/mat.h"

namespace {

using Polyline = std::vector<double>;  // x y, point after point

void check(int status, const char* what) {
  if (status != CL_OK) throw std::runtime_error(std::string(what) + ": status " + std::to_string(status));
}

// A rectangle; what lies inside is kept.
class Fence {
public:
  Fence(double x0, double y0, double x1, double y1) {
    const double corners[] = {x0, y0, x1, y1};
    int two = 2;
    check(CLdefFence(&handle_, 2, 1, &two, corners, 0.0, 0.0, CL_KEEP_INSIDE), "fence");
  }
  ~Fence() { CLdeleteFence(handle_); }
  Fence(const Fence&) = delete;
  Fence& operator=(const Fence&) = delete;

  std::vector<Polyline> clip(const Polyline& line) const;

private:
  CLFenceHandle handle_ = nullptr;
};

std::vector<Polyline> Fence::clip(const Polyline& line) const {
  const int line_points = static_cast<int>(line.size() / 2);
  int pieces = 4;
  int points = 32;
  std::vector<int> counts;
  std::vector<double> out;
  int status;
  do {
    counts.resize(static_cast<std::size_t>(pieces));
    out.resize(3 * static_cast<std::size_t>(points));  // room is counted in three doubles per point
    status = CLclipLine(handle_, 2, line_points, line.data(), &pieces, counts.data(), out.data(), &points);
  } while (status == CL_TOO_SMALL);
  check(status, "clip");

  std::vector<Polyline> result;
  const double* from = out.data();
  for (int piece = 0; piece < pieces; ++piece) {
    const double* const to = from + 2 * counts[static_cast<std::size_t>(piece)];
    result.emplace_back(from, to);
    from = to;
  }
  return result;
}

// 40 plotter units per millimetre.
Polyline in_plotter_units(const Polyline& line) {
  using namespace Corvane::Print;
  const int points = static_cast<int>(line.size() / 2);
  double scale[9];
  MATBuildScaleHMat(2, 40.0, 40.0, 1.0, scale);
  std::vector<double> homogeneous(line.size() / 2 * 3);
  Polyline result(line.size());
  MATConvertPtDimToHomog(2, points, line.data(), homogeneous.data());
  MATMulVecMat(3, homogeneous.data(), points, scale, homogeneous.data());
  MATConvertPtHomogToDim(2, points, homogeneous.data(), result.data());
  return result;
}

}  // namespace

int main() {
  try {
    const Fence fence(0, 0, 10, 10);
    int number = 0;
    for (const Polyline& piece : fence.clip({-5, 5, 5, 5, 8, 9, 8, 15, 2, 15, 2, 5})) {
      const Polyline units = in_plotter_units(piece);
      std::printf("C++: piece %d:", ++number);
      for (std::size_t i = 0; i < units.size(); i += 2) std::printf(" (%g,%g)", units[i], units[i + 1]);
      std::printf("\n");
    }
  } catch (const std::exception& problem) {
    std::printf("C++: %s\n", problem.what());
    return 1;
  }
  return 0;
}
