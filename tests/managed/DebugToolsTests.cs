// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Debug flags. The flags of a process only grow, so the states come one after the other.
using System;
using System.Text;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class DebugToolsTests
    {
        private static void Add(string value)
        {
            Environment.SetEnvironmentVariable("CORVANE_TEST_FLAGS", value);
            Assert.AreEqual(1, Native.DbgTools_addDebugVar(Encoding.ASCII.GetBytes("CORVANE_TEST_FLAGS\0")));
            Environment.SetEnvironmentVariable("CORVANE_TEST_FLAGS", null);
        }

        private static void Expect(bool on, bool devOn, params string[] flags)
        {
            foreach (string flag in flags)
            {
                Assert.AreEqual(on, DebugTools.IsDebugOn(flag), flag);
                Assert.AreEqual(devOn, DebugTools.IsDevDebugOn(flag), flag);
            }
        }

        [Test]
        public void FlagsAddUpAndAllStandsForOrdinaryOnes()
        {
            Expect(false, false, "Plot", "all", "", null);

            Add("");
            Add(" ,\t");
            Expect(false, false, "Plot", "all", "", null);

            Add("Plot, clip");
            Expect(true, true, "Plot", "CLIP", "plot");
            Expect(false, false, "fence", "", null, "all", "Plo", "Plot ");

            Add("Gr\u00f6\u00dfe");
            Expect(true, true, "Gr\u00f6\u00dfe", "Plot");
            Expect(false, false, "Gr\u00f6", "Grosse", new string('\u4e2d', 5000));
            Expect(true, true, "clip\0rest");

            Add("ALL");
            Expect(true, true, "Plot", "CLIP");
            Expect(true, false, "fence", "", null, "all");
        }
    }
}
