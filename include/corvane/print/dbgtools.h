/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * Debug flags: which topics a plot engine writes debug output about. DbgTools_isDebugOn is usable from C and
 * C++, the rest from C++.
 *
 * A host names configuration variables whose values list flags, separated by spaces, tabs and commas. The
 * library keeps them in one object of the process and answers whether a flag is on. It reads no variable of
 * its own accord.
 *
 *     Corvane::Print::DbgTools::Instance().AddDebugVar("PLOT_DEBUG");   // PLOT_DEBUG=clip, Fences
 *     if (DbgTools_isDebugOn("fences")) Corvane::Print::DBMSG("%d fences\n", count);
 *
 * The flag "all" stands for every ordinary flag, and is no flag itself. Developer flags are those that a host
 * asks for by `enabled && IsFlagDefined(flag)`: "all" never switches them on, they must be listed by name.
 *
 * Case is ignored, byte by byte, by the lower case of the runtime's current locale (in the C locale, of
 * ASCII). Ownership: the library's, for the life of the process; flags are added and never removed. Threads:
 * nothing is locked. Call AddDebugVar while the host starts, before other threads ask. Asking only reads.
 *
 * Failure: no operation reports an error; a missing variable, an empty value, a null or empty name mean
 * "off". Only AddDebugVar may be left by an exception, where memory runs out while it stores a flag
 * (std::bad_alloc, std::length_error); the flags before that one are in the list then.
 */
#ifndef CORVANE_PRINT_DBGTOOLS_H
#define CORVANE_PRINT_DBGTOOLS_H

#include "corvane/print/export.h"

#ifdef __cplusplus
namespace Corvane {
namespace Print {

/** The flags in the order in which they were added, with duplicates, without "all". */
struct DbgFlagList;

/** The flags of the process. */
struct DbgTools {
  bool enabled;       /**< some variable had a flag, or "all"; never reset */
  bool all;           /**< some variable had "all"; never reset */
  DbgFlagList* flags; /**< the library's; null before the first AddDebugVar, and when there was no memory */

  /** The one object of the process, which is there from the beginning. */
  CORVANE_PRINT_API static DbgTools& Instance();

  /** Adds the flags of a variable, which is looked up as told in cf.h.
   *   \param variableName  may be null, or name no variable: then nothing but the list is created */
  CORVANE_PRINT_API void AddDebugVar(const char* variableName);

  /** Whether a flag is in the list; false for null and for an empty name. */
  CORVANE_PRINT_API bool IsFlagDefined(const char* flag) const;
};

}  // namespace Print
}  // namespace Corvane

extern "C" {
#endif

/** 1 when the flag is on: it was added, or "all" was, in which case `flag` is not looked at. 0 otherwise.
 *   \param flag  may be null */
CORVANE_PRINT_API int DbgTools_isDebugOn(const char* flag);

#ifdef __cplusplus
}
#endif

#endif
