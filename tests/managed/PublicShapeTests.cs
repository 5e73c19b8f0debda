// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The public shape of the assembly, compared with a table: what hosts were compiled against must stay. The
// order is that of the source, where it matters to anybody: members of interfaces, fields, enumerations.
using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Reflection;
using NUnit.Framework;

namespace Corvane.Print.Tests
{
    [TestFixture]
    public class PublicShapeTests
    {
        private const BindingFlags Declared = BindingFlags.DeclaredOnly | BindingFlags.Instance |
                                              BindingFlags.Static | BindingFlags.Public |
                                              BindingFlags.NonPublic;

        private static readonly Dictionary<Type, string> s_words =
            new Dictionary<Type, string> { { typeof(void), "void" },     { typeof(string), "string" },
                                           { typeof(bool), "bool" },     { typeof(int), "int" },
                                           { typeof(short), "short" },   { typeof(uint), "uint" },
                                           { typeof(object), "object" }, { typeof(object[]), "object[]" } };

        private static string Name(Type type)
        {
            string word;
            if (type.IsByRef) return Name(type.GetElementType());
            return s_words.TryGetValue(type, out word) ? word : type.Name;
        }

        private static string Parameters(MethodBase method)
        {
            return "(" + string.Join(", ", method.GetParameters().Select(
                p => (p.IsOut ? "out " : p.ParameterType.IsByRef ? "ref " : "") +
                     (p.IsDefined(typeof(ParamArrayAttribute), false) ? "params " : "") +
                     Name(p.ParameterType) + " " + p.Name)) + ")";
        }

        private static string Kind(Type type)
        {
            if (type.IsEnum) return "enum : " + Name(Enum.GetUnderlyingType(type));
            if (type.IsInterface) return "interface";
            if (type.IsValueType) return "struct";
            if (typeof(Delegate).IsAssignableFrom(type)) return "delegate : " + Name(type.BaseType);
            string words = type.IsAbstract && type.IsSealed ? "static class"
                           : type.IsAbstract                ? "abstract class"
                           : type.IsSealed                  ? "sealed class"
                                                            : "class";
            if (type.IsSerializable) words = "serializable " + words;
            IEnumerable<Type> inherited = type.BaseType.GetInterfaces();
            return words + " : " + string.Join(", ", new[] { Name(type.BaseType) }.Concat(
                type.GetInterfaces().Except(inherited).Select(Name)));
        }

        private static bool IsSeen(MethodBase method)
        {
            return method != null && (method.IsPublic || method.IsFamily || method.IsFamilyOrAssembly);
        }

        private static string Modifiers(MethodBase method)
        {
            string words = method.IsPublic ? "" : "protected ";
            if (method.IsStatic) return words + "static ";
            if (!method.IsVirtual || method.DeclaringType.IsInterface) return words;
            bool overrides = ((MethodInfo)method).GetBaseDefinition() != method;
            return words + (overrides ? "override " : method.IsFinal ? "final " : "virtual ");
        }

        private static string Property(PropertyInfo property)
        {
            MethodInfo get = property.GetGetMethod(true), set = property.GetSetMethod(true);
            return Modifiers(get) + Name(property.PropertyType) + " " + property.Name + " { get;" +
                   (IsSeen(set) ? " set;" : "") + " }";
        }

        private static string Field(FieldInfo field)
        {
            return (field.IsPublic ? "" : "private ") + (field.IsStatic ? "static " : "") +
                   (field.IsInitOnly ? "readonly " : "") + Name(field.FieldType) + " " + field.Name;
        }

