// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// GEOS by its C interface. Shared state: its context, for one thread.
#include "bench/peer.h"

#include <geos_c.h>

#include <cstdarg>
#include <cstdio>

namespace Corvane::Print::bench {
namespace {

void show_message(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vfprintf(stderr, format, arguments);
  va_end(arguments);
  std::fputc('\n', stderr);
}

GEOSContextHandle_t context() {
  static const GEOSContextHandle_t s_context = [] {
    const GEOSContextHandle_t made = GEOS_init_r();
    GEOSContext_setErrorHandler_r(made, show_message);
    return made;
  }();
  return s_context;
}

struct Release {
  void operator()(GEOSGeometry* geometry) const { GEOSGeom_destroy_r(context(), geometry); }
  void operator()(const GEOSPreparedGeometry* geometry) const {
    GEOSPreparedGeom_destroy_r(context(), geometry);
  }
};
using Geometry = std::unique_ptr<GEOSGeometry, Release>;
using PreparedGeometry = std::unique_ptr<const GEOSPreparedGeometry, Release>;

GEOSCoordSequence* coordinates(const Points& points, bool closed) {
  const auto n = static_cast<unsigned>(points.size());
  GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context(), n + (closed ? 1 : 0), 2);
  for (unsigned i = 0; i < n + (closed ? 1 : 0); ++i) {
    GEOSCoordSeq_setXY_r(context(), sequence, i, points[i % n].x, points[i % n].y);
  }
  return sequence;
}

Geometry polygon(const Points& ring) {
  GEOSGeometry* shell = GEOSGeom_createLinearRing_r(context(), coordinates(ring, true));
  return Geometry(GEOSGeom_createPolygon_r(context(), shell, nullptr, 0));
}

Geometry line(const Points& points) {
  return Geometry(GEOSGeom_createLineString_r(context(), coordinates(points, false)));
}

double area(const Geometry& geometry) {
  double value = 0;
  GEOSArea_r(context(), geometry.get(), &value);
  return value;
}

double line_length(const Geometry& geometry) {
  double value = 0;
  GEOSLength_r(context(), geometry.get(), &value);
  return value;
}

long pieces(const Geometry& geometry) {
  return GEOSisEmpty_r(context(), geometry.get()) == 1 ? 0
                                                       : GEOSGetNumGeometries_r(context(), geometry.get());
}

struct Operands {
  Geometry a, b, result;
};

using Operation = GEOSGeometry*(GEOSContextHandle_t, const GEOSGeometry*, const GEOSGeometry*);

Entrant overlay(std::string who, Geometry a, Geometry b, Operation* operation,
                Answer (*describe)(const Geometry&)) {
  const auto in = std::make_shared<Operands>(Operands{std::move(a), std::move(b), {}});
  return {std::move(who), Kind::kPeer,
          [in, operation] { in->result.reset(operation(context(), in->a.get(), in->b.get())); },
          [in, describe] { return describe(in->result); }};
}

Answer area_and_pieces(const Geometry& geometry) {
  return {area(geometry), pieces(geometry), {}};
}

// The pieces are cut wherever the line crosses itself, so their number says nothing.
Answer length_alone(const Geometry& geometry) {
  return {line_length(geometry), {}, {}};
}

struct RectangleClip {
  Geometry line, result;
  Rectangle rectangle;
  void run() {
    const auto& [low, high] = rectangle;
    result.reset(GEOSClipByRect_r(context(), line.get(), low.x, low.y, high.x, high.y));
  }
};

struct Probes {
  std::vector<Geometry> points;
  Geometry ring;
  long count = 0;
  // The index is built by the first question and belongs to the time.
  void run() {
    const PreparedGeometry prepared(GEOSPrepare_r(context(), ring.get()));
    count = 0;
    for (const Geometry& point : points) {
      count += GEOSPreparedContains_r(context(), prepared.get(), point.get()) == 1 ? 1 : 0;
    }
  }
};

// An overlay only for the subjects that the fence's border meets.
struct ManySubjects {
  std::vector<Geometry> subjects, results;
  Geometry fence;
  PreparedGeometry prepared;
  void run() {
    results.clear();
    for (const Geometry& subject : subjects) {
      if (GEOSPreparedContains_r(context(), prepared.get(), subject.get()) == 1) {
        results.emplace_back(GEOSGeom_clone_r(context(), subject.get()));
      } else if (GEOSPreparedIntersects_r(context(), prepared.get(), subject.get()) == 1) {
        results.emplace_back(GEOSIntersection_r(context(), fence.get(), subject.get()));
      }
    }
  }
  Answer answer() const {
    Answer sum = {0.0, 0, {}};
    for (const Geometry& result : results) {
      *sum.measure += area(result);
      *sum.pieces += pieces(result);
    }
    return sum;
  }
};

struct Preparation {
  Points ring;
  Geometry probe, polygon;
  long inside = 0;
  void run() {
    polygon = bench::polygon(ring);
    const PreparedGeometry prepared(GEOSPrepare_r(context(), polygon.get()));
    inside = GEOSPreparedContains_r(context(), prepared.get(), probe.get());
  }
  Answer answer() const {
    double low = 0, high = 0;
    GEOSGeom_getXMin_r(context(), polygon.get(), &low);
    GEOSGeom_getXMax_r(context(), polygon.get(), &high);
    return {high - low, {}, {}};
  }
};

struct Buffer {
  Geometry ring, result;
  double distance;
  void run() {
    result.reset(
        GEOSBufferWithStyle_r(context(), ring.get(), distance, 8, GEOSBUF_CAP_FLAT, GEOSBUF_JOIN_MITRE, 5.0));
  }
};

class Geos : public Peer {
public:
  std::string name() const override { return "GEOS"; }
  std::string version() const override { return GEOSversion(); }

