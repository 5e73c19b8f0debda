/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * How the library's names become visible. A host needs nothing from here: it includes a family's header.
 *
 * CORVANE_PRINT_API marks an exported function. While the library itself is built, CORVANE_PRINT_BUILD is
 * defined; a program that links the library's objects directly defines CORVANE_PRINT_STATIC.
 * CORVANE_PRINT_CALL is the calling convention of every export and callback: the C convention, which is not
 * every compiler's default on 32-bit Windows.
 */
#ifndef CORVANE_PRINT_EXPORT_H
#define CORVANE_PRINT_EXPORT_H

/** \namespace Corvane::Print
 * The families for C++: CF, DB, the debug flags, GEOM, MAT, OL, STR and NativeFileSpec. */

/** \def CORVANE_PRINT_API
 * Marks an exported function. */
#if defined(CORVANE_PRINT_STATIC)
#define CORVANE_PRINT_API
#elif defined(_WIN32)
#if defined(CORVANE_PRINT_BUILD)
#define CORVANE_PRINT_API __declspec(dllexport)
#else
#define CORVANE_PRINT_API __declspec(dllimport)
#endif
#else
#define CORVANE_PRINT_API __attribute__((visibility("default")))
#endif

/** \def CORVANE_PRINT_CALL
 * The calling convention of every export and callback. */
#if defined(_WIN32)
#define CORVANE_PRINT_CALL __cdecl
#else
#define CORVANE_PRINT_CALL
#endif

#endif
