// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The names of a file, as managed hosts hold them. Invariant: a name is null or a text that is not empty.
using System;

namespace Corvane.Print
{
    /// <summary>
    /// Names a file: as the user or the configuration gave it (UFS), as the operating system understands it
    /// (HFS), and in the document store (moniker); and says how it was obtained from there. A name that is
    /// not defined is null, never empty.
    /// </summary>
    /// <remarks>
    /// Setting the one name may clear or fill the other; see <see cref="Ufs"/> and <see cref="Hfs"/>.
    /// Equality ignores case and mode, but the hash is that of identity: do not use equal objects for one
    /// key.
    /// </remarks>
// KEEP(filespec-identity-hash): equal objects have different hashes. Looks wrong; hosts hold the very objects
// in tables while they change their names. Pinned by FileSpecTests.EqualObjectsKeepTheirOwnHashes.
#pragma warning disable 659
    [Serializable]
    public class FileSpec : MarshalByRefObject, ICloneable
#pragma warning restore 659
    {
        private string m_ufs;
        private string m_hfs;
        private string m_monikerString;
        private FileGetMode m_accessMode;

        /// <summary>A specification without any name.</summary>
        public FileSpec()
        {
        }

        /// <summary>A specification with a universal name.</summary>
        /// <param name="ufs">The name; null and empty are none.</param>
        public FileSpec(string ufs)
        {
            m_ufs = NullIfEmpty(ufs);
        }

        /// <summary>A specification with a universal name that may be the host name as well.</summary>
        /// <param name="ufs">The name; null and empty are none.</param>
        /// <param name="isHFS">Whether it is also the host name.</param>
        public FileSpec(string ufs, bool isHFS)
        {
            m_ufs = NullIfEmpty(ufs);
            if (isHFS) m_hfs = m_ufs;
        }

        /// <summary>A copy of a specification.</summary>
        /// <param name="sourceFspec">The specification; null is one without any name.</param>
        public FileSpec(FileSpec sourceFspec)
        {
            if (sourceFspec == null) return;
            m_ufs = sourceFspec.Ufs;
            m_hfs = sourceFspec.Hfs;
            m_monikerString = sourceFspec.MonikerString;
            m_accessMode = sourceFspec.AccessMode;
        }

        // KEEP(filespec-setters): a new universal name clears the other two, a new host name fills in a
        // missing universal one, and clearing the universal name leaves the moniker. Looks wrong; what a
        // document is does not change when its file is forgotten, and another file is another document.
        // Pinned by FileSpecTests.ANewUfsClearsHfsAndMoniker, FileSpecTests.ClearingTheUfsKeepsTheMoniker and
        // FileSpecTests.ANewHfsFillsInAMissingUfs.

        /// <summary>
        /// The universal name. Null or empty clears it and the host name, but not the moniker. Any other text
        /// clears the host name and the moniker.
        /// </summary>
        public string Ufs
        {
            get { return m_ufs; }
            set
            {
                m_ufs = NullIfEmpty(value);
                m_hfs = null;
                if (m_ufs != null) m_monikerString = null;
            }
        }

        /// <summary>
        /// The host name. Null or empty clears it alone. Any other text becomes the universal name as well
        /// where there is none.
        /// </summary>
        public string Hfs
        {
            get { return m_hfs; }
            set
            {
                m_hfs = NullIfEmpty(value);
                if (m_ufs == null) m_ufs = m_hfs;
            }
        }

        /// <summary>The name in the document store. Null or empty clears it.</summary>
        public string MonikerString
        {
            get { return m_monikerString; }
            set { m_monikerString = NullIfEmpty(value); }
        }

        /// <summary>How the file was obtained from the document store.</summary>
        public FileGetMode AccessMode
        {
            get { return m_accessMode; }
            set { m_accessMode = value; }
        }

        /// <summary>Whether there is a universal name.</summary>
        public bool IsDefinedUfs
        {
            get { return m_ufs != null; }
        }

        /// <summary>Whether there is a host name.</summary>
        public bool IsDefinedHfs
        {
            get { return m_hfs != null; }
        }

        /// <summary>Whether there is a moniker.</summary>
        public bool IsDefinedMonikerString
        {
            get { return m_monikerString != null; }
        }

        /// <summary>The host name where there is one, else the universal one.</summary>
        /// <returns>The name, or null when there is neither.</returns>
        public string GetHfsOrUfs()
        {
            return m_hfs ?? m_ufs;
        }

        /// <summary>
        /// Compares the three names without regard to case, by the rules of the current culture. The mode is
        /// not compared. A <see cref="FolderSpec"/> never equals a <see cref="FileSpec"/>.
        /// </summary>
        /// <param name="obj">The other object; may be null.</param>
        /// <returns>Whether it has the same type and the same names.</returns>
        public override bool Equals(object obj)
        {
            if (obj == null || obj.GetType() != GetType()) return false;
            var other = (FileSpec)obj;
            return string.Compare(Ufs, other.Ufs, true) == 0 && string.Compare(Hfs, other.Hfs, true) == 0 &&
                   string.Compare(MonikerString, other.MonikerString, true) == 0;
        }

        /// <summary>A copy of the same type, member by member.</summary>
        /// <returns>The copy.</returns>
        public object Clone()
        {
            return MemberwiseClone();
        }

        /// <summary>The universal name.</summary>
        /// <returns>The name, which may be null.</returns>
        public override string ToString()
        {
            return Ufs;
        }

        /// <summary>Copies a specification into a native one. Texts go over whole, with whatever is in
        /// them.</summary>
        /// <param name="source">The specification; null clears the native one.</param>
        /// <param name="dest">The native specification.</param>
        /// <exception cref="ArgumentNullException"><paramref name="dest"/> is null.</exception>
        /// <exception cref="OutOfMemoryException">
        /// There is no memory for a text; the texts before it have been copied.
        /// </exception>
        public static unsafe void ConvertFileSpecToNative(FileSpec source, NativeFileSpec* dest)
        {
            Ensure.NotNull(dest, "dest");
            if (source == null)
            {
                NativeMethods.NativeFileSpec_clear(dest);
                return;
            }
            SetText(dest, NativeMethods.UfsText, source.Ufs);
            SetText(dest, NativeMethods.HfsText, source.Hfs);
            SetText(dest, NativeMethods.MonikerText, source.MonikerString);
            NativeMethods.NativeFileSpec_setAccessMode(dest, (int)source.AccessMode);
        }

        /// <summary>Makes a specification from a native one.</summary>
        /// <param name="source">The native specification.</param>
        /// <returns>The specification, or null when the native one has no universal name, whatever else it
        /// has.</returns>
        /// <exception cref="ArgumentNullException"><paramref name="source"/> is null.</exception>
        public static unsafe FileSpec ConvertNativeToFileSpec(NativeFileSpec* source)
        {
            Ensure.NotNull(source, "source");
            // KEEP(native-without-ufs): a native specification with nothing but a host name is no file. Looks
            // wrong; native callers say "none" by clearing the universal name, and what else is left there is
            // old. Pinned by NativeFileSpecTests.ANativeOneWithoutUfsIsNothing.
            string ufs = GetText(source, NativeMethods.UfsText);
            if (ufs == null) return null;
            string hfs = GetText(source, NativeMethods.HfsText);
            string moniker = GetText(source, NativeMethods.MonikerText);
            var spec = new FileSpec(ufs);
            if (hfs != null) spec.Hfs = hfs;
            if (moniker != null) spec.MonikerString = moniker;
            spec.AccessMode = (FileGetMode)NativeMethods.NativeFileSpec_accessMode(source);
            return spec;
        }

        // Null clears.
        private static unsafe void SetText(NativeFileSpec* spec, int which, string text)
        {
            fixed (char* pinned = text)
            {
                int length = text != null ? text.Length : 0;
                int status = NativeMethods.NativeFileSpec_setText(spec, which, pinned, length);
                if (status != NativeMethods.NativeFileSpecOk) throw new OutOfMemoryException();
            }
        }

        // Null for an empty text.
        private static unsafe string GetText(NativeFileSpec* spec, int which)
        {
            int length;
            char* text = NativeMethods.NativeFileSpec_text(spec, which, &length);
            return length != 0 ? new string(text, 0, length) : null;
        }

        private static string NullIfEmpty(string text)
        {
            return string.IsNullOrEmpty(text) ? null : text;
        }
    }
}
