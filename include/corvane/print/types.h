/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * The types that all families share.
 *
 * Wide text is 16-bit text on every target: wchar_t on Windows, char16_t elsewhere, in C and in C++. A
 * character outside the basic plane takes two of them, a surrogate pair. Narrow text is 8-bit text: in the
 * process's ANSI code page on Windows, in UTF-8 elsewhere.
 */
#ifndef CORVANE_PRINT_TYPES_H
#define CORVANE_PRINT_TYPES_H

/** \typedef CPWChar
 * A 16-bit unit of wide text. */
#if defined(_WIN32)
#include <stddef.h>
typedef wchar_t CPWChar;
#elif defined(__cplusplus)
typedef char16_t CPWChar;
#else
#include <uchar.h>
typedef char16_t CPWChar;
#endif

#endif
