/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * GEOM: small computations on points, axis-parallel rectangles and boxes, and the checks of a plot area.
 *
 *     using namespace Corvane::Print;
 *     const double outline[] = {0, 0, 10, 0, 10, 5, 0, 5};
 *     if (GEOMPointsColinear(2, 4, outline) == 0) plot(outline);
 *
 * Points: x, then y, then z where there are three, one point after the other in the caller's array. `dim` is
 * the number of doubles of a point, 2 or 3. Rectangles are two 2-D corners, boxes two 3-D corners: the one
 * with the smallest coordinates and the one with the largest; that they are so is not checked.
 *
 * Results: functions that compute something return 0; predicates and intersections return 1 for yes and 0 for
 * no. GEOMShapeFindLongestSide alone returns 0 for found and 1 for failed.
 *
 * Numbers: the predicates on points take two coordinates for equal that differ by no more than
 * GEOM_POINT_TOLERANCE, an absolute difference in the caller's units; a difference that is no number does not
 * exceed it. Intersections, enclosing boxes and ranges compare exactly.
 *
 * Null: a computation with a null array writes nothing and returns 0; a predicate that would have to read it
 * returns 0, and GEOMShapeFindLongestSide 1.
 *
 * Ownership: all arrays are the caller's. An output may be an input only where its function says so.
 *
 * Threads: no state; any thread may call. No exception leaves these functions.
 */
#ifndef CORVANE_PRINT_GEOM_H
#define CORVANE_PRINT_GEOM_H

#include "corvane/print/export.h"

