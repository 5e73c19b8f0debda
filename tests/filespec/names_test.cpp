// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
#include <gtest/gtest.h>

#include "corvane/print/cf.h"
#include "corvane/print/fu.h"
#include "tests/filespec/names_models.h"
#include "tests/filespec/names_support.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

bool is_port(std::u32string_view ufs) {
  return FUIsPortName(wide(ufs).c_str());
}
bool is_share(std::u32string_view ufs) {
  return FUIsUncShare(wide(ufs).c_str());
}
bool is_address(std::u32string_view ufs) {
  return FUIsIPAddress(wide(ufs).c_str());
}
bool is_pseudo(std::u32string_view ufs) {
  return FUIsPseudoFile(wide(ufs).c_str()) != 0;
}

WideText modified(std::u32string_view port) {
  WideOutput out;
  FUModifyPortName(out.data(), wide(port).c_str());
  EXPECT_TRUE(out.intact());
  return out.text();
}

WideText trimmed(std::u32string_view text) {
  WideText buffer = wide(text);
  FUTrimExtension(buffer.data());
  return buffer.c_str();
}

class ModifyPort : public testing::Test {
protected:
  void SetUp() override {
    if (CPWChar* const value = CFGetenvW(wide(U"WINDIR").c_str())) {
      for (const CPWChar* c = value; *c != 0; ++c) system_value_ += static_cast<char32_t>(*c);
      CFReleaseValue(value);
    }
    remove_variable(U"TQLOCAL");
    set_variable(U"WINDIR", U"C:\\Windows");
  }
  void TearDown() override {
    remove_variable(U"TQLOCAL");
    remove_variable(U"WINDIR");
    if (!system_value_.empty()) set_variable(U"WINDIR", system_value_);
  }

private:
  std::u32string system_value_;
};

}  // namespace

TEST(PortName, LettersAndUpToThreeDigitsAreAPort) {
  for (const auto* port : {U"LPT", U"lpt1", U"LPT12", U"lPt999", U"LPT0"}) EXPECT_TRUE(is_port(port));
  for (const auto* other : {U"", U"LP", U"LPTX", U"COM1", U"LPT1000", U"XLPT1", U"LPT1X", U"LPT 1", U"LPT-1"})
    EXPECT_FALSE(is_port(other)) << narrow(other);
}

TEST(PortName, DirectoryExtensionAndVersionDoNotCount) {
  EXPECT_TRUE(is_port(U"C:\\spool\\LPT1.plt;3"));
  EXPECT_TRUE(is_port(U"\\\\srv\\share\\lpt2"));
  EXPECT_FALSE(is_port(U"LPT1\\plot"));
}

TEST(PortName, APortWithAColonIsADevice) {
  EXPECT_FALSE(is_port(U"LPT1:"));
  EXPECT_FALSE(is_port(U"LPT:"));
}

TEST(PortName, TheColonIsLookedForInTheWholeSpecification) {
  EXPECT_TRUE(is_port(U"ABC:LPTX"));  // a device of three letters: the fourth character is the colon
  EXPECT_TRUE(is_port(U"ABCD:LPT1X"));
  EXPECT_FALSE(is_port(U"AB:LPTX"));
  EXPECT_FALSE(is_port(U"ABCD:LPTX"));
  EXPECT_FALSE(is_port(U"ABC:LPTXX"));
  EXPECT_TRUE(is_port(U"AB:LPT"));  // not even a digit is left to look at
}

TEST(PortName, DigitsAreThoseOfTheRuntime) {
  for (const char32_t c : {U'\u00B2', U'\u0663', U'\uFF11', U'a'})
    EXPECT_EQ(is_port(std::u32string(U"LPT") + c), std::iswdigit(static_cast<wint_t>(c)) != 0);
}

TEST(PortName, APortIsOneInEveryLocale) {
  const ScopedLocale locale(text_locale());
  for (const auto* port : {U"LPT1", U"lPt12", U"C:\\\u00E9\\Lpt3.plt"}) EXPECT_TRUE(is_port(port));
  for (const auto* other : {U"\u00C9PT1", U"LP\u00E91", U"LPT\u00E9"}) EXPECT_FALSE(is_port(other));
  for (const char32_t c : {U'\u00B2', U'\u0663', U'\uFF11'})
    EXPECT_EQ(is_port(std::u32string(U"LPT") + c), std::iswdigit(static_cast<wint_t>(c)) != 0);
}

TEST(UncShare, ServerAndShareAloneAreOne) {
  for (const auto* share : {U"\\\\server\\share", U"\\\\server\\", U"\\\\s\\x.y z", U"\\\\\\"})
    EXPECT_TRUE(is_share(share)) << narrow(share);
  for (const auto* other :
       {U"", U"\\", U"\\\\", U"\\\\server", U"\\\\server\\share\\x", U"\\\\server\\share\\",
        U"\\server\\share", U"//server/share", U"C:\\a\\b", U"a\\\\b\\c"})
    EXPECT_FALSE(is_share(other)) << narrow(other);
}

