/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors
 *
 * Takes a specification apart, resolves a logical device, finds a file along a list of directories, and makes
 * the next free name for an output. */
#include "corvane/print/fu.h"

#include <stdio.h>
#include <stdlib.h>

static void parse(const char* text) {
  char dev[FU_NARROW], dir[FU_NARROW], name[FU_NARROW], ext[FU_NARROW], ver[FU_NARROW];
  FUParseUFS(text, dev, dir, name, ext, ver);
  printf("%s: device '%s' directory '%s' name '%s' extension '%s' version '%s'\n", text, dev, dir, name, ext,
         ver);
}

static void resolve(const char* text) {
  char found[FU_NARROW];
  const int status = FUFindCreateHFS(text, NULL, NULL, "plt", NULL, found);
  printf("%s: status %d, '%s'\n", text, status, found);
}

/* Wide text is 16-bit text everywhere; here it is plain ASCII. */
static void widen(const char* text, CPWChar* wide) {
  do *wide++ = (CPWChar)*text;
  while (*text++ != '\0');
}

static void print_wide(const CPWChar* text) {
  while (*text != 0) putchar((char)*text++);
  putchar('\n');
}

static void CORVANE_PRINT_CALL tried(void* context, int step, const CPWChar* candidate, int found) {
  (void)context;
  printf("  step %d, %s ", step, found ? "found" : "not there");
  print_wide(candidate);
}

static void search(const char* text, const char* directories) {
  CPWChar ufs[FU_WIDE], list[FU_WIDE], ext[FU_WIDE], found[FU_WIDE];
  int status;
  widen(text, ufs);
  widen(directories, list);
  widen("plt", ext);
  printf("%s in %s\n", text, directories);
  status = FUSearchExplainW(ufs, list, ext, NULL, found, tried, NULL); /* FUSearchUFSW, and tells its way */
  printf("  status %d\n", status);
}

static void number(const char* text) {
  CPWChar name[FU_WIDE];
  widen(text, name);
  FUResolveAutoIncToken(name, FU_WIDE);
  printf("%s becomes ", text);
  print_wide(name);
}

int main(void) {
  FILE* file = fopen("example-plan.plt", "w"); /* something to be found */
  if (file == NULL) return 1;
  fclose(file);
  putenv("EXAMPLE_PLOTS=C:\\plots;D:\\archive"); /* a logical device */

  parse("C:\\plots\\a1.plt;3");
  parse("EXAMPLE_PLOTS:a1");
  resolve("EXAMPLE_PLOTS:a1");
  resolve("NO_SUCH_DEVICE:a1");
  search("example-plan", "no-such-folder;.");
  search("example-plam", "no-such-folder;.");
  number("example-<autoInc?digits=2?base=7>.plt");
  remove("example-plan.plt");
  return 0;
}
