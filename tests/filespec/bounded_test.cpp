// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// The bounded-string helpers: what they write, where they cut, and that they stay within the stated room.
#include "filespec/bounded.h"

#include <gtest/gtest.h>

#include "tests/filespec/spec_support.h"
#include "tests/support/guarded.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"
#include "tests/util/str_support.h"

namespace Corvane::Print::tests {
namespace {

using namespace filespec;

constexpr int kLengths[] = {0, 1, 2, 253, 254, 255, 256, 257, 511, 512, 513, 514, 5000};

WideText run(int length, char c = 'x') {
  return WideText(static_cast<std::size_t>(length), static_cast<CPWChar>(c));
}

// What became of `text` in a buffer of 256 characters.
template <class Change>
std::string changed(const WideText& text, Change change) {
  Guarded<CPWChar> buffer(FU_WIDE);
  FUStrCopyW(buffer.data(), text.c_str(), kWide);
  change(buffer.data());
  EXPECT_TRUE(buffer.intact());
  return plain(text_in(buffer.data()));
}

}  // namespace

TEST(BoundedCopy, CopiesWhatFitsAndTerminatesIt) {
  for (const int length : kLengths) {
    for (const int room : {1, 2, 3, 255, 256}) {
      const WideText text = run(length);
      Guarded<CPWChar> out(room);
      EXPECT_EQ(FUStrCopyW(out.data(), text.c_str(), static_cast<std::size_t>(room)), out.data());
      EXPECT_TRUE(out.intact());
      EXPECT_EQ(WideText(out.data()), text.substr(0, static_cast<std::size_t>(room - 1)));
    }
  }
}

TEST(BoundedCopy, NothingIsWrittenBehindTheCopiedTerminator) {
  Guarded<CPWChar> out(FU_WIDE);
  FUStrCopyW(out.data(), w("abc").c_str(), kWide);
  EXPECT_TRUE(out.untouched_from(4));
}

TEST(BoundedCopy, NullsAndARoomOfNothingAreHarmless) {
  EXPECT_EQ(FUStrCopyW(nullptr, w("abc").c_str(), kWide), nullptr);
  Guarded<CPWChar> none(0);
  EXPECT_EQ(FUStrCopyW(none.data(), w("abc").c_str(), 0), none.data());
  EXPECT_TRUE(none.intact());
  CPWChar out[4] = {'x', 0};
  FUStrCopyW(out, nullptr, 4);
  EXPECT_EQ(out[0], 0);
}

TEST(BoundedCopy, TextsMayOverlap) {
  CPWChar text[8];
  FUStrCopyW(text, w("abcdef").c_str(), 8);
  FUStrCopyW(text, text + 2, 8);
  EXPECT_EQ(plain(text), "cdef");
  FUStrCopyW(text + 1, text, 7);
  EXPECT_EQ(plain(text), "ccdef");
}

TEST(BoundedCat, AppendsWhatFitsAndFillsTheRoomWithZeros) {
  for (const int before : {0, 1, 100, 253, 254}) {
    for (const int length : kLengths) {
      const WideText start = run(before, 'a'), text = run(length);
      Guarded<CPWChar> out(FU_WIDE);
      FUStrCopyW(out.data(), start.c_str(), kWide);
      EXPECT_EQ(FUStrCatW(out.data(), text.c_str(), kWide), out.data());
      const WideText whole = (start + text).substr(0, 255);
      EXPECT_EQ(WideText(out.data()), whole);
      for (std::size_t i = whole.size(); i < kWide; ++i) ASSERT_EQ(out[i], 0);
      EXPECT_TRUE(out.intact());
    }
  }
}

TEST(BoundedCat, AFullBufferStaysAsItIs) {
  Guarded<CPWChar> out(FU_WIDE);
  FUStrCopyW(out.data(), run(255).c_str(), kWide);
  FUStrCatW(out.data(), w("abc").c_str(), kWide);
  EXPECT_EQ(WideText(out.data()), run(255));
  out.data()[255] = 'y';
  FUStrCatW(out.data(), w("abc").c_str(), kWide);
  EXPECT_EQ(out[255], 'y');
  EXPECT_TRUE(out.intact());
}

TEST(BoundedCat, NullsGiveNull) {
  CPWChar out[4] = {'x', 0};
  EXPECT_EQ(FUStrCatW(nullptr, out, 4), nullptr);
  EXPECT_EQ(FUStrCatW(out, nullptr, 4), nullptr);
  EXPECT_EQ(plain(out), "x");
}

TEST(AppendChar, AppendsOnlyADifferentCharacter) {
  const auto append = [](CPWChar* text) { FUAppendCharW(text, ':'); };
  EXPECT_EQ(changed(w("C"), append), "C:");
  EXPECT_EQ(changed(w("C:"), append), "C:");
  EXPECT_EQ(changed(w("C::"), append), "C::");
}

TEST(AppendChar, AnEmptyTextNeverReceivesTheCharacter) {
  EXPECT_EQ(changed(w(""), [](CPWChar* text) { FUAppendCharW(text, '\\'); }), "");
}

TEST(AppendChar, ATextOf254CharactersReceivesItAndOneOf255DoesNot) {
  const auto append = [](CPWChar* text) { FUAppendCharW(text, '\\'); };
  EXPECT_EQ(changed(run(254), append), plain(run(254)) + "\\");
  EXPECT_EQ(changed(run(255), append), plain(run(255)));
  Guarded<CPWChar> unterminated(FU_WIDE);
  std::fill_n(unterminated.data(), FU_WIDE, CPWChar{'x'});
  FUAppendCharW(unterminated.data(), '\\');
  EXPECT_EQ(unterminated[255], 'x');
  EXPECT_TRUE(unterminated.intact());
}

TEST(DriveLetter, IsOneLetterThatIsNoVariable) {
  const ScopedVariables variables({{"X", "C:\\x"}, {"DEV", "C:\\dev"}});
  EXPECT_EQ(FUIsDriveLetterW(w("C").c_str()), 1);
  EXPECT_EQ(FUIsDriveLetterW(w("z").c_str()), 1);
  for (const char* other : {"", "1", "\\", "CC", "C:", "DEV"})
    EXPECT_EQ(FUIsDriveLetterW(w(other).c_str()), 0) << other;
  EXPECT_EQ(FUIsDriveLetterW(nullptr), 0);
}

TEST(DriveLetter, ALetterThatIsADefinedVariableIsALogicalDevice) {
  const ScopedVariables variables({{"X", "C:\\x"}});
  EXPECT_EQ(FUIsDriveLetterW(w("X").c_str()), 0);
  EXPECT_EQ(FUIsDriveLetterW(w("x").c_str()), 1);
}

TEST(DriveLetter, IsALetterOfTheLocale) {
  const ScopedVariables variables({});
  for (const char* name : {"C", text_locale()}) {
    const ScopedLocale locale(name);
    for (const int c : {0xE9, 0xC9, 0xD7, 0x416, 0x661, 0x2116})
      EXPECT_EQ(FUIsDriveLetterW(wide(std::u32string(1, static_cast<char32_t>(c))).c_str()),
                std::iswalpha(static_cast<std::wint_t>(c)) != 0 ? 1 : 0)
          << name << ", " << c;
  }
  const ScopedLocale locale(text_locale());
  EXPECT_EQ(FUIsDriveLetterW(wide(U"\u00E9").c_str()), 1);
  EXPECT_EQ(FUIsDriveLetterW(wide(U"\u00D7").c_str()), 0);
}

TEST(DriveLetter, HalfASurrogatePairIsNoLetter) {
  const ScopedVariables variables({});
  const CPWChar half[2] = {0xD83D, 0};
  EXPECT_EQ(FUIsDriveLetterW(half), 0);
}

TEST(SpecText, LiteralsAndSearchesWorkOnWideText) {
  EXPECT_EQ(plain(W_("VX_\\")), "VX_\\");
  WideBuffer text(W_("a;b;c"));
  EXPECT_EQ(find_first(text, ';') - text, 1);
  EXPECT_EQ(find_last(text, ';') - text, 3);
  EXPECT_EQ(find_first(text, ':'), nullptr);
  EXPECT_EQ(find_last(text, ':'), nullptr);
  EXPECT_TRUE(same_text(text, W_("a;b;c")));
  EXPECT_FALSE(same_text(text, W_("a;b;C")));
  EXPECT_TRUE(same_text(nullptr, W_("")));
  EXPECT_TRUE(is_empty(nullptr));
  EXPECT_TRUE(is_empty(W_("")));
  EXPECT_FALSE(is_empty(W_("a")));
}

TEST(SpecText, ATextCountsUpToIts255thCharacter) {
  const WideText text = run(300);
  EXPECT_EQ(view_of(text.c_str()).size(), 255u);
  EXPECT_EQ(length_within(text.c_str(), 7), 7);
  EXPECT_EQ(length_within(nullptr, 7), 0);
  EXPECT_EQ(WideBuffer(text.c_str()).length(), 255);
}

TEST(BoundedHelpers, DoNotUseTheHeap) {
  const WideText text = run(300);
  HeapWatch heap;
  WideBuffer buffer(text.c_str());
  buffer.append(text.c_str());
  buffer.append_char('\\');
  EXPECT_EQ(heap.requests(), 0);
}

TEST(BoundedHelpers, AreAsPlainStringsOverRandomTexts) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF001, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const WideText first = wide(specs.spec()), second = wide(specs.spec());
    const auto room = static_cast<std::size_t>(random.one_in(2) ? 256 : random.between(1, 256));
    Guarded<CPWChar> out(static_cast<int>(room));

    FUStrCopyW(out.data(), first.c_str(), room);
    WideText model = first.substr(0, room - 1);
    ASSERT_EQ(WideText(out.data()), model);
    FUStrCatW(out.data(), second.c_str(), room);
    model = (model + second).substr(0, room - 1);
    ASSERT_EQ(WideText(out.data()), model);
    if (room == kWide) {
      FUAppendCharW(out.data(), ':');
      if (!model.empty() && model.size() < 255 && model.back() != ':') model += CPWChar{':'};
      ASSERT_EQ(WideText(out.data()), model);
    }
    ASSERT_TRUE(out.intact());
  }
}

}  // namespace Corvane::Print::tests
