// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The load state of the debug library.
namespace Corvane.Print
{
    /// <summary>The load state of the optional debug library, in the numbers of the native side.</summary>
    public enum KVLStatus
    {
        /// <summary>Nobody has tried to load it.</summary>
        NotTried = 0,

        /// <summary>It is there.</summary>
        Available = 1,

        /// <summary>It is not there, and is not looked for again.</summary>
        Unavailable = 2
    }
}
