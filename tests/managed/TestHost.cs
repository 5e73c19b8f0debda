// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// A host that the tests run as a process of its own.
//     lock HFS     says "locked" or "refused", and ends, with the lock, when its input does
//     policy       says what leaves each method that checks an argument
//     loggers      writes one entry by each method of PrintLogger
//     messages     writes one debug message of each kind
using System;
using System.Collections.Generic;
using Corvane.Print;
using Corvane.Print.Tests;

internal static class TestHost
{
    private static int Main(string[] args)
    {
        switch (args[0])
        {
            case "lock": return Lock(args[1]);
            case "policy": return Policy();
            case "loggers": return Loggers();
            case "messages": return Messages();
            default: return 2;
        }
    }

    private static int Lock(string hfs)
    {
        FileLock held = FileLock.LockFile(new FileSpec(hfs, true));
        Console.WriteLine(FileLock.IsNullOrInvalid(held) ? "refused" : "locked");
        Console.In.ReadToEnd();
        GC.KeepAlive(held);
        return 0;
    }

    private static int Policy()
    {
        foreach (KeyValuePair<string, Action> call in FUToolsTests.NullCalls())
        {
            try
            {
                call.Value();
                Console.WriteLine("nothing");
            }
            catch (Exception error)
            {
                Console.WriteLine(error.Message);
            }
        }
        return 0;
    }

    private static int Loggers()
    {
        PrintLogger.Error("{0}", new object[] { 1 });
        PrintLogger.Info("{0}", new object[] { 2 });
        PrintLogger.Trace("{0}", new object[] { 3 });
        PrintLogger.PublicAPITrace("{0}", new object[] { 4 });
        return 0;
    }

    private static int Messages()
    {
        var args = new object[] { "%d %s" };
        KVL.Message("{0}", args);
        KVL.Error("{0}", args);
        KVL.Attention("{0}", args);
        KVL.Highlight("{0}", args);
        Console.WriteLine("said");
        return 0;
    }
}
