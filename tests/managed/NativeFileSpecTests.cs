// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The way of a FileSpec into its native twin and back.
using System;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public unsafe class NativeFileSpecTests
    {
        private NativeFileSpec* m_native;

        [SetUp]
        public void Create()
        {
            m_native = Native.NativeFileSpec_create();
            Assert.IsTrue(m_native != null);
        }

        [TearDown]
        public void Release()
        {
            Native.NativeFileSpec_release(m_native);
        }

        private FileSpec ThereAndBack(FileSpec spec)
        {
            FileSpec.ConvertFileSpecToNative(spec, m_native);
            return FileSpec.ConvertNativeToFileSpec(m_native);
        }

        private string NativeText(int which)
        {
            int length;
            char* text = NativeMethods.NativeFileSpec_text(m_native, which, &length);
            return new string(text, 0, length);
        }

        private void SetNativeText(int which, string text)
        {
            fixed (char* pinned = text)
                NativeMethods.NativeFileSpec_setText(m_native, which, pinned, text.Length);
        }

        private static FileSpec Full()
        {
            var spec = new FileSpec("tq_plot:a.plt");
            spec.Hfs = @"C:\plots\a.plt";
            spec.MonikerString = "dq:1";
            spec.AccessMode = FileGetMode.CheckOut;
            return spec;
        }

        [Test]
        public void EachNameGoesToItsTwin()
        {
            FileSpec.ConvertFileSpecToNative(Full(), m_native);
            Assert.AreEqual("tq_plot:a.plt", NativeText(NativeMethods.UfsText));
            Assert.AreEqual(@"C:\plots\a.plt", NativeText(NativeMethods.HfsText));
            Assert.AreEqual("dq:1", NativeText(NativeMethods.MonikerText));
            Assert.AreEqual(4, NativeMethods.NativeFileSpec_accessMode(m_native));
        }

        [Test]
        public void EverythingSurvivesTheTrip()
        {
            FileSpec back = ThereAndBack(Full());
            Assert.AreEqual("tq_plot:a.plt", back.Ufs);
            Assert.AreEqual(@"C:\plots\a.plt", back.Hfs);
            Assert.AreEqual("dq:1", back.MonikerString);
            Assert.AreEqual(FileGetMode.CheckOut, back.AccessMode);
        }

        [TestCase("\u00c4\u4e2d\ud83d\ude00.plt", TestName = "beyond ASCII and beyond 16 bits")]
        [TestCase("a\ud800b", TestName = "half of a pair")]
        [TestCase("a\0b", TestName = "a zero within")]
        [TestCase("\0", TestName = "a zero alone")]
        public void TextsGoOverWhole(string text)
        {
            var spec = new FileSpec(text, true);
            spec.MonikerString = text;
            FileSpec back = ThereAndBack(spec);
            Assert.IsTrue(string.Equals(text, back.Ufs, StringComparison.Ordinal));
            Assert.IsTrue(string.Equals(text, back.Hfs, StringComparison.Ordinal));
            Assert.IsTrue(string.Equals(text, back.MonikerString, StringComparison.Ordinal));
        }

        [Test]
        public void FiveThousandCharactersGoOver()
        {
            string text = new string('\u00e9', 2500) + new string('\u4e2d', 2500);
            FileSpec back = ThereAndBack(new FileSpec(text, true));
            Assert.IsTrue(string.Equals(text, back.Ufs, StringComparison.Ordinal));
            Assert.IsTrue(string.Equals(text, back.Hfs, StringComparison.Ordinal));
        }

        [Test]
        public void UndefinedNamesClearTheirTwins()
        {
            FileSpec.ConvertFileSpecToNative(Full(), m_native);
            FileSpec back = ThereAndBack(new FileSpec("u"));
            Assert.AreEqual("u", back.Ufs);
            Assert.IsNull(back.Hfs);
            Assert.IsNull(back.MonikerString);
            Assert.AreEqual(FileGetMode.GiveOut, back.AccessMode);
        }

        [Test]
        public void NothingClearsTheNativeOne()
        {
            FileSpec.ConvertFileSpecToNative(Full(), m_native);
            FileSpec.ConvertFileSpecToNative(null, m_native);
            Assert.AreEqual("", NativeText(NativeMethods.UfsText));
            Assert.AreEqual("", NativeText(NativeMethods.HfsText));
            Assert.AreEqual("", NativeText(NativeMethods.MonikerText));
            Assert.AreEqual(0, NativeMethods.NativeFileSpec_accessMode(m_native));
        }

        [Test]
        public void ANativeOneWithoutUfsIsNothing()
        {
            Assert.IsNull(FileSpec.ConvertNativeToFileSpec(m_native));
            SetNativeText(NativeMethods.HfsText, @"C:\a.plt");
            SetNativeText(NativeMethods.MonikerText, "dq:1");
            Assert.IsNull(FileSpec.ConvertNativeToFileSpec(m_native));
        }

        [Test]
        public void ANativeOneWithUfsAloneHasNoOtherNames()
        {
            SetNativeText(NativeMethods.UfsText, "u");
            FileSpec spec = FileSpec.ConvertNativeToFileSpec(m_native);
            Assert.AreEqual("u", spec.Ufs);
            Assert.IsNull(spec.Hfs);
            Assert.IsNull(spec.MonikerString);
        }

        [Test]
        public void AModeWithoutANameIsKept()
        {
            FileSpec spec = Full();
            spec.AccessMode = (FileGetMode)(-7);
            Assert.AreEqual(-7, (int)ThereAndBack(spec).AccessMode);
        }

        [Test]
        public void AFolderComesBackAsAFile()
        {
            Assert.AreEqual(typeof(FileSpec), ThereAndBack(new FolderSpec("f")).GetType());
        }

        [Test]
        public void ANullPointerIsAnArgumentError()
        {
            var error =
                Assert.Throws<ArgumentNullException>(() => FileSpec.ConvertFileSpecToNative(Full(), null));
            Assert.AreEqual("dest", error.ParamName);
            error = Assert.Throws<ArgumentNullException>(() => FileSpec.ConvertNativeToFileSpec(null));
            Assert.AreEqual("source", error.ParamName);
        }
    }
}
