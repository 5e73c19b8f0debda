// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The bridge from native lookups to the host's handler.
//
// Shared state: the callback that native code may hold, which lives as long as the application domain: in a
// static field, and by a handle that no collection passes over while it is registered. Lookups come in on any
// thread.
using System;
using System.Runtime.InteropServices;
using System.Threading;

namespace Corvane.Print
{
    internal static unsafe class ExpandCallback
    {
        private static readonly NativeExpandCallback s_callback = Expand;
        private static readonly object s_lock = new object();
        private static GCHandle s_held;

        internal static void Register()
        {
            lock (s_lock)
            {
                if (!s_held.IsAllocated)
                {
                    s_held = GCHandle.Alloc(s_callback);
                    // Native code must not call into a domain that is gone.
                    AppDomain.CurrentDomain.DomainUnload += OnDomainUnload;
                }
                NativeMethods.CFSetGetEnvVarCallback(s_callback);
            }
        }

        internal static void Unregister()
        {
            lock (s_lock)
            {
                NativeMethods.CFSetGetEnvVarCallback(null);
                if (!s_held.IsAllocated) return;
                AppDomain.CurrentDomain.DomainUnload -= OnDomainUnload;
                s_held.Free();
            }
        }

        /// <summary>
        /// Answers a native lookup. Nothing that the handler throws leaves it, since native frames cannot be
        /// unwound: the variable is undefined then, and the error goes to the debug output.
        /// </summary>
        /// <param name="name">The variable's name, a terminated text.</param>
        /// <param name="buffer">Room for the value.</param>
        /// <param name="capacity">The room in bytes.</param>
        /// <returns>The bytes that the value needs with its terminator, written or not; 0 when
        /// undefined.</returns>
        internal static int Expand(IntPtr name, IntPtr buffer, int capacity)
        {
            try
            {
                string value = PrintTools.OnExpandConfigVariable(new string((char*)name));
                return string.IsNullOrEmpty(value) ? 0 : Deliver(value, (char*)buffer, capacity);
            }
            catch (ThreadAbortException error)
            {
                // It would go on by itself at the end of this block.
                Thread.ResetAbort();
                Report(error);
                return 0;
            }
            catch (Exception error)
            {
                Report(error);
                return 0;
            }
        }

        private static int Deliver(string value, char* buffer, int capacity)
        {
            int needed = 2 * value.Length + 2;
            if (needed > capacity) return needed;
            // As far as native text goes; the rest is zeros, and so is the terminator.
            int end = value.IndexOf('\0');
            if (end < 0) end = value.Length;
            for (int i = 0; i < end; ++i) buffer[i] = value[i];
            for (int i = end; i <= value.Length; ++i) buffer[i] = '\0';
            return needed;
        }

        // The text is formatted twice on its way.
        private static void Report(Exception error)
        {
            try
            {
                string said =
                    "OnExpandConfigVariable: " + error.GetType().FullName + ": " + error.Message + "\n";
                fixed (char* text = said.Replace("%", "%%%%")) NativeMethods.DBERRW(text);
            }
            catch (Exception)
            {
                // An error that cannot even tell what it is.
            }
        }

        private static void OnDomainUnload(object sender, EventArgs e)
        {
            Unregister();
        }
    }
}
