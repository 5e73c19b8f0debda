// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Levels and separators at the end of host paths.
#include <gtest/gtest.h>

#include <algorithm>

#include "corvane/print/fu.h"
#include "tests/filespec/spec_models.h"
#include "tests/filespec/spec_support.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using Result = SpecModel::Result;

WideText run(int length, char c = 'n') {
  return WideText(static_cast<std::size_t>(length), static_cast<CPWChar>(c));
}

Result comp_appended(const WideText& hfs, const WideText& comp) {
  return wide_answer([&](CPWChar* out) { return FUAppendCompHFSW(hfs.c_str(), comp.c_str(), out); });
}

Result comps_removed(const WideText& hfs, int count) {
  return wide_answer([&](CPWChar* out) { return FURemoveCompsHFSW(hfs.c_str(), count, out); });
}

Result sep_appended(const WideText& src) {
  return wide_answer([&](CPWChar* out) { return FUAppendDirSepHFSW(src.c_str(), out); });
}

Result sep_removed(const WideText& src) {
  return wide_answer([&](CPWChar* out) { return FURemoveDirSepHFSW(src.c_str(), out); });
}

// call(buffer) on a buffer of 256 characters that holds the text.
template <class Call>
Result in_place(const WideText& text, Call call) {
  return wide_answer([&](CPWChar* buffer) {
    std::copy_n(text.c_str(), std::min<std::size_t>(text.size(), 255), buffer);
    buffer[std::min<std::size_t>(text.size(), 255)] = 0;
    return call(buffer);
  });
}

// The three ways to ask, which must agree: wide, wide in place, narrow.
Answer agreed(const Result& wide_result, const Result& placed, const Answer& narrow_result) {
  EXPECT_EQ(wide_result, placed);
  EXPECT_EQ(Answer(wide_result.first, plain(wide_result.second)), narrow_result);
  return narrow_result;
}

Answer comp(const std::string& hfs, const std::string& c) {
  return agreed(comp_appended(w(hfs), w(c)),
                in_place(w(hfs), [&](CPWChar* b) { return FUAppendCompHFSW(b, w(c).c_str(), b); }),
                narrow_answer([&](char* out) { return FUAppendCompHFS(hfs.c_str(), c.c_str(), out); }));
}

Answer removed(const std::string& hfs, int count) {
  return agreed(comps_removed(w(hfs), count),
                in_place(w(hfs), [&](CPWChar* b) { return FURemoveCompsHFSW(b, count, b); }),
                narrow_answer([&](char* out) { return FURemoveCompsHFS(hfs.c_str(), count, out); }));
}

Answer with_sep(const std::string& src) {
  return agreed(sep_appended(w(src)), in_place(w(src), [&](CPWChar* b) { return FUAppendDirSepHFSW(b, b); }),
                narrow_answer([&](char* out) { return FUAppendDirSepHFS(src.c_str(), out); }));
}

Answer without_sep(const std::string& src) {
  return agreed(sep_removed(w(src)), in_place(w(src), [&](CPWChar* b) { return FURemoveDirSepHFSW(b, b); }),
                narrow_answer([&](char* out) { return FURemoveDirSepHFS(src.c_str(), out); }));
}

Answer ok(const std::string& text) {
  return {FU_OK, text};
}

}  // namespace

TEST(AppendComp, PutsAComponentBehindASeparator) {
  EXPECT_EQ(comp("C:\\a", "f.txt"), ok("C:\\a\\f.txt"));
  EXPECT_EQ(comp("C:\\a\\", "b\\f"), ok("C:\\a\\b\\f"));
  EXPECT_EQ(comp("C:/a/", "f"), ok("C:/a/\\f"));
  EXPECT_EQ(comp("", "f"), ok("f"));
  EXPECT_EQ(comp("C:\\a", ""), ok("C:\\a\\"));
  EXPECT_EQ(comp("", ""), ok(""));
}

TEST(AppendComp, AComponentThatFillsTheRoomLeavesIndex255Alone) {
  for (const int length : {150, 151, 152, 5000}) {
    Guarded<CPWChar> out(FU_WIDE);
    std::fill_n(out.data(), FU_WIDE, CPWChar{'#'});
    EXPECT_EQ(FUAppendCompHFSW(run(103, 'h').c_str(), run(length, 'c').c_str(), out.data()), FU_OK);
    const WideText expected = run(103, 'h') + w("\\") + run(std::min(length, 151), 'c');
    EXPECT_EQ(WideText(out.data(), expected.size()), expected);
    EXPECT_EQ(out[254], length == 150 ? 0 : 'c');
    EXPECT_EQ(out[255], '#') << length;
    EXPECT_TRUE(out.intact());
  }
}

TEST(AppendComp, WithoutRoomNothingIsAppended) {
  EXPECT_EQ(comp(std::string(254, 'h'), "f"), ok(std::string(254, 'h') + "\\"));
  EXPECT_EQ(comp(std::string(255, 'h'), "f"), ok(std::string(255, 'h')));
  EXPECT_EQ(comp(std::string(253, 'h'), "fg"), ok(std::string(253, 'h') + "\\f"));
}