namespace Corvane {
namespace Print {

/** The largest difference of coordinates that counts as none, in the caller's units. */
#define GEOM_POINT_TOLERANCE 1e-6

/** What GEOMPointsParallelToAxis and GEOMPointsParallelToPlane take. */
enum GEOMDirection {
  GEOM_X_AXIS = 1,   /**< y is the same everywhere */
  GEOM_Y_AXIS = 2,   /**< x is the same everywhere */
  GEOM_XY_PLANE = 4, /**< z is the same everywhere */
  GEOM_XZ_PLANE = 5, /**< y is the same everywhere */
  GEOM_YZ_PLANE = 6  /**< x is the same everywhere */
};

/** \name Vectors, rectangles, boxes
 * @{ */

/** sum[i] = a[i] + b[i] for n components; `sum` may be a or b. A count below 1 writes nothing. */
CORVANE_PRINT_API int GEOMAddVector(int n, double* a, double* b, double* sum);

/** The four corners of a rectangle, 8 doubles: from the minimum corner along x, then round it, which is
 * counter-clockwise where y points up: (x0,y0) (x1,y0) (x1,y1) (x0,y1). Callers depend on the order. */
CORVANE_PRINT_API int GEOMComputeRectVerts(double* minCorner, double* maxCorner, double* verts);

/** The eight corners of a box, 24 doubles: the face of the smaller z in the order above, then the other. */
CORVANE_PRINT_API int GEOMComputeCubeVerts(double* minCorner, double* maxCorner, double* verts);

/** The smallest rectangle around n 2-D points.
 * The first point is read and written to both corners whatever n is; a count below 2 ends there. */
CORVANE_PRINT_API int GEOMComputeMinEnclRect(int n, double (*pts)[2], double* minCorner, double* maxCorner);

/** The smallest box around n 3-D points; as above. */
CORVANE_PRINT_API int GEOMComputeMinEnclCube(int n, double (*pts)[3], double* minCorner, double* maxCorner);

/** The corners of the box around n 3-D points, n*3 doubles.
 * Oddity, kept: point 0 is the first minimum and point 1 the first maximum, and both are read whatever n is;
 * so with n = 1 point 1 still counts. Callers pass two points at least, mostly the corners of a box. */
CORVANE_PRINT_API int GEOMComputeCubeDiag(int n, double* pts, double* minCorner, double* maxCorner);

/** The part that the rectangles (a1,a2) and (b1,b2) have in common. 1, and its corners; 0, and both corners
 * (0,0), when there is none. Rectangles that share an edge or a corner do intersect, in a rectangle without
 * area. The corners are cleared first: they must not be inputs. */
CORVANE_PRINT_API int GEOMComputeRectIntersection(double* a1, double* a2, double* b1, double* b2,
                                                  double* outMin, double* outMax);

/** The same for boxes. */
CORVANE_PRINT_API int GEOMComputeCubeIntersection(double* a1, double* a2, double* b1, double* b2,
                                                  double* outMin, double* outMax);

/** @} */

/** \name Predicates
 * @{ */

/** Whether all n points equal the first, in `dim` coordinates. 1 also when n or dim is below 1. */
CORVANE_PRINT_API int GEOMPointsEqual(int dim, int n, const double* pts);

/** Whether all n points lie on one line in the XY plane; z does not count.
 * The distance that must not exceed the tolerance is taken upright, along y, from a line through the first
 * two consecutive points that give a slope: steep lines are tested more strictly than flat ones.
 * Points that coincide, and points on one upright line, are on a line.
 * Oddity, kept: too few points (n < 2) give 0 only when dim is below 2 as well, and 1 otherwise.
 * With n >= 2 a dim of 1 gives 0 when the points differ: they have no y. */
CORVANE_PRINT_API int GEOMPointsColinear(int dim, int n, const double* pts);

/** Whether one coordinate is the same for all n points, as GEOMDirection says; no other is looked at. 0 for
 * any other code, also for a plane's code given as an axis. 1 when n is below 1. 0 when the points have no
 * such coordinate (dim too small). */
CORVANE_PRINT_API int GEOMPointsParallelToAxis(int axis, int dim, int n, const double* pts);
/** The same for a plane. */
CORVANE_PRINT_API int GEOMPointsParallelToPlane(int plane, int dim, int n, const double* pts);

/** Whether low <= value <= high; 0 when one of them is no number. */
CORVANE_PRINT_API int GEOMValueInRange(double value, double low, double high);

/** @} */

/** \name Plot areas
 *
 * Both checks round coordinates to whole units, halves away from zero: 0.4 is 0, 0.5 is 1, -0.5 is -1. A
 * coordinate beyond a 32-bit integer, or no number, is taken for the smallest 32-bit integer. Points are
 * `dim` doubles apart, of which x and y count; a dim below 2 gives 0.
 * @{ */

/** Whether an outline of 4 points, or of 5 whose last repeats the first, is an axis-parallel rectangle with
 * width and height, traced either way round. 1 or 0; 0 for any other count. */
CORVANE_PRINT_API int GEOMCheckRect(int dim, int n, double* pts);

/** The same for an outline that may be traced twice.
 *   \param dim  doubles a point
 *   \param n    4: the corners; 5: and the first again; 8: the corners twice; 9: and the first again; 10:
 *               the corners and the first again, twice
 *   \param pts  the outline
 * \return 1 or 0; 0 for any other count. */
CORVANE_PRINT_API int GEOMCheckRectangularPlotArea(int dim, int n, double* pts);

/** The longest side of a closed shape of n points, the side from the last to the first point included.
 *   \param dim   2 or 3
 *   \param n     points
 *   \param pts   the shape
 *   \param side  receives its start and end, 2*dim doubles; written only on success
 * \return 0 found; 1 failed: another dim, points that coincide or lie on a line, no memory.
 *
 * Of sides that are equally long the first one is taken, and a side counts as longer only when it is so by
 * more than a ratio of 0.001. The variable "TQ_PLT_PERCENT_LENEQUAL_TOLERANCE" sets another ratio, above 0;
 * it is read on every call. Oddity, kept: it is a plain ratio, not percent, whatever the variable's name. */
CORVANE_PRINT_API int GEOMShapeFindLongestSide(int dim, int n, double* pts, double* side);

/** @} */

}  // namespace Print
}  // namespace Corvane

#endif
