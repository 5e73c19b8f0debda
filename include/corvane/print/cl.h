/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * CL: clipping of plot geometry against fences, and growing of polygons. Usable from C and C++.
 *
 * A fence is a region made of one or more closed polygons with a depth range. In mode 2 a clip keeps what
 * lies inside the fence, in mode 1 what lies outside. Define a fence, clip polylines and polygons against it,
 * release it:
 *
 *     double corners[4] = {0, 0, 10, 10};
 *     double line[6] = {-5, 5, 5, 5, 15, 5};
 *     int two = 2, pieces, points, status;
 *     CLFenceHandle fence = 0;
 *     CLclpMemType mem = {3, 25, 0, 0, 150, 0, 0};
 *     CLdefFence(&fence, 2, 1, &two, corners, 0.0, 0.0, 2);
 *     do {
 *       if ((status = CLreallocClpMem(&mem)) != CL_OK) break;
 *       status = CLclipLine(fence, 2, 3, line, &mem.polyRequest, mem.counts, mem.points, &mem.pointRequest);
 *     } while (status == CL_TOO_SMALL);
 *     CLdeleteFence(fence);
 *
 * Points are flat arrays of doubles, `dim` doubles a point (x, y and, for dim 3, z), one unit of length
 * throughout. A polygon is listed without repeating its first point.
 *
 * Ownership: arrays are the caller's. A fence belongs to whoever holds a reference; the last CLdeleteFence
 * releases it. The arrays of a CLclpMemType come from malloc and are released with free.
 *
 * Threads: none of this family may run concurrently with any other call of it: fences are marked while they
 * are clipped against, and the working memory is shared by the whole process.
 */
#ifndef CORVANE_PRINT_CL_H
#define CORVANE_PRINT_CL_H

#include "corvane/print/export.h"
#include "corvane/print/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Results of every function of the family. */
enum {
  CL_OK = 0,            /**< done */
  CL_BAD_ARGUMENT = -2, /**< null pointer, count below 1, dimension not 2 or 3, depth range reversed, ... */
  CL_TOO_SMALL = -3,    /**< an array of the caller is too small: allocate what its counts say, call again */
  CL_NO_MEMORY = -4,    /**< memory ran out */
  CL_EMPTY = -5,        /**< two fences have nothing in common */
  CL_INCONSISTENT = -6  /**< a polygon clip left the subject's extent; the output is not to be used */
};

/** Fence modes. */
enum {
  CL_KEEP_OUTSIDE = 1, /**< what lies outside is kept */
  CL_KEEP_INSIDE = 2   /**< what lies inside is kept */
};

/** A point of a polyline whose x is this value, the largest finite double, breaks the line: the points before
 * and after it are not joined. Breaks are never part of an output. */
#define CL_BREAK 1.7976931348623157e308

/** A fence; opaque. */
typedef struct FencePolygon* CLFenceHandle;

/** The caller's clip memory: arrays for the output of a clip with what is wanted and what is there.
 * Start with {3, 25, 0, 0, 150, 0, 0} or any other request, let CLreallocClpMem allocate, and hand the
 * request fields to the clip as its in/out counts. */
typedef struct CLclpMemType {
  int dim;           /**< doubles per point that the point array has room for: 3 */
  int polyRequest;   /**< wanted entries of `counts`; in/out piece count of a clip */
  int polyCapacity;  /**< entries allocated, less one spare */
  int* counts;       /**< points of each piece */
  int pointRequest;  /**< wanted points; in/out point count of a clip */
  int pointCapacity; /**< points allocated, three doubles each, less one spare */
  double* points;    /**< the pieces' points, one piece after the other */
} CLclpMemType;

