// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The names of one file, first as a host built with the library's own compiler holds them, then through the
// functions that any program may call.
#include "corvane/print/nativefilespec.h"

#include <cstdio>

using namespace Corvane::Print;

static void show(const char* what, const CPWChar* text) {
  std::printf("%s", what);
  while (*text != 0) std::putchar(static_cast<char>(*text++));
  std::printf("\n");
}

int main() {
  const CPWChar given[] = {'P', 'L', 'O', 'T', 'S', ':', 'a', '1', 0};
  const CPWChar host[] = {'C', ':', '\\', 'p', 'l', 'o', 't', 's', '\\', 'a', '1', '.', 'p', 'l', 't', 0};

  NativeFileSpec file;
  file.ufs = given;
  show("as given:    ", file.GetHfsOrUfs().c_str());
  file.hfs = host;
  show("resolved:    ", file.GetHfsOrUfs().c_str());
  NativeFileSpec copy;
  copy = file;
  file.clear();
  std::printf("cleared:     %s\n", file.GetHfsOrUfs().empty() ? "no name left" : "a name left");
  show("the copy:    ", copy.GetHfsOrUfs().c_str());

  NativeFileSpec* plain = NativeFileSpec_create();
  if (plain == nullptr || NativeFileSpec_setText(plain, NATIVEFILESPEC_UFS, given, 8) != NATIVEFILESPEC_OK)
    return 1;
  int length = 0;
  show("by function: ", NativeFileSpec_text(plain, NATIVEFILESPEC_UFS, &length));
  std::printf("length:      %d\n", length);
  NativeFileSpec_release(plain);
}
