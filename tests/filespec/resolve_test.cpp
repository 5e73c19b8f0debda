// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// From logical specifications to host ones, and from partial host paths to full ones.
#include <gtest/gtest.h>

#include "corvane/print/fu.h"
#include "filespec/spec.h"
#include "tests/filespec/spec_models.h"
#include "tests/filespec/spec_support.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using Parts = SpecModel::Parts;

WideText run(int length, char c = 'n') {
  return WideText(static_cast<std::size_t>(length), static_cast<CPWChar>(c));
}

Answer translated(const WideText& lfs) {
  return answer([&lfs](CPWChar* out) { return filespec::FUTranslateLFSW(lfs.c_str(), out); });
}
Answer translated(const char* lfs) {
  return translated(w(lfs));
}

std::pair<int, WideText> create_wide(const WideText& lfs, const Parts& d) {
  return wide_answer([&](CPWChar* out) {
    return FUFindCreateHFSW(lfs.c_str(), d.dev.c_str(), d.dir.c_str(), d.ext.c_str(), d.ver.c_str(), out);
  });
}

// Both forms.
Answer created(const char* lfs, const char* dev, const char* dir, const char* ext, const char* ver) {
  const auto [status, text] = create_wide(w(lfs), {w(dev), w(dir), {}, w(ext), w(ver)});
  EXPECT_EQ(narrow_answer([&](char* out) { return FUFindCreateHFS(lfs, dev, dir, ext, ver, out); }),
            Answer(status, plain(text)));
  return {status, plain(text)};
}

std::pair<int, WideText> full_wide(const WideText& partial) {
  return wide_answer([&partial](CPWChar* out) { return FUFindFullHFSW(partial.c_str(), out); });
}

Answer made_full(const std::string& partial) {
  const auto [status, text] = full_wide(w(partial));
  EXPECT_EQ(narrow_answer([&](char* out) { return FUFindFullHFS(partial.c_str(), out); }),
            Answer(status, plain(text)));
  return {status, plain(text)};
}

// With the current directory given by the variable.
Answer made_full(const std::string& pwd, const std::string& partial) {
  const ScopedVariables variables({{"PWD", pwd.c_str()}});
  return made_full(partial);
}

std::string levels(int count) {
  std::string path;
  while (count-- > 0) path += "a\\";
  return path;
}

}  // namespace

TEST(Translate, ADefinedVariableIsReplacedByItsWholeValue) {
  const ScopedVariables variables({{"PLOTDIR", "C:\\a;C:\\b"}, {"A:b", "odd"}});
  EXPECT_EQ(translated("PLOTDIR"), Answer(FU_OK, "C:\\a;C:\\b"));
  EXPECT_EQ(translated("A:b"), Answer(FU_OK, "odd"));
}

TEST(Translate, WithoutALogicalDeviceTheTextStaysAsItIs) {
  const ScopedVariables variables({});
  for (const char* text : {"", "f", "C:f", "C:/a\\f.txt;2", "\\\\srv\\f", ":f"})
    EXPECT_EQ(translated(text), Answer(FU_OK, text));
}

TEST(Translate, AnUndefinedLogicalDeviceGivesNoDeviceAndAnEmptyText) {
  const ScopedVariables variables({});
  EXPECT_EQ(translated("NODEV:f"), Answer(FU_NO_DEVICE, ""));
}

TEST(Translate, OnlyTheFirstEntryOfADevicesListIsUsed) {
  const ScopedVariables variables({{"LIST", "C:\\a;C:\\b"}, {"ONE", "D:/x/y/"}});
  EXPECT_EQ(translated("LIST:f.txt;3"), Answer(FU_OK, "C:\\a\\f.txt;3"));
  EXPECT_EQ(translated("ONE:f"), Answer(FU_OK, "D:\\x\\y\\f"));
}

TEST(Translate, TheDirectoryOfALogicalSpecificationIsDropped) {
  const ScopedVariables variables({{"DEV", "C:\\data"}, {"X", "\\\\srv\\share"}});
  EXPECT_EQ(translated("DEV:sub\\deep\\f.txt"), Answer(FU_OK, "C:\\data\\f.txt"));
  EXPECT_EQ(translated("X:sub\\f"), Answer(FU_OK, "\\\\srv\\share\\f"));
}

