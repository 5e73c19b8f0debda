/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * A host in C. */
#include "host_plain.h"

#include <stdlib.h>
#include <string.h>

#include "corvane/print/plain.h"

#define EXPECT(condition) \
  if (!(condition)) return __LINE__

/* Every variable has the value "x". */
static int CORVANE_PRINT_CALL answers_x(const CPWChar* name, CPWChar* buffer, int capacity) {
  (void)name;
  if (capacity < 4) return 4;
  buffer[0] = 'x';
  buffer[1] = 0;
  return 4;
}

static int look_up(void) {
  const CPWChar name[] = {'A', 0};
  CPWChar* wide = CFGetenvW(name);
  char* narrow = CFGetenv("A");
  EXPECT(wide != NULL && wide[0] == 'x' && wide[1] == 0);
  EXPECT(narrow != NULL && strcmp(narrow, "x") == 0);
  EXPECT(CFIsVariableDefined("A") && CFIsVariableDefinedW(name));
  CFReleaseValue(wide);
  CFReleaseValue(narrow);
  return 0;
}

int host_plain_config(void) {
  int line;
  CFSetGetEnvVarCallback(answers_x);
  line = look_up();
  CFSetGetEnvVarCallback(NULL);
  if (line != 0) return line;
  EXPECT(CFGetenv("CORVANE_NO_SUCH_VARIABLE") == NULL && !CFIsVariableDefined("CORVANE_NO_SUCH_VARIABLE"));
  return 0;
}

static int host_plain_predicates(void) {
  const double line[] = {0, 5, 1, 5, 2, 5};
  double area[] = {0, 0, 10, 0, 10, 5, 0, 5, 0, 0}, side[4] = {0, 0, 0, 0};
  EXPECT(GEOMPointsEqual(2, 3, line) == 0);
  EXPECT(GEOMPointsColinear(2, 3, line) == 1);
  EXPECT(GEOMPointsParallelToAxis(GEOM_X_AXIS, 2, 3, line) == 1);
  EXPECT(GEOMPointsParallelToPlane(GEOM_YZ_PLANE, 2, 3, line) == 0);
  EXPECT(GEOMValueInRange(5, 4, 6) == 1);
  EXPECT(GEOMCheckRect(2, 5, area) == 1);
  EXPECT(GEOMCheckRectangularPlotArea(2, 5, area) == 1);
  EXPECT(GEOMShapeFindLongestSide(2, 4, area, side) == 0 && side[2] == 10);
  return 0;
}

int host_plain_geometry(void) {
  double a[] = {1, 2, 3}, b[] = {4, 5, 6}, sum[3] = {0, 0, 0}, low[3], high[3], verts[24];
  double flat[2][2] = {{3, 1}, {2, 4}}, space[2][3] = {{3, 1, 9}, {2, 4, 8}};
  EXPECT(GEOMAddVector(3, a, b, sum) == 0 && sum[2] == 9);
  EXPECT(GEOMComputeRectVerts(a, b, verts) == 0 && verts[4] == 4 && verts[5] == 5);
  EXPECT(GEOMComputeCubeVerts(a, b, verts) == 0 && verts[18] == 4 && verts[20] == 6);
  EXPECT(GEOMComputeMinEnclRect(2, flat, low, high) == 0 && low[0] == 2 && high[1] == 4);
  EXPECT(GEOMComputeMinEnclCube(2, space, low, high) == 0 && low[2] == 8 && high[2] == 9);
  EXPECT(GEOMComputeCubeDiag(2, space[0], low, high) == 0 && low[0] == 2 && high[0] == 3);
  EXPECT(GEOMComputeRectIntersection(a, b, a, b, low, high) == 1 && high[1] == 5);
  EXPECT(GEOMComputeCubeIntersection(a, b, a, b, low, high) == 1 && high[2] == 6);
  return host_plain_predicates();
}

static int host_plain_forms(void) {
  double plain[] = {1, 2, 3, 4}, inverse[4], transposed[4], homogeneous[9], points[] = {1, 2, 3, 4, 0, 0};
  EXPECT(MATInvRotMat(2, plain, inverse) == 0 && inverse[1] == 3);
  EXPECT(MATTransposeMat(2, plain, transposed) == 0 && transposed[2] == 2);
  EXPECT(MATCvtMatToHomog(2, plain, homogeneous) == 0 && homogeneous[4] == 4 && homogeneous[8] == 1);
  EXPECT(MATCvtMatToHomog(4, plain, homogeneous) == 1);
  MATConvertPtDimToHomog(2, 2, points, points);
  EXPECT(points[2] == 1 && points[5] == 1 && points[3] == 3);
  MATConvertPtHomogToDim(2, 2, points, points);
  EXPECT(points[2] == 3 && points[3] == 4);
  return 0;
}

