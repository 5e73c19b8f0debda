// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Clipper 6, which counts in integers: coordinates are thousandths here.
#include "bench/peer.h"

#include <polyclipping/clipper.hpp>

#include <cmath>

namespace Corvane::Print::bench {
namespace {

using ClipperLib::Path;
using ClipperLib::Paths;

constexpr double kScale = 1000;
// Crossings are rounded to thousandths: with edges of a quarter of the radius and thousands of crossings the
// area differs in the eighth digit.
constexpr double kTolerance = 1e-7;

Path path(const Points& points) {
  Path result;
  for (const Point& p : points) result.emplace_back(std::llround(kScale * p.x), std::llround(kScale * p.y));
  return result;
}

double area(const Paths& paths) {
  double sum = 0;
  for (const Path& one : paths) sum += ClipperLib::Area(one);
  return sum / (kScale * kScale);
}

double length(const Paths& paths) {
  double sum = 0;
  for (const Path& one : paths) {
    for (std::size_t i = 1; i < one.size(); ++i) {
      sum += std::hypot(static_cast<double>(one[i].X - one[i - 1].X),
                        static_cast<double>(one[i].Y - one[i - 1].Y));
    }
  }
  return sum / kScale;
}

struct Overlay {
  Path subject, clip;
  ClipperLib::ClipType type;
  Paths result;
  void run() {
    ClipperLib::Clipper clipper;
    clipper.AddPath(subject, ClipperLib::ptSubject, true);
    clipper.AddPath(clip, ClipperLib::ptClip, true);
    clipper.Execute(type, result);
  }
};

Entrant overlay(const Points& subject, const Points& clip, ClipperLib::ClipType type) {
  const auto in = std::make_shared<Overlay>(Overlay{path(subject), path(clip), type, {}});
  return {"Clipper1", Kind::kPeer, [in] { in->run(); },
          [in] {
            return Answer{area(in->result), static_cast<long>(in->result.size()), {}};
          },
          kTolerance};
}

struct OpenOverlay {
  Path line, ring;
  Paths result;
  void run() {
    ClipperLib::Clipper clipper;
    ClipperLib::PolyTree tree;
    clipper.AddPath(line, ClipperLib::ptSubject, false);
    clipper.AddPath(ring, ClipperLib::ptClip, true);
    clipper.Execute(ClipperLib::ctIntersection, tree);
    ClipperLib::OpenPathsFromPolyTree(tree, result);
  }
};

struct Probes {
  Path points, ring;
  long count = 0;
  void run() {
    count = 0;
    for (const auto& point : points) count += ClipperLib::PointInPolygon(point, ring) != 0 ? 1 : 0;
  }
};

struct ManySubjects {
  Paths subjects;
  Path fence;
  std::vector<Paths> results;
  void run() {
    results.clear();
    for (const Path& subject : subjects) {
      Overlay one = {subject, fence, ClipperLib::ctIntersection, {}};
      one.run();
      results.push_back(std::move(one.result));
    }
  }
  Answer answer() const {
    Answer sum = {0.0, 0, {}};
    for (const Paths& result : results) {
      *sum.measure += area(result);
      *sum.pieces += static_cast<long>(result.size());
    }
    return sum;
  }
};

struct Offset {
  Path ring;
  double distance;
  Paths result;
  void run() {
    ClipperLib::ClipperOffset offset(5.0);
    offset.AddPath(ring, ClipperLib::jtMiter, ClipperLib::etClosedPolygon);
    offset.Execute(result, distance);
  }
};

class Clipper1 : public Peer {
public:
  std::string name() const override { return "Clipper1"; }
  std::string version() const override { return CLIPPER_VERSION; }

  Maybe intersection(const Points& subject, const Points& clip) const override {
    return overlay(subject, clip, ClipperLib::ctIntersection);
  }
  Maybe difference(const Points& subject, const Points& clip) const override {
    return overlay(subject, clip, ClipperLib::ctDifference);
  }
  // The number of pieces says nothing: touching ones may be joined or not.
  Maybe line_in_polygon(const Points& line, const Points& ring) const override {
    const auto in = std::make_shared<OpenOverlay>(OpenOverlay{path(line), path(ring), {}});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); },
                   [in] {
                     return Answer{length(in->result), {}, {}};
                   },
                   kTolerance};
  }
  Maybe inside(const Points& probes, const Points& ring) const override {
    const auto in = std::make_shared<Probes>(Probes{path(probes), path(ring)});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return Answer{{}, {}, in->count}; }};
  }
  Maybe grown(const Points& ring, double distance) const override {
    const auto in = std::make_shared<Offset>(Offset{path(ring), kScale * distance, {}});
    return Entrant{name(), Kind::kPeer, [in] { in->run(); },
                   [in] {
                     return Answer{area(in->result), {}, {}};
                   },
                   kTolerance};
  }
  Maybe many(const std::vector<Points>& subjects, const Points& fence) const override {
    const auto in = std::make_shared<ManySubjects>();
    for (const Points& subject : subjects) in->subjects.push_back(path(subject));
    in->fence = path(fence);
    return Entrant{name(), Kind::kPeer, [in] { in->run(); }, [in] { return in->answer(); }, kTolerance};
  }
};

const Clipper1 g_peer;
const KnownPeer g_known(g_peer);

}  // namespace
}  // namespace Corvane::Print::bench
