// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The records of a fence and of a clip: layouts only, no functions. They are C records with a fixed order of
// fields, because hosts that debug plots read them through a fence handle.
//
//   FencePolygon --nextPoly--> FencePolygon --> null         one header per polygon of a fence
//        | first
//        v
//   FenceVertex <--prev-- --next--> FenceVertex ...           the ring as it was given, circular
//        \--next2--> inserted --next2--> ...                  the ring as it is walked, with crossings in it
//
// Invariants
//  - `next` and `prev` are never null and never lead to an inserted vertex; v.next->prev == v.
//  - after a reset `next2 == next` and `partner == null` for every vertex.
//  - `next2` leads from each original vertex through the vertices inserted on its edge, ordered along it, to
//  the
//    next original one.
//  - an inserted vertex has prev = the original vertex that its edge starts at and next = the one it ends at.
//  - partner links are mutual: v.partner->partner == v; the two lie on different rings.
#ifndef CORVANE_PRINT_CLIP_RECORDS_H
#define CORVANE_PRINT_CLIP_RECORDS_H

#include "corvane/print/cl.h"

#include <cstddef>
#include <type_traits>

extern "C" {

typedef int(CORVANE_PRINT_CALL* LineClipper)(FencePolygon* fence, int dim, int numPoints,
                                             const double* points, int* numPieces, int* counts, double* out,
                                             int* numOut);

// Six doubles, as they stand in both records.
struct ClipExtent {
  double xmin, ymin, zmin, xmax, ymax, zmax;
};

struct FenceVertex {
  double x, y, z, w;  // homogeneous; w is always 1
  double tolerance;   // of the edge to `next`, as a share of the edge
  double dx, dy;      // the edge to `next`; on an inserted vertex: the whole edge it was inserted on
  double param;       // inserted vertex: its place on that edge, 0 to 1; indexed ring: a vertex's number
  int marker;         // VertexMarker
  int marker2;        // LinkMarker bits of the running clip; cleared by a reset
  FenceVertex* next;
  FenceVertex* next2;
  FenceVertex* prev;
  FenceVertex* partner;
  ClipExtent extent;  // of the edge to `next`; x and y only
};

// A vertex-shaped record of its own: origin (x, y), tolerance and ray (dx, dy) of the inside test.
typedef FenceVertex ProbeRecord;

struct FencePolygon {
  FenceVertex* first;
  int totalPoints;  // first header of a fence only: the sum of the counts that it was defined with
  int vertexCount;
  FenceVertex* start;
  int containment;  // ContainmentStatus
  int dim;
  double area;
  FencePolygon* nextPoly;
  ClipExtent extent;  // of a fence: z is the depth range
  int clockwise;      // orientation flag
  int mode;
  LineClipper lineClipper;
  int overlap;  // OverlapState
  ProbeRecord* probe;
  int refCount;
};

}  // extern "C"

