// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The five components of a specification, and what is full.
#include <gtest/gtest.h>

#include <vector>

#include "corvane/print/fu.h"
#include "tests/filespec/spec_models.h"
#include "tests/filespec/spec_support.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using Parts = SpecModel::Parts;
using Five = std::vector<std::string>;  // dev, dir, name, ext, ver

Parts parse_wide(const WideText& ufs) {
  Guarded<CPWChar> dev(FU_WIDE), dir(FU_WIDE), name(FU_WIDE), ext(FU_WIDE), ver(FU_WIDE);
  EXPECT_EQ(FUParseUFSW(ufs.c_str(), dev.data(), dir.data(), name.data(), ext.data(), ver.data()), FU_OK);
  for (const auto* out : {&dev, &dir, &name, &ext, &ver}) EXPECT_TRUE(out->intact());
  return {dev.data(), dir.data(), name.data(), ext.data(), ver.data()};
}

Five parsed(const std::string& ufs) {
  const Parts parts = parse_wide(w(ufs));
  return {plain(parts.dev), plain(parts.dir), plain(parts.name), plain(parts.ext), plain(parts.ver)};
}

Five parse_narrow(const std::string& ufs) {
  Guarded<char> dev(FU_NARROW), dir(FU_NARROW), name(FU_NARROW), ext(FU_NARROW), ver(FU_NARROW);
  EXPECT_EQ(FUParseUFS(ufs.c_str(), dev.data(), dir.data(), name.data(), ext.data(), ver.data()), FU_OK);
  for (const auto* out : {&dev, &dir, &name, &ext, &ver}) EXPECT_TRUE(out->intact());
  return {dev.data(), dir.data(), name.data(), ext.data(), ver.data()};
}

int full_hfs(const char* hfs) {
  EXPECT_EQ(FUIsFullHFS(hfs), FUIsFullHFSW(w(hfs).c_str())) << hfs;
  return FUIsFullHFSW(w(hfs).c_str());
}

int full_lfs(const char* lfs) {
  EXPECT_EQ(FUIsFullLFS(lfs), FUIsFullLFSW(w(lfs).c_str())) << lfs;
  return FUIsFullLFSW(w(lfs).c_str());
}

}  // namespace

TEST(ParseUfs, SplitsASpecificationIntoItsFiveComponents) {
  EXPECT_EQ(parsed("C:\\data\\plot.pen;2"), (Five{"C", "\\data", "plot", "pen", "2"}));
  EXPECT_EQ(parsed("\\\\srv\\share\\f"), (Five{"", "\\\\srv\\share", "f", "", ""}));
  EXPECT_EQ(parsed("CFGDIR:f.txt"), (Five{"CFGDIR", "", "f", "txt", ""}));
  EXPECT_EQ(parsed(""), (Five{"", "", "", "", ""}));
  EXPECT_EQ(parsed("name"), (Five{"", "", "name", "", ""}));
}

TEST(ParseUfs, OnlyTheLastSemicolonStartsTheVersion) {
  EXPECT_EQ(parsed("a;b;c"), (Five{"", "", "a;b", "", "c"}));
  EXPECT_EQ(parsed("a;"), (Five{"", "", "a", "", ""}));
  EXPECT_EQ(parsed(";2"), (Five{"", "", "", "", "2"}));
  EXPECT_EQ(parsed("a;b\\c:d"), (Five{"", "", "a", "", "b\\c:d"}));
}

TEST(ParseUfs, OnlyTheFirstColonEndsTheDevice) {
  EXPECT_EQ(parsed("a:b:c"), (Five{"a", "", "b:c", "", ""}));
  EXPECT_EQ(parsed(":f"), (Five{"", "", "f", "", ""}));
  EXPECT_EQ(parsed("a\\b:f"), (Five{"a\\b", "", "f", "", ""}));
}

TEST(ParseUfs, SlashesOfADirectoryBecomeBackslashes) {
  EXPECT_EQ(parsed("C:/a/b/f.txt"), (Five{"C", "\\a\\b", "f", "txt", ""}));
  EXPECT_EQ(parsed("a/b\\c/f"), (Five{"", "a\\b\\c", "f", "", ""}));
  EXPECT_EQ(parsed("a/"), (Five{"", "a", "", "", ""}));
  EXPECT_EQ(parsed("//srv/f"), (Five{"", "\\\\srv", "f", "", ""}));
}

TEST(ParseUfs, ARootKeepsItsSeparatorAsTyped) {
  EXPECT_EQ(parsed("C:\\f.txt"), (Five{"C", "\\", "f", "txt", ""}));
  EXPECT_EQ(parsed("C:/f.txt"), (Five{"C", "/", "f", "txt", ""}));
  EXPECT_EQ(parsed("/"), (Five{"", "/", "", "", ""}));
  EXPECT_EQ(parsed("\\\\f"), (Five{"", "\\", "f", "", ""}));
  EXPECT_EQ(parsed("//f"), (Five{"", "\\", "f", "", ""}));
}