TEST(AppendComp, AnUnterminatedBufferIsReadUpToItsEndOnly) {
  Guarded<CPWChar> buffer(FU_WIDE);
  const auto fill = [&buffer] { std::fill_n(buffer.data(), FU_WIDE, CPWChar{'x'}); };
  fill();
  FUAppendCompHFSW(buffer.data(), w("f").c_str(), buffer.data());
  FUAppendDirSepHFSW(buffer.data(), buffer.data());
  EXPECT_EQ(buffer[255], 'x');
  FURemoveDirSepHFSW(buffer.data(), buffer.data());
  EXPECT_EQ(WideText(buffer.data()), run(255, 'x'));
  fill();
  EXPECT_EQ(FURemoveCompsHFSW(buffer.data(), 0, buffer.data()), FU_OK);
  EXPECT_EQ(WideText(buffer.data()), run(255, 'x'));
  EXPECT_TRUE(buffer.intact());
}

TEST(AppendComp, TheComponentMayLieInTheOutput) {
  CPWChar text[FU_WIDE];
  std::copy_n(w("abc").c_str(), 4, text);
  FUAppendCompHFSW(text, text, text);
  EXPECT_EQ(plain(text), "abc\\abc");
}

TEST(RemoveComps, TakesLevelsOffTheEnd) {
  EXPECT_EQ(removed("C:\\a\\b\\c", 1), ok("C:\\a\\b"));
  EXPECT_EQ(removed("C:\\a\\b\\c", 2), ok("C:\\a"));
  EXPECT_EQ(removed("C:\\a\\b\\c", 3), ok("C:\\"));
  EXPECT_EQ(removed("C:\\a\\b\\c\\", 1), ok("C:\\a\\b"));
  EXPECT_EQ(removed("\\a", 1), ok("\\"));
  EXPECT_EQ(removed("a\\b", 1), ok("a"));
}

TEST(RemoveComps, FewerLevelsThanAskedForFail) {
  EXPECT_EQ(removed("C:\\a\\b\\c", 4), Answer(FU_FAILED, ""));
  EXPECT_EQ(removed("a", 1), Answer(FU_FAILED, ""));
  EXPECT_EQ(removed("", 1), Answer(FU_FAILED, ""));
  EXPECT_EQ(removed("a\\", 1), Answer(FU_FAILED, ""));
  EXPECT_EQ(removed("C:/a/b", 1), Answer(FU_FAILED, ""));
}

TEST(RemoveComps, ANegativeCountFails) {
  EXPECT_EQ(removed("C:\\a", -1), Answer(FU_FAILED, ""));
  EXPECT_EQ(removed("", -2147483647 - 1), Answer(FU_FAILED, ""));
}

TEST(RemoveComps, ACountOfZeroOnlyDropsATrailingSeparator) {
  EXPECT_EQ(removed("C:\\a\\b\\", 0), ok("C:\\a\\b"));
  EXPECT_EQ(removed("C:\\a\\b", 0), ok("C:\\a\\b"));
  EXPECT_EQ(removed("C:\\a\\\\", 0), ok("C:\\a\\"));
  EXPECT_EQ(removed("C:\\", 0), ok("C:\\"));
  EXPECT_EQ(removed("", 0), ok(""));
}

TEST(RemoveComps, EverySeparatorCountsAlsoOneBesideAnother) {
  EXPECT_EQ(removed("\\\\srv\\share", 1), ok("\\\\srv"));
  EXPECT_EQ(removed("\\\\srv\\share", 2), ok("\\"));
  EXPECT_EQ(removed("\\\\srv\\share", 3), ok("\\"));
  EXPECT_EQ(removed("a\\\\b", 2), ok("a"));
}

TEST(RemoveComps, ALongPathIsCutAfterItsLevelsWereTaken) {
  const WideText path = w("C:\\") + run(300, 'a') + w("\\") + run(300, 'b');
  EXPECT_EQ(comps_removed(path, 1), Result(FU_OK, (w("C:\\") + run(300, 'a')).substr(0, 255)));
  EXPECT_EQ(comps_removed(path, 2), Result(FU_OK, w("C:\\")));
  EXPECT_EQ(comps_removed(path, 3), Result(FU_FAILED, {}));
}

TEST(AppendDirSep, AppendsABackslashUnlessThereIsOne) {
  EXPECT_EQ(with_sep("C:\\a"), ok("C:\\a\\"));
  EXPECT_EQ(with_sep("C:\\a\\"), ok("C:\\a\\"));
  EXPECT_EQ(with_sep(""), ok(""));
}

TEST(AppendDirSep, OnlyABackslashCounts) {
  EXPECT_EQ(with_sep("C:/a/"), ok("C:/a/\\"));
}

TEST(AppendDirSep, NeverWritesPastIndex255) {
  EXPECT_EQ(with_sep(std::string(254, 'a')), ok(std::string(254, 'a') + "\\"));
  EXPECT_EQ(with_sep(std::string(255, 'a')), ok(std::string(255, 'a')));
  for (const int length : {256, 257, 5000})
    EXPECT_EQ(sep_appended(run(length)), Result(FU_OK, run(255))) << length;
}

