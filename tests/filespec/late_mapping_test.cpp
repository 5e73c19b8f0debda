// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Drives that a stand-in for the network provider library has mapped; see standins/provider.c.
#include "corvane/print/cf.h"
#include "tests/filespec/late_support.h"
#include "tests/filespec/names_models.h"
#include "tests/filespec/names_support.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

class Mapping : public testing::Test {
protected:
  void SetUp() override { look_for_libraries_in("provider"); }

  static int calls() {
    const HMODULE provider = GetModuleHandleA("mpr.dll");
    if (provider == nullptr) return 0;
    int (*const count)() = function_of<int()>(provider, "standin_calls");
    EXPECT_NE(count, nullptr) << "this is the system's own library";
    return count != nullptr ? count() : 0;
  }
};

WideText wide_name(const WideText& ufs, int status = FU_OK) {
  WideOutput out;
  EXPECT_EQ(FUGetUniversalNameW(ufs.c_str(), out.data()), status) << shown(ufs);
  EXPECT_TRUE(out.intact()) << shown(ufs);
  return out.text();
}

std::string narrow_name(const char* ufs, int status = FU_OK) {
  Guarded<char> out(FU_NARROW);
  EXPECT_EQ(FUGetUniversalName(ufs, out.data()), status) << ufs;
  EXPECT_TRUE(out.intact()) << ufs;
  return out.data();
}

void expect_both(const char* ufs, const char* expected) {
  const std::string text(ufs), result(expected);
  EXPECT_EQ(wide_name({text.begin(), text.end()}), WideText(result.begin(), result.end()));
  EXPECT_EQ(narrow_name(ufs), expected);
}

int CORVANE_PRINT_CALL defines_h(const CPWChar* name, CPWChar* buffer, int) {
  if (lstrcmpW(name, L"H") != 0) return 0;
  lstrcpyW(buffer, L"C:\\plots");
  return 18;
}

}  // namespace

TEST_F(Mapping, TheProviderIsLoadedByTheFirstCall) {
  EXPECT_EQ(GetModuleHandleA("mpr.dll"), nullptr);
  wide_name(L"f.plt", FU_FAILED);
  EXPECT_EQ(GetModuleHandleA("mpr.dll"), nullptr);
  wide_name(L"H:\\f.plt");
  EXPECT_EQ(calls(), 1);
}

TEST_F(Mapping, APathOnAMappedDriveGetsItsNetworkForm) {
  expect_both("H:\\plots\\a.plt", "\\\\srv\\share\\plots\\a.plt");
  expect_both("H:\\a.plt", "\\\\srv\\share\\a.plt");
  expect_both("H:a.plt", "\\\\srv\\share\\a.plt");
  expect_both("H:plots/b/a", "\\\\srv\\share\\plots\\b\\a");
  expect_both("H:\\\\\\plots\\a", "\\\\srv\\share\\plots\\a");
  expect_both("H:\\plots\\.cfg", "\\\\srv\\share\\plots\\.cfg");
  expect_both("H:\\", "\\\\srv\\share\\");
  expect_both("H:", "\\\\srv\\share\\");
}

TEST_F(Mapping, TheVersionIsDropped) {
  expect_both("H:\\plots\\a.plt;3", "\\\\srv\\share\\plots\\a.plt");
}

TEST_F(Mapping, TrailingSeparatorsOfTheShareAreDropped) {
  expect_both("I:\\plots\\a.plt", "\\\\srv\\deep\\share\\plots\\a.plt");
}

TEST_F(Mapping, CharactersOfTheCodePageSurvive) {
  if (GetACP() != 1252) return;
  EXPECT_EQ(wide_name(L"J:\\\u00FC.plt"), L"\\\\srv\\\u00E4\\\u00FC.plt");
  EXPECT_EQ(narrow_name("J:\\\xFC.plt"), "\\\\srv\\\xE4\\\xFC.plt");
}

TEST_F(Mapping, DrivesWithoutAShareFail) {
  const int before = calls();
  EXPECT_EQ(wide_name(L"Q:\\plots\\a.plt", FU_FAILED), L"");
  EXPECT_EQ(narrow_name("Q:\\plots\\a.plt", FU_FAILED), "");
  EXPECT_EQ(calls(), before + 2);
}

TEST_F(Mapping, ALetterThatIsAVariableIsNoDrive) {
  const int before = calls();
  CFSetGetEnvVarCallback(defines_h);
  EXPECT_EQ(wide_name(L"H:\\plots\\a.plt", FU_FAILED), L"");
  EXPECT_EQ(narrow_name("H:\\plots\\a.plt", FU_FAILED), "");
  CFSetGetEnvVarCallback(nullptr);
  EXPECT_EQ(calls(), before);
}

TEST_F(Mapping, ANameThatFillsTheAnswerIsCutToTheResult) {
  const int wide_length = (512 - static_cast<int>(sizeof(void*))) / 2 - 1;
  const WideText share = L"\\\\srv\\" + WideText(static_cast<std::size_t>(wide_length - 6), L'n');
  EXPECT_EQ(wide_name(L"K:\\plots\\a.plt"), model::cut(share + L"\\plots\\a.plt"));
  // The narrow answer has room for more characters than any result.
  EXPECT_EQ(narrow_name("K:\\plots\\a.plt"), "\\\\srv\\" + std::string(249, 'n'));
}

TEST_F(Mapping, ANameThatExceedsTheAnswerFails) {
  EXPECT_EQ(wide_name(L"L:\\plots\\a.plt", FU_FAILED), L"");
  EXPECT_EQ(narrow_name("L:\\plots\\a.plt", FU_FAILED), "");
}

TEST_F(Mapping, TheResultMayReplaceThePath) {
  CPWChar text[FU_WIDE] = L"H:\\plots\\a.plt";
  EXPECT_EQ(FUGetUniversalNameW(text, text), FU_OK);
  EXPECT_STREQ(text, L"\\\\srv\\share\\plots\\a.plt");
}

TEST_F(Mapping, NothingIsLeftOnTheHeap) {
  wide_name(L"H:\\plots\\a.plt");
  narrow_name("H:\\plots\\a.plt");
  const long before = blocks_in_use();
  for (int i = 0; i < 100; ++i) {
    FUGetUniversalNameW(L"I:\\plots\\a.plt", g_wide);
    FUGetUniversalName("I:\\plots\\a.plt", g_narrow);
  }
  EXPECT_EQ(blocks_in_use(), before);
}

TEST_F(Mapping, AnyPathGivesWhatThePlainModelGives) {
  const std::vector<std::u32string> pieces = {U"plots", U"\\", U"\\", U"/",   U"a",  U".",   U".plt",
                                              U";2",    U":",  U"]",  U"x y", U"..", U"\\\\"};
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(5104, i));
    const bool deep = random.one_in(2);
    const WideText spec = (deep ? L"I:" : L"H:") + random_spec(random, pieces);
    const WideText expected = model::universal_name(spec, deep ? L"\\\\srv\\deep\\share" : L"\\\\srv\\share");
    WideOutput out;
    ASSERT_EQ(FUGetUniversalNameW(spec.c_str(), out.data()), FU_OK) << "case " << i << " " << shown(spec);
    ASSERT_EQ(out.text(), expected) << "case " << i << " " << shown(spec);
    ASSERT_TRUE(out.intact());
    const std::string narrow_spec(spec.begin(), spec.end());
    ASSERT_EQ(narrow_name(narrow_spec.c_str()), std::string(expected.begin(), expected.end()))
        << "case " << i;
  }
}

}  // namespace Corvane::Print::tests
