// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// File locks, within the process and between processes.
using System;
using System.Diagnostics;
using System.IO;
using System.Runtime.CompilerServices;
using System.Threading;
using Microsoft.Win32.SafeHandles;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class FileLockTests
    {
        private ScratchFolder m_folder;
        private string m_path;
        private FileSpec m_spec;

        [SetUp]
        public void MakeAFile()
        {
            m_folder = new ScratchFolder();
            m_path = m_folder.File("a \u00e4.plt");
            m_spec = new FileSpec(Places.Hfs(m_path), true);
        }

        [TearDown]
        public void RemoveIt()
        {
            m_folder.Dispose();
        }

        private static int OpenDescriptors()
        {
            return Directory.GetFileSystemEntries("/proc/self/fd").Length;
        }

        private string AnotherProcessLocks()
        {
            return Places.Run("Corvane.PrintTools.TestHost.exe", "lock \"" + m_spec.Hfs + "\"")[0];
        }

        [Test]
        public void ALockIsValidUntilItIsEnded()
        {
            FileLock held = FileLock.LockFile(m_spec);
            Assert.IsTrue(held.IsValid);
            Assert.IsFalse(FileLock.IsNullOrInvalid(held));
            Assert.AreSame(m_spec, held.FileSpec);
            Assert.IsFalse(held.Handle.IsClosed);
            Assert.IsTrue(FileLock.UnlockFile(held));
            Assert.IsFalse(held.IsValid);
            Assert.IsTrue(held.Handle.IsClosed);
            Assert.IsFalse(FileLock.UnlockFile(held), "the second time");
        }

        [Test]
        public void WithoutAHostNameThereIsNothingToLock()
        {
            Assert.IsNull(FileLock.LockFile(null));
            Assert.IsNull(FileLock.LockFile(new FileSpec()));
            Assert.IsNull(FileLock.LockFile(new FileSpec("a.plt")));
            Assert.IsFalse(FileLock.UnlockFile(null));
            Assert.IsTrue(FileLock.IsNullOrInvalid(null));
        }

        [Test]
        public void AFileThatCannotBeOpenedGivesAnInvalidLock()
        {
            var names = new[] {
                m_folder.Hfs + @"\none.plt",   m_folder.Hfs, @"Q:\none.plt", "\\", m_folder.Hfs + "\\\0",
                @"Z:\" + new string('n', 5000)
            };
            foreach (string name in names)
            {
                FileLock held = FileLock.LockFile(new FileSpec(name, true));
                Assert.IsNotNull(held, name);
                Assert.IsFalse(held.IsValid, name);
                Assert.IsTrue(FileLock.IsNullOrInvalid(held), name);
                Assert.AreEqual(name, held.FileSpec.Hfs);
                Assert.IsFalse(FileLock.UnlockFile(held), name);
            }
        }

        [Test]
        public void ALockNeedsNeitherHandleNorFile()
        {
            Assert.IsNull(new FileLock().Handle);
            Assert.IsNull(new FileLock().FileSpec);
            Assert.IsFalse(new FileLock().IsValid);
            Assert.IsFalse(new FileLock(null, m_spec).IsValid);
            Assert.IsFalse(FileLock.UnlockFile(new FileLock()));
        }

        [Test]
        public void ZeroAndMinusOneAreNoHandles()
        {
            Assert.IsFalse(new FileLock(new SafeFileHandle(IntPtr.Zero, false), m_spec).IsValid);
            Assert.IsFalse(new FileLock(new SafeFileHandle(new IntPtr(-1), false), m_spec).IsValid);
            var handle = new SafeFileHandle(new IntPtr(1), false);
            var held = new FileLock(handle, m_spec);
            Assert.AreSame(handle, held.Handle);
            Assert.IsTrue(held.IsValid);
            handle.Close();
            Assert.IsFalse(held.IsValid);
        }

        [Test]
        public void OthersMayReadButNotOpenForWriting()
        {
            FileLock held = FileLock.LockFile(m_spec);
            using (var stream = new FileStream(m_path, FileMode.Open, FileAccess.Read, FileShare.ReadWrite))
                Assert.AreEqual('p', stream.ReadByte());
            Assert.Throws<IOException>(() => new FileStream(m_path, FileMode.Open, FileAccess.Write));
            Assert.Throws<IOException>(
                () => new FileStream(m_path, FileMode.Open, FileAccess.Write, FileShare.ReadWrite));
            FileLock second = FileLock.LockFile(m_spec);
            Assert.IsFalse(second.IsValid);
            Assert.IsTrue(FileLock.UnlockFile(held));
            FileLock third = FileLock.LockFile(m_spec);
            Assert.IsTrue(third.IsValid);
            FileLock.UnlockFile(third);
            new FileStream(m_path, FileMode.Open, FileAccess.Write).Dispose();
        }

        [Test]
        public void AFileThatIsOpenForWritingCannotBeLocked()
        {
            using (new FileStream(m_path, FileMode.Open, FileAccess.Write))
                Assert.IsFalse(FileLock.LockFile(m_spec).IsValid);
            using (new FileStream(m_path, FileMode.Open, FileAccess.Read, FileShare.Read))
                Assert.IsFalse(FileLock.LockFile(m_spec).IsValid, "somebody reads and wants nobody to write");
            using (new FileStream(m_path, FileMode.Open, FileAccess.Read, FileShare.ReadWrite))
                Assert.IsTrue(FileLock.UnlockFile(FileLock.LockFile(m_spec)));
        }

        [Test]
        public void AnotherProcessIsRefusedUntilTheLockEnds()
        {
            FileLock held = FileLock.LockFile(m_spec);
            Assert.AreEqual("refused", AnotherProcessLocks());
            FileLock.UnlockFile(held);
            Assert.AreEqual("locked", AnotherProcessLocks());
        }

        [Test]
        public void TheLockOfAnotherProcessIsRespectedUntilItEnds()
        {
            using (Process other =
                       Places.Start("Corvane.PrintTools.TestHost.exe", "lock \"" + m_spec.Hfs + "\""))
            {
                Assert.AreEqual("locked", other.StandardOutput.ReadLine());
                Assert.IsFalse(FileLock.LockFile(m_spec).IsValid);
                other.StandardInput.Close();
                other.WaitForExit();
            }
            FileLock held = FileLock.LockFile(m_spec);
            Assert.IsTrue(held.IsValid);
            FileLock.UnlockFile(held);
        }

        [Test]
        public void AProgramThatWasStartedMeanwhileKeepsNothing()
        {
            FileLock held = FileLock.LockFile(m_spec);
            // By the system's own means, which hand every descriptor on that is not marked.
            string identifier = Path.Combine(m_folder.Path, "process");
            Assert.AreEqual(0, Native.system("sleep 60 >/dev/null 2>&1 & echo $! >" + identifier));
            try
            {
                Assert.IsTrue(FileLock.UnlockFile(held));
                Assert.AreEqual("locked", AnotherProcessLocks());
            }
            finally
            {
                Process.GetProcessById(int.Parse(File.ReadAllText(identifier))).Kill();
            }
        }

        [MethodImpl(MethodImplOptions.NoInlining)]
        private FileLock[] LockSeveral(int count)
        {
            var locks = new FileLock[count];
            for (int i = 0; i < count; ++i)
                locks[i] = FileLock.LockFile(new FileSpec(Places.Hfs(m_folder.File("f" + i)), true));
            return locks;
        }

        private static void Collect()
        {
            for (int i = 0; i < 10; ++i)
            {
                GC.Collect();
                GC.WaitForPendingFinalizers();
            }
        }

        [Test]
        public void ACollectionDropsNoLockThatIsHeld()
        {
            // Several, because the collector may still see what was used last on the stack.
            FileLock[] locks = LockSeveral(50);
            Collect();
            foreach (FileLock held in locks)
            {
                Assert.IsFalse(FileLock.LockFile(held.FileSpec).IsValid, held.FileSpec.Hfs);
                new FileStream(m_path, FileMode.Open).Dispose();
            }
            m_spec = locks[20].FileSpec;
            Assert.AreEqual("refused", AnotherProcessLocks());
            foreach (FileLock held in locks) Assert.IsTrue(FileLock.UnlockFile(held));
        }

        [Test]
        public void EndingALockLeavesNoDescriptorOpen()
        {
            FileLock.UnlockFile(FileLock.LockFile(m_spec));
            int before = OpenDescriptors();
            for (int i = 0; i < 200; ++i) Assert.IsTrue(FileLock.UnlockFile(FileLock.LockFile(m_spec)));
            FileLock held = FileLock.LockFile(m_spec);
            for (int i = 0; i < 200; ++i) Assert.IsFalse(FileLock.LockFile(m_spec).IsValid);
            FileLock.UnlockFile(held);
            Assert.AreEqual(before, OpenDescriptors());
        }

        [Test]
        public void LocksThatNobodyHoldsEndByThemselves()
        {
            // A thread that has ended has no stack on which the collector could see them.
            var thread = new Thread(() => LockSeveral(50));
            thread.Start();
            thread.Join();
            Collect();
            int free = 0;
            for (int i = 0; i < 50; ++i)
            {
                FileLock held =
                    FileLock.LockFile(new FileSpec(Places.Hfs(Path.Combine(m_folder.Path, "f" + i)), true));
                if (!held.IsValid) continue;
                ++free;
                FileLock.UnlockFile(held);
            }
            Assert.AreEqual(50, free);
        }

        [Test]
        public void AFileIsNamedByDriveAsTheLibraryNamesIt()
        {
            Environment.SetEnvironmentVariable("CORVANE_DRIVE_P", m_folder.Path);
            try
            {
                FileLock held = FileLock.LockFile(new FileSpec("p:\\a \u00e4.plt", true));
                Assert.IsTrue(held.IsValid);
                Assert.IsFalse(FileLock.LockFile(m_spec).IsValid, "it is the same file");
                FileLock.UnlockFile(held);
            }
            finally
            {
                Environment.SetEnvironmentVariable("CORVANE_DRIVE_P", null);
            }
        }
    }
}
