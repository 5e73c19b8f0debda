/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 */
/** \file
 * Plain names: every function of the library that lives in a C++ namespace, under the same name as a plain C
 * function. For hosts in C and in languages that find functions by name at run time, since the names of
 * functions in a namespace differ from compiler to compiler. These are the same on every target. CL and FU
 * have plain names by themselves: see cl.h and fu.h.
 *
 *     double turn[9], p[3] = {1, 0, 1};
 *     MATBuildRotAboutZHMat(2, 1.5707963267948966, turn);
 *     MATMulVecMat(3, p, 1, turn, p);
 *
 * Each function does what its namesake does, with the same arguments, results, ownership and threads; the
 * family's own header is the reference. Where the two differ, it is told here. No exception of the library's
 * own leaves these functions.
 *
 * Calling convention: the C convention, also on 32-bit Windows; no decoration in the export table. A `bool` is
 * one byte, CPWChar is a 16-bit unit everywhere, `unsigned long` has 32 bits on Windows and 64 elsewhere.
 *
 * In C++ the declarations are in the namespace Corvane::Plain, so that a host that opens Corvane::Print does
 * not find two functions for every call. A C++ host has no need of them, whatever its compiler: it calls the
 * functions of the family's header.
 *
 * NativeFileSpec has no functions here: it holds strings of the C++ library. Hosts in other languages keep the
 * texts themselves and let the FU functions do its work.
 */
#ifndef CORVANE_PRINT_PLAIN_H
#define CORVANE_PRINT_PLAIN_H

#include <stdarg.h>

#include "corvane/print/dbgtools.h"
#include "corvane/print/export.h"
#include "corvane/print/types.h"

