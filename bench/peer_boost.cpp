// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Boost.Geometry. No shared state.
#include "bench/peer.h"

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/linestring.hpp>
#include <boost/geometry/geometries/multi_linestring.hpp>
#include <boost/geometry/geometries/multi_polygon.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/geometries/polygon.hpp>
#include <boost/version.hpp>

namespace Corvane::Print::bench {
namespace {

namespace bg = boost::geometry;
using BoostPoint = bg::model::d2::point_xy<double>;
using Polygon = bg::model::polygon<BoostPoint, false, false>;  // counter-clockwise, open
using Polygons = bg::model::multi_polygon<Polygon>;
using Line = bg::model::linestring<BoostPoint>;
using Lines = bg::model::multi_linestring<Line>;
using Box = bg::model::box<BoostPoint>;

Polygon polygon(const Points& ring) {
  Polygon result;
  for (const Point& p : ring) result.outer().emplace_back(p.x, p.y);
  return result;
}

Line line_of(const Points& points) {
  Line result;
  for (const Point& p : points) result.emplace_back(p.x, p.y);
  return result;
}

template <class A, class B, class Result>
struct Operands {
  A a;
  B b;
  Result result;
};

// Up to 1.75 it moves coordinates onto integers of seven digits while it looks for crossings of polygons.
constexpr double kTolerance = 1e-6;

// Slivers come and go with that, so the number of pieces is its own.
Answer area_alone(const Polygons& polygons) {
  return {bg::area(polygons), {}, {}};
}

// Whether a piece ends where a line touches the border is a matter of taste.
Answer length_alone(const Lines& lines) {
  return {bg::length(lines), {}, {}};
}

template <class A, class B>
Entrant line_intersection(A a, B b) {
  using In = Operands<A, B, Lines>;
  const auto in = std::make_shared<In>(In{std::move(a), std::move(b), {}});
  return {"Boost", Kind::kPeer,
          [in] {
            in->result.clear();
            bg::intersection(in->a, in->b, in->result);
          },
          [in] { return length_alone(in->result); }};
}

struct Probes {
  Line points;
  Polygon ring;
  long count = 0;
  void run() {
    count = 0;
    for (const BoostPoint& point : points) count += bg::within(point, ring) ? 1 : 0;
  }
};

struct ManySubjects {
  std::vector<Polygon> subjects;
  Polygon fence;
  std::vector<Polygons> results;
  void run() {
    results.clear();
    for (const Polygon& subject : subjects) {
      results.emplace_back();
      bg::intersection(subject, fence, results.back());
    }
  }
  Answer answer() const {
    double sum = 0;
    for (const Polygons& result : results) sum += bg::area(result);
    return {sum, {}, {}};
  }
};

struct Buffer {
  Polygon ring;
  double distance;
  Polygons result;
  void run() {
    namespace strategy = bg::strategy::buffer;
    result.clear();
    bg::buffer(ring, result, strategy::distance_symmetric<double>(distance), strategy::side_straight(),
               strategy::join_miter(5.0), strategy::end_flat(), strategy::point_square());
  }
};

class Boost : public Peer {
public:
  std::string name() const override { return "Boost"; }
  std::string version() const override { return BOOST_LIB_VERSION; }

  Maybe intersection(const Points& subject, const Points& clip) const override {
    using In = Operands<Polygon, Polygon, Polygons>;
    const auto in = std::make_shared<In>(In{polygon(subject), polygon(clip), {}});
    return Entrant{name(), Kind::kPeer,
                   [in] {
                     in->result.clear();
                     bg::intersection(in->a, in->b, in->result);
                   },
                   [in] { return area_alone(in->result); }, kTolerance};
  }
  Maybe difference(const Points& subject, const Points& clip) const override {
    using In = Operands<Polygon, Polygon, Polygons>;
    const auto in = std::make_shared<In>(In{polygon(subject), polygon(clip), {}});
    return Entrant{name(), Kind::kPeer,
                   [in] {
                     in->result.clear();
                     bg::difference(in->a, in->b, in->result);
                   },
                   [in] { return area_alone(in->result); }, kTolerance};
  }
  Maybe line_in_rectangle(const Points& points, const Rectangle& r) const override {
    return line_intersection(Box({r.low.x, r.low.y}, {r.high.x, r.high.y}), line_of(points));
  }
  Maybe line_in_polygon(const Points& points, const Points& ring) const override {
    return line_intersection(line_of(points), polygon(ring));
  }
  Maybe inside(const Points& probes, const Points& ring) const override {
    const auto in = std::make_shared<Probes>(Probes{line_of(probes), polygon(ring)});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return Answer{{}, {}, in->count}; }};
  }
  Maybe grown(const Points& ring, double distance) const override {
    const auto in = std::make_shared<Buffer>(Buffer{polygon(ring), distance, {}});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return area_alone(in->result); },
                   kTolerance};
  }
  Maybe many(const std::vector<Points>& subjects, const Points& fence) const override {
    const auto in = std::make_shared<ManySubjects>();
    for (const Points& subject : subjects) in->subjects.push_back(polygon(subject));
    in->fence = polygon(fence);
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return in->answer(); }, kTolerance};
  }
};

const Boost g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
