// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A file specification that names a folder.
namespace Corvane.Print
{
    /// <summary>Names a folder. It is a <see cref="FileSpec"/> in everything, and equals none.</summary>
    public class FolderSpec : FileSpec
    {
        /// <summary>A specification without any name.</summary>
        public FolderSpec()
        {
        }

        /// <summary>A specification with a universal name.</summary>
        /// <param name="ufs">The name; null and empty are none.</param>
        public FolderSpec(string ufs) : base(ufs)
        {
        }

        /// <summary>A specification with a universal name that may be the host name as well.</summary>
        /// <param name="ufs">The name; null and empty are none.</param>
        /// <param name="isHFS">Whether it is also the host name.</param>
        public FolderSpec(string ufs, bool isHFS) : base(ufs, isHFS)
        {
        }

        /// <summary>A folder with the names of a specification.</summary>
        /// <param name="sourceFspec">The specification; null is one without any name.</param>
        public FolderSpec(FileSpec sourceFspec) : base(sourceFspec)
        {
        }
    }
}
