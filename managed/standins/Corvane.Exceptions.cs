// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Stands in for the host's assembly Corvane.Exceptions, where there is no host: exactly what the layer uses.
using System;
using System.Reflection;

[assembly: AssemblyTitle("Corvane.Exceptions, stand-in")]

namespace Corvane.Exceptions
{
    /// <summary>The host's exception policy. This one lets every exception pass.</summary>
    public static class ThrowingPolicy
    {
        /// <summary>Decides what is thrown in an exception's place.</summary>
        /// <param name="exception">The exception.</param>
        /// <returns>The exception to throw: the same.</returns>
        public static Exception Apply(Exception exception)
        {
            return exception;
        }
    }
}