int host_plain_matrices(void) {
  double shift[9], scale[9], turn[9], both[9], inverse[9], p[] = {1, 0, 1};
  EXPECT(MATBuildTransHMat(2, 5, 7, 0, shift) == 0 && MATBuildScaleHMat(2, 2, 4, 0, scale) == 0);
  EXPECT(MATBuildRotAboutZHMat(2, 0, turn) == 0);
  EXPECT(MATMulMatMat(3, scale, shift, both) == 0 && MATMulMatMat(3, both, turn, both) == 0);
  EXPECT(MATMulVecMat(3, p, 1, both, p) == 0 && p[0] == 7 && p[1] == 7);
  EXPECT(MATBuildInvTransHMat(2, shift, inverse) == 0 && MATMulVecMat(3, p, 1, inverse, p) == 0);
  EXPECT(MATBuildInvScaleHMat(2, scale, inverse) == 0 && MATMulVecMat(3, p, 1, inverse, p) == 0);
  EXPECT(MATBuildInvRotHMat(2, turn, inverse) == 0 && MATMulVecMat(3, p, 1, inverse, p) == 0);
  EXPECT(p[0] == 1 && p[1] == 0 && p[2] == 1);
  return host_plain_forms();
}

static int CORVANE_PRINT_CALL ascending(void* new_item, void* list_item, void* context) {
  ++*(int*)context;
  return *(int*)new_item - *(int*)list_item;
}

static int CORVANE_PRINT_CALL is_context(void* item, void* context) {
  return *(int*)item == *(int*)context;
}

static int use_list(void* list) {
  const int numbers[] = {3, 1, 2};
  int i, number, compared = 0, count = 0, index = 0;
  void* item = NULL;
  for (i = 0; i < 3; ++i) {
    number = numbers[i];
    EXPECT(OLItemInsert(list, &number, sizeof number, ascending, &compared) == OL_OK);
  }
  EXPECT(compared == 3 && OLGetNumItems(list, &count) == OL_OK && count == 3);
  EXPECT(OLItemGetByIndex(list, 2, &item) == OL_OK && *(int*)item == 3);
  EXPECT(OLItemGetByIndex(list, 3, &item) == OL_BAD_INDEX);
  number = 9;
  EXPECT(OLItemSet(list, 1, &number, sizeof number) == OL_OK);
  EXPECT(OLItemGetByFilter(list, is_context, &number, &index, &item) == OL_OK && index == 1);
  EXPECT(OLItemGetByFilter(list, NULL, &number, &index, &item) == OL_NO_FILTER);
  EXPECT(OLItemDelete(list, 1) == OL_OK);
  index = 0;
  EXPECT(OLItemGetByFilter(list, is_context, &number, &index, &item) == OL_NOT_FOUND);
  EXPECT(OLClear(list) == OL_OK && OLClear(list) == OL_EMPTY);
  return 0;
}

int host_plain_list(void) {
  void* list = OLCreate();
  int line;
  EXPECT(list != NULL);
  line = use_list(list);
  if (OLDestroy(list) != OL_OK) return __LINE__;
  return line;
}

int host_plain_strings(void) {
  char out[32], text[] = "abc";
  char* copy = STRDup("copy");
  EXPECT(copy != NULL && strcmp(copy, "copy") == 0);
  free(copy);
  EXPECT(STRCompareCI("Plan", "pLAN") == 0 && STRCompareCICount("Plan", "plot", 2) == 0);
  EXPECT(STRMatchPattern("a1.plt", "a?.*") == 1 && STRMatchPattern("A1.plt", "a*") == 0);
  EXPECT(STRMatchPatternCI("A1.plt", "a*") == 1);
  EXPECT(strcmp(STRDeleteChar("a-b-", '-', out), "ab") == 0);
  EXPECT(strcmp(STRDeleteCharLead("--a-", '-', out), "a-") == 0);
  EXPECT(strcmp(STRDeleteCharTrail("-a--", '-', out), "-a") == 0);
  EXPECT(strcmp(STRExtractSubstr("abcdef", 2, 3, out), "cde") == 0);
  EXPECT(strcmp(STRInsertSubstr("ad", 1, "bc", out), "abcd") == 0);
  EXPECT(strcmp(STRLower("AbC", out), "abc") == 0 && strcmp(STRUpper("AbC", out), "ABC") == 0);
  EXPECT(strcmp(STRReplaceChar("a.b.", '.', '-', out), "a-b-") == 0);
  EXPECT(strcmp(STRReverse(text), "cba") == 0);
  return 0;
}