TEST(ParseUfs, ABracketedDirectoryKeepsItsBrackets) {
  EXPECT_EQ(parsed("DEV:[a.b]f.txt;1"), (Five{"DEV", "[a.b]", "f", "txt", "1"}));
  EXPECT_EQ(parsed("x/[a.b]f"), (Five{"", "x/[a.b]", "f", "", ""}));
  EXPECT_EQ(parsed("[a]b\\f"), (Five{"", "[a]b", "f", "", ""}));
  EXPECT_EQ(parsed("]"), (Five{"", "]", "", "", ""}));
}

TEST(ParseUfs, DotsAtTheEndsBelongToNameOrExtension) {
  EXPECT_EQ(parsed("name."), (Five{"", "", "name", ".", ""}));
  EXPECT_EQ(parsed("."), (Five{"", "", "", ".", ""}));
  EXPECT_EQ(parsed(".."), (Five{"", "", ".", ".", ""}));
  EXPECT_EQ(parsed(".cfg"), (Five{"", "", ".cfg", "", ""}));
  EXPECT_EQ(parsed("a\\.cfg"), (Five{"", "a", ".cfg", "", ""}));
  EXPECT_EQ(parsed("a.b.c"), (Five{"", "", "a.b", "c", ""}));
  EXPECT_EQ(parsed("..c"), (Five{"", "", ".", "c", ""}));
  EXPECT_EQ(parsed("a.b\\c"), (Five{"", "a.b", "c", "", ""}));
}

TEST(ParseUfs, TextBehindThe255thCharacterIsNotSeen) {
  for (const int length : {253, 254, 255, 256, 257, 511, 5000}) {
    const std::string text(static_cast<std::size_t>(length), 'n');
    EXPECT_EQ(parsed(text), (Five{"", "", text.substr(0, 255), "", ""})) << length;
    const std::string extended = text + ".ext;2";
    const Five expected = length == 253   ? Five{"", "", text, "e", ""}
                          : length == 254 ? Five{"", "", text, ".", ""}
                                          : Five{"", "", text.substr(0, 255), "", ""};
    EXPECT_EQ(parsed(extended), expected) << length;
  }
}

TEST(ParseUfs, NullOutputsAreSkipped) {
  EXPECT_EQ(FUParseUFSW(w("C:\\a\\f.e;1").c_str(), nullptr, nullptr, nullptr, nullptr, nullptr), FU_OK);
  EXPECT_EQ(FUParseUFS("C:\\a\\f.e;1", nullptr, nullptr, nullptr, nullptr, nullptr), FU_OK);
  CPWChar dir[FU_WIDE], ext[FU_WIDE];
  FUParseUFSW(w("C:\\a\\f.e;1").c_str(), nullptr, dir, nullptr, ext, nullptr);
  EXPECT_EQ(plain(dir), "\\a");
  EXPECT_EQ(plain(ext), "e");
  char name[FU_NARROW];
  FUParseUFS("C:\\a\\f.e;1", nullptr, nullptr, name, nullptr, nullptr);
  EXPECT_STREQ(name, "f");
}

TEST(ParseUfs, ANullSpecificationIsAnEmptyOne) {
  CPWChar name[FU_WIDE] = {'x', 0};
  EXPECT_EQ(FUParseUFSW(nullptr, nullptr, nullptr, name, nullptr, nullptr), FU_OK);
  EXPECT_EQ(plain(name), "");
  char narrow_name[FU_NARROW] = "x";
  EXPECT_EQ(FUParseUFS(nullptr, nullptr, nullptr, narrow_name, nullptr, nullptr), FU_OK);
  EXPECT_STREQ(narrow_name, "");
  EXPECT_EQ(FUIsFullHFSW(nullptr) + FUIsFullHFS(nullptr) + FUIsFullLFSW(nullptr) + FUIsFullLFS(nullptr), 0);
}

TEST(ParseUfs, AnOutputMayBeTheSpecification) {
  CPWChar text[FU_WIDE], dir[FU_WIDE];
  std::copy_n(w("C:\\a\\f.e").c_str(), 9, text);
  FUParseUFSW(text, nullptr, dir, text, nullptr, nullptr);
  EXPECT_EQ(plain(dir), "\\a");
  EXPECT_EQ(plain(text), "f");
}

TEST(ParseUfs, NarrowFormSplitsTheSame) {
  EXPECT_EQ(parse_narrow("C:/data/plot.pen;2"), (Five{"C", "\\data", "plot", "pen", "2"}));
  EXPECT_EQ(parse_narrow(narrow(U"\u00E9\\\u00E8.\u00DF")),
            (Five{"", narrow(U"\u00E9"), narrow(U"\u00E8"), narrow(U"\u00DF"), ""}));
}

