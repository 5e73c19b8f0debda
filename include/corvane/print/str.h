/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * STR: strings. Case-insensitive comparison, wildcard matching and editing of zero-terminated texts, in
 * a wide form (the name ends in W) and a narrow form.
 *
 *     using namespace Corvane::Print;
 *     char name[] = "A1-plan.PLT";
 *     if (STRMatchPatternCI(name, "a?-*.plt") == 1) STRLower(name, name);
 *
 * Characters: a wide character is one 16-bit unit; half a surrogate pair has no case. Upper and lower case
 * are those of the runtime's current locale (setlocale).
 *
 * Narrow forms: most convert to wide text by the process's code page (types.h), let the wide function work
 * and convert back; they write at most as many bytes as the input has, and a terminator, and cut a result
 * that needs more behind the last whole character that fits. STRCompareCI, STRMatchPattern and
 * STRMatchPatternCI convert nothing: they step through the text by the characters of the runtime's current
 * locale, which need not agree with the code page. A host that never sets a locale has the C locale, in which
 * bytes from 0x80 on may be no characters at all.
 *
 * Buffers: the caller's. No sizes are passed; each function says what room `out` needs. `out` may be the text
 * itself wherever that text has the room. Otherwise the two must not overlap.
 *
 * Null: a null text is an empty text, and a null `out` writes nothing and returns null. Only STRDup and
 * STRDupW tell null from empty.
 *
 * Memory: the converting narrow forms need a temporary block. When there is no memory for it, `out` becomes
 * an empty text if it is not the text itself, and the text stays as it was if it is.
 *
 * Threads: no shared state of the library's own; the runtime's conversion of multibyte characters (mbtowc)
 * must be safe to call there. Do not change the locale while a call is running.
 *
 * Failure: there are no status codes, and no exception leaves these functions.
 */
#ifndef CORVANE_PRINT_STR_H
#define CORVANE_PRINT_STR_H

#include "corvane/print/export.h"
#include "corvane/print/types.h"

