// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Texts that the native library writes into fixed buffers.
namespace Corvane.Print
{
    internal static unsafe class NativeText
    {
        /// <summary>The room of every output buffer of the file-specification family, in
        /// characters.</summary>
        internal const int Capacity = 256;

        /// <summary>
        /// The text up to its terminating zero. A text that fills its buffer has none, and ends with the
        /// buffer.
        /// </summary>
        internal static string From(char* buffer)
        {
            int length = 0;
            while (length < Capacity && buffer[length] != '\0') ++length;
            return new string(buffer, 0, length);
        }

        /// <summary>The text when the status says success, else null.</summary>
        internal static string FromIfOk(int status, char* buffer)
        {
            return status == 0 ? From(buffer) : null;
        }
    }
}
