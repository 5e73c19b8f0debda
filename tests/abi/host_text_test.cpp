// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Calls every export of the STR and FU families once through the shared library, as host_test.cpp does with
// the other families.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "corvane/print/str.h"

namespace {

using namespace Corvane::Print;

using WideText = std::basic_string<CPWChar>;

WideText wide(const std::string& ascii) {
  return WideText(ascii.begin(), ascii.end());
}

std::string ascii(const CPWChar* text) {
  std::string result;
  for (; *text != 0; ++text) result += static_cast<char>(*text);
  return result;
}

// What call(out) leaves in a wide or a narrow output of a file specification.
template <class Call>
std::string wide_spec(Call call) {
  CPWChar out[FU_WIDE] = {};
  EXPECT_EQ(call(out), FU_OK);
  return ascii(out);
}

template <class Call>
std::string narrow_spec(Call call) {
  char out[FU_NARROW] = {};
  EXPECT_EQ(call(out), FU_OK);
  return out;
}

}  // namespace

TEST(HostStr, TextsAreCompared) {
  EXPECT_EQ(STRCompareCIW(wide("Abc").c_str(), wide("aBC").c_str()), 0);
  EXPECT_EQ(STRCompareCI("abc", "ABD"), -1);
  EXPECT_EQ(STRCompareCICountW(wide("abcX").c_str(), wide("ABCy").c_str(), 3), 0);
  EXPECT_EQ(STRCompareCICount("abcX", "ABCy", 4), -1);
}

TEST(HostStr, TextsAreMatched) {
  EXPECT_EQ(STRMatchPatternW(wide("abc").c_str(), wide("a*").c_str()), 1);
  EXPECT_EQ(STRMatchPattern("abc", "*b"), 0);
  EXPECT_EQ(STRMatchPatternCIW(wide("ABC").c_str(), wide("a?c").c_str()), 1);
  EXPECT_EQ(STRMatchPatternCI("ABC", "a?d"), 0);
}

TEST(HostStr, TextsAreEdited) {
  CPWChar w[32];
  char n[32];
  EXPECT_EQ(ascii(STRDeleteCharW(wide("a.b.").c_str(), '.', w)), "ab");
  EXPECT_STREQ(STRDeleteChar("a.b.", '.', n), "ab");
  EXPECT_EQ(ascii(STRDeleteCharLeadW(wide("  x").c_str(), ' ', w)), "x");
  EXPECT_STREQ(STRDeleteCharLead("  x", ' ', n), "x");
  EXPECT_EQ(ascii(STRDeleteCharTrailW(wide("x//").c_str(), '/', w)), "x");
  EXPECT_STREQ(STRDeleteCharTrail("x//", '/', n), "x");
  EXPECT_EQ(ascii(STRExtractSubstrW(wide("abcdef").c_str(), 2, 3, w)), "cde");
  EXPECT_STREQ(STRExtractSubstr("abcdef", 2, 3, n), "cde");
  EXPECT_EQ(ascii(STRInsertSubstrW(wide("abef").c_str(), 2, wide("cd").c_str(), w)), "abcdef");
  EXPECT_STREQ(STRInsertSubstr("abef", 2, "cd", n), "abcdef");
}

TEST(HostStr, CharactersAreReplaced) {
  CPWChar w[32];
  char n[32];
  EXPECT_EQ(ascii(STRLowerW(wide("aB").c_str(), w)), "ab");
  EXPECT_STREQ(STRLower("aB", n), "ab");
  EXPECT_EQ(ascii(STRUpperW(wide("aB").c_str(), w)), "AB");
  EXPECT_STREQ(STRUpper("aB", n), "AB");
  EXPECT_EQ(ascii(STRReplaceCharW(wide("a/b").c_str(), '/', '\\', w)), "a\\b");
  EXPECT_STREQ(STRReplaceChar("a/b", '/', '\\', n), "a\\b");
  EXPECT_EQ(ascii(STRReverseW(w)), "b\\a");
  EXPECT_STREQ(STRReverse(n), "b\\a");
}

TEST(HostStr, CopiesAreReleasedWithTheGeneralHeap) {
  CPWChar* const w = STRDupW(wide("ab").c_str());
  char* const n = STRDup("ab");
  EXPECT_EQ(ascii(w), "ab");
  EXPECT_STREQ(n, "ab");
  std::free(w);
  std::free(n);
}

