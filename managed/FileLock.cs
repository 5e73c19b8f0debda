// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Files kept open for writing, as locks on them. How a system opens a file that way is HostLock's business.
using Microsoft.Win32.SafeHandles;

namespace Corvane.Print
{
    /// <summary>
    /// Keeps a file open for reading and writing. While it does, others may read the file but not open it for
    /// writing: on Windows nobody at all; elsewhere nobody who opens it by a <see cref="FileLock"/>, in
    /// whatever process, and no managed stream of the same process, while a foreign program that asks for no
    /// lock can still write to the file, rename it or remove it.
    /// </summary>
    public class FileLock
    {
        private SafeFileHandle m_safeFileHandle;
        private FileSpec m_filespec;

        // The names of the system's values, for those who read the code; LockFile has the numbers.
#pragma warning disable 414
        private static readonly short FILE_ATTRIBUTE_NORMAL;
        private static readonly short INVALID_HANDLE_VALUE;
        private static readonly uint GENERIC_READ;
        private static readonly uint GENERIC_WRITE;
        private static readonly uint FILE_SHARE_READ;
        private static readonly uint FILE_SHARE_WRITE;
        private static readonly uint CREATE_NEW;
        private static readonly uint CREATE_ALWAYS;
        private static readonly uint OPEN_EXISTING;
#pragma warning restore 414

        static FileLock()
        {
            FILE_ATTRIBUTE_NORMAL = 0x80;
            INVALID_HANDLE_VALUE = -1;
            GENERIC_READ = 0x80000000;
            GENERIC_WRITE = 0x40000000;
            FILE_SHARE_READ = 1;
            FILE_SHARE_WRITE = 2;
            CREATE_NEW = 1;
            CREATE_ALWAYS = 2;
            OPEN_EXISTING = 3;
        }

        /// <summary>A lock on nothing.</summary>
        public FileLock()
        {
        }

        /// <summary>A lock by a handle.</summary>
        /// <param name="safeFileHandle">The handle of the open file; the lock's from here on. May be
        /// null.</param>
        /// <param name="filespec">The file. May be null.</param>
        public FileLock(SafeFileHandle safeFileHandle, FileSpec filespec)
        {
            m_safeFileHandle = safeFileHandle;
            m_filespec = filespec;
        }

        /// <summary>Whether the file is locked: there is a handle, it is valid, and it is open.</summary>
        public bool IsValid
        {
            get
            {
                return m_safeFileHandle != null && !m_safeFileHandle.IsInvalid && !m_safeFileHandle.IsClosed;
            }
        }

        /// <summary>The handle of the open file; may be null or invalid.</summary>
        public SafeFileHandle Handle
        {
            get { return m_safeFileHandle; }
        }

        /// <summary>The file; may be null.</summary>
        public FileSpec FileSpec
        {
            get { return m_filespec; }
        }

        /// <summary>Whether there is no lock.</summary>
        /// <param name="fileLock">The lock; may be null.</param>
        /// <returns>Whether it is null or not valid.</returns>
        public static bool IsNullOrInvalid(FileLock fileLock)
        {
            return fileLock == null || !fileLock.IsValid;
        }

        /// <summary>Locks an existing file, named by its host specification.</summary>
        /// <param name="filespec">The file; may be null.</param>
        /// <returns>
        /// The lock, which is not valid when the file could not be opened; null when there is no host
        /// specification. Keep it: a lock that nobody refers to ends with some collection.
        /// </returns>
        public static FileLock LockFile(FileSpec filespec)
        {
            if (filespec == null || !filespec.IsDefinedHfs || filespec.Hfs.Length == 0) return null;
            return new FileLock(HostLock.Open(filespec.Hfs), filespec);
        }

        /// <summary>Ends a lock.</summary>
        /// <param name="fileLock">The lock; may be null.</param>
        /// <returns>Whether there was a lock and it has ended.</returns>
        public static bool UnlockFile(FileLock fileLock)
        {
            if (IsNullOrInvalid(fileLock)) return false;
            HostLock.Close(fileLock.Handle);
            return fileLock.Handle.IsClosed;
        }
    }
}
