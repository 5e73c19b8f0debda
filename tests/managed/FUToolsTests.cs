// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// FUTools: that each method calls the right native function with the right arguments and maps its result.
using System;
using System.Collections.Generic;
using System.IO;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class FUToolsTests
    {
        private const string Spec = @"C:\plots\old\a1.plt;7";

        [TearDown]
        public void RestoreTheEnvironment()
        {
            PrintTools.EnableOnExpandConfigVariable(false);
            PrintTools.OnExpandConfigVariable = null;
        }

        private static void Answer(string variable, string value)
        {
            PrintTools.OnExpandConfigVariable = name => name == variable ? value : null;
            PrintTools.EnableOnExpandConfigVariable(true);
        }

        [Test]
        public void ASpecificationHasFiveComponents()
        {
            string dev, dir, name, ext, ver;
            FUTools.ParseUfs(Spec, out dev, out dir, out name, out ext, out ver);
            CollectionAssert.AreEqual(new[] { "C", @"\plots\old", "a1", "plt", "7" },
                                      new[] { dev, dir, name, ext, ver });
            FUTools.ParseUfs("", out dev, out dir, out name, out ext, out ver);
            CollectionAssert.AreEqual(new[] { "", "", "", "", "" }, new[] { dev, dir, name, ext, ver });
        }

        [Test]
        public void PartsOfASpecificationAreAskedForAlone()
        {
            string dev, dir, name, ext;
            FUTools.GetUfsDevDir(Spec, out dev, out dir);
            CollectionAssert.AreEqual(new[] { "C", @"\plots\old" }, new[] { dev, dir });
            FUTools.GetUfsDevDirName(Spec, out dev, out dir, out name);
            CollectionAssert.AreEqual(new[] { "C", @"\plots\old", "a1" }, new[] { dev, dir, name });
            FUTools.GetUfsNameExt(Spec, out name, out ext);
            CollectionAssert.AreEqual(new[] { "a1", "plt" }, new[] { name, ext });
            Assert.AreEqual("a1", FUTools.GetUfsName(Spec));
            Assert.AreEqual("plt", FUTools.GetUfsExt(Spec));
            Assert.AreEqual("", FUTools.GetUfsName(@"C:\"));
            Assert.AreEqual("", FUTools.GetUfsExt("a"));
        }

        [Test]
        public void NameAndExtensionAreJoined()
        {
            Assert.AreEqual("a1.plt", FUTools.GetUfsNameExt(Spec));
            Assert.AreEqual("a1", FUTools.GetUfsNameExt("a1;3"));
            Assert.AreEqual("plt", FUTools.GetUfsNameExt("x:.plt").TrimStart('.'));
            Assert.AreEqual("", FUTools.GetUfsNameExt(""));
        }

        [Test]
        public void TextBeyondAsciiGoesThereAndBack()
        {
            Assert.AreEqual("\u00c4\u4e2d\ud83d\ude00",
                            FUTools.GetUfsName("C:\\\u00c4\u4e2d\ud83d\ude00.plt"));
            string half = FUTools.GetUfsName("a\ud800b.plt");
            Assert.IsTrue(string.Equals("a\ud800b", half, StringComparison.Ordinal));
        }

        [Test]
        public void ATextEndsAtAZero()
        {
            Assert.AreEqual("a", FUTools.GetUfsName("a\0b.plt"));
            Assert.IsFalse(FUTools.IsIPAddress("\0" + "1.2.3.4"));
        }

        [Test]
        public void ResultsHaveAtMost255Characters()
        {
            Assert.AreEqual(new string('n', 255), FUTools.GetUfsName(new string('n', 5000)));
            Assert.AreEqual(255, FUTools.BuildLfs(null, null, new string('n', 400), null, null).Length);
        }

        [Test]
        public void AFailureOfTheNativeCallIsNull()
        {
            Assert.IsNull(FUTools.BuildLfs(null, null, new string('n', 600), "plt", null), "cut");
            Assert.IsNull(FUTools.FindCreateHfs("corvane_no_device:x.plt", null, null, null, null));
            Assert.IsNull(FUTools.SearchUfs("corvane-no-such-file.plt", null, null, null));
        }

        [Test]
        public void FullSpecificationsAreRecognised()
        {
            Assert.IsTrue(FUTools.IsFullHfs(@"C:\a\b.plt"));
            Assert.IsTrue(FUTools.IsFullHfs(@"\\server\share\b.plt"));
            Assert.IsFalse(FUTools.IsFullHfs("b.plt"));
            Assert.IsFalse(FUTools.IsFullHfs(""));
            Assert.IsTrue(FUTools.IsFullLfs(@"C:\a\b.plt"));
            Assert.IsFalse(FUTools.IsFullLfs("b.plt"));
            Answer("tq_plot", @"C:\plots");
            Assert.IsTrue(FUTools.IsFullLfs("tq_plot:b.plt"));
            Assert.IsTrue(FUTools.IsFullLfs("tq_plot"));
        }

        [Test]
        public void APartialSpecificationBecomesFull()
        {
            Answer("PWD", @"C:\work");
            Assert.AreEqual(@"C:\work\a.plt", FUTools.FindFullHfs("a.plt"));
            Assert.AreEqual(@"D:\x\a.plt", FUTools.FindFullHfs(@"D:\x\a.plt"));
            Assert.IsNull(FUTools.FindFullHfs(@"..\..\a.plt"), "above the root");
        }

        [Test]
        public void ALogicalSpecificationBecomesAHostOne()
        {
            Answer("tq_plot", @"C:\plots;D:\more");
            Assert.AreEqual(@"C:\plots\a.plt", FUTools.FindCreateHfs("tq_plot:a", null, null, "plt", null));
            Assert.AreEqual(@"C:\x\a.plt;2", FUTools.FindCreateHfs("a", "C", @"\x", "plt", "2"));
        }

        [Test]
        public void ComponentsAreJoined()
        {
            Assert.AreEqual(Spec, FUTools.BuildLfs("C", @"\plots\old", "a1", "plt", "7"));
            Assert.AreEqual("a1", FUTools.BuildLfs(null, null, "a1", null, null));
            Assert.AreEqual("", FUTools.BuildLfs(null, null, null, null, null));
            Assert.AreEqual("a1", FUTools.BuildLfs("", "", "a1", "", ""));
        }

        [Test]
        public void AFileIsFoundInTheListsThatTheHandlerKnows()
        {
            using (var folder = new ScratchFolder())
            {
                folder.File("a1.plt");
                string found = folder.Hfs + @"\a1.plt";
                Answer("SEARCH_DEVICE", @"Z:\corvane-nowhere;" + folder.Hfs);
                Assert.AreEqual(found, FUTools.SearchUfs("SEARCH_DEVICE:a1.plt", null, null, null));
                Assert.AreEqual(found, FUTools.SearchUfs("SEARCH_DEVICE:a1", null, "plt", null));
                Assert.AreEqual(found, FUTools.SearchUfs("a1", folder.Hfs, "plt", null));
                Assert.IsNull(FUTools.SearchUfs("a1", folder.Hfs, null, null));
                Assert.IsNull(FUTools.SearchUfs("SEARCH_DEVICE:a2.plt", null, null, null));
                folder.File("a3.plt;2");
                Assert.AreEqual(found.Replace("a1.plt", "a3.plt;2"),
                                FUTools.SearchUfs(folder.Hfs + @"\a3", null, "plt", "2"));
            }
        }

        [TestCase("LPT1", true, false, false, true)]
        [TestCase(@"\\server\share", false, true, false, true)]
        [TestCase("1.2.3.4", false, false, true, true)]
        [TestCase("a<autoInc>.plt", false, false, false, true)]
        [TestCase("a.plt", false, false, false, false)]
        [TestCase("", false, false, false, false)]
        [TestCase(null, false, false, false, false)]
        public void PseudoFilesAreRecognised(string ufs, bool port, bool share, bool address, bool pseudo)
        {
            Assert.AreEqual(port, FUTools.IsPortName(ufs));
            Assert.AreEqual(share, FUTools.IsUncShare(ufs));
            Assert.AreEqual(address, FUTools.IsIPAddress(ufs));
            Assert.AreEqual(pseudo, FUTools.IsPseudoFile(ufs));
        }

        // Every method with a check, by its parameter's name.
        public static IEnumerable<KeyValuePair<string, Action>> NullCalls()
        {
            string a, b, c, d, e;
            yield return Call("ufs", () => FUTools.ParseUfs(null, out a, out b, out c, out d, out e));
            yield return Call("ufs", () => FUTools.GetUfsDevDir(null, out a, out b));
            yield return Call("ufs", () => FUTools.GetUfsDevDirName(null, out a, out b, out c));
            yield return Call("ufs", () => FUTools.GetUfsNameExt(null, out a, out b));
            yield return Call("ufs", () => FUTools.GetUfsNameExt(null));
            yield return Call("ufs", () => FUTools.GetUfsName(null));
            yield return Call("ufs", () => FUTools.GetUfsExt(null));
            yield return Call("hfs", () => FUTools.IsFullHfs(null));
            yield return Call("lfs", () => FUTools.IsFullLfs(null));
            yield return Call("partialHfs", () => FUTools.FindFullHfs(null));
            yield return Call("ufs", () => FUTools.SearchUfs(null, "", "", ""));
            yield return Call("lfs", () => FUTools.FindCreateHfs(null, "", "", "", ""));
        }

        private static KeyValuePair<string, Action> Call(string parameter, Action call)
        {
            return new KeyValuePair<string, Action>(parameter, call);
        }

        [Test]
        public void ANullSpecificationIsAnArgumentErrorWithItsName()
        {
            int count = 0;
            foreach (KeyValuePair<string, Action> call in NullCalls())
            {
                var error = Assert.Throws<ArgumentNullException>(() => call.Value(), "call " + count);
                Assert.AreEqual(call.Key, error.ParamName, "call " + count);
                ++count;
            }
            Assert.AreEqual(12, count);
        }

        [Test]
        public void ArgumentErrorsPassThroughTheHostsPolicy()
        {
            var expected = new List<string>();
            foreach (KeyValuePair<string, Action> call in NullCalls())
                expected.Add("host policy: ArgumentNullException " + call.Key);
            expected.Add("status 0");
            CollectionAssert.AreEqual(expected,
                                      Places.Run("Corvane.PrintTools.TestHost.exe", "policy", "MONO_PATH",
                                                 Path.Combine(Places.Managed, "host")));
        }

        [TestCase(@"C:\Dir\Dir.plt", "dir", "X", @"C:\X\Dir.plt")]
        [TestCase("dirs", "DIR", "", "s")]
        [TestCase("a.DIR", "dir", "plt", "a.plt")]
        [TestCase("dir", "dir", "X", "X")]
        [TestCase("abc", "x", "y", null)]
        [TestCase("", "x", "y", null)]
        [TestCase("abc", "", "y", null)]
        [TestCase("abc", null, "y", null)]
        [TestCase("abc", "b", null, null)]
        [TestCase(null, "", "y", null)]
        [TestCase("\u00c4B", "\u00e4", "x", "xB")]
        public void TheFirstOccurrenceIsReplacedWithoutRegardToCase(string ufs, string from, string to,
                                                                    string expected)
        {
            Assert.AreEqual(expected, FUTools.ReplaceString(ufs, from, to));
        }

        [Test]
        public void ANullTextHasNothingToBeReplaced()
        {
            Assert.Throws<NullReferenceException>(() => FUTools.ReplaceString(null, "a", "b"));
        }

        [TestCase("dq:4711", true)]
        [TestCase("http://store/4711", true)]
        [TestCase("dq:", true)]
        [TestCase("DQ:4711", false)]
        [TestCase("HTTP://store", false)]
        [TestCase("https://store", false)]
        [TestCase(@"C:\dq:", false)]
        [TestCase("", false)]
        public void ADocumentIsRecognisedByItsPrefix(string ufs, bool expected)
        {
            Assert.AreEqual(expected, FUTools.IsDmsDocument(ufs));
        }

        [Test]
        public void ANullMonikerRaises()
        {
            Assert.Throws<NullReferenceException>(() => FUTools.IsDmsDocument(null));
        }

        [Test]
        public void ManyThreadsParseAtOnce()
        {
            var failed = new List<string>();
            var threads = new List<System.Threading.Thread>();
            for (int t = 0; t < 4; ++t)
            {
                string name = new string((char)('a' + t), 100);
                var thread = new System.Threading.Thread(() =>
                {
                    for (int i = 0; i < 5000; ++i)
                    {
                        string file = name + i + ".plt";
                        if (FUTools.GetUfsNameExt(@"C:\x\" + file) == file) continue;
                        lock (failed) failed.Add(file);
                    }
                });
                threads.Add(thread);
                thread.Start();
            }
            GC.Collect();
            foreach (System.Threading.Thread thread in threads) thread.Join();
            CollectionAssert.IsEmpty(failed);
        }
    }
}
