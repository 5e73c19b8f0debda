/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * CF: configuration variables.
 *
 * Search paths, logical devices and tuning switches are named variables. By default a variable is a variable
 * of the process environment. A host that keeps its own configuration installs a lookup callback; from then
 * on every lookup of the library goes to the callback instead of the environment.
 *
 *     using namespace Corvane::Print;
 *     if (char* value = CFGetenv("PLOT_FENCES")) {
 *       use(value);
 *       CFReleaseValue(value);
 *     }
 *
 * Ownership: a value that CFGetenvW or CFGetenv returns is the caller's, who hands it to CFReleaseValue.
 *
 * Threads: lookups share no state but the installed callback, which is read without a lock. Do not install
 * or remove a callback while a lookup may be running on another thread.
 *
 * Failure: there are no status codes. Every failure (null name, undefined or empty variable, an exception in
 * the callback, no memory) is a null result, and no exception leaves these functions.
 */
#ifndef CORVANE_PRINT_CF_H
#define CORVANE_PRINT_CF_H

#include "corvane/print/export.h"
#include "corvane/print/types.h"

namespace Corvane {
namespace Print {

/** The host's lookup.
 *   \param name      the variable's name, zero-terminated, never null; the library's, valid during the
 *                    call
 *   \param buffer    room for the value and its terminator; the library's
 *   \param capacity  the room in BYTES
 * \return the number of BYTES that the value needs with its 16-bit terminator (2n + 2 for n characters), and
 * writes the value only when that number does not exceed the capacity; the library then asks once more with
 * exactly that capacity, takes the buffer as the value and does not look at the second number. 0 when the
 * variable is undefined or empty.
 *
 * May throw: any exception, of whichever compiler's making, counts as 0;
 * so does a structured exception on Windows. */
typedef int(CORVANE_PRINT_CALL* CFGetEnvVarCallback)(const CPWChar* name, CPWChar* buffer, int capacity);

/** Installs the host's lookup; null brings the environment back. The pointer must stay callable until it is
 * replaced. */
CORVANE_PRINT_API void CFSetGetEnvVarCallback(CFGetEnvVarCallback callback);

/** The value of a variable, or null. An empty value counts as undefined. The value is the caller's. */
CORVANE_PRINT_API CPWChar* CFGetenvW(const CPWChar* name);

/** The same for narrow text.
 * Oddity, kept: each successful call leaves its wide intermediate allocated for the rest of the process.
 * Hosts that look variables up in a loop should keep the value or use CFGetenvW. */
CORVANE_PRINT_API char* CFGetenv(const char* name);

/** True when CFGetenvW (CFGetenv) would yield a value. */
CORVANE_PRINT_API bool CFIsVariableDefinedW(const CPWChar* name);
/** Narrow twin of CFIsVariableDefinedW. */
CORVANE_PRINT_API bool CFIsVariableDefined(const char* name);

/** Releases a value of CFGetenvW or CFGetenv; null is ignored. */
CORVANE_PRINT_API void CFReleaseValue(void* value);

}  // namespace Print
}  // namespace Corvane

#endif
