// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// MakeResources TEXTS RESOURCES: turns lines "KEY = TEXT" (UTF-8; # begins a comment) into a resource file,
// as the compiler embeds it.
using System;
using System.IO;
using System.Resources;

internal static class MakeResources
{
    private static int Main(string[] args)
    {
        if (args.Length != 2)
        {
            Console.Error.WriteLine("usage: MakeResources TEXTS RESOURCES");
            return 2;
        }
        using (var writer = new ResourceWriter(args[1]))
        {
            foreach (string line in File.ReadAllLines(args[0]))
            {
                if (line.Length == 0 || line[0] == '#') continue;
                int equals = line.IndexOf(" = ", StringComparison.Ordinal);
                if (equals <= 0)
                {
                    Console.Error.WriteLine("{0}: not KEY = TEXT: {1}", args[0], line);
                    return 1;
                }
                writer.AddResource(line.Substring(0, equals), line.Substring(equals + 3));
            }
        }
        return 0;
    }
}
