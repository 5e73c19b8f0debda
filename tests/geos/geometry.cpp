// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Shared state: the library's context and its last message, for one thread.
#include "tests/geos/geometry.h"

#include <cstdarg>
#include <stdexcept>

#include <geos_c.h>

namespace Corvane::Print::tests {
namespace {

char g_message[1000];

void take_message(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(g_message, sizeof g_message, format, arguments);
  va_end(arguments);
}

struct Context {
  GEOSContextHandle_t handle = GEOS_init_r();
  Context() { GEOSContext_setErrorHandler_r(handle, take_message); }
  ~Context() { GEOS_finish_r(handle); }
};

GEOSContextHandle_t context() {
  static Context the_context;
  return the_context.handle;
}

[[noreturn]] void fail() {
  throw std::runtime_error(g_message);
}

GEOSCoordSequence* coordinates(const Ring& points, bool closed) {
  const auto n = static_cast<unsigned>(points.size());
  GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(context(), n + (closed ? 1 : 0), 2);
  for (unsigned i = 0; i < n + (closed ? 1 : 0); ++i) {
    GEOSCoordSeq_setXY_r(context(), sequence, i, points[i % n].x, points[i % n].y);
  }
  return sequence;
}

// A polygon just as it is listed; null when it has too few points.
GEOSGeometry* raw_polygon(const Ring& ring) {
  if (ring.size() < 3) return nullptr;
  GEOSGeometry* shell = GEOSGeom_createLinearRing_r(context(), coordinates(ring, true));
  if (shell == nullptr) fail();
  return GEOSGeom_createPolygon_r(context(), shell, nullptr, 0);
}

}  // namespace

void Geometry::Release::operator()(GEOSGeom_t* geometry) const {
  GEOSGeom_destroy_r(context(), geometry);
}

Geometry::Geometry(GEOSGeom_t* geometry) : geometry_(geometry) {
  if (geometry == nullptr) fail();
}

Geometry Geometry::polygon(const Ring& ring) {
  if (ring.size() < 3) return {};
  Geometry polygon(raw_polygon(ring));
  // A ring that touches itself is repaired; what it encloses is the same.
  if (GEOSisValid_r(context(), polygon.geometry_.get()) == 1) return polygon;
  return Geometry(GEOSMakeValid_r(context(), polygon.geometry_.get()));
}

bool Geometry::is_simple_ring(const Ring& ring) {
  if (ring.size() < 3) return false;
  const Geometry polygon(raw_polygon(ring));
  return GEOSisValid_r(context(), polygon.geometry_.get()) == 1;
}

Geometry Geometry::united(const Rings& rings) {
  Geometry all;
  for (const Ring& ring : rings) {
    Geometry next = polygon(ring);
    if (next.empty()) continue;
    all = all.empty() ? std::move(next)
                      : Geometry(GEOSUnion_r(context(), all.geometry_.get(), next.geometry_.get()));
  }
  return all;
}

Geometry Geometry::even_odd(const Rings& rings) {
  Geometry all;
  for (const Ring& ring : rings) all = all.symmetric_difference(polygon(ring));
  return all;
}

Geometry Geometry::line(const Ring& points) {
  return Geometry(GEOSGeom_createLineString_r(context(), coordinates(points, false)));
}

Geometry Geometry::intersection(const Geometry& other) const {
  if (empty() || other.empty()) return {};
  return Geometry(GEOSIntersection_r(context(), geometry_.get(), other.geometry_.get()));
}

Geometry Geometry::difference(const Geometry& other) const {
  if (empty()) return {};
  if (other.empty()) return Geometry(GEOSGeom_clone_r(context(), geometry_.get()));
  return Geometry(GEOSDifference_r(context(), geometry_.get(), other.geometry_.get()));
}

Geometry Geometry::symmetric_difference(const Geometry& other) const {
  if (empty() && other.empty()) return {};
  if (empty()) return Geometry(GEOSGeom_clone_r(context(), other.geometry_.get()));
  if (other.empty()) return Geometry(GEOSGeom_clone_r(context(), geometry_.get()));
  return Geometry(GEOSSymDifference_r(context(), geometry_.get(), other.geometry_.get()));
}

double Geometry::area() const {
  double value = 0;
  if (!empty() && GEOSArea_r(context(), geometry_.get(), &value) != 1) fail();
  return value;
}

double Geometry::length() const {
  double value = 0;
  if (!empty() && GEOSLength_r(context(), geometry_.get(), &value) != 1) fail();
  return value;
}

}  // namespace Corvane::Print::tests
