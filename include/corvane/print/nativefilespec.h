/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * NativeFileSpec: the names of one file, and how it was obtained from a document store. The native twin of
 * the managed class FileSpec, whose ConvertFileSpecToNative and ConvertNativeToFileSpec copy between the two.
 *
 *     using namespace Corvane::Print;
 *     NativeFileSpec file;
 *     file.ufs = given;                        // a CPWChar text, say tq_plot:a1.plt
 *     print(file.GetHfsOrUfs());               // the specification, as long as nobody has resolved it
 *
 * Empty texts are undefined names. A text may hold any 16-bit units, zeros and halves of pairs included.
 *
 * Ownership: an ordinary value; its texts are its own.
 *
 * Compilers: the structure holds standard strings, so a program may touch its members only when it was built
 * with the library's own compiler and runtime library. Everybody else asks NativeFileSpec_create for one and
 * goes through the functions at the end, which take plain C types. For the same reason its members are the
 * only functions of the library that the Windows DLLs do not also export under the names that the system's own
 * compiler gives them.
 *
 * Threads: no shared state. One specification must not be changed while another thread uses it.
 *
 * Exceptions: std::bad_alloc leaves operator= when memory runs out; nothing else throws.
 */
#ifndef CORVANE_PRINT_NATIVEFILESPEC_H
#define CORVANE_PRINT_NATIVEFILESPEC_H

#include <string>

#include "corvane/print/export.h"
#include "corvane/print/types.h"

namespace Corvane {
namespace Print {

/** How a file was obtained; the values of NativeFileSpec::accessMode. */
enum {
  CP_FILE_GIVE_OUT = 0,         /**< given out */
  CP_FILE_EXPORT = 1,           /**< exported */
  CP_FILE_COPY_OUT = 2,         /**< copied out */
  CP_FILE_MARK_CHECKED_OUT = 3, /**< marked as checked out */
  CP_FILE_CHECK_OUT = 4         /**< checked out */
};

/** The names of one file. */
struct NativeFileSpec {
  std::basic_string<CPWChar> ufs;           /**< as the user or the configuration gave it */
  std::basic_string<CPWChar> hfs;           /**< as the operating system understands it */
  std::basic_string<CPWChar> monikerString; /**< its name in the document store */
  int accessMode;                           /**< CP_FILE_..., any other value is kept as it is */

  /** Without names. */
  NativeFileSpec() : accessMode(CP_FILE_GIVE_OUT) {}
  /** A copy. */
  NativeFileSpec(const NativeFileSpec& other)
      : ufs(other.ufs), hfs(other.hfs), monikerString(other.monikerString), accessMode(other.accessMode) {}

  /** The host name where there is one, else the universal one; a reference to the member. */
  CORVANE_PRINT_API const std::basic_string<CPWChar>& GetHfsOrUfs() const;

  /** Copies the three texts and the mode; the same value may stand on both sides. When memory runs out,
   * std::bad_alloc leaves it and nothing has changed. */
  CORVANE_PRINT_API NativeFileSpec& operator=(const NativeFileSpec& other);

  /** Empties the three texts and sets the mode to 0. */
  CORVANE_PRINT_API void clear();
};

}  // namespace Print
}  // namespace Corvane

extern "C" {

/** Which text of a specification. */
enum {
  NATIVEFILESPEC_UFS = 0,    /**< the universal name */
  NATIVEFILESPEC_HFS = 1,    /**< the host name */
  NATIVEFILESPEC_MONIKER = 2 /**< the name in the document store */
};

/** Results of NativeFileSpec_setText. */
enum {
  NATIVEFILESPEC_OK = 0,           /**< done */
  NATIVEFILESPEC_BAD_ARGUMENT = 1, /**< no such text, or a negative length */
  NATIVEFILESPEC_NO_MEMORY = 3     /**< nothing has changed */
};

/** A new, empty specification, which the caller hands to NativeFileSpec_release; null when there is no
 * memory.
 */
CORVANE_PRINT_API Corvane::Print::NativeFileSpec* CORVANE_PRINT_CALL NativeFileSpec_create(void);

/** Releases what NativeFileSpec_create made; null is ignored. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL NativeFileSpec_release(Corvane::Print::NativeFileSpec* spec);

/** A text of the specification, with a terminator behind it; the specification's, valid until it is changed.
 *   \param spec    not null
 *   \param which   NATIVEFILESPEC_...; for any other value the result is null and the length 0
 *   \param length  out: the number of 16-bit units without the terminator */
CORVANE_PRINT_API const CPWChar* CORVANE_PRINT_CALL
NativeFileSpec_text(const Corvane::Print::NativeFileSpec* spec, int which, int* length);

/** Replaces a text.
 *   \param spec    not null
 *   \param which   NATIVEFILESPEC_...
 *   \param text    `length` 16-bit units, which may hold zeros and are not terminated; null is an empty
 *                  text
 *   \param length  0 or more; without meaning when `text` is null
 * \return NATIVEFILESPEC_OK; NATIVEFILESPEC_BAD_ARGUMENT for another `which` or a negative length;
 * NATIVEFILESPEC_NO_MEMORY. With both of these nothing has changed. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL NativeFileSpec_setText(Corvane::Print::NativeFileSpec* spec,
                                                                int which, const CPWChar* text, int length);

/** The mode; `spec` is not null. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL
NativeFileSpec_accessMode(const Corvane::Print::NativeFileSpec* spec);
/** Changes the mode; `spec` is not null. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL NativeFileSpec_setAccessMode(Corvane::Print::NativeFileSpec* spec,
                                                                       int accessMode);

/** NativeFileSpec::clear; `spec` is not null. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL NativeFileSpec_clear(Corvane::Print::NativeFileSpec* spec);
}

#endif
