// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host's own logging interface, with more in it than the layer uses.
namespace Corvane.Logging
{
    public interface ILogger
    {
        void warning(string format, params object[] args);
        void error(string format, params object[] args);
        void info(string format, params object[] args);
        void trace(string format, params object[] args);
    }
}