TEST(HostSpec, SpecificationsAreParsed) {
  CPWChar dev[FU_WIDE], dir[FU_WIDE], name[FU_WIDE], ext[FU_WIDE], ver[FU_WIDE];
  ASSERT_EQ(FUParseUFSW(wide("C:\\data\\plot.pen;2").c_str(), dev, dir, name, ext, ver), FU_OK);
  EXPECT_EQ(ascii(dev) + "," + ascii(dir) + "," + ascii(name) + "," + ascii(ext) + "," + ascii(ver),
            "C,\\data,plot,pen,2");
  char narrow_dir[FU_NARROW];
  ASSERT_EQ(FUParseUFS("C:\\data\\plot.pen;2", nullptr, narrow_dir, nullptr, nullptr, nullptr), FU_OK);
  EXPECT_STREQ(narrow_dir, "\\data");
}

TEST(HostSpec, FullSpecificationsAreToldFromPartialOnes) {
  EXPECT_EQ(FUIsFullHFSW(wide("C:\\f").c_str()), 1);
  EXPECT_EQ(FUIsFullHFS("f"), 0);
  EXPECT_EQ(FUIsFullLFSW(wide("NO_SUCH_DEVICE:f").c_str()), 1);
  EXPECT_EQ(FUIsFullLFS("\\f"), 0);
}

TEST(HostSpec, SpecificationsAreBuiltAndResolved) {
  const WideText dev = wide("C"), dir = wide("\\a"), f = wide("f"), txt = wide("txt"), none;
  EXPECT_EQ(wide_spec([&](CPWChar* out) {
              return FUBuildLFSW(dev.c_str(), dir.c_str(), f.c_str(), txt.c_str(), nullptr, out);
            }),
            "C:\\a\\f.txt");
  EXPECT_EQ(narrow_spec([](char* out) { return FUBuildLFS("C", "\\a", "f", "txt", nullptr, out); }),
            "C:\\a\\f.txt");
  EXPECT_EQ(wide_spec([&](CPWChar* out) {
              return FUFindCreateHFSW(f.c_str(), wide("C:").c_str(), dir.c_str(), txt.c_str(), none.c_str(),
                                      out);
            }),
            "C:\\a\\f.txt");
  EXPECT_EQ(narrow_spec([](char* out) { return FUFindCreateHFS("f", "C:", "\\a", "txt", "", out); }),
            "C:\\a\\f.txt");
  const std::string full = wide_spec([](CPWChar* out) { return FUFindFullHFSW(wide("a\\f").c_str(), out); });
  EXPECT_EQ(full.substr(full.size() - 4), "\\a\\f");
  EXPECT_EQ(narrow_spec([](char* out) { return FUFindFullHFS("a\\f", out); }), full);
}

TEST(HostSpec, LevelsAndSeparatorsAreAppendedAndRemoved) {
  const WideText path = wide("C:\\a"), b = wide("b");
  EXPECT_EQ(wide_spec([&](CPWChar* out) { return FUAppendCompHFSW(path.c_str(), b.c_str(), out); }),
            "C:\\a\\b");
  EXPECT_EQ(narrow_spec([](char* out) { return FUAppendCompHFS("C:\\a", "b", out); }), "C:\\a\\b");
  EXPECT_EQ(wide_spec([&](CPWChar* out) { return FURemoveCompsHFSW(path.c_str(), 1, out); }), "C:\\");
  EXPECT_EQ(narrow_spec([](char* out) { return FURemoveCompsHFS("C:\\a", 1, out); }), "C:\\");
  EXPECT_EQ(wide_spec([&](CPWChar* out) { return FUAppendDirSepHFSW(path.c_str(), out); }), "C:\\a\\");
  EXPECT_EQ(narrow_spec([](char* out) { return FUAppendDirSepHFS("C:\\a", out); }), "C:\\a\\");
  EXPECT_EQ(wide_spec([](CPWChar* out) { return FURemoveDirSepHFSW(wide("C:\\a\\").c_str(), out); }),
            "C:\\a");
  EXPECT_EQ(narrow_spec([](char* out) { return FURemoveDirSepHFS("C:\\a\\", out); }), "C:\\a");
}