TEST(UncShare, TheWholeTextIsLookedAt) {
  const std::u32string share = U"\\\\server\\" + std::u32string(300, U'x');
  EXPECT_TRUE(is_share(share));
  EXPECT_FALSE(is_share(share + U"\\f"));
}

TEST(IpAddress, FourGroupsOfDigitsAreOne) {
  for (const auto* address : {U"1.2.3.4", U"127.0.0.1", U"000.000.000.000"})
    EXPECT_TRUE(is_address(address)) << narrow(address);
  for (const auto* other :
       {U"", U".", U"1.2.3", U"1..2.3", U".1.2.3", U"1.2.3.4.5", U"1.2.3.4.", U"1234.1.1.1", U"1.2.3.1234",
        U"1.2.3.x", U"a.b.c.d", U"1.2.3.4 ", U" 1.2.3.4", U"1.2.3.4:80"})
    EXPECT_FALSE(is_address(other)) << narrow(other);
}

TEST(IpAddress, GroupsHaveNoRange) {
  EXPECT_TRUE(is_address(U"999.999.999.999"));
}

TEST(IpAddress, ATrailingDotPasses) {
  EXPECT_TRUE(is_address(U"1.2.3."));
  EXPECT_FALSE(is_address(U"1.2.3.."));
  EXPECT_FALSE(is_address(U"1.2."));
}

TEST(PseudoFile, ATokenIsEnough) {
  EXPECT_TRUE(is_pseudo(U"plot<autoInc>.plt"));
  EXPECT_TRUE(is_pseudo(U"<"));
  EXPECT_TRUE(is_pseudo(std::u32string(1000, U'x') + U"<"));
  EXPECT_FALSE(is_pseudo(U"plot>autoInc.plt"));
}

TEST(PseudoFile, PortsSharesAndAddressesAreSome) {
  for (const auto* pseudo : {U"LPT1", U"\\\\server\\share", U"10.0.0.7"}) EXPECT_TRUE(is_pseudo(pseudo));
  for (const auto* file :
       {U"", U"plot.plt", U"C:\\out\\plot.plt", U"LPT1:", U"\\\\server\\share\\f", U"1.2.3"})
    EXPECT_FALSE(is_pseudo(file)) << narrow(file);
}

TEST(Names, NullIsNothing) {
  EXPECT_FALSE(FUIsPortName(nullptr));
  EXPECT_FALSE(FUIsUncShare(nullptr));
  EXPECT_FALSE(FUIsIPAddress(nullptr));
  EXPECT_EQ(FUIsPseudoFile(nullptr), 0);
  FUTrimExtension(nullptr);
  FUModifyPortName(nullptr, wide(U"LPT1").c_str());
}

TEST(Names, ThePredicatesUseNoHeap) {
  const WideText long_name(5000, CPWChar{'x'});
  const WideText texts[] = {wide(U"LPT1"), wide(U"\\\\server\\share"), wide(U"10.0.0.7"),
                            wide(U"C:\\out\\plot.plt"), long_name};
  int pseudos = 0;
  HeapWatch heap;
  for (const WideText& text : texts) pseudos += FUIsPseudoFile(text.c_str());
  EXPECT_EQ(heap.requests(), 0);
  EXPECT_EQ(pseudos, 3);
}

TEST_F(ModifyPort, PortsGoToTheRootOfTheSystemsDrive) {
  EXPECT_EQ(modified(U"LPT1:"), wide(U"C:\\LPT1"));
  EXPECT_EQ(modified(U"LPT1"), wide(U"C:\\LPT1"));
  EXPECT_EQ(modified(U"LPT1::"), wide(U"C:\\LPT1:"));
  EXPECT_EQ(modified(U":"), wide(U"C:\\"));
  EXPECT_EQ(modified(U""), wide(U"C:\\"));
}

TEST_F(ModifyPort, TheLocalDriveComesFirst) {
  const ScopedVariable local(U"TQLOCAL", U"d:\\plots\\spool");
  EXPECT_EQ(modified(U"LPT1:"), wide(U"d:\\LPT1"));
  remove_variable(U"WINDIR");
  EXPECT_EQ(modified(U"LPT1:"), wide(U"d:\\LPT1"));
}

TEST_F(ModifyPort, AValueThatIsNoRootIsPassedOver) {
  for (const auto* value : {U"D:", U"D", U"D:/x", U"\\\\srv\\share", U"1:\\x", U":\\x", U"DD:\\", U"D :\\"}) {
    const ScopedVariable local(U"TQLOCAL", value);
    EXPECT_EQ(modified(U"LPT1"), wide(U"C:\\LPT1")) << narrow(value);
  }
  const ScopedVariable local(U"TQLOCAL", U"D:\\");
  EXPECT_EQ(modified(U"LPT1"), wide(U"D:\\LPT1"));
}

TEST_F(ModifyPort, WithoutALocalDriveThePortIsHandedBack) {
  remove_variable(U"WINDIR");
  EXPECT_EQ(modified(U"LPT1:"), wide(U"LPT1:"));
  set_variable(U"WINDIR", U"Windows");
  EXPECT_EQ(modified(U"LPT1:"), wide(U"LPT1:"));
}

