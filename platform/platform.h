// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The one door to the operating system. platform/win32/ and platform/posix/ implement this page, in files of
// the same names, and the build picks one of the folders; nobody else includes a system's headers.
//
// Counts are ints, as the systems' own calls have them. Nothing here keeps state. Only guarded_call can be
// left by anything but a return.
#ifndef CORVANE_PRINT_PLATFORM_PLATFORM_H
#define CORVANE_PRINT_PLATFORM_PLATFORM_H

#include "corvane/print/types.h"

namespace Corvane::Print::platform {

// The source length that stands for "up to the terminator, which is converted and counted with the rest".
inline constexpr int kToTerminator = -1;

// code_page.cpp
// ----------------------------------------------------------------------------------------------
//
// Narrow text is in the process's ANSI code page on Windows, in UTF-8 elsewhere. What cannot be converted
// becomes the system's replacement character (U+FFFD for malformed UTF-8, once for each longest piece that
// begins a sequence; U+FFFD for half a surrogate pair); a conversion never fails because of what it reads.
//
//   text      the source; null gives 0
//   length    its units, at least 1, or kToTerminator
//   out       room for `capacity` units, written up to that and no further; may be null when capacity is 0
//   capacity  0 asks how many units the result needs
//
// Both return the number of units of the result, with the terminator when the length is kToTerminator
// (otherwise none is written). 0 when the capacity is too small or the arguments are none of the above; what
// `out` holds then is not defined.
int wide_from_narrow(const char* text, int length, CPWChar* out, int capacity) noexcept;
int narrow_from_wide(const CPWChar* text, int length, char* out, int capacity) noexcept;

// environment.cpp
// --------------------------------------------------------------------------------------------

// A variable of the process environment, as it is at this moment.
//   name      zero-terminated, not null
//   buffer    room for `capacity` CHARACTERS, at least 1
// Returns the number of CHARACTERS that the value needs with its terminator, and has written the value and
// its terminator when that number does not exceed the capacity; otherwise what the buffer holds is not
// defined. 0 when the variable is undefined or empty (or, where the name must be converted, memory ran out).
// Another thread may change the variable between two calls: the second may need more than the first said.
int environment_text(const CPWChar* name, CPWChar* buffer, int capacity) noexcept;

// guarded_call.cpp
// -------------------------------------------------------------------------------------------

// body(context), for a body that calls into the host. Its result, or 0 when an exception left it: a C++
// exception of this compiler's making and, on Windows, also one of another compiler's making and any other
// structured exception (an access violation, a late binding that failed). Exceptions that the host handles
// itself further in are none of our business and reach the host's handlers untouched. The call may be nested.
//
// The end of a thread is no exception: where it travels up the stack (cancellation), it passes through here
// and through our callers, whose locals must release what they hold.
int guarded_call(int (*body)(void* context), void* context);

}  // namespace Corvane::Print::platform

#endif
