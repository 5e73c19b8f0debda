// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Localized texts, messages made of them, and lookups of variables.
using System;
using System.Collections.Generic;
using System.Globalization;
using System.Threading;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class PrintToolsTests
    {
        private static readonly string[,] s_texts = {
            { "CantFindFile", "Unable to find file '{0}' at specified location" },
            { "CantFindFileInPath",
              "Unable to find file '{0}' at specified location or in search path '{1}'" },
            { "Exception", "Exception encountered inside [{0}]" },
            { "FileCreateError", "Unable to create file '{0}'" },
            { "FileReadError", "Unable to read file '{0}'" },
            { "FileWriteError", "Unable to write file '{0}'" },
            { "ProcessReadyTimeoutExpired",
              "The process '{0}' failed to indicate readiness within the allotted time of {1} seconds" },
            { "ProcessStartupError", "The process '{0}' encountered an error during startup" },
            { "StartProcessError", "Unable to start process '{0}'" }
        };

        private CultureInfo m_before;

        [SetUp]
        public void SpeakEnglish()
        {
            m_before = Thread.CurrentThread.CurrentUICulture;
            Thread.CurrentThread.CurrentUICulture = new CultureInfo("en-GB");
        }

        [TearDown]
        public void SpeakAsBefore()
        {
            Thread.CurrentThread.CurrentUICulture = m_before;
            PrintTools.EnableOnExpandConfigVariable(false);
            PrintTools.OnExpandConfigVariable = null;
        }

        [Test]
        public void ThereAreNineNeutralTexts()
        {
            for (int i = 0; i < 9; ++i)
            {
                Assert.AreEqual(s_texts[i, 1], PrintTools.GetLocalizedString(s_texts[i, 0]));
                Assert.AreEqual(s_texts[i, 1], PrintTools.GetLocalizedString(s_texts[i, 0], false));
            }
            using (var stream = typeof(PrintTools).Assembly.GetManifestResourceStream(
                       "Corvane.PrintTools.LocalizableStrings.resources"))
            using (var reader = new System.Resources.ResourceReader(stream))
            {
                int count = 0;
                foreach (object entry in reader) ++count;
                Assert.AreEqual(9, count);
            }
        }

        [TestCase("de")]
        [TestCase("de-AT")]
        public void TextsFollowTheUICulture(string culture)
        {
            Thread.CurrentThread.CurrentUICulture = new CultureInfo(culture);
            Assert.AreEqual("Die Datei \u201e{0}\u201c l\u00e4sst sich nicht lesen",
                            PrintTools.GetLocalizedString("FileReadError"));
            for (int i = 0; i < 9; ++i)
            {
                string text = PrintTools.GetLocalizedString(s_texts[i, 0], false);
                Assert.AreNotEqual(s_texts[i, 1], text);
                Assert.AreEqual(s_texts[i, 1].Contains("{1}"), text.Contains("{1}"));
                Assert.IsTrue(text.Contains("{0}"));
            }
            Thread.CurrentThread.CurrentUICulture = new CultureInfo("en-US");
            Assert.AreEqual(s_texts[4, 1], PrintTools.GetLocalizedString("FileReadError"));
        }

        [Test]
        public void OtherLanguagesReadTheNeutralTexts()
        {
            Thread.CurrentThread.CurrentUICulture = new CultureInfo("ja-JP");
            Assert.AreEqual(s_texts[4, 1], PrintTools.GetLocalizedString("FileReadError"));
        }

        [Test]
        public void AnUnknownKeyIsFramed()
        {
            Assert.AreEqual("XX-NoSuchKey-XX", PrintTools.GetLocalizedString("NoSuchKey"));
            Assert.AreEqual("XX-NoSuchKey-XX", PrintTools.GetLocalizedString("NoSuchKey", true));
            Assert.IsNull(PrintTools.GetLocalizedString("NoSuchKey", false));
            Assert.AreEqual("XX--XX", PrintTools.GetLocalizedString(""));
            Assert.AreEqual("XX-{0}-XX", PrintTools.GetLocalizedString("{0}"));
            Assert.AreEqual("XX-filereaderror-XX", PrintTools.GetLocalizedString("filereaderror"),
                            "case counts");
        }

        [Test]
        public void ANullKeyHasNoText()
        {
            Assert.IsNull(PrintTools.GetLocalizedString(null));
            Assert.IsNull(PrintTools.GetLocalizedString(null, true));
            Assert.IsNull(PrintTools.GetLocalizedString(null, false));
        }

        private static void Expect(IUserMessage message, UserMessageSeverity severity)
        {
            Assert.IsInstanceOf<UserMessage>(message);
            Assert.AreEqual(severity, message.Severity);
            Assert.AreEqual("Unable to read file 'a.plt'", message.Text);
            Assert.AreEqual("FileReadError", message.Key);
            Assert.AreEqual("", message.Details);
            Assert.IsFalse(message.IsAlert);
            Assert.AreEqual(Thread.CurrentThread.ManagedThreadId, message.ManagedThreadId);
        }

        [Test]
        public void MessagesAreMadeOfTexts()
        {
            var args = new object[] { "a.plt" };
            Expect(PrintTools.BuildErrorMessage("FileReadError", args), UserMessageSeverity.Error);
            Expect(PrintTools.BuildWarningMessage("FileReadError", args), UserMessageSeverity.Warning);
            Expect(PrintTools.BuildInformationMessage("FileReadError", args),
                   UserMessageSeverity.Information);
            Assert.AreEqual("XX-Nix-XX", PrintTools.BuildErrorMessage("Nix", args).Text);
        }

        [Test]
        public void TooFewArgumentsAreAFormatError()
        {
            Assert.Throws<FormatException>(
                () => PrintTools.BuildErrorMessage("CantFindFileInPath", new object[] { "a" }));
            Assert.Throws<FormatException>(
                () => PrintTools.BuildWarningMessage("CantFindFile", new object[0]));
            Assert.Throws<ArgumentNullException>(
                () => PrintTools.BuildInformationMessage("CantFindFile", null));
        }

        [Test]
        public void WithoutAHandlerVariablesAreThoseOfTheEnvironment()
        {
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", "Stra\u00dfe");
            Assert.AreEqual("Stra\u00dfe", PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", null);
            Assert.IsNull(PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            Assert.IsNull(PrintTools.CFGetenv(null));
            Assert.IsNull(PrintTools.CFGetenv(""));
        }

        [Test]
        public void TheHandlerAnswersWhileItIsEnabled()
        {
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", "environment");
            var asked = new List<string>();
            PrintTools.OnExpandConfigVariable = name =>
            {
                asked.Add(name);
                return "handler";
            };
            Assert.AreEqual("environment", PrintTools.CFGetenv("CORVANE_TEST_VALUE"), "not enabled yet");
            PrintTools.EnableOnExpandConfigVariable(true);
            PrintTools.EnableOnExpandConfigVariable(true);
            Assert.AreEqual("handler", PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            PrintTools.EnableOnExpandConfigVariable(false);
            PrintTools.EnableOnExpandConfigVariable(false);
            Assert.AreEqual("environment", PrintTools.CFGetenv("CORVANE_TEST_VALUE"));
            CollectionAssert.AreEqual(new[] { "CORVANE_TEST_VALUE" }, asked);
            Environment.SetEnvironmentVariable("CORVANE_TEST_VALUE", null);
        }

        [Test]
        public void ObjectsWithoutUseCanBeMade()
        {
            Assert.IsNotNull(new PrintTools());
            Assert.IsNotNull(new FUTools());
            Assert.IsNotNull(new DebugTools());
            Assert.IsNotNull(new PrintLogger());
            Assert.IsNotNull(new KVL());
        }
    }
}
