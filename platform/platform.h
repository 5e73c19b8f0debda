// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The one door to the operating system. platform/win32/ and platform/posix/ implement this page, in files of
// the same names, and the build picks one of the folders; nobody else includes a system's headers.
//
// Counts are ints, as the systems' own calls have them. Nothing here keeps state but the locks, which are the
// system's. guarded_call, network_name, process_lock_name and the functions of shared_library.cpp can be left
// by something else than a return.
#ifndef CORVANE_PRINT_PLATFORM_PLATFORM_H
#define CORVANE_PRINT_PLATFORM_PLATFORM_H

#include <cstdarg>

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

// locale.cpp
// ------------------------------------------------------------------------------------------------

// Whether it is known of the thread's locale that its multibyte characters keep ASCII: a byte below 0x80 is
// the character of that number, wherever no other character has begun.
bool locale_keeps_ascii() noexcept;

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

// host_file.cpp
// ----------------------------------------------------------------------------------------------
//
// Files by their host specification: zero-terminated, not null, of any length; relative ones begin at the
// current directory. Elsewhere than on Windows every \ is /, drive Z: is the root directory, and another
// drive X: is the directory that the environment variable CORVANE_DRIVE_X (upper case) names, as it is at
// this moment; what follows the colon begins there, with or without a separator. Without the variable such a
// specification names nothing. Nothing but DirectoryScan uses the heap.

// True when there is a file, a directory or anything else by that name.
bool host_file_exists(const CPWChar* spec) noexcept;

// True when there is a regular file by that name. On Windows the name is looked for in narrow text: a
// character that the code page lacks stands for the one that the system puts in its place.
//   length    the characters of the specification, or kToTerminator
bool host_file_is_regular(const CPWChar* spec, int length = kToTerminator) noexcept;

// The same for a specification in two zero-terminated pieces, which need not be put together for it.
//   lengths   of the pieces, at least 1, together less than kSpecCapacity
inline constexpr int kSpecCapacity = 256;
bool host_file_in_folder(const CPWChar* folder, int folder_length, const CPWChar* rest,
                         int rest_length) noexcept;

// The name by which the system knows the file, as wide text with a terminator: the specification itself on
// Windows. Returns its length; 0, and an empty text, when the specification names nothing or there is no
// room.
//   out       room for `capacity` characters, at least 1
int host_file_name(const CPWChar* spec, CPWChar* out, int capacity) noexcept;

// The names in a directory, one after the other: in ascending order of their bytes, or as the system delivers
// them on Windows. Names that no specification can name (with a \ in them, or not in UTF-8), and those that
// the caller does not want, are left out. Several scans may be open at once. An open scan is closed by its
// end or its destruction.
class DirectoryScan {
public:
  enum class Opened { kYes, kNo, kNoMemory };
  static constexpr int kNameCapacity = 256;

  DirectoryScan() = default;
  ~DirectoryScan() { close(); }
  DirectoryScan(const DirectoryScan&) = delete;
  DirectoryScan& operator=(const DirectoryScan&) = delete;

  // Says whether a name is wanted: asked by open() or by next(), as it suits the system. It must not throw.
  //   name      zero-terminated, cut to the capacity
  //   context   as it was passed
  using Wanted = bool (*)(const CPWChar* name, const void* context);

  // Begins a scan; one that is open is closed.
  //   spec      a host specification whose last component is a pattern with * and ?
  //   wanted    null: every name is
  // kNo when there is no such directory, it cannot be read, or nothing matches. What is delivered may match
  // the pattern in the system's own loose way, or not at all: the caller looks at each name.
  Opened open(const CPWChar* spec, Wanted wanted = nullptr, const void* context = nullptr) noexcept;

  // The next name ("." and ".." may be among them), cut to the capacity and terminated. False, and the scan
  // is closed, when there is none, or when no scan is open.
  //   name      room for kNameCapacity characters
  bool next(CPWChar* name) noexcept;

  void close() noexcept;
  bool is_open() const noexcept { return state_ != nullptr; }

private:
  void* state_ = nullptr;  // the system's
};

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

// current_directory.cpp
// --------------------------------------------------------------------------------------

// Both write a terminated text, cut behind its (capacity-1)-th character, and return its length.
//   out       room for `capacity` CHARACTERS, at least 1; not the input

