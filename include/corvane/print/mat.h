/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * MAT: homogeneous matrices for plotting in two and three dimensions, and points in homogeneous form.
 *
 *     using namespace Corvane::Print;
 *     double turn[9], shift[9], both[9], p[] = {1, 0, 1};
 *     MATBuildRotAboutZHMat(2, 1.5707963267948966, turn);
 *     MATBuildTransHMat(2, 5, 7, 0, shift);
 *     MATMulMatMat(3, turn, shift, both);
 *     MATMulVecMat(3, p, 1, both, p);              // (5, 8, 1)
 *
 * Matrices are row-major: element (r, c) of a matrix of order n is m[r*n + c]. Points are ROW vectors, with
 * the matrix on their right: p' = p * M, and in a product the first factor acts first. So a translation
 * stands in the last row, and the homogeneous coordinate is a point's last element. Angles are in radians; a
 * positive one turns counter-clockwise where y points up.
 *
 * Mind the first argument. `dim` is the dimension of the space, 2 or 3, and a homogeneous matrix for it has
 * order dim + 1: 9 or 16 doubles. `n` is a matrix's order, 2, 3 or 4: n*n doubles.
 *
 * Results: 0, but for MATCvtMatToHomog. Whatever is null, nothing is written and the result is the same.
 *
 * Ownership: all arrays are the caller's. An output may be an input where the function says so.
 *
 * Threads: no state, no heap; any thread may call. No exception leaves these functions.
 */
#ifndef CORVANE_PRINT_MAT_H
#define CORVANE_PRINT_MAT_H

#include "corvane/print/export.h"

namespace Corvane {
namespace Print {

/** \name Builders
 *
 * `m` receives (dim+1)*(dim+1) doubles.
 * Oddity, kept: a dim other than 2 or 3 clears that many doubles all the same, 36 for a dim of 5, and writes
 * nothing else. A number of doubles that a 32-bit integer cannot hold clears none.
 * @{ */

/** (1,0,0) (0,1,0) (tx,ty,1); tz is not looked at in two dimensions. */
CORVANE_PRINT_API int MATBuildTransHMat(int dim, double tx, double ty, double tz, double* m);

/** (sx,0,0) (0,sy,0) (0,0,1); sz is not looked at in two dimensions. */
CORVANE_PRINT_API int MATBuildScaleHMat(int dim, double sx, double sy, double sz, double* m);

/** With c and s for the cosine and the sine of the angle: (c,s,0) (-s,c,0) (0,0,1). */
CORVANE_PRINT_API int MATBuildRotAboutZHMat(int dim, double angle, double* m);

/** @} */

/** \name Inverses
 *
 * They trust the kind of matrix that they are given; none inverts matrices in general. `inv` may be m. For a
 * dim other than 2 or 3 they write nothing.
 * @{ */

/** Of a translation: the translation negated, 1 at its end, the other rows as they are. */
CORVANE_PRINT_API int MATBuildInvTransHMat(int dim, double* m, double* inv);

/** Of a scaling: the first dim elements of the diagonal become their reciprocals, a zero an infinity; the
 * other elements stay. */
CORVANE_PRINT_API int MATBuildInvScaleHMat(int dim, double* m, double* inv);

/** Of a homogeneous rotation: its transpose. */
CORVANE_PRINT_API int MATBuildInvRotHMat(int dim, double* m, double* inv);

/** Of a plain rotation of dim*dim doubles: its transpose. */
CORVANE_PRINT_API int MATInvRotMat(int dim, double* r, double* inv);

/** @} */

/** \name Products
 *
 * Other orders than 2, 3 and 4 write nothing. Sums are taken in the order of the elements.
 * @{ */

/** The transpose; `t` may be m. */
CORVANE_PRINT_API int MATTransposeMat(int n, const double* m, double* t);

/** c = a * b; `c` may be a or b. */
CORVANE_PRINT_API int MATMulMatMat(int n, double* a, double* b, double* c);

/** out = v * m for each of `count` row vectors of n doubles; none below 1. `out` may be `vecs`. Nothing is
 * divided by the homogeneous coordinate. */
CORVANE_PRINT_API int MATMulVecMat(int n, double* vecs, int count, double* m, double* out);

/** @} */

/** \name Plain and homogeneous
 * @{ */

/** A plain matrix of dim*dim doubles within a homogeneous one of (dim+1)*(dim+1); `h` may be r where it has
 * the room. 0; 1, and nothing written, for a dim other than 2 or 3. */
CORVANE_PRINT_API int MATCvtMatToHomog(int dim, double* r, double* h);

/** Appends 1.0 to each of `count` points of dim doubles; `hpts` receives count*(dim+1) doubles and may be
 * `pts` where it has the room. Nothing for a count or a dim below 1. */
CORVANE_PRINT_API void MATConvertPtDimToHomog(int dim, int count, const double* pts, double* hpts);

/** Leaves out the last of the dim+1 doubles of each point; `pts` receives count*dim doubles and may be
 * `hpts`. Nothing for a count or a dim below 1.
 * Oddity, kept: the last double is taken for 1, nothing is divided by it: (4, 6, 2) becomes (4, 6). */
CORVANE_PRINT_API void MATConvertPtHomogToDim(int dim, int count, const double* hpts, double* pts);

/** @} */

}  // namespace Print
}  // namespace Corvane

#endif