TEST(HostSpec, ListsAreWalked) {
  CPWChar w[FU_WIDE];
  char n[FU_NARROW];
  FUPathIterator* walk = nullptr;
  EXPECT_EQ(FUPathGetFirstW(wide("a;b").c_str(), nullptr, w, &walk), FU_OK);
  EXPECT_EQ(FUPathGetNextW(&walk, w), FU_OK);
  EXPECT_EQ(ascii(w), "b");
  EXPECT_EQ(FUPathGetNextW(&walk, w), FU_FAILED);
  EXPECT_EQ(FUPathGetFirst("a,b", ",", n, &walk), FU_OK);
  EXPECT_EQ(FUPathGetNext(&walk, n), FU_OK);
  EXPECT_STREQ(n, "b");
  FUPathFree(walk);
  EXPECT_EQ(FUPathContainsCompW(wide("a;b*").c_str(), nullptr, wide("BC").c_str()), 1);
  EXPECT_EQ(FUPathContainsComp("a;b", nullptr, "c"), 0);
}

TEST(HostSpec, FilesAreSearched) {
  CPWChar w[FU_WIDE] = {'x', 0};
  char n[FU_NARROW] = "x";
  const WideText missing = wide("no_such_file.xyz");
  EXPECT_EQ(FUSearchUFSW(missing.c_str(), nullptr, nullptr, nullptr, w), FU_NOT_FOUND);
  EXPECT_EQ(ascii(w), "");
  EXPECT_EQ(FUSearchUFS("no_such_file.xyz", nullptr, nullptr, nullptr, n), FU_NOT_FOUND);
  EXPECT_STREQ(n, "");
  const auto count = [](void* context, int, const CPWChar*, int found) {
    *static_cast<int*>(context) += 1 + 1000 * found;
  };
  int tried = 0;
  EXPECT_EQ(FUSearchExplainW(missing.c_str(), nullptr, nullptr, nullptr, w, count, &tried), FU_NOT_FOUND);
  EXPECT_GT(tried, 0);
  EXPECT_LT(tried, 1000);
}

TEST(HostSpec, MatchesAreEnumerated) {
  CPWChar w[FU_WIDE];
  char n[FU_NARROW];
  FUMatchLFSHandle* wide_match = nullptr;
  FUMatchLFSHandle* match = nullptr;
  EXPECT_EQ(FUMatchLFSFirstW(wide("f").c_str(), nullptr, nullptr, nullptr, nullptr, w, &wide_match), FU_OK);
  EXPECT_EQ(ascii(w), "f");
  EXPECT_EQ(FUMatchLFSFirst("Z:\\*", "", "", "", "", n, &match), FU_OK);
  while (FUMatchLFSNext(&match, n) == FU_OK) {
  }
  EXPECT_EQ(match, nullptr);
  EXPECT_EQ(FUMatchLFSFirstW(wide("Z:\\*").c_str(), nullptr, nullptr, nullptr, nullptr, w, &wide_match),
            FU_OK);
  EXPECT_EQ(FUMatchLFSNextW(&wide_match, w), FU_OK);
  FUMatchLFSFreeW(wide_match);
  FUMatchLFSFree(nullptr);
}

TEST(HostSpec, NamesAreRecognisedAndChanged) {
  EXPECT_TRUE(FUIsPortName(wide("LPT1").c_str()));
  EXPECT_TRUE(FUIsUncShare(wide("\\\\srv\\share").c_str()));
  EXPECT_TRUE(FUIsIPAddress(wide("1.2.3.4").c_str()));
  EXPECT_EQ(FUIsPseudoFile(wide("plot.plt").c_str()), 0);
  CPWChar w[FU_WIDE] = {};
  FUModifyPortName(w, wide("LPT1:").c_str());
  EXPECT_NE(ascii(w), "");
  char n[FU_NARROW];
  EXPECT_EQ(FUGetUniversalNameW(wide("a").c_str(), w), FU_FAILED);
  EXPECT_EQ(FUGetUniversalName("a", n), FU_FAILED);
  WideText name = wide("plot.plt");
  FUTrimExtension(name.data());
  EXPECT_EQ(ascii(name.c_str()), "plt");
  WideText spec = wide("no_such_<autoInc>") + WideText(200, CPWChar{0});
  FUResolveAutoIncToken(spec.data(), static_cast<int>(spec.size()));
  EXPECT_EQ(ascii(spec.c_str()), "no_such_000");
}
