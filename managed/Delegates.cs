// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The delegate types that hosts use.
namespace Corvane.Print
{
    /// <summary>Does something.</summary>
    public delegate void VoidDelegate();

    /// <summary>Lets the host select a file.</summary>
    /// <param name="inputFspec">Where to begin.</param>
    /// <param name="appData">The host's own data.</param>
    /// <returns>The file that was selected.</returns>
    public delegate FileSpec SelectFileDelegate(FileSpec inputFspec, object appData);

    /// <summary>Looks a configuration variable up.</summary>
    /// <param name="variableName">The variable's name.</param>
    /// <returns>The value; null or empty when the variable is undefined.</returns>
    public delegate string ExpandConfigVariableDelegate(string variableName);

    /// <summary>Receives a message for the user.</summary>
    /// <param name="message">The message.</param>
    public delegate void UserMessageDelegate(IUserMessage message);
}
