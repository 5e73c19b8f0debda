// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// How a file was obtained from the document store.
namespace Corvane.Print
{
    /// <summary>How a file was obtained from the document store.</summary>
    public enum FileGetMode
    {
        /// <summary>Given out; the mode of a new specification.</summary>
        GiveOut = 0,

        /// <summary>Exported.</summary>
        Export = 1,

        /// <summary>Copied out.</summary>
        CopyOut = 2,

        /// <summary>Marked as checked out.</summary>
        MarkCheckedOut = 3,

        /// <summary>Checked out.</summary>
        CheckOut = 4
    }
}