namespace Corvane {
namespace Print {

/** \name Comparison
 * @{ */

/** Compares two texts character by character in lower case. 0 equal; -1 s1 sorts first; 1 otherwise. The
 * order is that of the lower-case 16-bit units, and an end sorts before any character.
 * The narrow form takes its characters from the locale; bytes that are none count as the end of the text. A
 * character beyond 16 bits has no case and sorts as the two units that it is in wide text. */
CORVANE_PRINT_API int STRCompareCIW(const CPWChar* s1, const CPWChar* s2);
/** Narrow twin of STRCompareCIW. */
CORVANE_PRINT_API int STRCompareCI(const char* s1, const char* s2);

/** The same over at most `count` characters; a count below 1 finds all texts equal.
 * The narrow form converts by the code page; `count` are wide characters there as well. Without memory it
 * returns 1, also for equal texts. */
CORVANE_PRINT_API int STRCompareCICountW(const CPWChar* s1, const CPWChar* s2, int count);
/** Narrow twin of STRCompareCICountW. */
CORVANE_PRINT_API int STRCompareCICount(const char* s1, const char* s2, int count);

/** @} */

/** \name Wildcards
 * @{ */

/** Whether the whole string matches the pattern: 1 or 0.
 *   - `*` any run of characters, also none
 *   - `?` exactly one character
 *   - `\` and a character: that character itself; `\*` is a star, `\\` one backslash
 *   - any other character: itself
 *
 * An empty pattern matches only the empty string. No heap; the time is bounded by the product of the lengths.
 * The narrow form takes its characters from the locale, whole, also those beyond 16 bits, which are two
 * characters to the wide form's "?"; bytes that are no character count as the end of string or pattern.
 * Oddities, kept: a lone backslash at the end of the pattern is ignored; stars right in front of it match
 * nothing but the empty text. */
CORVANE_PRINT_API int STRMatchPatternW(const CPWChar* string, const CPWChar* pattern);
/** Narrow twin of STRMatchPatternW. */
CORVANE_PRINT_API int STRMatchPattern(const char* string, const char* pattern);

/** The same without regard to case.
 * Oddity, kept: a string that equals the whole pattern without regard to case matches, whatever the pattern's
 * wildcards and backslashes say: the pattern `a\b` matches the string `A\B`, which STRMatchPatternW
 * denies. */
CORVANE_PRINT_API int STRMatchPatternCIW(const CPWChar* string, const CPWChar* pattern);
/** Narrow twin of STRMatchPatternCIW. */
CORVANE_PRINT_API int STRMatchPatternCI(const char* string, const char* pattern);

/** @} */

/** \name Editing
 *
 * All of them return `out`.
 *
 * A character `ch`, `from` or `to` of a wide form is one 16-bit unit; any other number is found nowhere, and
 * nothing is replaced by it. In a narrow form the int holds the bytes of one character of the locale, the
 * first byte lowest: 0xA9C3 is the UTF-8 form of U+00E9. For a character of one byte it is that byte, also
 * when it comes from a signed char. An int that holds no character is found nowhere, and nothing is replaced
 * by it.
 * Oddity, kept: zero bytes in front are skipped, 0x4100 is "A".
 * @{ */

/** Without any `ch`.
 *   \param str  the text
 *   \param ch   the character
 *   \param out  room for the text's length and a terminator */
CORVANE_PRINT_API CPWChar* STRDeleteCharW(const CPWChar* str, int ch, CPWChar* out);
/** Narrow twin of STRDeleteCharW. */
CORVANE_PRINT_API char* STRDeleteChar(const char* str, int ch, char* out);

/** Without the run of `ch` at the beginning.
 *   \param str  the text
 *   \param ch   the character
 *   \param out  room for the text's length and a terminator */
CORVANE_PRINT_API CPWChar* STRDeleteCharLeadW(const CPWChar* str, int ch, CPWChar* out);
/** Narrow twin of STRDeleteCharLeadW. */
CORVANE_PRINT_API char* STRDeleteCharLead(const char* str, int ch, char* out);

/** Without the run of `ch` at the end. The wide form overwrites each character of the run with a terminator.
 *   \param str  the text
 *   \param ch   the character
 *   \param out  room for the text's length and a terminator */
CORVANE_PRINT_API CPWChar* STRDeleteCharTrailW(const CPWChar* str, int ch, CPWChar* out);
/** Narrow twin of STRDeleteCharTrailW. */
CORVANE_PRINT_API char* STRDeleteCharTrail(const char* str, int ch, char* out);

/** At most `count` characters from position `start` (0 is the first); empty when start lies outside the text
 * or count is below 1.
 *   \param str    the text
 *   \param start  position, from 0
 *   \param count  characters
 *   \param out    room for the smaller of count and the text's length, and a terminator
 *
 * Oddity, kept: n, the smaller of count and the length of the WHOLE text, decides what is written. The wide
 * form writes zeros behind a shorter result, up to and including out[n]. */
CORVANE_PRINT_API CPWChar* STRExtractSubstrW(const CPWChar* str, int start, int count, CPWChar* out);
/** Narrow twin of STRExtractSubstrW. */
CORVANE_PRINT_API char* STRExtractSubstr(const char* str, int start, int count, char* out);

/** With `sub` inserted in front of position `pos`; in front of the first character when pos is negative, at
 * the end when pos lies behind it. `sub` must not overlap `out`, except in the narrow form.
 *   \param str  the text
 *   \param pos  position, from 0
 *   \param sub  what is inserted
 *   \param out  room for both lengths and a terminator; the narrow form writes at most that many bytes */
CORVANE_PRINT_API CPWChar* STRInsertSubstrW(const CPWChar* str, int pos, const CPWChar* sub, CPWChar* out);
/** Narrow twin of STRInsertSubstrW. */
CORVANE_PRINT_API char* STRInsertSubstr(const char* str, int pos, const char* sub, char* out);

/** In lower case, each character by itself: the length stays.
 *   \param str  the text
 *   \param out  room for the text's length and a terminator. A narrow result whose characters take more
 *               bytes than the text's is cut, see above. */
CORVANE_PRINT_API CPWChar* STRLowerW(const CPWChar* str, CPWChar* out);
/** Narrow twin of STRLowerW. */
CORVANE_PRINT_API char* STRLower(const char* str, char* out);
/** In upper case, in the same way. */
CORVANE_PRINT_API CPWChar* STRUpperW(const CPWChar* str, CPWChar* out);
/** Narrow twin of STRUpperW. */
CORVANE_PRINT_API char* STRUpper(const char* str, char* out);

/** With every `from` replaced by `to`. A `to` of 0 ends the text at the first `from`.
 *   \param str   the text
 *   \param from  the character that goes
 *   \param to    the one that takes its place
 *   \param out   room for the text's length and a terminator; in the narrow form, for the bytes of `to`
 *                as well. It writes at most that many bytes: room for one longer character, not for
 *                several. */
CORVANE_PRINT_API CPWChar* STRReplaceCharW(const CPWChar* str, int from, int to, CPWChar* out);
/** Narrow twin of STRReplaceCharW. */
CORVANE_PRINT_API char* STRReplaceChar(const char* str, int from, int to, char* out);

/** Reverses the text in place and returns it.
 * Oddity, kept: 16-bit units are swapped one by one, which tears surrogate pairs apart. The narrow form then
 * has replacement characters in their place, and may have to cut them. */
CORVANE_PRINT_API CPWChar* STRReverseW(CPWChar* str);
/** Narrow twin of STRReverseW. */
CORVANE_PRINT_API char* STRReverse(char* str);

/** @} */

/** \name Copies
 * @{ */

/** A new copy of the text, the caller's, who releases it with the general heap's free. Null for null and when
 * memory ran out. */
CORVANE_PRINT_API CPWChar* STRDupW(const CPWChar* str);
/** Narrow twin of STRDupW. */
CORVANE_PRINT_API char* STRDup(const char* str);

/** @} */

}  // namespace Print
}  // namespace Corvane

#endif
