// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Debug output, as the stand-in debug library receives it.
using System;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public unsafe class KvlTests
    {
        private static Native.DebugRecord* Record
        {
            get { return Native.Record(); }
        }

        [SetUp]
        public void LoadTheLibrary()
        {
            KVL.Message("", new object[0]);
        }

        private static void Expect(uint code, string text)
        {
            Assert.AreEqual(code, Record->Number);
            Assert.AreEqual(0, Record->Count, "no pause");
            Assert.AreEqual(text, Native.Utf8(Record->Printed));
        }

        [Test]
        public void EachKindHasItsCode()
        {
            KVL.Message("{0}", new object[] { "m" });
            Expect(0x01000000, "m");
            KVL.Error("{0}", new object[] { "e" });
            Expect(0x02000000, "e");
            KVL.Highlight("{0}", new object[] { "h" });
            Expect(0x03000000, "h");
            KVL.Attention("{0}", new object[] { "a" });
            Expect(0x06000000, "a");
        }

        [Test]
        public void TextBeyondAsciiGoesOver()
        {
            KVL.Message("{0}{1}", new object[] { "Stra\u00dfe \u4e2d", "\ud83d\ude00" });
            Expect(0x01000000, "Stra\u00dfe \u4e2d\ud83d\ude00");
        }

        [Test]
        public void APercentSignInTheTextIsInterpreted()
        {
            KVL.Message("{0}", new object[] { "%%%% of 100%%%%" });
            Expect(0x01000000, "% of 100%");
            KVL.Message("{0}", new object[] { "%d|%s|" });
            Expect(0x01000000, "0|(null)|");
        }

        [Test]
        public void TheTextEndsAtAZero()
        {
            KVL.Message("a\0b", new object[0]);
            Expect(0x01000000, "a");
        }

        [Test]
        public void PlaceholdersWithoutArgumentsAreAFormatError()
        {
            int calls = Record->Calls;
            Assert.Throws<FormatException>(() => KVL.Error("{0} {1}", new object[] { 1 }));
            Assert.Throws<ArgumentNullException>(() => KVL.Error(null, new object[0]));
            Assert.Throws<ArgumentNullException>(() => KVL.Error("x", null));
            Assert.AreEqual(calls, Record->Calls);
        }

        [Test]
        public void StatesHaveTheNativeNumbers()
        {
            Assert.AreEqual(3, Enum.GetValues(typeof(KVLStatus)).Length);
            Assert.AreEqual(0, (int)KVLStatus.NotTried);
            Assert.AreEqual(1, (int)KVLStatus.Available);
            Assert.AreEqual(2, (int)KVLStatus.Unavailable);
        }

        [Test]
        public void WithoutADebugLibraryNothingHappens()
        {
            var lines = Places.Run("Corvane.PrintTools.TestHost.exe", "messages", "LD_LIBRARY_PATH",
                                   Places.Required("CORVANE_TEST_LIBRARY"));
            CollectionAssert.AreEqual(new[] { "said", "status 0" }, lines);
        }
    }
}
