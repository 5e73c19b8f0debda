// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// FileSpec and FolderSpec by themselves.
using System.Globalization;
using System.IO;
using System.Runtime.Serialization.Formatters.Binary;
using System.Threading;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class FileSpecTests
    {
        private static void ExpectNames(FileSpec spec, string ufs, string hfs, string moniker)
        {
            Assert.AreEqual(ufs, spec.Ufs);
            Assert.AreEqual(hfs, spec.Hfs);
            Assert.AreEqual(moniker, spec.MonikerString);
            Assert.AreEqual(ufs != null, spec.IsDefinedUfs);
            Assert.AreEqual(hfs != null, spec.IsDefinedHfs);
            Assert.AreEqual(moniker != null, spec.IsDefinedMonikerString);
        }

        private static FileSpec Full()
        {
            var spec = new FileSpec("u");
            spec.Hfs = "h";
            spec.MonikerString = "m";
            spec.AccessMode = FileGetMode.CheckOut;
            return spec;
        }

        [Test]
        public void ANewOneHasNoNamesAndIsGivenOut()
        {
            ExpectNames(new FileSpec(), null, null, null);
            Assert.AreEqual(FileGetMode.GiveOut, new FileSpec().AccessMode);
            Assert.AreEqual(0, (int)new FileSpec().AccessMode);
        }

        [Test]
        public void ATextBecomesTheUfs()
        {
            ExpectNames(new FileSpec("a.plt"), "a.plt", null, null);
            ExpectNames(new FileSpec(""), null, null, null);
            ExpectNames(new FileSpec((string)null), null, null, null);
        }

        [Test]
        public void ATextMayBeTheHfsAsWell()
        {
            ExpectNames(new FileSpec("a.plt", true), "a.plt", "a.plt", null);
            ExpectNames(new FileSpec("a.plt", false), "a.plt", null, null);
        }

        [Test]
        public void AnEmptyTextIsNoNameEvenAsAnHfs()
        {
            ExpectNames(new FileSpec("", true), null, null, null);
            ExpectNames(new FileSpec(null, true), null, null, null);
        }

        [Test]
        public void ACopyHasAllFourValues()
        {
            var copy = new FileSpec(Full());
            ExpectNames(copy, "u", "h", "m");
            Assert.AreEqual(FileGetMode.CheckOut, copy.AccessMode);
        }

        [Test]
        public void ACopyOfNothingHasNoNames()
        {
            ExpectNames(new FileSpec((FileSpec)null), null, null, null);
        }

        [Test]
        public void ANewUfsClearsHfsAndMoniker()
        {
            FileSpec spec = Full();
            spec.Ufs = "new";
            ExpectNames(spec, "new", null, null);
            Assert.AreEqual(FileGetMode.CheckOut, spec.AccessMode);
        }

        [TestCase("")]
        [TestCase(null)]
        public void ClearingTheUfsKeepsTheMoniker(string nothing)
        {
            FileSpec spec = Full();
            spec.Ufs = nothing;
            ExpectNames(spec, null, null, "m");
        }

        [Test]
        public void ANewHfsFillsInAMissingUfs()
        {
            var spec = new FileSpec();
            spec.Hfs = @"C:\plots\a.plt";
            ExpectNames(spec, @"C:\plots\a.plt", @"C:\plots\a.plt", null);
            spec.Hfs = @"C:\b.plt";
            ExpectNames(spec, @"C:\plots\a.plt", @"C:\b.plt", null);
            spec.Ufs = "b";
            ExpectNames(spec, "b", null, null);
        }

        [TestCase("")]
        [TestCase(null)]
        public void ClearingTheHfsClearsNothingElse(string nothing)
        {
            FileSpec spec = Full();
            spec.Hfs = nothing;
            ExpectNames(spec, "u", null, "m");
            var empty = new FileSpec();
            empty.Hfs = nothing;
            ExpectNames(empty, null, null, null);
        }

        [Test]
        public void ANewHfsKeepsTheMoniker()
        {
            FileSpec spec = Full();
            spec.Hfs = "other";
            ExpectNames(spec, "u", "other", "m");
        }

        [TestCase("")]
        [TestCase(null)]
        public void TheMonikerIsClearedByItself(string nothing)
        {
            FileSpec spec = Full();
            spec.MonikerString = nothing;
            ExpectNames(spec, "u", "h", null);
            spec.MonikerString = "dq:1";
            ExpectNames(spec, "u", "h", "dq:1");
        }

        [Test]
        public void AnyModeIsKept()
        {
            var spec = new FileSpec();
            foreach (int mode in new[] { 0, 1, 2, 3, 4, -1, 99 })
            {
                spec.AccessMode = (FileGetMode)mode;
                Assert.AreEqual(mode, (int)spec.AccessMode);
            }
        }

        [Test]
        public void TheHostNameIsPreferred()
        {
            Assert.AreEqual("h", Full().GetHfsOrUfs());
            Assert.AreEqual("u", new FileSpec("u").GetHfsOrUfs());
            Assert.IsNull(new FileSpec().GetHfsOrUfs());
        }

        [Test]
        public void CaseAndModeDoNotCountInComparisons()
        {
            FileSpec spec = Full();
            spec.Ufs = "Stra\u00dfe.PLT";
            var other = new FileSpec("sTRA\u00dfE.plt");
            other.AccessMode = FileGetMode.Export;
            Assert.IsTrue(spec.Equals(other));
            Assert.IsTrue(new FileSpec().Equals(new FileSpec()));
        }

        [Test]
        public void EveryNameCountsInComparisons()
        {
            Assert.IsTrue(Full().Equals(Full()));
            FileSpec other = Full();
            other.Hfs = "x";
            Assert.IsFalse(Full().Equals(other));
            other = Full();
            other.MonikerString = null;
            Assert.IsFalse(Full().Equals(other), "a text and nothing");
            Assert.IsFalse(other.Equals(Full()), "nothing and a text");
            other = Full();
            other.Ufs = "v";
            Assert.IsFalse(Full().Equals(other));
        }

        [Test]
        public void ComparisonsFollowTheCurrentCulture()
        {
            CultureInfo before = Thread.CurrentThread.CurrentCulture;
            try
            {
                Thread.CurrentThread.CurrentCulture = new CultureInfo("tr-TR");
                Assert.IsFalse(new FileSpec("FILE").Equals(new FileSpec("file")), "I and i are two letters");
                Thread.CurrentThread.CurrentCulture = CultureInfo.InvariantCulture;
                Assert.IsTrue(new FileSpec("FILE").Equals(new FileSpec("file")));
            }
            finally
            {
                Thread.CurrentThread.CurrentCulture = before;
            }
        }

        [Test]
        public void OtherTypesAreNeverEqual()
        {
            Assert.IsFalse(new FileSpec("u").Equals(null));
            Assert.IsFalse(new FileSpec("u").Equals("u"));
            Assert.IsFalse(new FileSpec("u").Equals(new FolderSpec("u")));
            Assert.IsFalse(new FolderSpec("u").Equals(new FileSpec("u")));
            Assert.IsTrue(new FolderSpec("u").Equals(new FolderSpec("U")));
        }

        [Test]
        public void EqualObjectsKeepTheirOwnHashes()
        {
            var one = new FileSpec("u");
            Assert.AreEqual(System.Runtime.CompilerServices.RuntimeHelpers.GetHashCode(one),
                            one.GetHashCode());
            Assert.AreEqual(typeof(object), typeof(FileSpec).GetMethod("GetHashCode").DeclaringType);
        }

        [Test]
        public void ACloneIsAShallowCopyOfTheSameType()
        {
            FileSpec spec = Full();
            var clone = (FileSpec)spec.Clone();
            Assert.AreNotSame(spec, clone);
            ExpectNames(clone, "u", "h", "m");
            Assert.AreSame(spec.Ufs, clone.Ufs);
            Assert.AreEqual(FileGetMode.CheckOut, clone.AccessMode);
            Assert.IsInstanceOf<FolderSpec>(new FolderSpec("f").Clone());
        }

        [Test]
        public void ItsTextIsTheUfs()
        {
            Assert.AreEqual("u", Full().ToString());
            Assert.IsNull(new FileSpec().ToString());
        }

        [Test]
        public void ItIsSerializedWithAllValues()
        {
            using (var stream = new MemoryStream())
            {
                var formatter = new BinaryFormatter();
                formatter.Serialize(stream, Full());
                stream.Position = 0;
                var read = (FileSpec)formatter.Deserialize(stream);
                ExpectNames(read, "u", "h", "m");
                Assert.AreEqual(FileGetMode.CheckOut, read.AccessMode);
            }
        }

        [Test]
        public void AFolderIsMadeLikeAFile()
        {
            ExpectNames(new FolderSpec(), null, null, null);
            ExpectNames(new FolderSpec("f"), "f", null, null);
            ExpectNames(new FolderSpec("f", true), "f", "f", null);
            ExpectNames(new FolderSpec("", true), null, null, null);
            ExpectNames(new FolderSpec(Full()), "u", "h", "m");
            Assert.AreEqual(FileGetMode.CheckOut, new FolderSpec(Full()).AccessMode);
        }
    }
}
