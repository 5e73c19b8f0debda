// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The native file-specification family with managed strings: check, pin, call, and turn the buffers back.
// Every buffer is NativeText.Capacity characters on the stack, and starts as an empty text.
using System;

namespace Corvane.Print
{
    /// <summary>
    /// Tools for file specifications: universal ones (UFS), logical ones (LFS) and those of the host (HFS).
    /// Texts are native texts: they end at a zero character, and results have at most 255 characters.
    /// </summary>
    public unsafe class FUTools
    {
        /// <summary>Does nothing; all members are static.</summary>
        public FUTools()
        {
        }

        /// <summary>Splits a specification into its five components, which are empty where it has
        /// none.</summary>
        /// <param name="ufs">The specification.</param>
        /// <param name="dev">The device.</param>
        /// <param name="dir">The directory.</param>
        /// <param name="name">The name.</param>
        /// <param name="ext">The extension.</param>
        /// <param name="ver">The version.</param>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static void ParseUfs(string ufs, out string dev, out string dir, out string name,
                                    out string ext, out string ver)
        {
            Ensure.NotNull(ufs, "ufs");
            char* devText = stackalloc char[NativeText.Capacity];
            char* dirText = stackalloc char[NativeText.Capacity];
            char* nameText = stackalloc char[NativeText.Capacity];
            char* extText = stackalloc char[NativeText.Capacity];
            char* verText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs)
                NativeMethods.FUParseUFSW(text, devText, dirText, nameText, extText, verText);
            dev = NativeText.From(devText);
            dir = NativeText.From(dirText);
            name = NativeText.From(nameText);
            ext = NativeText.From(extText);
            ver = NativeText.From(verText);
        }

        /// <summary>The device and the directory of a specification.</summary>
        /// <param name="ufs">The specification.</param>
        /// <param name="dev">The device.</param>
        /// <param name="dir">The directory.</param>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static void GetUfsDevDir(string ufs, out string dev, out string dir)
        {
            Ensure.NotNull(ufs, "ufs");
            char* devText = stackalloc char[NativeText.Capacity];
            char* dirText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, devText, dirText, null, null, null);
            dev = NativeText.From(devText);
            dir = NativeText.From(dirText);
        }

        /// <summary>The device, the directory and the name of a specification.</summary>
        /// <param name="ufs">The specification.</param>
        /// <param name="dev">The device.</param>
        /// <param name="dir">The directory.</param>
        /// <param name="name">The name.</param>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static void GetUfsDevDirName(string ufs, out string dev, out string dir, out string name)
        {
            Ensure.NotNull(ufs, "ufs");
            char* devText = stackalloc char[NativeText.Capacity];
            char* dirText = stackalloc char[NativeText.Capacity];
            char* nameText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, devText, dirText, nameText, null, null);
            dev = NativeText.From(devText);
            dir = NativeText.From(dirText);
            name = NativeText.From(nameText);
        }

        /// <summary>The name and the extension of a specification.</summary>
        /// <param name="ufs">The specification.</param>
        /// <param name="name">The name.</param>
        /// <param name="ext">The extension, without its dot.</param>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static void GetUfsNameExt(string ufs, out string name, out string ext)
        {
            Ensure.NotNull(ufs, "ufs");
            char* nameText = stackalloc char[NativeText.Capacity];
            char* extText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, null, null, nameText, extText, null);
            name = NativeText.From(nameText);
            ext = NativeText.From(extText);
        }

        /// <summary>The name and the extension of a specification, with the dot between them.</summary>
        /// <param name="ufs">The specification.</param>
        /// <returns>The text; null when it had to be cut.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static string GetUfsNameExt(string ufs)
        {
            Ensure.NotNull(ufs, "ufs");
            char* nameText = stackalloc char[NativeText.Capacity];
            char* extText = stackalloc char[NativeText.Capacity];
            char* result = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, null, null, nameText, extText, null);
            int status = NativeMethods.FUBuildLFSW(null, null, nameText, extText, null, result);
            return NativeText.FromIfOk(status, result);
        }

        /// <summary>The name of a specification.</summary>
        /// <param name="ufs">The specification.</param>
        /// <returns>The name, which may be empty.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static string GetUfsName(string ufs)
        {
            Ensure.NotNull(ufs, "ufs");
            char* nameText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, null, null, nameText, null, null);
            return NativeText.From(nameText);
        }

        /// <summary>The extension of a specification.</summary>
        /// <param name="ufs">The specification.</param>
        /// <returns>The extension without its dot, which may be empty.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static string GetUfsExt(string ufs)
        {
            Ensure.NotNull(ufs, "ufs");
            char* extText = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs) NativeMethods.FUParseUFSW(text, null, null, null, extText, null);
            return NativeText.From(extText);
        }

        /// <summary>Whether a specification is a full host one.</summary>
        /// <param name="hfs">The specification.</param>
        /// <returns>Whether it has a device and begins at its root, or begins with two backslashes.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="hfs"/> is null.</exception>
        public static bool IsFullHfs(string hfs)
        {
            Ensure.NotNull(hfs, "hfs");
            fixed (char* text = hfs) return NativeMethods.FUIsFullHFSW(text) != 0;
        }

        /// <summary>Whether a specification is a full logical one.</summary>
        /// <param name="lfs">The specification.</param>
        /// <returns>
        /// Whether it is a full host one, the name of a defined variable, or has a logical device and a name.
        /// </returns>
        /// <exception cref="ArgumentNullException"><paramref name="lfs"/> is null.</exception>
        public static bool IsFullLfs(string lfs)
        {
            Ensure.NotNull(lfs, "lfs");
            fixed (char* text = lfs) return NativeMethods.FUIsFullLFSW(text) != 0;
        }

        /// <summary>Makes a partial host specification full, from the current directory.</summary>
        /// <param name="partialHfs">The specification.</param>
        /// <returns>The full one; null when it climbs above the root.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="partialHfs"/> is null.</exception>
        public static string FindFullHfs(string partialHfs)
        {
            Ensure.NotNull(partialHfs, "partialHfs");
            char* result = stackalloc char[NativeText.Capacity];
            fixed (char* text = partialHfs)
                return NativeText.FromIfOk(NativeMethods.FUFindFullHFSW(text, result), result);
        }

        /// <summary>Finds an existing file.</summary>
        /// <param name="ufs">The specification.</param>
        /// <param name="searchPath">Directories, separated by semicolons; may be null.</param>
        /// <param name="defExt">The extension where the specification has none; may be null.</param>
        /// <param name="defVer">The version where the specification has none; may be null.</param>
        /// <returns>The file's host specification; null when there is no such file.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="ufs"/> is null.</exception>
        public static string SearchUfs(string ufs, string searchPath, string defExt, string defVer)
        {
            Ensure.NotNull(ufs, "ufs");
            char* result = stackalloc char[NativeText.Capacity];
            fixed (char* text = ufs, path = searchPath, ext = defExt, ver = defVer)
                return NativeText.FromIfOk(NativeMethods.FUSearchUFSW(text, path, ext, ver, result), result);
        }

        /// <summary>Joins components, each of which may be null or empty.</summary>
        /// <param name="dev">The device.</param>
        /// <param name="dir">The directory.</param>
        /// <param name="name">The name.</param>
        /// <param name="ext">The extension.</param>
        /// <param name="ver">The version.</param>
        /// <returns>The specification; null when the name had to be cut.</returns>
        public static string BuildLfs(string dev, string dir, string name, string ext, string ver)
        {
            char* result = stackalloc char[NativeText.Capacity];
            fixed (char* devText = dev, dirText = dir, nameText = name, extText = ext, verText = ver)
            {
                int status = NativeMethods.FUBuildLFSW(devText, dirText, nameText, extText, verText, result);
                return NativeText.FromIfOk(status, result);
            }
        }

        /// <summary>Turns a logical specification into a host one.</summary>
        /// <param name="lfs">The specification.</param>
        /// <param name="defDev">The device where it has none; may be null.</param>
        /// <param name="defDir">The directory where it has none; may be null.</param>
        /// <param name="defExt">The extension where it has none; may be null.</param>
        /// <param name="defVer">The version where it has none; may be null.</param>
        /// <returns>The host specification; null when a logical device is undefined.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="lfs"/> is null.</exception>
        public static string FindCreateHfs(string lfs, string defDev, string defDir, string defExt,
                                           string defVer)
        {
            Ensure.NotNull(lfs, "lfs");
            char* result = stackalloc char[NativeText.Capacity];
            fixed (char* text = lfs, dev = defDev, dir = defDir, ext = defExt, ver = defVer)
            {
                int status = NativeMethods.FUFindCreateHFSW(text, dev, dir, ext, ver, result);
                return NativeText.FromIfOk(status, result);
            }
        }

        /// <summary>Whether a specification is a printer port.</summary>
        /// <param name="ufs">The specification; null and empty are none.</param>
        /// <returns>Whether it is one.</returns>
        public static bool IsPortName(string ufs)
        {
            if (string.IsNullOrEmpty(ufs)) return false;
            fixed (char* text = ufs) return NativeMethods.FUIsPortName(text);
        }

        /// <summary>Whether a specification is a share of the network.</summary>
        /// <param name="ufs">The specification; null and empty are none.</param>
        /// <returns>Whether it is one.</returns>
        public static bool IsUncShare(string ufs)
        {
            if (string.IsNullOrEmpty(ufs)) return false;
            fixed (char* text = ufs) return NativeMethods.FUIsUncShare(text);
        }

        /// <summary>Whether a specification is a numeric network address.</summary>
        /// <param name="ufs">The specification; null and empty are none.</param>
        /// <returns>Whether it is one.</returns>
        public static bool IsIPAddress(string ufs)
        {
            if (string.IsNullOrEmpty(ufs)) return false;
            fixed (char* text = ufs) return NativeMethods.FUIsIPAddress(text);
        }

        /// <summary>Whether a specification is a port, a share, an address or has a token.</summary>
        /// <param name="ufs">The specification; null and empty are none.</param>
        /// <returns>Whether it is one.</returns>
        public static bool IsPseudoFile(string ufs)
        {
            if (string.IsNullOrEmpty(ufs)) return false;
            fixed (char* text = ufs) return NativeMethods.FUIsPseudoFile(text) != 0;
        }

        /// <summary>Replaces the first occurrence of a text, without regard to case.</summary>
        /// <param name="ufs">The text to look in.</param>
        /// <param name="oldValue">What to look for.</param>
        /// <param name="newValue">What to put in its place.</param>
        /// <returns>
        /// The text with the replacement; null when nothing was found, <paramref name="oldValue"/> is null or
        /// empty, or <paramref name="newValue"/> is null.
        /// </returns>
        /// <exception cref="NullReferenceException"><paramref name="ufs"/> is null and the others are
        /// not.</exception>
        public static string ReplaceString(string ufs, string oldValue, string newValue)
        {
            if (string.IsNullOrEmpty(oldValue) || newValue == null) return null;
            int at = ufs.IndexOf(oldValue, StringComparison.InvariantCultureIgnoreCase);
            if (at < 0) return null;
            // A culture may find a text that is shorter than what was looked for.
            int behind = Math.Min(at + oldValue.Length, ufs.Length);
            return ufs.Substring(0, at) + newValue + ufs.Substring(behind);
        }

        /// <summary>Whether a text is a moniker of the document store, by its prefix "dq:" or
        /// "http:".</summary>
        /// <param name="ufs">The text. Case matters, by the rules of the current culture.</param>
        /// <returns>Whether it begins with one of the two.</returns>
        /// <exception cref="NullReferenceException"><paramref name="ufs"/> is null.</exception>
        public static bool IsDmsDocument(string ufs)
        {
            return ufs.StartsWith("dq:") || ufs.StartsWith("http:");
        }
    }
}