TEST(Translate, AValueThatStartsWithASemicolonHasAnEmptyFirstEntry) {
  const ScopedVariables variables({{"DEV", ";C:\\data"}});
  EXPECT_EQ(translated("DEV:sub\\f.txt"), Answer(FU_OK, "f.txt"));
}

TEST(Translate, ADriveAloneAsValueMeansItsRoot) {
  const ScopedVariables variables({{"DEV", "D:"}, {"REL", "sub"}});
  EXPECT_EQ(translated("DEV:f"), Answer(FU_OK, "D:\\f"));
  EXPECT_EQ(translated("REL:f"), Answer(FU_OK, "sub\\f"));
}

TEST(Translate, AValueWithoutRoomForASeparatorLosesItsLastLevel) {
  const ScopedVariables variables(Variables{{w("DEV"), w("C:\\a\\") + run(5000)}});
  EXPECT_EQ(translated("DEV:f"), Answer(FU_OK, "C:\\a\\f"));
}

TEST(Translate, LongerTextsThan255CharactersAreCutBeforeTheLookup) {
  const ScopedVariables variables(Variables{{run(255), w("value")}, {w("BIG"), run(5000, 'v')}});
  EXPECT_EQ(translated(run(300)), Answer(FU_OK, "value"));
  EXPECT_EQ(translated(run(254)), Answer(FU_OK, plain(run(254))));
  EXPECT_EQ(translated("BIG"), Answer(FU_OK, plain(run(255, 'v'))));
}

TEST(FindCreateHfs, DefaultsFillWhatIsMissing) {
  const ScopedVariables variables({});
  EXPECT_EQ(created("f", "C:", "\\tmp", "dat", ""), Answer(FU_OK, "C:\\tmp\\f.dat"));
  EXPECT_EQ(created("C:\\a\\f.x;1", "D:", "\\tmp", "dat", "2"), Answer(FU_OK, "C:\\a\\f.x;1"));
  EXPECT_EQ(created("f.x", "", "", "dat", "2"), Answer(FU_OK, "f.x;2"));
  EXPECT_EQ(created("a\\", "", "", "dat", ""), Answer(FU_OK, "a.dat"));
  EXPECT_EQ(created("f.", "", "", "dat", ""), Answer(FU_OK, "f."));
}

TEST(FindCreateHfs, WithoutDefaultsTheTranslationStaysAsItIs) {
  const ScopedVariables variables({{"DEV", "C:\\data;D:\\x"}});
  EXPECT_EQ(created("a/b/f", "", "", "", ""), Answer(FU_OK, "a/b/f"));
  EXPECT_EQ(created("DEV:x\\f.txt", "", "", "", ""), Answer(FU_OK, "C:\\data\\f.txt"));
  EXPECT_EQ(created("DEV", "", "", "", ""), Answer(FU_OK, "C:\\data;D:\\x"));
}

TEST(FindCreateHfs, AnUndefinedDeviceGivesNoDevice) {
  const ScopedVariables variables({});
  EXPECT_EQ(created("NODEV:f", "C:", "\\tmp", "dat", "1"), Answer(FU_NO_DEVICE, ""));
}

TEST(FindCreateHfs, AnUndefinedDefaultDeviceLeavesTheTranslatedSpecification) {
  const ScopedVariables variables({});
  EXPECT_EQ(created("a\\f", "NODEV:", "\\tmp", "dat", "1"), Answer(FU_NO_DEVICE, "a\\f"));
}

TEST(FindCreateHfs, ALogicalDefaultDeviceReplacesTheDirectoryToo) {
  const ScopedVariables variables({{"DEV", "C:\\data;D:\\x"}, {"DIR", "E:\\one\\two"}});
  EXPECT_EQ(created("sub\\f", "DEV:", "", "", ""), Answer(FU_OK, "C:\\data\\f"));
  EXPECT_EQ(created("sub\\f", "DIR", "", "", ""), Answer(FU_OK, "E:\\one\\two\\f"));
  EXPECT_EQ(created("sub\\f", "C:", "", "", ""), Answer(FU_OK, "C:sub\\f"));
}

