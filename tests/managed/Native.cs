// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// What the tests call outside the managed world, beside what the layer itself calls.
using System;
using System.Runtime.InteropServices;
using System.Text;

namespace Corvane.Print.Tests
{
    internal static unsafe class Native
    {
        private const CallingConvention C = CallingConvention.Cdecl;

        [DllImport("corvane_print", CallingConvention = C, ExactSpelling = true)]
        internal static extern NativeFileSpec* NativeFileSpec_create();

        [DllImport("corvane_print", CallingConvention = C, ExactSpelling = true)]
        internal static extern void NativeFileSpec_release(NativeFileSpec* spec);

        [DllImport("corvane_print", CallingConvention = C, ExactSpelling = true)]
        internal static extern int DbgTools_addDebugVar(byte[] variableName);

        // As the debug stand-in's record.h has it.
        [StructLayout(LayoutKind.Sequential)]
        internal struct DebugRecord
        {
            internal int Starts;
            internal int Calls;
            internal IntPtr Entry;
            internal fixed byte Text1[16384];
            internal fixed byte Text2[16384];
            internal fixed byte Printed[16384];
            internal IntPtr Address1;
            internal IntPtr Address2;
            internal uint Number;
            internal int Count;
        }

        [DllImport("kvldebug", CallingConvention = C, ExactSpelling = true, EntryPoint = "debug_record")]
        internal static extern DebugRecord* Record();

        internal static string Utf8(byte* text)
        {
            int length = 0;
            while (text[length] != 0) ++length;
            return Encoding.UTF8.GetString(text, length);
        }

        // The heap of native code, over all arenas.
        [StructLayout(LayoutKind.Sequential)]
        internal struct HeapInfo
        {
            internal UIntPtr Arena, FreeBlocks, FastBlocks, Maps, MapBytes, MostBytes, FastBytes, UsedBytes;
            internal UIntPtr FreeBytes, TopBytes;
        }

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        private static extern HeapInfo mallinfo2();

        internal static long HeapBytesInUse()
        {
            HeapInfo info = mallinfo2();
            return (long)info.UsedBytes + (long)info.MapBytes;
        }

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        internal static extern int system(string command);

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        private static extern IntPtr dlopen(string name, int flags);

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        private static extern IntPtr dlsym(IntPtr library, string name);

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        private static extern int pthread_create(out IntPtr thread, IntPtr attributes, IntPtr start,
                                                 IntPtr argument);

        [DllImport("libc", CallingConvention = C, ExactSpelling = true)]
        private static extern int pthread_join(IntPtr thread, out IntPtr result);

        // CFGetenvW on a thread that the runtime has never seen: it has the form of a thread's function.
        internal static string LookUpOnForeignThread(string name)
        {
            IntPtr library = dlopen("libcorvane_print.so", 1);
            IntPtr lookup = dlsym(library, "CFGetenvW");
            if (lookup == IntPtr.Zero) throw new EntryPointNotFoundException("CFGetenvW");
            fixed (char* text = name)
            {
                IntPtr thread, value;
                if (pthread_create(out thread, IntPtr.Zero, lookup, (IntPtr)text) != 0 ||
                    pthread_join(thread, out value) != 0)
                {
                    throw new InvalidOperationException("no thread");
                }
                if (value == IntPtr.Zero) return null;
                string result = new string((char*)value);
                NativeMethods.CFReleaseValue((void*)value);
                return result;
            }
        }
    }
}
