// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Stands in for the host's assembly Corvane.logging-2.0, where there is no host: exactly what the layer uses.
using System.Reflection;

[assembly: AssemblyTitle("Corvane.logging-2.0, stand-in")]

namespace Corvane.Logging
{
    /// <summary>A named logger.</summary>
    public interface ILogger
    {
        /// <summary>Writes an entry at the error level.</summary>
        /// <param name="format">The format text.</param>
        /// <param name="args">What stands for its placeholders.</param>
        void error(string format, object[] args);

        /// <summary>Writes an entry at the information level.</summary>
        /// <param name="format">The format text.</param>
        /// <param name="args">What stands for its placeholders.</param>
        void info(string format, object[] args);

        /// <summary>Writes an entry at the trace level.</summary>
        /// <param name="format">The format text.</param>
        /// <param name="args">What stands for its placeholders.</param>
        void trace(string format, object[] args);
    }
}
