// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A million lookups through the managed handler while collections run: nothing crashes, nothing stays.
using System;
using System.Collections.Generic;
using System.Threading;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class LookupLoadTests
    {
        private const int Threads = 4;
        private const int LookupsOfAThread = 250000;

        // A text, a longer one that takes a second question, none.
        private static string Value(string name)
        {
            switch (name[name.Length - 1])
            {
                case '0': return null;
                case '1': return name + new string('v', 100);
                default: return "value of " + name;
            }
        }

        private static int s_wrong;

        private static void LookUp(int thread, int count)
        {
            for (int i = 0; i < count; ++i)
            {
                string name = "T" + thread + "_" + i % 5;
                if (PrintTools.CFGetenv(name) != Value(name)) Interlocked.Increment(ref s_wrong);
            }
        }

        private static void RunThreads(int count)
        {
            var threads = new List<Thread>();
            for (int t = 0; t < Threads; ++t)
            {
                int number = t;
                threads.Add(new Thread(() => LookUp(number, count)));
            }
            foreach (Thread thread in threads) thread.Start();
            int collections = 0;
            foreach (Thread thread in threads)
            {
                while (!thread.Join(5))
                {
                    GC.Collect(collections++ % 3);
                    if (collections % 50 == 0) GC.WaitForPendingFinalizers();
                }
            }
        }

        [Test]
        public void AMillionLookupsFromFourThreadsLeaveNothingBehind()
        {
            s_wrong = 0;
            PrintTools.OnExpandConfigVariable = Value;
            PrintTools.EnableOnExpandConfigVariable(true);
            try
            {
                RunThreads(5000);
                long managed = GC.GetTotalMemory(true);
                long native = Native.HeapBytesInUse();
                int collections = GC.CollectionCount(0);
                RunThreads(LookupsOfAThread);
                Assert.AreEqual(0, s_wrong);
                Assert.Greater(GC.CollectionCount(0), collections + 10);
                // One block a lookup would be 32 million bytes at least.
                Assert.Less(Native.HeapBytesInUse() - native, 1000000);
                Assert.Less(GC.GetTotalMemory(true) - managed, 1000000);
                Console.WriteLine("native heap grew by {0} bytes, {1} collections",
                                  Native.HeapBytesInUse() - native, GC.CollectionCount(0) - collections);
            }
            finally
            {
                PrintTools.EnableOnExpandConfigVariable(false);
                PrintTools.OnExpandConfigVariable = null;
            }
        }
    }
}