/** Builds a fence with reference count 1.
 *   \param fence       out: the handle; untouched on failure
 *   \param dim         2 or 3
 *   \param numPolys    polygons, at least 1; they should not overlap one another
 *   \param counts      numPolys counts of points, each at least 1; rewritten in one case, see below
 *   \param points      dim doubles per point, the polygons one after the other; finite
 *   \param zLow,zHigh  depth range, zLow <= zHigh; may be infinite
 *   \param mode        CL_KEEP_OUTSIDE or CL_KEEP_INSIDE
 * \return CL_OK or CL_BAD_ARGUMENT (also when memory ran out).
 *
 * One polygon of two points stands for the axis-parallel rectangle with these corners.
 *
 * Oddity, kept: counts[0] then becomes 5, the number of points that the ring is built from; hosts size their
 * next arrays by it. It stays 2 when the call fails, so that the call may be repeated.
 *
 * In 2-D the ring runs (x0,y0), (x0,y1), (x1,y1), (x1,y0); in 3-D in the other direction and all at the first
 * corner's z.
 * A single polygon of 4 or 5 points counts as a rectangle too when its coordinates, rounded to integers, form
 * one. A rectangular fence in mode 2 gets a faster line clipper. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLdefFence(CLFenceHandle* fence, int dim, int numPolys, int* counts,
                                                    const double* points, double zLow, double zHigh,
                                                    int mode);

/** Gives one reference back and releases the fence with the last one. Null is accepted. Returns CL_OK. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLdeleteFence(CLFenceHandle fence);

/** Takes a further reference. Returns CL_OK, or CL_BAD_ARGUMENT for null. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLaddFenceRef(CLFenceHandle fence);

/** Describes a fence in 14 words of 32 bits:
 *   - words 0 to 11: six doubles, xmin, ymin, zmin, xmax, ymax, zmax of the first polygon, z being the depth
 *     range
 *   - word 12: the mode
 *   - word 13: 1 when lines are clipped by the rectangle line clipper, else 0
 *
 * The array need not be aligned for doubles. Returns CL_OK, or CL_BAD_ARGUMENT for a null argument. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLinqFenceInfo(CLFenceHandle fence, int* words);

/** Grows the arrays of a clip memory to the requested counts. Where there is room enough already, the
 * request is raised to the capacity, so that a clip may use all of it.
 * \return CL_OK; CL_NO_MEMORY, where the array that could not grow is gone (released, null, capacity 0) while
 * its request stands; or CL_BAD_ARGUMENT for null. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLreallocClpMem(CLclpMemType* mem);

/** Copies the polygons of a fence as they are kept: cleaned of repeated points, running counter-clockwise in
 * mode 1 and clockwise in mode 2, each closed by its first point.
 *   \param fence      the fence
 *   \param numPolys   in: entries of counts; out: polygons written
 *   \param counts     out: points of each polygon, the closing one included; may be null when *numPolys
 *                     is 0
 *   \param points     out: as many doubles per point as the fence has dimensions; may be null when
 *                     *numPoints is 0
 *   \param numPoints  in: points of room; out: points written
 * \return CL_OK; CL_BAD_ARGUMENT; or CL_TOO_SMALL with a count that was short set to the need plus 1.
 *
 * Oddity, kept: the extra 1; callers that allocate what they are told rely on the spare entry. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLextractPolygons(CLFenceHandle fence, int* numPolys, int* counts,
                                                           double* points, int* numPoints);

/** Clips polylines against a fence.
 *   \param fence      the fence
 *   \param dim        doubles per point of the input and of the output, 2 or 3
 *   \param numPoints  input points, at least 1, at most half of the largest int
 *   \param points     input; points with x = CL_BREAK separate polylines
 *   \param numPieces  in: entries of counts; out: pieces written, or entries needed
 *   \param counts     out: points of each piece
 *   \param out        out: the pieces' points, one piece after the other
 *   \param numOut     in: points of room in out; out: points written, or points needed
 * \return CL_OK, CL_BAD_ARGUMENT, CL_NO_MEMORY, or CL_TOO_SMALL: enlarge and repeat the whole call.
 *
 * A 3-D line is also cut to the fence's depth range, except by a mode-1 fence.
 *
 * Oddities, kept:
 *  - one point of the room is held back, because every point is written as three doubles; ask for one more
 *    than you need (the counts that CL_TOO_SMALL reports include it);
 *  - a rectangular fence in mode 2 reports a last piece of 0 points when the last piece was ended by a
 *    break or by a segment outside the rectangle; such a fence also takes points up to 0.001 outside for
 *    inside, drops a single point behind the last break, writes an input of one point twice, and asks for
 *    twice the input points, of both kinds, whatever was short. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLclipLine(CLFenceHandle fence, int dim, int numPoints,
                                                    const double* points, int* numPieces, int* counts,
                                                    double* out, int* numOut);

/** Clips one polygon against a fence. Arguments as CLclipLine, the input being one ring (a repeated last
 * point does no harm). The pieces are open rings. With a mode-1 fence, a fence polygon wholly inside the
 * subject is an extra piece: a hole.
 * \return CL_OK (with 0 pieces when nothing is left), CL_BAD_ARGUMENT, CL_TOO_SMALL, CL_NO_MEMORY, or
 * CL_INCONSISTENT. A call without room (a capacity below 1 or a null array) answers CL_TOO_SMALL and sets the
 * capacities below 1 to a first guess: as many pieces as subject points, twice as many points. That comes
 * before all other checks but these: numPieces and numOut must not be null, and numPoints must not be
 * negative or more than half of the largest int. CL_TOO_SMALL also comes before CL_INCONSISTENT.
 *
 * A 3-D subject is also cut to the fence's depth range, except by a mode-1 fence; a subject wholly above or
 * below it yields nothing in either mode. Crossings carry the subject's z.
 *
 * Oddity, kept: edges whose cross product is at most 0.05 count as parallel whatever their length, so very
 * short edges (below about 0.2) do not intersect one another. Scale such data up. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLclipPolygon(CLFenceHandle fence, int dim, int numPoints,
                                                       const double* points, int* numPieces, int* counts,
                                                       double* out, int* numOut);

/** Intersects two fences into a new one, independent of both, with the subject's mode and dimension.
 *   \param clip,subject  the fences; clip is used in its own mode
 *   \param result        out: the new handle. Null after CL_EMPTY, except that it is untouched when two
 *                        3-D fences have no depth in common; untouched after any other failure
 * \return CL_OK, CL_BAD_ARGUMENT, CL_NO_MEMORY, CL_EMPTY or CL_INCONSISTENT.
 *
 * Oddity, kept: the polygons of a 3-D subject after its first are read two doubles per point further on, not
 * three; callers lay their fences out for it. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLclipFences(CLFenceHandle clip, CLFenceHandle subject,
                                                      CLFenceHandle* result);

/** Moves every edge of polygons outward by a distance (inward when negative); each vertex goes to where
 * its two moved edges meet, without a miter limit and without removing self-intersections.
 *   \param dim       doubles per point, 2 or 3; z is copied
 *   \param nPolys    entries; below 1 nothing is done
 *   \param counts    points of each entry. 2 points are opposite corners of an axis-parallel rectangle;
 *                    any other number is a ring, open or closed (last point equal to the first); below 1
 *                    there is no point
 *   \param pts       the entries' points, one after the other; may be null when no entry has points
 *   \param distance  in the points' unit
 *   \param out       room for as many points as pts has; may be pts itself, but must not overlap it
 *                    otherwise; may be null when no entry has points
 * \return CL_OK; CL_NO_MEMORY, only with an entry of more than 254 points and with nothing written; or
 * CL_BAD_ARGUMENT for another dim, for null, or for more points than the address space can hold.
 *
 * Oddities, kept:
 *  - a rectangle does not advance the output position: the next entry is written over it, and only a
 *    rectangle that comes last keeps its result. Callers pass rectangles alone or last;
 *  - an open ring's direction is judged without its closing edge.
 * A vertex on an edge without length stays where it is, and so does a single point. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL CLGrowPolygons(int dim, int nPolys, int* counts, double* pts,
                                                        double distance, double* out);

#ifdef __cplusplus
}
#endif

#endif
