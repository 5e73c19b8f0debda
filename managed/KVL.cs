// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Debug output through the native debug family.
namespace Corvane.Print
{
    /// <summary>
    /// Debug output through the optional debug library; without it nothing happens. The text is formatted
    /// here and is a printf format to the native side, twice: a percent sign that shall survive is written
    /// four times.
    /// </summary>
    // KEEP(kvl-text-is-format): a percent sign in a formatted text is interpreted. Looks wrong; the text goes
    // the way of every wide debug message, which is a format. Pinned by
    // KvlTests.APercentSignInTheTextIsInterpreted.
    public sealed unsafe class KVL
    {
        /// <summary>An ordinary message.</summary>
        /// <param name="format">The text, with placeholders as for String.Format.</param>
        /// <param name="args">What stands for the placeholders.</param>
        public static void Message(string format, object[] args)
        {
            fixed (char* text = string.Format(format, args)) NativeMethods.DBMSGW(text);
        }

        /// <summary>An error.</summary>
        /// <param name="format">The text, with placeholders as for String.Format.</param>
        /// <param name="args">What stands for the placeholders.</param>
        public static void Error(string format, object[] args)
        {
            fixed (char* text = string.Format(format, args)) NativeMethods.DBERRW(text);
        }

        /// <summary>Something to pay attention to.</summary>
        /// <param name="format">The text, with placeholders as for String.Format.</param>
        /// <param name="args">What stands for the placeholders.</param>
        public static void Attention(string format, object[] args)
        {
            fixed (char* text = string.Format(format, args)) NativeMethods.DBATTW(text);
        }

        /// <summary>A highlighted message.</summary>
        /// <param name="format">The text, with placeholders as for String.Format.</param>
        /// <param name="args">What stands for the placeholders.</param>
        public static void Highlight(string format, object[] args)
        {
            fixed (char* text = string.Format(format, args)) NativeMethods.DBHMSGW(text);
        }
    }
}
