// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The loggers, heard at the listeners that the stand-in logging writes to.
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class PrintLoggerTests
    {
        private sealed class Recorder : TraceListener
        {
            internal readonly List<string> Lines = new List<string>();

            public override void Write(string message)
            {
                Lines.Add(message);
            }

            public override void WriteLine(string message)
            {
                Lines.Add(message);
            }

            public override void WriteLine(string message, string category)
            {
                Lines.Add(category + ": " + message);
            }
        }

        private readonly Recorder m_recorder = new Recorder();

        [SetUp]
        public void Listen()
        {
            m_recorder.Lines.Clear();
            System.Diagnostics.Trace.Listeners.Add(m_recorder);
        }

        [TearDown]
        public void StopListening()
        {
            System.Diagnostics.Trace.Listeners.Remove(m_recorder);
        }

        private void Expect(string line)
        {
            CollectionAssert.AreEqual(new[] { line }, m_recorder.Lines);
        }

        [Test]
        public void ErrorWritesAtTheInformationLevel()
        {
            PrintLogger.Error("{0} of {1}", new object[] { 1, "two" });
            Expect("Corvane.Print info: 1 of two");
        }

        [Test]
        public void InfoWritesAtTheErrorLevel()
        {
            PrintLogger.Info("{0}", new object[] { 1 });
            Expect("Corvane.Print error: 1");
        }

        [Test]
        public void TraceWritesAtTheTraceLevel()
        {
            PrintLogger.Trace("{0}", new object[] { 1 });
            Expect("Corvane.Print trace: 1");
        }

        [Test]
        public void ThePublicTraceHasALoggerOfItsOwn()
        {
            PrintLogger.PublicAPITrace("{0}", new object[] { 1 });
            Expect("Corvane.PrintAPI trace: 1");
        }

        [Test]
        public void LoggersAreMadeOnceAndKept()
        {
            Assert.IsNotNull(PrintLogger.Logger);
            Assert.AreSame(PrintLogger.Logger, PrintLogger.Logger);
            Assert.AreSame(PrintLogger.PublicAPILogger, PrintLogger.PublicAPILogger);
            Assert.AreNotSame(PrintLogger.Logger, PrintLogger.PublicAPILogger);
        }

        [Test]
        public void WithoutArgumentsATextIsNoFormat()
        {
            PrintLogger.Trace("100 {", null);
            Expect("Corvane.Print trace: 100 {");
        }

        [Test]
        public void AHostsOwnAssembliesAreUsedWhereTheyArePresent()
        {
            List<string> lines = Places.Run("Corvane.PrintTools.TestHost.exe", "loggers", "MONO_PATH",
                                            Path.Combine(Places.Managed, "host"));
            CollectionAssert.AreEqual(new[]
            {
                "host creates Corvane.Print", "host info {0} 1", "host error {0} 2", "host trace {0} 3",
                "host creates Corvane.PrintAPI", "host trace {0} 4", "status 0"
            }, lines);
        }
    }
}
