/* SPDX-License-Identifier: MIT
 * Copyright (c) 2026 The Corvane Print authors */
/** \file
 * FU: file specifications. Usable from C and C++.
 *
 * A plot engine names files in three forms:
 *   - UFS, universal: whatever a user or a configuration may give - a path, a logical specification, a bare
 *     name, or the name of a configuration variable whose value is a specification
 *   - LFS, logical: `dev:dir\name.ext;ver`, where dev is a drive letter or a logical device, that is the name
 *     of a configuration variable whose value is a directory, or a list of directories separated by ;
 *   - HFS, host: a path that the operating system understands, with a drive letter or as `\\server\share\...`
 *
 * All of them have the same five components: dev, dir, name, ext (without its dot) and ver (what follows ;).
 *
 * Elsewhere than on Windows every `\` of a host specification stands for /, drive Z: is the root
 * directory, and another drive X: is the directory that the environment variable CORVANE_DRIVE_X names; it
 * names nothing while that is unset. The current directory /home/user is `Z:\home\user` there, and so is a
 * plain path of that kind in the variable PWD, which shells keep.
 *
 *     CPWChar found[FU_WIDE];
 *     if (FUSearchUFSW(ufs, searchPath, defExt, 0, found) == FU_OK) use(found);
 *
 * Buffers: a wide output has room for FU_WIDE characters, a narrow one for FU_NARROW bytes. Longer input is
 * cut at 255 characters before it is used, where nothing else is said; longer results are cut too. A null
 * input is an empty text. An output must not overlap the inputs of a wide function unless that is said;
 * narrow buffers may be the same. Functions without a W are the narrow twins of those with it: they convert
 * their texts, call the wide function, and convert its results back; what is said of the wide function holds
 * for both.
 * Names of variables are looked up as told in cf.h: through the host's callback, or in the environment.
 *
 * Threads: no call may run while another thread installs a configuration callback; and the first FUSearchUFS
 * of a process must not run on two threads at once, since it reads two switches for all later ones.
 */
#ifndef CORVANE_PRINT_FU_H
#define CORVANE_PRINT_FU_H

#include "corvane/print/export.h"
#include "corvane/print/types.h"

#ifndef __cplusplus
#include <stdbool.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Sizes of output buffers. */
enum {
  FU_WIDE = 256,  /**< characters of a wide output */
  FU_NARROW = 512 /**< bytes of a narrow output */
};

/** Results. A function lists those that it gives. Predicates give 1 or 0. */
enum {
  FU_OK = 0,            /**< done */
  FU_FAILED = 1,        /**< no element, no match, no such level, no universal name */
  FU_NOT_FOUND = 2,     /**< a search found no file */
  FU_NO_MEMORY = 3,     /**< memory ran out */
  FU_NO_DEVICE = 4,     /**< a logical device is no defined variable */
  FU_SHORTENED = 100    /**< the name was cut to fit */
};

/** \name Parsing
 * @{ */

/** Splits a specification into its components. Outputs may be null; those that are not receive the component
 * or an empty text; one of them may be `ufs`. Returns FU_OK.
 *
 * The last ; starts the version and the first : ends the device. The directory ends at the last of the
 * characters `/ \ ]`; it keeps that character, and all others, where it is ] or the directory is nothing
 * else, and otherwise loses it and has its / turned into `\`. The last . starts the extension unless the name
 * begins with it; a name that ends with it has the extension ".". */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUParseUFSW(const CPWChar* ufs, CPWChar* dev, CPWChar* dir,
                                                     CPWChar* name, CPWChar* ext, CPWChar* ver);
/** Narrow twin of FUParseUFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUParseUFS(const char* ufs, char* dev, char* dir, char* name,
                                                    char* ext, char* ver);

/** 1 when the specification is a full host path: a device and a directory that starts with `\`, or no
 * device and a directory that starts with `\\`.
 * Oddity, kept: C:/f.txt is not full (its directory is /), C:/a/f.txt is. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUIsFullHFSW(const CPWChar* hfs);
/** Narrow twin of FUIsFullHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUIsFullHFS(const char* hfs);

/** 1 when it is a full host path, or the name of a defined variable, or has a logical device and a name. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUIsFullLFSW(const CPWChar* lfs);
/** Narrow twin of FUIsFullLFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUIsFullLFS(const char* lfs);

/** @} */

/** \name Building and resolving
 * @{ */

