/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * The version of the headers, as numbers that the preprocessor can compare and as text.
 */
#ifndef CORVANE_PRINT_VERSION_H
#define CORVANE_PRINT_VERSION_H

/** Raised when hosts must be changed. */
#define CORVANE_PRINT_VERSION_MAJOR 0
/** Raised when something is added. */
#define CORVANE_PRINT_VERSION_MINOR 1
/** Raised when something is mended. */
#define CORVANE_PRINT_VERSION_PATCH 0
/** All three as text. */
#define CORVANE_PRINT_VERSION "0.1.0"

#endif