namespace Corvane::Print::clip {

enum VertexMarker { kOriginal = 0, kInserted = 1 };
enum ContainmentStatus { kNoVerdict = 0, kDropped = 1, kKept = 2 };
enum OverlapState { kApart = 0, kOverlapping = 1, kSubjectInside = 2, kFenceInside = 3 };

struct PolygonIndex;

// A header in its node, and behind it what hosts do not know of.
struct HeaderNode {
  FencePolygon polygon;
  PolygonIndex* index;
};

// One node of the pool, large enough for either record.
union Cnode {
  FencePolygon polygon;
  FenceVertex vertex;
  HeaderNode header;
};
static_assert(sizeof(Cnode) == sizeof(FenceVertex));

static_assert(std::is_trivial_v<FenceVertex> && std::is_standard_layout_v<FenceVertex>);
static_assert(std::is_trivial_v<FencePolygon> && std::is_standard_layout_v<FencePolygon>);
static_assert(offsetof(ClipExtent, xmin) == 0 && offsetof(ClipExtent, ymin) == 8 &&
              offsetof(ClipExtent, zmin) == 16 && offsetof(ClipExtent, xmax) == 24 &&
              offsetof(ClipExtent, ymax) == 32 && offsetof(ClipExtent, zmax) == 40);
static_assert(offsetof(FenceVertex, x) == 0 && offsetof(FenceVertex, y) == 8 &&
              offsetof(FenceVertex, z) == 16 && offsetof(FenceVertex, w) == 24 &&
              offsetof(FenceVertex, tolerance) == 32 && offsetof(FenceVertex, dx) == 40 &&
              offsetof(FenceVertex, dy) == 48 && offsetof(FenceVertex, param) == 56 &&
              offsetof(FenceVertex, marker) == 64 && offsetof(FenceVertex, marker2) == 68 &&
              offsetof(FenceVertex, next) == 72);
static_assert(offsetof(FenceVertex, next) < offsetof(FenceVertex, next2) &&
              offsetof(FenceVertex, next2) < offsetof(FenceVertex, prev) &&
              offsetof(FenceVertex, prev) < offsetof(FenceVertex, partner) &&
              offsetof(FenceVertex, partner) < offsetof(FenceVertex, extent));
static_assert(offsetof(FencePolygon, first) == 0 &&
              offsetof(FencePolygon, totalPoints) < offsetof(FencePolygon, vertexCount) &&
              offsetof(FencePolygon, vertexCount) < offsetof(FencePolygon, start) &&
              offsetof(FencePolygon, start) < offsetof(FencePolygon, containment) &&
              offsetof(FencePolygon, containment) < offsetof(FencePolygon, dim) &&
              offsetof(FencePolygon, dim) < offsetof(FencePolygon, area) &&
              offsetof(FencePolygon, area) < offsetof(FencePolygon, nextPoly) &&
              offsetof(FencePolygon, nextPoly) < offsetof(FencePolygon, extent) &&
              offsetof(FencePolygon, extent) < offsetof(FencePolygon, clockwise) &&
              offsetof(FencePolygon, clockwise) < offsetof(FencePolygon, mode) &&
              offsetof(FencePolygon, mode) < offsetof(FencePolygon, lineClipper) &&
              offsetof(FencePolygon, lineClipper) < offsetof(FencePolygon, overlap) &&
              offsetof(FencePolygon, overlap) < offsetof(FencePolygon, probe) &&
              offsetof(FencePolygon, probe) < offsetof(FencePolygon, refCount));
static_assert(offsetof(CLclpMemType, dim) == 0 && offsetof(CLclpMemType, polyRequest) == 4 &&
              offsetof(CLclpMemType, polyCapacity) == 8 &&
              offsetof(CLclpMemType, polyCapacity) < offsetof(CLclpMemType, counts) &&
              offsetof(CLclpMemType, counts) < offsetof(CLclpMemType, pointRequest) &&
              offsetof(CLclpMemType, pointRequest) < offsetof(CLclpMemType, pointCapacity) &&
              offsetof(CLclpMemType, pointCapacity) < offsetof(CLclpMemType, points));
// On 32 bits, where hosts and debuggers know the offsets.
static_assert(sizeof(void*) != 4 ||
              (sizeof(FenceVertex) == 136 && sizeof(FencePolygon) == 112 && sizeof(CLclpMemType) == 28 &&
               offsetof(FenceVertex, partner) == 84 && offsetof(FenceVertex, extent) == 88 &&
               offsetof(FencePolygon, dim) == 20 && offsetof(FencePolygon, area) == 24 &&
               offsetof(FencePolygon, nextPoly) == 32 && offsetof(FencePolygon, extent) == 40 &&
               offsetof(FencePolygon, refCount) == 108 && offsetof(CLclpMemType, counts) == 12 &&
               offsetof(CLclpMemType, points) == 24));

}  // namespace Corvane::Print::clip

#endif