/** Joins components, each of which may be null or empty, with the separators that they lack. `out` may be one
 * of them. Returns FU_OK, or FU_SHORTENED when the name had to be cut.
 * Oddities, kept: an extension or version with nothing before it gets no dot or semicolon; the name is cut
 * only when it and its extension, both measured whole, exceed 513 characters, which the narrow form never
 * sees since its texts are cut before; shorter ones are cut by the buffer without a word; a directory that
 * ends in / still receives `\`. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUBuildLFSW(const CPWChar* dev, const CPWChar* dir,
                                                     const CPWChar* name, const CPWChar* ext,
                                                     const CPWChar* ver, CPWChar* out);
/** Narrow twin of FUBuildLFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUBuildLFS(const char* dev, const char* dir, const char* name,
                                                    const char* ext, const char* ver, char* out);

/** Turns a logical specification into a host one and fills what it lacks from the defaults (null or empty:
 * none). A logical device is replaced by the first entry of its variable's list, which may be empty; the
 * specification's own directory is then dropped. A specification that is the name of a variable is replaced
 * by the whole value. `out` may be `lfs`, but none of the defaults. Returns FU_OK, or FU_NO_DEVICE with an
 * empty result, or with the specification as far as it was translated when it is the default device that is
 * undefined. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUFindCreateHFSW(const CPWChar* lfs, const CPWChar* defDev,
                                                          const CPWChar* defDir, const CPWChar* defExt,
                                                          const CPWChar* defVer, CPWChar* out);
/** Narrow twin of FUFindCreateHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUFindCreateHFS(const char* lfs, const char* defDev,
                                                         const char* defDir, const char* defExt,
                                                         const char* defVer, char* out);

/** Makes a partial host path full, from the current directory: the variable PWD, a host specification, where
 * it is defined, else the process's. Elsewhere than on Windows a value of PWD that starts with / is a path
 * under drive Z:. A current directory of more than 255 characters is cut. `out` may be the path itself.
 * \return FU_OK, or FU_FAILED with an empty result when .. climbs above the root.
 *
 * Oddities, kept: a device on a relative path is ignored; a directory of more than 50 levels counts as none;
 * a path that starts with / is relative; each value of PWD that was read stays allocated, as with
 * CFGetenv. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUFindFullHFSW(const CPWChar* partialHfs, CPWChar* out);
/** Narrow twin of FUFindFullHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUFindFullHFS(const char* partialHfs, char* out);

/** Puts a component behind a path, with a separator between them. `out` may be `hfs`. Returns FU_OK.
 * Oddity, kept: in the wide form a component that fills the buffer leaves out[255] alone, so the text has no
 * terminator unless the caller has put one there. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUAppendCompHFSW(const CPWChar* hfs, const CPWChar* comp,
                                                          CPWChar* out);
/** Narrow twin of FUAppendCompHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUAppendCompHFS(const char* hfs, const char* comp, char* out);

/** Takes `count` levels off the end; only `\` counts. A path of more than 255 characters is cut after
 * that, but before it where `out` is `hfs`. Returns FU_OK, or FU_FAILED with an empty result when there
 * are fewer levels or count is negative. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FURemoveCompsHFSW(const CPWChar* hfs, int count, CPWChar* out);
/** Narrow twin of FURemoveCompsHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FURemoveCompsHFS(const char* hfs, int count, char* out);

/** Adds a separator `\` at the end of a text that is not empty, lacks one and has room for it. `out` may be
 * `src`. Returns FU_OK. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUAppendDirSepHFSW(const CPWChar* src, CPWChar* out);
/** Narrow twin of FUAppendDirSepHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUAppendDirSepHFS(const char* src, char* out);
/** Removes a separator `\` at the end of a text; that of a root stays. `out` may be `src`. Cuts as
 * FURemoveCompsHFSW does. Returns FU_OK. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FURemoveDirSepHFSW(const CPWChar* src, CPWChar* out);
/** Narrow twin of FURemoveDirSepHFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FURemoveDirSepHFS(const char* src, char* out);

/** @} */

/** \name Path lists and search
 * @{ */

/** A walk over the elements of a list; the caller holds a pointer to it, nothing else. */
typedef struct FUPathIterator FUPathIterator;

