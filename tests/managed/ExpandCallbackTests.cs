// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The bridge from native lookups to the handler, called directly and through the library.
using System;
using System.Runtime.InteropServices;
using System.Threading;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public unsafe class ExpandCallbackTests
    {
        [SetUp]
        public void Enable()
        {
            KVL.Message("", new object[0]);  // the debug library is there from here on
            PrintTools.EnableOnExpandConfigVariable(true);
        }

        [TearDown]
        public void Disable()
        {
            PrintTools.EnableOnExpandConfigVariable(false);
            PrintTools.OnExpandConfigVariable = null;
        }

        private static string LastError()
        {
            Assert.AreEqual(0x02000000u, Native.Record()->Number);
            return Native.Utf8(Native.Record()->Printed);
        }

        // The answer, and the 20 characters of the buffer, which was full of '?'.
        private static int Expand(string value, int capacity, out string buffer)
        {
            PrintTools.OnExpandConfigVariable = name => name == "VARIABLE" ? value : "wrong name";
            char* room = stackalloc char[20];
            for (int i = 0; i < 20; ++i) room[i] = '?';
            int needed;
            fixed (char* name = "VARIABLE") needed =
                ExpandCallback.Expand((IntPtr)name, (IntPtr)room, capacity);
            buffer = new string(room, 0, 20);
            return needed;
        }

        [TestCase("five5", 11, 12, "????????")]
        [TestCase("five5", 12, 12, "five5\0??")]
        [TestCase("five5", 13, 12, "five5\0??")]
        [TestCase("five5", 0, 12, "????????")]
        [TestCase("five5", -1, 12, "????????")]
        [TestCase("x", 4, 4, "x\0??????")]
        [TestCase("", 40, 0, "????????")]
        [TestCase(null, 40, 0, "????????")]
        [TestCase("a\0b", 8, 8, "a\0\0\0????")]
        public void SizesAreInBytesWithTheTerminator(string value, int capacity, int needed, string expected)
        {
            string buffer;
            Assert.AreEqual(needed, Expand(value, capacity, out buffer));
            Assert.AreEqual(expected + "????????????", buffer);
        }

        [TestCase(1)]
        [TestCase(62)]
        [TestCase(63)]
        [TestCase(64)]
        [TestCase(65)]
        [TestCase(5000)]
        public void ValuesOfEveryLengthArrive(int length)
        {
            string value = new string('\u4e2d', length);
            int calls = 0;
            PrintTools.OnExpandConfigVariable = name =>
            {
                ++calls;
                return value;
            };
            Assert.AreEqual(value, PrintTools.CFGetenv("X"));
            Assert.AreEqual(length <= 63 ? 1 : 2, calls);
        }

        [Test]
        public void HalvesOfPairsArrive()
        {
            PrintTools.OnExpandConfigVariable = name => name + "\udc00";
            Assert.IsTrue(
                string.Equals("\ud83d\udc00", PrintTools.CFGetenv("\ud83d"), StringComparison.Ordinal));
        }

        [Test]
        public void AMissingHandlerMeansUndefinedAndIsReported()
        {
            PrintTools.OnExpandConfigVariable = null;
            Assert.IsNull(PrintTools.CFGetenv("X"));
            StringAssert.StartsWith("OnExpandConfigVariable: System.NullReferenceException: ", LastError());
        }

        [Test]
        public void AnExceptionOfTheHandlerMeansUndefinedAndIsReported()
        {
            PrintTools.OnExpandConfigVariable = name =>
            {
                throw new InvalidOperationException("50% {0} %s %n");
            };
            Assert.IsNull(PrintTools.CFGetenv("X"));
            Assert.AreEqual("OnExpandConfigVariable: System.InvalidOperationException: 50% {0} %s %n\n",
                            LastError());
        }

        [Test]
        public void AnExceptionOnTheSecondQuestionMeansUndefinedOrEmpty()
        {
            int calls = 0;
            PrintTools.OnExpandConfigVariable = name =>
            {
                if (++calls == 2) throw new InvalidOperationException("second");
                return new string('x', 100);
            };
            Assert.IsTrue(string.IsNullOrEmpty(PrintTools.CFGetenv("X")));
            StringAssert.EndsWith("second\n", LastError());
        }

        [Test]
        public void AThreadThatAbortsItselfInTheHandlerGoesOn()
        {
            string value = "untouched";
            var thread = new Thread(() =>
            {
                PrintTools.OnExpandConfigVariable = name =>
                {
                    Thread.CurrentThread.Abort();
                    return "never";
                };
                value = PrintTools.CFGetenv("X");
            });
            thread.Start();
            thread.Join();
            Assert.IsNull(value);
            StringAssert.Contains("ThreadAbortException", LastError());
        }

        [Test]
        public void AHandlerMayLookUpVariablesItself()
        {
            PrintTools.OnExpandConfigVariable = name => name == "A" ? PrintTools.CFGetenv("B") + "!" : "b";
            Assert.AreEqual("b!", PrintTools.CFGetenv("A"));
        }

        [Test]
        public void AThreadThatTheRuntimeDoesNotKnowMayAsk()
        {
            PrintTools.OnExpandConfigVariable = name => name + " on another thread";
            for (int i = 0; i < 20; ++i)
                Assert.AreEqual("X on another thread", Native.LookUpOnForeignThread("X"));
        }

        [Test]
        public void ADomainThatIsUnloadedNoLongerAnswers()
        {
            PrintTools.EnableOnExpandConfigVariable(false);
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", "environment");
            var setup = new AppDomainSetup { ApplicationBase = AppDomain.CurrentDomain.BaseDirectory };
            AppDomain domain = AppDomain.CreateDomain("other", null, setup);
            try
            {
                domain.DoCallBack(EnableThere);
                Assert.AreEqual("there", PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            }
            finally
            {
                AppDomain.Unload(domain);
            }
            Assert.AreEqual("environment", PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", null);
        }

        private static void EnableThere()
        {
            PrintTools.OnExpandConfigVariable = name => "there";
            PrintTools.EnableOnExpandConfigVariable(true);
        }
    }
}
