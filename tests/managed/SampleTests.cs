// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The sample, as a user runs it.
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class SampleTests
    {
        private const string Program = "Corvane.PrintTools.Sample.exe";
        private const string Nowhere = @"Z:\corvane-nowhere";

        [Test]
        public void ItFindsAndLocksAFile()
        {
            using (var folder = new ScratchFolder())
            {
                folder.File("a1.plt");
                string found = folder.Hfs + @"\a1.plt";
                CollectionAssert.AreEqual(
                    new[] { found, "locked", "Information: Unable to write file '" + found + "'",
                            "status 0" },
                    Places.Run(Program, "a1 \"" + Nowhere + ";" + folder.Hfs + "\"", "LANG", "C", "LC_ALL",
                               null));
                // The lock has ended with it.
                FileLock held = FileLock.LockFile(new FileSpec(found, true));
                Assert.IsTrue(FileLock.UnlockFile(held));
            }
        }

        [Test]
        public void ItSaysWhatItDoesNotFindInTheUsersLanguage()
        {
            CollectionAssert.AreEqual(
                new[] { "Error: Unable to find file 'a1' at specified location or in search path '" +
                            Nowhere + "'",
                        "status 1" },
                Places.Run(Program, "a1 \"" + Nowhere + "\"", "LANG", "en_GB.UTF-8", "LC_ALL", null,
                           "LANGUAGE", null));
            CollectionAssert.AreEqual(
                new[] {
                    "Error: Die Datei \u201ea1\u201c ist weder am angegebenen Ort noch im Suchpfad \u201e" +
                        Nowhere + "\u201c zu finden",
                    "status 1"
                },
                Places.Run(Program, "a1 \"" + Nowhere + "\"", "LANG", "de_DE.UTF-8", "LC_ALL", null,
                           "LANGUAGE", null));
        }

        [Test]
        public void ItSaysWhenAFileCannotBeLocked()
        {
            using (var folder = new ScratchFolder())
            {
                string hfs = Places.Hfs(folder.File("a1.plt"));
                FileLock held = FileLock.LockFile(new FileSpec(hfs, true));
                CollectionAssert.AreEqual(
                    new[] { hfs, "Error: Unable to write file '" + hfs + "'", "status 1" },
                    Places.Run(Program, "a1 \"" + folder.Hfs + "\"", "LANG", "C", "LC_ALL", null));
                FileLock.UnlockFile(held);
            }
        }

        [Test]
        public void ItSaysHowItIsCalled()
        {
            CollectionAssert.AreEqual(new[] { "status 2" }, Places.Run(Program, ""));
        }
    }
}
