// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the files of this folder share about specifications beyond the exports: the five components together,
// and the steps of resolving. Results are FU_OK or as told. No function here keeps state or needs the heap,
// apart from lookups of variables and of the current directory.
#ifndef CORVANE_PRINT_FILESPEC_SPEC_H
#define CORVANE_PRINT_FILESPEC_SPEC_H

#include "corvane/print/fu.h"
#include "filespec/bounded.h"
#include "filespec/text.h"

namespace Corvane::Print::filespec {

struct Components {
  WideBuffer dev, dir, name, ext, ver;
};

// Components whose lengths are known; each may be longer than a specification.
struct ComponentViews {
  WideView dev, dir, name, ext, ver;
};

// What FUBuildLFSW does, but for the terminator. `spec` is empty, and its room is none of the components'.
int join(const ComponentViews& parts, GrowingText& spec);

// All five components of a specification.
inline void parse(const CPWChar* spec, Components& parts) {
  FUParseUFSW(spec, parts.dev, parts.dir, parts.name, parts.ext, parts.ver);
}

// FUBuildLFSW of the components; its status too.
inline int build(const Components& parts, CPWChar* out) {
  return FUBuildLFSW(parts.dev, parts.dir, parts.name, parts.ext, parts.ver, out);
}

// The value of a variable that a logical specification names or that its device names; the specification
// itself where it has neither.
//   out       room for 256 characters, may be `lfs`
// FU_OK, or FU_NO_DEVICE with an empty result when a logical device is undefined.
int FUTranslateLFSW(const CPWChar* lfs, CPWChar* out);

// Device and directory of the current directory, which is the value of the variable PWD or, where that is
// undefined, the process's. Both are empty when the process has none.
//   dev, dir  room for 256 characters each
void FUGetCurrentDevDirW(CPWChar* dev, CPWChar* dir);

// Splits a directory in place at its \ into levels; empty ones are left out.
//   levels    room for `max` pointers into dir
//   count     how many there are; 0 when there are more than max
// FU_OK, or FU_FAILED when there are more than max.
int FUSplitDirW(CPWChar* dir, CPWChar** levels, int max, int* count);

}  // namespace Corvane::Print::filespec

#endif
