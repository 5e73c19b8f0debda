/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * DB: debug output. Every function hands its arguments on to an entry point of an optional debug library,
 * which is looked for when the first of them is called; where it is missing, they do nothing.
 *
 *     using namespace Corvane::Print;
 *     DBMSG("%s: %d of %d clipped\n", name, done, all);
 *     if (failed) DBERR("%s is no plot file\n", name);
 *
 * The debug library is "kvldebug.dll", or "libkvldebug.so" elsewhere than on Windows, where the system finds
 * it. It must be of interface version 6, which it says in a text that is exactly "6": string resource 10000
 * on Windows, elsewhere an exported `const char kvldebug_version[]`. It exports, all with the C convention:
 *
 *     int dllPrintF(const char* format, unsigned code, int pause, va_list arguments);
 *     int dllMemDump(void* address, unsigned count);
 *     int dllScanF(char* text1, char* text2, va_list arguments);
 *     int dllMessageBox(char* text1, char* text2, unsigned style);
 *     int dllGetSA(char* text, char* buffer);
 *     int dllGetSW(unsigned short* text, unsigned short* buffer);
 *     int dllSetDest(...);                    never called, only its presence counts
 *     int dllInitApp(char* name);
 *     int dllListBox(char* title, int count, char** items);
 *
 * The code of dllPrintF says what kind of message it is:
 *
 *     0x01000000 message    0x02000000 error    0x03000000 highlighted    0x05000000 waits for the user
 *     0x06000000 attention  below 0x01000000 a colour, one byte each for red, green and blue
 *
 * Results: what the entry point returns. 0 when there is none: no debug library, one of another version, or
 * one without that entry point. No function says which.
 *
 * Texts: narrow ones go on as they are, null as well. A format means what the debug library takes it for.
 *
 * Ownership: everything is the caller's; nothing is kept.
 *
 * Threads: any function on any thread, also the first call; the entry points run on the caller's thread. The
 * debug library is loaded once, never looked for again where it was missing, and never freed. Only when the
 * lock of the process that guards the load cannot be had does the next call try again.
 *
 * Exceptions: none of our own, but what an entry point throws is not held up.
 */
#ifndef CORVANE_PRINT_DB_H
#define CORVANE_PRINT_DB_H

#include <stdarg.h>

#include "corvane/print/export.h"
#include "corvane/print/types.h"

namespace Corvane {
namespace Print {

/** \name Messages
 * @{ */

/** A message. */
CORVANE_PRINT_API int DBMSG(const char* format, ...);
/** A message, with its arguments as a list, which the caller ends. */
CORVANE_PRINT_API int DBMSGVA(const char* format, va_list args);

/** An error. */
CORVANE_PRINT_API int DBERR(const char* format, ...);
/** An error, with its arguments as a list, which the caller ends. */
CORVANE_PRINT_API int DBERRVA(const char* format, va_list args);

/** Something to pay attention to. */
CORVANE_PRINT_API int DBATT(const char* format, ...);
/** A highlighted message. */
CORVANE_PRINT_API int DBHMSG(const char* format, ...);

/** A message of any kind.
 *   \param code    the kind, see above; its low 32 bits
 *   \param format  the text */
CORVANE_PRINT_API int DBCMSG(unsigned long code, char* format, ...);

/** A message in grey.
 *   \param level   0 black to 255 white; more is white
 *   \param format  the text */
CORVANE_PRINT_API int DBBMSG(unsigned long level, char* format, ...);

/** A message that waits for the user: the only one with the pause flag. */
CORVANE_PRINT_API int DBPAUSE(char* format, ...);

/** A wide message. The text is formatted with the Windows meanings of the conversions
 * (`%s` is wide text and `%S` narrow, also elsewhere; `%I64d` is a number of 64 bits), cut behind its
 * 4096th character, converted to narrow text and handed on as the format, together with the arguments. 0
 * also when there is no memory for the narrow text. A null format is an empty one.
 * Oddities, kept: the debug library so formats the text a second time, with the same arguments, and a percent
 * sign in the text counts again; and all this is done even when there is no debug library. */
CORVANE_PRINT_API int DBMSGW(const CPWChar* format, ...);
/** A wide error, in the way of DBMSGW. */
CORVANE_PRINT_API int DBERRW(const CPWChar* format, ...);
/** Something wide to pay attention to, in the way of DBMSGW. */
CORVANE_PRINT_API int DBATTW(const CPWChar* format, ...);
/** A highlighted wide message, in the way of DBMSGW. */
CORVANE_PRINT_API int DBHMSGW(const CPWChar* format, ...);

/** @} */

/** \name Questions
 * @{ */

/** Asks for values.
 *   \param text1,text2  the debug library's to interpret
 *   ...            where the values go */
CORVANE_PRINT_API int DBINP(char* text1, char* text2, ...);

/** Asks for a text.
 *   \param text    the question
 *   \param buffer  receives the answer, as much as the debug library writes; an empty text where there is
 *                  none to ask. May be null where there is none. */
CORVANE_PRINT_API int DBGETSA(char* text, char* buffer);
/** Asks for a wide text, in the same way. */
CORVANE_PRINT_API int DBGETSW(unsigned short* text, unsigned short* buffer);

/** @} */

/** \name Dumps
 * @{ */

/** Shows `count` bytes of memory. */
CORVANE_PRINT_API int DBMEMDUMP(void* address, unsigned int count);

/** Shows a text in the same way, with its terminator. Null is an address without bytes. */
CORVANE_PRINT_API int DBSTRDUMP(char* text);

/** @} */

/** \name Boxes
 *
 * Oddity, kept: DBInitApp, DBLBV and DBLB do nothing when the debug library lacks dllSetDest.
 * @{ */

/** A message box. Texts and style are the debug library's to interpret. */
CORVANE_PRINT_API int DBMB(char* text1, char* text2, unsigned int style);

/** Tells the debug library the application's name. */
CORVANE_PRINT_API int DBInitApp(char* name);

/** A list to choose from.
 *   \param title  goes on as it is
 *   \param count  goes on as it is
 *   \param items  `count` texts */
CORVANE_PRINT_API int DBLBV(char* title, int count, char** items);

/** The same with the texts, `char*` each, as arguments. They reach the debug library as an array of `count`,
 * of none when the count is below 1. 0 also when there is no memory for it. */
CORVANE_PRINT_API int DBLB(char* title, int count, ...);

/** @} */

}  // namespace Print
}  // namespace Corvane

#endif
