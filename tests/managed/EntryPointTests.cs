// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the assembly imports, and whether the libraries have it: on Linux and in the DLL of 32-bit Windows,
// whose export table is read from its file.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using System.Runtime.InteropServices;
using System.Text;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class EntryPointTests
    {
        private const BindingFlags All = BindingFlags.DeclaredOnly | BindingFlags.Static |
                                         BindingFlags.Instance | BindingFlags.Public | BindingFlags.NonPublic;

        private static List<MethodInfo> Imports()
        {
            return typeof(FileSpec).Assembly.GetTypes().SelectMany(t => t.GetMethods(All))
                                   .Where(m => m.Attributes.HasFlag(MethodAttributes.PinvokeImpl)).ToList();
        }

        private static DllImportAttribute Import(MethodInfo method)
        {
            return (DllImportAttribute)method.GetCustomAttributes(typeof(DllImportAttribute), false).Single();
        }

        private static List<DllImportAttribute> ImportsOf(string library)
        {
            return Imports().Select(Import).Where(i => i.Value == library).ToList();
        }

        // The names that a 32-bit or 64-bit Windows library exports.
        private static HashSet<string> ExportsOf(string path)
        {
            byte[] file = File.ReadAllBytes(path);
            Func<long, uint> number = at => BitConverter.ToUInt32(file, (int)at);
            Func<long, ushort> half = at => BitConverter.ToUInt16(file, (int)at);
            Assert.AreEqual("MZ", Encoding.ASCII.GetString(file, 0, 2));
            long header = number(0x3C);
            Assert.AreEqual("PE\0\0", Encoding.ASCII.GetString(file, (int)header, 4));
            long optional = header + 24;
            long directories = optional + (half(optional) == 0x20B ? 112 : 96);
            long sections = optional + half(header + 20);
            int sectionCount = half(header + 6);
            Func<uint, long> place = address =>
            {
                for (int i = 0; i < sectionCount; ++i)
                {
                    long section = sections + 40 * i;
                    uint begin = number(section + 12);
                    if (address >= begin && address < begin + number(section + 16))
                        return address - begin + number(section + 20);
                }
                throw new InvalidDataException("an address outside all sections");
            };
            long exports = place(number(directories));
            long names = place(number(exports + 32));
            var found = new HashSet<string>();
            for (uint i = 0; i < number(exports + 24); ++i)
            {
                long at = place(number(names + 4 * i));
                int length = Array.IndexOf(file, (byte)0, (int)at) - (int)at;
                found.Add(Encoding.ASCII.GetString(file, (int)at, length));
            }
            return found;
        }

        [Test]
        public void AllImportsAreDeclaredInOnePlace()
        {
            Assert.IsTrue(Imports().All(m => m.DeclaringType.Name == "NativeMethods"));
            CollectionAssert.AreEquivalent(new[] { "corvane_print", "kernel32", "libc" },
                                           Imports().Select(m => Import(m).Value).Distinct());
        }

        [Test]
        public void ImportsOfTheLibraryHaveTheCConventionAndWideText()
        {
            List<DllImportAttribute> imports = ImportsOf("corvane_print");
            Assert.AreEqual(26, imports.Count);
            foreach (DllImportAttribute import in imports)
            {
                Assert.AreEqual(CallingConvention.Cdecl, import.CallingConvention, import.EntryPoint);
                Assert.AreEqual(CharSet.Unicode, import.CharSet, import.EntryPoint);
                Assert.IsTrue(import.ExactSpelling, import.EntryPoint);
            }
            var convention = (UnmanagedFunctionPointerAttribute)typeof(NativeExpandCallback)
                .GetCustomAttributes(typeof(UnmanagedFunctionPointerAttribute), false).Single();
            Assert.AreEqual(CallingConvention.Cdecl, convention.CallingConvention);
        }

        [Test]
        public void EveryImportOfTheLibraryIsThereOnThisSystem()
        {
            foreach (MethodInfo method in Imports().Where(m => Import(m).Value != "kernel32"))
                Marshal.Prelink(method);
        }

        [Test]
        public void EveryImportOfTheLibraryIsInTheWindowsDll()
        {
            string library = Environment.GetEnvironmentVariable("CORVANE_TEST_WIN32_DLL");
            if (string.IsNullOrEmpty(library)) Assert.Ignore("there is no Windows library to look into");
            HashSet<string> exports = ExportsOf(library);
            CollectionAssert.Contains(exports, "CLclipLine", "the table was read");
            CollectionAssert.DoesNotContain(exports, "CLclipLin");
            CollectionAssert.IsEmpty(ImportsOf("corvane_print").Select(i => i.EntryPoint).Except(exports));
        }

        [Test]
        public void TheSystemOpensFilesOnWindows()
        {
            DllImportAttribute import = ImportsOf("kernel32").Single();
            Assert.AreEqual("CreateFile", import.EntryPoint);
            Assert.AreEqual(CharSet.Auto, import.CharSet);
            Assert.IsTrue(import.SetLastError);
            Assert.IsFalse(import.ExactSpelling, "the system chooses the form for its character set");
        }
    }
}
