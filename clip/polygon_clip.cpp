// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The driver: a subject is built (subject), then kept inside or outside the fence (keep_inside,
// keep_outside), which link it with the fence (links), ask who lies inside whom (verdict) and write the
// pieces (emit).
//
// No state of its own.
#include "clip/polygon_clip.h"

#include "clip/form.h"
#include "clip/keep.h"
#include "clip/output_room.h"
#include "clip/point_count.h"
#include "clip/ring.h"
#include "clip/subject.h"

#include <new>

namespace Corvane::Print::clip {
namespace {

// A call without room learns a first size to allocate.
//
// KEEP(room-before-arguments): this is asked before the fence, the dimension and the count are looked at, and
// a missing array counts as a lack of room. Looks wrong; callers start with nothing allocated. Pinned by
// PolygonClip.TheCheckForRoomComesBeforeTheOtherArguments and
// PolygonClip.NoRoomAsksForAsManyPiecesAsPointsAndTwiceThePoints.
bool lacks_room(const double* points, const int* num_pieces, const int* counts, const double* out,
                const int* num_out) {
  return points == nullptr || counts == nullptr || out == nullptr || *num_pieces < 1 || *num_out < 1;
}

int suggest_room(int num_points, int* num_pieces, int* num_out) {
  if (*num_pieces <= 0) *num_pieces = num_points;
  if (*num_out <= 0) *num_out = 2 * num_points;
  return CL_TOO_SMALL;
}

bool left_the_subject(const OutputRoom& room, const ClipExtent& limit) {
  return room.xmin() < limit.xmin || room.xmax() > limit.xmax || room.ymin() < limit.ymin ||
         room.ymax() > limit.ymax;
}

}  // namespace

int clip_polygon(FencePolygon* fence, int dim, int num_points, const double* points, int* num_pieces,
                 int* counts, double* out, int* num_out) try {
  if (num_pieces == nullptr || num_out == nullptr || num_points < 0) return CL_BAD_ARGUMENT;
  if (lacks_room(points, num_pieces, counts, out, num_out)) {
    return suggest_room(num_points, num_pieces, num_out);
  }
  if (fence == nullptr || (dim != 2 && dim != 3) || num_points == 0) return CL_BAD_ARGUMENT;
  if (!is_addressable(num_points, dim)) return CL_BAD_ARGUMENT;
  OutputRoom room(dim, *num_pieces, counts, out, *num_out);
  Subject subject(g_form);
  subject.build(*fence, dim, num_points, points);
  // What was inserted by snapping to the fence belongs to the subject's extent: its edges lead there.
  ClipExtent limit = empty_extent();
  for (FencePolygon* polygon : subject) include_extent(limit, polygon->extent);
  for (FencePolygon* polygon : subject) {
    const auto keep = fence->mode == CL_KEEP_OUTSIDE ? keep_outside : keep_inside;
    keep(*fence, *polygon, limit, room);
  }
  const int status = room.finish_polygons(num_pieces, num_out);
  if (status != CL_OK || subject.empty()) return status;
  return left_the_subject(room, limit) ? CL_INCONSISTENT : CL_OK;
} catch (const std::bad_alloc&) {
  return CL_NO_MEMORY;
}

}  // namespace Corvane::Print::clip