/** The first element of a list. Empty elements are skipped.
 *   \param path        the list, of any length
 *   \param delimiters  each character is one; null or empty means ";"
 *   \param out         room for the longest element; FU_WIDE (FU_NARROW) suffices, longer elements are
 *                      cut
 *   \param iterator    out: the walk, which the caller ends unless it has come to its end by itself
 * \return FU_OK; FU_FAILED when there is no element, FU_NO_MEMORY; with both of these the iterator is
 * released and set to null, and `out` is empty. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathGetFirstW(const CPWChar* path, const CPWChar* delimiters,
                                                         CPWChar* out, FUPathIterator** iterator);
/** Narrow twin of FUPathGetFirstW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathGetFirst(const char* path, const char* delimiters, char* out,
                                                        FUPathIterator** iterator);
/** The following element, with the same results. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathGetNextW(FUPathIterator** iterator, CPWChar* out);
/** Narrow twin of FUPathGetNextW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathGetNext(FUPathIterator** iterator, char* out);

/** Ends a walk before its end; null is ignored. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUPathFree(FUPathIterator* iterator);

/** 1 when an element of the list, without blanks around it, is a pattern (see STRMatchPatternCIW in str.h)
 * that comp matches, ignoring case; also 1 when it equals comp. 0 otherwise, and when there is no memory. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathContainsCompW(const CPWChar* path, const CPWChar* delimiters,
                                                             const CPWChar* comp);
/** Narrow twin of FUPathContainsCompW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUPathContainsComp(const char* path, const char* delimiters,
                                                            const char* comp);

/** Finds an existing regular file. The steps, of which the first success counts:
 *   1. `.\name.ext` in the current directory, when VX_SEARCH_CURRENTDIR_FIRST is TRUE (in any case)
 *   2. the specification as it stands, unless VX_NOSEARCH_ASIS is TRUE and it is no full logical one
 *   3. the value of the variable that it names
 *   4. in each directory of its device's list and then of `searchPath` (a ; list of any length, may be null):
 *      name.ext, then its own directory's name.ext below
 *   5. a full host path: its last two levels below the directories of the variable VX_PWP
 *   6. what is no full logical specification: name.ext in the directories of VX_PWP
 *
 * Each candidate is also tried with the default extension and version where it has none (null or empty: no
 * default); in steps 5 and 6 there are no defaults. A directory is never found.
 * \return FU_OK with the file's host specification; FU_NOT_FOUND; or FU_NO_MEMORY when nothing was found and
 * a list could not be looked at; with both of these `out` is empty.
 *
 * Oddities, kept: the two switches are read by the first search of a process, later changes are not seen; the
 * version is not looked for in step 4; a value that names the file which is found, in step 3, stays
 * allocated; on Windows candidates are looked for by their narrow names. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUSearchUFSW(const CPWChar* ufs, const CPWChar* searchPath,
                                                      const CPWChar* defExt, const CPWChar* defVer,
                                                      CPWChar* out);
/** Narrow twin of FUSearchUFSW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUSearchUFS(const char* ufs, const char* searchPath,
                                                     const char* defExt, const char* defVer, char* out);

/** The step that a candidate belongs to. Candidates of the searches that steps 5 and 6 begin belong to
 * these. */
enum {
  FU_STEP_CURRENT_DIRECTORY = 1, /**< by its name in the current directory */
  FU_STEP_AS_IS = 2,             /**< as it stands */
  FU_STEP_VARIABLE = 3,          /**< as the value of a variable */
  FU_STEP_LISTS = 4,             /**< in a list of directories */
  FU_STEP_RELOCATED = 5,         /**< its last two levels, by VX_PWP */
  FU_STEP_BY_NAME = 6            /**< its name, by VX_PWP */
};

/** Told of a candidate of a search.
 *   \param context    as it was given to FUSearchExplainW
 *   \param step       FU_STEP_...
 *   \param candidate  the host specification that was tried; the library's, valid during the call
 *   \param found      1 when it is an existing regular file, which ends the search; else 0
 * May search itself. What it throws goes no further: the search goes on. */
typedef void(CORVANE_PRINT_CALL* FUSearchTried)(void* context, int step, const CPWChar* candidate, int found);

/** FUSearchUFSW with the same results, which calls tried(context, ...) for each candidate in the order in
 * which they are tried, on the caller's thread. A null `tried` is nobody. For telling users why a file is not
 * found. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUSearchExplainW(const CPWChar* ufs, const CPWChar* searchPath,
                                                          const CPWChar* defExt, const CPWChar* defVer,
                                                          CPWChar* out, FUSearchTried tried, void* context);

/** @} */

/** \name Wildcards
 * @{ */

/** An enumeration in progress. */
typedef struct FUMatchLFSHandle FUMatchLFSHandle;

