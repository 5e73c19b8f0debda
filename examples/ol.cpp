// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A list of pens in ascending order of their width, from which the red ones are taken.
#include "corvane/print/ol.h"

#include <cstdio>

using namespace Corvane::Print;

struct Pen {
  int number;
  double width;
  char colour[8];
};

// Below 0 when the new pen stands before the one of the list.
static int CORVANE_PRINT_CALL by_width(void* new_pen, void* list_pen, void*) {
  return static_cast<Pen*>(new_pen)->width < static_cast<Pen*>(list_pen)->width ? -1 : 1;
}

static int CORVANE_PRINT_CALL is_of_colour(void* pen, void* colour) {
  return static_cast<Pen*>(pen)->colour[0] == *static_cast<char*>(colour);
}

static void show(const Pen& pen) {
  std::printf("pen %d: %.2f mm, %s\n", pen.number, pen.width, pen.colour);
}

int main() {
  void* pens = OLCreate();
  Pen all[] = {{1, 0.70, "red"}, {2, 0.18, "black"}, {3, 0.35, "red"}, {4, 0.25, "blue"}};
  for (Pen& pen : all) {
    if (OLItemInsert(pens, &pen, sizeof pen, by_width, nullptr) != OL_OK) return 1;
  }

  int count = 0;
  OLGetNumItems(pens, &count);
  std::printf("%d pens\n", count);
  void* item = nullptr;  // the list's own bytes
  for (int i = 0; i < count; ++i) {
    if (OLItemGetByIndex(pens, i, &item) == OL_OK) show(*static_cast<Pen*>(item));
  }

  std::printf("red ones\n");
  char red = 'r';
  int index = 0;
  for (; OLItemGetByFilter(pens, is_of_colour, &red, &index, &item) == OL_OK; ++index)
    show(*static_cast<Pen*>(item));

  OLClear(pens);
  std::printf("cleared: %d, cleared again: %d\n", OLGetNumItems(pens, &count), OLClear(pens));
  OLDestroy(pens);
}
