// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Stands in for the host's assembly Corvane.Fabric.2.0, where there is no host: exactly what the layer uses.
//
// Its loggers write to the listeners of System.Diagnostics.Trace, with "NAME LEVEL" for a category; whoever
// wants to listen adds a listener.
using System.Diagnostics;
using System.Reflection;
using Corvane.Logging;

[assembly: AssemblyTitle("Corvane.Fabric.2.0, stand-in")]

namespace Corvane.Fabric.Logging
{
    /// <summary>Makes loggers.</summary>
    public static class LoggerManager
    {
        /// <summary>Makes a logger that writes to the listeners of System.Diagnostics.Trace.</summary>
        /// <param name="name">The logger's name.</param>
        /// <returns>A new logger.</returns>
        public static ILogger CreateLogger(string name)
        {
            return new TraceLogger(name);
        }

        private sealed class TraceLogger : ILogger
        {
            private readonly string m_name;

            internal TraceLogger(string name)
            {
                m_name = name;
            }

            public void error(string format, object[] args)
            {
                Write("error", format, args);
            }

            public void info(string format, object[] args)
            {
                Write("info", format, args);
            }

            public void trace(string format, object[] args)
            {
                Write("trace", format, args);
            }

            // Without arguments the text is no format.
            private void Write(string level, string format, object[] args)
            {
                string text = args != null && args.Length != 0 ? string.Format(format, args) : format;
                Trace.WriteLine(text, m_name + " " + level);
            }
        }
    }
}
