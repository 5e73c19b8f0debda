// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Vector formats through GDAL; see input.h. Lines become lines, polygons outlines with their holes; points,
// surfaces without area and whatever is no geometry are counted as unknown. Coordinates that are not finite
// or beyond kLargest end the reading with a problem.
#include <gdal.h>
#include <ogr_api.h>

#include <cmath>
#include <map>
#include <memory>

#include "plotclip/input.h"
#include "plotclip/problem.h"

namespace Corvane::Print::plotclip {
namespace {

constexpr double kLargest = 1e12;
constexpr std::size_t kMostPoints = 20'000'000;

struct CloseDataset {
  void operator()(void* dataset) const { GDALClose(dataset); }
};
using Dataset = std::unique_ptr<void, CloseDataset>;

struct DestroyFeature {
  void operator()(OGRFeatureH feature) const { OGR_F_Destroy(feature); }
};
using Feature = std::unique_ptr<std::remove_pointer_t<OGRFeatureH>, DestroyFeature>;

struct DestroyGeometry {
  void operator()(OGRGeometryH geometry) const { OGR_G_DestroyGeometry(geometry); }
};
using Geometry = std::unique_ptr<std::remove_pointer_t<OGRGeometryH>, DestroyGeometry>;

class GdalReader {
public:
  explicit GdalReader(const std::string& name) : name_(name) {}

  Drawing read() {
    GDALAllRegister();
    CPLSetErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
    // Verbose: a missing file is then told from one of no known format.
    constexpr unsigned kFlags = GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR;
    const Dataset dataset(GDALOpenEx(name_.c_str(), kFlags, nullptr, nullptr, nullptr));
    if (!dataset) fail(CPLGetLastErrorMsg());
    const int layers = GDALDatasetGetLayerCount(dataset.get());
    for (int i = 0; i < layers; ++i) read_layer(GDALDatasetGetLayer(dataset.get(), i));
    return std::move(drawing_);
  }

private:
  [[noreturn]] void fail(const std::string& what) const {
    std::string line = what.empty() ? "expected a vector format that GDAL opens" : what;
    for (char& c : line)
      if (c == '\n' || c == '\r') c = ' ';
    // GDAL's own messages often begin with the name already.
    throw Problem(line.find(name_) == std::string::npos ? name_ + ": " + line : line);
  }

  void read_layer(OGRLayerH layer) {
    if (layer == nullptr) return;
    const std::string layer_name = OGR_L_GetName(layer);
    const int field = OGR_FD_GetFieldIndex(OGR_L_GetLayerDefn(layer), "Layer");
    OGR_L_ResetReading(layer);
    while (const Feature feature{OGR_L_GetNextFeature(layer)}) {
      const OGRGeometryH geometry = OGR_F_GetGeometryRef(feature.get());
      if (geometry == nullptr) {
        ++drawing_.unknown;
        continue;
      }
      const std::string key = field >= 0 ? OGR_F_GetFieldAsString(feature.get(), field) : layer_name;
      pen_ = pens_.try_emplace(key, static_cast<int>(pens_.size()) + 1).first->second;
      // Arcs and splines become chords.
      const Geometry linear(OGR_G_GetLinearGeometry(geometry, 0.0, nullptr));
      if (linear) add(linear.get());
    }
    if (CPLGetLastErrorType() == CE_Failure) fail(CPLGetLastErrorMsg());
  }

  void add(OGRGeometryH geometry) {
    const OGRwkbGeometryType type = wkbFlatten(OGR_G_GetGeometryType(geometry));
    if (type == wkbLineString) {
      add_path(PathKind::kLine, {points_of(geometry)});
    } else if (type == wkbPolygon || type == wkbTriangle) {
      add_polygon(geometry);
    } else if (OGR_G_GetGeometryCount(geometry) > 0) {
      for (int i = 0; i < OGR_G_GetGeometryCount(geometry); ++i) add(OGR_G_GetGeometryRef(geometry, i));
    } else {
      ++drawing_.unknown;
    }
  }

  void add_polygon(OGRGeometryH polygon) {
    std::vector<PointRun> rings;
    for (int i = 0; i < OGR_G_GetGeometryCount(polygon); ++i) {
      PointRun ring = points_of(OGR_G_GetGeometryRef(polygon, i));
      while (ring.size() > 1 && ring.front() == ring.back()) ring.pop_back();
      if (ring.size() >= 3) rings.push_back(std::move(ring));
    }
    add_path(PathKind::kOutline, std::move(rings));
  }

  void add_path(PathKind kind, std::vector<PointRun> runs) {
    std::erase_if(runs, [](const PointRun& run) { return run.empty(); });
    if (runs.empty())
      ++drawing_.unknown;
    else
      drawing_.paths.push_back({kind, pen_, kDefaultWidth, {}, std::move(runs)});
  }

  PointRun points_of(OGRGeometryH line) {
    PointRun run;
    const int count = OGR_G_GetPointCount(line);
    total_ += static_cast<std::size_t>(count);
    if (total_ > kMostPoints) fail("more than " + std::to_string(kMostPoints) + " points");
    for (int i = 0; i < count; ++i) {
      const Point p = {OGR_G_GetX(line, i), OGR_G_GetY(line, i), OGR_G_GetZ(line, i)};
      if (!(std::abs(p.x) <= kLargest && std::abs(p.y) <= kLargest && std::abs(p.z) <= kLargest))
        fail("expected finite coordinates of at most 1e12");
      if (run.empty() || run.back() != p) run.push_back(p);
    }
    return run;
  }

  const std::string& name_;
  Drawing drawing_;
  std::map<std::string, int> pens_;
  int pen_ = 1;
  std::size_t total_ = 0;
};

}  // namespace

std::optional<Drawing> read_with_gdal(const std::string& name) {
  return GdalReader(name).read();
}

}  // namespace Corvane::Print::plotclip
