// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// CGAL's regularised Boolean operations with exact numbers. In a file of its own, because it takes as long to
// compile as everything else. No shared state.
#include "bench/peer.h"

#include <CGAL/Boolean_set_operations_2.h>
#include <CGAL/Exact_predicates_exact_constructions_kernel.h>
#include <CGAL/version.h>

#include <cmath>

namespace Corvane::Print::bench {
namespace {

using Kernel = CGAL::Exact_predicates_exact_constructions_kernel;
using Polygon = CGAL::Polygon_2<Kernel>;
using Pieces = std::vector<CGAL::Polygon_with_holes_2<Kernel>>;

Polygon polygon(const Points& ring) {
  Polygon result;
  for (const Point& p : ring) result.push_back({p.x, p.y});
  return result;
}

double area(const Polygon& ring) {
  Points points;
  for (const auto& p : ring.container()) points.push_back({CGAL::to_double(p.x()), CGAL::to_double(p.y())});
  return std::fabs(signed_area(points));
}

struct Operands {
  Polygon subject, clip;
  Pieces result;
  Answer answer() const {
    Answer all = {0.0, static_cast<long>(result.size()), {}};
    for (const auto& piece : result) {
      *all.measure += area(piece.outer_boundary());
      for (auto hole = piece.holes_begin(); hole != piece.holes_end(); ++hole) *all.measure -= area(*hole);
    }
    return all;
  }
};

template <class Operation>
Entrant overlay(const Points& subject, const Points& clip, Operation operation) {
  const auto in = std::make_shared<Operands>(Operands{polygon(subject), polygon(clip), {}});
  return {"CGAL", Kind::kPeer,
          [in, operation] {
            in->result.clear();
            operation(in->subject, in->clip, std::back_inserter(in->result));
          },
          [in] { return in->answer(); }};
}

class Cgal : public Peer {
public:
  std::string name() const override { return "CGAL"; }
  std::string version() const override { return CGAL_VERSION_STR; }

  Maybe intersection(const Points& subject, const Points& clip) const override {
    return overlay(subject, clip,
                   [](const auto& a, const auto& b, auto out) { CGAL::intersection(a, b, out); });
  }
  Maybe difference(const Points& subject, const Points& clip) const override {
    return overlay(subject, clip,
                   [](const auto& a, const auto& b, auto out) { CGAL::difference(a, b, out); });
  }
};

const Cgal g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