#ifdef __cplusplus
namespace Corvane {
namespace Plain {
extern "C" {
#else
#include <stdbool.h>
#endif

/** \name Configuration variables: cf.h
 * \{ */

/** The host's lookup; sizes are in bytes, with the terminator. */
typedef int(CORVANE_PRINT_CALL* CFGetEnvVarCallback)(const CPWChar* name, CPWChar* buffer, int capacity);

/** Installs the host's lookup; null brings the environment back. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL CFSetGetEnvVarCallback(CFGetEnvVarCallback callback);

/** The value of a variable, or null; the caller hands it to CFReleaseValue. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL CFGetenvW(const CPWChar* name);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL CFGetenv(const char* name);

/** Whether CFGetenvW would yield a value. */
CORVANE_PRINT_API bool CORVANE_PRINT_CALL CFIsVariableDefinedW(const CPWChar* name);
/** Whether CFGetenv would yield a value. */
CORVANE_PRINT_API bool CORVANE_PRINT_CALL CFIsVariableDefined(const char* name);

/** Releases a value of CFGetenvW or CFGetenv; null is ignored. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL CFReleaseValue(void* value);

/** \}
 * \name Points, rectangles, boxes, plot areas: geom.h
 * \{ */

/** The largest difference of coordinates that counts as none, in the caller's units. */
#define GEOM_POINT_TOLERANCE 1e-6

/** What GEOMPointsParallelToAxis and GEOMPointsParallelToPlane take. */
enum {
  GEOM_X_AXIS = 1,   /**< y is the same everywhere */
  GEOM_Y_AXIS = 2,   /**< x is the same everywhere */
  GEOM_XY_PLANE = 4, /**< z is the same everywhere */
  GEOM_XZ_PLANE = 5, /**< y is the same everywhere */
  GEOM_YZ_PLANE = 6  /**< x is the same everywhere */
};

/** The sum of two vectors of n components. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMAddVector(int n, double* a, double* b, double* sum);

/** The four corners of a rectangle, 8 doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeRectVerts(double* minCorner, double* maxCorner,
                                                              double* verts);
/** The eight corners of a box, 24 doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeCubeVerts(double* minCorner, double* maxCorner,
                                                              double* verts);

/** The smallest rectangle around n 2-D points. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeMinEnclRect(int n, double (*pts)[2], double* minCorner,
                                                                double* maxCorner);
/** The smallest box around n 3-D points. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeMinEnclCube(int n, double (*pts)[3], double* minCorner,
                                                                double* maxCorner);
/** The corners of the box around n 3-D points, of which the first two are read in any case. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeCubeDiag(int n, double* pts, double* minCorner,
                                                             double* maxCorner);

/** The part that two rectangles have in common: 1, or 0 when there is none. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeRectIntersection(double* a1, double* a2, double* b1,
                                                                     double* b2, double* outMin,
                                                                     double* outMax);
/** The part that two boxes have in common: 1, or 0 when there is none. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMComputeCubeIntersection(double* a1, double* a2, double* b1,
                                                                     double* b2, double* outMin,
                                                                     double* outMax);

/** Whether all n points equal the first: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMPointsEqual(int dim, int n, const double* pts);
/** Whether all n points lie on one line in the XY plane: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMPointsColinear(int dim, int n, const double* pts);
/** Whether all n points lie on a line parallel to an axis: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMPointsParallelToAxis(int axis, int dim, int n,
                                                                  const double* pts);
/** Whether all n points lie on a plane parallel to that of two axes: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMPointsParallelToPlane(int plane, int dim, int n,
                                                                   const double* pts);
/** Whether low <= value <= high: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMValueInRange(double value, double low, double high);

/** Whether an outline of 4 or 5 points is an upright rectangle in whole units: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMCheckRect(int dim, int n, double* pts);
/** The same for an outline that may be traced twice: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMCheckRectangularPlotArea(int dim, int n, double* pts);
/** The longest side of a closed shape: 0 and its ends in `side`, 2*dim doubles; or 1. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL GEOMShapeFindLongestSide(int dim, int n, double* pts, double* side);

/** \}
 * \name Matrices: mat.h
 * \{ */

/** A translation of (dim+1)*(dim+1) doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildTransHMat(int dim, double tx, double ty, double tz,
                                                           double* m);
/** A scaling of (dim+1)*(dim+1) doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildScaleHMat(int dim, double sx, double sy, double sz,
                                                           double* m);
/** A rotation about the z axis of (dim+1)*(dim+1) doubles; radians. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildRotAboutZHMat(int dim, double angle, double* m);

/** The inverse of a translation. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildInvTransHMat(int dim, double* m, double* inv);
/** The inverse of a scaling. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildInvScaleHMat(int dim, double* m, double* inv);
/** The inverse of a homogeneous rotation. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATBuildInvRotHMat(int dim, double* m, double* inv);
/** The inverse of a plain rotation of dim*dim doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATInvRotMat(int dim, double* r, double* inv);

/** The transpose of a matrix of order n. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATTransposeMat(int n, const double* m, double* t);
/** c = a * b, all of order n. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATMulMatMat(int n, double* a, double* b, double* c);
/** out = v * m for each of `count` row vectors of n doubles. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATMulVecMat(int n, double* vecs, int count, double* m, double* out);

/** A plain matrix within a homogeneous one: 0, or 1 for a dim other than 2 or 3. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL MATCvtMatToHomog(int dim, double* r, double* h);
/** Appends 1.0 to each of `count` points of dim doubles. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL MATConvertPtDimToHomog(int dim, int count, const double* pts,
                                                                 double* hpts);
/** Leaves out the last of the dim+1 doubles of each of `count` points. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL MATConvertPtHomogToDim(int dim, int count, const double* hpts,
                                                                 double* pts);

/** \}
 * \name Object list: ol.h
 * \{ */

/** What the OL functions answer. */
enum {
  OL_OK = 0,          /**< done */
  OL_BAD_INDEX = -2,  /**< below 0, or not below the number of items */
  OL_NOT_A_LIST = -3, /**< the handle is none */
  OL_NO_MEMORY = -4,  /**< memory ran out */
  OL_NOT_FOUND = -5,  /**< the filter accepted no item */
  OL_EMPTY = -6,      /**< the list has no items */
  OL_NO_FILTER = -7   /**< there is no filter */
};

/** Where a new item goes: below 0 when it stands before the list's item, else 0 or above. */
typedef int(CORVANE_PRINT_CALL* OLCompare)(void* newItem, void* listItem, void* context);
/** Whether an item is wanted: anything but 0 when it is. */
typedef int(CORVANE_PRINT_CALL* OLFilter)(void* listItem, void* context);

/** A new, empty list; null when memory ran out. */
CORVANE_PRINT_API void* CORVANE_PRINT_CALL OLCreate(void);
/** Releases a list and its items. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLDestroy(void* list);
/** Deletes all items; an empty list answers OL_EMPTY. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLClear(void* list);
/** The number of items. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLGetNumItems(void* list, int* count);
/** Inserts a copy of `size` bytes, in ascending order by `compare` or, where that is null, at the end. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLItemInsert(void* list, void* item, int size, OLCompare compare,
                                                      void* context);
/** Deletes an item. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLItemDelete(void* list, int index);
/** Replaces an item by a copy of `size` bytes. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLItemSet(void* list, int index, void* item, int size);
/** The bytes of an item, which stay the list's. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLItemGetByIndex(void* list, int index, void** item);
/** The first item from position *index on that the filter accepts. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL OLItemGetByFilter(void* list, OLFilter filter, void* context,
                                                           int* index, void** item);

/** \}
 * \name Strings: str.h
 *
 * Those without a remark return `out`, whose room str.h tells.
 * \{ */

/** Compares without regard to case: 0 equal, -1 s1 sorts first, 1 otherwise. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRCompareCIW(const CPWChar* s1, const CPWChar* s2);
/** The same for narrow text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRCompareCI(const char* s1, const char* s2);
/** Compares at most `count` characters without regard to case. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRCompareCICountW(const CPWChar* s1, const CPWChar* s2, int count);
/** The same for narrow text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRCompareCICount(const char* s1, const char* s2, int count);

/** Whether the whole string matches a pattern with * ? and backslashes: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRMatchPatternW(const CPWChar* string, const CPWChar* pattern);
/** The same for narrow text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRMatchPattern(const char* string, const char* pattern);
/** Whether the whole string matches a pattern without regard to case: 1 or 0. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRMatchPatternCIW(const CPWChar* string, const CPWChar* pattern);
/** The same for narrow text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL STRMatchPatternCI(const char* string, const char* pattern);

/** Without any `ch`. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRDeleteCharW(const CPWChar* str, int ch, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRDeleteChar(const char* str, int ch, char* out);
/** Without the run of `ch` at the beginning. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRDeleteCharLeadW(const CPWChar* str, int ch, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRDeleteCharLead(const char* str, int ch, char* out);
/** Without the run of `ch` at the end. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRDeleteCharTrailW(const CPWChar* str, int ch, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRDeleteCharTrail(const char* str, int ch, char* out);

/** At most `count` characters from position `start`. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRExtractSubstrW(const CPWChar* str, int start, int count,
                                                                CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRExtractSubstr(const char* str, int start, int count, char* out);
/** With `sub` inserted in front of position `pos`. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRInsertSubstrW(const CPWChar* str, int pos,
                                                               const CPWChar* sub, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRInsertSubstr(const char* str, int pos, const char* sub,
                                                           char* out);

/** In lower case. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRLowerW(const CPWChar* str, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRLower(const char* str, char* out);
/** In upper case. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRUpperW(const CPWChar* str, CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRUpper(const char* str, char* out);

/** With every `from` replaced by `to`. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRReplaceCharW(const CPWChar* str, int from, int to,
                                                              CPWChar* out);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRReplaceChar(const char* str, int from, int to, char* out);
/** Reverses the text in place and returns it. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRReverseW(CPWChar* str);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRReverse(char* str);

/** A new copy, which the caller releases with free; null for null and when memory ran out. */
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL STRDupW(const CPWChar* str);
/** The same for narrow text. */
CORVANE_PRINT_API char* CORVANE_PRINT_CALL STRDup(const char* str);

/** \}
 * \name Debug output: db.h
 *
 * They return what the debug library's entry point does, and 0 where there is none. What it throws is not held
 * up. A text that is not meant as a format goes in as the argument of "%s".
 * \{ */

/** A message. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMSG(const char* format, ...);
/** A message whose arguments are a list. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMSGVA(const char* format, va_list args);
/** An error. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBERR(const char* format, ...);
/** An error whose arguments are a list. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBERRVA(const char* format, va_list args);
/** Something to pay attention to. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBATT(const char* format, ...);
/** A highlighted message. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBHMSG(const char* format, ...);
/** A message of any kind. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBCMSG(unsigned long code, char* format, ...);
/** A message in grey, 0 black to 255 white. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBBMSG(unsigned long level, char* format, ...);
/** A message that waits for the user. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBPAUSE(char* format, ...);

/** A wide message. This one and the three below differ from their namesakes: they take a format and nothing
 * else. A conversion in the format has no argument of the caller's; the first sixteen find zeros. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMSGW(const CPWChar* format);
/** A wide error; see DBMSGW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBERRW(const CPWChar* format);
/** Wide text to pay attention to; see DBMSGW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBATTW(const CPWChar* format);
/** A wide highlighted message; see DBMSGW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBHMSGW(const CPWChar* format);

/** Asks for values, which go to the addresses behind the texts. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBINP(char* text1, char* text2, ...);
/** Asks for a text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBGETSA(char* text, char* buffer);
/** Asks for a wide text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBGETSW(unsigned short* text, unsigned short* buffer);
/** Shows `count` bytes of memory. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMEMDUMP(void* address, unsigned int count);
/** Shows the bytes of a text. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBSTRDUMP(char* text);
/** A message box. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMB(char* text1, char* text2, unsigned int style);
/** Tells the debug library the application's name. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBInitApp(char* name);
/** A list of `count` texts to choose from. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBLBV(char* title, int count, char** items);
/** The same with the texts as arguments. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBLB(char* title, int count, ...);

/** \}
 * \name Debug flags: dbgtools.h
 *
 * The members of DbgTools::Instance() as functions; dbgtools.h declares DbgTools_isDebugOn.
 * \{ */

/** DbgTools::AddDebugVar. 1, or 0 when memory ran out; flags before that one are kept. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_addDebugVar(const char* variableName);
/** DbgTools::IsFlagDefined: 1 or 0. "all" does not count. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_isFlagDefined(const char* flag);
/** DbgTools_isDebugOn for a wide flag, which is converted to narrow text: 1 or 0. Null, and a flag for which
 * there is no memory, is asked for as null. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_isDebugOnW(const CPWChar* flag);
/** Whether a wide flag is on as a developer flag, for which "all" does not count: 1 or 0. As above. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_isDevDebugOnW(const CPWChar* flag);

/** \}
 * \name Host files
 * \{ */

/** The name by which the operating system knows a host specification: the specification itself on Windows.
 *   \param hfs       zero-terminated, not null
 *   \param out       room for `capacity` characters; receives the name, or an empty text
 *   \param capacity  the room, at least 1
 *   \return the length of the name; 0 when it names nothing here or there is no room */
CORVANE_PRINT_API int CORVANE_PRINT_CALL HostFile_nameW(const CPWChar* hfs, CPWChar* out, int capacity);

/** \} */

#ifdef __cplusplus
}
}
}
#endif

#endif
