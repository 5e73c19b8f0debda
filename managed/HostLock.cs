// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Opens files so that nobody else opens them for writing.
//
// Windows does that by the share mode of an open file. Elsewhere a stream of the runtime does it within the
// process, and an advisory lock of the system between processes; both belong to one descriptor, and end when
// that is closed.
using System;
using System.IO;
using System.Security;
using Microsoft.Win32.SafeHandles;

namespace Corvane.Print
{
    internal static unsafe class HostLock
    {
        private static bool OnWindows
        {
            get { return Environment.OSVersion.Platform == PlatformID.Win32NT; }
        }

        /// <summary>Opens an existing file.</summary>
        /// <param name="hfs">Its host specification.</param>
        /// <returns>The handle; an invalid one when that failed.</returns>
        internal static SafeFileHandle Open(string hfs)
        {
            // Read and write access, others may read, the file must exist.
            return OnWindows ? NativeMethods.CreateFile(hfs, 0xC0000000, 1, IntPtr.Zero, 3, 0, IntPtr.Zero)
                             : OpenAndLock(hfs);
        }

        internal static void Close(SafeFileHandle handle)
        {
            // A program that was started meanwhile may have inherited the descriptor, and the lock with it.
            if (!OnWindows) NativeMethods.flock(handle, NativeMethods.LockRelease);
            handle.Close();
        }

        private static SafeFileHandle OpenAndLock(string hfs)
        {
            string path = PathOf(hfs);
            SafeFileHandle handle = path != null ? OpenForWriting(path) : Invalid();
            if (handle.IsInvalid) return handle;
            int mode = NativeMethods.LockExclusive | NativeMethods.LockWithoutWaiting;
            if (NativeMethods.flock(handle, mode) == 0) return handle;
            handle.Close();
            return Invalid();
        }

        // Null when the specification names nothing here.
        private static string PathOf(string hfs)
        {
            const int capacity = 4096;  // the system takes no longer names
            char* path = stackalloc char[capacity];
            fixed (char* text = hfs)
            {
                int length = NativeMethods.HostFile_nameW(text, path, capacity);
                return length != 0 ? new string(path, 0, length) : null;
            }
        }

        private static SafeFileHandle OpenForWriting(string path)
        {
            try
            {
                return Detach(new FileStream(path, FileMode.Open, FileAccess.ReadWrite, FileShare.Read));
            }
            catch (Exception error) when (error is IOException || error is UnauthorizedAccessException ||
                                          error is ArgumentException || error is NotSupportedException ||
                                          error is SecurityException)
            {
                return Invalid();
            }
        }

        // The stream's descriptor and its share entry, without the stream: a stream that is collected would
        // close them. A handle over a descriptor of the system's own open would never close it.
        private static SafeFileHandle Detach(FileStream stream)
        {
            GC.SuppressFinalize(stream);
            var handle = new SafeFileHandle(stream.SafeFileHandle.DangerousGetHandle(), true);
            stream.SafeFileHandle.SetHandleAsInvalid();
            return handle;
        }

        private static SafeFileHandle Invalid()
        {
            return new SafeFileHandle(new IntPtr(-1), true);
        }
    }
}
