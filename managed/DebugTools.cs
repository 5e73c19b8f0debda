// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Debug flags, as managed hosts ask for them.
namespace Corvane.Print
{
    /// <summary>
    /// Whether a debug flag is on. The flags come from configuration variables that the native host names;
    /// case is ignored.
    /// </summary>
    public sealed unsafe class DebugTools
    {
        /// <summary>Does nothing.</summary>
        public DebugTools()
        {
        }

        /// <summary>Whether an ordinary flag is on: it was listed, or "all" was.</summary>
        /// <param name="flag">The flag; null is on when "all" was listed.</param>
        /// <returns>Whether it is on.</returns>
        public static bool IsDebugOn(string flag)
        {
            fixed (char* text = flag) return NativeMethods.DbgTools_isDebugOnW(text) != 0;
        }

        /// <summary>Whether a developer flag is on: it was listed by its name; "all" does not
        /// count.</summary>
        /// <param name="flag">The flag; null is off.</param>
        /// <returns>Whether it is on.</returns>
        public static bool IsDevDebugOn(string flag)
        {
            fixed (char* text = flag) return NativeMethods.DbgTools_isDevDebugOnW(text) != 0;
        }
    }
}
