// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Configuration variables and localized messages for managed hosts.
//
// Shared state: the host's handler, and the resource manager, created when it is first needed, without a
// lock; where two threads create one at once, the last one stays.
using System;
using System.Reflection;
using System.Resources;

namespace Corvane.Print
{
    /// <summary>Configuration variables and localized messages.</summary>
    public sealed class PrintTools
    {
        /// <summary>
        /// Answers the lookups of configuration variables, native ones included, while
        /// <see cref="EnableOnExpandConfigVariable"/> has switched that on. Assign it first. Lookups come in
        /// on any thread. Where it is missing or throws, the variable is undefined, and the error goes to the
        /// debug output.
        /// </summary>
        public static ExpandConfigVariableDelegate OnExpandConfigVariable;

        private static ResourceManager s_resourceManager;

        /// <summary>Does nothing; all members are static.</summary>
        public PrintTools()
        {
        }

        /// <summary>
        /// Lets all lookups of the native library go to <see cref="OnExpandConfigVariable"/>, or back to the
        /// environment. Do not call it while a lookup may be running on another thread. Of several
        /// application domains, the last one that switched it on answers.
        /// </summary>
        /// <param name="enable">Whether the handler answers.</param>
        public static void EnableOnExpandConfigVariable(bool enable)
        {
            if (enable)
                ExpandCallback.Register();
            else
                ExpandCallback.Unregister();
        }

        /// <summary>The value of a configuration variable.</summary>
        /// <param name="varName">The variable's name; may be null.</param>
        /// <returns>The value, or null when the variable is undefined or empty.</returns>
        public static unsafe string CFGetenv(string varName)
        {
            fixed (char* name = varName)
            {
                char* value = NativeMethods.CFGetenvW(name);
                if (value == null) return null;
                try
                {
                    return new string(value);
                }
                finally
                {
                    NativeMethods.CFReleaseValue(value);
                }
            }
        }

        /// <summary>A text in the language of the current UI culture.</summary>
        /// <param name="key">The text's key; null has no text.</param>
        /// <param name="useDefaultIfNotFound">Whether an unknown key is returned as "XX-key-XX".</param>
        /// <returns>The text; null when there is none.</returns>
        public static string GetLocalizedString(string key, bool useDefaultIfNotFound)
        {
            if (key == null) return null;
            string text = null;
            try
            {
                if (s_resourceManager == null)
                {
                    s_resourceManager = new ResourceManager("Corvane.PrintTools.LocalizableStrings",
                                                            Assembly.GetExecutingAssembly());
                }
                text = s_resourceManager.GetString(key);
            }
            catch (Exception)
            {
                // A text that cannot be read is a text that is not there.
            }
            return text == null && useDefaultIfNotFound ? string.Format("XX-{0}-XX", key) : text;
        }

        /// <summary>A text in the language of the current UI culture, or "XX-key-XX".</summary>
        /// <param name="key">The text's key; null has no text.</param>
        /// <returns>The text; null when the key is.</returns>
        public static string GetLocalizedString(string key)
        {
            return GetLocalizedString(key, true);
        }

        /// <summary>An error from a localized text.</summary>
        /// <param name="key">The text's key.</param>
        /// <param name="args">What stands for its placeholders.</param>
        /// <returns>The message.</returns>
        /// <exception cref="FormatException">There are fewer arguments than placeholders.</exception>
        public static IUserMessage BuildErrorMessage(string key, object[] args)
        {
            return BuildMessage(UserMessageSeverity.Error, key, args);
        }

        /// <summary>A warning from a localized text.</summary>
        /// <param name="key">The text's key.</param>
        /// <param name="args">What stands for its placeholders.</param>
        /// <returns>The message.</returns>
        /// <exception cref="FormatException">There are fewer arguments than placeholders.</exception>
        public static IUserMessage BuildWarningMessage(string key, object[] args)
        {
            return BuildMessage(UserMessageSeverity.Warning, key, args);
        }

        /// <summary>An information from a localized text.</summary>
        /// <param name="key">The text's key.</param>
        /// <param name="args">What stands for its placeholders.</param>
        /// <returns>The message.</returns>
        /// <exception cref="FormatException">There are fewer arguments than placeholders.</exception>
        public static IUserMessage BuildInformationMessage(string key, object[] args)
        {
            return BuildMessage(UserMessageSeverity.Information, key, args);
        }

        private static IUserMessage BuildMessage(UserMessageSeverity severity, string key, object[] args)
        {
            return new UserMessage(severity, string.Format(GetLocalizedString(key, true), args), key);
        }
    }
}
