// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Every function outside the managed world that this assembly calls; no other file declares one.
//
// Texts are pointers into pinned strings and buffers, so nothing is copied on the way. "corvane_print" is
// corvane_print.dll on Windows and libcorvane_print.so elsewhere; all its functions have the C convention.
using System;
using System.Runtime.InteropServices;
using Microsoft.Win32.SafeHandles;

namespace Corvane.Print
{
    /// <summary>Answers a lookup of the native library. Sizes are in bytes, with the terminator.</summary>
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    internal delegate int NativeExpandCallback(IntPtr name, IntPtr buffer, int capacity);

    internal static unsafe class NativeMethods
    {
        private const string Library = "corvane_print";
        private const CallingConvention Convention = CallingConvention.Cdecl;

        // ---- Configuration variables ----

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern void CFSetGetEnvVarCallback(NativeExpandCallback callback);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern char* CFGetenvW(char* name);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern void CFReleaseValue(void* value);

        // ---- File specifications ----

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUParseUFSW(char* ufs, char* dev, char* dir, char* name, char* ext,
                                               char* ver);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUBuildLFSW(char* dev, char* dir, char* name, char* ext, char* ver,
                                               char* result);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUIsFullHFSW(char* hfs);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUIsFullLFSW(char* lfs);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUFindFullHFSW(char* partialHfs, char* result);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUSearchUFSW(char* ufs, char* searchPath, char* defExt, char* defVer,
                                                char* result);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUFindCreateHFSW(char* lfs, char* defDev, char* defDir, char* defExt,
                                                    char* defVer, char* result);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        [return: MarshalAs(UnmanagedType.I1)]
        internal static extern bool FUIsPortName(char* ufs);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        [return: MarshalAs(UnmanagedType.I1)]
        internal static extern bool FUIsUncShare(char* ufs);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        [return: MarshalAs(UnmanagedType.I1)]
        internal static extern bool FUIsIPAddress(char* ufs);

        // Unlike its three sisters it has a number for a result.
        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int FUIsPseudoFile(char* ufs);

        // ---- Native file specifications ----

        internal const int UfsText = 0;
        internal const int HfsText = 1;
        internal const int MonikerText = 2;
        internal const int NativeFileSpecOk = 0;

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern char* NativeFileSpec_text(NativeFileSpec* spec, int which, int* length);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int NativeFileSpec_setText(NativeFileSpec* spec, int which, char* text,
                                                          int length);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int NativeFileSpec_accessMode(NativeFileSpec* spec);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern void NativeFileSpec_setAccessMode(NativeFileSpec* spec, int accessMode);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern void NativeFileSpec_clear(NativeFileSpec* spec);

        // ---- Debug output and flags ----

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DBMSGW(char* format);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DBERRW(char* format);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DBATTW(char* format);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DBHMSGW(char* format);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DbgTools_isDebugOnW(char* flag);

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int DbgTools_isDevDebugOnW(char* flag);

        // ---- Locks: the library names the file, the system locks it ----

        [DllImport(Library, CallingConvention = Convention, CharSet = CharSet.Unicode, ExactSpelling = true)]
        internal static extern int HostFile_nameW(char* hfs, char* result, int capacity);

        [DllImport("kernel32", CharSet = CharSet.Auto, SetLastError = true)]
        internal static extern SafeFileHandle CreateFile(string fileName, uint desiredAccess, uint shareMode,
                                                         IntPtr securityAttributes, uint creationDisposition,
                                                         uint flagsAndAttributes, IntPtr templateFile);

        internal const int LockExclusive = 2;
        internal const int LockWithoutWaiting = 4;
        internal const int LockRelease = 8;

        // Elsewhere than on Windows, and called only there.
        [DllImport("libc", CallingConvention = Convention, ExactSpelling = true, SetLastError = true)]
        internal static extern int flock(SafeHandle file, int operation);
    }
}