        // The fields of classes with state, private ones too: they are serialized in this order.
        private static IEnumerable<string> Members(Type type)
        {
            if (type.IsEnum)
                return Enum.GetValues(type).Cast<object>().Select(v => v + " = " + (int)v);
            if (typeof(Delegate).IsAssignableFrom(type))
            {
                MethodInfo invoke = type.GetMethod("Invoke");
                return new[] { Name(invoke.ReturnType) + " Invoke" + Parameters(invoke) };
            }
            var lines = new List<string>();
            lines.AddRange(type.GetFields(Declared).OrderBy(f => f.MetadataToken)
                               .Where(f => !f.Name.Contains("<")).Select(Field));
            if (type.TypeInitializer != null && !type.Attributes.HasFlag(TypeAttributes.BeforeFieldInit))
                lines.Add("static constructor");
            lines.AddRange(type.GetConstructors(Declared)
                               .Where(c => !c.IsStatic)
                               .OrderBy(c => c.MetadataToken)
                               .Where(IsSeen)
                               .Select(c => Modifiers(c) + type.Name + Parameters(c)));
            lines.AddRange(type.GetProperties(Declared).OrderBy(p => p.MetadataToken)
                               .Where(p => IsSeen(p.GetGetMethod(true))).Select(Property));
            lines.AddRange(
                type.GetMethods(Declared)
                    .OrderBy(m => m.MetadataToken)
                    .Where(m => IsSeen(m) && !m.IsSpecialName)
                    .Select(m => Modifiers(m) + Name(m.ReturnType) + " " + m.Name + Parameters(m)));
            lines.AddRange(type.GetEvents(Declared).Select(e => "event " + e.Name));
            lines.AddRange(type.GetNestedTypes(BindingFlags.Public | BindingFlags.NonPublic)
                               .Where(t => t.IsNestedPublic || t.IsNestedFamily)
                               .Select(t => "nested " + t.Name));
            return lines;
        }

        private static List<string> Shape()
        {
            var lines = new List<string>();
            Assembly assembly = typeof(FileSpec).Assembly;
            foreach (Type type in assembly.GetExportedTypes().OrderBy(t => t.FullName,
                                  StringComparer.Ordinal))
            {
                lines.Add(type.FullName + " is " + Kind(type));
                lines.AddRange(Members(type).Select(line => "  " + line));
            }
            return lines;
        }

        private static string[] Table()
        {
            using (var stream = Assembly.GetExecutingAssembly().GetManifestResourceStream("PublicShape.txt"))
            using (var reader = new StreamReader(stream))
            {
                return reader.ReadToEnd().Split(new[] { '\n' }, StringSplitOptions.RemoveEmptyEntries)
                             .Where(line => line[0] != '#').ToArray();
            }
        }

        [Test]
        public void IsThatOfTheTable()
        {
            string[] expected = Table();
            List<string> found = Shape();
            CollectionAssert.IsEmpty(expected.Except(found), "missing");
            CollectionAssert.IsEmpty(found.Except(expected), "not in the table");
            CollectionAssert.AreEqual(expected, found);
        }

        [Test]
        public void TheAssemblyRunsOnAnyProcessor()
        {
            PortableExecutableKinds kinds;
            ImageFileMachine machine;
            typeof(FileSpec).Module.GetPEKind(out kinds, out machine);
            Assert.AreEqual(PortableExecutableKinds.ILOnly, kinds);
            Assert.AreEqual(ImageFileMachine.I386, machine);
            Assert.AreEqual("Corvane.PrintTools", typeof(FileSpec).Assembly.GetName().Name);
        }

        [Test]
        public void TheHostsAssembliesAreReferredToByTheirNames()
        {
            var names = typeof(FileSpec).Assembly.GetReferencedAssemblies().Select(a => a.Name).ToList();
            foreach (string name in new[] { "Corvane.Fabric.2.0", "Corvane.logging-2.0",
                                            "Corvane.Exceptions" })
                CollectionAssert.Contains(names, name);
        }

        [Test]
        public void EveryPublicMemberIsDocumented()
        {
            string text = File.ReadAllText(Path.Combine(Places.Managed, "Corvane.PrintTools.xml"));
            var documented = new HashSet<string>(
                System.Text.RegularExpressions.Regex.Matches(text, "member name=\"([^\"(]*)")
                    .Cast<System.Text.RegularExpressions.Match>().Select(m => m.Groups[1].Value));
            foreach (Type type in typeof(FileSpec).Assembly.GetExportedTypes())
            {
                CollectionAssert.Contains(documented, "T:" + type.FullName);
                if (typeof(Delegate).IsAssignableFrom(type)) continue;
                foreach (PropertyInfo p in type.GetProperties(Declared))
                    CollectionAssert.Contains(documented, "P:" + type.FullName + "." + p.Name);
                foreach (MethodInfo m in type.GetMethods(Declared).Where(m => m.IsPublic && !m.IsSpecialName))
                    CollectionAssert.Contains(documented, "M:" + type.FullName + "." + m.Name);
            }
        }
    }
}
