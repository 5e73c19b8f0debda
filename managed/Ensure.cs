// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Checks of arguments. What they throw has passed through the host's exception policy.
using System;
using Corvane.Exceptions;

namespace Corvane.Print
{
    internal static class Ensure
    {
        internal static void NotNull(object argument, string name)
        {
            if (argument == null) throw NullArgument(name);
        }

        internal static unsafe void NotNull(void* argument, string name)
        {
            if (argument == null) throw NullArgument(name);
        }

        // A policy that has nothing to say does not turn the error into another one.
        private static Exception NullArgument(string name)
        {
            var error = new ArgumentNullException(name);
            return ThrowingPolicy.Apply(error) ?? error;
        }
    }
}