// A directory, in the system's spelling or as a host specification, as a host specification. Elsewhere than
// on Windows a text that starts with / is on drive Z:; all others stay as they are.
//   directory zero-terminated, not null
int host_directory(const CPWChar* directory, CPWChar* out, int capacity) noexcept;

// The process's current directory as a host specification: C:\work, \\server\share; elsewhere than on Windows
// Z:/home/user. 0, and an empty text, when the process has none that the system can name.
int current_directory(CPWChar* out, int capacity) noexcept;

// network_name.cpp
// -------------------------------------------------------------------------------------------

// The network form of a drive's root, X:\ -> \\server\share, as the network provider has it; the root of a
// drive that is mapped to no share has none.
//   root      zero-terminated, not null
//   out       room for `capacity` units, of which no more than 512 bytes are needed
// False, and nothing written, when there is none; always elsewhere than on Windows. On Windows the provider's
// library is bound by the first call; when that fails, a structured exception leaves the function
// (0xC06D007E: no library, 0xC06D007F: no such function in it), unless the host's recorder has a substitute.
bool network_name(const CPWChar* root, CPWChar* out, int capacity);
bool network_name(const char* root, char* out, int capacity);

// named_lock.cpp
// ----------------------------------------------------------------------------------------------
//
// Locks that all parts of a process find by their name, so that several copies of this code in one process
// exclude each other on Windows. Elsewhere there is one lock, whatever the name. A thread may take a lock
// that it holds already.

inline constexpr int kLockNameCapacity = 260;

// A name of this process alone: the text, " #" and the process's number in eight lower-case hexadecimal
// digits.
//   text      at most 200 characters
//   out       room for kLockNameCapacity bytes
// On Windows the user library is bound by the first call; when that fails, a structured exception leaves the
// function.
void process_lock_name(const char* text, char* out);

// Creates or finds a lock, which is not taken by it. Null when there is none to be had.
void* create_named_lock(const char* name) noexcept;

// Waits for a lock without end. True when the caller holds it now, also when its last holder ended without
// releasing it.
bool wait_for_named_lock(void* lock) noexcept;

// Releases a lock, where the caller holds it, and gives it back. Null is allowed and does nothing.
void release_named_lock(void* lock) noexcept;

// shared_library.cpp
// ------------------------------------------------------------------------------------------
//
// Libraries that are there or are not. What is loaded stays. A library's own start code runs on the way and
// may throw.

inline constexpr int kLibraryNameCapacity = 64;

// Loads name.dll or libname.so, which the system looks for where it looks for every library. Null when there
// is none or it cannot be loaded.
//   name      shorter than kLibraryNameCapacity
void* load_library(const char* name);

// What the library exports under a name, or null. The caller knows the type.
using LibraryFunction = void (*)();
LibraryFunction library_function(void* library, const char* name);

// A text of the library: its string resource on Windows, elsewhere the array of characters that it exports as
// `symbol`. Cut to the room and terminated.
//   out       room for `capacity` bytes, at least 1
// Returns its length; 0 when there is none or it is empty, and `out` is not defined then. On Windows the user
// library is bound by the first call, as above.
int library_text(void* library, unsigned resource, const char* symbol, char* out, int capacity);

// wide_format.cpp
// ---------------------------------------------------------------------------------------------

// Formats wide text, with the Windows meanings of the conversions:
//   %s %ls %ws    wide text, 16 bit            %c %lc %wc    a wide character
//   %S %hs %hS    narrow text                  %C %hc %hC    a narrow character
//   %d %i %u %o %x %X   int; with h, l, ll, I32, I64, I (the size of a pointer) in front, another size
//   %e %E %f %g %G %a %A   double; exponents of %e and %g have three digits at least
//   %p            a pointer, all its digits in upper case
//   %%            a percent sign; any other character behind a % stands for itself
// with the flags - + space # 0, a width and a precision, either of which may be *. A null text is "(null)".
// %n is not for use. What infinities and NaN look like is the runtime's choice. Elsewhere than on Windows z,
// t and j are sizes as in C, and narrow characters that make no text are replaced as told above.
//   out       room for `capacity` CHARACTERS
//   arguments used up
// Returns the length when it does not exceed the capacity, -1 otherwise and when something could not be
// formatted; `out` then begins with what was. A terminator follows only a length less than the capacity.
int format_wide(CPWChar* out, int capacity, const CPWChar* format, va_list arguments);

}  // namespace Corvane::Print::platform

#endif