TEST_F(ModifyPort, LongPortsAreCutToTheBuffer) {
  for (const std::size_t length : {251u, 252u, 253u, 254u, 255u, 256u, 5000u}) {
    const std::u32string port(length, U'p');
    EXPECT_EQ(modified(port), model::cut(wide(U"C:\\" + port))) << length;
    EXPECT_EQ(modified(port + U":"), model::cut(wide(U"C:\\" + port))) << length;
    // A colon that the cut makes the last character is not the port's own.
    EXPECT_EQ(modified(port + U":x"), model::cut(wide(U"C:\\" + port + U":x"))) << length;
  }
  remove_variable(U"WINDIR");
  EXPECT_EQ(modified(std::u32string(5000, U'p')), wide(std::u32string(255, U'p')));
}

TEST_F(ModifyPort, TheResultMayReplaceThePort) {
  WideText buffer = wide(U"LPT1:");
  buffer.resize(FU_WIDE);
  FUModifyPortName(buffer.data(), buffer.data());
  EXPECT_EQ(WideText(buffer.c_str()), wide(U"C:\\LPT1"));
}

TEST_F(ModifyPort, AnyTextGivesWhatThePlainModelGives) {
  const std::vector<std::u32string> pieces = {U"LPT", U":", U"1", U"\\", U"x", U"\u00E9", U"::"};
  const char32_t* const values[] = {U"D:\\x", U"E:\\", U"F:", U"plots"};
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(5101, i));
    const WideText port = random_spec(random, pieces);
    if (i % 100 == 0) set_variable(U"TQLOCAL", values[(i / 100) % 4]);
    const char32_t* const roots[] = {U"D:\\", U"E:\\", U"C:\\", U"C:\\"};
    WideOutput out;
    FUModifyPortName(out.data(), port.c_str());
    ASSERT_EQ(out.text(), model::modified_port(port, wide(roots[(i / 100) % 4])))
        << "case " << i << " " << shown(port);
    ASSERT_TRUE(out.intact()) << "case " << i;
  }
}

TEST(TrimExtension, TheExtensionStaysAndTheRestGoes) {
  EXPECT_EQ(trimmed(U"plot.plt"), wide(U"plt"));
  EXPECT_EQ(trimmed(U"C:\\a.b\\plot"), wide(U"b\\plot"));
  EXPECT_EQ(trimmed(U"a.b.c"), wide(U"c"));
  EXPECT_EQ(trimmed(U"plot."), wide(U""));
  EXPECT_EQ(trimmed(U".cfg"), wide(U"cfg"));
}

TEST(TrimExtension, WithoutADotNothingChanges) {
  EXPECT_EQ(trimmed(U"plot"), wide(U"plot"));
  EXPECT_EQ(trimmed(U""), wide(U""));
}

TEST(Names, AnyTextGivesWhatThePlainModelsGive) {
  const std::vector<std::u32string> pieces = {U"LPT",  U"lpt",  U"lPt1", U":",      U"1",     U"23", U"999",
                                              U"1234", U".",    U".",    U"1.",     U"5",     U"\\", U"\\\\",
                                              U"srv",  U"x",    U"AB:",  U"/",      U";",     U"]",  U"1.2.",
                                              U"ABC:", U"LPTX", U" ",    U"\u00E9", U"\u0661"};
  int ports = 0, shares = 0, addresses = 0, pseudos = 0;
  for (int i = 0; i < scaled(100000); ++i) {
    Random random(case_seed(5102, i));
    WideText spec = random_spec(random, pieces);
    if (random.one_in(20))
      spec.insert(static_cast<std::size_t>(random.below(static_cast<int>(spec.size()) + 1)), 1,
                  static_cast<CPWChar>('<'));
    if (random.one_in(8)) spec.insert(0, wide(U"\\\\s"));
    if (random.one_in(8)) spec.insert(0, wide(U"1.2."));
    const bool port = model::is_port_name(spec), share = model::is_unc_share(spec);
    const bool address = model::is_ip_address(spec), pseudo = model::is_pseudo_file(spec);
    ASSERT_EQ(FUIsPortName(spec.c_str()), port) << "case " << i << " " << shown(spec);
    ASSERT_EQ(FUIsUncShare(spec.c_str()), share) << "case " << i << " " << shown(spec);
    ASSERT_EQ(FUIsIPAddress(spec.c_str()), address) << "case " << i << " " << shown(spec);
    ASSERT_EQ(FUIsPseudoFile(spec.c_str()), pseudo ? 1 : 0) << "case " << i << " " << shown(spec);
    WideText copy = spec;
    FUTrimExtension(copy.data());
    ASSERT_EQ(WideText(copy.c_str()), model::trimmed(spec)) << "case " << i << " " << shown(spec);
    ports += port;
    shares += share;
    addresses += address;
    pseudos += pseudo;
  }
  if (test_scale() < 1) return;
  EXPECT_GT(ports, 500);
  EXPECT_GT(shares, 500);
  EXPECT_GT(addresses, 50);
  EXPECT_GT(pseudos, 2000);
}

}  // namespace Corvane::Print::tests