  Maybe intersection(const Points& subject, const Points& clip) const override {
    return overlay(name(), polygon(subject), polygon(clip), GEOSIntersection_r, area_and_pieces);
  }
  Maybe difference(const Points& subject, const Points& clip) const override {
    return overlay(name(), polygon(subject), polygon(clip), GEOSDifference_r, area_and_pieces);
  }
  Maybe line_in_polygon(const Points& points, const Points& ring) const override {
    return overlay(name(), line(points), polygon(ring), GEOSIntersection_r, length_alone);
  }

  Maybe line_in_rectangle(const Points& points, const Rectangle& rectangle) const override {
    const auto in = std::make_shared<RectangleClip>(RectangleClip{line(points), {}, rectangle});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return length_alone(in->result); }};
  }

  Maybe inside(const Points& probes, const Points& ring) const override {
    const auto in = std::make_shared<Probes>();
    for (const Point& p : probes) in->points.emplace_back(GEOSGeom_createPointFromXY_r(context(), p.x, p.y));
    in->ring = polygon(ring);
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return Answer{{}, {}, in->count}; }};
  }

  Maybe prepare_polygon(const Points& ring) const override {
    const auto in = std::make_shared<Preparation>();
    in->ring = ring;
    in->probe.reset(GEOSGeom_createPointFromXY_r(context(), 0, 0));
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return in->answer(); }};
  }

  Maybe grown(const Points& ring, double distance) const override {
    const auto in = std::make_shared<Buffer>(Buffer{polygon(ring), {}, distance});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return area_and_pieces(in->result); }};
  }

  Maybe many(const std::vector<Points>& subjects, const Points& fence) const override {
    const auto in = std::make_shared<ManySubjects>();
    for (const Points& subject : subjects) in->subjects.push_back(polygon(subject));
    in->fence = polygon(fence);
    in->prepared.reset(GEOSPrepare_r(context(), in->fence.get()));
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return in->answer(); }};
  }
};

const Geos g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