TEST(FindCreateHfs, ADefaultDeviceThatIsAVariableWithAListLosesALevel) {
  const ScopedVariables variables({{"LIST", "C:\\a\\b;D:\\x"}});
  EXPECT_EQ(created("f", "LIST", "", "", ""), Answer(FU_OK, "C:\\a\\f"));
  EXPECT_EQ(created("f", "LIST:", "", "", ""), Answer(FU_OK, "C:\\a\\b\\f"));
}

TEST(FindCreateHfs, ADefaultDeviceThatNamesItselfIsComparedExactly) {
  const ScopedVariables variables({{"SELF", "SELF"}, {"Self", "SELF"}});
  EXPECT_EQ(created("f", "SELF", "", "", ""), Answer(FU_OK, "SELF:f"));
  EXPECT_EQ(created("f", "Self", "", "", ""), Answer(FU_OK, "SELF\\f"));
}

TEST(FindCreateHfs, NullDefaultsAreNone) {
  const ScopedVariables variables({});
  EXPECT_EQ(answer([](CPWChar* out) {
              return FUFindCreateHFSW(w("f").c_str(), nullptr, nullptr, nullptr, nullptr, out);
            }),
            Answer(FU_OK, "f"));
  EXPECT_EQ(
      narrow_answer([](char* out) { return FUFindCreateHFS("f", nullptr, nullptr, nullptr, nullptr, out); }),
      Answer(FU_OK, "f"));
}

TEST(FindCreateHfs, ANullSpecificationIsAnEmptyOne) {
  const ScopedVariables variables({});
  EXPECT_EQ(answer([](CPWChar* out) {
              return FUFindCreateHFSW(nullptr, w("C:").c_str(), w("\\tmp").c_str(), nullptr, nullptr, out);
            }),
            Answer(FU_OK, "C:\\tmp"));
  EXPECT_EQ(
      narrow_answer([](char* out) { return FUFindCreateHFS(nullptr, "C:", "\\tmp", nullptr, nullptr, out); }),
      Answer(FU_OK, "C:\\tmp"));
}

TEST(FindCreateHfs, TheOutputMayBeTheSpecification) {
  const ScopedVariables variables({{"DEV", "C:\\data"}});
  const auto created_in_place = [](const char* lfs, const char* device) {
    return answer([=](CPWChar* both) {
      std::copy_n(w(lfs).c_str(), std::strlen(lfs) + 1, both);
      return FUFindCreateHFSW(both, w(device).c_str(), nullptr, w("dat").c_str(), nullptr, both);
    });
  };
  EXPECT_EQ(created_in_place("DEV:sub\\f", ""), Answer(FU_OK, "C:\\data\\f.dat"));
  EXPECT_EQ(created_in_place("sub\\f", "DEV:"), Answer(FU_OK, "C:\\data\\f.dat"));
  EXPECT_EQ(created_in_place("NODEV:f", ""), Answer(FU_NO_DEVICE, ""));
}

TEST(FindFullHfs, AFullPathStaysAsItIs) {
  EXPECT_EQ(made_full("C:\\cur", "D:/a/../f.txt;2"), Answer(FU_OK, "D:/a/../f.txt;2"));
  EXPECT_EQ(made_full("C:\\cur", "\\\\srv\\share\\f"), Answer(FU_OK, "\\\\srv\\share\\f"));
}

TEST(FindFullHfs, ARootedPathReceivesTheCurrentDevice) {
  EXPECT_EQ(made_full("C:\\cur", "\\a\\f.txt;2"), Answer(FU_OK, "C:\\a\\f.txt;2"));
  EXPECT_EQ(made_full("C:\\cur", "\\"), Answer(FU_OK, "C:\\"));
  EXPECT_EQ(made_full("C:\\cur", "\\a\\..\\f"), Answer(FU_OK, "C:\\a\\..\\f"));
  EXPECT_EQ(made_full("\\\\srv\\share", "\\f"), Answer(FU_OK, "\\f"));
}

