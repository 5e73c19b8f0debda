// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Where things are during a test run, and programs that are run by it.
using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.IO;

namespace Corvane.Print.Tests
{
    internal static class Places
    {
        // The folder managed/ of the build.
        internal static string Managed
        {
            get { return Required("CORVANE_TEST_MANAGED"); }
        }

        internal static string Required(string variable)
        {
            string value = Environment.GetEnvironmentVariable(variable);
            if (string.IsNullOrEmpty(value)) throw new InvalidOperationException(variable + " is not set");
            return value;
        }

        // The host specification of an absolute path.
        internal static string Hfs(string path)
        {
            return "Z:" + path.Replace('/', '\\');
        }

        // Starts one of our programs. `variables` come in pairs; null removes one.
        internal static Process Start(string program, string arguments, params string[] variables)
        {
            var info =
                new ProcessStartInfo("mono", "\"" + Path.Combine(Managed, program) + "\" " + arguments);
            info.UseShellExecute = false;
            info.RedirectStandardInput = true;
            info.RedirectStandardOutput = true;
            for (int i = 0; i + 1 < variables.Length; i += 2)
            {
                if (variables[i + 1] == null)
                    info.EnvironmentVariables.Remove(variables[i]);
                else
                    info.EnvironmentVariables[variables[i]] = variables[i + 1];
            }
            return Process.Start(info);
        }

        // Its lines, and behind them "status N".
        internal static List<string> Run(string program, string arguments, params string[] variables)
        {
            using (Process process = Start(program, arguments, variables))
            {
                process.StandardInput.Close();
                var lines = new List<string>();
                string line;
                while ((line = process.StandardOutput.ReadLine()) != null) lines.Add(line);
                process.WaitForExit();
                lines.Add("status " + process.ExitCode);
                return lines;
            }
        }
    }

    // A folder of its own for a test, removed with everything in it.
    internal sealed class ScratchFolder : IDisposable
    {
        internal readonly string Path;

        internal ScratchFolder()
        {
            Path = System.IO.Path.Combine(System.IO.Path.GetTempPath(),
                                          "corvane-" + Guid.NewGuid().ToString("N"));
            Directory.CreateDirectory(Path);
        }

        internal string Hfs
        {
            get { return Places.Hfs(Path); }
        }

        // Makes a file and returns its path.
        internal string File(string name)
        {
            string path = System.IO.Path.Combine(Path, name);
            System.IO.File.WriteAllText(path, "plot");
            return path;
        }

        public void Dispose()
        {
            Directory.Delete(Path, true);
        }
    }
}