TEST(IsFullHfs, ADeviceNeedsARootAndNoDeviceNeedsANetworkRoot) {
  for (const char* full : {"C:\\f", "C:\\", "C:\\a\\f", "DEV:\\f", "C:/a/f.txt", "\\\\srv\\f", "//srv/f"})
    EXPECT_EQ(full_hfs(full), 1) << full;
  for (const char* partial : {"", "f", "\\f", "\\a\\f", "a\\f", "C:", "C:f", "C:a\\f", ":\\f", "\\\\f"})
    EXPECT_EQ(full_hfs(partial), 0) << partial;
}

TEST(IsFullHfs, ARootGivenWithASlashIsNotFull) {
  EXPECT_EQ(full_hfs("C:/f.txt"), 0);
  EXPECT_EQ(full_hfs("C:/a/f.txt"), 1);
}

TEST(IsFullLfs, AFullHostPathIsFull) {
  const ScopedVariables variables({});
  EXPECT_EQ(full_lfs("C:\\f"), 1);
  EXPECT_EQ(full_lfs("\\\\srv\\share\\f"), 1);
}

TEST(IsFullLfs, TheNameOfADefinedVariableIsFull) {
  const ScopedVariables variables({{"PLOTCFG", "anything"}});
  EXPECT_EQ(full_lfs("PLOTCFG"), 1);
  EXPECT_EQ(full_lfs("OTHER"), 0);
  EXPECT_EQ(full_lfs(""), 0);
}

TEST(IsFullLfs, ALogicalDeviceWithANameIsFull) {
  const ScopedVariables variables({});
  EXPECT_EQ(full_lfs("CFGDIR:f.txt"), 1);
  EXPECT_EQ(full_lfs("CFGDIR:a\\f"), 1);
  EXPECT_EQ(full_lfs("CFGDIR:a\\"), 0);
  EXPECT_EQ(full_lfs("CFGDIR:.txt"), 1);
  EXPECT_EQ(full_lfs("C:f.txt"), 0);
}

TEST(IsFullLfs, AOneLetterDeviceThatIsAVariableIsALogicalOne) {
  const ScopedVariables variables({{"X", "C:\\x"}});
  EXPECT_EQ(full_lfs("X:f"), 1);
  EXPECT_EQ(full_lfs("Y:f"), 0);
}

TEST(ParseUfs, NeitherParsingNorTheFullTestUsesTheHeap) {
  const WideText text = w("C:/data/plot.pen;2") + WideText(5000, 'x');
  const std::string ascii(5000, 'x');
  CPWChar out[FU_WIDE];
  char narrow_out[FU_NARROW];
  HeapWatch heap;
  FUParseUFSW(text.c_str(), out, out, out, out, out);
  FUParseUFS(ascii.c_str(), narrow_out, narrow_out, narrow_out, narrow_out, narrow_out);
  FUIsFullHFSW(text.c_str());
  FUIsFullHFS(ascii.c_str());
  EXPECT_EQ(heap.requests(), 0);
}

TEST(ParseUfs, RandomSpecificationsAreSplitAsByASecondImplementation) {
  SpecModel model;
  const ScopedVariables scope((Variables()));
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF002, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const WideText spec = wide(specs.spec());
    model.variables = specs.variables();
    ScopedVariables::set(model.variables);
    ASSERT_EQ(parse_wide(spec), SpecModel::parse(spec)) << plain(spec);
    ASSERT_EQ(FUIsFullHFSW(spec.c_str()), SpecModel::is_full_hfs(spec)) << plain(spec);
    ASSERT_EQ(FUIsFullLFSW(spec.c_str()), model.is_full_lfs(spec)) << plain(spec);
  }
}

TEST(ParseUfs, RandomNarrowSpecificationsAreSplitAsWideOnes) {
  const ScopedVariables scope((Variables()));
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF003, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const std::string spec = narrow(specs.spec());
    ScopedVariables::set(specs.variables());
    const WideText as_wide = widened(spec);
    const Parts parts = parse_wide(as_wide);
    ASSERT_EQ(parse_narrow(spec), (Five{narrowed(parts.dev), narrowed(parts.dir), narrowed(parts.name),
                                        narrowed(parts.ext), narrowed(parts.ver)}))
        << spec;
    ASSERT_EQ(FUIsFullHFS(spec.c_str()), FUIsFullHFSW(as_wide.c_str())) << spec;
    ASSERT_EQ(FUIsFullLFS(spec.c_str()), FUIsFullLFSW(as_wide.c_str())) << spec;
  }
}

}  // namespace Corvane::Print::tests