TEST(RemoveDirSep, DropsOneBackslash) {
  EXPECT_EQ(without_sep("C:\\a\\"), ok("C:\\a"));
  EXPECT_EQ(without_sep("C:\\a\\\\"), ok("C:\\a\\"));
  EXPECT_EQ(without_sep("C:\\a"), ok("C:\\a"));
  EXPECT_EQ(without_sep("C:/a/"), ok("C:/a/"));
  EXPECT_EQ(without_sep(""), ok(""));
  EXPECT_EQ(without_sep("a\\"), ok("a"));
  EXPECT_EQ(without_sep("\\\\"), ok("\\"));
}

TEST(RemoveDirSep, TheSeparatorOfARootStays) {
  EXPECT_EQ(without_sep("\\"), ok("\\"));
  EXPECT_EQ(without_sep("C:\\"), ok("C:\\"));
  EXPECT_EQ(without_sep("::\\"), ok("::\\"));
  EXPECT_EQ(without_sep("C:\\\\"), ok("C:\\"));
  EXPECT_EQ(without_sep("DEV:\\"), ok("DEV:"));
}

TEST(RemoveDirSep, ALongPathIsCutAfterTheSeparatorWasTaken) {
  EXPECT_EQ(sep_removed(run(255) + w("\\")), Result(FU_OK, run(255)));
  EXPECT_EQ(sep_removed(run(254) + w("\\") + run(45)), Result(FU_OK, run(254) + w("\\")));
  EXPECT_EQ(sep_removed(run(5000) + w("\\")), Result(FU_OK, run(255)));
}

TEST(Levels, NullPathsAreEmptyOnes) {
  EXPECT_EQ(answer([](CPWChar* out) { return FUAppendCompHFSW(nullptr, nullptr, out); }), ok(""));
  EXPECT_EQ(answer([](CPWChar* out) { return FURemoveCompsHFSW(nullptr, 0, out); }), ok(""));
  EXPECT_EQ(answer([](CPWChar* out) { return FUAppendDirSepHFSW(nullptr, out); }), ok(""));
  EXPECT_EQ(answer([](CPWChar* out) { return FURemoveDirSepHFSW(nullptr, out); }), ok(""));
}

TEST(Levels, DoNotUseTheHeap) {
  const WideText path = run(300) + w("\\") + run(5);
  CPWChar out[FU_WIDE];
  HeapWatch heap;
  FUAppendCompHFSW(path.c_str(), path.c_str(), out);
  FURemoveCompsHFSW(path.c_str(), 1, out);
  FUAppendDirSepHFSW(path.c_str(), out);
  FURemoveDirSepHFSW(path.c_str(), out);
  EXPECT_EQ(heap.requests(), 0);
}

TEST(Levels, RandomPathsAreAsByASecondImplementation) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF00B, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const WideText path = wide(specs.spec()), component = wide(specs.spec());
    const int count = random.between(-1, random.one_in(10) ? 200 : 5);
    ASSERT_EQ(sep_appended(path), Result(FU_OK, SpecModel::append_dir_sep(path)));
    ASSERT_EQ(sep_removed(path), Result(FU_OK, SpecModel::cut(SpecModel::remove_dir_sep(path))));
    ASSERT_EQ(comps_removed(path, count), SpecModel::remove_comps(path, count));
    ASSERT_EQ(comp_appended(path, component), Result(FU_OK, SpecModel::append_comp(path, component)));
  }
}

TEST(Levels, RandomPathsInPlaceAndNarrowAreAsWideOnes) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF00C, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const std::string path = narrow(specs.spec()), component = narrow(specs.spec());
    const WideText p = widened(path), c = widened(component);
    const int count = random.between(-1, 5);
    const auto same = [](const Result& expected, const Result& placed, const Answer& narrow_result) {
      EXPECT_EQ(placed, expected);
      EXPECT_EQ(narrow_result, Answer(expected.first, narrowed(expected.second)));
    };
    same(sep_appended(p), in_place(p, [](CPWChar* b) { return FUAppendDirSepHFSW(b, b); }),
         narrow_answer([&](char* out) { return FUAppendDirSepHFS(path.c_str(), out); }));
    same(sep_removed(p), in_place(p, [](CPWChar* b) { return FURemoveDirSepHFSW(b, b); }),
         narrow_answer([&](char* out) { return FURemoveDirSepHFS(path.c_str(), out); }));
    same(comps_removed(p, count), in_place(p, [&](CPWChar* b) { return FURemoveCompsHFSW(b, count, b); }),
         narrow_answer([&](char* out) { return FURemoveCompsHFS(path.c_str(), count, out); }));
    same(comp_appended(p, c), in_place(p, [&](CPWChar* b) { return FUAppendCompHFSW(b, c.c_str(), b); }),
         narrow_answer([&](char* out) { return FUAppendCompHFS(path.c_str(), component.c_str(), out); }));
    if (HasFailure()) return;
  }
}

}  // namespace Corvane::Print::tests
