// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A second implementation of the rectangle line clipper, for tests only. It knows no capacities while it
// works: it writes to vectors, axis by axis, and notes how much there was before each pair of points. Whether
// a call with given capacities is content is read off these notes afterwards.
#ifndef CORVANE_PRINT_TESTS_CLIP_LINE_RECT_REFERENCE_H
#define CORVANE_PRINT_TESTS_CLIP_LINE_RECT_REFERENCE_H

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <tuple>
#include <utility>
#include <vector>

namespace Corvane::Print::tests {

struct ReferenceBox {
  double low[3], high[3];
};

class LineRectReference {
public:
  using Place = std::vector<double>;  // as many as there are dimensions
  using Segment = std::array<Place, 2>;

  LineRectReference(const ReferenceBox& box, int dim, const std::vector<double>& input) : box_(box) {
    for (auto at = input.begin(); at != input.end(); at += dim) places_.emplace_back(at, at + dim);
    input_points_ = places_.size();
    if (places_.size() == 1) places_.push_back(places_[0]);
    for (std::size_t i = 1; i < places_.size(); ++i) {
      notes_.emplace_back(points(), pieces_.size() - 1);
      pair(places_[i - 1], places_[i]);
    }
  }

  // Whether a call with these capacities succeeds.
  bool content(long piece_capacity, long point_capacity) const {
    const auto enough = [&](const auto& note) {
      return static_cast<long>(note.first) <= point_capacity - 2 &&
             static_cast<long>(note.second) < piece_capacity;
    };
    return std::all_of(notes_.begin(), notes_.end(), enough) &&
           static_cast<long>(pieces_.size()) <= piece_capacity;
  }

  std::vector<int> counts() const {
    std::vector<int> sizes;
    for (const auto& piece : pieces_) sizes.push_back(static_cast<int>(piece.size()));
    if (sizes.size() == 1 && sizes[0] == 0) sizes.clear();
    return sizes;
  }

  std::vector<double> output() const {
    std::vector<double> flat;
    for (const auto& piece : pieces_) {
      for (const Place& place : piece) flat.insert(flat.end(), place.begin(), place.end());
    }
    return flat;
  }

  std::size_t input_points() const { return input_points_; }
  int unsettled() const { return unsettled_; }  // segments rejected because an end came back to a side

private:
  static bool breaks(const Place& p) { return p[0] == std::numeric_limits<double>::max(); }

  std::size_t points() const {
    std::size_t sum = 0;
    for (const auto& piece : pieces_) sum += piece.size();
    return sum;
  }

  // -1 below the axis's range, 1 above it, 0 inside.
  int tolerant(const Place& p, std::size_t axis) const {
    if (box_.low[axis] - p[axis] > 0.001) return -1;
    return p[axis] - box_.high[axis] > 0.001 ? 1 : 0;
  }
  int exact(const Place& p) const { return p[2] < box_.low[2] ? -1 : (p[2] > box_.high[2] ? 1 : 0); }

  bool inside(const Place& p) const {
    for (std::size_t axis = 0; axis < p.size(); ++axis) {
      if (tolerant(p, axis) != 0) return false;
    }
    return true;
  }

  Place crossing(const Segment& s, std::size_t axis, int side) const {
    const double bound = side < 0 ? box_.low[axis] : box_.high[axis];
    const double share = (bound - s[0][axis]) / (s[1][axis] - s[0][axis]);
    Place met(s[0].size());
    for (std::size_t k = 0; k < met.size(); ++k) met[k] = s[0][k] + share * (s[1][k] - s[0][k]);
    met[axis] = bound;
    return met;
  }

  bool cut_depth(Segment& s) const {
    int side[2] = {exact(s[0]), exact(s[1])};
    if (side[0] * side[1] > 0) return false;
    for (std::size_t end = 0; end < 2; ++end) {
      if (side[end] != 0) s[end] = crossing(s, 2, side[end]);
    }
    return true;
  }

  bool cut_flat(Segment& s) {
    std::set<std::tuple<std::size_t, std::size_t, int>> been;
    while (true) {
      bool out[2];
      for (std::size_t end = 0; end < 2; ++end)
        out[end] = tolerant(s[end], 0) != 0 || tolerant(s[end], 1) != 0;
      if (!out[0] && !out[1]) return true;
      for (std::size_t axis = 0; axis < 2; ++axis) {
        if (tolerant(s[0], axis) * tolerant(s[1], axis) > 0) return false;
      }
      const std::size_t end = out[0] ? 0 : 1;
      const std::size_t axis = tolerant(s[end], 0) != 0 ? 0 : 1;
      const int side = tolerant(s[end], axis);
      if (!been.insert({end, axis, side}).second) {
        ++unsettled_;
        return false;
      }
      s[end] = crossing(s, axis, side);
    }
  }

  bool cut(Segment& s) {
    if (inside(s[0]) && inside(s[1])) return true;
    const bool deep = s[0].size() == 3 && (tolerant(s[0], 2) != 0 || tolerant(s[1], 2) != 0);
    return (!deep || cut_depth(s)) && cut_flat(s);
  }

  void end_piece() {
    if (!pieces_.back().empty()) pieces_.emplace_back();
  }

  void pair(const Place& p, const Place& q) {
    if (breaks(p)) return end_piece();
    const bool joined = [&] { return !pieces_.back().empty() && pieces_.back().back() == p; }();
    if (breaks(q)) {
      if (!inside(p)) return;
      end_piece();
      if (!joined) pieces_.back().push_back(p);
      return;
    }
    Segment s = {p, q};
    if (!cut(s)) return end_piece();
    if (pieces_.back().empty() || pieces_.back().back() != s[0]) {
      end_piece();
      pieces_.back().push_back(s[0]);
    }
    pieces_.back().push_back(s[1]);
  }

  ReferenceBox box_;
  std::vector<Place> places_;
  std::size_t input_points_ = 0;
  std::vector<std::vector<Place>> pieces_{1};
  std::vector<std::pair<std::size_t, std::size_t>> notes_;
  int unsettled_ = 0;
};

}  // namespace Corvane::Print::tests

#endif
