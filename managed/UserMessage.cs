// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Messages for the user: what they say, how serious they are, which thread made them.
using System;
using System.Threading;

namespace Corvane.Print
{
    /// <summary>How serious a message is.</summary>
    public enum UserMessageSeverity
    {
        /// <summary>Nothing was said about it.</summary>
        Undefined = 0,

        /// <summary>For information.</summary>
        Information = 1,

        /// <summary>A warning.</summary>
        Warning = 2,

        /// <summary>An error.</summary>
        Error = 3
    }

    /// <summary>A message for the user.</summary>
    public interface IUserMessage
    {
        /// <summary>What the message says.</summary>
        string Text { get; set; }

        /// <summary>What there is to add.</summary>
        string Details { get; set; }

        /// <summary>How serious it is.</summary>
        UserMessageSeverity Severity { get; set; }

        /// <summary>Whether the user must be interrupted.</summary>
        bool IsAlert { get; set; }

        /// <summary>The resource key that the text came from.</summary>
        string Key { get; set; }

        /// <summary>Whether <see cref="ManagedThreadId"/> means something.</summary>
        bool IsDefinedManagedThreadId { get; }

        /// <summary>The managed identifier of the thread that made the message.</summary>
        int ManagedThreadId { get; }
    }

    /// <summary>A message for the user, which remembers the thread that made it.</summary>
    public class UserMessage : MarshalByRefObject, IUserMessage
    {
        private string m_text;
        private string m_details;
        private string m_key;
        private UserMessageSeverity m_severity;
        private bool m_isAlert;
        private bool m_isDefinedManagedThreadId;
        private int m_managedThreadId;

        /// <summary>An empty message of undefined severity.</summary>
        public UserMessage() : this(UserMessageSeverity.Undefined, "")
        {
        }

        /// <summary>A message.</summary>
        /// <param name="severity">How serious it is.</param>
        /// <param name="text">What it says.</param>
        public UserMessage(UserMessageSeverity severity, string text) : this(severity, text, "")
        {
        }

        /// <summary>A message from a resource.</summary>
        /// <param name="severity">How serious it is.</param>
        /// <param name="text">What it says.</param>
        /// <param name="key">The resource key that the text came from.</param>
        public UserMessage(UserMessageSeverity severity, string text, string key)
            : this(severity, text, "", key)
        {
        }

        /// <summary>A message from a resource, with details.</summary>
        /// <param name="severity">How serious it is.</param>
        /// <param name="text">What it says.</param>
        /// <param name="details">What there is to add.</param>
        /// <param name="key">The resource key that the text came from.</param>
        public UserMessage(UserMessageSeverity severity, string text, string details, string key)
            : this(severity, text, details, key, false)
        {
        }

        /// <summary>A message with everything.</summary>
        /// <param name="severity">How serious it is.</param>
        /// <param name="text">What it says.</param>
        /// <param name="details">What there is to add.</param>
        /// <param name="key">The resource key that the text came from.</param>
        /// <param name="isAlert">Whether the user must be interrupted.</param>
        public UserMessage(UserMessageSeverity severity, string text, string details, string key,
                           bool isAlert)
        {
            m_text = text;
            m_details = details;
            m_key = key;
            m_severity = severity;
            m_isAlert = isAlert;
            m_isDefinedManagedThreadId = true;
            m_managedThreadId = Thread.CurrentThread.ManagedThreadId;
        }

        /// <summary>What the message says.</summary>
        public string Text
        {
            get { return m_text; }
            set { m_text = value; }
        }

        /// <summary>What there is to add.</summary>
        public string Details
        {
            get { return m_details; }
            set { m_details = value; }
        }

        /// <summary>How serious it is.</summary>
        public UserMessageSeverity Severity
        {
            get { return m_severity; }
            set { m_severity = value; }
        }

        /// <summary>Whether the user must be interrupted.</summary>
        public bool IsAlert
        {
            get { return m_isAlert; }
            set { m_isAlert = value; }
        }

        /// <summary>The resource key that the text came from.</summary>
        public string Key
        {
            get { return m_key; }
            set { m_key = value; }
        }

        /// <summary>Whether <see cref="ManagedThreadId"/> means something: always.</summary>
        public bool IsDefinedManagedThreadId
        {
            get { return m_isDefinedManagedThreadId; }
        }

        /// <summary>The managed identifier of the thread that made the message.</summary>
        public int ManagedThreadId
        {
            get { return m_managedThreadId; }
        }
    }
}
