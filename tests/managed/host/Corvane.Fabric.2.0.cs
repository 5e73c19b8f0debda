// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host's own loggers.
using System;
using Corvane.Logging;

namespace Corvane.Fabric.Logging
{
    public static class LoggerManager
    {
        public static ILogger CreateLogger(string name)
        {
            Console.WriteLine("host creates " + name);
            return new HostLogger();
        }

        private sealed class HostLogger : ILogger
        {
            public void warning(string format, params object[] args)
            {
                Say("warning", format, args);
            }

            public void error(string format, params object[] args)
            {
                Say("error", format, args);
            }

            public void info(string format, params object[] args)
            {
                Say("info", format, args);
            }

            public void trace(string format, params object[] args)
            {
                Say("trace", format, args);
            }

            private static void Say(string level, string format, object[] args)
            {
                Console.WriteLine("host {0} {1} {2}", level, format, string.Concat(args));
            }
        }
    }
}