TEST(FindFullHfs, ARelativePathFollowsTheCurrentDirectory) {
  EXPECT_EQ(made_full("C:\\a\\b", "f.txt"), Answer(FU_OK, "C:\\a\\b\\f.txt"));
  EXPECT_EQ(made_full("C:\\a\\b\\", "x\\f.txt;3"), Answer(FU_OK, "C:\\a\\b\\x\\f.txt;3"));
  EXPECT_EQ(made_full("C:/a/b", "x/.\\y/f"), Answer(FU_OK, "C:\\a\\b\\x\\y\\f"));
  EXPECT_EQ(made_full("C:\\", "f"), Answer(FU_OK, "C:\\f"));
  EXPECT_EQ(made_full("C:\\a\\b", ""), Answer(FU_OK, "C:\\a\\b\\"));
}

TEST(FindFullHfs, ANullPathIsAnEmptyOne) {
  const ScopedVariables variables({{"PWD", "C:\\a"}});
  EXPECT_EQ(answer([](CPWChar* out) { return FUFindFullHFSW(nullptr, out); }), Answer(FU_OK, "C:\\a\\"));
  EXPECT_EQ(narrow_answer([](char* out) { return FUFindFullHFS(nullptr, out); }), Answer(FU_OK, "C:\\a\\"));
}

TEST(FindFullHfs, TwoDotsClimb) {
  EXPECT_EQ(made_full("C:\\a\\b", "..\\f.txt"), Answer(FU_OK, "C:\\a\\f.txt"));
  EXPECT_EQ(made_full("C:\\a\\b", "..\\..\\f"), Answer(FU_OK, "C:\\f"));
  EXPECT_EQ(made_full("C:\\a\\b", "..\\x\\..\\y\\f"), Answer(FU_OK, "C:\\a\\y\\f"));
}

TEST(FindFullHfs, ClimbingAboveTheRootFails) {
  EXPECT_EQ(made_full("C:\\a\\b", "..\\..\\..\\f"), Answer(FU_FAILED, ""));
  EXPECT_EQ(made_full("C:\\", "..\\a\\f"), Answer(FU_FAILED, ""));
}

TEST(FindFullHfs, OnlyTheExactTextClimbs) {
  EXPECT_EQ(made_full("C:\\a", "...\\f"), Answer(FU_OK, "C:\\a\\...\\f"));
  EXPECT_EQ(made_full("C:\\a", ".. \\f"), Answer(FU_OK, "C:\\a\\.. \\f"));
  EXPECT_EQ(made_full("C:\\a", "X\\x\\f"), Answer(FU_OK, "C:\\a\\X\\x\\f"));
}

TEST(FindFullHfs, DotsAtTheEndAreANameNotALevel) {
  EXPECT_EQ(made_full("C:\\a", ".."), Answer(FU_OK, "C:\\a\\.."));
  EXPECT_EQ(made_full("C:\\a", "."), Answer(FU_OK, "C:\\a\\."));
  EXPECT_EQ(made_full("C:\\a\\b", "..\\"), Answer(FU_OK, "C:\\a\\"));
}

TEST(FindFullHfs, TheDeviceOfARelativePathIsIgnored) {
  EXPECT_EQ(made_full("C:\\a\\b", "D:x\\f"), Answer(FU_OK, "C:\\a\\b\\x\\f"));
  EXPECT_EQ(made_full("C:\\a\\b", "DEV:f"), Answer(FU_OK, "C:\\a\\b\\f"));
}

TEST(FindFullHfs, ARootGivenWithASlashIsALevelOfThatName) {
  EXPECT_EQ(made_full("C:\\a", "C:/f.txt"), Answer(FU_OK, "C:\\a\\/\\f.txt"));
  EXPECT_EQ(made_full("C:\\a", "/f.txt"), Answer(FU_OK, "C:\\a\\/\\f.txt"));
}

