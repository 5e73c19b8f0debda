// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The Corvane Print authors
//
// Joining components into a specification.
#include <gtest/gtest.h>

#include "corvane/print/fu.h"
#include "tests/filespec/spec_models.h"
#include "tests/filespec/spec_support.h"
#include "tests/support/heap_watch.h"
#include "tests/support/scale.h"

namespace Corvane::Print::tests {
namespace {

using Parts = SpecModel::Parts;

std::pair<int, WideText> build_wide(const Parts& p) {
  return wide_answer([&p](CPWChar* out) {
    return FUBuildLFSW(p.dev.c_str(), p.dir.c_str(), p.name.c_str(), p.ext.c_str(), p.ver.c_str(), out);
  });
}

Answer built(const std::string& dev, const std::string& dir, const std::string& name, const std::string& ext,
             const std::string& ver) {
  const Answer narrow_built = narrow_answer([&](char* out) {
    return FUBuildLFS(dev.c_str(), dir.c_str(), name.c_str(), ext.c_str(), ver.c_str(), out);
  });
  const auto [status, text] = build_wide({w(dev), w(dir), w(name), w(ext), w(ver)});
  EXPECT_EQ(narrow_built, Answer(status, plain(text)));
  return {status, plain(text)};
}

WideText run(int length, char c = 'n') {
  return WideText(static_cast<std::size_t>(length), static_cast<CPWChar>(c));
}

}  // namespace

TEST(BuildLfs, JoinsAllComponentsWithTheirSeparators) {
  EXPECT_EQ(built("C:", "\\data", "f", "txt", "2"), Answer(FU_OK, "C:\\data\\f.txt;2"));
  EXPECT_EQ(built("C", "\\data\\", "f", ".txt", ";2"), Answer(FU_OK, "C:\\data\\f.txt;2"));
  EXPECT_EQ(built("", "dir", "", "txt", ""), Answer(FU_OK, "dir.txt"));
  EXPECT_EQ(built("DEV", "", "f", "", ""), Answer(FU_OK, "DEV:f"));
  EXPECT_EQ(built("", "", "", "", ""), Answer(FU_OK, ""));
}

TEST(BuildLfs, ADirectoryReceivesASeparatorOnlyInFrontOfAName) {
  EXPECT_EQ(built("", "dir", "f", "", ""), Answer(FU_OK, "dir\\f"));
  EXPECT_EQ(built("C", "\\dir", "", "", ""), Answer(FU_OK, "C:\\dir"));
  EXPECT_EQ(built("", "dir\\", "f", "", ""), Answer(FU_OK, "dir\\f"));
}

TEST(BuildLfs, ADirectoryEndingInASlashReceivesABackslash) {
  EXPECT_EQ(built("C", "/", "f", "", ""), Answer(FU_OK, "C:/\\f"));
  EXPECT_EQ(built("", "a/", "f", "", ""), Answer(FU_OK, "a/\\f"));
}

TEST(BuildLfs, AnExtensionOrVersionWithNothingBeforeItGetsNoSeparator) {
  EXPECT_EQ(built("", "", "", "txt", ""), Answer(FU_OK, "txt"));
  EXPECT_EQ(built("", "", "", "", "2"), Answer(FU_OK, "2"));
  EXPECT_EQ(built("", "", "", ".txt", ";2"), Answer(FU_OK, ".txt;2"));
}

TEST(BuildLfs, SeparatorsAreNotDoubled) {
  EXPECT_EQ(built("", "", "name.", "txt", ""), Answer(FU_OK, "name.txt"));
  EXPECT_EQ(built("", "", "name;", "", "2"), Answer(FU_OK, "name;2"));
  EXPECT_EQ(built("", "", "name", ".", ""), Answer(FU_OK, "name."));
}

TEST(BuildLfs, NullComponentsAreEmptyOnes) {
  EXPECT_EQ(
      answer([](CPWChar* out) { return FUBuildLFSW(nullptr, nullptr, nullptr, nullptr, nullptr, out); }),
      Answer(FU_OK, ""));
  EXPECT_EQ(
      narrow_answer([](char* out) { return FUBuildLFS(nullptr, nullptr, nullptr, nullptr, nullptr, out); }),
      Answer(FU_OK, ""));
  EXPECT_EQ(narrow_answer([](char* out) { return FUBuildLFS(nullptr, "a", "f", nullptr, nullptr, out); }),
            Answer(FU_OK, "a\\f"));
}

TEST(BuildLfs, TheNameIsShortenedOnlyAbove513Characters) {
  // 513 together: let through, and cut by the buffer alone.
  EXPECT_EQ(build_wide({{}, {}, run(513), {}, {}}), std::pair(int{FU_OK}, run(255)));
  EXPECT_EQ(build_wide({{}, {}, run(200), run(312, 'e'), {}}).first, FU_OK);
  EXPECT_EQ(build_wide({{}, {}, run(200), w(".") + run(312, 'e'), {}}).first, FU_OK);
  // One more.
  EXPECT_EQ(build_wide({{}, {}, run(514), {}, {}}), std::pair(int{FU_SHORTENED}, run(255)));
  EXPECT_EQ(build_wide({{}, {}, run(200), run(313, 'e'), {}}),
            std::pair(int{FU_SHORTENED}, run(199) + w(".") + run(55, 'e')));
  EXPECT_EQ(build_wide({{}, {}, run(200), w(".") + run(313, 'e'), {}}),
            std::pair(int{FU_SHORTENED}, run(199) + w(".") + run(55, 'e')));
}

TEST(BuildLfs, AnExtensionOfMoreThan513CharactersLeavesNothingOfTheName) {
  EXPECT_EQ(build_wide({{}, {}, run(5), run(512, 'e'), {}}), std::pair(int{FU_SHORTENED}, run(255, 'e')));
  EXPECT_EQ(build_wide({{}, w("d"), run(5), run(5000, 'e'), {}}),
            std::pair(int{FU_SHORTENED}, w("d\\.") + run(252, 'e')));
}

TEST(BuildLfs, AnExtensionWithoutANameIsNotCounted) {
  EXPECT_EQ(build_wide({{}, {}, {}, run(5000, 'e'), {}}), std::pair(int{FU_OK}, run(255, 'e')));
}

TEST(BuildLfs, TheNarrowFormNeverShortensSinceItsTextsAreCutBefore) {
  const std::string name(5000, 'n'), ext(5000, 'e');
  const Answer result = narrow_answer(
      [&](char* out) { return FUBuildLFS(nullptr, nullptr, name.c_str(), ext.c_str(), nullptr, out); });
  EXPECT_EQ(result, Answer(FU_OK, name.substr(0, 255)));
}

TEST(BuildLfs, ResultsAreCutAt255Characters) {
  for (const int length : {253, 254, 255, 256, 257, 5000}) {
    const Parts parts{run(length, 'd'), run(2, 'r'), run(2), {}, {}};
    WideText expected = run(std::min(length, 255), 'd');
    if (length < 255) expected += CPWChar{':'};
    expected = (expected + w("rr\\nn")).substr(0, 255);
    EXPECT_EQ(build_wide(parts), std::pair(int{FU_OK}, expected)) << length;
  }
}

TEST(BuildLfs, TheResultMayBeWrittenOverAComponent) {
  CPWChar text[FU_WIDE] = {'f', 0};
  FUBuildLFSW(w("C").c_str(), w("\\a").c_str(), text, w("e").c_str(), nullptr, text);
  EXPECT_EQ(plain(text), "C:\\a\\f.e");
}

TEST(BuildLfs, DoesNotUseTheHeap) {
  const WideText text = run(5000);
  const std::string ascii(5000, 'x');
  CPWChar out[FU_WIDE];
  char narrow_out[FU_NARROW];
  HeapWatch heap;
  FUBuildLFSW(text.c_str(), text.c_str(), text.c_str(), text.c_str(), text.c_str(), out);
  FUBuildLFS(ascii.c_str(), ascii.c_str(), ascii.c_str(), ascii.c_str(), ascii.c_str(), narrow_out);
  EXPECT_EQ(heap.requests(), 0);
}

TEST(BuildLfs, ParsingUndoesBuilding) {
  CPWChar dev[FU_WIDE], dir[FU_WIDE], name[FU_WIDE], ext[FU_WIDE], ver[FU_WIDE];
  for (const char* spec :
       {"C:\\data\\plot.pen;2", "\\\\srv\\share\\f", "CFGDIR:f.txt", "C:\\f.txt", "a\\.cfg"}) {
    FUParseUFSW(w(spec).c_str(), dev, dir, name, ext, ver);
    EXPECT_EQ(answer([&](CPWChar* out) { return FUBuildLFSW(dev, dir, name, ext, ver, out); }),
              Answer(FU_OK, spec));
  }
}

TEST(BuildLfs, RandomComponentsAreJoinedAsByASecondImplementation) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF004, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    const Parts parts{wide(specs.spec()), wide(specs.spec()), wide(specs.spec()), wide(specs.spec()),
                      wide(specs.spec())};
    ASSERT_EQ(build_wide(parts), SpecModel::build(parts));
  }
}

TEST(BuildLfs, RandomNarrowComponentsAreJoinedAsWideOnes) {
  for (int i = 0; i < scaled(100000); ++i) {
    const std::uint64_t seed = case_seed(0xF005, i);
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    Random random(seed);
    RandomSpecs specs(random);
    std::string texts[5];
    for (std::string& text : texts) text = narrow(specs.spec());
    const auto [status, text] = build_wide(
        {widened(texts[0]), widened(texts[1]), widened(texts[2]), widened(texts[3]), widened(texts[4])});
    const Answer result = narrow_answer([&texts](char* out) {
      return FUBuildLFS(texts[0].c_str(), texts[1].c_str(), texts[2].c_str(), texts[3].c_str(),
                        texts[4].c_str(), out);
    });
    ASSERT_EQ(result, Answer(status, narrowed(text)));
  }
}

}  // namespace Corvane::Print::tests
