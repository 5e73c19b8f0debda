// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Exports for the managed layer alone. It finds functions by name at run time, and the names of functions in
// a namespace differ from compiler to compiler; these are the same on every target.
//
// Those that share their name with a function of the namespace hand on to it. No public header declares them:
// in a host that has the namespace opened by a using directive, every call would be ambiguous.
#ifndef CORVANE_PRINT_MANAGED_NATIVE_PLAIN_NAMES_H
#define CORVANE_PRINT_MANAGED_NATIVE_PLAIN_NAMES_H

#include "corvane/print/cf.h"
#include "corvane/print/export.h"
#include "corvane/print/types.h"

extern "C" {

// As in cf.h.
CORVANE_PRINT_API void CORVANE_PRINT_CALL
CFSetGetEnvVarCallback(Corvane::Print::CFGetEnvVarCallback callback);
CORVANE_PRINT_API CPWChar* CORVANE_PRINT_CALL CFGetenvW(const CPWChar* name);
CORVANE_PRINT_API void CORVANE_PRINT_CALL CFReleaseValue(void* value);

// As in db.h, with a format and nothing else. A conversion in the format has no argument of the caller's: the
// first sixteen find zeros.
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBMSGW(const CPWChar* format);
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBERRW(const CPWChar* format);
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBATTW(const CPWChar* format);
CORVANE_PRINT_API int CORVANE_PRINT_CALL DBHMSGW(const CPWChar* format);

// DbgTools::AddDebugVar. Returns 1, or 0 when memory ran out; flags before that one are kept.
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_addDebugVar(const char* variableName);

// Whether a flag, converted to narrow text, is on: 1 or 0. A null flag, and one for which there is no memory,
// is asked for as null. The developer form never counts "all".
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_isDebugOnW(const CPWChar* flag);
CORVANE_PRINT_API int CORVANE_PRINT_CALL DbgTools_isDevDebugOnW(const CPWChar* flag);

// The name by which the operating system knows a host specification: the specification itself on Windows.
//   hfs       zero-terminated, not null
//   out       room for `capacity` characters, at least 1; receives the name, or an empty text
// Returns the length of the name; 0 when it names nothing here or there is no room.
CORVANE_PRINT_API int CORVANE_PRINT_CALL HostFile_nameW(const CPWChar* hfs, CPWChar* out, int capacity);
}

#endif