TEST(FindFullHfs, ANetworkDirectoryKeepsItsTwoBackslashes) {
  EXPECT_EQ(made_full("\\\\srv\\share\\d", "..\\f"), Answer(FU_OK, "\\\\srv\\share\\f"));
  EXPECT_EQ(made_full("\\\\srv\\share", "f"), Answer(FU_OK, "\\\\srv\\share\\f"));
}

TEST(FindFullHfs, ADirectoryOfMoreThanFiftyLevelsCountsAsNone) {
  EXPECT_EQ(made_full("C:\\cur", levels(50) + "f"), Answer(FU_OK, "C:\\cur\\" + levels(50) + "f"));
  EXPECT_EQ(made_full("C:\\cur", levels(51) + "f"), Answer(FU_OK, "C:\\cur\\f"));
  EXPECT_EQ(made_full("C:\\cur", "..\\..\\" + levels(50) + "f"), Answer(FU_OK, "C:\\cur\\f"));
  EXPECT_EQ(made_full("C:\\" + levels(50), "f"), Answer(FU_OK, "C:\\" + levels(50) + "f"));
  EXPECT_EQ(made_full("C:\\" + levels(51), "f"), Answer(FU_OK, "C:\\f"));
  EXPECT_EQ(made_full("C:\\" + levels(51), "..\\f"), Answer(FU_FAILED, ""));
}

TEST(FindFullHfs, FiftyLevelsBelowFiftyLevelsFit) {
  EXPECT_EQ(made_full("C:\\" + levels(50), levels(50) + "f"), Answer(FU_OK, "C:\\" + levels(100) + "f"));
}

TEST(FindFullHfs, ACurrentDirectoryOfMoreThan255CharactersIsCut) {
  const std::string base = "C:\\" + std::string(200, 'a') + "\\";
  EXPECT_EQ(made_full(base + std::string(50, 'b'), "f"), Answer(FU_OK, base + std::string(50, 'b') + "\\"));
  // Where there is no room for a separator, the last level, or what the cut left of it, is dropped.
  EXPECT_EQ(made_full(base + std::string(51, 'b'), "f"), Answer(FU_OK, base + "f"));
  EXPECT_EQ(made_full(base + std::string(5000, 'b'), "f"), Answer(FU_OK, base + "f"));
}

TEST(FindFullHfs, WithoutTheVariableTheProcesssDirectoryIsUsed) {
  const ScopedVariables variables({});
  CPWChar dev[FU_WIDE], dir[FU_WIDE];
  filespec::FUGetCurrentDevDirW(dev, dir);
  EXPECT_EQ(text_in(dev).size(), 1u);
  EXPECT_EQ(text_in(dir).substr(0, 1), w("\\"));
  WideText expected = text_in(dev) + w(":") + text_in(dir);
  if (expected.back() != '\\') expected += CPWChar{'\\'};
  EXPECT_EQ(made_full("f.txt"), Answer(FU_OK, plain(expected + w("f.txt"))));
}

TEST(FindFullHfs, OutputMayBeTheInput) {
  const ScopedVariables variables({{"PWD", "C:\\a\\b"}});
  CPWChar text[FU_WIDE];
  std::copy_n(w("..\\f").c_str(), 5, text);
  EXPECT_EQ(FUFindFullHFSW(text, text), FU_OK);
  EXPECT_EQ(plain(text), "C:\\a\\f");
}

TEST(SplitDir, SplitsAtBackslashesAndForgetsTooManyLevels) {
  CPWChar dir[FU_WIDE];
  CPWChar* parts[3];
  int count = -1;
  const auto split = [&](const char* text) {
    std::copy_n(w(text).c_str(), std::strlen(text) + 1, dir);
    return filespec::FUSplitDirW(dir, parts, 3, &count);
  };
  EXPECT_EQ(split("\\\\a\\\\b/c\\d\\"), FU_OK);
  ASSERT_EQ(count, 3);
  EXPECT_EQ(plain(parts[0]) + "," + plain(parts[1]) + "," + plain(parts[2]), "a,b/c,d");
  EXPECT_EQ(split("a\\b\\c\\d"), FU_FAILED);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(split("\\\\"), FU_OK);
  EXPECT_EQ(count, 0);
}

}  // namespace Corvane::Print::tests
