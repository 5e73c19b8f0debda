// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The native twin of FileSpec, as a pointer sees it.
namespace Corvane.Print
{
    /// <summary>
    /// A specification that the native library made. It has no members here: only pointers to it mean
    /// something, and only to <see cref="FileSpec.ConvertFileSpecToNative"/> and
    /// <see cref="FileSpec.ConvertNativeToFileSpec"/>.
    /// </summary>
    public struct NativeFileSpec
    {
    }
}
