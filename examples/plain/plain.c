/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * The plain names, called from C. plain.py does the same from Python. */
#include "corvane/print/plain.h"

#include <stdio.h>

#include "corvane/print/fu.h"

/* The host's own variables: PLOT_FENCES and PLOT_DEBUG. Wide text is 16-bit text everywhere, for which C has
 * no functions of its own outside Windows. */
static int CORVANE_PRINT_CALL lookup(const CPWChar* name, CPWChar* buffer, int capacity) {
  const char* value = name[5] == 'F' ? "Site;Border" : "clip, fences";
  int i, bytes = 2;
  for (i = 0; value[i] != '\0'; ++i) bytes += 2;
  if (bytes > capacity) return bytes;
  for (i = 0; value[i] != '\0'; ++i) buffer[i] = (CPWChar)value[i];
  buffer[i] = 0;
  return bytes;
}

/* Where a new pen goes in the list. */
static int CORVANE_PRINT_CALL wider_first(void* new_pen, void* pen, void* context) {
  (void)context;
  return *(int*)pen - *(int*)new_pen;
}

static void variables(void) {
  char* value;
  CFSetGetEnvVarCallback(lookup);
  value = CFGetenv("PLOT_FENCES");
  DbgTools_addDebugVar("PLOT_DEBUG");
  CFSetGetEnvVarCallback(NULL);
  if (value == NULL) return;
  printf("fences      %s, ", value);
  printf("in upper case %s\n", STRUpper(value, value));
  CFReleaseValue(value);
}

static void names(void) {
  char name[FU_NARROW], ext[FU_NARROW];
  FUParseUFS("tq_plot:north\\A1-plan.plt", NULL, NULL, name, ext, NULL);
  printf("file        %s, %s, %s\n", name, ext, STRMatchPatternCI(name, "a?-*") == 1 ? "a plan" : "no plan");
}

/* A rectangle is turned by a right angle, moved, and cut with the sheet. */
static void geometry(void) {
  double corners[2][2], low[2] = {0, 0}, high[2] = {0, 0}, sheet[4] = {0, 0, 100, 60}, part[4] = {0, 0, 0, 0};
  double points[4] = {0, 0, 50, 20}, homogeneous[6], turn[9], shift[9], both[9];
  MATBuildRotAboutZHMat(2, 1.5707963267948966, turn);
  MATBuildTransHMat(2, 70, 25, 0, shift);
  MATMulMatMat(3, turn, shift, both);
  MATConvertPtDimToHomog(2, 2, points, homogeneous);
  MATMulVecMat(3, homogeneous, 2, both, homogeneous);
  MATConvertPtHomogToDim(2, 2, homogeneous, corners[0]);
  GEOMComputeMinEnclRect(2, corners, low, high);
  printf("turned      (%.1f, %.1f) to (%.1f, %.1f)\n", low[0], low[1], high[0], high[1]);
  GEOMComputeRectIntersection(low, high, sheet, sheet + 2, part, part + 2);
  printf("on sheet    (%.1f, %.1f) to (%.1f, %.1f)\n", part[0], part[1], part[2], part[3]);
}

static void pens(void) {
  int widths[] = {25, 70, 35};
  int i, count = 0;
  void* item;
  void* list = OLCreate();
  if (list == NULL) return;
  for (i = 0; i < 3; ++i) OLItemInsert(list, &widths[i], sizeof widths[i], wider_first, NULL);
  OLGetNumItems(list, &count);
  printf("%d pens     ", count);
  for (i = 0; OLItemGetByIndex(list, i, &item) == OL_OK; ++i) printf(" %d", *(int*)item);
  printf("\n");
  OLDestroy(list);
}

static void debug_output(void) {
  printf("debug flags clip %d, grow %d\n", DbgTools_isDebugOn("clip"), DbgTools_isDebugOn("grow"));
  /* It would go to the debug library, where there is one. */
  if (DbgTools_isDebugOn("grow")) DBMSG("%d outlines\n", 3);
}

int main(void) {
  variables();
  names();
  geometry();
  pens();
  debug_output();
  return 0;
}