/** The host specifications of the files and directories that match a specification with * and ?, ignoring
 * case, in every directory of its device's list; one a call. A specification that names a variable stands for
 * the first entry of its value. Defaults (null or empty: none) fill what the specification lacks. The names
 * of a directory come in ascending order of their bytes. On Windows they come as the system delivers them,
 * whose own wildcards must match as well. A directory beside which the pattern does not fit into 255
 * characters has no match. Several enumerations may be in progress at once.
 * \return FU_OK; FU_FAILED when there is no (further) match; FU_NO_MEMORY; with both of these the handle is
 * released and set to null, and `out` is empty.
 *
 * Oddities, kept: a specification without wildcards is handed back unchanged, with a null handle, whether or
 * not there is such a file; the directory of a specification with a list of directories is not looked at. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUMatchLFSFirstW(const CPWChar* lfs, const CPWChar* defDev,
                                                          const CPWChar* defDir, const CPWChar* defExt,
                                                          const CPWChar* defVer, CPWChar* out,
                                                          FUMatchLFSHandle** handle);
/** Narrow twin of FUMatchLFSFirstW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUMatchLFSFirst(const char* lfs, const char* defDev,
                                                         const char* defDir, const char* defExt,
                                                         const char* defVer, char* out,
                                                         FUMatchLFSHandle** handle);
/** The following match, with the same results. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUMatchLFSNextW(FUMatchLFSHandle** handle, CPWChar* out);
/** Narrow twin of FUMatchLFSNextW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUMatchLFSNext(FUMatchLFSHandle** handle, char* out);

/** Ends an enumeration before its end; null is ignored. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUMatchLFSFreeW(FUMatchLFSHandle* handle);
/** Narrow twin of FUMatchLFSFreeW. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUMatchLFSFree(FUMatchLFSHandle* handle);

/** @} */

/** \name Ports, network names, tokens
 * @{ */

/** Whether a specification is a printer port (LPT1); null is none.
 * Oddity, kept: LPT1: is no port, since its name is empty; but where the specification has a colon at the
 * length of its name, the name's last character may be anything (ABC:LPTX). */
CORVANE_PRINT_API bool CORVANE_PRINT_CALL FUIsPortName(const CPWChar* ufs);
/** Whether it is a share, `\\server\share`. It is looked for in the whole text, however long that is; null is
 * none. */
CORVANE_PRINT_API bool CORVANE_PRINT_CALL FUIsUncShare(const CPWChar* ufs);
/** Whether it is a network address (1.2.3.4), looked for in the same way.
 * Oddity, kept: the groups of an address are not checked for their range, and a trailing dot passes. */
CORVANE_PRINT_API bool CORVANE_PRINT_CALL FUIsIPAddress(const CPWChar* ufs);
/** Whether it is any of these, or a name with a token (`<...>`), which is looked for in the whole text
 * too. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUIsPseudoFile(const CPWChar* ufs);

/** Turns a port into a file name in the root of the local drive, which the variable TQLOCAL or else WINDIR
 * names: LPT1: becomes `C:\LPT1`. Without either the port is handed back. The result is cut at 255
 * characters, a colon at the port's end dropped before. `out` may be `port`. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUModifyPortName(CPWChar* out, const CPWChar* port);

/** The network form of a path on a mapped drive: `H:\plots\a.plt` becomes `\\srv\share\plots\a.plt`. The
 * version is dropped. Returns FU_OK, or FU_FAILED with an empty result: there is no drive letter, it is a
 * defined variable, it is mapped to no share, or the share's name takes more than 512 bytes; always
 * elsewhere than on Windows. `out` may be `ufs`.
 *
 * The network provider library, mpr.dll, is bound when it is first needed. Oddity, kept: when that fails, the
 * structured exception 0xC06D007E (no library) or 0xC06D007F (no such function) leaves the function, with an
 * empty result; the library stays usable, and a later call tries again. A host prevents it by vantrel.dll:
 * where that is loaded and exports vantrel32_recordDelayLoadHookFailure, it is handed the notification (the
 * two arguments of a delay-load hook) and may return a module or function to use instead, or null. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUGetUniversalNameW(const CPWChar* ufs, CPWChar* out);
/** Narrow twin of FUGetUniversalNameW. */
CORVANE_PRINT_API int CORVANE_PRINT_CALL FUGetUniversalName(const char* ufs, char* out);

/** Replaces a name of any length by the text behind its last dot, in place; without a dot nothing changes.
 * Oddity, kept: in spite of its name it keeps the extension and drops the rest. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUTrimExtension(CPWChar* s);

/** Replaces the first token `<autoInc?digits=D?base=B>` by the first of the 1000 numbers from B on for
 * which no such file exists, and removes characters that no file name may have (`/ ? < > * | "`). D is the
 * least width, 1 to 3, and 3 where it is not given; B is 0 where it is not given; a value that is no
 * number is ignored. A token without its > ends with the text. The name is cut at 255 characters. Nothing
 * is written without a token and without such characters among the first 255.
 *   \param spec      the name, changed in place
 *   \param capacity  room of `spec` in characters; when the name changes, spec[capacity - 1] becomes 0.
 *                    Below 1 nothing is written.
 *
 * Oddities, kept: / is such a character, so C:/a/b becomes C:ab; when all 1000 exist, the first is used
 * again. */
CORVANE_PRINT_API void CORVANE_PRINT_CALL FUResolveAutoIncToken(CPWChar* spec, int capacity);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
