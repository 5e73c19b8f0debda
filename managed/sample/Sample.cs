// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A console host: answers configuration lookups from a dictionary, finds a file along a search list, locks
// it, shows that nobody else gets it, and says what happened in the language of the user.
//
//     mono Corvane.PrintTools.Sample.exe a1.plt "Z:\plots;Z:\archive\plots"
//
// The second argument is the value of the variable SAMPLE_PLOTS. Ends with 0 when the file was found and
// locked.
using System;
using System.Collections.Generic;
using System.Text;
using Corvane.Print;

internal static class Sample
{
    private static readonly Dictionary<string, string> s_variables = new Dictionary<string, string>();

    private static int Main(string[] args)
    {
        if (args.Length != 2)
        {
            Console.Error.WriteLine("usage: Corvane.PrintTools.Sample FILE DIRECTORIES");
            return 2;
        }
        Console.OutputEncoding = new UTF8Encoding(false);
        s_variables["SAMPLE_PLOTS"] = args[1];
        PrintTools.OnExpandConfigVariable = Lookup;
        PrintTools.EnableOnExpandConfigVariable(true);
        try
        {
            return Run(args[0]);
        }
        finally
        {
            PrintTools.EnableOnExpandConfigVariable(false);
        }
    }

    private static int Run(string name)
    {
        // A logical specification: the device is a variable, whose value is a list of directories.
        string hfs = FUTools.SearchUfs("SAMPLE_PLOTS:" + name, null, "plt", null);
        if (hfs == null)
        {
            string path = PrintTools.CFGetenv("SAMPLE_PLOTS");
            return Tell(PrintTools.BuildErrorMessage("CantFindFileInPath", new object[] { name, path }));
        }
        Console.WriteLine(hfs);
        FileLock held = FileLock.LockFile(new FileSpec(hfs, true));
        if (FileLock.IsNullOrInvalid(held))
            return Tell(PrintTools.BuildErrorMessage("FileWriteError", new object[] { hfs }));
        Console.WriteLine("locked");
        // Whoever wants it meanwhile is told so.
        if (FileLock.IsNullOrInvalid(FileLock.LockFile(new FileSpec(hfs, true))))
            Tell(PrintTools.BuildInformationMessage("FileWriteError", new object[] { hfs }));
        return FileLock.UnlockFile(held) ? 0 : 1;
    }

    private static int Tell(IUserMessage message)
    {
        Console.WriteLine("{0}: {1}", message.Severity, message.Text);
        return 1;
    }

    private static string Lookup(string variableName)
    {
        string value;
        return s_variables.TryGetValue(variableName, out value) ? value : null;
    }
}