/* A wide text out of a narrow one, of up to 7 characters. */
typedef struct Wide {
  CPWChar text[8];
} Wide;

static Wide wide(const char* narrow) {
  Wide result = {{0}};
  int i;
  for (i = 0; i < 7 && narrow[i] != 0; ++i) result.text[i] = (CPWChar)narrow[i];
  return result;
}

static int equal(const CPWChar* text, const char* expected) {
  int i = 0;
  while (text[i] != 0 && text[i] == (CPWChar)expected[i]) ++i;
  return text[i] == (CPWChar)expected[i];
}

int host_plain_wide_strings(void) {
  const Wide a = wide("-a.-b-"), up = wide("-A.-B-"), star = wide("*"), any = wide("-A*");
  Wide text = wide("abc");
  CPWChar out[32];
  CPWChar* copy = STRDupW(a.text);
  EXPECT(copy != NULL && equal(copy, "-a.-b-"));
  free(copy);
  EXPECT(STRCompareCIW(a.text, up.text) == 0 && STRCompareCICountW(a.text, any.text, 2) == 0);
  EXPECT(STRMatchPatternW(a.text, star.text) == 1 && STRMatchPatternW(a.text, any.text) == 0);
  EXPECT(STRMatchPatternCIW(a.text, any.text) == 1);
  EXPECT(equal(STRDeleteCharW(a.text, '-', out), "a.b"));
  EXPECT(equal(STRDeleteCharLeadW(a.text, '-', out), "a.-b-"));
  EXPECT(equal(STRDeleteCharTrailW(a.text, '-', out), "-a.-b"));
  EXPECT(equal(STRExtractSubstrW(a.text, 1, 2, out), "a."));
  EXPECT(equal(STRInsertSubstrW(a.text, 1, star.text, out), "-*a.-b-"));
  EXPECT(equal(STRLowerW(up.text, out), "-a.-b-") && equal(STRUpperW(a.text, out), "-A.-B-"));
  EXPECT(equal(STRReplaceCharW(a.text, '-', '+', out), "+a.+b+"));
  EXPECT(equal(STRReverseW(text.text), "cba"));
  return 0;
}

static int by_list(int(CORVANE_PRINT_CALL* function)(const char*, va_list), const char* format, ...) {
  va_list arguments;
  int result;
  va_start(arguments, format);
  result = function(format, arguments);
  va_end(arguments);
  return result;
}

/* There is no debug library. */
int host_plain_debug(void) {
  char format[] = "%d", text[] = "text", buffer[] = "before";
  char* items[1];
  unsigned short question[] = {'?', 0}, answer[] = {'b', 0};
  int number = 7;
  items[0] = text;
  EXPECT(DBMSG(format, 1) == 0 && DBERR(format, 1) == 0 && DBATT(format, 1) == 0 && DBHMSG(format, 1) == 0);
  EXPECT(by_list(DBMSGVA, format, 1) == 0 && by_list(DBERRVA, format, 1) == 0);
  EXPECT(DBCMSG(1, format, 1) == 0 && DBBMSG(128, format, 1) == 0 && DBPAUSE(format, 1) == 0);
  EXPECT(DBINP(text, text, &number) == 0 && number == 7);
  EXPECT(DBGETSA(text, buffer) == 0 && buffer[0] == 0 && DBGETSW(question, answer) == 0 && answer[0] == 0);
  EXPECT(DBMEMDUMP(text, 4) == 0 && DBSTRDUMP(text) == 0 && DBMB(text, text, 0) == 0);
  EXPECT(DBInitApp(text) == 0 && DBLBV(text, 1, items) == 0 && DBLB(text, 1, text) == 0);
  return 0;
}
