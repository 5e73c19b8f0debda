// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Messages for the user, and the delegate types.
using System;
using System.Threading;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class UserMessageTests
    {
        private static void Expect(UserMessage message, UserMessageSeverity severity, string text,
                                   string details, string key, bool isAlert)
        {
            Assert.AreEqual(severity, message.Severity);
            Assert.AreEqual(text, message.Text);
            Assert.AreEqual(details, message.Details);
            Assert.AreEqual(key, message.Key);
            Assert.AreEqual(isAlert, message.IsAlert);
            Assert.IsTrue(message.IsDefinedManagedThreadId);
            Assert.AreEqual(Thread.CurrentThread.ManagedThreadId, message.ManagedThreadId);
        }

        [Test]
        public void WhatIsNotGivenIsEmpty()
        {
            Expect(new UserMessage(), UserMessageSeverity.Undefined, "", "", "", false);
            Expect(new UserMessage(UserMessageSeverity.Warning, "t"), UserMessageSeverity.Warning, "t", "",
                   "", false);
            Expect(new UserMessage(UserMessageSeverity.Error, "t", "k"), UserMessageSeverity.Error, "t", "",
                   "k", false);
            Expect(new UserMessage(UserMessageSeverity.Information, "t", "d", "k"),
                   UserMessageSeverity.Information, "t", "d", "k", false);
            Expect(new UserMessage(UserMessageSeverity.Error, "t", "d", "k", true), UserMessageSeverity.Error,
                   "t", "d", "k", true);
        }

        [Test]
        public void WhatIsGivenIsStoredAsItIs()
        {
            Expect(new UserMessage((UserMessageSeverity)77, null, null, null, true), (UserMessageSeverity)77,
                   null, null, null, true);
        }

        [Test]
        public void PropertiesChangeAfterwards()
        {
            IUserMessage message = new UserMessage();
            message.Text = "t";
            message.Details = "d";
            message.Key = "k";
            message.Severity = UserMessageSeverity.Warning;
            message.IsAlert = true;
            Expect((UserMessage)message, UserMessageSeverity.Warning, "t", "d", "k", true);
            message.Text = null;
            Assert.IsNull(message.Text);
        }

        [Test]
        public void TheThreadThatMadeItIsRemembered()
        {
            UserMessage message = null;
            int id = 0;
            var thread = new Thread(() =>
            {
                id = Thread.CurrentThread.ManagedThreadId;
                message = new UserMessage();
            });
            thread.Start();
            thread.Join();
            Assert.AreEqual(id, message.ManagedThreadId);
            Assert.AreNotEqual(Thread.CurrentThread.ManagedThreadId, message.ManagedThreadId);
        }

        [Test]
        public void DelegatesCombineAndRunAsynchronously()
        {
            int calls = 0;
            VoidDelegate twice = () => ++calls;
            twice += () => ++calls;
            twice();
            Assert.AreEqual(2, calls);

            UserMessageDelegate show = message => calls += message.Text.Length;
            show(new UserMessage(UserMessageSeverity.Error, "four"));
            Assert.AreEqual(6, calls);

            SelectFileDelegate select = (spec, data) => new FileSpec(spec.Ufs + data);
            IAsyncResult pending = select.BeginInvoke(new FileSpec("a"), 1, null, null);
            Assert.AreEqual("a1", select.EndInvoke(pending).Ufs);

            ExpandConfigVariableDelegate expand = name => null;
            expand += name => name + "!";
            Assert.AreEqual("x!", expand("x"), "the last handler's answer counts");
        }
    }
}
