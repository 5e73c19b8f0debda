// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host's own exception policy: it turns every exception into one of its own.
using System;

namespace Corvane.Exceptions
{
    public static class ThrowingPolicy
    {
        public static Exception Apply(Exception exception)
        {
            string parameter = ((ArgumentException)exception).ParamName;
            return new ApplicationException("host policy: " + exception.GetType().Name + " " + parameter);
        }
    }
}
